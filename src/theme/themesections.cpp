// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themesections.h"

#include "theme/animatedelement.h"
#include "theme/themedocument.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using enum FileKind;
constexpr bool TypeOneOnly = true;
constexpr bool BothTypes = false;

struct SectionHead {
    Section id;
    const char *comment;
    const char *label;
    bool typeOneOnly;
    std::optional<FileKind> files;
};

// Sections in the writer's order; their keys come from the field table. The loader
// (themeloader.cpp) and the description (description.cpp) keep their own section orders: the game
// reads its files that way.
const SectionHead heads[] = {
    {Section::Interface, "//Graphical User Interface", "//Interface: ", BothTypes, StillImage},
    {Section::Background, "//Background", "//Background: ", TypeOneOnly, FrameSequence},
    {Section::Blocks, "//Blocks", "//Blocks: ", TypeOneOnly, FrameSequence},
    // Missing frame numbers and delay stay empty, not 1, 1 and 10: its reset leaves them empty too.
    {Section::InternetBackground, "//Internet Background", "//Internet Background: ", TypeOneOnly, FrameSequence},
    {Section::SpecialWindow, "//Special Window", "//Special Window: ", TypeOneOnly, FrameSequence},
    {Section::NextWindow, "//Next Block Window", "//Next Window: ", TypeOneOnly, FrameSequence},
    {Section::Explosion, "//Block Explosion", "//Explosion: ", TypeOneOnly, FrameSequence},
    {Section::Bomb, "//Block Bomb", "//Block Bomb: ", TypeOneOnly, FrameSequence},
    // The left door has no description line: only the right one stands for "Game Door".
    {Section::MiscImages, "//Miscellaneous Images", nullptr, TypeOneOnly, StillImage},
    {Section::Colors, "//Colors", "//Colors: ", TypeOneOnly, std::nullopt},
    {Section::Music, "//Music", "//Music: ", BothTypes, Music},
    {Section::Sounds, "//Sounds", "//Sounds: ", BothTypes, WaveSound},
};

/** Whether the writer writes \a field as a key of its section (the include switch and image are not). */
bool isSectionKey(const FieldSpec &field)
{
    return field.role != FieldRole::Include && field.role != FieldRole::Image;
}

ThemeSection build(const SectionHead &head)
{
    ThemeSection s{head.id, head.comment, head.label, head.typeOneOnly, head.files, nullptr, {}, {}};
    std::span<const FieldSpec> fields = themeFields();
    for (size_t i = 0; i < fields.size(); ++i) {
        const FieldSpec &f = fields[i];
        if (f.section != head.id)
            continue;
        if (f.role == FieldRole::Include)
            s.include = f.key;
        if (isSectionKey(f)) {
            if (s.keys.empty())
                s.keys = fields.subspan(i, 0);
            if (s.keys.data() + s.keys.size() != &f)
                qFatal("the keys of section %s are not together in the field table", head.comment);
            s.keys = std::span(s.keys.data(), s.keys.size() + 1);
        }
    }
    for (const FieldSpec &f : s.keys)
        s.readOrder.push_back(&f);
    std::stable_sort(s.readOrder.begin(), s.readOrder.end(),
                     [](const FieldSpec *a, const FieldSpec *b) { return a->readRank < b->readRank; });
    return s;
}

} // namespace

std::span<const ThemeSection> themeSections()
{
    static const std::vector<ThemeSection> sections = [] {
        std::vector<ThemeSection> all;
        for (const SectionHead &head : heads)
            all.push_back(build(head));
        return all;
    }();
    return sections;
}

const ThemeSection &themeSection(Section section)
{
    Q_ASSERT(section != Section::Header);
    return themeSections()[size_t(section)];
}

const AnimatedElement *animationOf(const ThemeSection &section)
{
    for (const AnimatedElement &e : animatedElements) {
        if (section.files == FileKind::FrameSequence && qstrcmp(e.includeField, section.include) == 0)
            return &e;
    }
    return nullptr;
}

QString sectionName(Section section)
{
    switch (section) {
    case Section::Interface:
        return QCoreApplication::translate("ThemeSection", "Graphical User Interface");
    case Section::Background:
        return QCoreApplication::translate("ThemeSection", "Background");
    case Section::Blocks:
        return QCoreApplication::translate("ThemeSection", "Blocks");
    case Section::InternetBackground:
        return QCoreApplication::translate("ThemeSection", "Internet Background");
    case Section::SpecialWindow:
        return QCoreApplication::translate("ThemeSection", "Special Window");
    case Section::NextWindow:
        return QCoreApplication::translate("ThemeSection", "Next Block Window");
    case Section::Explosion:
        return QCoreApplication::translate("ThemeSection", "Block Explosion");
    case Section::Bomb:
        return QCoreApplication::translate("ThemeSection", "Block Bomb");
    case Section::MiscImages:
        return QCoreApplication::translate("ThemeSection", "Miscellaneous Images");
    case Section::Colors:
        return QCoreApplication::translate("ThemeSection", "Colors");
    case Section::Music:
        return QCoreApplication::translate("ThemeSection", "Music");
    case Section::Sounds:
        return QCoreApplication::translate("ThemeSection", "Sounds");
    case Section::Header:
        return QCoreApplication::translate("ThemeSection", "Theme Info");
    }
    return {};
}

bool isWritten(const ThemeDocument &doc, const ThemeSection &section)
{
    const bool held = doc.number(FieldKey::themeType) == 1 || !section.typeOneOnly;
    return held && doc.isOn(QLatin1StringView(section.include));
}
