#include "document/description.h"

#include "document/themedocument.h"

namespace {

struct Answer {
    const char *label;
    const char *key;
};

// Type 1 contents: each include line, and the animation lines shown only when it is included.
struct Section {
    Answer include;
    std::initializer_list<Answer> whenIncluded;
};

const Section type1Sections[] = {
    {{"//Background: ", "includebackground"}, {{"//Background Animated: ", "bganimated"}}},
    {{"//Internet Background: ", "includeinetbackground"},
     {{"//Internet Background Animated: ", "inetbganimated"}}},
    {{"//Blocks: ", "includeblocks"},
     {{"//Animated Blocks: ", "animateblocks"}, {"//Animated Specials: ", "animatespecials"},
      {"//Animated Internet Blocks: ", "animateinetblocks"},
      {"//Animated Internet Specials: ", "animateinetspecials"}}},
    {{"//Next Window: ", "includenextwindow"}, {}},
    {{"//Special Window: ", "includespecialwindow"}, {}},
    {{"//Explosion: ", "includeexplosion"}, {}},
    {{"//Block Bomb: ", "includebomb"}, {}},
};

// The left door is not reported; only the right one stands for "Game Door".
const Answer miscImages[] = {
    {"//Game Door: ", "door2"},         {"//Internet Door: ", "internetdoor"},
    {"//Win Game Image: ", "winimg"},   {"//Internet Win Game Image: ", "inetwinimg"},
    {"//Height Led: ", "heightled"},    {"//Warning Image: ", "warning"},
    {"//Team Font: ", "teamfont"},
};

const char *const separator = "//---------------------------";

QString yesNo(bool yes)
{
    return yes ? QStringLiteral("Yes") : QStringLiteral("No");
}

} // namespace

QString generateDescription(const ThemeDocument &doc)
{
    QStringList lines;
    auto add = [&](const QString &line) { lines.append(line); };
    auto switchLine = [&](const Answer &a) {
        add(QLatin1StringView(a.label) + yesNo(doc.number(QLatin1StringView(a.key)) != 0));
    };
    auto textLine = [&](const Answer &a) {
        add(QLatin1StringView(a.label) + yesNo(!doc.value(QLatin1StringView(a.key)).isEmpty()));
    };

    add(QStringLiteral("//Theme Name: ") + doc.value(u"name"));
    add(QStringLiteral("//Developer: ") + doc.value(u"developer"));
    add(QStringLiteral("//Version: ") + doc.value(u"version"));
    add(QStringLiteral("//Theme Type: ") + doc.value(u"themetype"));
    add(QLatin1StringView(separator));
    add(QStringLiteral("//!!!!ENTER YOUR DESCRIPTION HERE!!!!"));
    add(QLatin1StringView(separator));
    add(QStringLiteral("//Theme Contents:"));
    switchLine({"//Interface: ", "includeinterface"});

    if (doc.number(u"themetype") == 1) {
        for (const Section &section : type1Sections) {
            switchLine(section.include);
            if (doc.isOn(QLatin1StringView(section.include.key))) {
                for (const Answer &a : section.whenIncluded)
                    switchLine(a);
            }
        }
    } else {
        textLine({"//Skin File: ", "skinfile"});
        if (!doc.value(u"skinfile").isEmpty()) {
            for (const char *line : {"//Background: Yes", "//Blocks: Yes",
                                     "//Special Window Image: Yes", "//Next Block Image: Yes"})
                add(QLatin1StringView(line));
        }
    }

    if (doc.isOn(u"includemiscimages")) {
        for (const Answer &a : miscImages)
            textLine(a);
    } else {
        // The game's own spelling: descriptions must read as the original writes them.
        add(QStringLiteral("//Miscellaenous Images: No"));
    }
    switchLine({"//Colors: ", "includecolors"});
    switchLine({"//Sounds: ", "includesounds"});
    switchLine({"//Music: ", "includemusic"});
    add(QLatin1StringView(separator));

    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}
