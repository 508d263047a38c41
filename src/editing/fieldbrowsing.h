// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <optional>

class Dialogs;
enum class AnimatedElementId;
enum class InterfaceRow;
enum class MiscImageRow;
enum class SoundRow;
class ThemeDocument;

// Open-dialog filters in the "Description|pattern|...|" form the Dialogs interface takes; a
// dialog shows each description in the author's language (context "FileFilter").
inline constexpr QLatin1StringView imageFilter{
    QT_TRANSLATE_NOOP("FileFilter", "Bitmap Graphic (*.bmp)") "|*.bmp|"
    QT_TRANSLATE_NOOP("FileFilter", "JPEG Graphic (*.jpg)") "|*.jpg|"
    QT_TRANSLATE_NOOP("FileFilter", "All Files(*.*)") "|*.*|"};
inline constexpr QLatin1StringView soundFilter{QT_TRANSLATE_NOOP("FileFilter", "Wave Sound (*.wav)") "|*.WAV|"};
inline constexpr QLatin1StringView musicFilter{
    QT_TRANSLATE_NOOP("FileFilter", "All Supported Sound Files") "|*.MP3;*.MP2;*.XM;*.IT;*.WAV;*.S3M;*.MOD;*.OGG;*.WMA;*.ASF;*.MID;*.MIDI|"
    QT_TRANSLATE_NOOP("FileFilter", "MPEG Audio File (*.MP3, *.MP2)") "|*.MP3;*.MP2|"
    QT_TRANSLATE_NOOP("FileFilter", "Midi File(*.MID, *.MIDI)") "|*.MID;*.MIDI|"
    QT_TRANSLATE_NOOP("FileFilter", "Mod Files (*.XM, *.MOD, *.S3M, *.IT)") "|*.XM; *.MOD; *.S3M; *.IT|"
    QT_TRANSLATE_NOOP("FileFilter", "Windows Media Audio(*.WMA, *.ASF)") "|*.WMA;*.ASF|"
    QT_TRANSLATE_NOOP("FileFilter", "Ogg Vorbis(*.OGG)") "|*.OGG|"
    QT_TRANSLATE_NOOP("FileFilter", "Wave File(*.WAV)") "|*.WAV|"
    QT_TRANSLATE_NOOP("FileFilter", "All Files(*.*)") "|*.*|"};
inline constexpr QLatin1StringView zipFilter{QT_TRANSLATE_NOOP("FileFilter", "Zip File (*.zip)") "|*.ZIP|"};

/** The file name extensions a filter's patterns name, "All Files" left out: {"bmp", "jpg"}. */
QStringList filterExtensions(QLatin1StringView filter);

/**
 * \a path with everything up to and including the package folder tail cut off, when the tail
 * occurs in it (letter case ignored, "/" and "\" count as the same separator); otherwise, and
 * for an empty tail, \a path unchanged.
 */
QString makeThemeRelative(const QString &path, const QString &packageFolderTail);

struct FrameFileName {
    QString root;
    QString extension;
};

/**
 * Root and extension of a first-frame file name: split at the first ".", the one character
 * before it (the frame number) dropped. A name starting with "." gives an empty root.
 * nullopt when the name holds no ".".
 */
std::optional<FrameFileName> splitFrameFileName(const QString &name);

/**
 * Sets an animated element's image text (\a imageField: "bgimage", "bombimage", ...) to \a name,
 * then its root and extension as Browse splits the name; they keep their values when it holds no
 * ".". False, changing nothing, when \a imageField is no element's image text.
 */
bool setFrameImage(ThemeDocument &doc, QAnyStringView imageField, const QString &name);

/** The path chosen in an open dialog, or "" when the author cancelled. */
QString browseForFile(Dialogs &dialogs, const QString &filter, const QString &initialFolder);

// The Browse buttons. Each returns true when a file was chosen and stored; a cancelled dialog
// changes nothing (the dirty flag included). Every image,
// sound and music dialog opens in the package folder, and a file chosen inside the package is
// stored relative to it.

/** Animated element \a element: image text, then root and extension. */
bool browseAnimatedImage(ThemeDocument &doc, Dialogs &dialogs, AnimatedElementId element);
bool browseInterfaceImage(ThemeDocument &doc, Dialogs &dialogs, InterfaceRow row);
bool browseMiscImage(ThemeDocument &doc, Dialogs &dialogs, MiscImageRow row);
bool browseSkinFile(ThemeDocument &doc, Dialogs &dialogs);
bool browseSound(ThemeDocument &doc, Dialogs &dialogs, SoundRow row);
/**
 * Music: a file inside the package plays from the package folder, any other from its own
 * full path, so the music folder follows where the file was chosen.
 */
bool browseMusic(ThemeDocument &doc, Dialogs &dialogs);
/**
 * Resource package: unpacks the chosen zip, makes its folder the package folder and stores the
 * full chosen path as the resource file. The value says whether a zip was chosen; the unpacking's
 * problems ride along in the report, errors too, since what did unpack is still the package.
 */
Result<bool> browseResourcePackage(ThemeDocument &doc, Dialogs &dialogs);
/**
 * A folder of art as the package folder, so a theme can start before its package exists:
 * previews read from it, Browse stores names relative to it and Build packs from it. A theme
 * that names no resource file of its own (none, or the New-theme one) is given "FOLDER.zip",
 * beside the theme file.
 */
bool browseArtFolder(ThemeDocument &doc, Dialogs &dialogs);
