// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/enumarray.h"

#include <QString>
#include <QAnyStringView>

#include <array>
#include <optional>
#include <span>
#include <string_view>

/** How a field's value is held and written. */
enum class FieldKind {
    Text,      // free text, held verbatim
    Switch,    // check box value: 0 off, 1 on, 2 greyed
    TypeIndex, // 0 = Theme Type 0, 1 = Theme Type 1
};

/** The blocks of a theme file, by their index in themeSections() (the writer's order), then the header. */
enum class Section { Interface, Background, Blocks, InternetBackground, SpecialWindow, NextWindow,
                     Explosion, Bomb, MiscImages, Colors, Music, Sounds,
                     Header }; // the [Theme Info] lines above the blocks, written by their own rules

/** How the writer writes one key of a section. */
enum class KeyRule {
    Always,
    IfNotEmpty,
    AfterPrevious, // a switch written only when the key before it was
    Print,         // number print form: a blank either side of the value
    Color,         // white stands in for an empty colour when written and a missing one when read
};

/** What a field is to its section: the animated elements and the page row lists are built from these. */
enum class FieldRole {
    Plain,
    Include,       // the section's include switch: the writer writes the section only while it is on
    Image,         // the editor's frame-1 file name: never written, rebuilt on load
    Animated,      // an animation switch of a frame sequence (the preview obeys the first)
    Root, Extension, FrameCount, StartingFrame, StillFrame, Delay, Reverse, Transparency,
    Row,           // one row of its page's row list, at pageRow
};

/**
 * One field of the theme document, the only place its key is spelled. The key is the theme-file
 * key exactly as the writer spells it (or the editor-only name); the caption labels its control.
 */
struct FieldSpec {
    const char *key;
    Section section;
    FieldKind kind = FieldKind::Text;
    const char *defaultValue = ""; // what a reset gives it; nullptr: a reset leaves it alone
    const char *caption = nullptr; // "Theme Name:"
    const char *control = nullptr; // "txtThemeName"; nullptr: named by its row list's edit control
    KeyRule rule = KeyRule::Always;
    FieldRole role = FieldRole::Plain;
    int readRank = 0;              // the loader reads a section's keys by rank, ties in table order
    int pageRow = 0;               // its place on its page's row list (FieldRole::Row)
    const char *describe = nullptr; // its description line while its section is included
};

/** The rows of the pages' row lists, in page order: each names the field its row edits (FieldSpec::pageRow). */
enum class InterfaceRow { Main, Options, Themes, Server, Chat, Connect, HighScore, Misc, Menu, Internet };
enum class MiscImageRow { DoorLeft, DoorRight, InternetDoor, WinGame, InternetWinGame, HeightLed, Warning, TeamFont };
enum class SoundRow { Rotate, Drop, StartGame, Lose, Win, LineClear, Tetris, Explosion, Chat, Click, Shield };
enum class ColorRow { Title, Fields, Options, Theme, Server, Connect, Internet, HighScoreTitle, HighScoreNormal,
                      HighScoreFirst, HighScoreSecond, HighScoreThird };

/** The number of rows of row kind \a Row. */
template <typename Row>
inline constexpr std::size_t rowCount = 0;
template <>
inline constexpr std::size_t rowCount<InterfaceRow> = enumIndex(InterfaceRow::Internet) + 1;
template <>
inline constexpr std::size_t rowCount<MiscImageRow> = enumIndex(MiscImageRow::TeamFont) + 1;
template <>
inline constexpr std::size_t rowCount<SoundRow> = enumIndex(SoundRow::Shield) + 1;
template <>
inline constexpr std::size_t rowCount<ColorRow> = enumIndex(ColorRow::HighScoreThird) + 1;

/** A table with one entry per row of kind \a Row, read by the row. */
template <typename Row, typename T>
using RowTable = EnumArray<Row, T, rowCount<Row>>;

/** Every row of kind \a Row, in page order. */
template <typename Row>
inline constexpr auto rowValues = enumValues<Row, rowCount<Row>>();

/** The row at page position \a index (a combo index, a restored number), or nullopt outside the list. */
template <typename Row>
constexpr std::optional<Row> rowFromIndex(qsizetype index)
{
    if (index < 0 || std::size_t(index) >= rowCount<Row>)
        return std::nullopt;
    return static_cast<Row>(index);
}

/** A row's page position as FieldSpec::pageRow holds it. */
template <typename Row>
constexpr int rowOf(Row row)
{
    return int(enumIndex(row));
}

