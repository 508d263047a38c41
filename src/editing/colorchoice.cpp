// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/colorchoice.h"

#include "common/dialogs.h"
#include "theme/themecolors.h"
#include "theme/themedocument.h"

void chooseThemeColor(ThemeDocument &doc, Dialogs &dialogs, ColorRow row)
{
    const auto color = dialogs.chooseColor();
    if (!color)
        return;
    doc.setSwatch(rowOf(row), *color);
    doc.setText(QString::fromLatin1(colorKeys[row]), colorToText(*color));
}
