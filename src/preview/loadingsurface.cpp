// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/loadingsurface.h"

#include "common/pathlookup.h"
#include "preview/plainbitmap.h"

#include <QFile>
#include <QImageReader>
#include <QtNumeric>

#include <algorithm>

// Readers that check the file's signature and refuse anything else, so naming one of them
// can never turn a file of another format into a wrong picture.
static bool refusesOtherFormats(const QByteArray &format)
{
    return format == "bmp" || format == "jpeg" || format == "png" || format == "gif";
}

// Qt fills the rows a cut-off bitmap lacks with whatever memory held; such a file is no picture.
static bool bitmapIsCut(QIODevice &in)
{
    const QByteArray head = in.peek(50);
    const auto at = [&head](int offset, int size) {
        quint32 value = 0;
        for (int i = size - 1; i >= 0; --i)
            value = value << 8 | quint8(head.at(offset + i));
        return value;
    };
    if (head.size() < 26 || !head.startsWith("BM"))
        return false; // the reader judges what is no bitmap at all
    qint64 width = 0;
    qint64 height = 0;
    qint64 bitsPerPixel = 0;
    quint32 compression = 0;
    qint64 colours = 0;
    int colourBytes = 4;
    const qint64 headerSize = at(14, 4);
    if (headerSize == 12) { // the old OS/2 header
        width = at(18, 2);
        height = at(20, 2);
        bitsPerPixel = at(24, 2);
        colourBytes = 3;
    } else if (head.size() >= 50) {
        width = qint32(at(18, 4));
        height = qint32(at(22, 4));
        bitsPerPixel = at(28, 2);
        compression = at(30, 4);
        colours = at(46, 4);
    }
    // Run-length and embedded pictures end where their own data says.
    if (compression != 0 && compression != 3 && compression != 6)
        return false;
    const qint64 row = (qAbs(width) * bitsPerPixel + 31) / 32 * 4;
    qint64 pixels = 0;
    if (qMulOverflow(row, qAbs(height), &pixels))
        return true;
    // Qt reads the pixels from the offset, but never from inside the header or colour table.
    if (bitsPerPixel <= 8 && colours == 0)
        colours = qint64(1) << bitsPerPixel;
    const qint64 table = bitsPerPixel <= 8 ? colours * colourBytes : 0;
    const qint64 start = std::max<qint64>(at(10, 4), 14 + headerSize + table);
    return in.size() - start < pixels;
}

bool LoadingSurface::load(const QString &path)
{
    if (path.isEmpty())
        return false;
    // A folder or a missing file fails here and keeps the previous picture.
    QFile in(resolveThemePath(path));
    if (!in.open(QIODevice::ReadOnly))
        return false;
    if (readPlainBitmap(in, m_scratch))
        return keepScratch("bmp");
    // Frames of a sequence share a format: reading with the last one skips asking every
    // reader installed whether it knows the content.
    if (refusesOtherFormats(m_lastFormat)) {
        QImageReader reader(&in, m_lastFormat);
        reader.setAutoDetectImageFormat(false);
        if (!(m_lastFormat == "bmp" && bitmapIsCut(in)) && reader.read(&m_scratch) && !m_scratch.isNull())
            return keepScratch(m_lastFormat);
        if (!in.seek(0))
            return false;
    }
    QImageReader reader(&in);
    // Authors rename files freely; trust the content over the extension.
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format == "bmp" && bitmapIsCut(in))
        return false;
    if (!reader.read(&m_scratch) || m_scratch.isNull())
        return false;
    return keepScratch(format);
}

std::optional<QSize> LoadingSurface::headerSize(const QString &path)
{
    QFile in(resolveThemePath(path));
    if (path.isEmpty() || !in.open(QIODevice::ReadOnly))
        return std::nullopt;
    QImageReader reader(&in);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format.isEmpty() || (format == "bmp" && bitmapIsCut(in)))
        return std::nullopt;
    // Qt gives a top-down bitmap a negative height.
    const QSize header = reader.size();
    const QSize size(header.width(), qAbs(header.height()));
    if (!size.isEmpty())
        return size;
    // Some files Qt cannot size from their header still decode, and the preview shows them;
    // the decode settles it, so the checker and the preview agree.
    if (!in.seek(0))
        return std::nullopt;
    QImageReader decoder(&in, format);
    QImage picture;
    if (!decoder.read(&picture) || picture.isNull())
        return std::nullopt;
    return picture.size();
}

void LoadingSurface::keep(QImage picture, const QByteArray &format)
{
    m_scratch = std::move(picture);
    keepScratch(format);
}

bool LoadingSurface::keepScratch(const QByteArray &format)
{
    // Keeping both buffers lets the next decode of a same-sized frame reuse the allocation.
    m_picture.swap(m_scratch);
    m_lastFormat = format;
    return true;
}
