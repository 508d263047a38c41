// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/numbertext.h"

#include <QString>

#include <optional>

/**
 * The numbered frame files of an animation. The author names frame 1 only; the first "." of
 * that text splits it, the character before the "." is the 1 and is dropped, so "bg1.bmp"
 * gives frames bg1.bmp, bg2.bmp, ... and "anim01.bmp" gives anim01.bmp ... anim010.bmp.
 */
class FrameSequence
{
public:
    /** The sequence named by \a imageText; nullopt when the text has no ".". */
    static std::optional<FrameSequence> fromImageText(const QString &imageText);

    QString root() const { return m_root; }
    QString extension() const { return m_extension; }

    /** \a folder + root + n + "." + extension, exactly as the theme spells it. */
    QString frameName(const QString &folder, qint64 n) const;

private:
    QString m_root;
    QString m_extension;
};

/** roundHalfEven() as a frame number, clamped so that counting on from it cannot overflow. */
qint64 frameNumber(double value);
