// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/testfiles.h"

#include <QByteArray>
#include <QList>

/**
 * Zip bytes built by hand, for archives no well-behaved writer makes: names with "..",
 * backslashes or drive letters, links, wrong checksums, odd compression. Entries are stored
 * unless they bring their own compressed bytes.
 */
namespace RawZip {

enum class Kind { File, Directory, Symlink };

struct Entry {
    QByteArray name;
    QByteArray data;   // for a link: where it points
    Kind kind = Kind::File;
    bool badCrc = false;
    quint32 method = 0;       // 0 stored; otherwise \a compressed is written as the entry's bytes
    QByteArray compressed {};
    quint32 host = 3;         // "version made by": 0 MS-DOS, 3 Unix, 6 OS/2, 11 NTFS
    bool utf8 = false;        // the flag that marks the name as UTF-8
};

inline quint32 crc32(const QByteArray &bytes)
{
    quint32 c = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        c ^= quint8(byte);
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
    }
    return c ^ 0xFFFFFFFFu;
}

inline QByteArray build(const QList<Entry> &entries)
{
    constexpr quint32 date = 0x21; // 1980-01-01
    QByteArray out;
    QByteArray central;
    for (const Entry &e : entries) {
        const quint32 offset = quint32(out.size());
        const quint32 crc = crc32(e.data) ^ (e.badCrc ? 0x1u : 0u);
        const quint32 size = quint32(e.data.size());
        const QByteArray &bytes = e.method == 0 ? e.data : e.compressed;
        const quint32 storedSize = quint32(bytes.size());
        const quint32 flags = (e.method == 14 ? 2 : 0)   // LZMA with an end marker, as Python writes it
                              | (e.utf8 ? 1 << 11 : 0);
        const quint32 nameSize = quint32(e.name.size());
        const quint32 mode = e.kind == Kind::Symlink ? 0120777 : e.kind == Kind::Directory ? 040755 : 0100644;
        const quint32 attributes = (mode << 16) | (e.kind == Kind::Directory ? 0x10 : 0);

        // Local header: signature, version needed, flags, stored, time, date, crc, sizes, name, extra.
        putLittleEndian(out, {{0x04034b50, 4}, {63, 2}, {flags, 2}, {e.method, 2}, {0, 2}, {date, 2},
                              {crc, 4}, {storedSize, 4}, {size, 4}, {nameSize, 2}, {0, 2}});
        out.append(e.name).append(bytes);

        // Central entry: made on its host (on Unix the mode counts), then as above, comment,
        // disk, internal and external attributes, local header offset.
        putLittleEndian(central, {{0x02014b50, 4}, {(e.host << 8) | 63, 2}, {63, 2}, {flags, 2}, {e.method, 2},
                                  {0, 2}, {date, 2}, {crc, 4}, {storedSize, 4}, {size, 4}, {nameSize, 2},
                                  {0, 2}, {0, 2}, {0, 2}, {0, 2}, {attributes, 4}, {offset, 4}});
        central.append(e.name);
    }
    const quint32 centralOffset = quint32(out.size());
    const quint32 count = quint32(entries.size());
    out.append(central);
    putLittleEndian(out, {{0x06054b50, 4}, {0, 2}, {0, 2}, {count, 2}, {count, 2},
                          {quint32(central.size()), 4}, {centralOffset, 4}, {0, 2}});
    return out;
}

/** The names a zip archive's central directory lists, read without the program's own zip code. */
inline QList<QByteArray> centralNames(const QByteArray &zip)
{
    const auto at = [&zip](qsizetype offset, int size) {
        quint32 value = 0;
        for (int i = size - 1; i >= 0; --i)
            value = (value << 8) | quint8(zip.at(offset + i));
        return value;
    };
    const qsizetype end = zip.lastIndexOf(QByteArrayLiteral("PK\x05\x06"));
    QList<QByteArray> names;
    if (end < 0)
        return names;
    qsizetype record = at(end + 16, 4);
    for (quint32 n = at(end + 10, 2); n > 0 && at(record, 4) == 0x02014b50; --n) {
        const quint32 nameSize = at(record + 28, 2);
        names.append(zip.mid(record + 46, nameSize));
        record += 46 + nameSize + at(record + 30, 2) + at(record + 32, 2);
    }
    return names;
}

/** Whether an entry name unpacks outside its folder anywhere: absolute, a drive letter, a ".." part. */
inline bool leadsOutside(const QByteArray &name)
{
    if (name.startsWith('/') || name.startsWith('\\') || (name.size() >= 2 && name.at(1) == ':'))
        return true;
    QByteArray parts = name;
    parts.replace('\\', '/');
    return parts.split('/').contains("..");
}

} // namespace RawZip
