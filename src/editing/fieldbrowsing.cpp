// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/fieldbrowsing.h"

#include "theme/themeloader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "common/dialogs.h"
#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "package/resourcepackage.h"

#include <iterator>

namespace {

QString withForwardSlashes(QString path)
{
    return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

// The browse dialog of a package-relative row; "" when cancelled.
QString browseInPackage(ThemeDocument &doc, Dialogs &dialogs, QLatin1StringView filter)
{
    const QString chosen = browseForFile(dialogs, filter, doc.packageFolder());
    return makeThemeRelative(chosen, doc.packageFolderTail());
}

bool browseIntoField(ThemeDocument &doc, Dialogs &dialogs, QLatin1StringView filter, const char *key)
{
    const QString result = browseInPackage(doc, dialogs, filter);
    if (result.isEmpty())
        return false;
    doc.setText(QLatin1StringView(key), result);
    return true;
}

} // namespace

QStringList filterExtensions(QLatin1StringView filter)
{
    const QStringList parts = QString(filter).split(u'|');
    QStringList extensions;
    for (qsizetype i = 1; i < parts.size(); i += 2) {
        for (QString pattern : parts.at(i).split(u';', Qt::SkipEmptyParts)) {
            pattern = pattern.trimmed();
            if (pattern.startsWith(QStringLiteral("*.")) && pattern != u"*.*")
                extensions.append(pattern.mid(2).toLower());
        }
    }
    extensions.removeDuplicates();
    return extensions;
}

QString makeThemeRelative(const QString &path, const QString &packageFolderTail)
{
    if (packageFolderTail.isEmpty())
        return path;
    // Replacing one character by one keeps positions, so the match indexes the original path.
    const qsizetype at = withForwardSlashes(path).indexOf(withForwardSlashes(packageFolderTail), 0,
                                                          Qt::CaseInsensitive);
    if (at < 0)
        return path;
    return path.mid(at + packageFolderTail.size());
}

std::optional<FrameFileName> splitFrameFileName(const QString &name)
{
    const qsizetype dot = name.indexOf(QLatin1Char('.'));
    if (dot < 0)
        return std::nullopt;
    // A name starting with "." has no frame number to drop; its root stays empty.
    return FrameFileName{name.left(qMax<qsizetype>(dot - 1, 0)), name.mid(dot + 1)};
}

QString browseForFile(Dialogs &dialogs, const QString &filter, const QString &initialFolder)
{
    return dialogs.openFileName(filter, initialFolder);
}

bool setFrameImage(ThemeDocument &doc, QAnyStringView imageField, const QString &name)
{
    for (const AnimatedElement &e : animatedElements) {
        if (imageField != QLatin1StringView(e.imageField))
            continue;
        doc.setText(QLatin1StringView(e.imageField), name);
        if (const auto split = splitFrameFileName(name)) {
            doc.setText(QLatin1StringView(e.rootField), split->root);
            doc.setText(QLatin1StringView(e.extensionField), split->extension);
        }
        return true;
    }
    return false;
}

bool browseAnimatedImage(ThemeDocument &doc, Dialogs &dialogs, AnimatedElementId element)
{
    const QString result = browseInPackage(doc, dialogs, imageFilter);
    return !result.isEmpty() && setFrameImage(doc, QLatin1StringView(animatedElements[element].imageField), result);
}

bool browseInterfaceImage(ThemeDocument &doc, Dialogs &dialogs, InterfaceRow row)
{
    return browseIntoField(doc, dialogs, imageFilter, interfaceRowKeys[row]);
}

bool browseMiscImage(ThemeDocument &doc, Dialogs &dialogs, MiscImageRow row)
{
    return browseIntoField(doc, dialogs, imageFilter, miscImageKeys[row]);
}

bool browseSkinFile(ThemeDocument &doc, Dialogs &dialogs)
{
    return browseIntoField(doc, dialogs, imageFilter, FieldKey::skinFile);
}

bool browseSound(ThemeDocument &doc, Dialogs &dialogs, SoundRow row)
{
    return browseIntoField(doc, dialogs, soundFilter, soundRowKeys[row]);
}

bool browseMusic(ThemeDocument &doc, Dialogs &dialogs)
{
    const QString chosen = browseForFile(dialogs, musicFilter, doc.packageFolder());
    const QString result = makeThemeRelative(chosen, doc.packageFolderTail());
    if (result.isEmpty())
        return false;
    doc.setText(FieldKey::midi, result);
    doc.setMusicFolder(result == chosen ? QString() : doc.packageFolder());
    return true;
}

bool browseArtFolder(ThemeDocument &doc, Dialogs &dialogs)
{
    const QString chosen = dialogs.chooseFolder(QCoreApplication::translate("FieldBrowsing", "Choose the folder of the theme's art"));
    if (chosen.isEmpty())
        return false;
    const QDir folder(QDir::fromNativeSeparators(chosen));
    // The whole path is the tail: a file chosen below it is stored relative to it.
    const QString path = folder.absolutePath() + u'/';
    doc.setPackageFolder(path, path);
    // A name the author gave stays, even for a package not built yet; the New-theme one is no choice.
    const QString resource = doc.value(FieldKey::resourceFile);
    if (resource.isEmpty() || resource == QLatin1StringView(fieldSpec(FieldKey::resourceFile).defaultValue))
        doc.setText(FieldKey::resourceFile, folder.dirName() + QStringLiteral(".zip"));
    return true;
}

Result<bool> browseResourcePackage(ThemeDocument &doc, Dialogs &dialogs)
{
    const QString chosen = browseForFile(dialogs, zipFilter, QString());
    if (chosen.isEmpty())
        return false;
    const UnpackReport unpacked = extractResourcePackage(chosen, dialogs);
    doc.setPackageFolder(unpacked.location.folder, unpacked.location.tail);
    doc.setText(FieldKey::resourceFile, chosen);
    return Result<bool>(true, unpacked);
}
