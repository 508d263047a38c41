// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/**
 * Text as theme files and skm.ini hold it: Windows-1252, one byte per character.
 * The game reads these files byte for byte, so no other encoding is ever written.
 */
namespace AnsiText {

/** Decodes Windows-1252; the five unassigned bytes map to the C1 controls of the same value. */
QString decode(const QByteArray &bytes);

/**
 * Encodes \a text. Returns false when a character has no Windows-1252 byte; \a badPosition
 * then receives its index in \a text and \a out is left incomplete.
 */
bool encode(const QString &text, QByteArray *out, qsizetype *badPosition = nullptr);

} // namespace AnsiText
