// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class EditorDialogs;
class FileCommands;
class MainWindow;
class ThemeDocument;

/**
 * "Build Resource Package": the theme's files into its package, as `stakko-theme build` does.
 * A theme never saved is saved first; files named by absolute paths are offered for relinking;
 * large packages show a progress dialog whose Cancel leaves the old package as it was. After
 * building, the package is unpacked as a load would (an art folder stays the package folder,
 * so previews keep following the art) and the theme is checked.
 */
class BuildCommand : public QObject
{
    Q_OBJECT

public:
    BuildCommand(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, FileCommands &commands);

    /** Returns true when the package was written. */
    bool build();

private:
    MainWindow &m_window;
    ThemeDocument &m_doc;
    EditorDialogs &m_dialogs;
    FileCommands &m_commands;
};
