// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/description.h"

#include "theme/themedocument.h"
#include "theme/themesections.h"

QString generateDescription(const ThemeDocument &doc)
{
    const QLatin1StringView separator("//---------------------------");
    QStringList lines;
    auto add = [&](const QString &line) { lines.append(line); };
    // Switches answer Yes when not 0, texts when not empty.
    auto answer = [&](const char *label, const char *key) {
        const QLatin1StringView field(key);
        const bool text = fieldSpec(field).kind == FieldKind::Text;
        const bool yes = text ? !doc.value(field).isEmpty() : doc.number(field) != 0;
        add(QLatin1StringView(label) + (yes ? QStringLiteral("Yes") : QStringLiteral("No")));
    };
    // The section's line, then the lines of its keys while it is included.
    auto contents = [&](Section id) {
        const ThemeSection &s = themeSection(id);
        if (s.label)
            answer(s.label, s.include);
        if (doc.isOn(QLatin1StringView(s.include))) {
            for (const FieldSpec &k : s.keys) {
                if (k.describe)
                    answer(k.describe, k.key);
            }
        }
    };

    add(QStringLiteral("//Theme Name: ") + doc.value(FieldKey::name));
    add(QStringLiteral("//Developer: ") + doc.value(FieldKey::developer));
    add(QStringLiteral("//Version: ") + doc.value(FieldKey::version));
    add(QStringLiteral("//Theme Type: ") + doc.value(FieldKey::themeType));
    add(separator);
    add(descriptionPlaceholder);
    add(separator);
    add(QStringLiteral("//Theme Contents:"));
    // The summary's own section order, kept only here: neither the writer's nor the loader's.
    contents(Section::Interface);
    if (doc.number(FieldKey::themeType) == 1) {
        for (Section id : {Section::Background, Section::InternetBackground, Section::Blocks,
                           Section::NextWindow, Section::SpecialWindow, Section::Explosion, Section::Bomb})
            contents(id);
    } else {
        answer("//Skin File: ", FieldKey::skinFile);
        if (!doc.value(FieldKey::skinFile).isEmpty()) {
            for (const char *line : {"//Background: Yes", "//Blocks: Yes",
                                     "//Special Window Image: Yes", "//Next Block Image: Yes"})
                add(QLatin1StringView(line));
        }
    }
    contents(Section::MiscImages);
    if (!doc.isOn(includeKey(Section::MiscImages))) {
        // The game's own spelling: descriptions must read as the original writes them.
        add(QStringLiteral("//Miscellaenous Images: No"));
    }
    for (Section id : {Section::Colors, Section::Sounds, Section::Music})
        contents(id);
    add(separator);

    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}
