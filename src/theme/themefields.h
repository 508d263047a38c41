// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

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
 * spells it (or the editor-only name); the caption labels its control in the editor.
 */
struct FieldSpec {
    const char *key;
    FieldKind kind;
    const char *defaultValue; // what a reset gives it; nullptr: a reset leaves it alone
    const char *caption;      // "Theme Name:"
};

/** Every document field, in the order the document's tables list them. */
std::span<const FieldSpec> themeFields();

/** Index of \a key in themeFields() (exact spelling), or -1. */
int fieldIndex(QAnyStringView key);

/** The field named \a key; the key must exist (a misspelt key is a programming error). */
const FieldSpec &fieldSpec(QAnyStringView key);

/** The field's caption as a name, without its colon: "Number of frames:" -> "Number of frames". */
QString fieldLabel(int index);

/** The twelve colour keys, by swatch index. */
inline constexpr const char *colorKeys[] = {
    "colortitle", "colorfields", "coloroptions", "colortheme", "colorserver", "colorconnect",
    "colorinternet", "colorhighscoretitle", "colorhighscorenormal", "colorhighscorefirst",
    "colorhighscoresecond", "colorhighscorethird",
};

/** The eight miscellaneous image keys, by row index. */
inline constexpr const char *miscImageKeys[] = {
    "door1", "door2", "internetdoor", "winimg", "inetwinimg", "heightled", "warning", "teamfont",
};

/** The ten interface screen keys, by preview/browse row index (not the document order). */
inline constexpr const char *interfaceRowKeys[] = {
    "ifacemain", "ifaceoptions", "ifacethemes", "ifaceserver", "ifacechat",
    "ifaceconnect", "ifacehighscore", "ifacemisc", "ifacemenu", "ifaceinet",
};

/** The eleven sound keys, by play/browse row index (not the document order). */
inline constexpr const char *soundRowKeys[] = {
    "rotate", "drop", "startgame", "lose", "win", "lineclear",
    "tetris", "explode", "chat", "click", "holyshield",
};

