// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"

#include <QImage>

class QIODevice;

/**
 * Frame strips hold an element's frames one below the other, 24-bit and opaque. These
 * helpers never read outside an image: what lies outside a source is drawn cleared (black).
 */
namespace FrameStrip {

/** Strips larger than this are refused before anything is allocated. */
inline constexpr qint64 maximumBytes = qint64(1) << 30;

/** Memory a strip for \a frameCount frames (as entered, fractions included) needs. */
qint64 bytesNeeded(const AnimatedElement &element, double frameCount);

/**
 * A strip for \a frameCount frames, its pixels not yet set: fill it slot by slot with
 * placeFrame() and finish with clearFrom(). A null image when memory ran out.
 */
QImage allocate(const AnimatedElement &element, double frameCount);

/**
 * Fills \a slot (0-based) of \a strip, whole rows, with the frame rectangle at the top-left
 * corner of \a picture: unscaled, opaque, a larger picture cut; whatever a smaller (or
 * null) picture leaves uncovered is cleared.
 */
void placeFrame(QImage &strip, QSize frame, qint64 slot, const QImage &picture);

/**
 * Reads \a in straight into \a slot when it is a plain bitmap (see readPlainBitmap) of
 * exactly the frame's size and the strip holds the whole slot: the rows placeFrame() of its
 * picture would write, without a picture between. Returns false when \a in is anything
 * else, the slot then untouched, or when reading failed, the slot then holding part of it.
 */
bool readFrameInPlace(QIODevice &in, QImage &strip, QSize frame, qint64 slot);

/**
 * Fills \a slot of \a strip, as far as the strip holds it, with the slot above it: what
 * placeFrame() of the picture placed there would write.
 */
void repeatSlotAbove(QImage &strip, QSize frame, qint64 slot);

/** Clears every row of \a strip from \a firstRow down. */
void clearFrom(QImage &strip, qint64 firstRow);

/**
 * Draws \a slot of \a strip at (0, 0) of \a surface, which must be RGB888; what the frame
 * does not cover, and any part of the slot outside the strip, is cleared. With
 * \a onlyFrameArea, pixels outside the frame rectangle are left as they are: for a surface
 * this element drew last, which are clear already.
 */
void drawSlot(const QImage &strip, QSize frame, qint64 slot, QImage &surface,
              bool onlyFrameArea = false);

} // namespace FrameStrip
