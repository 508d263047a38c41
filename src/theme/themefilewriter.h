// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QByteArray>
#include <QString>

class ThemeDocument;

/**
 * The theme file's bytes for \a doc: Windows-1252, CRLF, the Type 0 or Type 1 layout.
 * Fails (naming the field and the character) when a text cannot be held in Windows-1252.
 */
Result<QByteArray> themeFileBytes(const ThemeDocument &doc);

/**
 * Writes the document as a theme file at \a path, replacing it atomically.
 * On failure nothing was written: the old file is untouched, no partial file is left behind, and
 * the report says why. Changes neither the document nor its editor state.
 */
Result<void> writeThemeFile(const ThemeDocument &doc, const QString &path);

/**
 * The description the writer stored in the theme file \a bytes, exactly as written: the lines
 * between the file's first line and the separator line directly above the first "[Theme Info]"
 * line, joined by CR LF. Empty when the first line is not the writer's or that separator is missing.
 */
QString storedDescription(const QByteArray &bytes);
