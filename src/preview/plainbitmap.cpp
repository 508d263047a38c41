// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/plainbitmap.h"

#include <QIODevice>
#include <QtEndian>
#include <QImage>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

// Larger pictures are left to Qt, whose reader enforces its allocation limit on them.
constexpr qint64 mostPixels = 8 * 1024 * 1024;

// R, G, B bytes from B, G, R ones, for the pixels from \a x on; \a from may be \a to.
void swapRedBlueTail(const uchar *from, uchar *to, int x, int width)
{
    for (; x < width; ++x) {
        const uchar blue = from[3 * x];
        to[3 * x + 1] = from[3 * x + 1];
        to[3 * x] = from[3 * x + 2];
        to[3 * x + 2] = blue;
    }
}

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define STAKKO_SHUFFLE_BGR
// Five pixels a shuffle. The sixteenth byte, the next pixel's first, goes over unswapped and
// the next store (or the tail) writes it again.
__attribute__((target("ssse3"))) void swapRedBlueShuffled(const uchar *from, uchar *to, int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
    int x = 0;
    for (; x + 6 <= width; x += 5) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + 3 * x));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + 3 * x), _mm_shuffle_epi8(pixels, order));
    }
    swapRedBlueTail(from, to, x, width);
}
#endif

void swapRedBlue(const uchar *from, uchar *to, int width)
{
#ifdef STAKKO_SHUFFLE_BGR
    static const bool shuffle = __builtin_cpu_supports("ssse3");
    if (shuffle)
        return swapRedBlueShuffled(from, to, width);
#endif
    swapRedBlueTail(from, to, 0, width);
}

bool readAll(QIODevice &in, char *to, qint64 size)
{
    while (size > 0) {
        const qint64 got = in.read(to, size);
        if (got <= 0)
            return false;
        to += got;
        size -= got;
    }
    return true;
}

} // namespace

std::optional<PlainBitmapLayout> plainBitmapLayout(QIODevice &in)
{
    constexpr int headerBytes = 14 + 40;
    const QByteArray head = in.peek(headerBytes);
    if (head.size() < headerBytes || !head.startsWith("BM"))
        return std::nullopt;
    const char *h = head.constData();
    const auto offset = qFromLittleEndian<quint32>(h + 10);
    const auto width = qFromLittleEndian<qint32>(h + 18);
    const auto storedHeight = qFromLittleEndian<qint32>(h + 22);
    const bool plain = qFromLittleEndian<quint32>(h + 14) == 40 && qFromLittleEndian<quint16>(h + 26) == 1
                       && qFromLittleEndian<quint16>(h + 28) == 24 && qFromLittleEndian<quint32>(h + 30) == 0
                       && qFromLittleEndian<quint32>(h + 46) == 0;   // no colour table to step over
    // Qt steps forward to the pixels but never back into the header.
    if (!plain || offset < quint32(headerBytes) || width <= 0 || storedHeight == 0
        || storedHeight == std::numeric_limits<qint32>::min())
        return std::nullopt;
    PlainBitmapLayout layout;
    layout.offset = offset;
    layout.width = width;
    layout.height = std::abs(storedHeight);
    layout.bottomUp = storedHeight > 0;
    layout.rowBytes = (qint64(width) * 3 + 3) & ~qint64(3);
    if (qint64(width) * layout.height > mostPixels || in.size() - layout.offset < layout.rowBytes * layout.height)
        return std::nullopt;
    return layout;
}

bool readPlainBitmapPixels(QIODevice &in, const PlainBitmapLayout &layout, uchar *pixels)
{
    const qint64 rowBytes = layout.rowBytes;
    if (!in.seek(layout.offset) || !readAll(in, reinterpret_cast<char *>(pixels), rowBytes * layout.height)) {
        in.seek(0);
        return false;
    }
    const auto row = [pixels, rowBytes](int y) { return pixels + rowBytes * y; };
    const size_t used = size_t(layout.width) * 3;
    const size_t padding = size_t(rowBytes) - used;
    // One pass: a bottom-up file's rows change places as their colours are swapped.
    std::vector<uchar> spare(layout.bottomUp ? used : 0);
    for (int y = 0, other = layout.height - 1; y < layout.height; ++y, --other) {
        if (!layout.bottomUp || y == other) {
            swapRedBlue(row(y), row(y), layout.width);
        } else if (y < other) {
            std::copy_n(row(y), used, spare.data());
            swapRedBlue(row(other), row(y), layout.width);
            swapRedBlue(spare.data(), row(other), layout.width);
        }
        std::fill_n(row(y) + used, padding, uchar(0));
    }
    return true;
}

bool readPlainBitmap(QIODevice &in, QImage &picture)
{
    const std::optional<PlainBitmapLayout> layout = plainBitmapLayout(in);
    if (!layout)
        return false;
    if (picture.size() != QSize(layout->width, layout->height) || picture.format() != QImage::Format_RGB888)
        picture = QImage(layout->width, layout->height, QImage::Format_RGB888);
    // Qt pads its rows to four bytes as bitmaps do, so the pixels read straight in.
    if (picture.isNull() || picture.bytesPerLine() != layout->rowBytes)
        return false;
    return readPlainBitmapPixels(in, *layout, picture.bits());
}
