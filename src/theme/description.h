// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLatin1StringView>
#include <QString>

class ThemeDocument;

/** The generated description's line where the author is meant to type the real one. */
inline constexpr QLatin1StringView descriptionPlaceholder{"//!!!!ENTER YOUR DESCRIPTION HERE!!!!"};

/** The summary that "Generate Description" puts into the description: "//" lines, CRLF after each. */
QString generateDescription(const ThemeDocument &doc);
