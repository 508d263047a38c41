// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/fieldvalues.h"
#include "theme/description.h"
#include "theme/themedocument.h"

#include <QTest>

class DescriptionTest : public QObject
{
    Q_OBJECT

    static QStringList describe(const Fields &fields)
    {
        ThemeDocument doc;
        doc.resetTheme();
        setFields(doc, fields);
        const QString text = generateDescription(doc);
        if (!text.endsWith(u"\r\n"))
            return {QStringLiteral("<missing final CR LF>")};
        return text.chopped(2).split(QStringLiteral("\r\n"));
    }

    static inline const QString sep = QStringLiteral("//---------------------------");

private slots:
    void wholeText_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QStringList>("identity"); // the first four lines
        QTest::addColumn<QStringList>("contents"); // lines after "//Theme Contents:"

        const QStringList type1{"//Theme Name: Stakko Theme", "//Developer: Author", "//Version: 1.0",
                                "//Theme Type: 1"};
        const QStringList type0 = type1.mid(0, 3) << "//Theme Type: 0";
        QTest::newRow("new theme")
            << Fields{} << type1
            << QStringList{"//Interface: No", "//Background: No", "//Internet Background: No", "//Blocks: No",
                           "//Next Window: No", "//Special Window: No", "//Explosion: No", "//Block Bomb: No",
                           "//Miscellaenous Images: No", "//Colors: No", "//Sounds: No", "//Music: No"};
        QTest::newRow("animation line only for an included background")
            << Fields{{"includebackground", "1"}, {"inetbganimated", "1"}}
            << type1 << QStringList{"//Interface: No", "//Background: Yes", "//Background Animated: No",
                                    "//Internet Background: No", "//Blocks: No", "//Next Window: No",
                                    "//Special Window: No", "//Explosion: No", "//Block Bomb: No",
                                    "//Miscellaenous Images: No", "//Colors: No", "//Sounds: No", "//Music: No"};
        QTest::newRow("greyed switches answer Yes but include nothing")
            << Fields{{"includeblocks", "2"}, {"includecolors", "2"}, {"includeinetbackground", "1"},
                      {"inetbganimated", "2"}}
            << type1 << QStringList{"//Interface: No", "//Background: No", "//Internet Background: Yes",
                                    "//Internet Background Animated: Yes", "//Blocks: Yes", "//Next Window: No",
                                    "//Special Window: No", "//Explosion: No", "//Block Bomb: No",
                                    "//Miscellaenous Images: No", "//Colors: Yes", "//Sounds: No", "//Music: No"};
        QTest::newRow("blocks bring four animation lines")
            << Fields{{"includeblocks", "1"}, {"animatespecials", "1"}, {"animateinetspecials", "1"}}
            << type1 << QStringList{"//Interface: No", "//Background: No", "//Internet Background: No",
                                    "//Blocks: Yes", "//Animated Blocks: No", "//Animated Specials: Yes",
                                    "//Animated Internet Blocks: No", "//Animated Internet Specials: Yes",
                                    "//Next Window: No", "//Special Window: No", "//Explosion: No",
                                    "//Block Bomb: No", "//Miscellaenous Images: No", "//Colors: No",
                                    "//Sounds: No", "//Music: No"};
        QTest::newRow("type 0 with a skin")
            << Fields{{"themetype", "0"}, {"skinfile", "skin.bmp"}, {"includeexplosion", "1"}}
            << type0 << QStringList{"//Interface: No", "//Skin File: Yes", "//Background: Yes", "//Blocks: Yes",
                                    "//Special Window Image: Yes", "//Next Block Image: Yes",
                                    "//Miscellaenous Images: No", "//Colors: No", "//Sounds: No", "//Music: No"};
        QTest::newRow("type 0 without a skin, identity as held")
            << Fields{{"themetype", "0"}, {"skinfile", ""}, {"includemusic", "1"}, {"name", ""}, {"version", " 2 "}}
            << QStringList{"//Theme Name: ", "//Developer: Author", "//Version:  2 ", "//Theme Type: 0"}
            << QStringList{"//Interface: No", "//Skin File: No", "//Miscellaenous Images: No",
                           "//Colors: No", "//Sounds: No", "//Music: Yes"};
        QTest::newRow("misc images: the left door is not reported")
            << Fields{{"themetype", "0"}, {"includemiscimages", "1"}, {"door1", "l.bmp"},
                      {"teamfont", "f.bmp"}}
            << type0 << QStringList{"//Interface: No", "//Skin File: No", "//Game Door: No", "//Internet Door: No",
                                    "//Win Game Image: No", "//Internet Win Game Image: No", "//Height Led: No",
                                    "//Warning Image: No", "//Team Font: Yes", "//Colors: No", "//Sounds: No",
                                    "//Music: No"};
    }

    void wholeText()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, identity);
        QFETCH(QStringList, contents);
        const QStringList placeholder{sep, "//!!!!ENTER YOUR DESCRIPTION HERE!!!!", sep, "//Theme Contents:"};
        QCOMPARE(describe(fields), identity + placeholder + contents + QStringList{sep});
    }
};

QTEST_GUILESS_MAIN(DescriptionTest)
#include "tst_description.moc"
