#include "preview/framestrip.h"

#include <cmath>
#include <cstring>

namespace FrameStrip {

static int stripHeight(const AnimatedElement &element, double frameCount)
{
    return int(std::ceil(element.stripHeightPerFrame * frameCount));
}

qint64 bytesNeeded(const AnimatedElement &element, double frameCount)
{
    const double height = std::ceil(element.stripHeightPerFrame * frameCount);
    if (!(height < double(maximumBytes))) // also catches NaN
        return maximumBytes + 1;
    const qint64 bytesPerLine = (qint64(element.stripWidth) * 3 + 3) & ~qint64(3);
    return bytesPerLine * qint64(height);
}

QImage allocate(const AnimatedElement &element, double frameCount)
{
    QImage strip(element.stripWidth, std::max(stripHeight(element, frameCount), 1),
                 QImage::Format_RGB888);
    if (!strip.isNull())
        std::memset(strip.bits(), 0, size_t(strip.sizeInBytes()));
    return strip;
}

static void copyRowsRgb32(const QImage &source, QImage &strip, int width, int height, int top)
{
    for (int y = 0; y < height; ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        uchar *to = strip.scanLine(top + y);
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = from[x];
            to[0] = uchar(qRed(pixel));
            to[1] = uchar(qGreen(pixel));
            to[2] = uchar(qBlue(pixel));
            to += 3;
        }
    }
}

static void copyRowsRgb888(const QImage &source, QImage &strip, int width, int height, int top)
{
    for (int y = 0; y < height; ++y)
        std::memcpy(strip.scanLine(top + y), source.constScanLine(y), size_t(width) * 3);
}

void placeFrame(QImage &strip, QSize frame, qint64 slot, const QImage &picture)
{
    const qint64 top = slot * frame.height();
    if (picture.isNull() || slot < 0 || top >= strip.height())
        return;
    const int width = std::min({frame.width(), picture.width(), strip.width()});
    const int height = int(std::min<qint64>({frame.height(), picture.height(),
                                             strip.height() - top}));
    switch (picture.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        copyRowsRgb32(picture, strip, width, height, int(top));
        break;
    case QImage::Format_RGB888:
        copyRowsRgb888(picture, strip, width, height, int(top));
        break;
    default:
        copyRowsRgb888(picture.copy(0, 0, width, height).convertToFormat(QImage::Format_RGB888),
                       strip, width, height, int(top));
        break;
    }
}

void drawSlot(const QImage &strip, QSize frame, qint64 slot, QImage &surface)
{
    const qint64 top = slot * frame.height();
    const int width = std::min({frame.width(), strip.width(), surface.width()});
    const size_t rowBytes = size_t(surface.width()) * 3;
    const size_t copyBytes = slot >= 0 && !strip.isNull() ? size_t(width) * 3 : 0;
    for (int y = 0; y < surface.height(); ++y) {
        uchar *to = surface.scanLine(y);
        const qint64 from = top + y;
        const bool inside = copyBytes > 0 && y < frame.height() && from < strip.height();
        const size_t copied = inside ? copyBytes : 0;
        if (copied > 0)
            std::memcpy(to, strip.constScanLine(int(from)), copied);
        std::memset(to + copied, 0, rowBytes - copied);
    }
}

} // namespace FrameStrip
