// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/**
 * The file a theme names, found on this system. Themes are authored on Windows: "\" counts as
 * a separator, and a name that does not exist in that exact case is looked up without regard
 * to case, one path component at a time. Returns the path as given (separators normalised)
 * when nothing matches, so callers still report the name the author wrote.
 */
QString resolveThemePath(const QString &path);

/**
 * Where a file that a theme names is looked for: \a name itself when it is a full path of this
 * system (a file chosen outside the package folder), else \a name inside \a folder.
 */
QString themeFilePath(const QString &folder, const QString &name);

/** Index just after the last "/" or "\" in \a path, or 0 when there is none. */
qsizetype afterLastSeparator(const QString &path);

/**
 * Whether a theme's file name is absolute as Windows reads it: it starts with "/" or "\", or
 * with a drive letter, a colon and a separator.
 */
bool isAbsoluteThemePath(const QString &name);

/**
 * Whether the theme's file \a name, looked up below \a folder, leads out of that folder: it
 * climbs above it with ".." once "." and ".." are resolved, names a drive ("C:x"), or a link
 * on the way leads elsewhere. Absolute names are not counted here (isAbsoluteThemePath()).
 */
bool leadsOutOfFolder(const QString &folder, const QString &name);
