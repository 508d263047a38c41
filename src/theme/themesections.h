// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <initializer_list>
#include <optional>
#include <span>

class ThemeDocument;
struct AnimatedElement;

/** How the writer writes one key of a section. */
enum class KeyRule {
    Always,
    IfNotEmpty,
    AfterPrevious, // a switch written only when the key before it was
    Print,         // number print form: a blank either side of the value
    Color,         // white stands in for an empty colour when written and a missing one when read
};

/** What a file name held in a theme stands for. */
enum class FileKind { FrameSequence, StillImage, WaveSound, Music, SkinFile, ResourcePackage };

struct SectionKey {
    const char *key;
    KeyRule rule = KeyRule::Always;
    const char *label = nullptr; // its description line while the section is included
};

/**
 * One block of a theme file with its include switch. A key missing from a file reads as its
 * field's reset value (fieldSpec().defaultValue) unless its rule says otherwise.
 */
struct ThemeSection {
    const char *include;           // "includebackground"
    const char *comment;           // "//Background"
    const char *label;             // "//Background: " in the description; nullptr: no line of its own
    bool typeOneOnly;              // a Type 0 file never holds it
    std::optional<FileKind> files; // what its text keys name; FrameSequence: its animation's frames
    std::initializer_list<SectionKey> keys;        // in the order the writer writes them
    std::initializer_list<const char *> readOrder; // the order the loader reads them, where it differs
};

/** The sections by their index in themeSections(). */
enum class Section { Interface, Background, Blocks, InternetBackground, SpecialWindow, NextWindow,
                     Explosion, Bomb, MiscImages, Colors, Music, Sounds };

/** Every section, in the order a Type 1 file holds them. */
std::span<const ThemeSection> themeSections();
const ThemeSection &themeSection(Section section);

/**
 * The animated element whose frames a FrameSequence section holds (its image text is the editor's
 * frame-1 name, rebuilt when a theme is loaded); nullptr for other sections.
 */
const AnimatedElement *animationOf(const ThemeSection &section);

/** Whether the writer writes \a section for \a doc: included, and held by the theme's type. */
bool isWritten(const ThemeDocument &doc, const ThemeSection &section);

inline constexpr char whiteColorText[] = "255,255,255";
