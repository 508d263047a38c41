// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/framefit.h"

#include <QPainter>

#include <algorithm>

namespace {

// Enlarging: the least whole factor that covers; shrinking: the largest whole divisor that still covers.
QImage pixelScaled(const QImage &picture, QSize size)
{
    const QSize own = picture.size();
    if (own.width() >= size.width() && own.height() >= size.height()) {
        const int divisor = std::max(1, std::min(own.width() / size.width(), own.height() / size.height()));
        return picture.scaled(QSize(own.width() / divisor, own.height() / divisor), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    }
    const int factor = std::max((size.width() + own.width() - 1) / own.width(),
                                (size.height() + own.height() - 1) / own.height());
    return picture.scaled(own * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QImage scaledFor(const QImage &picture, QSize size, FrameFit fit)
{
    switch (fit) {
    case FrameFit::Fill:
        return picture.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    case FrameFit::Fit:
        return picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    case FrameFit::Stretch:
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    case FrameFit::Pixel:
        return pixelScaled(picture, size);
    }
    return picture;
}

/** Whether every pixel is opaque, whatever the format says: painting programs export alpha they do not use. */
bool isOpaque(const QImage &picture)
{
    if (!picture.hasAlphaChannel())
        return true;
    const QImage argb = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < argb.height(); ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(argb.constScanLine(y));
        if (!std::all_of(line, line + argb.width(), [](QRgb p) { return qAlpha(p) == 255; }))
            return false;
    }
    return true;
}

} // namespace

QImage fitFrame(const QImage &picture, QSize size, FrameFit fit, QColor background)
{
    // Opaque art that covers the frame needs no painting: its centre is the frame.
    const bool opaque = isOpaque(picture);
    const QImage source = picture.convertToFormat(opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    const QImage scaled = source.size() == size ? source : scaledFor(source, size, fit);
    const QPoint offset((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2);
    if (opaque && scaled.width() >= size.width() && scaled.height() >= size.height())
        return scaled.copy(QRect(-offset, size)).convertToFormat(QImage::Format_RGB888);
    QImage frame(size, QImage::Format_RGB32);
    frame.fill(background.rgb());
    QPainter painter(&frame);
    painter.drawImage(offset, scaled); // centred: a larger picture loses equal margins, a smaller one gets them
    painter.end();
    return frame.convertToFormat(QImage::Format_RGB888);
}
