// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// skm.ini bytes through the settings reader, the writer and the reader again, and through the
// profile reader with the section and key names the file itself spells.

#include "fuzzsupport.h"
#include "scratchfolder.h"

#include "common/profilereader.h"
#include "sound/mixersettings.h"

#include <QStringList>

namespace {

// The calls under test, one place each.
EditorConfig readConfig(const QString &path)
{
    EditorConfig config;
    readEditorConfig(config, path);
    return config;
}

void writeConfig(const EditorConfig &config, const QString &path)
{
    const Result<void> written = writeEditorConfig(config, path);
    require(written.ok(), QStringLiteral("writeEditorConfig failed: ") + written.errorText());
}

QString configText(const EditorConfig &config)
{
    return QStringLiteral("frequency=%1 numchannels=%2 output=%3")
        .arg(config.frequency).arg(config.numchannels).arg(config.output);
}

/** Names to ask the profile reader for: what stands in "[...]" and before "=" on each line. */
struct Names {
    QStringList sections{QStringLiteral("Sound Mixer")};
    QStringList keys{QStringLiteral("frequency"), QStringLiteral("numchannels"), QStringLiteral("output")};
};

Names namesIn(const QByteArray &bytes)
{
    constexpr qsizetype most = 24; // each: every section is asked for every key
    Names names;
    QByteArray lines = bytes;
    lines.replace('\r', '\n'); // the reader ends lines at CR, LF or CRLF
    for (const QByteArray &line : lines.split('\n')) {
        const QString text = QString::fromLatin1(line).trimmed();
        const qsizetype close = text.indexOf(u']');
        if (text.startsWith(u'[') && close > 0 && names.sections.size() < most)
            names.sections.append(text.mid(1, close - 1).trimmed());
        const qsizetype equals = text.indexOf(u'=');
        if (equals > 0 && names.keys.size() < most)
            names.keys.append(text.left(equals).trimmed());
    }
    return names;
}

/** \a text with the case of its ASCII letters swapped. */
QString swappedCase(const QString &text)
{
    QString swapped = text;
    for (QChar &c : swapped) {
        if (c >= u'a' && c <= u'z')
            c = QChar(c.unicode() - 32);
        else if (c >= u'A' && c <= u'Z')
            c = QChar(c.unicode() + 32);
    }
    return swapped;
}

void checkProfile(const QString &path, const Names &names)
{
    const ProfileFile file = ProfileFile::open(path);
    require(file.isRead(), QStringLiteral("a readable file was not read"));
    for (const QString &section : names.sections) {
        for (const QString &key : names.keys) {
            const QString value = file.text(section, key);
            const QString where = QStringLiteral("[%1] %2").arg(section, key);
            require(value.size() <= 254, where + QStringLiteral(": a value longer than 254 characters"));
            require(file.text(swappedCase(section), swappedCase(key)) == value,
                    where + QStringLiteral(": the letter case of the names changes the value"));
            if (value != missingValueMarker())
                require(file.text(section, key, QStringLiteral("default")) == value,
                        where + QStringLiteral(": a value found depends on the default"));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = freshInput(QStringLiteral("skm.ini"), data, size);

    const EditorConfig read = readConfig(path);
    require(read.output >= 0 && read.output <= 3, QStringLiteral("output %1 read").arg(read.output));
    const QString copy = scratch().path() + QStringLiteral("/copy.ini");
    writeConfig(read, copy);
    const EditorConfig again = readConfig(copy);
    require(configText(again) == configText(read),
            QStringLiteral("settings [%1] read back as [%2]").arg(configText(read), configText(again)));

    checkProfile(path, namesIn(inputBytes(data, size)));
    return 0;
}
