// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themecolors.h"

#include "common/numbertext.h"

#include <QStringList>

#include <algorithm>

namespace {

/** A colour component: a whole number in the 16-bit range, not negative, above 255 counts as 255. */
std::optional<quint32> component(const QString &text)
{
    const std::optional<qint64> n = storedWholeNumber(text);
    if (!n || *n < 0 || *n > 32767)
        return std::nullopt;
    return quint32(std::min<qint64>(*n, 255));
}

} // namespace

quint32 textToColor(const QString &text)
{
    constexpr quint32 white = 0xFFFFFF;
    const qsizetype first = text.indexOf(u',');
    if (first < 0)
        return white;
    const QString rest = text.mid(first + 1);
    const qsizetype second = rest.indexOf(u',');
    if (second < 0)
        return white;
    const auto red = component(text.left(first));
    const auto green = component(rest.left(second));
    const auto blue = component(rest.mid(second + 1));
    if (!red || !green || !blue)
        return white;
    return *red + 256 * *green + 65536 * *blue;
}

std::optional<quint32> colorOfText(const QString &text)
{
    const QStringList parts = text.split(u',');
    if (parts.size() != 3)
        return std::nullopt;
    quint32 color = 0;
    for (int i = 0; i < 3; ++i) {
        const QString &part = parts.at(i);
        const bool digits = std::all_of(part.cbegin(), part.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        if (part.isEmpty() || part.size() > 3 || !digits || part.toInt() > 255)
            return std::nullopt;
        color += quint32(part.toInt()) << (8 * i);
    }
    return color;
}

QString colorToText(quint32 colorValue)
{
    const quint32 red = colorValue % 256;
    const quint32 blue = colorValue / 65536;
    const quint32 green = (colorValue - blue * 65536 - red) / 256;
    return QStringLiteral("%1,%2,%3").arg(red).arg(green).arg(blue);
}
