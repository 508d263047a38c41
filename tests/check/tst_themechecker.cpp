// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The theme checker: one theme per problem code, each a clean theme with one thing broken.

#include "check/backgroundcheck.h"
#include "check/themechecker.h"
#include "common/fieldvalues.h"
#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "package/packagewriter.h"
#include "package/resourcepackage.h"

#include <QDir>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using Files = QMap<QString, QByteArray>; // package entries; a null array removes one

namespace {

QByteArray picture(int width, int height, const char *format = "PNG")
{
    return imageBytes(solidImage({width, height}, qRgb(0, 128, 128)), format);
}

// The kind of picture the game reads.
QByteArray bmp(int width, int height)
{
    return picture(width, height, "BMP");
}

/** A bitmap stored from the top row down, which its negative height says. */
QByteArray topDownBitmap(int width, int height)
{
    QByteArray bytes = picture(width, height, "BMP");
    qToLittleEndian<qint32>(-height, bytes.data() + 22);
    return bytes;
}

/** A mono 8-bit wave of eight samples. */
QByteArray wave(quint32 encoding, bool extensible = false)
{
    return waveBytes(QByteArray(8, '\x80'), 8000, 8, encoding, extensible);
}

const QByteArray midi("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0", 26);

// The clean theme: one file of each kind, all in its package.
const Fields baseFields{
    {"resourcefile", "Theme.zip"}, {"includeinterface", "1"}, {"ifacemain", "main.bmp"},
    {"includebackground", "1"}, {"bganimated", "1"}, {"bgfilename", "bg"}, {"bgextension", "bmp"},
    {"bgframecount", "2"}, {"includecolors", "1"}, {"colortitle", "1,2,3"}, {"includesounds", "1"},
    {"rotate", "rotate.wav"}, {"includemusic", "1"}, {"midi", "song.mid"},
};

Files baseFiles()
{
    return {{"main.bmp", bmp(8, 8)}, {"bg1.bmp", bmp(192, 352)}, {"bg2.bmp", bmp(192, 352)},
            {"rotate.wav", wave(1)}, {"song.mid", midi}};
}

QStringList kinds(const Report &report)
{
    QStringList found;
    for (const Problem &p : report.problems) {
        const bool error = p.severity == Problem::Severity::Error;
        found.append(QStringList{error ? "error" : "warning", p.code, p.field}.join(u' ').trimmed());
    }
    return found;
}

} // namespace

class ThemeCheckerTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_temp;

