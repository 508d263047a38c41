// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The stakko-theme command line, driven as a script would drive it.

#include "common/runprogram.h"
#include "common/testfiles.h"
#include "package/rawzip.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

class CliTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    /** Runs stakko-theme on a system that speaks \a locale (the tests' own English by default). */
    ProgramRun cli(const QStringList &args, const QString &locale = {})
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TMPDIR"), m_dir.filePath(QStringLiteral("tmp")));
        if (!locale.isEmpty())
            env.insert(QStringLiteral("LC_ALL"), locale);
        return runProgram(qEnvironmentVariable("STAKKO_CLI"), args, env, 60000);
    }

    QByteArray fileBytes(const QString &name) const { return readFile(m_dir.filePath(name)); }

    /** The columns the option texts of --help start at, its own lines and those that go on. */
    static QList<qsizetype> optionTextColumns(const QString &help)
    {
        static const QRegularExpression text(QStringLiteral("^(?:  -\\S+(?: \\S+)? {2,}| {2,})\\S"));
        QList<qsizetype> columns;
        const QStringList lines = help.split(u'\n');
        for (qsizetype i = lines.indexOf(QRegularExpression(QStringLiteral("^  -s "))); i >= 0 && i < lines.size(); ++i) {
            if (lines.at(i).isEmpty())
                break;
            if (const auto m = text.match(lines.at(i)); m.hasMatch() && !columns.contains(m.capturedLength() - 1))
                columns << m.capturedLength() - 1;
        }
        return columns;
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(!qgetenv("STAKKO_CLI").isEmpty(), "STAKKO_CLI names the stakko-theme binary");
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("tmp")));
        // Scripts name their files from where they run: the commands run in the test folder.
        QVERIFY(QDir::setCurrent(m_dir.path()));
    }

    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("named");
        QTest::newRow("unknown field") << QStringList{"new", "-s", "colour=1", "-o", "x.skt"} << "colour";
        QTest::newRow("switch out of range") << QStringList{"new", "-s", "includebomb=3", "-o", "x.skt"}
                                             << "includebomb";
        QTest::newRow("type out of range") << QStringList{"new", "-s", "themetype=2", "-o", "x.skt"} << "themetype";
        QTest::newRow("no output") << QStringList{"new"} << "-o";
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << "frobnicate";
        QTest::newRow("unknown option") << QStringList{"dump", "--fast", "x.skt"} << "--fast";
        QTest::newRow("not an assignment") << QStringList{"new", "-s", "name", "-o", "x.skt"} << "name";
        QTest::newRow("cap above the default") << QStringList{"unpack", "--max-unpacked-bytes", "3000000000", "x.zip"}
                                               << "--max-unpacked-bytes";
        QTest::newRow("cap not a number") << QStringList{"unpack", "--max-unpacked-bytes", "2G", "x.zip"}
                                          << "--max-unpacked-bytes";
        QTest::newRow("import without a source") << QStringList{"import", "x.skt", "bgimage"} << "import";
        QTest::newRow("language without a code") << QStringList{"dump", "x.skt", "--lang"} << "--lang";
    }

    void usageErrors()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, named);
        const ProgramRun r = cli(args);
        QCOMPARE(r.status, 2);
        QVERIFY2(QString::fromUtf8(r.err).contains(named), r.err.constData());
        // In German too, and the option or key named as it is typed.
        const ProgramRun german = cli(args, QStringLiteral("de_DE.UTF-8"));
        QCOMPARE(german.status, 2);
        QVERIFY2(QString::fromUtf8(german.err).contains(named), german.err.constData());
        QVERIFY2(german.err != r.err, german.err.constData());
        QVERIFY(!QFile::exists(m_dir.filePath(QStringLiteral("x.skt"))));
    }

    void helpSpeaksTheLanguageAskedFor_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("locale"); // the system's
        QTest::addColumn<bool>("german");
        QTest::newRow("German system") << QStringList{"--help"} << "de_DE.UTF-8" << true;
        QTest::newRow("--lang de") << QStringList{"--lang", "de", "--help"} << "C.UTF-8" << true;
        QTest::newRow("--lang=de after --help") << QStringList{"--help", "--lang=de"} << "C.UTF-8" << true;
        QTest::newRow("--lang en on a German system") << QStringList{"--lang", "en", "--help"} << "de_DE.UTF-8" << false;
    }

    void helpSpeaksTheLanguageAskedFor()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, locale);
        QFETCH(bool, german);
        const QString english = QString::fromUtf8(cli({"--help"}).out);
        QVERIFY(english.startsWith(QStringLiteral("Usage: stakko-theme COMMAND [OPTIONS]\n\nCommands:\n")));
        const ProgramRun r = cli(args, locale);
        QCOMPARE(r.status, 0);
        const QString help = QString::fromUtf8(r.out);
        if (!german) {
            QCOMPARE(help, english);
            return;
        }
        QVERIFY2(!help.contains(QStringLiteral("Commands:")) && help.contains(QStringLiteral("Befehle:")), r.out.constData());
        // Commands, their arguments and every option stay as typed; the option texts line up.
        static const QRegularExpression synopsis(QStringLiteral("^  [a-z].*$"), QRegularExpression::MultilineOption);
        static const QRegularExpression option(QStringLiteral("(?:^|[ \\[(])(--?[a-z][a-z-]*)"),
                                               QRegularExpression::MultilineOption);
        const auto all = [](const QRegularExpression &pattern, const QString &text) {
            QStringList found;
            for (auto it = pattern.globalMatch(text); it.hasNext();)
                found << it.next().captured(pattern.captureCount());
            found.removeDuplicates();
            found.sort();
            return found;
        };
        QCOMPARE(all(synopsis, help), all(synopsis, english));
        QCOMPARE(all(option, help), all(option, english));
        QCOMPARE(optionTextColumns(help), optionTextColumns(english));
    }

    void newSetsFieldsInOrder()
    {
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("desc.txt")), "//line one\n//line two"));
        const ProgramRun r = cli({"new", "-s", "name=First", "-s", "name=Ice", "-s", "themetype=0", "-s",
                           "skinfile=skin.bmp", "--set-file", "description=desc.txt", "-o", "n.skt"});
        QCOMPARE(r.status, 0);
        QCOMPARE(fileBytes(QStringLiteral("n.skt")),
                 QByteArray("//Stakko Theme File - Created by Stakko Theme Maker\x99\r\n//line one\r\n"
                            "//line two\r\n \r\n[Theme Info]\r\nname=Ice\r\ndeveloper=Author\r\nversion=1.0\r\n"
                            "themetype=0\r\n \r\n//Theme Type 0 Info\r\nskinfile=skin.bmp\r\n"
                            "skintransparency=0\r\n"));
    }

    void dumpListsEveryFieldThenTheEditorState()
    {
        QCOMPARE(cli({"new", "-s", "themetype=0", "-s", "includecolors=1", "-o", "d.skt"}).status, 0);
        const ProgramRun r = cli({"dump", "d.skt"});
        QCOMPARE(r.status, 0);
        QVERIFY2(r.err.isEmpty(), r.err.constData());
        const QJsonObject o = QJsonDocument::fromJson(r.out).object();
        QCOMPARE(o.value(QStringLiteral("themetype")).toInt(-1), 0);
        QCOMPARE(o.value(QStringLiteral("name")).toString(), QStringLiteral("Stakko Theme"));
        QCOMPARE(o.value(QStringLiteral("CurrentThemeFile")).toString(), QStringLiteral("d.skt"));
        // A theme just loaded has nothing unsaved.
        QCOMPARE(o.value(QStringLiteral("DirtyFlag")).toBool(true), false);
        QCOMPARE(o.value(QStringLiteral("colorValues")).toArray().size(), 12);
        // Keys come in the document's order, not sorted.
        QVERIFY(r.out.indexOf("\"name\"") < r.out.indexOf("\"developer\""));
        QVERIFY(r.out.indexOf("\"midi\"") < r.out.indexOf("\"CurrentThemeFile\""));
    }

    void failedLoadIsNeverWrittenOver_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("errorStart");
        QTest::newRow("no theme type") << QByteArray("[Theme Info]\r\nname=X\r\n")
                                       << QByteArray("Error: Could not load bad.skt.\nLocation: Themetype");
        QTest::newRow("unknown theme type") << QByteArray("[Theme Info]\r\nthemetype=2\r\n")
                                            << QByteArray("Error: Could not load bad.skt.\nIts theme type \"2\"");
    }

    void failedLoadIsNeverWrittenOver()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, errorStart);
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("bad.skt")), bytes));

        const ProgramRun dump = cli({"dump", "bad.skt"});
        QCOMPARE(dump.status, 1);
        QVERIFY2(dump.err.startsWith(errorStart), dump.err.constData());
        const ProgramRun set = cli({"set", "bad.skt", "-s", "name=Y"});
        QCOMPARE(set.status, 1);
        QVERIFY2(set.err.contains("bad.skt did not load as a theme, so it was not written."), set.err.constData());
        QCOMPARE(fileBytes(QStringLiteral("bad.skt")), bytes);
    }

    void setLoadsChangesAndWritesBack()
    {
        QCOMPARE(cli({"new", "-s", "themetype=0", "-s", "includesounds=1", "-s", "drop=d.wav", "-o", "s.skt"}).status, 0);
        QCOMPARE(cli({"set", "s.skt", "-s", "lose=l.wav", "-o", "s2.skt"}).status, 0);
        QVERIFY(fileBytes(QStringLiteral("s2.skt")).endsWith("//Sounds\r\ndrop=d.wav\r\nlose=l.wav\r\n"));
        QCOMPARE(cli({"set", "s.skt", "-s", "name=Renamed"}).status, 0);
        QVERIFY(fileBytes(QStringLiteral("s.skt")).contains("\r\nname=Renamed\r\n"));
    }

    void setSplitsImageTextsAsBrowseDoes_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<QString>("include");
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("extension");
        QTest::newRow("background") << "bgimage" << "includebackground" << "bgfilename" << "bgextension";
        QTest::newRow("internet background") << "inetbgimage" << "includeinetbackground" << "inetbgfilename"
                                             << "inetbgextension";
        QTest::newRow("blocks") << "blkimage" << "includeblocks" << "blkfilename" << "blkextension";
        QTest::newRow("next block") << "nextblkimage" << "includenextwindow" << "nextblkfilename" << "nextblkextension";
        QTest::newRow("special window") << "specialwindowimage" << "includespecialwindow" << "specialwindowfilename"
                                        << "specialwindowextension";
        QTest::newRow("explosion") << "explodeimage" << "includeexplosion" << "explodefilename"
                                   << "explodefileextension";
        QTest::newRow("bomb") << "bombimage" << "includebomb" << "Bombfilename" << "bombfileextension";
    }

    void setSplitsImageTextsAsBrowseDoes()
    {
        QFETCH(QString, image);
        QFETCH(QString, include);
        QFETCH(QString, root);
        QFETCH(QString, extension);
        QCOMPARE(cli({"new", "-s", "resourcefile=Img.zip", "-s", include + "=1", "-o", "img.skt"}).status, 0);
        const ProgramRun r = cli({"set", "img.skt", "-s", image + "=gfx\\frame1.bmp"});
        QCOMPARE(r.status, 0);
        const QByteArray bytes = fileBytes(QStringLiteral("img.skt"));
        QVERIFY2(bytes.contains("\r\n" + root.toLatin1() + "=gfx\\frame\r\n"), bytes.constData());
        QVERIFY2(bytes.contains("\r\n" + extension.toLatin1() + "=bmp\r\n"), bytes.constData());
    }

    void setWritesAThemeWhosePackageIsNotBuiltYet()
    {
        QCOMPARE(cli({"new", "-s", "resourcefile=Later.zip", "-o", "later.skt"}).status, 0);
        const ProgramRun r = cli({"set", "later.skt", "-s", "name=Later"});
        QCOMPARE(r.status, 0);
        QVERIFY2(r.err.startsWith("Warning: Could not load resource file "), r.err.constData());
        QVERIFY(fileBytes(QStringLiteral("later.skt")).contains("\r\nname=Later\r\n"));
        // Other commands still count it an error.
        QCOMPARE(cli({"dump", "later.skt"}).status, 1);
    }

    void buildListsTheCheckErrorsOfWhatItPacked()
    {
        QImage frame(192, 352, QImage::Format_RGB32);
        frame.fill(Qt::darkBlue);
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("painted/bg1.bmp")), imageBytes(frame, "PNG")));
        QCOMPARE(cli({"new", "-s", "resourcefile=Painted.zip", "-s", "includebackground=1", "-s", "bgimage=bg1.bmp",
                      "-s", "bgframecount=1", "-o", "painted.skt"})
                     .status,
                 0);
        const ProgramRun r = cli({"build", "painted.skt", "--from", "painted"});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains("error image-format bgfilename: Frame 1 of Game Background is a PNG picture"),
                 r.err.constData());
        QVERIFY2(r.out.endsWith("/Painted.zip: 1 files\n"), r.out.constData());
        QVERIFY(QFile::exists(m_dir.filePath(QStringLiteral("Painted.zip"))));
    }

    void describePrintsStoredBytes()
    {
        const ProgramRun r = cli({"describe"});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out.count("\r\n"), 21);
        QVERIFY(r.out.startsWith("//Theme Name: Stakko Theme\r\n"));
    }

    void packAndUnpack()
    {
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("art/gfx/bg1.bmp")), "frame"));
        QCOMPARE(cli({"pack", "-o", "Ice.zip", "--root", "art", "art/gfx/bg1.bmp"}).status, 0);
        const ProgramRun r = cli({"unpack", "Ice.zip"});
        QCOMPARE(r.status, 0);
        const QString folder = QString::fromUtf8(r.out).trimmed();
        QCOMPARE(folder, m_dir.filePath(QStringLiteral("tmp/stakko/Ice/")));
        QVERIFY(QFile::exists(folder + QStringLiteral("gfx/bg1.bmp")));

        // A lowered cap stops the unpacking and takes back what it wrote.
        const ProgramRun capped = cli({"unpack", "--max-unpacked-bytes", "4", "Ice.zip"});
        QCOMPARE(capped.status, 1);
        QVERIFY2(capped.err.contains("Extraction stopped: the package would write more than 4 bytes."),
                 capped.err.constData());

        const ProgramRun missing = cli({"unpack", "Nope.zip"});
        QCOMPARE(missing.status, 1);
        QVERIFY(missing.err.startsWith("Error: Could not load resource file Nope.zip\n"));
    }

    void checkAndBuildTellByStatus_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("out");
        // A program run from its build names the build's manual.
        const QUrl checking = QUrl::fromLocalFile(qEnvironmentVariable("STAKKO_BUILD_DIR") + QStringLiteral("/docs/html/checking.html"));
        const QByteArray manualLine = "What each code means and what to do: " + checking.toEncoded() + '\n';
        QUrl section = checking;
        section.setFragment(QStringLiteral("code-file-missing"));
        QTest::newRow("clean") << QStringList{"check", "clean.skt"} << 0 << QByteArray("no problems\n");
        QTest::newRow("warnings only") << QStringList{"check", "unused.skt"} << 0
                                       << QByteArray("warning file-unused resourcefile: Package entry \"x.txt\" is "
                                                     "named by no included section\n0 errors, 1 warning\n") + manualLine;
        QTest::newRow("an error") << QStringList{"check", "broken.skt"} << 1
                                  << QByteArray("error file-missing rotate: Rotate Block \"r.wav\" is missing (r.wav)\n"
                                                "1 error, 0 warnings\n") + manualLine;
        QTest::newRow("json") << QStringList{"check", "--json", "broken.skt"} << 1
                              << QByteArray("[\n  {\"severity\": \"error\", \"code\": \"file-missing\", "
                                            "\"field\": \"rotate\", \"file\": \"r.wav\", \"message\": "
                                            "\"Rotate Block \\\"r.wav\\\" is missing (r.wav)\", \"manual\": \"")
                                     + section.toEncoded() + "\"}\n]\n";
        QTest::newRow("no theme") << QStringList{"check"} << 2 << QByteArray();
        QTest::newRow("build") << QStringList{"build", "unused.skt", "-o", "Y.zip"} << 0 << QByteArray("Y.zip: 0 files\n");
        QTest::newRow("build, a file missing") << QStringList{"build", "broken1.skt"} << 1 << QByteArray();
        QTest::newRow("build, Type 0") << QStringList{"build", "clean.skt"} << 1 << QByteArray();
        QTest::newRow("build, no theme") << QStringList{"build", "--relink"} << 2 << QByteArray();
    }

    void checkAndBuildTellByStatus()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        QFETCH(QByteArray, out);
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("x.txt")), "x"));
        const QStringList makeThemes[] = {
            {"pack", "-o", "X.zip", "x.txt"},
            {"new", "-s", "resourcefile=X.zip", "-o", "unused.skt"},
            {"new", "-s", "themetype=0", "-o", "clean.skt"},
            {"new", "-s", "themetype=0", "-s", "includesounds=1", "-s", "rotate=r.wav", "-o", "broken.skt"},
            {"new", "-s", "resourcefile=B.zip", "-s", "includesounds=1", "-s", "rotate=r.wav", "-o", "broken1.skt"},
        };
        for (const QStringList &made : makeThemes)
            QCOMPARE(cli(made).status, 0);

        const ProgramRun r = cli(args);
        QCOMPARE(r.status, status);
        QCOMPARE(r.out, out);
        if (args.first() == u"build" && status == 1)
            QVERIFY2(r.err.contains(args.contains(u"clean.skt") ? "Theme Type 0" : "error file-missing rotate"),
                     r.err.constData());
        if (args.first() == u"build")
            QCOMPARE(QFile::exists(m_dir.filePath(QStringLiteral("B.zip"))), false);
        if (args.contains(QStringLiteral("--json")))
            QVERIFY(QJsonDocument::fromJson(r.out).isArray());
    }

    void buildPacksNothingFromOutsideItsFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("relink");
        for (const char *name : {"../secret.txt", "a/../../secret.txt", "./../secret.txt", "..\\secret.txt",
                                 "leak.txt", "linked/secret.txt"}) {
            QTest::addRow("%s", name) << QString::fromLatin1(name) << false;
            QTest::addRow("%s, --relink", name) << QString::fromLatin1(name) << true;
        }
    }

    void buildPacksNothingFromOutsideItsFolder()
    {
        QFETCH(QString, name);
        QFETCH(bool, relink);
        // A folder per row: the theme, its art, private files beside the art and links to them; all
        // pictures the game reads, so that only where they lie can fail the build.
        QImage picture(4, 4, QImage::Format_RGB888);
        picture.fill(Qt::blue);
        const QByteArray bitmap = imageBytes(picture, "BMP");
        static int row = 0;
        const QString folder = QStringLiteral("hostile-%1").arg(++row);
        QVERIFY(writeFile(m_dir.filePath(folder + "/secret.txt"), bitmap));
        QVERIFY(writeFile(m_dir.filePath(folder + "/outside/secret.txt"), bitmap));
        QVERIFY(writeFile(m_dir.filePath(folder + "/art/main.txt"), bitmap));
        QVERIFY(QFile::link(m_dir.filePath(folder + "/secret.txt"), m_dir.filePath(folder + "/art/leak.txt")));
        QVERIFY(QFile::link(m_dir.filePath(folder + "/outside"), m_dir.filePath(folder + "/art/linked")));
        const QString theme = folder + "/H.skt";
        QCOMPARE(cli({"new", "-s", "resourcefile=H.zip", "-s", "includeinterface=1", "-s", "ifacemain=" + name,
                      "-s", "ifaceoptions=main.txt", "-o", theme})
                     .status,
                 0);
        QStringList args{"build", theme, "--from", folder + "/art"};
        if (relink)
            args << "--relink";

        const ProgramRun r = cli(args);

        const QString package = m_dir.filePath(folder + "/H.zip");
        if (!relink) {
            QCOMPARE(r.status, 1);
            QVERIFY2(r.err.contains("error path-outside ifacemain: ") && r.err.contains(name.toUtf8()), r.err.constData());
            QVERIFY(!QFile::exists(package));
            return;
        }
        QCOMPARE(r.status, 0);
        // Stored under its own name, whatever way led to it.
        const QByteArray own = name.mid(std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1).toUtf8();
        QVERIFY2(r.out.contains("relinked ifacemain: " + own + '\n'), r.out.constData());
        QVERIFY(fileBytes(theme).contains("\r\nifacemain=" + own + "\r\n"));
        QCOMPARE(RawZip::centralNames(readFile(package)), (QList<QByteArray>{own, "main.txt"}));
    }
};

QTEST_GUILESS_MAIN(CliTest)
#include "tst_cli.moc"
