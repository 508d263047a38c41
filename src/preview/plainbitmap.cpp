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

namespace {

// Larger pictures are left to Qt, whose reader enforces its allocation limit on them.
constexpr qint64 mostPixels = 8 * 1024 * 1024;

void swapRedBlueTail(uchar *row, int x, int width)
{
    for (; x < width; ++x)
        std::swap(row[3 * x], row[3 * x + 2]);
}

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define STAKKO_SHUFFLE_BGR
// Five pixels a shuffle; the sixteenth byte, the next pixel's first, is stored back as it was.
__attribute__((target("ssse3"))) void swapRedBlueShuffled(uchar *row, int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
    int x = 0;
    for (; x + 6 <= width; x += 5) {
        auto *at = reinterpret_cast<__m128i *>(row + 3 * x);
        _mm_storeu_si128(at, _mm_shuffle_epi8(_mm_loadu_si128(at), order));
    }
    swapRedBlueTail(row, x, width);
}
#endif

void swapRedBlue(uchar *row, int width)
{
#ifdef STAKKO_SHUFFLE_BGR
    static const bool shuffle = __builtin_cpu_supports("ssse3");
    if (shuffle)
        return swapRedBlueShuffled(row, width);
#endif
    swapRedBlueTail(row, 0, width);
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

bool readPlainBitmap(QIODevice &in, QImage &picture)
{
    constexpr int headerBytes = 14 + 40;
    const QByteArray head = in.peek(headerBytes);
    if (head.size() < headerBytes || !head.startsWith("BM"))
        return false;
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
        return false;
    const int height = std::abs(storedHeight);
    const qint64 rowBytes = (qint64(width) * 3 + 3) & ~qint64(3);
    if (qint64(width) * height > mostPixels || in.size() - qint64(offset) < rowBytes * height)
        return false;

    if (picture.size() != QSize(width, height) || picture.format() != QImage::Format_RGB888)
        picture = QImage(width, height, QImage::Format_RGB888);
    // Qt pads its rows to four bytes as bitmaps do, so the pixels read straight in.
    if (picture.isNull() || picture.bytesPerLine() != rowBytes)
        return false;
    uchar *pixels = picture.bits();
    if (!in.seek(offset) || !readAll(in, reinterpret_cast<char *>(pixels), rowBytes * height)) {
        in.seek(0);
        return false;
    }
    const auto row = [pixels, rowBytes](int y) { return pixels + rowBytes * y; };
    // Rows are stored bottom-up unless the height is negative.
    if (storedHeight > 0) {
        for (int y = 0; y < height / 2; ++y)
            std::swap_ranges(row(y), row(y) + rowBytes, row(height - 1 - y));
    }
    for (int y = 0; y < height; ++y)
        swapRedBlue(row(y), width);
    return true;
}
