// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/framestrip.h"

#include "preview/plainbitmap.h"

#include <QIODevice>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

#include <cmath>
#include <cstring>
#include <optional>

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

void repeatSlotAbove(QImage &strip, QSize frame, qint64 slot)
{
    const qint64 top = slot * frame.height();
    if (slot < 1 || top >= strip.height())
        return;
    const qint64 rows = std::min<qint64>(frame.height(), strip.height() - top);
    // placeFrame() writes whole rows, padding included, so whole rows copy it exactly.
    std::memcpy(strip.scanLine(int(top)), strip.constScanLine(int(top - frame.height())),
                size_t(strip.bytesPerLine()) * size_t(rows));
}

void clearFrom(QImage &strip, qint64 firstRow)
{
    if (firstRow < 0 || firstRow >= strip.height())
        return;
    // Scan lines are contiguous, padding included.
    std::memset(strip.scanLine(int(firstRow)), 0,
                size_t(strip.bytesPerLine()) * size_t(strip.height() - firstRow));
}

// 0xffRRGGBB pixels to R, G, B bytes, for the pixels from \a x on.
static void rgb32ToRgb888Tail(const uchar *from, uchar *to, int x, int width)
{
    const auto *in = reinterpret_cast<const QRgb *>(from);
    for (; x < width; ++x) {
        to[x * 3] = uchar(qRed(in[x]));
        to[x * 3 + 1] = uchar(qGreen(in[x]));
        to[x * 3 + 2] = uchar(qBlue(in[x]));
    }
}

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define STAKKO_SHUFFLE_ROWS
// One byte shuffle turns four pixels into twelve bytes: several times the speed of the
// plain loop, which is what keeps building a strip close to the cost of decoding it.
__attribute__((target("ssse3"))) static void rgb32ToRgb888Shuffled(const uchar *from, uchar *to,
                                                                   int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    int x = 0;
    // Each store spills four bytes into the next two pixels, which later stores overwrite.
    for (; x + 6 <= width; x += 4) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + x * 4));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + x * 3), _mm_shuffle_epi8(pixels, order));
    }
    rgb32ToRgb888Tail(from, to, x, width);
}
#endif

static void rgb32ToRgb888(const uchar *from, uchar *to, int width)
{
#ifdef STAKKO_SHUFFLE_ROWS
    static const bool shuffle = __builtin_cpu_supports("ssse3");
    if (shuffle)
        return rgb32ToRgb888Shuffled(from, to, width);
#endif
    rgb32ToRgb888Tail(from, to, 0, width);
}

void placeFrame(QImage &strip, QSize frame, qint64 slot, const QImage &picture)
{
    const qint64 top = slot * frame.height();
    if (slot < 0 || top >= strip.height())
        return;
    const int rows = int(std::min<qint64>(frame.height(), strip.height() - top));
    const int width = picture.isNull() ? 0 : std::min({frame.width(), picture.width(), strip.width()});
    const int height = picture.isNull() ? 0 : std::min(rows, picture.height());

    // Decoders deliver RGB32 or RGB888 for the formats themes use; those rows go straight
    // into the strip. Anything else is converted once, as Qt converts it.
    QImage source = picture;
    const bool direct = picture.format() == QImage::Format_RGB32
                        || picture.format() == QImage::Format_RGB888;
    if (height > 0 && !direct) {
        const bool whole = picture.width() == width && picture.height() == height;
        source = (whole ? picture : picture.copy(0, 0, width, height))
                     .convertToFormat(QImage::Format_RGB888);
    }

    const size_t rowBytes = size_t(strip.bytesPerLine());
    uchar *to = strip.bits() + size_t(top) * rowBytes;
    for (int y = 0; y < rows; ++y, to += rowBytes) {
        size_t written = 0;
        if (y < height) {
            if (source.format() == QImage::Format_RGB32)
                rgb32ToRgb888(source.constScanLine(y), to, width);
            else
                std::memcpy(to, source.constScanLine(y), size_t(width) * 3);
            written = size_t(width) * 3;
        }
        std::memset(to + written, 0, rowBytes - written);
    }
}

bool readFrameInPlace(QIODevice &in, QImage &strip, QSize frame, qint64 slot)
{
    const std::optional<PlainBitmapLayout> layout = plainBitmapLayout(in);
    if (!layout || QSize(layout->width, layout->height) != frame || frame.width() != strip.width()
        || layout->rowBytes != strip.bytesPerLine() || slot < 0 || (slot + 1) * frame.height() > strip.height())
        return false;
    return readPlainBitmapPixels(in, *layout, strip.scanLine(int(slot * frame.height())));
}

void drawSlot(const QImage &strip, QSize frame, qint64 slot, QImage &surface, bool onlyFrameArea)
{
    const qint64 top = slot * frame.height();
    const int width = std::min({frame.width(), strip.width(), surface.width()});
    const QSize area = onlyFrameArea ? surface.size().boundedTo(frame) : surface.size();
    const size_t rowBytes = size_t(area.width()) * 3;
    const size_t copyBytes = slot >= 0 && !strip.isNull() ? size_t(width) * 3 : 0;
    for (int y = 0; y < area.height(); ++y) {
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
