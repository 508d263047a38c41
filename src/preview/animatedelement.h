#pragma once

#include <QSize>

/** The two off-screen frame strips; elements of one strip never play at the same time. */
enum class FrameStripId { Background, Blocks };

/**
 * One animated theme element: the document fields its preview reads, the window's controls
 * that run it and the geometry of its frames. nullptr marks a setting the element lacks.
 */
struct AnimatedElement {
    const char *caption;             // "Game Background"
    const char *animatedField;       // "bganimated"; nullptr: always animated
    const char *imageField;          // "bgimage": the file of frame 1
    const char *frameCountField;     // "bgframecount"
    const char *startingFrameField;  // "bgstartingframe"; nullptr: starts at frame 1
    const char *delayField;          // "bgdelaybetweenframes", milliseconds
    const char *reverseField;        // "bgreverseanimation"; nullptr: forward only
    const char *button;              // "cmdPreviewBG"
    const char *timer;               // "tmrBGPreview"
    FrameStripId strip;
    const char *surface;             // "picPreviewBG"
    QSize surfaceSize;               // the visible area of the surface
    QSize frame;                     // frame rectangle; frame n lies at (0, (n - 1) * height)
    int stripWidth;
    int stripHeightPerFrame;         // the strip is sized this times the number of frames
};

enum AnimatedElementId : int {
    ElementBackground,
    ElementInternetBackground,
    ElementBlocks,
    ElementNextBlock,
    ElementSpecialWindow,
    ElementExplosion,
    ElementBomb,
    AnimatedElementCount
};

inline constexpr AnimatedElement animatedElements[AnimatedElementCount] = {
    {"Game Background", "bganimated", "bgimage", "bgframecount", "bgstartingframe",
     "bgdelaybetweenframes", "bgreverseanimation", "cmdPreviewBG", "tmrBGPreview",
     FrameStripId::Background, "picPreviewBG", QSize(192, 352), QSize(192, 352), 192, 352},
    {"Game Internet Background", "inetbganimated", "inetbgimage", "inetbgframecount",
     "inetbgstartingframe", "inetbgdelaybetweenframes", "inetbgreverseanimation",
     "cmdPreviewIBG", "tmrPreviewIBG",
     FrameStripId::Background, "picPreviewBG", QSize(192, 352), QSize(96, 176), 97, 177},
    {"Game Blocks", "animateblocks", "blkimage", "blkframecount", "blkstartingframe",
     "blkdelaybetweenframes", "blkreverseanimation", "cmdPreviewBlocks", "tmrPreviewBlk",
     FrameStripId::Blocks, "picPreviewBlk", QSize(96, 80), QSize(96, 80), 98, 80},
    {"Next Block Window", "nextblkanimated", "nextblkimage", "nextblkframecount",
     "nextblkstartingframe", "nextblkdelaybetweenframes", "nextblkreverseanimation",
     "cmdPreviewNext", "tmrPreviewNext",
     FrameStripId::Blocks, "picPreviewNext", QSize(77, 77), QSize(77, 77), 78, 78},
    {"Special Window", "specialwindowanimated", "specialwindowimage", "specialwindowframecount",
     "specialwindowstartingframe", "specialwindowdelaybetweenframes",
     "specialwindowreverseanimation", "cmdPreviewSpec", "tmrPreviewSW",
     FrameStripId::Blocks, "picPreviewSW", QSize(160, 16), QSize(160, 16), 161, 17},
    {"Explosion", nullptr, "explodeimage", "explodeframecount", nullptr,
     "explodedelaybetweenframes", nullptr, "cmdPreviewExplosion", "tmrPreviewExplosion",
     FrameStripId::Blocks, "picPreviewExplosion", QSize(192, 64), QSize(192, 64), 193, 65},
    // The bomb surface shows only the left 64 columns of each frame.
    {"Block Bomb", nullptr, "bombimage", "Bombframecount", nullptr,
     "Bombdelaybetweenframes", nullptr, "cmdPreviewBomb", "tmrPreviewBomb",
     FrameStripId::Blocks, "picPreviewBomb", QSize(64, 64), QSize(192, 64), 193, 65},
};
