#include "preview/framestrip.h"

#include <cmath>
#include <cstring>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

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
    // Left uninitialised: placeFrame() and clearFrom() write every byte exactly once, which
    // keeps building a long strip close to the cost of decoding its files.
    QImage strip(element.stripWidth, std::max(stripHeight(element, frameCount), 1),
                 QImage::Format_RGB888);
#ifdef Q_OS_LINUX
    // Fresh memory costs a page fault per 4 KiB on first write; large pages cut that 500-fold.
    constexpr quintptr hugePage = 2 * 1024 * 1024;
    const auto begin = (quintptr(strip.bits()) + hugePage - 1) & ~(hugePage - 1);
    const auto end = (quintptr(strip.bits()) + quintptr(strip.sizeInBytes())) & ~(hugePage - 1);
    if (!strip.isNull() && end > begin)
        madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
#endif
    return strip;
}

void clearFrom(QImage &strip, qint64 firstRow)
{
    if (firstRow < 0 || firstRow >= strip.height())
        return;
    // Scan lines are contiguous, padding included.
    std::memset(strip.scanLine(int(firstRow)), 0,
                size_t(strip.bytesPerLine()) * size_t(strip.height() - firstRow));
}

void placeFrame(QImage &strip, QSize frame, qint64 slot, const QImage &picture)
{
    const qint64 top = slot * frame.height();
    if (slot < 0 || top >= strip.height())
        return;
    const int rows = int(std::min<qint64>(frame.height(), strip.height() - top));
    const int width = picture.isNull() ? 0 : std::min({frame.width(), picture.width(), strip.width()});
    const int height = picture.isNull() ? 0 : std::min(rows, picture.height());

    // Qt's own converters are vectorised; a row loop of ours was twice as slow.
    QImage converted;
    const bool rgb888 = picture.format() == QImage::Format_RGB888;
    if (height > 0 && !rgb888) {
        const bool whole = picture.width() == width && picture.height() == height;
        converted = (whole ? picture : picture.copy(0, 0, width, height))
                        .convertToFormat(QImage::Format_RGB888);
    }

    const size_t rowBytes = size_t(strip.bytesPerLine());
    for (int y = 0; y < rows; ++y) {
        uchar *to = strip.scanLine(int(top) + y);
        size_t written = 0;
        if (y < height) {
            std::memcpy(to, (rgb888 ? picture : converted).constScanLine(y), size_t(width) * 3);
            written = size_t(width) * 3;
        }
        std::memset(to + written, 0, rowBytes - written);
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
