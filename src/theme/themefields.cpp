// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themefields.h"

namespace {

constexpr FieldKind T = FieldKind::Text;
constexpr FieldKind S = FieldKind::Switch;

// Reset defaults are the New-theme values; nullptr marks the three fields a reset keeps.
constexpr FieldSpec fields[] = {
    {"name", T, "Stakko Theme", "Theme Name:"},
    {"developer", T, "Author", "Theme Author:"},
    {"version", T, "1.0", "Theme Version"},
    {"themetype", FieldKind::TypeIndex, "1", "Theme Type:"},
    {"description", T, nullptr, "Theme Description:"},
    {"resourcefile", T, "StakkoTheme.zip", "Resource File(Theme Type 1):"},
    {"skinfile", T, nullptr, "Skin File:"},
    {"skintransparency", S, nullptr, "Use Skin File Transparency Effects"},

    {"includeinterface", S, "0", "Include Interface in Theme"},
    {"ifacemain", T, "", "Main/Fields Screen:"},
    {"ifaceoptions", T, "", "Options Screen:"},
    {"ifacechat", T, "", "Chat Screen:"},
    {"ifaceconnect", T, "", "Client Connect Screen:"},
    {"ifaceserver", T, "", "Server Screen:"},
    {"ifacethemes", T, "", "Theme Previewer Screen:"},
    {"ifacemisc", T, "", "Miscellaneous Screen:"},
    {"ifacehighscore", T, "", "High Score Screen:"},
    {"ifaceinet", T, "", "Internet Field Screen:"},
    {"ifacemenu", T, "", "Menu Graphics:"},
    {"ifacemenutransparent", S, "0", "Enable Menu Graphic Transparency"},

    // "Backgrond" (here and below) is the caption authors know: kept as the original spells it.
    {"includebackground", S, "0", "Include Game Backgrond"},
    {"bgimage", T, "", "Background Image:"},
    {"bganimated", S, "0", "Animated Background"},
    {"bgfilename", T, "", "Image Root:"},
    {"bgextension", T, "", "Image Extension:"},
    {"bgframecount", T, "", "Number of frames:"},
    {"bgstartingframe", T, "1", "Starting Frame:"},
    {"bgstillframe", T, "1", "Background Still Image:"},
    {"bgreverseanimation", S, "0", "Reverse Animation"},
    {"bgdelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includeinetbackground", S, "0", "Include Game Internet Backgrond"},
    {"inetbgimage", T, "", "Internet Background Image:"},
    {"inetbganimated", S, "0", "Animated Internet Background"},
    {"inetbgfilename", T, "", "Image Root:"},
    {"inetbgextension", T, "", "Image Extension:"},
    {"inetbgframecount", T, "", "Number of frames:"},
    {"inetbgstartingframe", T, "", "Starting Frame:"},
    {"inetbgstillframe", T, "", "Background Still Image:"},
    {"inetbgreverseanimation", S, "0", "Reverse Animation"},
    {"inetbgdelaybetweenframes", T, "", "Delay Between Frames:"},

    {"includeblocks", S, "0", "Include Game Blocks"},
    {"blkimage", T, "", "Blocks Image:"},
    {"animateblocks", S, "0", "Animated Blocks"},
    {"animatespecials", S, "0", "Animated Specials"},
    {"animateinetblocks", S, "0", "Animated Internet Blocks"},
    {"animateinetspecials", S, "0", "Animated Internet Specials"},
    {"blktransparency", S, "0", "Transparent Blocks"},
    {"blkfilename", T, "", "Image Root:"},
    {"blkextension", T, "", "Image Extension:"},
    {"blkframecount", T, "", "Number of frames:"},
    {"blkstartingframe", T, "1", "Starting Frame:"},
    {"blkstillframe", T, "1", "Block Still Image:"},
    {"blkreverseanimation", S, "0", "Reverse Animation"},
    {"blkdelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includenextwindow", S, "0", "Include Next Window GFX"},
    {"nextblkimage", T, "", "Next Block Image:"},
    {"nextblkanimated", S, "0", "Animated Blocks"},
    {"nextblkfilename", T, "", "Image Root:"},
    {"nextblkextension", T, "", "Image Extension:"},
    {"nextblkframecount", T, "", "Number of frames:"},
    {"nextblkstartingframe", T, "1", "Starting Frame:"},
    {"nextblkstillframe", T, "1", "Block Still Image:"},
    {"nextblkreverseanimation", S, "0", "Reverse Animation"},
    {"nextblkdelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includespecialwindow", S, "0", "Include Special Window GFX"},
    {"specialwindowimage", T, "", "Special Window Image:"},
    {"specialwindowanimated", S, "0", "Animated Special Window"},
    {"specialwindowfilename", T, "", "Image Root:"},
    {"specialwindowextension", T, "", "Image Extension:"},
    {"specialwindowframecount", T, "", "Number of frames:"},
    {"specialwindowstartingframe", T, "1", "Starting Frame:"},
    {"specialwindowstillframe", T, "1", "Block Still Image:"},
    {"specialwindowreverseanimation", S, "0", "Reverse Animation"},
    {"specialwindowdelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includeexplosion", S, "0", "Include Explosion in Theme"},
    {"explodeimage", T, "", "Explosion Image:"},
    {"explodetransparency", S, "0", "Transparent Explosion"},
    {"explodefilename", T, "", "Image Root:"},
    {"explodefileextension", T, "", "Image Extension:"},
    {"explodeframecount", T, "", "Number of frames:"},
    {"explodedelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includebomb", S, "0", "Include Bomb in Theme"},
    {"bombimage", T, "", "Block Bomb Image:"},
    {"Bombtransparency", S, "0", "Transparent Blocks"},
    {"Bombfilename", T, "", "Image Root:"},
    {"bombfileextension", T, "", "Image Extension:"},
    {"Bombframecount", T, "", "Number of frames:"},
    {"Bombdelaybetweenframes", T, "10", "Delay Between Frames:"},

    {"includecolors", S, "0", "Include Colors in Theme"},
    {"colortitle", T, "", "Title Bar Color:"},
    {"colorfields", T, "", "Fields Screen Color:"},
    {"coloroptions", T, "", "Options Screen Color:"},
    {"colortheme", T, "", "Theme Screen Color:"},
    {"colorserver", T, "", "Server Screen Color:"},
    {"colorconnect", T, "", "Client Connect Screen Color:"},
    {"colorinternet", T, "", "Internet Screen Color:"},
    {"colorhighscoretitle", T, "", "High Score Title Color:"},
    {"colorhighscorenormal", T, "", "High Score Normal Color:"},
    {"colorhighscorefirst", T, "", "High Score First Place Color:"},
    {"colorhighscoresecond", T, "", "High Score Second Place Color:"},
    {"colorhighscorethird", T, "", "High Score Third Place Color:"},

    {"includemiscimages", S, "0", "Include Misc. Images in Theme"},
    {"door1", T, "", "Door Image Left:"},
    {"door2", T, "", "Door Image Right:"},
    {"internetdoor", T, "", "Internet Door Image:"},
    {"winimg", T, "", "Win Game Image:"},
    {"wintransparent", S, "0", "Win Game Image Transparent"},
    {"inetwinimg", T, "", "Internet Win Game Image:"},
    {"inetwintransparent", S, "0", "Internet Win Game Image Transparent"},
    {"heightled", T, "", "Height Led Image:"},
    {"warning", T, "", "Warning Image:"},
    {"teamfont", T, "", "Team Font Image:"},

    {"includesounds", S, "0", "Include Sounds in Theme"},
    {"startgame", T, "", "Start Game:"},
    {"rotate", T, "", "Rotate Block:"},
    {"drop", T, "", "Drop Block:"},
    {"lineclear", T, "", "Make Line:"},
    {"tetris", T, "", "Tetris:"},
    {"explode", T, "", "Explosion:"},
    {"win", T, "", "Win Game:"},
    {"lose", T, "", "Lose Game:"},
    {"chat", T, "", "Chat Message:"},
    {"click", T, "", "Menu Click:"},
    // A new theme inherits no sound, so the reset clears the shield sound too.
    {"holyshield", T, "", "Shield:"},

    {"includemusic", S, "0", "Include Music in Theme"},
    {"midi", T, "", "Music"},
};

} // namespace

std::span<const FieldSpec> themeFields()
{
    return fields;
}

int fieldIndex(QAnyStringView key)
{
    for (int i = 0; i < int(std::size(fields)); ++i) {
        if (QAnyStringView::equal(key, QLatin1StringView(fields[i].key)))
            return i;
    }
    return -1;
}

const FieldSpec &fieldSpec(QAnyStringView key)
{
    const int index = fieldIndex(key);
    if (index < 0)
        qFatal("unknown field key %s", qPrintable(key.toString()));
    return fields[index];
}


QString fieldLabel(int index)
{
    QString caption = QString::fromLatin1(fields[index].caption);
    while (caption.endsWith(u':') || caption.endsWith(u' '))
        caption.chop(1);
    return caption.isEmpty() ? QString::fromLatin1(fields[index].key) : caption;
}
