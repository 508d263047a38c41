// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "package/resourcepackage.h"

#include <QString>

#include <optional>

class Dialogs;
class ThemeDocument;

/**
 * What a load found. Not \c loaded when the file is no theme that can be loaded (no readable
 * theme type, or Theme Type 1 without a resource file): the document then holds only part of
 * it, and nothing may be saved over the file on its strength. A loaded theme may still carry
 * errors, such as a package that could not be unpacked.
 */
struct LoadReport : Report {
    bool loaded = false;
};

/**
 * Fills \a doc from the theme file at \a path through ordinary field writes, unpacking the
 * theme's resource package when it names one (within \a extract's limits; its password is
 * asked through \a questions), and, once the theme has loaded, its description as the writer
 * stored it. The caller sets the current file and handles the dirty flag.
 */
LoadReport loadThemeFile(ThemeDocument &doc, const QString &path, Dialogs &questions,
                         const ExtractOptions &extract = {});

/** Where the theme file at \a themePath finds its resource file \a resourceFile: beside it unless absolute. */
QString resourcePackagePath(const QString &themePath, const QString &resourceFile);
