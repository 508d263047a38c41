#pragma once

#include <QString>
#include <QAnyStringView>

#include <span>

/** How a field's value is held and written. */
enum class FieldKind {
    Text,      // free text, held verbatim
    Switch,    // check box value: 0 off, 1 on, 2 greyed
    TypeIndex, // 0 = Theme Type 0, 1 = Theme Type 1
};

/**
 * One field of the theme document. The key is the theme-file key exactly as the writer
 * spells it (or the editor-only name); the control is the main window's control that edits it.
 */
struct FieldSpec {
    const char *key;
    FieldKind kind;
    const char *defaultValue; // what a reset gives it; nullptr: a reset leaves it alone
    const char *control;      // "txtThemeName", "txtColor(3)"
    const char *caption;      // "Theme Name:"
};

/** Every document field, in the order the document's tables list them. */
std::span<const FieldSpec> themeFields();

/** Index of \a key in themeFields() (exact spelling), or -1. */
int fieldIndex(QAnyStringView key);

/** The field named \a key; the key must exist (a misspelt key is a programming error). */
const FieldSpec &fieldSpec(QAnyStringView key);

/** Index of the field edited by control \a objectName, or -1. */
int fieldIndexOfControl(QAnyStringView objectName);

/** The twelve colour keys, by swatch index. */
inline constexpr const char *colorKeys[12] = {
    "colortitle", "colorfields", "coloroptions", "colortheme", "colorserver", "colorconnect",
    "colorinternet", "colorhighscoretitle", "colorhighscorenormal", "colorhighscorefirst",
    "colorhighscoresecond", "colorhighscorethird",
};

/** The eight miscellaneous image keys, by row index. */
inline constexpr const char *miscImageKeys[8] = {
    "door1", "door2", "internetdoor", "winimg", "inetwinimg", "heightled", "warning", "teamfont",
};

/** The ten interface screen keys, by preview/browse row index (not the document order). */
inline constexpr const char *interfaceRowKeys[10] = {
    "ifacemain", "ifaceoptions", "ifacethemes", "ifaceserver", "ifacechat",
    "ifaceconnect", "ifacehighscore", "ifacemisc", "ifacemenu", "ifaceinet",
};

/** The eleven sound keys, by play/browse row index (not the document order). */
inline constexpr const char *soundRowKeys[11] = {
    "rotate", "drop", "startgame", "lose", "win", "lineclear",
    "tetris", "explode", "chat", "click", "holyshield",
};

/** The twelve include switches, in document order. */
inline constexpr const char *includeSwitchKeys[12] = {
    "includeinterface", "includebackground", "includeinetbackground", "includeblocks",
    "includenextwindow", "includespecialwindow", "includeexplosion", "includebomb",
    "includecolors", "includemiscimages", "includesounds", "includemusic",
};
