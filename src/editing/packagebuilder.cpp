// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/packagebuilder.h"

#include "check/themechecker.h"
#include "common/pathlookup.h"
#include "editing/filecommands.h"
#include "package/resourcepackage.h"
#include "theme/animatedelement.h"
#include "theme/referencedfiles.h"
#include "theme/themedocument.h"
#include "theme/themeloader.h"
#include "package/zipdirectory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

// Themes come from Windows: a "\" in a name is a folder, which a zip entry writes as "/". "."
// and ".." are resolved as Windows resolves them, so no entry holds one.
QString entryName(const QString &name)
{
    return entryNameParts(name).value_or(QStringList{name}).join(u'/');
}

/** The file \a path names, its ".." parts taken away with the part before them first, as on Windows. */
QString windowsPath(const QString &path)
{
    return resolveThemePath(QDir::cleanPath(QString(path).replace(u'\\', u'/')));
}

bool isMissingFile(const Problem &p)
{
    return p.code == u"file-missing" || p.code == u"frame-missing";
}

QString withFolderEnd(QString folder)
{
    folder = QDir::fromNativeSeparators(folder);
    return folder.isEmpty() || folder.endsWith(u'/') ? folder : folder + u'/';
}

/**
 * The first of "bg", "bg-2", "bg-3", ... none of whose file names (\a namesOf it) an entry
 * holds yet, letter case ignored.
 */
QString unusedName(const QString &wanted, const QSet<QString> &taken,
                   const std::function<QStringList(const QString &)> &namesOf)
{
    for (int n = 1;; ++n) {
        const QString candidate = n == 1 ? wanted : QStringLiteral("%1-%2").arg(wanted).arg(n);
        const QStringList names = namesOf(candidate);
        if (std::none_of(names.cbegin(), names.cend(), [&](const QString &f) { return taken.contains(f.toLower()); }))
            return candidate;
    }
}

class Builder
{
public:
    Builder(ThemeDocument &doc, const BuildOptions &options) : m_doc(doc), m_options(options) {}

    BuildReport run(const PackageProgress &progress)
    {
        if (m_doc.number(FieldKey::themeType) != 1) {
            m_report.error(QCoreApplication::translate("PackageBuilder", "A Theme Type 0 theme has no resource package: choose Theme Type 1 to "
                                                                         "build one."),
                           QLatin1StringView(FieldKey::themeType));
            return m_report;
        }
        m_report.package = m_options.output.isEmpty()
                               ? resourcePackagePath(m_doc.currentThemeFile(), m_doc.value(FieldKey::resourceFile))
                               : m_options.output;
        if (m_options.output.isEmpty() && m_doc.currentThemeFile().isEmpty()) {
            m_report.error(QCoreApplication::translate("PackageBuilder", "Save the theme first: its package is written beside it."));
            return m_report;
        }
        const QString from = withFolderEnd(m_options.from.isEmpty() ? defaultBuildSource(m_doc) : m_options.from);
        for (const FileReference &r : referencesToRelink(m_doc, from))
            m_relinked.insert(r.key);
        missingFiles(from);
        if (m_report.hasErrors())
            return m_report;
        gather(from);
        if (const Result<void> written = writePackageEntries(m_report.package, m_entries, progress); !written) {
            m_report.error(written.errorText(), QLatin1StringView(FieldKey::resourceFile), m_report.package);
            return m_report;
        }
        m_report.written = true;
        m_report.entries = m_entries.size();
        return m_report;
    }

private:
    // The checker, run on a copy that looks where the build looks, says what is missing.
    void missingFiles(const QString &from)
    {
        ThemeDocument copy;
        copy.assignFrom(m_doc);
        copy.setPackageFolder(from, from);
        copy.setMusicFolder(from);
        const Report found = checkThemeFilesExist(copy);
        copy.setPackageFolder(QString(), QString());
        copy.setMusicFolder(QString());
        const Report atTheirOwnPaths = m_options.relink ? checkThemeFilesExist(copy) : Report();
        for (const Problem &p : found.problems) {
            const bool absolute = isAbsoluteField(p.field);
            const bool leadsAway = p.code == u"path-absolute" || p.code == u"path-outside";
            if ((leadsAway && !m_options.relink) || (isMissingFile(p) && !absolute))
                m_report.add(p);
        }
        for (const Problem &p : atTheirOwnPaths.problems) {
            if (isMissingFile(p) && isAbsoluteField(p.field))
                m_report.add(p);
        }
        for (Problem &p : m_report.problems)
            p.severity = Problem::Severity::Error;
    }

    bool isAbsoluteField(const QString &key)
    {
        for (const FileReference &r : referencedFiles(m_doc)) {
            if (r.key == key && isAbsoluteThemePath(r.name))
                return true;
        }
        return false;
    }

