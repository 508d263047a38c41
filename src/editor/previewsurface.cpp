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
}

void PreviewSurface::setImage(const QImage &image)
{
    m_image = image;
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
