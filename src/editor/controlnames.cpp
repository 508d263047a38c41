// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/controlnames.h"

namespace {

struct FieldControl {
    const char *key;
    const char *control;
};

// The fields on the rows of miscImageRows and colorRows are named by them.
constexpr FieldControl namedFields[] = {
    {"name", "txtThemeName"}, {"developer", "txtAuthor"}, {"version", "txtVersion"}, {"themetype", "cmbType"},
    {"description", "txtDescription"}, {"resourcefile", "txtResource"}, {"skinfile", "txtSkinFile"},
    {"skintransparency", "chkSkinTransparent"},

    {"includeinterface", "chkIface"}, {"ifacemain", "txtIMain"}, {"ifaceoptions", "txtIOptions"},
    {"ifacechat", "txtIChat"}, {"ifaceconnect", "txtIClient"}, {"ifaceserver", "txtIServer"},
    {"ifacethemes", "txtITheme"}, {"ifacemisc", "txtIMisc"}, {"ifacehighscore", "txtIHighScore"},
    {"ifaceinet", "txtIInternet"}, {"ifacemenu", "txtIMenu"}, {"ifacemenutransparent", "chkIMenuTransparent"},

    {"includebackground", "chkBG"}, {"bgimage", "txtBStart"}, {"bganimated", "chkBGAni"}, {"bgfilename", "txtBGRoot"},
    {"bgextension", "txtBGExt"}, {"bgframecount", "txtBGNum"}, {"bgstartingframe", "txtBGStart"},
    {"bgstillframe", "txtBGStill"}, {"bgreverseanimation", "chkBGReverse"}, {"bgdelaybetweenframes", "txtBGDelay"},

    {"includeinetbackground", "chkIBG"}, {"inetbgimage", "txtIBGImage"}, {"inetbganimated", "chkIBGAni"},
    {"inetbgfilename", "txtIBGRoot"}, {"inetbgextension", "txtIBGExt"}, {"inetbgframecount", "txtIBGNum"},
    {"inetbgstartingframe", "txtIBGStart"}, {"inetbgstillframe", "txtIBGStill"},
    {"inetbgreverseanimation", "chkIBGReverse"}, {"inetbgdelaybetweenframes", "txtIBGDelay"},

    {"includeblocks", "chkBlk"}, {"blkimage", "txtBlkStart"}, {"animateblocks", "chkBlkAni"},
    {"animatespecials", "chkSpecAni"}, {"animateinetblocks", "chkInetBlkAni"},
    {"animateinetspecials", "chkInetSpecAni"}, {"blktransparency", "chkBlkTrans"}, {"blkfilename", "txtBlkRoot"},
    {"blkextension", "txtBlkExt"}, {"blkframecount", "txtBlkNum"}, {"blkstartingframe", "txtBlkStartImage"},
    {"blkstillframe", "txtBlkStill"}, {"blkreverseanimation", "chkBlkReverse"},
    {"blkdelaybetweenframes", "txtBlkDelay"},

    {"includenextwindow", "chkNext"}, {"nextblkimage", "txtNextImage"}, {"nextblkanimated", "chkNextAni"},
    {"nextblkfilename", "txtNextRoot"}, {"nextblkextension", "txtNextExt"}, {"nextblkframecount", "txtNextNum"},
    {"nextblkstartingframe", "txtNextStart"}, {"nextblkstillframe", "txtNextStill"},
    {"nextblkreverseanimation", "chkNextReverse"}, {"nextblkdelaybetweenframes", "txtNextDelay"},

    {"includespecialwindow", "chkSW"}, {"specialwindowimage", "txtSWImage"}, {"specialwindowanimated", "chkSWAni"},
    {"specialwindowfilename", "txtSWRoot"}, {"specialwindowextension", "txtSWExt"},
    {"specialwindowframecount", "txtSWNum"}, {"specialwindowstartingframe", "txtSWStart"},
    {"specialwindowstillframe", "txtSWStill"}, {"specialwindowreverseanimation", "chkSWReverse"},
    {"specialwindowdelaybetweenframes", "txtSWDelay"},

    {"includeexplosion", "chkExplosion"}, {"explodeimage", "txtExplosionImage"},
    {"explodetransparency", "chkExplosionTrans"}, {"explodefilename", "txtExplosionRoot"},
    {"explodefileextension", "txtExplosionExt"}, {"explodeframecount", "txtExplosionNum"},
    {"explodedelaybetweenframes", "txtExplosionDelay"},

    {"includebomb", "chkBomb"}, {"bombimage", "txtBombImage"}, {"Bombtransparency", "chkBombTrans"},
    {"Bombfilename", "txtBombRoot"}, {"bombfileextension", "txtBombExt"}, {"Bombframecount", "txtBombNum"},
    {"Bombdelaybetweenframes", "txtBombDelay"},

    {"includecolors", "chkColor"}, {"includemiscimages", "chkMImg"}, {"wintransparent", "chkWinTrans"},
    {"inetwintransparent", "chkWinInetTrans"},

    {"includesounds", "chkSounds"}, {"startgame", "txtStart"}, {"rotate", "txtRotate"}, {"drop", "txtDrop"},
    {"lineclear", "txtLine"}, {"tetris", "txtTetrisSound"}, {"explode", "txtExplosionSound"}, {"win", "txtWinGame"},
    {"lose", "txtLose"}, {"chat", "txtChatSound"}, {"click", "txtClick"}, {"holyshield", "txtShieldSound"},

    {"includemusic", "chkMusic"}, {"midi", "txtMusic"},
};

QString controlOf(const char *key)
{
    for (const FieldControl &field : namedFields) {
        if (qstrcmp(field.key, key) == 0)
            return QString::fromLatin1(field.control);
    }
    for (const RowControls &rows : {miscImageRows, colorRows}) {
        for (size_t row = 0; row < rows.keys.size(); ++row) {
            if (qstrcmp(rows.keys[row], key) == 0)
                return rowControl(rows.edit, int(row));
        }
    }
    qFatal("no control edits field %s", key);
}

} // namespace

const QStringList &fieldControls()
{
    static const QStringList controls = [] {
        QStringList names;
        for (const FieldSpec &field : themeFields())
            names.append(controlOf(field.key));
        return names;
    }();
    return controls;
}

QString fieldControl(QAnyStringView key)
{
    const FieldSpec &field = fieldSpec(key); // a misspelt key stops here
    return fieldControls().at(&field - themeFields().data());
}

QString rowControl(const char *name, int row)
{
    return QStringLiteral("%1(%2)").arg(QLatin1StringView(name)).arg(row);
}
