// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The colour texts of a theme's colour keys, as the game reads and the editor writes them.

#include <QString>

#include <optional>

/** A colour text "R,G,B" as red + 256 green + 65536 blue; white (0xFFFFFF) when unreadable. */
quint32 textToColor(const QString &text);

/**
 * The colour a well-formed colour text names: exactly three whole numbers from 0 to 255, no
 * blanks, no signs, separated by commas ("255,0,0"); nullopt for anything else.
 */
std::optional<quint32> colorOfText(const QString &text);

/** The colour text "R,G,B" of a colour value. */
QString colorToText(quint32 colorValue);
