// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/numbertext.h"

#include <QLocale>

#include <cmath>

namespace {

std::optional<double> parseIn(QLocale locale, const QString &text)
{
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    bool ok = false;
    const double value = locale.toDouble(text.trimmed(), &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace

std::optional<double> storedNumber(const QString &text)
{
    return parseIn(QLocale::c(), text);
}

std::optional<double> parseAuthorNumber(const QString &text)
{
    if (text.trimmed().isEmpty())
        return std::nullopt;
    if (const auto value = parseIn(QLocale::system(), text))
        return value;
    return parseIn(QLocale::c(), text);
}

double roundHalfEven(double value)
{
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5)
        return below;
    if (fraction > 0.5)
        return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

std::optional<qint64> storedWholeNumber(const QString &text)
{
    const std::optional<double> value = storedNumber(text);
    if (!value || std::fabs(*value) > 1e15)
        return std::nullopt;
    return qint64(roundHalfEven(*value));
}
