// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/enumarray.h"
#include "theme/themefields.h"

#include <QAnyStringView>
#include <QCoreApplication>
#include <QLatin1StringView>
#include <QSize>

/** The editor's pages, in tab order. */
enum class EditorPage { General, Interface, Background, Blocks, Misc, Sounds };

/** The two off-screen frame strips; elements of one strip never play at the same time. */
enum class FrameStripId { Background, Blocks };

/** The animated theme elements: the key of every table with a row per element. */
enum class AnimatedElementId { Background, InternetBackground, Blocks, NextBlock, SpecialWindow, Explosion, Bomb };

inline constexpr std::size_t animatedElementCount = enumIndex(AnimatedElementId::Bomb) + 1;

/** Every element, in table order. */
inline constexpr auto animatedElementIds = enumValues<AnimatedElementId, animatedElementCount>();

/** A table with one row per animated element. */
template <typename T>
using ElementTable = EnumArray<AnimatedElementId, T, animatedElementCount>;

/** Whether each row of \a table names the element it is read by: tables are keyed, not matched by position. */
template <typename T>
constexpr bool rowsMatchKeys(const ElementTable<T> &table)
{
    for (AnimatedElementId id : animatedElementIds) {
        if (table[id].id != id)
            return false;
    }
    return true;
}

/**
 * One animated theme element: its document fields (from the field table), the geometry of its frames and where the
 * editor shows it. nullptr marks a field the element lacks.
 */
struct AnimatedElement {
    AnimatedElementId id;
    const char *caption;            // "Game Background"
    const char *includeField;       // "includebackground"
    const char *animatedFields[4];  // the preview obeys the first, any opens the settings; none: always animated
    const char *imageField;         // "bgimage": the file of frame 1
    const char *rootField;          // "bgfilename"
    const char *extensionField;     // "bgextension"
    const char *frameCountField;    // "bgframecount"
    const char *startingFrameField; // nullptr: starts at frame 1
    const char *stillFrameField;
    const char *delayField;         // milliseconds
    const char *reverseField;       // nullptr: forward only
    const char *transparencyField;
    FrameStripId strip;
    AnimatedElementId surface;      // the element whose preview surface it plays in
    QSize surfaceSize;              // the visible area of the surface
    QSize frame;                    // frame rectangle; frame n lies at (0, (n - 1) * height)
    int stripWidth;
    int stripHeightPerFrame;        // the strip is sized this times the number of frames
    EditorPage page;                // with its data-set choice, where the editor shows it
    const char *dataSet;            // "Internet Background"
    EditorPage alsoTicksOn;         // showing this page leaves its tick running too
};

/** The element of frame-sequence \a section: its fields found in the field table by their roles. */
constexpr AnimatedElement animatedElement(AnimatedElementId id, const char *caption, Section section, FrameStripId strip,
                                          AnimatedElementId surface, QSize surfaceSize, QSize frame, int stripWidth,
                                          int stripHeightPerFrame, EditorPage page, const char *dataSet,
                                          EditorPage alsoTicksOn)
{
    using enum FieldRole;
    const auto role = [section](FieldRole r, int nth = 0) { return fieldWithRole(section, r, nth); };
    return {id, caption, role(Include), {role(Animated), role(Animated, 1), role(Animated, 2), role(Animated, 3)},
            role(Image), role(Root), role(Extension), role(FrameCount), role(StartingFrame), role(StillFrame),
            role(Delay), role(Reverse), role(Transparency), strip, surface, surfaceSize, frame, stripWidth,
            stripHeightPerFrame, page, dataSet, alsoTicksOn};
}

