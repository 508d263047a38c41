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

/** Index just after the last "/" or "\" in \a path, or 0 when there is none. */
qsizetype afterLastSeparator(const QString &path);

/**
 * Whether a theme's file name is absolute as Windows reads it: it starts with "/" or "\", or
 * with a drive letter, a colon and a separator.
 */
bool isAbsoluteThemePath(const QString &name);
