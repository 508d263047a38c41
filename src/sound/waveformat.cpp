// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/waveformat.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace {

// The encodings SDL's wave loader decodes: PCM, MS ADPCM, IEEE float, A-law, mu-law, IMA ADPCM.
constexpr quint16 decodedEncodings[] = {0x0001, 0x0002, 0x0003, 0x0006, 0x0007, 0x0011};
constexpr quint16 extensible = 0xFFFE;
// An extensible format names its encoding by a GUID: the encoding, then this fixed tail.
constexpr char guidTail[] = "\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71";

bool isDecoded(quint16 encoding)
{
    return std::find(std::begin(decodedEncodings), std::end(decodedEncodings), encoding)
        != std::end(decodedEncodings);
}

bool isPlayableFormat(const QByteArray &fmt)
{
    if (fmt.size() < 16)
        return false;
    const auto at16 = [&fmt](int offset) { return qFromLittleEndian<quint16>(fmt.constData() + offset); };
    if (at16(2) == 0 || qFromLittleEndian<quint32>(fmt.constData() + 4) == 0)
        return false;
    if (at16(0) != extensible)
        return isDecoded(at16(0));
    return fmt.size() >= 40 && isDecoded(at16(24))
        && fmt.mid(26, 14) == QByteArray::fromRawData(guidTail, sizeof guidTail - 1);
}

} // namespace

bool isPlayableWaveFile(const QString &path)
{
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    const QByteArray riff = in.read(12);
    if (riff.size() < 12 || !riff.startsWith("RIFF") || riff.mid(8) != "WAVE")
        return false;
    bool formatFound = false;
    for (;;) {
        const QByteArray header = in.read(8);
        if (header.size() < 8)
            return false; // no data chunk
        const quint32 size = qFromLittleEndian<quint32>(header.constData() + 4);
        const qint64 next = in.pos() + size + (size & 1); // chunks are padded to even sizes
        if (header.startsWith("data"))
            return formatFound;
        if (header.startsWith("fmt ")) {
            if (!isPlayableFormat(in.read(qMin<quint32>(size, 40))))
                return false;
            formatFound = true;
        }
        if (!in.seek(next))
            return false;
    }
}
