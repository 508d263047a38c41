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

Result<bool> FileCommands::promptToSave()
{
    const QString file = m_doc.currentThemeFile().isEmpty() ? QString() : QFileInfo(m_doc.currentThemeFile()).fileName();
    const Dialogs::Answer answer = m_dialogs.askToSave(
        QCoreApplication::translate("FileCommands", "Caution"),
        QCoreApplication::translate("FileCommands", "This action will cause all previous changes to be lost, do you wish to save?"), file);
    switch (answer) {
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Yes: {
        // Even a theme with a file of its own is saved through the dialog here.
        Result<bool> saved = saveThemeAs();
        if (saved && *saved)
            m_doc.setDirty(false);
        return saved;
    }
    default:
        return false;
    }
}

Result<bool> FileCommands::saveThemeAs()
{
    const QString path = m_dialogs.saveFileName(themeFileFilter, proposedThemeFileName(m_doc.value(FieldKey::name)));
    if (path.isEmpty())
        return false;
    Result<void> written = writeTo(path);
    if (!written)
        return written.takeReport();
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

Result<void> FileCommands::newTheme()
{
    Result<bool> go = guard();
    if (!go || !*go)
        return go.takeReport();
    m_doc.resetTheme();
    m_currentFileLoaded = true;
    m_doc.setDirty(false);
    return {};
}

Result<FileCommands::LoadOutcome> FileCommands::loadTheme()
{
    Result<bool> go = guard();
    if (!go || !*go)
        return {LoadOutcome::Stopped, go.takeReport()};
    const bool dirtyBefore = m_doc.isDirty();
    // The author has let the changes go: a cancelled dialog leaves them unsaved no longer.
    m_doc.setDirty(false);
    const QString path = chooseThemeToLoad();
    if (path.isEmpty())
        return LoadOutcome::Stopped;
    return load(path, dirtyBefore);
}

Result<FileCommands::LoadOutcome> FileCommands::loadPath(const QString &path)
{
    Result<bool> go = guard();
    if (!go || !*go)
        return {LoadOutcome::Stopped, go.takeReport()};
    return load(path, m_doc.isDirty());
}

Result<FileCommands::LoadOutcome> FileCommands::load(const QString &path, bool dirtyBefore)
{
    // Read into a copy: a file that does not load must leave the theme as it was. The copy
    // starts as the theme, since a load keeps what a Type 0 file does not hold.
    ThemeDocument loaded;
    loaded.assignFrom(m_doc);
    loaded.setDirty(false);
    LoadReport report = loadThemeFile(loaded, path, m_dialogs, m_extract);
    if (!report.loaded && !m_failedLoadsShown) {
        m_doc.setDirty(dirtyBefore);
        if (path == m_doc.currentThemeFile())
            m_currentFileLoaded = false;
        return Report(std::move(report)); // every load that fails says why
    }
    m_doc.takeTheme(loaded);
    m_doc.setCurrentThemeFile(path);
    m_currentFileLoaded = report.loaded;
    // Nothing of a theme just loaded is unsaved; a shown failure keeps what its reading changed.
    m_doc.setDirty(!report.loaded && loaded.isDirty());
    if (!report.loaded)
        return Report(std::move(report)); // every load that fails says why
    if (m_afterLoadOrSave)
        m_afterLoadOrSave(Done::Loaded);
    return {LoadOutcome::Loaded, std::move(report)};
}

Result<void> FileCommands::saveTheme()
{
    const QString current = m_doc.currentThemeFile();
    // A file that did not load is not this document: only the author may choose to replace it.
    if (current.isEmpty() || !m_currentFileLoaded)
        return saveAs();
    Result<void> written = writeTo(current);
    m_doc.setDirty(!written);
    return written;
}

Result<void> FileCommands::saveAs()
{
    Result<bool> saved = saveThemeAs();
    m_doc.setDirty(!saved || !*saved);
    return saved.takeReport();
}

Result<bool> FileCommands::exitRequested()
{
    Result<bool> go = guard();
    if (go && *go)
        m_doc.setDirty(false);
    return go;
}

Result<bool> FileCommands::guard()
{
    if (!m_doc.isDirty())
        return true;
    return promptToSave();
}

Result<void> FileCommands::writeTo(const QString &path)
{
    const Result<void> written = writeThemeFile(m_doc, path);
    if (written) {
        if (m_afterLoadOrSave)
            m_afterLoadOrSave(Done::Saved);
        return {};
    }
    // The author must learn why the theme is still unsaved; the command's state stays "changed".
    return Result<void>::fail(written.errorText(), {}, path);
}
