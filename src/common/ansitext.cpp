// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/ansitext.h"

namespace {

// Windows-1252 bytes 0x80..0x9F; the unassigned ones keep their C1 code point so that
// any byte read from a file is written back unchanged.
constexpr char16_t high[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

int byteFor(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    for (int i = 0; i < 32; ++i) {
        if (high[i] == c)
            return 0x80 + i;
    }
    return -1;
}

} // namespace

namespace AnsiText {

QString decode(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        *out++ = QChar(b >= 0x80 && b < 0xA0 ? high[b - 0x80] : char16_t(b));
    }
    return text;
}

bool encode(const QString &text, QByteArray *out, qsizetype *badPosition)
{
    out->reserve(out->size() + text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int b = byteFor(text.at(i).unicode());
        if (b < 0) {
            if (badPosition)
                *badPosition = i;
            return false;
        }
        out->append(char(b));
    }
    return true;
}

} // namespace AnsiText
