// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <functional>

/** Fills \a buffer with up to \a size compressed bytes; returns how many, 0 at the end, -1 when reading failed. */
using ByteSource = std::function<qint64(char *buffer, qint64 size)>;
/** Takes the next decoded bytes; false stops the decoding. */
using ByteSink = std::function<bool(const char *data, qint64 size)>;

enum class InflateOutcome {
    Done,        // the final block ended
    Damaged,     // no valid Deflate64 stream, or it ends before its final block
    Stopped,     // the sink said no
    ReadFailed,  // the source said -1
};

/**
 * Decodes one Deflate64 stream (zip method 9: deflate with a 64 KiB window, length code 285
 * carrying 16 extra bits and distance codes 30 and 31) from \a in into \a out, which is handed
 * the bytes in pieces of at most 64 KiB. Bytes after the final block are ignored.
 */
InflateOutcome inflateDeflate64(const ByteSource &in, const ByteSink &out);
