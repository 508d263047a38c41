// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/deflate64.h"

#include <QByteArray>

#include <array>
#include <memory>

namespace {

constexpr int longestCode = 15;
constexpr int windowSize = 1 << 16;
constexpr int literalCodes = 288;
constexpr int distanceCodes = 32;

// Length symbols 257 to 285. Deflate64 gives 285 sixteen extra bits on a base of 3 where
// deflate has a plain 258.
constexpr std::array<quint16, 29> lengthBase = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                                31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 3};
constexpr std::array<quint8, 29> lengthExtra = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 16};
// Distance codes 0 to 31; 30 and 31 reach into the second 32 KiB of the window.
constexpr std::array<quint32, distanceCodes> distanceBase = {
    1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,    65,    97,    129,   193,
    257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577, 32769, 49153};
constexpr std::array<quint8, distanceCodes> distanceExtra = {0, 0, 0, 0, 1, 1, 2,  2,  3,  3,  4,  4,  5,  5,  6,  6,
                                                             7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13, 14, 14};
// The order in which a dynamic block lists the lengths of its code-length code.
constexpr std::array<quint8, 19> codeLengthOrder = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

/** A canonical Huffman code: how many codes of each length, and the symbols in code order. */
struct Code {
    std::array<quint16, longestCode + 1> count {};
    std::array<quint16, literalCodes> symbol {};
};

struct Stop {
    InflateOutcome outcome;
};

/**
 * Builds \a code from the code lengths of its symbols. False for lengths that give no usable
 * code: too many codes of a length, or too few unless one symbol alone has a one-bit code.
 */
bool buildCode(Code &code, const quint8 *lengths, int symbols)
{
    code.count.fill(0);
    for (int s = 0; s < symbols; ++s)
        ++code.count[lengths[s]];
    const int used = symbols - code.count[0];
    int left = 1;
    for (int length = 1; length <= longestCode; ++length) {
        left = left * 2 - code.count[length];
        if (left < 0)
            return false;
    }
    std::array<quint16, longestCode + 2> offset {};
    for (int length = 1; length <= longestCode; ++length)
        offset[length + 1] = quint16(offset[length] + code.count[length]);
    for (int s = 0; s < symbols; ++s) {
        if (lengths[s] != 0)
            code.symbol[offset[lengths[s]]++] = quint16(s);
    }
    return left == 0 || used == 0 || (used == 1 && code.count[1] == 1);
}

class Inflater
{
public:
    Inflater(const ByteSource &in, const ByteSink &out) : m_in(in), m_out(out), m_input(64 * 1024, Qt::Uninitialized)
    {
    }

    InflateOutcome run()
    {
        try {
            bool last = false;
            while (!last) {
                last = bits(1) == 1;
                switch (bits(2)) {
                case 0: storedBlock(); break;
                case 1: fixedBlock(); break;
                case 2: dynamicBlock(); break;
                default: throw Stop {InflateOutcome::Damaged};
                }
            }
            flush();
            return InflateOutcome::Done;
        } catch (const Stop &stop) {
            return stop.outcome;
        }
    }

private:
    quint8 nextByte()
    {
        if (m_next == m_end) {
            const qint64 got = m_in(m_input.data(), m_input.size());
            if (got < 0)
                throw Stop {InflateOutcome::ReadFailed};
            if (got == 0)
                throw Stop {InflateOutcome::Damaged};
            m_next = 0;
            m_end = got;
        }
        return quint8(m_input.at(m_next++));
    }

    /** The next \a n (at most 16) bits of the stream, least significant first. */
    quint32 bits(int n)
    {
        while (m_bitCount < n) {
            m_bitBuffer |= quint32(nextByte()) << m_bitCount;
            m_bitCount += 8;
        }
        const quint32 value = m_bitBuffer & ((1u << n) - 1);
        m_bitBuffer >>= n;
        m_bitCount -= n;
        return value;
    }

    void put(quint8 byte)
    {
        m_window[m_position++] = byte;
        ++m_total;
        if (m_position == windowSize)
            flush();
    }

    void flush()
    {
        if (m_position > m_flushed && !m_out(reinterpret_cast<const char *>(m_window.data()) + m_flushed,
                                             m_position - m_flushed))
            throw Stop {InflateOutcome::Stopped};
        m_flushed = m_position;
        if (m_position == windowSize)
            m_position = m_flushed = 0;
    }

