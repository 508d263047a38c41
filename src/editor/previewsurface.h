// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include <functional>

/**
 * \a image as a window paints it quickly: a 24-bit picture becomes a 32-bit one, written into
 * \a into when that fits and is not shared; any other picture comes back as it is.
 */
QImage windowPixels(const QImage &image, QImage into = {});

/**
 * The pixels \a part of \a image at a whole-number \a zoom, each a square, as a window paints
 * them with a plain copy: 32-bit, written into \a into when that fits and is not shared.
 */
QImage zoomedPixels(const QImage &image, int zoom, const QRect &part, QImage into = {});

/**
 * A fixed-size picture area for previews. Natural mode draws the image unscaled from the
 * top-left corner (larger images are cut off); Stretch mode fills the whole area, ignoring the
 * aspect ratio. Whatever the image leaves uncovered shows the fill colour.
 */
class PreviewSurface : public QWidget
{
    Q_OBJECT

public:
    enum class Mode { Natural, Stretch };

    PreviewSurface(const QString &objectName, QSize area, Mode mode, QWidget *parent = nullptr);

    void setImage(const QImage &image);
    QImage image() const { return m_image; }

    /** An invalid colour shows "no colour": the page's base, struck through. */
    void setFillColor(const QColor &color);
    QColor fillColor() const { return m_fill; }

    /** A thin border, for small colour swatches that would otherwise vanish into the page. */
    void setOutlined(bool outlined);

    /**
     * What the surface shows, for assistive technology, asked for only when someone reads it
     * ("Game Background preview, frame 3 of 12, playing"); without it, the accessible description.
     */
    void setDescriber(std::function<QString()> describe) { m_describe = std::move(describe); }
    QString description() const;

    QSize sizeHint() const override { return m_area; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QSize m_area;
    Mode m_mode;
    QImage m_image;
    QColor m_fill = Qt::black;
    bool m_outlined = false;
    std::function<QString()> m_describe;
};
