// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/packagebuilder.h"
#include "check/themechecker.h"
#include "common/fieldvalues.h"
#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"
#include "package/rawzip.h"
#include "package/resourcepackage.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A Windows bitmap, the picture the game reads, whatever its name says.
QByteArray picture(QRgb color)
{
    return imageBytes(solidImage({8, 8}, color), "BMP");
}

// The art as the theme names it, but in other letter case where Windows would not mind.
const QList<QPair<QString, QByteArray>> art{
    {"gfx/bg1.png", picture(0xff0000)}, {"gfx/bg2.png", picture(0x00ff00)}, {"Main.PNG", picture(0x0000ff)},
    {"rotate.wav", waveBytes(QByteArray(4, '\x80'), 22050, 8)},
    {"song.mid", QByteArray("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0", 26)},
};

const Fields baseFields{
    {"themetype", "1"},        {"resourcefile", "Art.zip"}, {"includebackground", "1"}, {"bganimated", "1"},
    {"bgfilename", "gfx\\bg"}, {"bgextension", "png"},      {"bgframecount", "2"},      {"includeinterface", "1"},
    {"ifacemain", "main.png"}, {"includesounds", "1"},      {"rotate", "rotate.wav"},   {"includemusic", "1"},
    {"midi", "song.mid"},
};

QStringList codes(const Report &report)
{
    QStringList found;
    for (const Problem &p : report.problems)
        found << (p.code + u' ' + p.field).trimmed();
    return found;
}

} // namespace

class PackageBuilderTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_rows = 0;

    // A theme saved beside its art folder, loaded as the editor loads it (no package yet).
    QString prepare(ThemeDocument &doc, const Fields &edits = {})
    {
        const QString root = m_dir.filePath(QStringLiteral("row%1").arg(++m_rows));
        qputenv("TMPDIR", QFile::encodeName(root + QStringLiteral("/tmp")));
        QDir().mkpath(root + QStringLiteral("/tmp")); // a missing one sends packages to the shared cache folder
        for (const auto &[name, bytes] : art)
            writeFile(root + QStringLiteral("/art/") + name, bytes);
        // Private files beside the art folder, and links in it that lead to them.
        writeFile(root + QStringLiteral("/secret.wav"), "private");
        writeFile(root + QStringLiteral("/outside/secret.wav"), "private too");
        writeFile(root + QStringLiteral("/art/secret.wav"), "the art's own");
        QFile::link(root + QStringLiteral("/secret.wav"), root + QStringLiteral("/art/leak.wav"));
        QFile::link(root + QStringLiteral("/outside"), root + QStringLiteral("/art/linked"));
        ThemeDocument saved;
        saved.resetTheme();
        setFields(saved, baseFields + edits, root);
        const QString theme = root + QStringLiteral("/Theme.skt");
        if (!writeThemeFile(saved, theme))
            qFatal("cannot write %s", qPrintable(theme));
        ScriptedDialogs dialogs;
        loadThemeFile(doc, theme, dialogs);
        doc.setCurrentThemeFile(theme);
        return root;
    }

