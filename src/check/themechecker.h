// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"
#include "package/resourcepackage.h"

#include <QString>

class Dialogs;
class ThemeDocument;

/**
 * Every problem the game would meet in \a doc, a theme as loaded (its package unpacked): errors
 * first, then warnings, each group in the order found. Each problem has a stable code, the
 * field key it belongs to ("" for the theme as a whole), the file concerned (may be "") and a
 * message in plain words. Only \a doc and files are read, so it may run on a worker thread
 * while nobody changes \a doc.
 */
Report checkTheme(const ThemeDocument &doc);

/** checkTheme() that only asks whether each file exists: what a build needs before packing. */
Report checkThemeFilesExist(const ThemeDocument &doc);

/** checkTheme() without looking at any file: what the fields alone show. */
Report checkThemeFields(const ThemeDocument &doc);

/**
 * The errors found in the content of the files a build packs from \a folder, each looked up
 * there (a full path where it names one). That files are missing, or named by full paths, is
 * the build's own to say.
 */
Report checkBuildFiles(const ThemeDocument &doc, const QString &folder);

/**
 * Why the play button of sound or music field \a key ("rotate", "midi") cannot play the file it
 * names, in the checker's words with the path looked at, or "" when it can: the text the
 * editor shows in its status bar.
 */
QString playProblem(const ThemeDocument &doc, const QString &key);

/**
 * Loads \a path into \a doc as the Load command does (a package's password is asked through
 * \a questions), then checks it. A file that does not load gives "theme-unreadable" alone; a
 * package that does not unpack gives "package-missing" or "package-unreadable", and then no
 * file is looked at, as the package folder does not hold the package's files.
 */
Report checkThemeFile(ThemeDocument &doc, const QString &path, Dialogs &questions,
                      const ExtractOptions &extract = {});
