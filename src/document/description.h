// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ThemeDocument;

/** The summary that "Generate Description" puts into the description: "//" lines, CRLF after each. */
QString generateDescription(const ThemeDocument &doc);
