// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/filewatch.h"

#include <QObject>

class EditorDialogs;
class FileCommands;
class ThemeDocument;

/**
 * Follows the theme file on disk. Changed by another program, it is loaded again at once when
 * the author has changed nothing since it was loaded or saved; otherwise the author is asked
 * whether to discard those changes. The editor's own Save never counts: the file is taken as
 * it is after each load and save.
 */
class ThemeFileWatch : public QObject
{
    Q_OBJECT

public:
    ThemeFileWatch(ThemeDocument &doc, FileCommands &commands, EditorDialogs &dialogs, QObject *parent = nullptr);

    /** A load or save just went through: the file as it is now is the document's. */
    void follow();

private:
    void changedOnDisk();

    ThemeDocument &m_doc;
    FileCommands &m_commands;
    EditorDialogs &m_dialogs;
    FileWatch m_watch;
    bool m_edited = false;
};
