// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class EditorDialogs;
class FileCommands;
class QMenu;
class RecentThemes;

/**
 * The "Recent Themes" submenu: filled each time it opens, newest first with the full path as
 * tooltip. Opening one runs the Load command's save guard; one that no longer exists or no
 * longer loads leaves the list with a message.
 */
class RecentMenu : public QObject
{
    Q_OBJECT

public:
    RecentMenu(QMenu &menu, RecentThemes &recent, FileCommands &commands, EditorDialogs &dialogs);

    /** What opening the entry \a path does. */
    void open(const QString &path);

private:
    void fill();

    QMenu &m_menu;
    RecentThemes &m_recent;
    FileCommands &m_commands;
    EditorDialogs &m_dialogs;
};
