// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <QByteArray>
#include <QString>

/** A sound or a piece of music in the form the game plays, still in memory. */
struct ConvertedSound : Report {
    QByteArray bytes;
    QString extension; // "wav", or the music's own ("mid", "ogg", ...)
    bool copied = false; // the source's own bytes, taken as they are
};

/** The sample rates the game plays; any other becomes the last. */
inline constexpr int gameSampleRates[] = {11025, 22050, 44100};

/**
 * Any sound libsndfile reads (wave of any sample format, FLAC, OGG Vorbis, MP3 where the
 * library has it) as a 16-bit PCM wave of the same channels, at its own rate when the game
 * plays that, else resampled to 44100 Hz. An unreadable file is an error naming the reason.
 */
ConvertedSound convertGameSound(const QString &source);

/**
 * Music: a file the game's music player takes (by its name and its first bytes) as it is,
 * anything else libsndfile reads as OGG Vorbis.
 */
ConvertedSound convertGameMusic(const QString &source);
