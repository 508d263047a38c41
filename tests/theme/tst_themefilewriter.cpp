// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/fieldvalues.h"
#include "common/testfiles.h"
#include "theme/description.h"
#include "theme/referencedfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themesections.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Every line, the last included, must end with CR LF; a lone LF shows up inside a line.
QStringList linesOf(const QByteArray &bytes)
{
    if (!bytes.endsWith("\r\n"))
        return {QStringLiteral("<missing final CR LF>")};
    return QString::fromLatin1(bytes.chopped(2)).split(QStringLiteral("\r\n"));
}

void makeTheme(ThemeDocument &doc, const Fields &fields)
{
    doc.resetTheme();
    setFields(doc, fields);
}

QByteArray bytesOf(const Fields &fields)
{
    ThemeDocument doc;
    makeTheme(doc, fields);
    const Result<QByteArray> bytes = themeFileBytes(doc);
    if (!bytes)
        qWarning() << bytes.errorText();
    return bytes.valueOr({});
}

const QStringList head1 = {
    QString::fromLatin1("//Stakko Theme File - Created by Stakko Theme Maker\x99"),
    QString(), QStringLiteral(" "), QStringLiteral("[Theme Info]"), QStringLiteral("name=Stakko Theme"),
    QStringLiteral("developer=Author"), QStringLiteral("version=1.0"),
    QStringLiteral("resourcefile=StakkoTheme.zip"), QStringLiteral("themetype=1"), QStringLiteral(" "),
};
const QStringList banner = {QStringLiteral("//-----------------"), QStringLiteral("//Theme Type 1 Info"),
                            QStringLiteral("//-----------------")};

} // namespace

class WriterTest : public QObject
{
    Q_OBJECT

private slots:
    void blocks_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QStringList>("tail"); // lines after the common Type 1 head