inline constexpr ElementTable<AnimatedElement> animatedElements{{
    animatedElement(AnimatedElementId::Background, QT_TRANSLATE_NOOP("AnimatedElement", "Game Background"), Section::Background,
                    FrameStripId::Background, AnimatedElementId::Background, QSize(192, 352), QSize(192, 352), 192, 352,
                    EditorPage::Background, "Background", EditorPage::Background),
    // Drawn into the top-left corner of the background's surface; the Blocks page leaves it playing.
    animatedElement(AnimatedElementId::InternetBackground, QT_TRANSLATE_NOOP("AnimatedElement", "Game Internet Background"), Section::InternetBackground,
                    FrameStripId::Background, AnimatedElementId::Background, QSize(192, 352), QSize(96, 176), 97, 177,
                    EditorPage::Background, "Internet Background", EditorPage::Blocks),
    animatedElement(AnimatedElementId::Blocks, QT_TRANSLATE_NOOP("AnimatedElement", "Game Blocks"), Section::Blocks,
                    FrameStripId::Blocks, AnimatedElementId::Blocks, QSize(96, 80), QSize(96, 80), 98, 80,
                    EditorPage::Blocks, "Game Blocks", EditorPage::Blocks),
    animatedElement(AnimatedElementId::NextBlock, QT_TRANSLATE_NOOP("AnimatedElement", "Next Block Window"), Section::NextWindow,
                    FrameStripId::Blocks, AnimatedElementId::NextBlock, QSize(77, 77), QSize(77, 77), 78, 78,
                    EditorPage::Blocks, "Next Block Window", EditorPage::Blocks),
    animatedElement(AnimatedElementId::SpecialWindow, QT_TRANSLATE_NOOP("AnimatedElement", "Special Window"), Section::SpecialWindow,
                    FrameStripId::Blocks, AnimatedElementId::SpecialWindow, QSize(160, 16), QSize(160, 16), 161, 17,
                    EditorPage::Blocks, "Special Window", EditorPage::Blocks),
    animatedElement(AnimatedElementId::Explosion, QT_TRANSLATE_NOOP("AnimatedElement", "Explosion"), Section::Explosion,
                    FrameStripId::Blocks, AnimatedElementId::Explosion, QSize(192, 64), QSize(192, 64), 193, 65,
                    EditorPage::Misc, "Explosion", EditorPage::Misc),
    // The bomb surface shows only the left 64 columns of each frame.
    animatedElement(AnimatedElementId::Bomb, QT_TRANSLATE_NOOP("AnimatedElement", "Block Bomb"), Section::Bomb,
                    FrameStripId::Blocks, AnimatedElementId::Bomb, QSize(64, 64), QSize(192, 64), 193, 65,
                    EditorPage::Misc, "Block Bomb", EditorPage::Misc),
}};
static_assert(rowsMatchKeys(animatedElements));

/** How messages and the editor name element \a id ("Game Background"), in the user's language. */
inline QString elementCaption(AnimatedElementId id)
{
    return QCoreApplication::translate("AnimatedElement", animatedElements[id].caption);
}

/** The element whose frame root is the field \a rootField ("bgfilename"), or nullptr. */
inline const AnimatedElement *elementWithRoot(QAnyStringView rootField)
{
    for (const AnimatedElement &e : animatedElements) {
        if (QAnyStringView::equal(rootField, QLatin1StringView(e.rootField)))
            return &e;
    }
    return nullptr;
}

/** The element that field \a key ("bgframecount", "includebackground") belongs to, or nullptr. */
inline const AnimatedElement *elementOfField(QAnyStringView key)
{
    const auto is = [&key](const char *field) { return field && QAnyStringView::equal(key, QLatin1StringView(field)); };
    for (const AnimatedElement &e : animatedElements) {
        for (const char *field : {e.includeField, e.imageField, e.rootField, e.extensionField, e.frameCountField,
                                  e.startingFrameField, e.stillFrameField, e.delayField, e.reverseField,
                                  e.transparencyField, e.animatedFields[0], e.animatedFields[1], e.animatedFields[2],
                                  e.animatedFields[3]}) {
            if (is(field))
                return &e;
        }
    }
    return nullptr;
}
