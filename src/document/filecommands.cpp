// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/filecommands.h"

#include "common/dialogs.h"
#include "document/themedocument.h"
#include "document/themefilewriter.h"
#include "document/themeloader.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <utility>

void setStartUpState(ThemeDocument &doc)
{
    doc.resetTheme();
    doc.setDirty(false);
    doc.setPackageFolder(QString(), QString());
    doc.setMusicFolder(QString());
}

FileCommands::FileCommands(ThemeDocument &doc, Dialogs &dialogs)
    : m_doc(doc)
    , m_dialogs(dialogs)
{
}

bool FileCommands::promptToSave()
{
    const Dialogs::Answer answer = m_dialogs.askYesNoCancel(
        QStringLiteral("Caution"),
        QStringLiteral("This action will cause all previous changes to be lost, do you wish to save?"));
    switch (answer) {
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Yes:
        // Even a theme with a file of its own is saved through the dialog here.
        return saveThemeAs();
    default:
        return false;
    }
}

bool FileCommands::saveThemeAs()
{
    const QString path = m_dialogs.saveFileName(themeFileFilter);
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
    // Cleared before loading: the loader's field writes are edits and may set it again.
    m_doc.setDirty(false);
    const QString path = chooseThemeToLoad();
    if (path.isEmpty())
        return;
    load(path);
}

bool FileCommands::loadPath(const QString &path)
{
    if (!guard())
        return false;
    m_doc.setDirty(false);
    load(path);
    return true;
}

void FileCommands::load(const QString &path)
{
    const LoadReport report = loadThemeFile(m_doc, path, m_dialogs, m_extract);
    m_currentFileLoaded = report.loaded;
    m_report.append(report);
    m_doc.setCurrentThemeFile(path);
    if (report.loaded && m_afterLoadOrSave)
        m_afterLoadOrSave(Done::Loaded);
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
