// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QString>

/** The sound mixer settings kept in skm.ini. All zero until read. */
struct EditorConfig {
    qint32 frequency = 0;
    qint32 numchannels = 0;
    qint32 output = 0; // 0 no sound, 1 default driver, 2 and 3 the platform's alternatives
};

/** Fills \a config from the file at \a path with defaults 44100, 8 and 1 for what is missing. */
void readEditorConfig(EditorConfig &config, const QString &path);

/** Writes the seven lines of skm.ini, or fails saying why it could not. */
Result<void> writeEditorConfig(const EditorConfig &config, const QString &path);

/** Where skm.ini is read from and written to (settingsfiles.h). */
QString editorConfigReadPath();
QString editorConfigWritePath();
