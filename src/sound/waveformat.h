// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/**
 * True when the file at \a path (as found on disk) is a RIFF/WAVE file that wave playback
 * opens: a format chunk of an encoding it decodes, with channels and a sample rate, before a
 * data chunk. Only chunk headers are read.
 */
bool isPlayableWaveFile(const QString &path);
