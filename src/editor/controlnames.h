// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"
#include "theme/themefields.h"

#include <QAnyStringView>
#include <QStringList>

#include <span>

// The main window's control object names, written down once: the window, its bindings and
// the tests reach every control by these names.

/** The control editing each document field, by index in themeFields(). */
const QStringList &fieldControls();

/** The control editing field \a key ("bgframecount" -> "txtBGNum"); the key must exist. */
QString fieldControl(QAnyStringView key);

/** A control repeated on every row of a row table: \a name with the row's index, "txtColor(3)". */
QString rowControl(const char *name, int row);

/** The controls on each row of a row table of themefields.h, named by rowControl(). */
struct RowControls {
    std::span<const char *const> keys; // the row table
    const char *edit;                  // nullptr: the field's own name
    const char *label;
    const char *browse;
    const char *show;                  // the preview or play button, or the colour swatch
};

inline constexpr RowControls interfaceRows{interfaceRowKeys.rows, nullptr, "lblIFace", "cmdBrowseIface", "cmdPreviewIface"};
inline constexpr RowControls miscImageRows{miscImageKeys.rows, "txtMiscImage", nullptr, "cmdBrowseMisc", "cmdPreviewMisc"};
inline constexpr RowControls colorRows{colorKeys.rows, "txtColor", nullptr, "cmdBrowseColor", "picPreviewColor"};
inline constexpr RowControls soundRows{soundRowKeys.rows, nullptr, nullptr, "cmdBrowseSound", "cmdPlaySound"};

/** One animated element's own controls; its fields' controls follow from fieldControl(). */
struct ElementControls {
    AnimatedElementId id;
    const char *frame;        // "fraBackground"
    const char *aniFrame;     // "fraBGAni": the animation settings
    const char *browse;       // "cmdBrowseBG"
    const char *preview;      // "cmdPreviewBG"
    const char *timer;        // "tmrBGPreview"
    const char *surface;      // "picPreviewBG"
    const char *previewFrame; // "fraBlkPreview"; nullptr: the page shows the surface beside the frames
};

inline constexpr ElementTable<ElementControls> elementControls{{
    {AnimatedElementId::Background, "fraBackground", "fraBGAni", "cmdBrowseBG", "cmdPreviewBG", "tmrBGPreview", "picPreviewBG", nullptr},
    {AnimatedElementId::InternetBackground, "fraIBG", "fraIBGAni", "cmdBrowseIBG", "cmdPreviewIBG", "tmrPreviewIBG", "picPreviewBG", nullptr},
    {AnimatedElementId::Blocks, "fraBlocks", "fraBlkAni", "cmdBrowseBlocks", "cmdPreviewBlocks", "tmrPreviewBlk", "picPreviewBlk",
     "fraBlkPreview"},
    {AnimatedElementId::NextBlock, "fraNext", "fraNextAni", "cmdBrowseNext", "cmdPreviewNext", "tmrPreviewNext", "picPreviewNext", "fraNextPreview"},
    {AnimatedElementId::SpecialWindow, "fraSW", "fraSWAni", "cmdBrowseSpec", "cmdPreviewSpec", "tmrPreviewSW", "picPreviewSW", "fraPreviewSpec"},
    {AnimatedElementId::Explosion, "fraExplosion", "fraExplosionAni", "cmdBrowseExplosion", "cmdPreviewExplosion", "tmrPreviewExplosion",
     "picPreviewExplosion", "fraPreviewExplosion"},
    {AnimatedElementId::Bomb, "fraBomb", "fraBombAni", "cmdBrowseBomb", "cmdPreviewBomb", "tmrPreviewBomb", "picPreviewBomb", "fraPreviewBomb"},
}};
static_assert(rowsMatchKeys(elementControls));
