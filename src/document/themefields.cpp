#include "document/themefields.h"

namespace {

constexpr FieldKind T = FieldKind::Text;
constexpr FieldKind S = FieldKind::Switch;

// Reset defaults are the New-theme values; nullptr marks the three fields a reset keeps.
constexpr FieldSpec fields[] = {
    {"name", T, "Stakko Theme", "txtThemeName", "Theme Name:"},
    {"developer", T, "Author", "txtAuthor", "Theme Author:"},
    {"version", T, "1.0", "txtVersion", "Theme Version"},
    {"themetype", FieldKind::TypeIndex, "1", "cmbType", "Theme Type:"},
    {"description", T, nullptr, "txtDescription", "Theme Description:"},
    {"resourcefile", T, "StakkoTheme.zip", "txtResource", "Resource File(Theme Type 1):"},
    {"skinfile", T, nullptr, "txtSkinFile", "Skin File:"},
    {"skintransparency", S, nullptr, "chkSkinTransparent", "Use Skin File Transparency Effects"},

    {"includeinterface", S, "0", "chkIface", "Include Interface in Theme"},
    {"ifacemain", T, "", "txtIMain", "Main/Fields Screen:"},
    {"ifaceoptions", T, "", "txtIOptions", "Options Screen:"},
    {"ifacechat", T, "", "txtIChat", "Chat Screen:"},
    {"ifaceconnect", T, "", "txtIClient", "Client Connect Screen:"},
    {"ifaceserver", T, "", "txtIServer", "Server Screen:"},
    {"ifacethemes", T, "", "txtITheme", "Theme Previewer Screen:"},
    {"ifacemisc", T, "", "txtIMisc", "Miscellaneous Screen:"},
    {"ifacehighscore", T, "", "txtIHighScore", "High Score Screen:"},
    {"ifaceinet", T, "", "txtIInternet", "Internet Field Screen:"},
    {"ifacemenu", T, "", "txtIMenu", "Menu Graphics:"},
    {"ifacemenutransparent", S, "0", "chkIMenuTransparent", "Enable Menu Graphic Transparency"},

    // "Backgrond" (here and below) is the caption authors know: kept as the original spells it.
    {"includebackground", S, "0", "chkBG", "Include Game Backgrond"},
    {"bgimage", T, "", "txtBStart", "Background Image:"},
    {"bganimated", S, "0", "chkBGAni", "Animated Background"},
    {"bgfilename", T, "", "txtBGRoot", "Image Root:"},
    {"bgextension", T, "", "txtBGExt", "Image Extension:"},
    {"bgframecount", T, "", "txtBGNum", "Number of frames:"},
    {"bgstartingframe", T, "1", "txtBGStart", "Starting Frame:"},
    {"bgstillframe", T, "1", "txtBGStill", "Background Still Image:"},
    {"bgreverseanimation", S, "0", "chkBGReverse", "Reverse Animation"},
    {"bgdelaybetweenframes", T, "10", "txtBGDelay", "Delay Between Frames:"},

    {"includeinetbackground", S, "0", "chkIBG", "Include Game Internet Backgrond"},
    {"inetbgimage", T, "", "txtIBGImage", "Internet Background Image:"},
    {"inetbganimated", S, "0", "chkIBGAni", "Animated Internet Background"},
    {"inetbgfilename", T, "", "txtIBGRoot", "Image Root:"},
    {"inetbgextension", T, "", "txtIBGExt", "Image Extension:"},
    {"inetbgframecount", T, "", "txtIBGNum", "Number of frames:"},
    {"inetbgstartingframe", T, "", "txtIBGStart", "Starting Frame:"},
    {"inetbgstillframe", T, "", "txtIBGStill", "Background Still Image:"},
    {"inetbgreverseanimation", S, "0", "chkIBGReverse", "Reverse Animation"},
    {"inetbgdelaybetweenframes", T, "", "txtIBGDelay", "Delay Between Frames:"},

    {"includeblocks", S, "0", "chkBlk", "Include Game Blocks"},
    {"blkimage", T, "", "txtBlkStart", "Blocks Image:"},
    {"animateblocks", S, "0", "chkBlkAni", "Animated Blocks"},
    {"animatespecials", S, "0", "chkSpecAni", "Animated Specials"},
    {"animateinetblocks", S, "0", "chkInetBlkAni", "Animated Internet Blocks"},
    {"animateinetspecials", S, "0", "chkInetSpecAni", "Animated Internet Specials"},
    {"blktransparency", S, "0", "chkBlkTrans", "Transparent Blocks"},
    {"blkfilename", T, "", "txtBlkRoot", "Image Root:"},
    {"blkextension", T, "", "txtBlkExt", "Image Extension:"},
    {"blkframecount", T, "", "txtBlkNum", "Number of frames:"},
    {"blkstartingframe", T, "1", "txtBlkStartImage", "Starting Frame:"},
    {"blkstillframe", T, "1", "txtBlkStill", "Block Still Image:"},
    {"blkreverseanimation", S, "0", "chkBlkReverse", "Reverse Animation"},
    {"blkdelaybetweenframes", T, "10", "txtBlkDelay", "Delay Between Frames:"},

    {"includenextwindow", S, "0", "chkNext", "Include Next Window GFX"},
    {"nextblkimage", T, "", "txtNextImage", "Next Block Image:"},
    {"nextblkanimated", S, "0", "chkNextAni", "Animated Blocks"},
    {"nextblkfilename", T, "", "txtNextRoot", "Image Root:"},
    {"nextblkextension", T, "", "txtNextExt", "Image Extension:"},
    {"nextblkframecount", T, "", "txtNextNum", "Number of frames:"},
    {"nextblkstartingframe", T, "1", "txtNextStart", "Starting Frame:"},
    {"nextblkstillframe", T, "1", "txtNextStill", "Block Still Image:"},
    {"nextblkreverseanimation", S, "0", "chkNextReverse", "Reverse Animation"},
    {"nextblkdelaybetweenframes", T, "10", "txtNextDelay", "Delay Between Frames:"},

    {"includespecialwindow", S, "0", "chkSW", "Include Special Window GFX"},
    {"specialwindowimage", T, "", "txtSWImage", "Special Window Image:"},
    {"specialwindowanimated", S, "0", "chkSWAni", "Animated Special Window"},
    {"specialwindowfilename", T, "", "txtSWRoot", "Image Root:"},
    {"specialwindowextension", T, "", "txtSWExt", "Image Extension:"},
    {"specialwindowframecount", T, "", "txtSWNum", "Number of frames:"},
    {"specialwindowstartingframe", T, "1", "txtSWStart", "Starting Frame:"},
    {"specialwindowstillframe", T, "1", "txtSWStill", "Block Still Image:"},
    {"specialwindowreverseanimation", S, "0", "chkSWReverse", "Reverse Animation"},
    {"specialwindowdelaybetweenframes", T, "10", "txtSWDelay", "Delay Between Frames:"},

    {"includeexplosion", S, "0", "chkExplosion", "Include Explosion in Theme"},
    {"explodeimage", T, "", "txtExplosionImage", "Explosion Image:"},
    {"explodetransparency", S, "0", "chkExplosionTrans", "Transparent Explosion"},
    {"explodefilename", T, "", "txtExplosionRoot", "Image Root:"},
    {"explodefileextension", T, "", "txtExplosionExt", "Image Extension:"},
    {"explodeframecount", T, "", "txtExplosionNum", "Number of frames:"},
    {"explodedelaybetweenframes", T, "10", "txtExplosionDelay", "Delay Between Frames:"},

    {"includebomb", S, "0", "chkBomb", "Include Bomb in Theme"},
    {"bombimage", T, "", "txtBombImage", "Block Bomb Image:"},
    {"Bombtransparency", S, "0", "chkBombTrans", "Transparent Blocks"},
    {"Bombfilename", T, "", "txtBombRoot", "Image Root:"},
    {"bombfileextension", T, "", "txtBombExt", "Image Extension:"},
    {"Bombframecount", T, "", "txtBombNum", "Number of frames:"},
    {"Bombdelaybetweenframes", T, "10", "txtBombDelay", "Delay Between Frames:"},

    {"includecolors", S, "0", "chkColor", "Include Colors in Theme"},
    {"colortitle", T, "", "txtColor(0)", "Title Bar Color:"},
    {"colorfields", T, "", "txtColor(1)", "Fields Screen Color:"},
    {"coloroptions", T, "", "txtColor(2)", "Options Screen Color:"},
    {"colortheme", T, "", "txtColor(3)", "Theme Screen Color:"},
    {"colorserver", T, "", "txtColor(4)", "Server Screen Color:"},
    {"colorconnect", T, "", "txtColor(5)", "Client Connect Screen Color:"},
    {"colorinternet", T, "", "txtColor(6)", "Internet Screen Color:"},
    {"colorhighscoretitle", T, "", "txtColor(7)", "High Score Title Color:"},
    {"colorhighscorenormal", T, "", "txtColor(8)", "High Score Normal Color:"},
    {"colorhighscorefirst", T, "", "txtColor(9)", "High Score First Place Color:"},
    {"colorhighscoresecond", T, "", "txtColor(10)", "High Score Second Place Color:"},
    {"colorhighscorethird", T, "", "txtColor(11)", "High Score Third Place Color:"},

    {"includemiscimages", S, "0", "chkMImg", "Include Misc. Images in Theme"},
    {"door1", T, "", "txtMiscImage(0)", "Door Image Left:"},
    {"door2", T, "", "txtMiscImage(1)", "Door Image Right:"},
    {"internetdoor", T, "", "txtMiscImage(2)", "Internet Door Image:"},
    {"winimg", T, "", "txtMiscImage(3)", "Win Game Image:"},
    {"wintransparent", S, "0", "chkWinTrans", "Win Game Image Transparent"},
    {"inetwinimg", T, "", "txtMiscImage(4)", "Internet Win Game Image:"},
    {"inetwintransparent", S, "0", "chkWinInetTrans", "Internet Win Game Image Transparent"},
    {"heightled", T, "", "txtMiscImage(5)", "Height Led Image:"},
    {"warning", T, "", "txtMiscImage(6)", "Warning Image:"},
    {"teamfont", T, "", "txtMiscImage(7)", "Team Font Image:"},

    {"includesounds", S, "0", "chkSounds", "Include Sounds in Theme"},
    {"startgame", T, "", "txtStart", "Start Game:"},
    {"rotate", T, "", "txtRotate", "Rotate Block:"},
    {"drop", T, "", "txtDrop", "Drop Block:"},
    {"lineclear", T, "", "txtLine", "Make Line:"},
    {"tetris", T, "", "txtTetrisSound", "Tetris:"},
    {"explode", T, "", "txtExplosionSound", "Explosion:"},
    {"win", T, "", "txtWinGame", "Win Game:"},
    {"lose", T, "", "txtLose", "Lose Game:"},
    {"chat", T, "", "txtChatSound", "Chat Message:"},
    {"click", T, "", "txtClick", "Menu Click:"},
    // A new theme inherits no sound, so the reset clears the shield sound too.
    {"holyshield", T, "", "txtShieldSound", "Shield:"},

    {"includemusic", S, "0", "chkMusic", "Include Music in Theme"},
    {"midi", T, "", "txtMusic", "Music"},
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

int fieldIndexOfControl(QAnyStringView objectName)
{
    for (int i = 0; i < int(std::size(fields)); ++i) {
        if (QAnyStringView::equal(objectName, QLatin1StringView(fields[i].control)))
            return i;
    }
    return -1;
}
