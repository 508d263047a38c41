// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QIODevice;
class QImage;

/**
 * Reads the commonest frame file on a fast path of its own: a whole, uncompressed 24-bit
 * Windows bitmap with the 40-byte header every paint program writes. Its pixels land in
 * \a picture (its memory reused when the size matches) as RGB888, the very colours Qt's
 * reader gives. Returns false for any other file, \a in back at its start, for Qt to read.
 */
bool readPlainBitmap(QIODevice &in, QImage &picture);
