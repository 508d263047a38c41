// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"

#include <QCoreApplication>
#include <QSize>

/** The two off-screen frame strips; elements of one strip never play at the same time. */
enum class FrameStripId { Background, Blocks };

/** How an animated element is named and shown: the name its messages use, its strip and its surface. */
struct ElementPreview {
    AnimatedElementId id;
    const char *caption;       // "Game Background"
    FrameStripId strip;
    AnimatedElementId surface; // the element whose preview surface it plays in
    QSize surfaceSize;         // the visible area of the surface
};

inline constexpr ElementTable<ElementPreview> elementPreviews{{
    {AnimatedElementId::Background, QT_TRANSLATE_NOOP("AnimatedElement", "Game Background"), FrameStripId::Background,
     AnimatedElementId::Background, QSize(192, 352)},
    // Drawn into the top-left corner of the background's surface.
    {AnimatedElementId::InternetBackground, QT_TRANSLATE_NOOP("AnimatedElement", "Game Internet Background"), FrameStripId::Background,
     AnimatedElementId::Background, QSize(192, 352)},
    {AnimatedElementId::Blocks, QT_TRANSLATE_NOOP("AnimatedElement", "Game Blocks"), FrameStripId::Blocks,
     AnimatedElementId::Blocks, QSize(96, 80)},
    {AnimatedElementId::NextBlock, QT_TRANSLATE_NOOP("AnimatedElement", "Next Block Window"), FrameStripId::Blocks,
     AnimatedElementId::NextBlock, QSize(77, 77)},
    {AnimatedElementId::SpecialWindow, QT_TRANSLATE_NOOP("AnimatedElement", "Special Window"), FrameStripId::Blocks,
     AnimatedElementId::SpecialWindow, QSize(160, 16)},
    {AnimatedElementId::Explosion, QT_TRANSLATE_NOOP("AnimatedElement", "Explosion"), FrameStripId::Blocks,
     AnimatedElementId::Explosion, QSize(192, 64)},
    // The bomb surface shows only the left 64 columns of each frame.
    {AnimatedElementId::Bomb, QT_TRANSLATE_NOOP("AnimatedElement", "Block Bomb"), FrameStripId::Blocks,
     AnimatedElementId::Bomb, QSize(64, 64)},
}};
static_assert(rowsMatchKeys(elementPreviews));

/** How messages and the editor name element \a id ("Game Background"), in the user's language. */
inline QString elementCaption(AnimatedElementId id)
{
    return QCoreApplication::translate("AnimatedElement", elementPreviews[id].caption);
}
