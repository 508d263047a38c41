// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/** The program's settings files. */
enum class SettingsFile {
    Mixer,  // skm.ini: the sound mixer, in the layout the game reads
    Editor, // editor.ini: the editor's own (recent themes), which the game never sees
};

/**
 * Where a settings file lives. skm.ini lives beside the program when settingsBesideProgram()
 * allows it (a portable copy), else in the per-user configuration folder; editor.ini always
 * there. Reading prefers whichever copy exists; writing makes the folder first.
 */
QString settingsReadPath(SettingsFile file);
QString settingsWritePath(SettingsFile file);

/**
 * Whether settings may live in \a programFolder: a real folder of the user's own that nobody
 * else can write to, and no installed copy's (\a installedMarker, relative to the folder,
 * exists), whose folder everyone who runs it shares: not even its owner, root, keeps
 * settings there.
 */
bool settingsBesideProgram(const QString &programFolder, const QString &installedMarker);
