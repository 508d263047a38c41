// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/filecommands.h"

#include "common/dialogs.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

void setStartUpState(ThemeDocument &doc)
{
    doc.resetTheme();
    doc.setDirty(false);
    doc.setPackageFolder(QString(), QString());
    doc.setMusicFolder(QString());
}

QString proposedThemeFileName(const QString &themeName)
{
    QString name = themeName.trimmed();
    for (QChar &c : name) {
        if (c.unicode() < 32 || QStringView(u"<>:\"/\\|?*").contains(c))
            c = u'_';
    }
    // Windows drops dots and blanks at a name's end.
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name.isEmpty() ? QString() : name + QStringLiteral(".skt");
}

FileCommands::FileCommands(ThemeDocument &doc, Dialogs &dialogs)
    : m_doc(doc)
    , m_dialogs(dialogs)
{
}

bool FileCommands::promptToSave()
{
    const QString file = m_doc.currentThemeFile().isEmpty() ? QString() : QFileInfo(m_doc.currentThemeFile()).fileName();
    const Dialogs::Answer answer = m_dialogs.askToSave(
        QStringLiteral("Caution"),
        QStringLiteral("This action will cause all previous changes to be lost, do you wish to save?"), file);
    switch (answer) {
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Yes:
        // Even a theme with a file of its own is saved through the dialog here.
        if (!saveThemeAs())
            return false;
        m_doc.setDirty(false);
        return true;
    default:
        return false;
    }
}

bool FileCommands::saveThemeAs()
{
    const QString path = m_dialogs.saveFileName(themeFileFilter, proposedThemeFileName(m_doc.value(FieldKey::name)));
    if (path.isEmpty() || !writeTo(path))
        return false;
    m_doc.setCurrentThemeFile(path);
    m_currentFileLoaded = true;
    return true;
}

QString FileCommands::chooseThemeToLoad()
{
    const QString programFolder =
        m_programFolder.isEmpty() ? QCoreApplication::applicationDirPath() : m_programFolder;
    QString folder = programFolder + QStringLiteral("/data/");
    // Installs without shipped themes open where the author keeps documents instead.
    if (!QDir(folder).exists())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return m_dialogs.openFileName(themeFileFilter, folder);
}

void FileCommands::newTheme()
{
    if (!guard())
        return;
    m_doc.resetTheme();
    m_currentFileLoaded = true;
    m_doc.setDirty(false);
}

void FileCommands::loadTheme()
{
    if (!guard())
        return;
    const bool dirtyBefore = m_doc.isDirty();
    // The author has let the changes go: a cancelled dialog leaves them unsaved no longer.
    m_doc.setDirty(false);
    const QString path = chooseThemeToLoad();
    if (path.isEmpty())
        return;
    load(path, dirtyBefore);
}

FileCommands::LoadOutcome FileCommands::loadPath(const QString &path)
{
    if (!guard())
        return LoadOutcome::Stopped;
    return load(path, m_doc.isDirty());
}

FileCommands::LoadOutcome FileCommands::load(const QString &path, bool dirtyBefore)
{
    // Read into a copy: a file that does not load must leave the theme as it was. The copy
    // starts as the theme, since a load keeps what a Type 0 file does not hold.
    ThemeDocument loaded;
    loaded.assignFrom(m_doc);
    loaded.setDirty(false);
    const LoadReport report = loadThemeFile(loaded, path, m_dialogs, m_extract);
    m_report.append(report);
    if (!report.loaded && !m_failedLoadsShown) {
        m_doc.setDirty(dirtyBefore);
        if (path == m_doc.currentThemeFile())
            m_currentFileLoaded = false;
        return LoadOutcome::NotLoaded;
    }
    m_doc.takeTheme(loaded);
    m_doc.setCurrentThemeFile(path);
    m_currentFileLoaded = report.loaded;
    // Nothing of a theme just loaded is unsaved; a shown failure keeps what its reading changed.
    m_doc.setDirty(!report.loaded && loaded.isDirty());
    if (!report.loaded)
        return LoadOutcome::NotLoaded;
    if (m_afterLoadOrSave)
        m_afterLoadOrSave(Done::Loaded);
    return LoadOutcome::Loaded;
}

void FileCommands::saveTheme()
{
    const QString current = m_doc.currentThemeFile();
    // A file that did not load is not this document: only the author may choose to replace it.
    if (current.isEmpty() || !m_currentFileLoaded) {
        saveAs();
        return;
    }
    m_doc.setDirty(!writeTo(current));
}

void FileCommands::saveAs()
{
    m_doc.setDirty(!saveThemeAs());
}

bool FileCommands::exitRequested()
{
    if (!guard())
        return false;
    m_doc.setDirty(false);
    return true;
}

Report FileCommands::takeReport()
{
    return std::exchange(m_report, {});
}

bool FileCommands::guard()
{
    return !m_doc.isDirty() || promptToSave();
}

bool FileCommands::writeTo(const QString &path)
{
    QString error;
    if (writeThemeFile(m_doc, path, &error)) {
        if (m_afterLoadOrSave)
            m_afterLoadOrSave(Done::Saved);
        return true;
    }
    // The author must learn why the theme is still unsaved; the command's state stays "changed".
    m_report.error(error, {}, path);
    return false;
}
