// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/fieldvalues.h"
#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "common/ansitext.h"
#include "theme/themesections.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themecolors.h"
#include "theme/themeloader.h"
#include "package/resourcepackage.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

/** Writes a theme file from raw lines (CRLF, Windows-1252), as an author's editor might. */
QString writeLines(const QString &path, const QStringList &lines)
{
    QByteArray bytes;
    for (const QString &line : lines) {
        AnsiText::encode(line, &bytes);
        bytes += "\r\n";
    }
    if (!writeFile(path, bytes))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QStringList type1(const QStringList &more, const QString &resource = QStringLiteral("pack.zip"))
{
    return QStringList{"[Theme Info]", "name=Ice", "developer=Ann", "version=2",
                       QStringLiteral("resourcefile=") + resource, "themetype=1"}
        + more;
}

} // namespace

class LoaderTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QTemporaryDir m_temp;

    QString path(const QString &name) const { return m_dir.filePath(name); }

    // A new, unchanged theme that a file is then loaded into.
    struct Loaded {
        ThemeDocument doc;
        ScriptedDialogs dialogs;
        LoadReport report;

        Loaded()
        {
            doc.resetTheme();
            doc.setDirty(false);
        }
        void load(const QString &file) { report = loadThemeFile(doc, file, dialogs); }
    };

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid() && m_temp.isValid());
        qputenv("TMPDIR", m_temp.path().toLocal8Bit()); // packages unpack below a temp of our own
    }

    void roundTripKeepsEveryWrittenField()
    {
        ThemeDocument doc;
        doc.resetTheme();
        const auto fields = themeFields();
        for (int i = 0; i < int(fields.size()); ++i) {
            const FieldSpec &f = fields[size_t(i)];
            if (f.kind == FieldKind::Switch)
                doc.setNumberAt(i, 1 + i % 2);
            else if (f.kind == FieldKind::Text)
                doc.setValue(i, QStringLiteral("%1-%2.x").arg(QLatin1StringView(f.key)).arg(i));
        }
        for (const ThemeSection &section : themeSections())
            doc.setNumber(section.include, 1);
        for (const char *key : {"ifacemenu", "winimg", "inetwinimg"})
            doc.setText(key, QStringLiteral("image.bmp"));
        doc.setText(u"resourcefile", QStringLiteral("pack.zip"));
        const QString file = path(QStringLiteral("round.skt"));
        QVERIFY(writeThemeFile(doc, file));

        Loaded back;
        back.doc.setText(u"description", QStringLiteral("kept"));
        back.doc.setText(u"skinfile", QStringLiteral("skin kept"));
        QSignalSpy changes(&back.doc, &ThemeDocument::fieldChanged);
        back.load(file);
        for (int i = 0; i < int(fields.size()); ++i) {
            const QString key = QLatin1StringView(fields[size_t(i)].key);
            if (key == u"skinfile" || key == u"skintransparency" || key.endsWith(u"image"))
                continue;
            QCOMPARE(back.doc.value(i), doc.value(i));
        }
        QCOMPARE(back.doc.value(u"skinfile"), QStringLiteral("skin kept"));
        QCOMPARE(back.doc.value(u"bgimage"), doc.value(u"bgfilename") + QStringLiteral("1.") + doc.value(u"bgextension"));
        QCOMPARE(back.doc.value(u"bombimage"), doc.value(u"Bombfilename") + QStringLiteral("1.") + doc.value(u"bombfileextension"));
        // The loader's writes are ordinary edits: the window sees them and the theme is dirty.
        QVERIFY(back.doc.isDirty());
        QVERIFY(changes.size() > 100);
        QCOMPARE(back.report.problems.size(), 1); // the package named beside the file does not exist
        QVERIFY(back.report.problems[0].text.startsWith(QStringLiteral("Could not load resource file ")
                                                         + m_dir.path() + QStringLiteral("/pack.zip")));
    }

    void descriptionLoadsAsSaved_data()
    {
        QTest::addColumn<QString>("description"); // saved by the writer, unless bytes are given
        QTest::addColumn<QByteArray>("bytes");    // a file written by hand
        QTest::addColumn<QString>("loaded");      // as the document holds it after the load
        QTest::newRow("empty") << "" << QByteArray() << "";
        QTest::newRow("one line") << "//Ice" << QByteArray() << "//Ice";
        QTest::newRow("typed lines") << "//Ice\n\n//by Ann" << QByteArray() << "//Ice\r\n\r\n//by Ann";
        QTest::newRow("generated, ending in a line end") << "//Ice\r\n//---\r\n" << QByteArray()
                                                         << "//Ice\r\n//---\r\n";
        QTest::newRow("blank lines and blanks kept") << " \r\n  indented \r\n " << QByteArray()
                                                     << " \r\n  indented \r\n ";
        QTest::newRow("a lone CR") << "a\rb\r" << QByteArray() << "a\rb\r";
        QTest::newRow("Windows-1252") << "//Caf\u00e9 \u2122" << QByteArray() << "//Caf\u00e9 \u2122";

        const QByteArray header("//Stakko Theme File - Created by Stakko Theme Maker\x99");
        const QByteArray keys("name=Ice\r\nresourcefile=\r\nthemetype=1\r\n");
        QTest::newRow("by hand, no first line") << "" << "//Ice\r\n \r\n[Theme Info]\r\n" + keys << "";
        QTest::newRow("by hand, another first line")
            << "" << "//My theme\r\n//Ice\r\n \r\n[Theme Info]\r\n" + keys << "";
        QTest::newRow("by hand, no separator above the section")
            << "" << header + "\r\n//Ice\r\n[Theme Info]\r\n" + keys << "";
        QTest::newRow("by hand, separator not directly above")
            << "" << header + "\r\n//Ice\r\n \r\n\r\n[Theme Info]\r\n" + keys << "";
        QTest::newRow("by hand, lines ended by LF alone")
            << "" << header + "\n//Ice\n//Ann\n \n[Theme Info]\n" + keys << "//Ice\r\n//Ann";
        QTest::newRow("by hand, saved by Notepad as UTF-8")
            << "" << "\xEF\xBB\xBF//Stakko Theme File - Created by Stakko Theme Maker\xE2\x84\xA2\r\nCaf\xC3\xA9\r\n \r\n"
                     "[Theme Info]\r\n" + keys << "Caf\u00e9";
    }

    void descriptionLoadsAsSaved()
    {
        QFETCH(QString, description);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, loaded);
        const QString first = path(QStringLiteral("first.skt"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setText(u"description", description);
        QVERIFY(bytes.isNull() ? writeThemeFile(doc, first).ok() : writeFile(first, bytes));

        Loaded back;
        back.doc.setText(u"description", QStringLiteral("//the theme loaded before"));
        back.load(first);
        QVERIFY(back.report.loaded);
        QCOMPARE(back.doc.value(u"description"), loaded);
        // Save, load, save: the same bytes.
        const QString second = path(QStringLiteral("second.skt"));
        QVERIFY(writeThemeFile(back.doc, second));
        if (bytes.isNull())
            QCOMPARE(readFile(second), readFile(first));
    }

    void valuesAsTheReaderGivesThem_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<Fields>("expected");
        QTest::newRow("missing keys take their defaults")
            << type1({})
            << Fields{{"name", "Ice"}, {"includebackground", "0"}, {"bgfilename", ""}, {"bgstartingframe", "1"},
                      {"bgstillframe", "1"}, {"bgdelaybetweenframes", "10"}, {"bgimage", "1."},
                      {"inetbgstartingframe", ""}, {"inetbgstillframe", ""}, {"inetbgdelaybetweenframes", ""},
                      {"colortitle", "255,255,255"}, {"includecolors", "0"}, {"Bombdelaybetweenframes", "10"},
                      {"midi", ""}, {"includemusic", "0"}, {"holyshield", ""}, {"themetype", "1"}};
        QTest::newRow("present but empty name") << type1({"name="}) << Fields{{"name", "Ice"}};
        QTest::newRow("no name line") << QStringList{"[Theme Info]", "themetype=0"}
                                      << Fields{{"name", "Unknown"}, {"version", "Unknown"}};
        QTest::newRow("empty name line wins when first")
            << QStringList{"[theme info]", "NAME=", "themetype=0"} << Fields{{"name", ""}};
        QTest::newRow("bomb transparency in print form")
            << type1({"Bombtransparency= 1 "}) << Fields{{"Bombtransparency", "1"}, {"includebomb", "1"}};
        QTest::newRow("switch values outside 0..2 load as 0")
            << type1({"bganimated=7", "bgreverseanimation=x", "blktransparency=2"})
            << Fields{{"bganimated", "0"}, {"bgreverseanimation", "0"}, {"blktransparency", "2"},
                      {"includebackground", "1"}, {"includeblocks", "1"}};
        QTest::newRow("only the menu transparency includes the interface")
            << type1({"ifacemenutransparent=1"})
            << Fields{{"includeinterface", "1"}, {"ifacemenutransparent", "1"}, {"ifacemain", ""}};
        QTest::newRow("image text rebuilt from root and extension")
            << type1({"bgfilename=gfx\\bg", "bgextension=jpg"}) << Fields{{"bgimage", "gfx\\bg1.jpg"}};
        QTest::newRow("colours kept as written")
            << type1({"colortheme=0,128,255", "colortitle=300,0,0", "colorfields=12,34"})
            << Fields{{"colortheme", "0,128,255"}, {"colortitle", "300,0,0"}, {"colorfields", "12,34"},
                      {"includecolors", "1"}};
        QTest::newRow("type 0 keeps type 1 sections and reads its skin")
            << QStringList{"[Theme Info]", "themetype=0", "skinfile=s.bmp", "bgfilename=ignored"}
            << Fields{{"themetype", "0"}, {"skinfile", "s.bmp"}, {"skintransparency", "0"},
                      {"bgfilename", "kept"}, {"includeexplosion", "0"}};
        QTest::newRow("music and sounds")
            << type1({"midi=song.mid", "rotate=r.wav"})
            << Fields{{"midi", "song.mid"}, {"includemusic", "1"}, {"rotate", "r.wav"}, {"includesounds", "1"},
                      {"drop", ""}};
    }

    void valuesAsTheReaderGivesThem()
    {
        QFETCH(QStringList, lines);
        QFETCH(Fields, expected);
        Loaded l;
        l.doc.setText(u"bgfilename", QStringLiteral("kept"));
        l.doc.setText(u"inetbgstartingframe", QStringLiteral("7"));
        l.load(writeLines(path(QStringLiteral("v.skt")), lines));
        for (const auto &[key, value] : expected)
            QCOMPARE(l.doc.value(key), value);
    }

    void stops_data()
    {
        QTest::addColumn<QStringList>("lines"); // empty: no file at all
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("name");
        const QStringList head{"[Theme Info]", "name=Ice", "ifacemain=m.bmp"};
        const QString noType = QStringLiteral("Error: Could not load %1.\rLocation: Themetype");
        QTest::newRow("no file") << QStringList() << noType << "Unknown";
        QTest::newRow("no theme type") << head << noType << "Ice";
        QTest::newRow("type 1 without resource file")
            << head + QStringList{"themetype=1"} << "Error: Theme Type 1 REQUIRES a Resource File!" << "Ice";
        QTest::newRow("unknown theme type")
            << head + QStringList{"themetype=3"}
            << "Error: Could not load %1.\nIts theme type \"3\" is not known: "
               "only Theme Type 0 and Theme Type 1 can be loaded." << "Ice";
    }

    void stops()
    {
        QFETCH(QStringList, lines);
        QFETCH(QString, message);
        QFETCH(QString, name);
        QString file = path(QStringLiteral("stop.skt"));
        if (!lines.isEmpty())
            writeLines(file, lines + QStringList{"bgfilename=new", "midi=m.mid"});
        Loaded l;
        l.doc.setText(u"bgfilename", QStringLiteral("old"));
        l.doc.setNumber(u"themetype", 0);
        l.load(file);
        QCOMPARE(l.report.lines(), QStringList{message.contains(u"%1") ? message.arg(file) : message});
        QCOMPARE(l.report.problems[0].severity, Problem::Severity::Error);
        // Steps before the type ran; nothing after it did.
        QCOMPARE(l.doc.value(u"name"), name);
        QCOMPARE(l.doc.value(u"ifacemain"), lines.isEmpty() ? QString() : QStringLiteral("m.bmp"));
        QCOMPARE(l.doc.value(u"themetype"), QStringLiteral("0"));
        QCOMPARE(l.doc.value(u"bgfilename"), QStringLiteral("old"));
        QCOMPARE(l.doc.value(u"midi"), QString());
    }

    void packageBesideTheThemeIsUnpacked()
    {
        const QString frame = m_dir.filePath(QStringLiteral("art/bg1.bmp"));
        QVERIFY(writeFile(frame, "BMframe"));
        const Result<void> packed = writeResourcePackage(path(QStringLiteral("Pack.zip")), {frame}, m_dir.path());
        QVERIFY2(packed, qPrintable(packed.errorText()));

        // The theme names the package in other letter case, as Windows lets it.
        Loaded l;
        l.doc.setMusicFolder(QStringLiteral("old/"));
        l.load(writeLines(path(QStringLiteral("p.skt")), type1({"midi=m.mid"}, QStringLiteral("PACK.zip"))));
        QVERIFY2(l.report.problems.isEmpty(), qPrintable(l.report.lines().join(u'\n')));
        const QString folder = QDir(m_temp.path()).filePath(QStringLiteral("stakko/PACK/"));
        QCOMPARE(l.doc.value(u"resourcefile"), QStringLiteral("PACK.zip"));
        QCOMPARE(l.doc.packageFolder(), folder);
        QCOMPARE(l.doc.packageFolderTail(), QStringLiteral("stakko/PACK/"));
        QCOMPARE(l.doc.musicFolder(), folder);
        QVERIFY(QFile::exists(folder + QStringLiteral("art/bg1.bmp")));

        // A later theme without a package must not see this one's files.
        l.load(writeLines(path(QStringLiteral("nopack.skt")), {"[Theme Info]", "themetype=0"}));
        QCOMPARE(l.doc.packageFolder(), QString());
        QCOMPARE(l.doc.packageFolderTail(), QString());
    }

    void colorTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint32>("value");
        QTest::addColumn<QString>("written"); // colorToText of the value
        const QString white = QStringLiteral("255,255,255");
        QTest::newRow("plain") << "0,128,255" << quint32(16744448) << "0,128,255";
        QTest::newRow("blanks") << " 1 , 2 , 3 " << quint32(1 + 2 * 256 + 3 * 65536) << "1,2,3";
        QTest::newRow("above 255") << "300,0,0" << quint32(255) << "255,0,0";
        QTest::newRow("16-bit limit") << "0,0,32767" << quint32(255 * 65536) << "0,0,255";
        QTest::newRow("beyond 16 bits") << "0,0,32768" << quint32(0xFFFFFF) << white;
        QTest::newRow("two parts") << "12,34" << quint32(0xFFFFFF) << white;
        QTest::newRow("word") << "red" << quint32(0xFFFFFF) << white;
        QTest::newRow("not a number") << "1,x,3" << quint32(0xFFFFFF) << white;
        QTest::newRow("negative") << "-1,0,0" << quint32(0xFFFFFF) << white;
    }

    void colorTexts()
    {
        QFETCH(QString, text);
        QFETCH(quint32, value);
        QFETCH(QString, written);
        QCOMPARE(textToColor(text), value);
        QCOMPARE(colorToText(value), written);

        // A load gives every swatch the colour its text reads as; a missing line reads as white.
        Loaded l;
        l.load(writeLines(path(QStringLiteral("c.skt")), type1({"colortheme=" + text})));
        QCOMPARE(l.doc.swatch(3), std::optional<quint32>(value));
        QCOMPARE(l.doc.swatch(0), std::optional<quint32>(0xFFFFFF));
    }
};

QTEST_GUILESS_MAIN(LoaderTest)
#include "tst_themeloader.moc"
