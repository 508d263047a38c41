// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Theme file bytes through load, save and load again.
//
// A first load normalises: missing keys take their fallbacks, empty names become "Unknown",
// a section whose keys are all empty is saved as a bare comment and reloads as left out.
// So the fields of load(x) and load(save(load(x))) differ for good reasons; what must hold is
// that a theme once saved and loaded is a fixed point: saving and loading it again changes
// no field. The one exception is a value the profile reader itself changes (see below).

#include "fuzzsupport.h"
#include "scratchfolder.h"
#include "silentdialogs.h"

#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"

#include <QFile>
#include <QStringList>

namespace {

// The calls under test, one place each.
bool load(ThemeDocument &doc, const QString &path)
{
    SilentDialogs dialogs;
    ExtractOptions extract;
    extract.maxBytes = 4 << 20; // a package the theme names may be a bomb
    return loadThemeFile(doc, path, dialogs, extract).loaded;
}

void save(const ThemeDocument &doc, const QString &path)
{
    const Result<void> written = writeThemeFile(doc, path);
    require(written.ok(), QStringLiteral("writeThemeFile failed: ") + written.errorText());
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), QStringLiteral("cannot read back ") + path);
    return file.readAll();
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

// The reader drops blanks around a value and one pair of quotes around it; the writer stores
// values as they are, so such a value loses a layer at every save and load.
bool readsBackUnchanged(const QString &value)
{
    if (value.isEmpty())
        return true;
    const bool blankAtEnd = isBlank(value.front()) || isBlank(value.back());
    const bool quoted = value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'')
                        && value.back() == value.front();
    return !blankAtEnd && !quoted;
}

bool readsBackUnchanged(const ThemeDocument &doc)
{
    for (int i = 0; i < int(themeFields().size()); ++i) {
        if (!readsBackUnchanged(doc.value(i)))
            return false;
    }
    return true;
}

/** Every field by key, then the state a load sets beside them, one "name=value" per entry. */
QStringList stateOf(const ThemeDocument &doc)
{
    QStringList state;
    for (int i = 0; i < int(themeFields().size()); ++i)
        state.append(QLatin1StringView(themeFields()[size_t(i)].key) + u'=' + doc.value(i));
    for (int i = 0; i < 12; ++i) {
        const auto swatch = doc.swatch(i);
        state.append(QStringLiteral("swatch%1=%2").arg(i).arg(swatch ? qint64(*swatch) : -1));
    }
    state.append(QStringLiteral("packageFolder=") + doc.packageFolder());
    state.append(QStringLiteral("packageFolderTail=") + doc.packageFolderTail());
    state.append(QStringLiteral("musicFolder=") + doc.musicFolder());
    return state;
}

QString firstDifference(const QStringList &before, const QStringList &after)
{
    for (qsizetype i = 0; i < before.size(); ++i) {
        if (before.at(i) != after.at(i))
            return QStringLiteral("[%1] became [%2]").arg(before.at(i), after.at(i));
    }
    return QString();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = freshInput(QStringLiteral("theme.skt"), data, size);

    // A file that does not load whole still leaves a document the editor could save as a new file.
    ThemeDocument first;
    load(first, path);
    const Result<QByteArray> firstBytes = themeFileBytes(first);
    if (!firstBytes)
        return 0; // a text Windows-1252 cannot hold: refusing it is the documented answer
    save(first, path);
    require(fileBytes(path) == *firstBytes, QStringLiteral("the saved file differs from themeFileBytes()"));

    ThemeDocument second;
    require(load(second, path), QStringLiteral("a saved theme does not load"));
    const Result<QByteArray> secondBytes = themeFileBytes(second);
    require(secondBytes.ok(), QStringLiteral("a theme loaded from a saved file cannot be saved"));
    if (!readsBackUnchanged(first))
        return 0;
    save(second, path);

    ThemeDocument third;
    require(load(third, path), QStringLiteral("a saved theme does not load"));
    const QString difference = firstDifference(stateOf(second), stateOf(third));
    require(difference.isEmpty(), QStringLiteral("a saved theme changed on saving and loading again: ") + difference);
    const Result<QByteArray> thirdBytes = themeFileBytes(third);
    require(thirdBytes && *thirdBytes == *secondBytes,
            QStringLiteral("a saved theme saves to other bytes after loading"));
    return 0;
}
