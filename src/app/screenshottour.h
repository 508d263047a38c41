// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ArtImportCommand;
class MainWindow;
class PreviewBinding;
class ThemeDocument;

/** Where `--screenshot` writes and what it shows. */
struct ScreenshotTour {
    QString folder;
    QString themePath;       // "" for a new theme
    bool scaledPass = false; // this is the 144 DPI pass, run by the first one
};

/**
 * Writes every page and data set of the window's theme, with its previews playing at their first
 * frame, as PNG files in the tour's folder, then the Problems panel, the File and Edit menus, the
 * closer look at 4x and the import dialog; the first pass runs the 144 DPI pass. Returns the exit
 * status: 0, or 1 when a picture could not be written.
 */
int takeScreenshots(const ScreenshotTour &tour, MainWindow &window, PreviewBinding &previews,
                    ArtImportCommand &importer, const ThemeDocument &doc);
