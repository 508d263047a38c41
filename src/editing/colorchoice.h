// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class Dialogs;
enum class ColorRow;
class ThemeDocument;

/**
 * Lets the author pick theme colour \a row: the swatch and the colour's
 * text change together. Cancelling changes nothing.
 */
void chooseThemeColor(ThemeDocument &doc, Dialogs &dialogs, ColorRow row);
