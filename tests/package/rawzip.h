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
        const quint32 flags = e.method == 14 ? 2 : 0;   // LZMA with an end marker, as Python writes it
        const quint32 nameSize = quint32(e.name.size());
        const quint32 mode = e.kind == Kind::Symlink ? 0120777 : e.kind == Kind::Directory ? 040755 : 0100644;
        const quint32 attributes = (mode << 16) | (e.kind == Kind::Directory ? 0x10 : 0);

        // Local header: signature, version needed, flags, stored, time, date, crc, sizes, name, extra.
        putLittleEndian(out, {{0x04034b50, 4}, {63, 2}, {flags, 2}, {e.method, 2}, {0, 2}, {date, 2},
                              {crc, 4}, {storedSize, 4}, {size, 4}, {nameSize, 2}, {0, 2}});
        out.append(e.name).append(bytes);

        // Central entry: made on Unix (so the mode counts), then as above, comment, disk,
        // internal and external attributes, local header offset.
        putLittleEndian(central, {{0x02014b50, 4}, {(3u << 8) | 63, 2}, {63, 2}, {flags, 2}, {e.method, 2},
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

} // namespace RawZip
