// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QDir>
#include <QImage>
#include <QString>

#include "common/testfiles.h"

// Frames in these tests are solid colours from which the frame number reads back exactly.
inline QRgb frameColor(int n)
{
    return qRgb(n * 20, 250 - n * 20, 99);
}

/** The frame number whose colour \a pixel has; 0 for cleared (black), -1 for anything else. */
inline int frameOfPixel(QRgb pixel)
{
    if ((pixel & 0xFFFFFF) == 0)
        return 0;
    const int n = qRed(pixel) / 20;
    return frameColor(n) == (pixel | 0xFF000000) ? n : -1;
}

inline void writeFrame(const QString &path, QRgb color, QSize size)
{
    QDir().mkpath(path.left(path.lastIndexOf(u'/')));
    solidImage(size, color).save(path, "BMP");
}
