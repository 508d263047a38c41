// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themefields.h"

#include <optional>
#include <span>
#include <vector>

#include <QCoreApplication>

class ThemeDocument;
struct AnimatedElement;

/** What a file name held in a theme stands for. */
enum class FileKind { FrameSequence, StillImage, WaveSound, Music, SkinFile, ResourcePackage };

/**
 * One block of a theme file with its include switch. A key missing from a file reads as its
 * field's reset value (its defaultValue) unless its rule says otherwise. Its keys are the rows of
 * the field table with its section.
 */
struct ThemeSection {
    Section id;
    const char *comment;           // "//Background"
    const char *label;             // "//Background: " in the description; nullptr: no line of its own
    bool typeOneOnly;              // a Type 0 file never holds it
    std::optional<FileKind> files; // what its text keys name; FrameSequence: its animation's frames
    const char *include;                       // "includebackground", its FieldRole::Include row
    std::span<const FieldSpec> keys;           // its written rows, in the writer's (the table's) order
    std::vector<const FieldSpec *> readOrder;  // the same rows in the order the loader reads them
};

/** Every section, in the order a Type 1 file holds them. */
std::span<const ThemeSection> themeSections();
const ThemeSection &themeSection(Section section);

/**
 * The animated element whose frames a FrameSequence section holds (its image text is the editor's
 * frame-1 name, rebuilt when a theme is loaded); nullptr for other sections.
 */
const AnimatedElement *animationOf(const ThemeSection &section);

/** How messages name \a section ("Background"), in the user's language; the file's comment lines stay English. */
QString sectionName(Section section);

/** Whether the writer writes \a section for \a doc: included, and held by the theme's type. */
bool isWritten(const ThemeDocument &doc, const ThemeSection &section);

inline constexpr char whiteColorText[] = "255,255,255";