    int decode(const Code &code)
    {
        int value = 0;  // the bits read so far, first bit most significant
        int first = 0;  // the first code of the current length
        int index = 0;  // where the symbols of the current length start
        for (int length = 1; length <= longestCode; ++length) {
            value |= int(bits(1));
            const int count = code.count[length];
            if (value - first < count)
                return code.symbol[index + value - first];
            index += count;
            first = (first + count) << 1;
            value <<= 1;
        }
        throw Stop {InflateOutcome::Damaged};
    }

    void storedBlock()
    {
        m_bitBuffer = 0; // a stored block starts on a byte boundary
        m_bitCount = 0;
        const quint32 length = bits(16);
        if ((bits(16) ^ 0xFFFFu) != length)
            throw Stop {InflateOutcome::Damaged};
        for (quint32 i = 0; i < length; ++i)
            put(nextByte());
    }

    void fixedBlock()
    {
        if (!m_fixedBuilt) {
            std::array<quint8, literalCodes> lengths {};
            for (int s = 0; s < literalCodes; ++s)
                lengths[s] = s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : 8;
            std::array<quint8, distanceCodes> distances {};
            distances.fill(5);
            buildCode(m_fixedLiterals, lengths.data(), literalCodes);
            buildCode(m_fixedDistances, distances.data(), distanceCodes);
            m_fixedBuilt = true;
        }
        codes(m_fixedLiterals, m_fixedDistances);
    }

    void dynamicBlock()
    {
        const int literals = int(bits(5)) + 257;
        const int distances = int(bits(5)) + 1;
        const int lengthCodes = int(bits(4)) + 4;
        std::array<quint8, 19> codeLengths {};
        for (int i = 0; i < lengthCodes; ++i)
            codeLengths[codeLengthOrder[i]] = quint8(bits(3));
        Code lengthCode;
        if (!buildCode(lengthCode, codeLengths.data(), 19))
            throw Stop {InflateOutcome::Damaged};

        std::array<quint8, literalCodes + distanceCodes> lengths {};
        for (int i = 0; i < literals + distances;) {
            const int symbol = decode(lengthCode);
            if (symbol < 16) {
                lengths[i++] = quint8(symbol);
                continue;
            }
            quint8 repeated = 0;
            int times = 0;
            if (symbol == 16) {
                if (i == 0)
                    throw Stop {InflateOutcome::Damaged};
                repeated = lengths[i - 1];
                times = 3 + int(bits(2));
            } else {
                times = symbol == 17 ? 3 + int(bits(3)) : 11 + int(bits(7));
            }
            if (i + times > literals + distances)
                throw Stop {InflateOutcome::Damaged};
            while (times-- > 0)
                lengths[i++] = repeated;
        }
        if (lengths[256] == 0) // no end-of-block code
            throw Stop {InflateOutcome::Damaged};
        Code literalCode;
        Code distanceCode;
        if (!buildCode(literalCode, lengths.data(), literals)
            || !buildCode(distanceCode, lengths.data() + literals, distances))
            throw Stop {InflateOutcome::Damaged};
        codes(literalCode, distanceCode);
    }

    void codes(const Code &literalCode, const Code &distanceCode)
    {
        for (;;) {
            const int symbol = decode(literalCode);
            if (symbol < 256) {
                put(quint8(symbol));
                continue;
            }
            if (symbol == 256)
                return;
            if (symbol > 285) // 286 and 287 have codes but no meaning
                throw Stop {InflateOutcome::Damaged};
            const size_t lengthIndex = size_t(symbol - 257);
            const quint32 length = lengthBase[lengthIndex] + bits(lengthExtra[lengthIndex]);
            const int distanceSymbol = decode(distanceCode);
            const quint32 distance = distanceBase[size_t(distanceSymbol)] + bits(distanceExtra[size_t(distanceSymbol)]);
            if (distance > m_total)
                throw Stop {InflateOutcome::Damaged};
            quint32 from = (m_position + windowSize - distance) % windowSize;
            for (quint32 i = 0; i < length; ++i) {
                put(m_window[from]);
                from = (from + 1) % windowSize;
            }
        }
    }

    const ByteSource &m_in;
    const ByteSink &m_out;
    QByteArray m_input;
    qint64 m_next = 0;
    qint64 m_end = 0;
    quint32 m_bitBuffer = 0;
    int m_bitCount = 0;
    std::array<quint8, windowSize> m_window {};
    int m_position = 0;
    int m_flushed = 0;
    quint64 m_total = 0;
    Code m_fixedLiterals;
    Code m_fixedDistances;
    bool m_fixedBuilt = false;
};

} // namespace

InflateOutcome inflateDeflate64(const ByteSource &in, const ByteSink &out)
{
    // The window is too large for the stack of a worker thread.
    const auto inflater = std::make_unique<Inflater>(in, out);
    return inflater->run();
}
