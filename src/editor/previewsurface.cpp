// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/previewsurface.h"

#include <QPainter>

PreviewSurface::PreviewSurface(const QString &objectName, QSize area, Mode mode, QWidget *parent)
    : QWidget(parent)
    , m_area(area)
    , m_mode(mode)
{
    setObjectName(objectName);
    setFixedSize(area);
    // Every pixel is painted here, so a new frame repaints nothing behind it.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PreviewSurface::setImage(const QImage &image)
{
    if (image.format() != QImage::Format_RGB888) {
        m_image = image;
    } else {
        // Qt paints 24-bit pictures onto the window through its thread pool, waking threads for
        // every frame; converted here, on this thread, a frame is a plain copy onto the window.
        if (m_image.size() != image.size() || m_image.format() != QImage::Format_RGB32 || !m_image.isDetached())
            m_image = QImage(image.size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            const uchar *from = image.constScanLine(y);
            auto *to = reinterpret_cast<QRgb *>(m_image.scanLine(y));
            for (int x = 0; x < image.width(); ++x, from += 3)
                to[x] = qRgb(from[0], from[1], from[2]);
        }
    }
    update();
}

void PreviewSurface::setFillColor(const QColor &color)
{
    m_fill = color;
    update();
}

void PreviewSurface::setOutlined(bool outlined)
{
    m_outlined = outlined;
    update();
}

void PreviewSurface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool covered = m_mode == Mode::Natural && !m_outlined && !m_image.hasAlphaChannel()
                         && QRect(QPoint(0, 0), m_image.size()).contains(rect());
    if (!covered)
        painter.fillRect(rect(), m_fill);
    if (m_outlined) {
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (m_image.isNull())
        return;
    if (m_mode == Mode::Stretch) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), m_image);
    } else {
        // Frames are authored in pixels: keep them pixel-exact, never smoothed.
        painter.drawImage(QPoint(0, 0), m_image);
    }
}
