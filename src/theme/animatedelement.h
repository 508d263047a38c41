// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/enumarray.h"
#include "theme/themefields.h"

#include <QAnyStringView>
#include <QLatin1StringView>
#include <QSize>

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
 * One animated theme element: its document fields (from the field table) and the geometry of its frames in the
 * game. nullptr marks a field the element lacks. How the editor names and shows it is the preview's and the
 * editor's own tables' business (preview/elementpreview.h, editor/pages.h).
 */
struct AnimatedElement {
    AnimatedElementId id;
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
    QSize frame;                    // frame rectangle; frame n lies at (0, (n - 1) * height)
    int stripWidth;
    int stripHeightPerFrame;        // the strip is sized this times the number of frames
};

/** The element of frame-sequence \a section: its fields found in the field table by their roles. */
constexpr AnimatedElement animatedElement(AnimatedElementId id, Section section, QSize frame, int stripWidth,
                                          int stripHeightPerFrame)
{
    using enum FieldRole;
    const auto role = [section](FieldRole r, int nth = 0) { return fieldWithRole(section, r, nth); };
    return {id, role(Include), {role(Animated), role(Animated, 1), role(Animated, 2), role(Animated, 3)},
            role(Image), role(Root), role(Extension), role(FrameCount), role(StartingFrame), role(StillFrame),
            role(Delay), role(Reverse), role(Transparency), frame, stripWidth, stripHeightPerFrame};
}

inline constexpr ElementTable<AnimatedElement> animatedElements{{
    animatedElement(AnimatedElementId::Background, Section::Background, QSize(192, 352), 192, 352),
    animatedElement(AnimatedElementId::InternetBackground, Section::InternetBackground, QSize(96, 176), 97, 177),
    animatedElement(AnimatedElementId::Blocks, Section::Blocks, QSize(96, 80), 98, 80),
    animatedElement(AnimatedElementId::NextBlock, Section::NextWindow, QSize(77, 77), 78, 78),
    animatedElement(AnimatedElementId::SpecialWindow, Section::SpecialWindow, QSize(160, 16), 161, 17),
    animatedElement(AnimatedElementId::Explosion, Section::Explosion, QSize(192, 64), 193, 65),
    animatedElement(AnimatedElementId::Bomb, Section::Bomb, QSize(192, 64), 193, 65),
}};
static_assert(rowsMatchKeys(animatedElements));

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
