// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QFile;

/** One entry of a zip archive's central directory, as stored. */
struct ZipRecord {
    QByteArray name;
    quint8 host = 0;         // the high byte of "version made by": 0 MS-DOS, 3 Unix, 6 OS/2, 11 NTFS, ...
    quint16 flags = 0;
    quint16 method = 0;
    quint32 crc = 0;
    quint64 compressedSize = 0;
    quint64 size = 0;
    quint64 localHeaderOffset = 0;
    quint32 attributes = 0;  // external: a Unix mode in the high half when made on Unix

    /** The name as Info-ZIP's unzip reads it, "/" and "\\" as stored. */
    QString text() const;
    /** Neither a folder nor a link. */
    bool isFile() const;
};

/** The central directory of the zip archive in \a file (ZIP64 included); nullopt when it has none that reads. */
std::optional<QList<ZipRecord>> readZipDirectory(QFile &file);

/**
 * Where the bytes of \a record start in \a file, past its local header; nullopt when there is
 * no local header there.
 */
std::optional<quint64> zipDataOffset(QFile &file, const ZipRecord &record);

/**
 * An entry name's place below the folder it unpacks into, as clean parts ("\\" separates
 * too); nullopt when the name points outside it: absolute names, drive letters, "..".
 */
std::optional<QStringList> entryNameParts(const QString &name);
