#pragma once

#include <QByteArray>
#include <QList>

#include <array>

/**
 * Zip bytes built by hand, for archives no well-behaved writer makes: names with "..",
 * backslashes or drive letters, links, wrong checksums. Entries are stored, not compressed.
 */
namespace RawZip {

enum class Kind { File, Directory, Symlink };

struct Entry {
    QByteArray name;
    QByteArray data;   // for a link: where it points
    Kind kind = Kind::File;
    bool badCrc = false;
};

inline quint32 crc32(const QByteArray &bytes)
{
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> t {};
        for (quint32 i = 0; i < 256; ++i) {
            quint32 c = i;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            t[i] = c;
        }
        return t;
    }();
    quint32 c = 0xFFFFFFFFu;
    for (const char byte : bytes)
        c = table[(c ^ quint8(byte)) & 0xFF] ^ (c >> 8);
    return c ^ 0xFFFFFFFFu;
}

inline void put16(QByteArray &out, quint32 v)
{
    out.append(char(v & 0xFF)).append(char((v >> 8) & 0xFF));
}

inline void put32(QByteArray &out, quint32 v)
{
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

inline QByteArray build(const QList<Entry> &entries)
{
    QByteArray out;
    QByteArray central;
    for (const Entry &e : entries) {
        const quint32 offset = quint32(out.size());
        const quint32 crc = crc32(e.data) ^ (e.badCrc ? 0x1u : 0u);
        const quint32 mode = e.kind == Kind::Symlink ? 0120777 : e.kind == Kind::Directory ? 040755 : 0100644;

        put32(out, 0x04034b50);
        put16(out, 10);            // version needed
        put16(out, 0);             // flags
        put16(out, 0);             // stored
        put16(out, 0);             // time
        put16(out, 0x21);          // 1980-01-01
        put32(out, crc);
        put32(out, quint32(e.data.size()));
        put32(out, quint32(e.data.size()));
        put16(out, quint32(e.name.size()));
        put16(out, 0);
        out.append(e.name).append(e.data);

        put32(central, 0x02014b50);
        put16(central, (3u << 8) | 20);   // made on Unix, so the mode below counts
        put16(central, 10);
        put16(central, 0);
        put16(central, 0);
        put16(central, 0);
        put16(central, 0x21);
        put32(central, crc);
        put32(central, quint32(e.data.size()));
        put32(central, quint32(e.data.size()));
        put16(central, quint32(e.name.size()));
        put16(central, 0);   // extra
        put16(central, 0);   // comment
        put16(central, 0);   // disk
        put16(central, 0);   // internal attributes
        put32(central, (mode << 16) | (e.kind == Kind::Directory ? 0x10 : 0));
        put32(central, offset);
        central.append(e.name);
    }
    const quint32 centralOffset = quint32(out.size());
    out.append(central);
    put32(out, 0x06054b50);
    put16(out, 0);
    put16(out, 0);
    put16(out, quint32(entries.size()));
    put16(out, quint32(entries.size()));
    put32(out, quint32(central.size()));
    put32(out, centralOffset);
    put16(out, 0);
    return out;
}

} // namespace RawZip