/** The keys the program names by hand (the header's, and a few with rules of their own), spelled once. */
namespace FieldKey {
inline constexpr char name[] = "name";
inline constexpr char developer[] = "developer";
inline constexpr char version[] = "version";
inline constexpr char themeType[] = "themetype";
inline constexpr char description[] = "description";
inline constexpr char resourceFile[] = "resourcefile";
inline constexpr char skinFile[] = "skinfile";
inline constexpr char skinTransparency[] = "skintransparency";
inline constexpr char midi[] = "midi";
inline constexpr char menuTransparent[] = "ifacemenutransparent";
inline constexpr char winTransparent[] = "wintransparent";
inline constexpr char inetWinTransparent[] = "inetwintransparent";
} // namespace FieldKey

namespace fieldtable {
using enum Section;
using enum FieldKind;
using enum KeyRule;
using enum FieldRole;

// Grouped by section, include switch and image first; within a section the rows stand in the
// writer's order. Reset defaults are the New-theme values.
inline constexpr FieldSpec rows[] = {
    {.key = FieldKey::name, .section = Header, .defaultValue = "Stakko Theme", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Name:"),
     .control = "txtThemeName"},
    {.key = FieldKey::developer, .section = Header, .defaultValue = "Author", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Author:"),
     .control = "txtAuthor"},
    {.key = FieldKey::version, .section = Header, .defaultValue = "1.0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Version"), .control = "txtVersion"},
    {.key = FieldKey::themeType, .section = Header, .kind = TypeIndex, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Type:"),
     .control = "cmbType"},
    {.key = FieldKey::description, .section = Header, .defaultValue = nullptr, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Description:"),
     .control = "txtDescription"},
    {.key = FieldKey::resourceFile, .section = Header, .defaultValue = "StakkoTheme.zip",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Resource File(Theme Type 1):"), .control = "txtResource"},
    {.key = FieldKey::skinFile, .section = Header, .defaultValue = nullptr, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Skin File:"),
     .control = "txtSkinFile"},
    {.key = FieldKey::skinTransparency, .section = Header, .kind = Switch, .defaultValue = nullptr,
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Use Skin File Transparency Effects"), .control = "chkSkinTransparent"},

    {.key = "includeinterface", .section = Interface, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Interface in Theme"), .control = "chkIface", .role = Include},
    {.key = "ifacemain", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Main/Fields Screen:"), .control = "txtIMain",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Main)},
    {.key = "ifaceoptions", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Options Screen:"), .control = "txtIOptions",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Options)},
    {.key = "ifacechat", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Chat Screen:"), .control = "txtIChat", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(InterfaceRow::Chat)},
    {.key = "ifaceconnect", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Client Connect Screen:"), .control = "txtIClient",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Connect)},
    {.key = "ifaceserver", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Server Screen:"), .control = "txtIServer",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Server)},
    {.key = "ifacethemes", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Previewer Screen:"), .control = "txtITheme",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Themes)},
    {.key = "ifacemisc", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Miscellaneous Screen:"), .control = "txtIMisc",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::Misc)},
    {.key = "ifacehighscore", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score Screen:"), .control = "txtIHighScore",
     .rule = IfNotEmpty, .role = Row, .pageRow = rowOf(InterfaceRow::HighScore)},
    {.key = "ifaceinet", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Field Screen:"), .control = "txtIInternet",
     .rule = IfNotEmpty, .role = Row, .readRank = 1, .pageRow = rowOf(InterfaceRow::Internet)},
    {.key = "ifacemenu", .section = Interface, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Menu Graphics:"), .control = "txtIMenu", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(InterfaceRow::Menu)},
    {.key = FieldKey::menuTransparent, .section = Interface, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Enable Menu Graphic Transparency"), .control = "chkIMenuTransparent", .rule = AfterPrevious},

    // "Backgrond" (here and below) is the caption authors know: kept as the original spells it.
    {.key = "includebackground", .section = Background, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Game Backgrond"), .control = "chkBG", .role = Include},
    {.key = "bgimage", .section = Background, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Background Image:"), .control = "txtBStart", .role = Image},
    {.key = "bganimated", .section = Background, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Background"), .control = "chkBGAni", .role = Animated,
     .describe = "//Background Animated: "},
    {.key = "bgfilename", .section = Background, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtBGRoot", .role = Root},
    {.key = "bgextension", .section = Background, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtBGExt",
     .role = Extension},
    {.key = "bgframecount", .section = Background, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtBGNum",
     .role = FrameCount},
    {.key = "bgstartingframe", .section = Background, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Starting Frame:"),
     .control = "txtBGStart", .role = StartingFrame},
    {.key = "bgstillframe", .section = Background, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Background Still Image:"),
     .control = "txtBGStill", .role = StillFrame},
    {.key = "bgreverseanimation", .section = Background, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Reverse Animation"), .control = "chkBGReverse", .role = Reverse},
    {.key = "bgdelaybetweenframes", .section = Background, .defaultValue = "10", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"),
     .control = "txtBGDelay", .role = Delay},

    {.key = "includeinetbackground", .section = InternetBackground, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Game Internet Backgrond"), .control = "chkIBG", .role = Include},
    {.key = "inetbgimage", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Background Image:"),
     .control = "txtIBGImage", .role = Image},
    {.key = "inetbganimated", .section = InternetBackground, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Internet Background"), .control = "chkIBGAni", .role = Animated,
     .describe = "//Internet Background Animated: "},
    {.key = "inetbgfilename", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtIBGRoot",
     .role = Root},
    {.key = "inetbgextension", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtIBGExt",
     .role = Extension},
    {.key = "inetbgframecount", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtIBGNum",
     .role = FrameCount},
    {.key = "inetbgstartingframe", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Starting Frame:"),
     .control = "txtIBGStart", .role = StartingFrame},
    {.key = "inetbgstillframe", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Background Still Image:"),
     .control = "txtIBGStill", .role = StillFrame},
    {.key = "inetbgreverseanimation", .section = InternetBackground, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Reverse Animation"), .control = "chkIBGReverse", .role = Reverse},
    {.key = "inetbgdelaybetweenframes", .section = InternetBackground, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"),
     .control = "txtIBGDelay", .role = Delay},

    {.key = "includeblocks", .section = Blocks, .kind = Switch, .defaultValue = "0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Game Blocks"),
     .control = "chkBlk", .role = Include},
    {.key = "blkimage", .section = Blocks, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Blocks Image:"), .control = "txtBlkStart", .role = Image},
    {.key = "animateblocks", .section = Blocks, .kind = Switch, .defaultValue = "0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Blocks"),
     .control = "chkBlkAni", .role = Animated, .describe = "//Animated Blocks: "},
    {.key = "animatespecials", .section = Blocks, .kind = Switch, .defaultValue = "0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Specials"),
     .control = "chkSpecAni", .role = Animated, .describe = "//Animated Specials: "},
    {.key = "animateinetblocks", .section = Blocks, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Internet Blocks"), .control = "chkInetBlkAni", .role = Animated,
     .describe = "//Animated Internet Blocks: "},
    {.key = "animateinetspecials", .section = Blocks, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Internet Specials"), .control = "chkInetSpecAni", .role = Animated,
     .describe = "//Animated Internet Specials: "},
    {.key = "blktransparency", .section = Blocks, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Transparent Blocks"), .control = "chkBlkTrans", .role = Transparency, .readRank = 1},
    {.key = "blkfilename", .section = Blocks, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtBlkRoot", .role = Root},
    {.key = "blkextension", .section = Blocks, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtBlkExt", .role = Extension},
    {.key = "blkframecount", .section = Blocks, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtBlkNum",
     .role = FrameCount},
    {.key = "blkstartingframe", .section = Blocks, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Starting Frame:"),
     .control = "txtBlkStartImage", .role = StartingFrame},
    {.key = "blkstillframe", .section = Blocks, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Block Still Image:"),
     .control = "txtBlkStill", .role = StillFrame},
    {.key = "blkreverseanimation", .section = Blocks, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Reverse Animation"), .control = "chkBlkReverse", .role = Reverse},
    {.key = "blkdelaybetweenframes", .section = Blocks, .defaultValue = "10", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"),
     .control = "txtBlkDelay", .role = Delay},

    {.key = "includenextwindow", .section = NextWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Next Window GFX"), .control = "chkNext", .role = Include},
    {.key = "nextblkimage", .section = NextWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Next Block Image:"), .control = "txtNextImage",
     .role = Image},
    {.key = "nextblkanimated", .section = NextWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Blocks"), .control = "chkNextAni", .role = Animated},
    {.key = "nextblkfilename", .section = NextWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtNextRoot",
     .role = Root},
    {.key = "nextblkextension", .section = NextWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtNextExt",
     .role = Extension},
    {.key = "nextblkframecount", .section = NextWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtNextNum",
     .role = FrameCount},
    {.key = "nextblkstartingframe", .section = NextWindow, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Starting Frame:"),
     .control = "txtNextStart", .role = StartingFrame},
    {.key = "nextblkstillframe", .section = NextWindow, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Block Still Image:"),
     .control = "txtNextStill", .role = StillFrame},
    {.key = "nextblkreverseanimation", .section = NextWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Reverse Animation"), .control = "chkNextReverse", .role = Reverse},
    {.key = "nextblkdelaybetweenframes", .section = NextWindow, .defaultValue = "10",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"), .control = "txtNextDelay", .role = Delay},

    {.key = "includespecialwindow", .section = SpecialWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Special Window GFX"), .control = "chkSW", .role = Include},
    {.key = "specialwindowimage", .section = SpecialWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Special Window Image:"),
     .control = "txtSWImage", .role = Image},
    {.key = "specialwindowanimated", .section = SpecialWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Animated Special Window"), .control = "chkSWAni", .role = Animated},
    {.key = "specialwindowfilename", .section = SpecialWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtSWRoot",
     .role = Root},
    {.key = "specialwindowextension", .section = SpecialWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtSWExt",
     .role = Extension},
    {.key = "specialwindowframecount", .section = SpecialWindow, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"),
     .control = "txtSWNum", .role = FrameCount},
    {.key = "specialwindowstartingframe", .section = SpecialWindow, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Starting Frame:"),
     .control = "txtSWStart", .role = StartingFrame},
    {.key = "specialwindowstillframe", .section = SpecialWindow, .defaultValue = "1", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Block Still Image:"),
     .control = "txtSWStill", .role = StillFrame},
    {.key = "specialwindowreverseanimation", .section = SpecialWindow, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Reverse Animation"), .control = "chkSWReverse", .role = Reverse, .readRank = 1},
    {.key = "specialwindowdelaybetweenframes", .section = SpecialWindow, .defaultValue = "10",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"), .control = "txtSWDelay", .role = Delay},

    {.key = "includeexplosion", .section = Explosion, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Explosion in Theme"), .control = "chkExplosion", .role = Include},
    {.key = "explodeimage", .section = Explosion, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Explosion Image:"), .control = "txtExplosionImage",
     .role = Image},
    {.key = "explodetransparency", .section = Explosion, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Transparent Explosion"), .control = "chkExplosionTrans", .rule = Print, .role = Transparency,
     .readRank = 1},
    {.key = "explodefilename", .section = Explosion, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtExplosionRoot",
     .role = Root},
    {.key = "explodefileextension", .section = Explosion, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtExplosionExt",
     .role = Extension},
    {.key = "explodeframecount", .section = Explosion, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtExplosionNum",
     .role = FrameCount},
    {.key = "explodedelaybetweenframes", .section = Explosion, .defaultValue = "10",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"), .control = "txtExplosionDelay", .role = Delay},

    {.key = "includebomb", .section = Bomb, .kind = Switch, .defaultValue = "0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Bomb in Theme"),
     .control = "chkBomb", .role = Include},
    {.key = "bombimage", .section = Bomb, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Block Bomb Image:"), .control = "txtBombImage", .role = Image},
    {.key = "Bombtransparency", .section = Bomb, .kind = Switch, .defaultValue = "0", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Transparent Blocks"),
     .control = "chkBombTrans", .rule = Print, .role = Transparency, .readRank = 1},
    {.key = "Bombfilename", .section = Bomb, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Root:"), .control = "txtBombRoot", .role = Root},
    {.key = "bombfileextension", .section = Bomb, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Image Extension:"), .control = "txtBombExt",
     .role = Extension},
    {.key = "Bombframecount", .section = Bomb, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Number of frames:"), .control = "txtBombNum",
     .role = FrameCount},
    {.key = "Bombdelaybetweenframes", .section = Bomb, .defaultValue = "10", .caption = QT_TRANSLATE_NOOP("FieldCaption", "Delay Between Frames:"),
     .control = "txtBombDelay", .role = Delay},

    {.key = "includecolors", .section = Colors, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Colors in Theme"), .control = "chkColor", .role = Include},
    {.key = "colortitle", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Title Bar Color:"), .rule = Color, .role = Row, .pageRow = rowOf(ColorRow::Title)},
    {.key = "colorfields", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Fields Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Fields)},
    {.key = "coloroptions", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Options Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Options)},
    {.key = "colortheme", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Theme Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Theme)},
    {.key = "colorserver", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Server Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Server)},
    {.key = "colorconnect", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Client Connect Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Connect)},
    {.key = "colorinternet", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Screen Color:"), .rule = Color, .role = Row,
     .pageRow = rowOf(ColorRow::Internet)},
    {.key = "colorhighscoretitle", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score Title Color:"), .rule = Color,
     .role = Row, .readRank = 2, .pageRow = rowOf(ColorRow::HighScoreTitle)},
    {.key = "colorhighscorenormal", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score Normal Color:"), .rule = Color,
     .role = Row, .readRank = 1, .pageRow = rowOf(ColorRow::HighScoreNormal)},
    {.key = "colorhighscorefirst", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score First Place Color:"), .rule = Color,
     .role = Row, .pageRow = rowOf(ColorRow::HighScoreFirst)},
    {.key = "colorhighscoresecond", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score Second Place Color:"), .rule = Color,
     .role = Row, .pageRow = rowOf(ColorRow::HighScoreSecond)},
    {.key = "colorhighscorethird", .section = Colors, .caption = QT_TRANSLATE_NOOP("FieldCaption", "High Score Third Place Color:"), .rule = Color,
     .role = Row, .pageRow = rowOf(ColorRow::HighScoreThird)},

    {.key = "includemiscimages", .section = MiscImages, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Misc. Images in Theme"), .control = "chkMImg", .role = Include},
    {.key = "door1", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Door Image Left:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(MiscImageRow::DoorLeft)},
    {.key = "door2", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Door Image Right:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(MiscImageRow::DoorRight), .describe = "//Game Door: "},
    {.key = "internetdoor", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Door Image:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(MiscImageRow::InternetDoor), .describe = "//Internet Door: "},
    {.key = "winimg", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Win Game Image:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 2, .pageRow = rowOf(MiscImageRow::WinGame), .describe = "//Win Game Image: "},
    {.key = FieldKey::winTransparent, .section = MiscImages, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Win Game Image Transparent"), .control = "chkWinTrans", .rule = AfterPrevious, .readRank = 2},
    {.key = "inetwinimg", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Win Game Image:"), .rule = IfNotEmpty,
     .role = Row, .readRank = 2, .pageRow = rowOf(MiscImageRow::InternetWinGame), .describe = "//Internet Win Game Image: "},
    {.key = FieldKey::inetWinTransparent, .section = MiscImages, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Internet Win Game Image Transparent"), .control = "chkWinInetTrans", .rule = AfterPrevious,
     .readRank = 2},
    {.key = "heightled", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Height Led Image:"), .rule = IfNotEmpty, .role = Row,
     .pageRow = rowOf(MiscImageRow::HeightLed), .describe = "//Height Led: "},
    {.key = "warning", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Warning Image:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(MiscImageRow::Warning), .describe = "//Warning Image: "},
    {.key = "teamfont", .section = MiscImages, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Team Font Image:"), .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(MiscImageRow::TeamFont), .describe = "//Team Font: "},

    {.key = "includesounds", .section = Sounds, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Sounds in Theme"), .control = "chkSounds", .role = Include},
    {.key = "startgame", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Start Game:"), .control = "txtStart", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(SoundRow::StartGame)},
    {.key = "rotate", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Rotate Block:"), .control = "txtRotate", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(SoundRow::Rotate)},
    {.key = "drop", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Drop Block:"), .control = "txtDrop", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(SoundRow::Drop)},
    {.key = "lineclear", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Make Line:"), .control = "txtLine", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(SoundRow::LineClear)},
    {.key = "tetris", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Tetris:"), .control = "txtTetrisSound", .rule = IfNotEmpty,
     .role = Row, .readRank = 1, .pageRow = rowOf(SoundRow::Tetris)},
    {.key = "explode", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Explosion:"), .control = "txtExplosionSound", .rule = IfNotEmpty,
     .role = Row, .pageRow = rowOf(SoundRow::Explosion)},
    {.key = "win", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Win Game:"), .control = "txtWinGame", .rule = IfNotEmpty,
     .role = Row, .readRank = 1, .pageRow = rowOf(SoundRow::Win)},
    {.key = "lose", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Lose Game:"), .control = "txtLose", .rule = IfNotEmpty, .role = Row,
     .readRank = 1, .pageRow = rowOf(SoundRow::Lose)},
    {.key = "chat", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Chat Message:"), .control = "txtChatSound", .rule = IfNotEmpty,
     .role = Row, .readRank = 1, .pageRow = rowOf(SoundRow::Chat)},
    {.key = "click", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Menu Click:"), .control = "txtClick", .rule = IfNotEmpty,
     .role = Row, .readRank = 1, .pageRow = rowOf(SoundRow::Click)},
    // A new theme inherits no sound, so the reset clears the shield sound too.
    {.key = "holyshield", .section = Sounds, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Shield:"), .control = "txtShieldSound", .rule = IfNotEmpty,
     .role = Row, .readRank = 1, .pageRow = rowOf(SoundRow::Shield)},

    {.key = "includemusic", .section = Music, .kind = Switch, .defaultValue = "0",
     .caption = QT_TRANSLATE_NOOP("FieldCaption", "Include Music in Theme"), .control = "chkMusic", .role = Include},
    {.key = FieldKey::midi, .section = Music, .caption = QT_TRANSLATE_NOOP("FieldCaption", "Music"), .control = "txtMusic", .rule = IfNotEmpty},
};
} // namespace fieldtable

/** Every document field, in the order the document's tables list them. */
std::span<const FieldSpec> themeFields();

/** Index of \a key in themeFields() (exact spelling), or -1. */
int fieldIndex(QAnyStringView key);

/** The field named \a key; the key must exist (a misspelt key is a programming error). */
const FieldSpec &fieldSpec(QAnyStringView key);

/** The field's caption as shown, in the user's language: "Number of frames:"; "" for a field without one. */
QString fieldCaptionText(QAnyStringView key);

/** The field's shown caption as a name, without its colon: "Number of frames:" -> "Number of frames". */
QString fieldLabel(int index);

/** The include switch of \a section ("includecolors"). */
constexpr const char *includeKey(Section section);

/** The \a nth field of \a section with \a role, or nullptr. */
constexpr const char *fieldWithRole(Section section, FieldRole role, int nth = 0)
{
    for (const FieldSpec &f : fieldtable::rows) {
        if (f.section == section && f.role == role && nth-- == 0)
            return f.key;
    }
    return nullptr;
}

constexpr const char *includeKey(Section section)
{
    return fieldWithRole(section, FieldRole::Include);
}

/** The row list of \a section's page: its FieldRole::Row keys, each at the row its pageRow names. */
template <Section section, typename Row>
constexpr RowTable<Row, const char *> pageRowKeys()
{
    RowTable<Row, const char *> keys{};
    std::size_t rows = 0;
    for (const FieldSpec &f : fieldtable::rows) {
        if (f.section == section && f.role == FieldRole::Row) {
            const std::optional<Row> row = rowFromIndex<Row>(f.pageRow);
            if (!row || keys[*row])
                throw "a page row is out of range or taken twice"; // stops the constant evaluation
            keys[*row] = f.key;
            ++rows;
        }
    }
    if (rows != keys.size())
        throw "a page row list has a gap";
    return keys;
}

/** Whether row i of \a keys names the field of \a section whose page row is i. */
template <Section section, typename Row>
constexpr bool rowsNameTheirKeys(const RowTable<Row, const char *> &keys)
{
    for (Row row : rowValues<Row>) {
        bool found = false;
        for (const FieldSpec &f : fieldtable::rows) {
            if (keys[row] && std::string_view(f.key) == keys[row])
                found = f.section == section && f.role == FieldRole::Row && f.pageRow == rowOf(row);
        }
        if (!found)
            return false;
    }
    return true;
}

/** The twelve colour keys, by swatch. */
inline constexpr auto colorKeys = pageRowKeys<Section::Colors, ColorRow>();
static_assert(rowsNameTheirKeys<Section::Colors>(colorKeys));
/** The eight miscellaneous image keys, by row. */
inline constexpr auto miscImageKeys = pageRowKeys<Section::MiscImages, MiscImageRow>();
static_assert(rowsNameTheirKeys<Section::MiscImages>(miscImageKeys));
/** The ten interface screen keys, by preview/browse row (not the document order). */
inline constexpr auto interfaceRowKeys = pageRowKeys<Section::Interface, InterfaceRow>();
static_assert(rowsNameTheirKeys<Section::Interface>(interfaceRowKeys));
/** The eleven sound keys, by play/browse row (not the document order). */
inline constexpr auto soundRowKeys = pageRowKeys<Section::Sounds, SoundRow>();
static_assert(rowsNameTheirKeys<Section::Sounds>(soundRowKeys));
