// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Deflate64 streams through the inflater: it never reads or writes out of bounds, and what it
// decodes does not depend on how the compressed bytes are handed to it.

#include "fuzzsupport.h"

#include "package/deflate64.h"

#include <algorithm>

namespace {

// Enough for every real block; a bomb stops here.
constexpr qint64 maxOutput = 4 << 20;

struct Decoded {
    InflateOutcome outcome;
    QByteArray bytes;
};

// The call under test, in one place: \a step compressed bytes at a time.
Decoded inflate(const QByteArray &stream, qint64 step)
{
    qint64 next = 0;
    const ByteSource in = [&](char *buffer, qint64 size) {
        const qint64 n = std::min({size, step, stream.size() - next});
        std::copy_n(stream.constData() + next, n, buffer);
        next += n;
        return n;
    };
    QByteArray out;
    const ByteSink sink = [&out](const char *data, qint64 size) {
        require(size > 0 && size <= 65536, QStringLiteral("a piece of %1 bytes").arg(size));
        if (out.size() + size > maxOutput)
            return false;
        out.append(data, size);
        return true;
    };
    const InflateOutcome outcome = inflateDeflate64(in, sink);
    return {outcome, out};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray stream = inputBytes(data, size);
    const Decoded whole = inflate(stream, stream.size() + 1);
    require(whole.bytes.size() <= maxOutput, QStringLiteral("more than the sink took"));
    // Bytes handed over one, two or seven at a time decode to the same.
    const qint64 step = stream.isEmpty() ? 1 : 1 + quint8(stream.at(0)) % 7;
    const Decoded pieces = inflate(stream, step);
    require(pieces.outcome == whole.outcome, QStringLiteral("the outcome depends on how the bytes come"));
    require(pieces.bytes == whole.bytes, QStringLiteral("the output depends on how the bytes come"));
    return 0;
}
