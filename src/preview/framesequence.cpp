// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/framesequence.h"

#include "common/pathlookup.h"

#include <cmath>

std::optional<FrameSequence> FrameSequence::fromImageText(const QString &imageText)
{
    const qsizetype dot = imageText.indexOf(u'.');
    if (dot < 0)
        return std::nullopt;
    FrameSequence sequence;
    sequence.m_root = imageText.left(std::max<qsizetype>(dot - 1, 0));
    sequence.m_extension = imageText.mid(dot + 1);
    return sequence;
}

QString FrameSequence::frameName(const QString &folder, qint64 n) const
{
    return themeFilePath(folder, m_root + QString::number(n) + u'.' + m_extension);
}

qint64 frameNumber(double value)
{
    // Far beyond any strip that fits in memory, and far from qint64 overflow when counted on.
    constexpr double limit = 1e15;
    return qint64(std::clamp(roundHalfEven(value), -limit, limit));
}
