// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>

/**
 * A picture as bytes the program reads back without an image reader: its width and height
 * (32 bits each, little-endian), then its rows of premultiplied RGBA bytes, unpadded. Reading
 * any image format makes Qt first ask every image plugin whether it reads that format.
 */
QByteArray rawPictureBytes(const QImage &picture);

/** The picture in \a bytes as rawPictureBytes() wrote it; a null image when they are not one. */
QImage rawPicture(const QByteArray &bytes);
