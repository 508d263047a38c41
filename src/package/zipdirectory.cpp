// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/zipdirectory.h"

#include "common/ansitext.h"

#include <QFile>
#include <QStringDecoder>
#include <QtEndian>

#include <array>

namespace {

constexpr quint16 utf8NameFlag = 1 << 11;
constexpr qint64 endRecordSize = 22;
constexpr qint64 centralRecordSize = 46;
constexpr qint64 localHeaderSize = 30;
constexpr quint32 unknown32 = 0xFFFFFFFFu;

// Hosts whose names are in the OEM code page, as Info-ZIP knows them: MS-DOS, OS/2, NTFS.
constexpr std::array<quint8, 3> oemHosts = {0, 6, 11};

// Code page 437, bytes 0x80 to 0xFF.
constexpr char16_t oemHighHalf[128] = {
    u'Ç', u'ü', u'é', u'â', u'ä', u'à', u'å', u'ç', u'ê', u'ë', u'è', u'ï', u'î', u'ì', u'Ä', u'Å',
    u'É', u'æ', u'Æ', u'ô', u'ö', u'ò', u'û', u'ù', u'ÿ', u'Ö', u'Ü', u'¢', u'£', u'¥', u'₧', u'ƒ',
    u'á', u'í', u'ó', u'ú', u'ñ', u'Ñ', u'ª', u'º', u'¿', u'⌐', u'¬', u'½', u'¼', u'¡', u'«', u'»',
    u'░', u'▒', u'▓', u'│', u'┤', u'╡', u'╢', u'╖', u'╕', u'╣', u'║', u'╗', u'╝', u'╜', u'╛', u'┐',
    u'└', u'┴', u'┬', u'├', u'─', u'┼', u'╞', u'╟', u'╚', u'╔', u'╩', u'╦', u'╠', u'═', u'╬', u'╧',
    u'╨', u'╤', u'╥', u'╙', u'╘', u'╒', u'╓', u'╫', u'╪', u'┘', u'┌', u'█', u'▄', u'▌', u'▐', u'▀',
    u'α', u'ß', u'Γ', u'π', u'Σ', u'σ', u'µ', u'τ', u'Φ', u'Θ', u'Ω', u'δ', u'∞', u'φ', u'ε', u'∩',
    u'≡', u'±', u'≥', u'≤', u'⌠', u'⌡', u'÷', u'≈', u'°', u'∙', u'·', u'√', u'ⁿ', u'²', u'■', u'\u00A0',
};

QString decodeOem(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text.append(quint8(byte) < 0x80 ? QChar(quint8(byte)) : QChar(oemHighHalf[quint8(byte) - 0x80]));
    return text;
}

quint16 at16(const QByteArray &bytes, qint64 offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

quint32 at32(const QByteArray &bytes, qint64 offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

quint64 at64(const QByteArray &bytes, qint64 offset)
{
    return qFromLittleEndian<quint64>(bytes.constData() + offset);
}

QByteArray readAt(QFile &file, quint64 offset, qint64 size)
{
    if (offset > quint64(file.size()) || !file.seek(qint64(offset)))
        return {};
    return file.read(size);
}

/** Takes the 64-bit values a ZIP64 extra field holds for the fields stored as all ones. */
void readZip64Extra(const QByteArray &extra, ZipRecord &record, quint32 size, quint32 compressed, quint32 offset)
{
    for (qint64 at = 0; at + 4 <= extra.size();) {
        const quint16 id = at16(extra, at);
        const qint64 length = at16(extra, at + 2);
        at += 4;
        if (at + length > extra.size())
            return;
        if (id == 0x0001) {
            qint64 field = at;
            const auto take = [&](quint32 stored, quint64 &value) {
                if (stored == unknown32 && field + 8 <= at + length) {
                    value = at64(extra, field);
                    field += 8;
                }
            };
            take(size, record.size);
            take(compressed, record.compressedSize);
            take(offset, record.localHeaderOffset);
            return;
        }
        at += length;
    }
}

struct DirectoryPlace {
    quint64 offset = 0;
    quint64 size = 0;
    quint64 entries = 0;
};

std::optional<DirectoryPlace> findDirectory(QFile &file)
{
    const qint64 fileSize = file.size();
    const qint64 tailSize = std::min<qint64>(fileSize, endRecordSize + 0xFFFF);
    const QByteArray tail = readAt(file, quint64(fileSize - tailSize), tailSize);
    const qint64 end = tail.lastIndexOf(QByteArrayLiteral("PK\x05\x06"));
    if (end < 0 || end + endRecordSize > tail.size())
        return std::nullopt;
    DirectoryPlace place {at32(tail, end + 16), at32(tail, end + 12), at16(tail, end + 10)};
    // ZIP64: a locator just before the end record points at a record with the full values.
    const qint64 locator = end - 20;
    if (locator >= 0 && tail.mid(locator, 4) == QByteArrayLiteral("PK\x06\x07")) {
        const QByteArray record = readAt(file, at64(tail, locator + 8), 56);
        if (record.size() == 56 && record.startsWith(QByteArrayLiteral("PK\x06\x06")))
            place = {at64(record, 48), at64(record, 40), at64(record, 32)};
    }
    if (place.offset + place.size > quint64(fileSize))
        return std::nullopt;
    return place;
}

} // namespace

QString ZipRecord::text() const
{
    if (flags & utf8NameFlag)
        return QString::fromUtf8(name);
    if (std::find(oemHosts.cbegin(), oemHosts.cend(), host) != oemHosts.cend())
        return decodeOem(name);
    // Others store what their system used: UTF-8 on today's systems, else the Windows code page.
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(name);
    return utf8.hasError() ? AnsiText::decode(name) : text;
}

bool ZipRecord::isFile() const
{
    constexpr quint32 unixType = 0170000, unixFile = 0100000, dosFolder = 0x10;
    if (name.endsWith('/') || name.endsWith('\\'))
        return false;
    if (host == 3 && (attributes >> 16) != 0)
        return ((attributes >> 16) & unixType) == unixFile;
    return !(attributes & dosFolder);
}

std::optional<QList<ZipRecord>> readZipDirectory(QFile &file)
{
    const std::optional<DirectoryPlace> place = findDirectory(file);
    if (!place)
        return std::nullopt;
    const QByteArray directory = readAt(file, place->offset, qint64(place->size));
    if (quint64(directory.size()) != place->size)
        return std::nullopt;
    QList<ZipRecord> records;
    qint64 at = 0;
    for (quint64 n = 0; n < place->entries; ++n) {
        if (at + centralRecordSize > directory.size() || at32(directory, at) != 0x02014b50)
            return std::nullopt;
        ZipRecord record;
        record.host = quint8(at16(directory, at + 4) >> 8);
        record.flags = at16(directory, at + 8);
        record.method = at16(directory, at + 10);
        record.crc = at32(directory, at + 16);
        const quint32 compressed = at32(directory, at + 20);
        const quint32 size = at32(directory, at + 24);
        const qint64 nameSize = at16(directory, at + 28);
        const qint64 extraSize = at16(directory, at + 30);
        const qint64 commentSize = at16(directory, at + 32);
        record.attributes = at32(directory, at + 38);
        const quint32 offset = at32(directory, at + 42);
        record.compressedSize = compressed;
        record.size = size;
        record.localHeaderOffset = offset;
        const qint64 next = at + centralRecordSize + nameSize + extraSize + commentSize;
        if (next > directory.size())
            return std::nullopt;
        record.name = directory.mid(at + centralRecordSize, nameSize);
        readZip64Extra(directory.mid(at + centralRecordSize + nameSize, extraSize), record, size, compressed, offset);
        records.append(record);
        at = next;
    }
    return records;
}

std::optional<quint64> zipDataOffset(QFile &file, const ZipRecord &record)
{
    const QByteArray header = readAt(file, record.localHeaderOffset, localHeaderSize);
    if (header.size() != localHeaderSize || at32(header, 0) != 0x04034b50)
        return std::nullopt;
    return record.localHeaderOffset + localHeaderSize + at16(header, 26) + at16(header, 28);
}

std::optional<QStringList> entryNameParts(const QString &name)
{
    const QString normal = QString(name).replace(u'\\', u'/');
    if (normal.startsWith(u'/'))
        return std::nullopt;
    if (normal.size() >= 2 && normal.at(1) == u':' && normal.at(0).isLetter())
        return std::nullopt;
    QStringList parts;
    for (const QString &part : normal.split(u'/', Qt::SkipEmptyParts)) {
        if (part == u"..")
            return std::nullopt;
        if (part != u".")
            parts.append(part);
    }
    return parts;
}
