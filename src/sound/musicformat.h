// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/** What the opening bytes of a music file say about it. */
enum class MusicContent {
    Playable,      // a format the mixer decodes
    WindowsMedia,  // WMA/ASF: a real format, but one nothing here can decode
    Damaged,       // announces a format but breaks its rules at once
    Unrecognised,
};

/** How many opening bytes classifyMusicContent() needs to see (tracker signatures sit deep). */
inline constexpr qsizetype musicHeaderLength = 1084;

/**
 * Classifies a music file by its first musicHeaderLength bytes \a head and its \a path. Old
 * 15-sample MOD files carry no signature, so a ".mod" name is taken on trust.
 */
MusicContent classifyMusicContent(const QByteArray &head, const QString &path);

/** True when \a path names a module song: MIDI or one of the tracker formats. */
bool isModuleSongName(const QString &path);
