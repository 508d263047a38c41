// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/rawpicture.h"

#include <QtEndian>

static constexpr qsizetype headerBytes = 8;

QByteArray rawPictureBytes(const QImage &picture)
{
    const QImage rows = picture.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    QByteArray bytes(headerBytes, '\0');
    qToLittleEndian(quint32(rows.width()), bytes.data());
    qToLittleEndian(quint32(rows.height()), bytes.data() + 4);
    for (int y = 0; y < rows.height(); ++y)
        bytes.append(reinterpret_cast<const char *>(rows.constScanLine(y)), qsizetype(rows.width()) * 4);
    return bytes;
}

QImage rawPicture(const QByteArray &bytes)
{
    if (bytes.size() < headerBytes)
        return {};
    const quint32 width = qFromLittleEndian<quint32>(bytes.constData());
    const quint32 height = qFromLittleEndian<quint32>(bytes.constData() + 4);
    // Checked in 64 bits: a header claiming more than the bytes hold is no picture.
    if (width == 0 || height == 0 || width > 32768 || height > 32768
        || qint64(width) * height * 4 != bytes.size() - headerBytes)
        return {};
    const QImage rows(reinterpret_cast<const uchar *>(bytes.constData() + headerBytes), int(width), int(height),
                      qsizetype(width) * 4, QImage::Format_RGBA8888_Premultiplied);
    // The conversion copies: the picture outlives the bytes.
    return rows.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