    void gather(const QString &from)
    {
        const QList<FileReference> references = referencedFiles(m_doc);
        // Names the theme already uses stay as they are; relinked ones make way for them.
        for (const FileReference &r : references) {
            if (!m_relinked.contains(r.key)) {
                for (const QString &f : r.files)
                    m_taken.insert(entryName(f).toLower());
            }
        }
        for (const FileReference &r : references) {
            if (r.kind == FileKind::ResourcePackage || r.kind == FileKind::SkinFile || r.name.isEmpty())
                continue;
            if (m_relinked.contains(r.key))
                relink(r, isAbsoluteThemePath(r.name) ? QString() : from);
            else
                for (const QString &f : r.files)
                    add(entryName(f), resolveThemePath(from + f));
        }
    }

    /** Stores \a r under its own file name, read from \a from + its name with ".." resolved as Windows does. */
    void relink(const FileReference &r, const QString &from)
    {
        QString own = r.name.mid(afterLastSeparator(r.name));
        if (own.size() >= 2 && own.at(1) == u':')
            own.remove(0, 2); // "C:bg" names "bg" on drive C
        if (own.isEmpty() || own == u"." || own == u"..")
            own = QStringLiteral("file");
        if (r.kind == FileKind::FrameSequence) {
            const QString extension = u'.' + r.extension;
            const auto frames = [&r, &extension](const QString &root) {
                QStringList names;
                for (qsizetype n = 1; n <= r.files.size(); ++n)
                    names << root + QString::number(n) + extension;
                return names;
            };
            const QString root = unusedName(own, m_taken, frames);
            for (qsizetype i = 0; i < r.files.size(); ++i)
                add(root + QString::number(i + 1) + extension, windowsPath(from + r.files.at(i)));
            const AnimatedElement *e = elementWithRoot(r.key);
            m_doc.setText(QLatin1StringView(e->rootField), root);
            m_doc.setText(QLatin1StringView(e->imageField), root + QStringLiteral("1") + extension);
        } else {
            const qsizetype dot = own.lastIndexOf(u'.');
            const QString stem = dot > 0 ? own.left(dot) : own;
            const QString extension = dot > 0 ? own.mid(dot) : QString();
            const QString name =
                unusedName(stem, m_taken, [&extension](const QString &n) { return QStringList{n + extension}; })
                + extension;
            add(name, windowsPath(from + r.name));
            m_doc.setText(r.key, name);
            if (r.kind == FileKind::Music)
                m_doc.setMusicFolder(m_doc.packageFolder());
        }
        m_report.relinked << r.key;
    }

    void add(const QString &name, const QString &source)
    {
        if (m_added.contains(name.toLower()))
            return; // two fields naming one file: stored once
        m_added.insert(name.toLower());
        m_taken.insert(name.toLower());
        m_entries.append({name, source});
    }

    ThemeDocument &m_doc;
    const BuildOptions &m_options;
    BuildReport m_report;
    QList<PackageEntry> m_entries;
    QSet<QString> m_taken; // lower case
    QSet<QString> m_added;
    QSet<QString> m_relinked; // the keys whose files go in under their own names
};

} // namespace

QList<FileReference> referencesToRelink(const ThemeDocument &doc, const QString &from)
{
    QList<FileReference> found;
    for (const FileReference &r : referencedFiles(doc)) {
        if (r.kind == FileKind::ResourcePackage || r.kind == FileKind::SkinFile || r.name.isEmpty())
            continue;
        const bool away = isAbsoluteThemePath(r.name)
                          || std::any_of(r.files.cbegin(), r.files.cend(),
                                         [&from](const QString &f) { return leadsOutOfFolder(from, f); });
        if (away)
            found.append(r);
    }
    return found;
}

QString defaultBuildSource(const ThemeDocument &doc)
{
    // An art folder, or the unpacked copy of a package that exists; a package not made yet
    // leaves only an empty folder behind.
    const bool artFolder = !doc.packageFolder().isEmpty() && doc.packageFolder() == doc.packageFolderTail();
    const bool unpacked =
        QFileInfo(resourcePackagePath(doc.currentThemeFile(), doc.value(FieldKey::resourceFile))).isFile();
    if ((artFolder || unpacked) && QFileInfo(doc.packageFolder()).isDir())
        return doc.packageFolder();
    const QString theme = doc.currentThemeFile();
    return theme.isEmpty() ? QDir::currentPath() : QFileInfo(theme).absolutePath();
}

BuildReport buildResourcePackage(ThemeDocument &doc, const BuildOptions &options, const PackageProgress &progress)
{
    return Builder(doc, options).run(progress);
}

ThemeBuild buildThemePackage(ThemeDocument &doc, FileCommands &commands, Dialogs &dialogs,
                             const BuildOptions &options, const PackageProgress &progress, bool followPackage)
{
    ThemeBuild result;
    result.built = buildResourcePackage(doc, options, progress);
    if (!result.built.written)
        return result;
    if (!result.built.relinked.isEmpty())
        result.told.append(commands.saveTheme().report());
    const bool artFolder = !doc.packageFolder().isEmpty() && doc.packageFolder() == doc.packageFolderTail();
    if (followPackage && !artFolder) {
        const UnpackReport unpacked = extractResourcePackage(result.built.package, dialogs);
        doc.setPackageFolder(unpacked.location.folder, unpacked.location.tail);
        result.told.append(unpacked);
    }
    return result;
}
