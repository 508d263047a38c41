// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <optional>

class QIODevice;
class QImage;

/** Where a plain bitmap's pixels lie in its file. */
struct PlainBitmapLayout {
    qint64 offset = 0;   // of the first stored row
    int width = 0;
    int height = 0;
    bool bottomUp = true; // rows stored from the bottom one up
    qint64 rowBytes = 0;  // stored row, padded to four bytes as Qt pads its rows
};

/**
 * The layout of \a in when it is a plain bitmap (see readPlainBitmap) whose pixels are all
 * there; nullopt otherwise. Only peeks: \a in stays at its start.
 */
std::optional<PlainBitmapLayout> plainBitmapLayout(QIODevice &in);

/**
 * Reads the pixels of \a in, laid out as \a layout says, into \a pixels: top row first, rows
 * \a layout.rowBytes apart, R, G, B bytes, padding zeroed. On false \a pixels hold part of the
 * file and \a in is back at its start.
 */
bool readPlainBitmapPixels(QIODevice &in, const PlainBitmapLayout &layout, uchar *pixels);

/**
 * Reads the commonest frame file on a fast path of its own: a whole, uncompressed 24-bit
 * Windows bitmap with the 40-byte header every paint program writes. Its pixels land in
 * \a picture (its memory reused when the size matches) as RGB888, the very colours Qt's
 * reader gives. Returns false for any other file, \a in back at its start, for Qt to read.
 */
bool readPlainBitmap(QIODevice &in, QImage &picture);
