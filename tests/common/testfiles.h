// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Files as tests lay them out and read them back, and the bytes of hand-made file formats.

#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QStringList>

#include <initializer_list>
#include <utility>

/** Writes \a bytes at \a path, making the folders in front; false when any step failed. */
inline bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

/** The bytes at \a path; "<missing>" when it cannot be read, so an empty file still differs. */
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/**
 * Everything below \a folder, sorted, with paths relative to it: a file as "path=content", a link
 * as "path@" (never followed) and an empty folder as "path/". Leftovers and stray writes show too.
 */
inline QStringList contentsBelow(const QString &folder)
{
    QStringList found;
    const auto all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    QDirIterator it(folder, all, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo entry = it.nextFileInfo();
        const QString name = QDir(folder).relativeFilePath(entry.filePath());
        if (entry.isSymLink())
            found.append(name + u'@');
        else if (!entry.isDir())
            found.append(name + u'=' + QString::fromUtf8(readFile(entry.filePath())));
        else if (QDir(entry.filePath()).isEmpty(all))
            found.append(name + u'/');
    }
    found.sort();
    return found;
}

/** Appends each (value, byte count) pair little-endian, as zip, wave and bitmap headers hold them. */
inline void putLittleEndian(QByteArray &out, std::initializer_list<std::pair<quint32, int>> fields)
{
    for (const auto &[value, size] : fields) {
        for (int i = 0; i < size; ++i)
            out.append(char((value >> (8 * i)) & 0xFF));
    }
}

/** Bytes no compressor can shorten, the same for the same \a seed on every run. */
inline QByteArray noiseBytes(qsizetype size, quint32 seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes) {
        seed = seed * 1103515245u + 12345u;
        byte = char(seed >> 23);
    }
    return bytes;
}

/** A picture of \a size in one \a color. */
inline QImage solidImage(QSize size, QRgb color, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    image.fill(color);
    return image;
}

/** \a image as a file of \a format ("PNG", "BMP") holds it, at the writer's \a quality. */
inline QByteArray imageBytes(const QImage &image, const char *format, int quality = -1, bool progressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return bytes;
}

/** A mono wave file of \a samples as stored; an extensible format names \a encoding in its GUID. */
inline QByteArray waveBytes(const QByteArray &samples, quint32 rate, quint32 bits, quint32 encoding = 1,
                            bool extensible = false)
{
    QByteArray format;
    putLittleEndian(format, {{extensible ? 0xFFFEu : encoding, 2}, {1, 2}, {rate, 4}, {rate * bits / 8, 4},
                             {bits / 8, 2}, {bits, 2}});
    if (extensible) {
        putLittleEndian(format, {{22, 2}, {bits, 2}, {4, 4}, {encoding, 2}});
        format += QByteArray("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
    }
    QByteArray bytes("RIFF");
    putLittleEndian(bytes, {{quint32(20 + format.size() + samples.size()), 4}});
    bytes += "WAVEfmt ";
    putLittleEndian(bytes, {{quint32(format.size()), 4}});
    bytes += format + "data";
    putLittleEndian(bytes, {{quint32(samples.size()), 4}});
    return bytes + samples;
}