private slots:
    void buildsExactlyTheReferencedFiles()
    {
        ThemeDocument doc;
        const QString root = prepare(doc);
        const BuildReport built = buildResourcePackage(doc, {root + QStringLiteral("/art"), {}, false});
        QVERIFY2(built.written, qPrintable(built.lines().join(u'\n')));
        const QString zip = root + QStringLiteral("/Art.zip");
        QCOMPARE(built.package, zip);
        QCOMPARE(packageEntryNames(zip).value_or(QStringList()),
                 (QStringList{"main.png", "gfx/bg1.png", "gfx/bg2.png", "song.mid", "rotate.wav"}));
        const QByteArray first = readFile(zip);
        QVERIFY(buildResourcePackage(doc, {root + QStringLiteral("/art"), {}, false}).written);
        QCOMPARE(readFile(zip), first); // the same inputs, the same bytes

        // The art goes; the package alone carries the theme, as our extraction and unzip agree.
        QVERIFY(QDir(root + QStringLiteral("/art")).removeRecursively());
        ThemeDocument loaded;
        ScriptedDialogs dialogs;
        const Report report = checkThemeFile(loaded, root + QStringLiteral("/Theme.skt"), dialogs);
        QVERIFY2(!report.hasErrors(), qPrintable(report.lines().join(u'\n')));
        LoadingSurface loading;
        FramePreviews previews(loaded, loading);
        QVERIFY(previews.startFramePreview(AnimatedElementId::Background).isEmpty());
        QCOMPARE(previews.strip(AnimatedElementId::Background).pixel(0, 0) & 0xFFFFFF, 0xff0000u);
        QCOMPARE(previews.strip(AnimatedElementId::Background).pixel(0, 352) & 0xFFFFFF, 0x00ff00u);
        QStringList expected;
        for (const auto &[name, bytes] : art)
            expected << (name == u"Main.PNG" ? QStringLiteral("main.png") : name) + u'=' + QString::fromUtf8(bytes);
        expected.sort();
        QCOMPARE(contentsBelow(loaded.packageFolder()), expected);
        if (QStandardPaths::findExecutable(QStringLiteral("unzip")).isEmpty())
            QSKIP("Info-ZIP unzip is not installed: the comparison with it was skipped");
        QProcess unzip;
        unzip.start(QStringLiteral("unzip"), {QStringLiteral("-q"), zip, QStringLiteral("-d"), root + QStringLiteral("/unzipped")});
        QVERIFY(unzip.waitForFinished() && unzip.exitCode() == 0);
        QCOMPARE(contentsBelow(root + QStringLiteral("/unzipped")), expected);
    }

    void refusedOrRelinked_data()
    {
        QTest::addColumn<Fields>("edits");
        QTest::addColumn<bool>("relink");
        QTest::addColumn<QStringList>("problems");
        QTest::addColumn<Fields>("after"); // fields once written; empty when nothing is
        QTest::newRow("frames missing, all listed") << Fields{{"bgframecount", "4"}} << false
                                                  << QStringList{"frame-missing bgfilename", "frame-missing bgfilename"}
                                                  << Fields{};
        QTest::newRow("sound missing") << Fields{{"rotate", "gone.wav"}} << false << QStringList{"file-missing rotate"}
                                       << Fields{};
        QTest::newRow("absolute path") << Fields{{"midi", "%DIR%/art/song.mid"}} << false
                                       << QStringList{"path-absolute midi"} << Fields{};
        QTest::newRow("absolute path relinked beside a name in use")
            << Fields{{"drop", "rotate.wav"}, {"rotate", "%DIR%/art/rotate.wav"}} << true << QStringList{}
            << Fields{{"rotate", "rotate-2.wav"}, {"drop", "rotate.wav"}};
        QTest::newRow("absolute frames relinked")
            << Fields{{"bgfilename", "%DIR%/art/gfx/bg"}} << true << QStringList{}
            << Fields{{"bgfilename", "bg"}, {"bgimage", "bg1.png"}};
        QTest::newRow("absolute and missing, relinked") << Fields{{"rotate", "%DIR%/nowhere/x.wav"}} << true
                                                        << QStringList{"file-missing rotate"} << Fields{};
        QTest::newRow("Type 0") << Fields{{"themetype", "0"}} << false << QStringList{"themetype"} << Fields{};
        // Names that lead out of the folder: refused as absolute ones are, or stored under their own names.
        for (const char *name : {"../secret.wav", "gfx/../../secret.wav", "./../secret.wav", "..\\secret.wav",
                                 "leak.wav", "linked/secret.wav"}) {
            QTest::addRow("%s", name) << Fields{{"rotate", name}} << false << QStringList{"path-outside rotate"}
                                      << Fields{};
            QTest::addRow("%s relinked", name) << Fields{{"rotate", name}} << true << QStringList{}
                                               << Fields{{"rotate", qstrcmp(name, "leak.wav") == 0 ? "leak.wav" : "secret.wav"}};
        }
        QTest::newRow("climb relinked beside a name in use")
            << Fields{{"drop", "secret.wav"}, {"rotate", "../secret.wav"}} << true << QStringList{}
            << Fields{{"rotate", "secret-2.wav"}, {"drop", "secret.wav"}};
        QTest::newRow("frames out of the folder relinked")
            << Fields{{"bgfilename", "../art/gfx/bg"}} << true << QStringList{}
            << Fields{{"bgfilename", "bg"}, {"bgimage", "bg1.png"}};
    }

    void refusedOrRelinked()
    {
        QFETCH(Fields, edits);
        QFETCH(bool, relink);
        QFETCH(QStringList, problems);
        QFETCH(Fields, after);
        ThemeDocument doc;
        const QString root = prepare(doc, edits);
        const BuildReport built = buildResourcePackage(doc, {root + QStringLiteral("/art"), {}, relink});
        QCOMPARE(codes(built), problems);
        for (const Problem &p : built.problems) {
            if (p.code == u"path-outside")
                QVERIFY2(!p.file.isEmpty() && p.text.contains(p.file), qPrintable(p.text));
        }
        QCOMPARE(built.written, !after.isEmpty());
        QCOMPARE(QFile::exists(root + QStringLiteral("/Art.zip")), built.written);
        for (const auto &[key, value] : after)
            QCOMPARE(doc.value(key), value);
        if (built.written) {
            const QStringList entries = packageEntryNames(built.package).value_or(QStringList());
            for (const auto &[key, value] : after)
                QVERIFY2(key == u"bgfilename" || entries.contains(value), qPrintable(value));
            for (const QByteArray &name : RawZip::centralNames(readFile(built.package)))
                QVERIFY2(!RawZip::leadsOutside(name), name.constData());
            // A relinked sound carries the bytes its old name led to.
            ScriptedDialogs dialogs;
            const QString unpacked = extractResourcePackage(built.package, dialogs).location.folder;
            QString rotate;
            for (const auto &[key, value] : edits)
                rotate = key == u"rotate" ? value : rotate;
            if (rotate.contains(QStringLiteral("secret")) || rotate == u"leak.wav")
                QCOMPARE(readFile(unpacked + doc.value(u"rotate")),
                         rotate.startsWith(u"linked") ? QByteArray("private too") : QByteArray("private"));
        }
    }

    void cancelKeepsTheOldPackage()
    {
        ThemeDocument doc;
        const QString root = prepare(doc);
        const QString zip = root + QStringLiteral("/Art.zip");
        QVERIFY(writeFile(zip, "the old package"));
        qsizetype calls = 0;
        const BuildReport built = buildResourcePackage(doc, {root + QStringLiteral("/art"), {}, false},
                                                       [&calls](qsizetype done, qsizetype total) {
                                                           ++calls;
                                                           return done < total / 2;
                                                       });
        QVERIFY(!built.written);
        QCOMPARE(calls, 2); // 5 entries: stopped after the second
        QCOMPARE(readFile(zip), QByteArray("the old package"));
        QCOMPARE(QDir(root).entryList(QDir::Files | QDir::Hidden), (QStringList{"Art.zip", "secret.wav", "Theme.skt"}));
    }
};

QTEST_GUILESS_MAIN(PackageBuilderTest)
#include "tst_packagebuilder.moc"
