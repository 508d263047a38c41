// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/previewsurface.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <vector>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

namespace {

/** A picture that says what it shows when asked, not on every frame it draws. */
class SurfaceAccessible : public QAccessibleWidget
{
public:
    explicit SurfaceAccessible(PreviewSurface *surface) : QAccessibleWidget(surface, QAccessible::Graphic) {}

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Description)
            return static_cast<const PreviewSurface *>(widget())->description();
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface *surfaceAccessible(const QString &className, QObject *object)
{
    if (className == QLatin1String("PreviewSurface") && object && object->isWidgetType())
        return new SurfaceAccessible(static_cast<PreviewSurface *>(object));
    return nullptr;
}

} // namespace

PreviewSurface::PreviewSurface(const QString &objectName, QSize area, Mode mode, QWidget *parent)
    : QWidget(parent)
    , m_area(area)
    , m_mode(mode)
{
    static const bool installed = [] {
        QAccessible::installFactory(surfaceAccessible);
        return true;
    }();
    Q_UNUSED(installed);
    setObjectName(objectName);
    setFixedSize(area);
    // Every pixel is painted here, so a new frame repaints nothing behind it.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QString PreviewSurface::description() const
{
    return m_describe ? m_describe() : accessibleDescription();
}

// R, G, B bytes to 0xffRRGGBB pixels, for the pixels from \a x on.
static void rgb888ToRgb32Tail(const uchar *from, QRgb *to, int x, int width)
{
    for (; x < width; ++x)
        to[x] = qRgb(from[3 * x], from[3 * x + 1], from[3 * x + 2]);
}

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define STAKKO_SHUFFLE_PIXELS
// Four pixels a shuffle: over ten times the plain loop, which alone cost more than the rest of
// showing a frame.
__attribute__((target("ssse3"))) static void rgb888ToRgb32Shuffled(const uchar *from, QRgb *to, int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, 8, 7, 6, -1, 11, 10, 9, -1);
    const __m128i opaque = _mm_set1_epi32(int(0xff000000));
    int x = 0;
    // Each load reads sixteen bytes, four past the four pixels: stop while they are in the row.
    for (; x + 6 <= width; x += 4) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + 3 * x));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + x), _mm_or_si128(_mm_shuffle_epi8(pixels, order), opaque));
    }
    rgb888ToRgb32Tail(from, to, x, width);
}
#endif

static void rgb888ToRgb32(const uchar *from, QRgb *to, int width)
{
#ifdef STAKKO_SHUFFLE_PIXELS
    static const bool shuffle = __builtin_cpu_supports("ssse3");
    if (shuffle)
        return rgb888ToRgb32Shuffled(from, to, width);
#endif
    rgb888ToRgb32Tail(from, to, 0, width);
}

QImage windowPixels(const QImage &image, QImage into)
{
    if (image.format() != QImage::Format_RGB888)
        return image;
    // Qt paints 24-bit pictures onto a window through its thread pool, waking threads for every
    // frame; converted here, on this thread, a frame is a plain copy onto the window.
    if (into.size() != image.size() || into.format() != QImage::Format_RGB32 || !into.isDetached())
        into = QImage(image.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        rgb888ToRgb32(image.constScanLine(y), reinterpret_cast<QRgb *>(into.scanLine(y)), image.width());
    return into;
}

// Each of \a width pixels \a zoom times over.
static void widenRow(const QRgb *from, QRgb *to, int width, int zoom)
{
    int x = 0;
#ifdef __SSE2__
    if (zoom == 2) { // the closer look's own zoom: four pixels a step
        for (; x + 4 <= width; x += 4) {
            const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + x));
            _mm_storeu_si128(reinterpret_cast<__m128i *>(to + 2 * x), _mm_unpacklo_epi32(pixels, pixels));
            _mm_storeu_si128(reinterpret_cast<__m128i *>(to + 2 * x + 4), _mm_unpackhi_epi32(pixels, pixels));
        }
    }
#endif
    for (; x < width; ++x)
        std::fill_n(to + x * zoom, zoom, from[x]);
}

QImage zoomedPixels(const QImage &image, int zoom, const QRect &part, QImage into)
{
    const QRect source = part & image.rect();
    if (source.isEmpty() || zoom < 1)
        return {};
    QImage pixels = image;
    QPoint from = source.topLeft();
    // Frames are converted row by row on the way, only the part in sight; stills in other
    // depths are converted whole first.
    const bool packed = image.format() == QImage::Format_RGB888;
    if (image.depth() != 32 && !packed) {
        pixels = image.copy(source).convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                             : QImage::Format_RGB32);
        from = QPoint(0, 0);
    }
    // Qt's own scaling costs six times this for the closer look's doubled frames.
    const QSize size = source.size() * zoom;
    const QImage::Format format = packed ? QImage::Format_RGB32 : pixels.format();
    if (into.size() != size || into.format() != format || !into.isDetached())
        into = QImage(size, format);
    const qsizetype rowBytes = qsizetype(size.width()) * 4;
    std::vector<QRgb> converted(packed ? size_t(source.width()) : 0);
    uchar *out = into.bits();
    for (int y = 0; y < source.height(); ++y) {
        const uchar *in = pixels.constScanLine(from.y() + y);
        const QRgb *row = reinterpret_cast<const QRgb *>(in) + from.x();
        if (packed) {
            rgb888ToRgb32(in + 3 * from.x(), converted.data(), source.width());
            row = converted.data();
        }
        uchar *first = out + qsizetype(y) * zoom * into.bytesPerLine();
        widenRow(row, reinterpret_cast<QRgb *>(first), source.width(), zoom);
        for (int copy = 1; copy < zoom; ++copy)
            std::memcpy(first + copy * into.bytesPerLine(), first, size_t(rowBytes));
    }
    return into;
}

void PreviewSurface::setImage(const QImage &image)
{
    m_image = windowPixels(image, std::move(m_image));
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
    if (!m_fill.isValid()) {
        // No colour: the page behind, struck through.
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(QPen(QColor(0xcc, 0x22, 0x22), 2));
        painter.drawLine(rect().bottomLeft(), rect().topRight());
    } else if (m_mode != Mode::Natural || m_outlined || m_image.hasAlphaChannel()
               || !QRect(QPoint(0, 0), m_image.size()).contains(rect())) {
        painter.fillRect(rect(), m_fill);
    }
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
