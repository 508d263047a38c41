// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/scripteddialogs.h"
#include "editing/filecommands.h"
#include "editor/artimportdialog.h"
#include "editor/buttonbinding.h"
#include "editor/mainwindow.h"
#include "sound/soundsystem.h"
#include "theme/themedocument.h"

/** The window with the buttons and the import the program binds to it, every page built. */
struct EditorParts {
    ThemeDocument doc;
    ScriptedDialogs dialogs;
    SoundSystem sound;
    MainWindow window{doc};
    FileCommands commands{doc, dialogs};
    ButtonBinding buttons{window, doc, dialogs, sound, commands};
    ArtImportCommand importer{window, doc, dialogs, commands};
    EditorParts()
    {
        window.startUp();
        window.buildAllPages();
    }
};