        QTest::newRow("new theme: thirteen lines") << Fields{} << banner;
        QTest::newRow("background")
            << Fields{{"includebackground", "1"}, {"bganimated", "1"}, {"bgfilename", "bg"},
                      {"bgextension", "bmp"}, {"bgframecount", "8"}}
            << banner + QStringList{" ", "//Background", "bganimated=1", "bgfilename=bg", "bgextension=bmp",
                                    "bgframecount=8", "bgstartingframe=1", "bgstillframe=1",
                                    "bgreverseanimation=0", "bgdelaybetweenframes=10"};
        QTest::newRow("explosion and bomb transparency in print form")
            << Fields{{"includeexplosion", "1"}, {"includebomb", "1"}, {"Bombtransparency", "1"}}
            << banner + QStringList{" ", "//Block Explosion", "explodetransparency= 0 ", "explodefilename=",
                                    "explodefileextension=", "explodeframecount=", "explodedelaybetweenframes=10",
                                    " ", "//Block Bomb", "Bombtransparency= 1 ", "Bombfilename=",
                                    "bombfileextension=", "Bombframecount=", "Bombdelaybetweenframes=10"};
        QTest::newRow("blocks switches plain, greyed written as 2")
            << Fields{{"includeblocks", "1"}, {"animatespecials", "2"}}
            << banner + QStringList{" ", "//Blocks", "animateblocks=0", "animatespecials=2", "animateinetblocks=0",
                                    "animateinetspecials=0", "blktransparency=0", "blkfilename=", "blkextension=",
                                    "blkframecount=", "blkstartingframe=1", "blkstillframe=1",
                                    "blkreverseanimation=0", "blkdelaybetweenframes=10"};
        QTest::newRow("internet background keeps empty defaults")
            << Fields{{"includeinetbackground", "1"}}
            << banner + QStringList{" ", "//Internet Background", "inetbganimated=0", "inetbgfilename=",
                                    "inetbgextension=", "inetbgframecount=", "inetbgstartingframe=",
                                    "inetbgstillframe=", "inetbgreverseanimation=0", "inetbgdelaybetweenframes="};
        QTest::newRow("misc images: switches follow their images")
            << Fields{{"includemiscimages", "1"}, {"door2", "d2.bmp"}, {"wintransparent", "1"},
                      {"inetwinimg", "iw.bmp"}, {"inetwintransparent", "1"}, {"teamfont", "tf.bmp"}}
            << banner + QStringList{" ", "//Miscellaneous Images", "door2=d2.bmp", "inetwinimg=iw.bmp",
                                    "inetwintransparent=1", "teamfont=tf.bmp"};
        QTest::newRow("colours: empty ones white")
            << Fields{{"includecolors", "1"}, {"colortheme", "0,128,255"}, {"colorhighscorethird", "red"}}
            << banner + QStringList{" ", "//Colors", "colortitle=255,255,255", "colorfields=255,255,255",
                                    "coloroptions=255,255,255", "colortheme=0,128,255", "colorserver=255,255,255",
                                    "colorconnect=255,255,255", "colorinternet=255,255,255",
                                    "colorhighscoretitle=255,255,255", "colorhighscorenormal=255,255,255",
                                    "colorhighscorefirst=255,255,255", "colorhighscoresecond=255,255,255",
                                    "colorhighscorethird=red"};
        QTest::newRow("music without a file still writes its comment")
            << Fields{{"includemusic", "1"}} << banner + QStringList{" ", "//Music"};
        QTest::newRow("sounds: only filled ones, shield last")
            << Fields{{"includesounds", "1"}, {"holyshield", "s.wav"}, {"rotate", "r.wav"}}
            << banner + QStringList{" ", "//Sounds", "rotate=r.wav", "holyshield=s.wav"};
        QTest::newRow("block order and music before sounds")
            << Fields{{"includesounds", "1"}, {"includemusic", "1"}, {"midi", "m.mid"},
                      {"includespecialwindow", "1"}, {"includenextwindow", "1"}}
            << banner + QStringList{" ", "//Special Window", "specialwindowanimated=0", "specialwindowfilename=",
                                    "specialwindowextension=", "specialwindowframecount=",
                                    "specialwindowstartingframe=1", "specialwindowstillframe=1",
                                    "specialwindowreverseanimation=0", "specialwindowdelaybetweenframes=10",
                                    " ", "//Next Block Window", "nextblkanimated=0", "nextblkfilename=",
                                    "nextblkextension=", "nextblkframecount=", "nextblkstartingframe=1",
                                    "nextblkstillframe=1", "nextblkreverseanimation=0",
                                    "nextblkdelaybetweenframes=10", " ", "//Music", "midi=m.mid", " ", "//Sounds"};
        QTest::newRow("interface before the banner; menu transparency needs the menu image")
            << Fields{{"includeinterface", "1"}, {"ifacemenutransparent", "1"}, {"ifacemain", "m.bmp"}}
            << QStringList{" ", "//Graphical User Interface", "ifacemain=m.bmp"} + banner;
        QTest::newRow("menu image brings its switch")
            << Fields{{"includeinterface", "1"}, {"ifacemenu", "menu.bmp"}, {"ifaceinet", "i.bmp"}}
            << QStringList{" ", "//Graphical User Interface", "ifaceinet=i.bmp", "ifacemenu=menu.bmp",
                           "ifacemenutransparent=0"} + banner;
    }

    void blocks()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, tail);
        QCOMPARE(linesOf(bytesOf(fields)), head1 + tail);
    }

    void type0HoldsOnlyInterfaceMusicAndSounds()
    {
        Fields all{{"themetype", "0"}, {"skinfile", "skin.bmp"}, {"skintransparency", "1"},
                   {"includeinterface", "1"}, {"ifacemain", "m.bmp"}, {"includemusic", "1"},
                   {"includesounds", "1"}, {"drop", "d.wav"}};
        for (const ThemeSection &section : themeSections())
            all.append({QString::fromLatin1(section.include), QStringLiteral("1")});
        QCOMPARE(linesOf(bytesOf(all)),
                 (QStringList{QString::fromLatin1("//Stakko Theme File - Created by Stakko Theme Maker\x99"),
                              "", " ", "[Theme Info]", "name=Stakko Theme", "developer=Author",
                              "version=1.0", "themetype=0", " ", "//Theme Type 0 Info",
                              "skinfile=skin.bmp", "skintransparency=1", " ",
                              "//Graphical User Interface", "ifacemain=m.bmp", " ", "//Music", " ",
                              "//Sounds", "drop=d.wav"}));

        const QStringList noSkin = linesOf(bytesOf({{"themetype", "0"}, {"skintransparency", "1"}}));
        QCOMPARE(noSkin.mid(7), (QStringList{"themetype=0", " ", "//Theme Type 0 Info"}));
    }

    void identityAndDescription_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QStringList>("head");
        QTest::newRow("empty identity is Unknown")
            << Fields{{"name", ""}, {"developer", ""}, {"version", ""}, {"resourcefile", ""}}
            << QStringList{"", " ", "[Theme Info]", "name=Unknown", "developer=Unknown", "version=Unknown",
                           "resourcefile="};
        QTest::newRow("blanks are not empty")
            << Fields{{"name", "  "}} << QStringList{"", " ", "[Theme Info]", "name=  "};
        QTest::newRow("three description lines")
            << Fields{{"description", "//one\r\ntwo\r\n[Theme Info]"}}
            << QStringList{"//one", "two", "[Theme Info]", " ", "[Theme Info]"};
        QTest::newRow("typed line breaks become CR LF")
            << Fields{{"description", "a\nb"}} << QStringList{"a", "b", " ", "[Theme Info]"};
        QTest::newRow("Latin-1 and Windows-1252 text")
            << Fields{{"name", QString::fromUtf8("Café € ‚Ÿ")}}
            << QStringList{"", " ", "[Theme Info]", QString::fromLatin1("name=Caf\xe9 \x80 \x82\x9f")};
    }

    void identityAndDescription()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, head);
        QCOMPARE(linesOf(bytesOf(fields)).mid(1, head.size()), head);
    }

    void writesFileAtomicallyAndRepeatably()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("t.skt"));
        ThemeDocument doc;
        doc.resetTheme();
        // A folder that is not there: the reason is given and nothing is left behind.
        const QString missing = dir.filePath(QStringLiteral("missing/t.skt"));
        Result<void> written = writeThemeFile(doc, missing);
        QVERIFY(!written);
        QString error = written.errorText();
        QVERIFY2(error.contains(missing) && error.count(u'\n') >= 1, qPrintable(error));
        QVERIFY(QDir(dir.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).isEmpty());

        doc.setText(u"name", QStringLiteral("Ice"));
        doc.setDirty(false);
        written = writeThemeFile(doc, path);
        QVERIFY2(written, qPrintable(written.errorText()));
        const QByteArray first = readFile(path);
        QVERIFY(first.contains("name=Ice"));
        QVERIFY(writeThemeFile(doc, path));
        QCOMPARE(readFile(path), first);
        QVERIFY(!doc.isDirty()); // saving changes nothing in the document
        QCOMPARE(doc.currentThemeFile(), QString());

        // Text Windows-1252 cannot hold is refused by name, and the old file stays.
        doc.setNumber(u"includesounds", 1);
        doc.setText(u"chat", QString::fromUtf8("チャット.wav"));
        written = writeThemeFile(doc, path);
        QVERIFY(!written);
        error = written.errorText();
        QVERIFY2(error.contains(u"\"chat\"") && error.contains(QString::fromUtf8("チ")), qPrintable(error));
        QCOMPARE(readFile(path), first);
    }

    void referencedFilesAreWhatTheFileWouldName_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QStringList>("references"); // "key kind name[|extension|count]: files"

        QTest::newRow("new theme: the package alone") << Fields{}
            << QStringList{"resourcefile package StakkoTheme.zip: StakkoTheme.zip"};
        QTest::newRow("frames only for a whole count from 1 to 32767")
            << Fields{{"resourcefile", ""}, {"includebackground", "1"}, {"bgfilename", "gfx\\bg"},
                      {"bgextension", "bmp"}, {"bgframecount", " 3 "}, {"includeexplosion", "1"},
                      {"explodefilename", "ex"}, {"explodeframecount", "2.5"}, {"includebomb", "1"},
                      {"Bombframecount", "32768"}, {"includeblocks", "2"}, {"blkframecount", "1"}}
            << QStringList{"resourcefile package : ",
                           "bgfilename frames gfx\\bg|bmp| 3 : gfx\\bg1.bmp gfx\\bg2.bmp gfx\\bg3.bmp",
                           "explodefilename frames ex||2.5: ", "Bombfilename frames ||32768: "};
        QTest::newRow("stills, music and sounds only when written, in file order")
            << Fields{{"resourcefile", "p.zip"}, {"includesounds", "1"}, {"rotate", "r.wav"},
                      {"includemusic", "1"}, {"midi", "song.mid"}, {"includecolors", "1"},
                      {"includemiscimages", "1"}, {"winimg", "w.bmp"}, {"wintransparent", "1"},
                      {"includeinterface", "1"}, {"ifacemenu", "m.bmp"}, {"includenextwindow", "0"}}
            << QStringList{"resourcefile package p.zip: p.zip", "ifacemenu still m.bmp: m.bmp",
                           "winimg still w.bmp: w.bmp", "midi music song.mid: song.mid",
                           "rotate wave r.wav: r.wav"};
        QTest::newRow("type 0: skin, interface, music and sounds")
            << Fields{{"themetype", "0"}, {"skinfile", "skin.bmp"}, {"includebackground", "1"},
                      {"includeinterface", "1"}, {"ifacemain", "i.bmp"}, {"includemiscimages", "1"},
                      {"door1", "d.bmp"}, {"includemusic", "1"}}
            << QStringList{"skinfile skin skin.bmp: skin.bmp", "ifacemain still i.bmp: i.bmp"};
        QTest::newRow("type 0 without a skin") << Fields{{"themetype", "0"}} << QStringList{};
    }

    void referencedFilesAreWhatTheFileWouldName()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, references);
        ThemeDocument doc;
        makeTheme(doc, fields);
        const char *kinds[] = {"frames", "still", "wave", "music", "skin", "package"};
        QStringList found;
        for (const FileReference &r : referencedFiles(doc)) {
            const bool frames = r.kind == FileKind::FrameSequence;
            found.append(r.key + u' ' + QLatin1StringView(kinds[int(r.kind)]) + u' ' + r.name
                         + (frames ? u'|' + r.extension + u'|' + r.count : QString()) + QStringLiteral(": ")
                         + r.files.join(u' '));
        }
        QCOMPARE(found, references);
    }

    void generatedDescription_data()
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

    void generatedDescription()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, identity);
        QFETCH(QStringList, contents);
        const QString sep = QStringLiteral("//---------------------------");
        const QStringList placeholder{sep, "//!!!!ENTER YOUR DESCRIPTION HERE!!!!", sep, "//Theme Contents:"};
        ThemeDocument doc;
        makeTheme(doc, fields);
        QCOMPARE(linesOf(generateDescription(doc).toLatin1()), identity + placeholder + contents + QStringList{sep});
    }
};

QTEST_GUILESS_MAIN(WriterTest)
#include "tst_themefilewriter.moc"
