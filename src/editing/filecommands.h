// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"
#include "package/resourcepackage.h"

#include <QLatin1StringView>
#include <QString>

#include <functional>

class Dialogs;
class ThemeDocument;

/** The one filter of the theme file dialogs. */
inline constexpr QLatin1StringView themeFileFilter{QT_TRANSLATE_NOOP("FileFilter", "Stakko Theme File (*.skt)") "|*.skt|"};

/** The state the editor starts in: a new theme, unchanged, with no package and no music folder. */
void setStartUpState(ThemeDocument &doc);

/**
 * The file name Save As proposes for a theme called \a themeName: "Ice Age.skt". Characters no
 * file name may hold on Windows or here become "_"; a blank name proposes nothing ("").
 */
QString proposedThemeFileName(const QString &themeName);

/**
 * The File menu's commands and the guard of the editor's end, over one document and the dialogs
 * that ask the author; the editor and the command line run the same ones. They alone clear the
 * dirty flag; every command that would drop unsaved changes first asks whether to save them,
 * and a "Cancel" there leaves everything as it was.
 */
class FileCommands
{
public:
    FileCommands(ThemeDocument &doc, Dialogs &dialogs);

    /**
     * The save prompt. True when the command may go on: "No", or "Yes" and the theme was
     * saved through the Save As dialog. False after "Cancel" or a cancelled dialog; a failed
     * save fails with the reason.
     */
    Result<bool> promptToSave();
    /**
     * Save As dialog, then write: true when saved, false when the dialog was cancelled; a failed
     * write fails with the reason. The current file changes only on success.
     */
    Result<bool> saveThemeAs();
    /** The open dialog for a theme file; "" when cancelled. */
    QString chooseThemeToLoad();

    /** Each command returns what it has to tell the author; a failure is also told there. */
    Result<void> newTheme();
    /**
     * Stopped: the author cancelled (a save the prompt asked for that failed is told with it).
     * A theme that did not load fails with what the loader found.
     */
    enum class LoadOutcome { Stopped, Loaded };
    /**
     * The Load command. Whole or nothing: a file that does not load leaves the theme, the
     * current file, the package folder and the dirty flag as they were before the command (a
     * cancelled dialog leaves the theme unchanged); a theme that loaded has nothing unsaved.
     */
    Result<LoadOutcome> loadTheme();
    /** Loads a theme named outside the dialogs (command line, drop, recent themes) as Load does. */
    Result<LoadOutcome> loadPath(const QString &path);
    /**
     * For the command line's dump: a file that does not load still becomes the current file and
     * shows what was read of it, as the loader left it. Never written over all the same.
     */
    void setFailedLoadsShown(bool shown) { m_failedLoadsShown = shown; }
    /** False while the current file is one that did not load as a theme: Save then asks for a file. */
    bool currentFileLoaded() const { return m_currentFileLoaded; }
    /** Writes to the current file, or asks for one when there is none or it did not load. */
    Result<void> saveTheme();
    Result<void> saveAs();
    /**
     * The guard of Exit and of closing the window. True when the editor may end; false (or a
     * failed save) leaves the editor running, nothing changed.
     */
    Result<bool> exitRequested();

    /** The limits every load unpacks a package within. */
    void setExtractOptions(const ExtractOptions &options) { m_extract = options; }
    enum class Done { Loaded, Saved };
    /** Runs \a then each time a theme has loaded or the document has been written. */
    void setAfterLoadOrSave(std::function<void(Done)> then) { m_afterLoadOrSave = std::move(then); }
    /** The folder whose "data" folder the Load dialog opens in; the program's folder unless set. */
    void setProgramFolder(const QString &folder) { m_programFolder = folder; }

private:
    /** True when the command may go on (no unsaved changes, or the prompt allowed it). */
    Result<bool> guard();
    Result<void> writeTo(const QString &path);
    Result<LoadOutcome> load(const QString &path, bool dirtyBefore);

    ThemeDocument &m_doc;
    Dialogs &m_dialogs;
    QString m_programFolder;
    bool m_currentFileLoaded = true;   // false while the current file is one that failed to load
    bool m_failedLoadsShown = false;
    ExtractOptions m_extract;
    std::function<void(Done)> m_afterLoadOrSave;
};
