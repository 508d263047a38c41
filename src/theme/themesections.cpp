// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themesections.h"

#include "theme/animatedelement.h"
#include "theme/themedocument.h"

namespace {

using enum KeyRule;
using enum FileKind;
constexpr bool TypeOneOnly = true;
constexpr bool BothTypes = false;

// Sections and keys in the writer's order, the one place it is kept; readOrder is the one place
// of the loader's key order. The loader (themeloader.cpp) and the description (description.cpp)
// keep their own section orders: the game reads its files that way.
const ThemeSection sections[] = {
    {"includeinterface", "//Graphical User Interface", "//Interface: ", BothTypes, StillImage,
     {{"ifacemain", IfNotEmpty}, {"ifaceoptions", IfNotEmpty}, {"ifacechat", IfNotEmpty},
      {"ifaceconnect", IfNotEmpty}, {"ifaceserver", IfNotEmpty}, {"ifacethemes", IfNotEmpty},
      {"ifacemisc", IfNotEmpty}, {"ifacehighscore", IfNotEmpty}, {"ifaceinet", IfNotEmpty},
      {"ifacemenu", IfNotEmpty}, {"ifacemenutransparent", AfterPrevious}},
     {"ifacemain", "ifaceoptions", "ifacechat", "ifaceconnect", "ifaceserver", "ifacethemes", "ifacemisc",
      "ifacehighscore", "ifacemenu", "ifacemenutransparent", "ifaceinet"}},
    {"includebackground", "//Background", "//Background: ", TypeOneOnly, FrameSequence,
     {{"bganimated", Always, "//Background Animated: "}, {"bgfilename"}, {"bgextension"}, {"bgframecount"},
      {"bgstartingframe"}, {"bgstillframe"}, {"bgreverseanimation"}, {"bgdelaybetweenframes"}}, {}},
    {"includeblocks", "//Blocks", "//Blocks: ", TypeOneOnly, FrameSequence,
     {{"animateblocks", Always, "//Animated Blocks: "}, {"animatespecials", Always, "//Animated Specials: "},
      {"animateinetblocks", Always, "//Animated Internet Blocks: "},
      {"animateinetspecials", Always, "//Animated Internet Specials: "}, {"blktransparency"}, {"blkfilename"},
      {"blkextension"}, {"blkframecount"}, {"blkstartingframe"}, {"blkstillframe"}, {"blkreverseanimation"},
      {"blkdelaybetweenframes"}},
     {"animateblocks", "animatespecials", "animateinetblocks", "animateinetspecials", "blkfilename",
      "blkextension", "blkframecount", "blkstartingframe", "blkstillframe", "blkreverseanimation",
      "blkdelaybetweenframes", "blktransparency"}},
    // Missing frame numbers and delay stay empty, not 1, 1 and 10: its reset leaves them empty too.
    {"includeinetbackground", "//Internet Background", "//Internet Background: ", TypeOneOnly, FrameSequence,
     {{"inetbganimated", Always, "//Internet Background Animated: "}, {"inetbgfilename"}, {"inetbgextension"},
      {"inetbgframecount"}, {"inetbgstartingframe"}, {"inetbgstillframe"}, {"inetbgreverseanimation"},
      {"inetbgdelaybetweenframes"}}, {}},
    {"includespecialwindow", "//Special Window", "//Special Window: ", TypeOneOnly, FrameSequence,
     {{"specialwindowanimated"}, {"specialwindowfilename"}, {"specialwindowextension"},
      {"specialwindowframecount"}, {"specialwindowstartingframe"}, {"specialwindowstillframe"},
      {"specialwindowreverseanimation"}, {"specialwindowdelaybetweenframes"}},
     {"specialwindowanimated", "specialwindowfilename", "specialwindowextension", "specialwindowframecount",
      "specialwindowstartingframe", "specialwindowstillframe", "specialwindowdelaybetweenframes",
      "specialwindowreverseanimation"}},
    {"includenextwindow", "//Next Block Window", "//Next Window: ", TypeOneOnly, FrameSequence,
     {{"nextblkanimated"}, {"nextblkfilename"}, {"nextblkextension"}, {"nextblkframecount"},
      {"nextblkstartingframe"}, {"nextblkstillframe"}, {"nextblkreverseanimation"},
      {"nextblkdelaybetweenframes"}}, {}},
    {"includeexplosion", "//Block Explosion", "//Explosion: ", TypeOneOnly, FrameSequence,
     {{"explodetransparency", Print}, {"explodefilename"}, {"explodefileextension"}, {"explodeframecount"},
      {"explodedelaybetweenframes"}},
     {"explodefilename", "explodefileextension", "explodeframecount", "explodedelaybetweenframes",
      "explodetransparency"}},
    {"includebomb", "//Block Bomb", "//Block Bomb: ", TypeOneOnly, FrameSequence,
     {{"Bombtransparency", Print}, {"Bombfilename"}, {"bombfileextension"}, {"Bombframecount"},
      {"Bombdelaybetweenframes"}},
     {"Bombfilename", "bombfileextension", "Bombframecount", "Bombdelaybetweenframes", "Bombtransparency"}},
    // The left door has no description line: only the right one stands for "Game Door".
    {"includemiscimages", "//Miscellaneous Images", nullptr, TypeOneOnly, StillImage,
     {{"door1", IfNotEmpty}, {"door2", IfNotEmpty, "//Game Door: "},
      {"internetdoor", IfNotEmpty, "//Internet Door: "}, {"winimg", IfNotEmpty, "//Win Game Image: "},
      {"wintransparent", AfterPrevious}, {"inetwinimg", IfNotEmpty, "//Internet Win Game Image: "},
      {"inetwintransparent", AfterPrevious}, {"heightled", IfNotEmpty, "//Height Led: "},
      {"warning", IfNotEmpty, "//Warning Image: "}, {"teamfont", IfNotEmpty, "//Team Font: "}},
     {"heightled", "door1", "door2", "internetdoor", "warning", "teamfont", "winimg", "wintransparent",
      "inetwinimg", "inetwintransparent"}},
    {"includecolors", "//Colors", "//Colors: ", TypeOneOnly, std::nullopt,
     {{"colortitle", Color}, {"colorfields", Color}, {"coloroptions", Color}, {"colortheme", Color},
      {"colorserver", Color}, {"colorconnect", Color}, {"colorinternet", Color},
      {"colorhighscoretitle", Color}, {"colorhighscorenormal", Color}, {"colorhighscorefirst", Color},
      {"colorhighscoresecond", Color}, {"colorhighscorethird", Color}},
     {"colortitle", "colorfields", "coloroptions", "colortheme", "colorserver", "colorconnect",
      "colorinternet", "colorhighscorefirst", "colorhighscoresecond", "colorhighscorethird",
      "colorhighscorenormal", "colorhighscoretitle"}},
    {"includemusic", "//Music", "//Music: ", BothTypes, Music, {{"midi", IfNotEmpty}}, {}},
    {"includesounds", "//Sounds", "//Sounds: ", BothTypes, WaveSound,
     {{"startgame", IfNotEmpty}, {"rotate", IfNotEmpty}, {"drop", IfNotEmpty}, {"lineclear", IfNotEmpty},
      {"tetris", IfNotEmpty}, {"explode", IfNotEmpty}, {"win", IfNotEmpty}, {"lose", IfNotEmpty},
      {"chat", IfNotEmpty}, {"click", IfNotEmpty}, {"holyshield", IfNotEmpty}},
     {"startgame", "rotate", "drop", "lineclear", "explode", "tetris", "win", "lose", "chat", "click",
      "holyshield"}},
};

} // namespace

std::span<const ThemeSection> themeSections()
{
    return sections;
}

const ThemeSection &themeSection(Section section)
{
    return sections[int(section)];
}

const AnimatedElement *animationOf(const ThemeSection &section)
{
    for (const AnimatedElement &e : animatedElements) {
        if (section.files == FileKind::FrameSequence && qstrcmp(e.includeField, section.include) == 0)
            return &e;
    }
    return nullptr;
}

bool isWritten(const ThemeDocument &doc, const ThemeSection &section)
{
    const bool held = doc.number(u"themetype") == 1 || !section.typeOneOnly;
    return held && doc.isOn(QLatin1StringView(section.include));
}
