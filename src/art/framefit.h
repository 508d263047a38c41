// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QSize>

/** How a picture of another size is brought to a frame rectangle. */
enum class FrameFit {
    Fill,    // scaled to cover, the centre cut out
    Fit,     // scaled to fit inside, the rest the background colour
    Stretch, // scaled to the rectangle, aspect ratio ignored
    Pixel,   // the whole factor (or whole divisor) nearest covering, nearest neighbour, centre cut out
};

/**
 * \a picture as a \a size frame of 24-bit colour, its alpha flattened onto \a background.
 * A picture of exactly \a size keeps every pixel whatever the fit.
 */
QImage fitFrame(const QImage &picture, QSize size, FrameFit fit, QColor background);