private slots:
    void eachCodeAlone_data()
    {
        QTest::addColumn<Fields>("written");    // set before the theme is saved
        QTest::addColumn<Files>("files");
        QTest::addColumn<QByteArray>("themeFile"); // replaces the saved theme file unless null
        QTest::addColumn<Fields>("edited");     // set after loading, then checked again
        QTest::addColumn<QStringList>("expected");

        Files manyFrames;
        for (int n = 3; n <= 95; ++n)
            manyFrames.insert(QStringLiteral("bg%1.bmp").arg(n), bmp(192, 352));
        const QByteArray none;

        QTest::newRow("clean") << Fields{} << Files{} << none << Fields{} << QStringList{};
        QTest::newRow("top-down bitmap") << Fields{} << Files{{"bg2.bmp", topDownBitmap(192, 352)}} << none
                                         << Fields{} << QStringList{};
        QTest::newRow("extensible wave") << Fields{} << Files{{"rotate.wav", wave(3, true)}} << none << Fields{}
                                         << QStringList{};
        QTest::newRow("theme-unreadable") << Fields{} << Files{} << QByteArray("shopping list\n") << Fields{}
                                          << QStringList{"error theme-unreadable"};
        QTest::newRow("package-missing") << Fields{{"resourcefile", "Nope.zip"}} << Files{} << none << Fields{}
                                         << QStringList{"error package-missing resourcefile"};
        QTest::newRow("package-unreadable") << Fields{{"resourcefile", "Theme.skt"}} << Files{} << none << Fields{}
                                            << QStringList{"error package-unreadable resourcefile"};
        QTest::newRow("file-missing") << Fields{} << Files{{"main.bmp", none}} << none << Fields{}
                                      << QStringList{"error file-missing ifacemain"};
        QTest::newRow("frame-missing") << Fields{} << Files{{"bg2.bmp", none}} << none << Fields{}
                                       << QStringList{"error frame-missing bgfilename"};
        QTest::newRow("image-unreadable") << Fields{} << Files{{"main.bmp", "no picture"}} << none << Fields{}
                                          << QStringList{"error image-unreadable ifacemain"};
        QTest::newRow("number-invalid") << Fields{{"bgdelaybetweenframes", "-1"}} << Files{} << none << Fields{}
                                        << QStringList{"error number-invalid bgdelaybetweenframes"};
        QTest::newRow("number-invalid still") << Fields{{"bgstillframe", "1.5"}} << Files{} << none << Fields{}
                                              << QStringList{"error number-invalid bgstillframe"};
        QTest::newRow("colour-invalid") << Fields{{"colortitle", "256,0,0"}} << Files{} << none << Fields{}
                                        << QStringList{"error colour-invalid colortitle"};
        QTest::newRow("sound-unplayable") << Fields{} << Files{{"rotate.wav", wave(0x55)}} << none << Fields{}
                                          << QStringList{"error sound-unplayable rotate"};
        QTest::newRow("music-unplayable") << Fields{} << Files{{"song.mid", "MThd"}} << none << Fields{}
                                          << QStringList{"error music-unplayable midi"};
        QTest::newRow("text-not-ansi") << Fields{} << Files{} << none << Fields{{"name", "Snow \u2603"}}
                                       << QStringList{"error text-not-ansi name"};
        QTest::newRow("path-absolute type 1") << Fields{{"resourcefile", "%DIR%/Theme.zip"}} << Files{} << none
                                              << Fields{} << QStringList{"error path-absolute resourcefile"};
        QTest::newRow("path-absolute type 0")
            << Fields{{"themetype", "0"}, {"includesounds", "0"}, {"includemusic", "0"},
                      {"ifacemain", "%DIR%/files/main.bmp"}}
            << Files{} << none << Fields{} << QStringList{"warning path-absolute ifacemain"};
        // Links that lead out are found by the same check, seen from the build of an art folder.
        for (const char *name : {"../main.png", "gfx/../../main.png", "./../main.png", "..\\main.png"})
            QTest::addRow("path-outside %s", name)
                << Fields{{"ifacemain", name}} << Files{} << none << Fields{}
                << QStringList{"error path-outside ifacemain", "warning file-unused resourcefile"};
        QTest::newRow("path-outside before any build")
            << Fields{{"resourcefile", "Nope.zip"}, {"ifacemain", "../main.png"}} << Files{} << none << Fields{}
            << QStringList{"error package-missing resourcefile", "error path-outside ifacemain"};
        QTest::newRow("path-outside type 0")
            << Fields{{"themetype", "0"}, {"includesounds", "0"}, {"includemusic", "0"}, {"ifacemain", "../main.png"}}
            << Files{} << none << Fields{} << QStringList{"warning path-outside ifacemain"};
        QTest::newRow("frame-size") << Fields{} << Files{{"bg2.bmp", bmp(100, 100)}} << none << Fields{}
                                    << QStringList{"warning frame-size bgfilename"};
        QTest::newRow("frame-limit") << Fields{{"bgframecount", "95"}} << manyFrames << none << Fields{}
                                     << QStringList{"warning frame-limit bgframecount"};
        QTest::newRow("start-beyond-count") << Fields{{"bgstartingframe", "3"}} << Files{} << none << Fields{}
                                            << QStringList{"warning start-beyond-count bgstartingframe"};
        QTest::newRow("file-unused") << Fields{} << Files{{"extra.bmp", bmp(8, 8)}} << none << Fields{}
                                     << QStringList{"warning file-unused resourcefile"};
        QTest::newRow("name-collision") << Fields{} << Files{{"MAIN.bmp", bmp(8, 8)}} << none << Fields{}
                                        << QStringList{"warning name-collision resourcefile"};
        QTest::newRow("section-dropped") << Fields{} << Files{} << none << Fields{{"themetype", "0"}}
                                         << QStringList{"warning section-dropped includebackground",
                                                        "warning section-dropped includecolors"};
        QTest::newRow("description-key") << Fields{} << Files{} << none
                                         << Fields{{"description", "//About\r\n[Theme Info]\nname=Other"}}
                                         << QStringList{"warning description-key description",
                                                        "warning description-key description"};
        QTest::newRow("description-placeholder")
            << Fields{{"description", "//Ice\r\n//!!!!ENTER YOUR DESCRIPTION HERE!!!!\r\n"}} << Files{} << none
            << Fields{} << QStringList{"warning description-placeholder description"};
        QTest::newRow("value-changes-on-load") << Fields{} << Files{} << none << Fields{{"version", "1.0 "}}
                                               << QStringList{"warning value-changes-on-load version"};
        QTest::newRow("value-changes-on-load quoted") << Fields{} << Files{} << none << Fields{{"name", "'Ice'"}}
                                                      << QStringList{"warning value-changes-on-load name"};
        QTest::newRow("errors before warnings")
            << Fields{} << Files{{"bg2.bmp", bmp(100, 100)}, {"rotate.wav", "junk"}} << none << Fields{}
            << QStringList{"error sound-unplayable rotate", "warning frame-size bgfilename"};
    }

    void eachCodeAlone()
    {
        QFETCH(Fields, written);
        QFETCH(Files, files);
        QFETCH(QByteArray, themeFile);
        QFETCH(Fields, edited);
        QFETCH(QStringList, expected);

        // A temporary folder of its own: no row sees what another one unpacked.
        QTemporaryDir dir(m_temp.filePath(QStringLiteral("row-XXXXXX")));
        qputenv("TMPDIR", QFile::encodeName(dir.path()));
        Files all = baseFiles();
        for (auto it = files.cbegin(); it != files.cend(); ++it) {
            if (it->isNull())
                all.remove(it.key());
            else
                all.insert(it.key(), *it);
        }
        QStringList packed;
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("files")));
        for (auto it = all.cbegin(); it != all.cend(); ++it) {
            packed.append(dir.filePath(QStringLiteral("files/") + it.key()));
            QVERIFY(writeFile(packed.last(), *it));
        }
        QVERIFY(writeResourcePackage(dir.filePath(QStringLiteral("Theme.zip")), packed,
                                     dir.filePath(QStringLiteral("files"))));

        ThemeDocument saved;
        saved.resetTheme();
        setFields(saved, baseFields + written, dir.path());
        const QString theme = dir.filePath(QStringLiteral("Theme.skt"));
        QVERIFY(writeThemeFile(saved, theme));
        if (!themeFile.isNull())
            QVERIFY(writeFile(theme, themeFile));

        ThemeDocument doc;
        ScriptedDialogs dialogs;
        Report report = checkThemeFile(doc, theme, dialogs);
        if (!edited.isEmpty()) {
            QVERIFY2(report.isEmpty(), qPrintable(report.lines().join(u'\n')));
            setFields(doc, edited, dir.path());
            report = checkTheme(doc);
        }
        QCOMPARE(kinds(report), expected);
    }

    void imageFormatNamesWhatItFound_data()
    {
        QTest::addColumn<QByteArray>("bytes"); // of "main.bmp"
        QTest::addColumn<QString>("says");     // "": no image-format error
        // A GIF of 2x2 red pixels.
        const QByteArray gif = QByteArray::fromHex("47494638396102000200f00000ff000000000021f90400000000002c000000"
                                                   "00020002000002028451003b");
        QTest::newRow("Windows bitmap") << bmp(8, 8) << QString();
        QTest::newRow("JPEG") << picture(8, 8, "JPEG") << QString();
        QTest::newRow("PNG renamed .bmp") << picture(8, 8, "PNG") << "is a PNG picture, not a Windows bitmap or JPEG";
        QTest::newRow("GIF") << gif << "is a GIF picture, not a Windows bitmap or JPEG";
    }

    void imageFormatNamesWhatItFound()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, says);
        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(QStringLiteral("main.bmp")), bytes));
        ThemeDocument doc;
        doc.resetTheme();
        setFields(doc, {{"includeinterface", "1"}, {"ifacemain", "main.bmp"}});
        doc.setPackageFolder(dir.path() + u'/', dir.path() + u'/');
        const Report report = checkTheme(doc);
        QCOMPARE(kinds(report), says.isEmpty() ? QStringList() : QStringList{"error image-format ifacemain"});
        if (!says.isEmpty())
            QVERIFY2(report.problems.first().text.contains(says), qPrintable(report.problems.first().text));
    }

    // A file chosen outside the package folder is looked for, and named, at its own path.
    void filesOutsideThePackageAreNamedByFullPath_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QString>("path"); // below the test folder
        QTest::newRow("sound") << Fields{{"includesounds", "1"}, {"drop", "%DIR%/art/drop.wav"}} << "art/drop.wav";
        QTest::newRow("music") << Fields{{"includemusic", "1"}, {"midi", "%DIR%/art/song.mid"}} << "art/song.mid";
        QTest::newRow("interface screen") << Fields{{"includeinterface", "1"}, {"ifacemain", "%DIR%/art/main.bmp"}}
                                          << "art/main.bmp";
        QTest::newRow("frame") << Fields{{"includebackground", "1"}, {"bgfilename", "%DIR%/art/bg"},
                                         {"bgextension", "bmp"}, {"bgframecount", "1"}}
                               << "art/bg1.bmp";
    }

    void filesOutsideThePackageAreNamedByFullPath()
    {
        QFETCH(Fields, fields);
        QFETCH(QString, path);
        QTemporaryDir dir;
        const QString package = dir.filePath(QStringLiteral("theme-art/"));
        ThemeDocument doc;
        doc.resetTheme();
        setFields(doc, fields, dir.path());
        doc.setPackageFolder(package, package);
        doc.setMusicFolder(package);
        const QString full = dir.filePath(path);

        Report report = checkTheme(doc);
        report.problems.removeIf([](const Problem &p) { return p.code == u"path-absolute"; });
        QCOMPARE(report.problems.size(), 1);
        QCOMPARE(report.problems.first().file, full);
        QVERIFY2(report.problems.first().text.endsWith(QStringLiteral(" is missing (") + full + u')'),
                 qPrintable(report.problems.first().text));

        // Once there, it is found there.
        QVERIFY(writeFile(full, path.endsWith(u".wav") ? wave(1) : path.endsWith(u".mid") ? midi : bmp(192, 352)));
        report = checkTheme(doc);
        QCOMPARE(kinds(report).filter(QStringLiteral("missing")), QStringList());
    }

    void playButtonsSayWhyNot_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("name");     // "%DIR%" the test folder
        QTest::addColumn<QByteArray>("bytes"); // written at the name unless null
        QTest::addColumn<QString>("says");     // "%DIR%" the test folder, "%PKG%" the package folder
        QTest::newRow("plays") << "rotate" << "r.wav" << wave(1) << "";
        QTest::newRow("nothing named") << "rotate" << "" << QByteArray() << "Rotate Block names no file to play";
        QTest::newRow("missing") << "rotate" << "r.wav" << QByteArray()
                                 << "Rotate Block \"r.wav\" is missing (%PKG%r.wav)";
        QTest::newRow("chosen outside the package") << "drop" << "%DIR%/art/drop.wav" << QByteArray()
                                                    << "Drop Block \"%DIR%/art/drop.wav\" is missing (%DIR%/art/drop.wav)";
        QTest::newRow("no wave") << "rotate" << "r.wav" << QByteArray("junk")
                                 << "Rotate Block \"r.wav\" is no wave file that can be played (%PKG%r.wav)";
        QTest::newRow("music plays") << "midi" << "song.mid" << midi << "";
        QTest::newRow("music unplayable") << "midi" << "song.mid" << QByteArray("MThd")
                                          << "Music \"song.mid\" cannot be played: ";
    }

    void playButtonsSayWhyNot()
    {
        QFETCH(QString, key);
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, says);
        QTemporaryDir dir;
        const QString package = dir.filePath(QStringLiteral("pkg/"));
        name.replace(QStringLiteral("%DIR%"), dir.path());
        says.replace(QStringLiteral("%DIR%"), dir.path()).replace(QStringLiteral("%PKG%"), package);
        if (!bytes.isNull())
            QVERIFY(writeFile(package + name, bytes));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setText(key, name);
        doc.setPackageFolder(package, package);
        doc.setMusicFolder(package);
        const QString problem = playProblem(doc, key);
        QVERIFY2(says.isEmpty() ? problem.isEmpty() : problem.startsWith(says), qPrintable(problem));
    }

    void sampleThemeIsClean()
    {
        QTemporaryDir dir(m_temp.filePath(QStringLiteral("sample-XXXXXX")));
        qputenv("TMPDIR", QFile::encodeName(dir.path()));
        ThemeDocument doc;
        ScriptedDialogs dialogs;
        const Report report = checkThemeFile(
            doc, qEnvironmentVariable("STAKKO_SOURCE_DIR") + QStringLiteral("/samples/StakkoSample.skt"), dialogs);
        QVERIFY2(report.isEmpty(), qPrintable(report.lines().join(u'\n')));
    }

    // A check asked for while one runs must not be lost: the last result is the document's now.
    void backgroundCheckEndsOnTheLatestDocument()
    {
        ThemeDocument doc;
        doc.resetTheme();
        setFields(doc, {{"includecolors", "1"}, {"colortitle", "1,2"}});
        BackgroundCheck check(doc);
        QSignalSpy finished(&check, &BackgroundCheck::finished);
        check.start();
        QVERIFY(check.isRunning());
        setFields(doc, {{"colortitle", "1,2,3"}});
        check.start();
        QTRY_VERIFY(!check.isRunning());
        QVERIFY(check.hasResult());
        QVERIFY(!finished.isEmpty());
        QVERIFY(!kinds(checkTheme(doc)).contains(QStringLiteral("error colour-invalid colortitle")));
        QCOMPARE(kinds(check.report()), kinds(checkTheme(doc)));
    }

    void encryptedPackageIsListedWithoutItsPassword()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("a.bmp"));
        QVERIFY(writeFile(file, bmp(8, 8)));
        const QString zip = dir.filePath(QStringLiteral("Secret.zip"));
        const PackageWriteOptions encrypted{PackageEncryption::Aes256, QStringLiteral("pw")};
        QVERIFY(writeResourcePackage(zip, {file}, dir.path(), encrypted));
        QCOMPARE(packageEntryNames(zip).value_or(QStringList()), QStringList{QStringLiteral("a.bmp")});
        QCOMPARE(packageEntryNames(file), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(ThemeCheckerTest)
#include "tst_themechecker.moc"
