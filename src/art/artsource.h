// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "art/parallel.h"
#include "common/report.h"

#include <QImage>
#include <QList>
#include <QSize>
#include <QStringList>

#include <functional>

/** What a frame becomes as soon as it is decoded, on the core that decoded it. */
using FrameConversion = std::function<QImage(const QImage &)>;

/** The frames an author's art holds, in the order they are shown. */
struct ArtFrames : Report {
    QList<QImage> frames;
    QList<int> delays; // milliseconds, one per frame of an animated source; empty when it has none
};

/**
 * Reads \a sources as frames: an animated picture (GIF, WebP: every frame as it is shown), a
 * sprite sheet cut into \a sheet columns x rows (left to right, then top to bottom), pictures
 * in the order given, or a folder's pictures in natural order. Anything Qt's image readers
 * take, decoded on every core (\a progress counts files). An unreadable source is an error
 * naming the file and the reason; no frames then. With \a convert, each frame is kept as it
 * makes it and the decoded picture let go at once, so a long run holds only what it will write.
 */
ArtFrames readArtFrames(const QStringList &sources, QSize sheet = QSize(), const ArtProgress &progress = {},
                        const FrameConversion &convert = {});

/** \a names sorted as people count: "next2" before "next10", letter case ignored. */
QStringList naturalOrder(QStringList names);

/** Whether Qt's image readers take files named like \a path (by its extension). */
bool isPictureName(const QString &path);

/** The middle one of \a delays (the lower of the two middle ones for an even count); -1 when empty. */
int medianDelay(QList<int> delays);
