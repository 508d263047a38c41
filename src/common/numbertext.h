// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/**
 * A number stored in a file: decimal in the C locale, blanks around it allowed, no thousands
 * separators. nullopt for anything else, empty text included.
 */
std::optional<double> storedNumber(const QString &text);

/** A number as the author typed it: the user's locale first, then the C locale. */
std::optional<double> parseAuthorNumber(const QString &text);

/** \a value rounded to the nearest integer, halves to the even neighbour (2.5 -> 2, 3.5 -> 4). */
double roundHalfEven(double value);

/** storedNumber() rounded half to even; nullopt beyond +-1e15, where whole numbers stop being exact. */
std::optional<qint64> storedWholeNumber(const QString &text);
