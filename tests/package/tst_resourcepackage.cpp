// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/resourcepackage.h"

#include "common/ansitext.h"
#include "common/pathlookup.h"
#include "common/runprogram.h"
#include "common/scripteddialogs.h"
#include "common/smalldisk.h"
#include "common/testfiles.h"
#include "rawzip.h"

#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using RawZip::Kind;

using Answers = QList<std::optional<QString>>;
Q_DECLARE_METATYPE(PackageWriteOptions)

namespace {

/** Writes "content of <name>" to each name below \a root; returns their paths. */
QStringList makeFiles(const QString &root, const QStringList &names, const QByteArray &content = {})
{
    QStringList files;
    for (const QString &name : names) {
        files.append(root + u'/' + name);
        writeFile(files.last(), content.isNull() ? "content of " + name.toUtf8() : content);
    }
    return files;
}

QString errorLine(const QString &path, const QString &reason)
{
    return "Error: Could not load resource file " + path + u'\n' + reason;
}

} // namespace

class ResourcePackageTest : public QObject
{
    Q_OBJECT

private:
    // Its "tmp" sub-folder stands in for the system temporary folder, so package folders never land there.
    std::unique_ptr<QTemporaryDir> m_work;
    QString m_temp;
    QByteArray m_realTemp = qgetenv("TMPDIR");
    QByteArray m_realCache = qgetenv("XDG_CACHE_HOME");

    // What packedPackage() unpacks to by default.
    const QStringList m_packed{"gfx/bg1.bmp=content of gfx/bg1.bmp", "gfx/bg2.bmp=content of gfx/bg2.bmp",
                               "snd/drop.wav=content of snd/drop.wav"};

    QString work(const QString &relative) const { return m_work->filePath(relative); }
    QString iceFolder() const { return m_temp + "/stakko/Ice/"; }

    QString rawPackage(const QList<RawZip::Entry> &entries) const
    {
        const QString path = work("themes/Ice.zip");
        writeFile(path, RawZip::build(entries));
        return path;
    }

    /** A real package of three files (or \a names holding \a content), packed from work/src. */
    QString packedPackage(const PackageWriteOptions &options = {},
                          const QStringList &names = {"gfx/bg1.bmp", "gfx/bg2.bmp", "snd/drop.wav"},
                          const QByteArray &content = {}) const
    {
        const QString root = work("src");
        const QStringList files = makeFiles(root, names, content);
        const QString path = work("themes/Ice.zip");
        QDir().mkpath(work("themes"));
        if (const Result<void> packed = writeResourcePackage(path, files, root, options); !packed)
            qWarning("packing failed: %s", qPrintable(packed.errorText()));
        return path;
    }

private slots:
    void init()
    {
        m_work = std::make_unique<QTemporaryDir>();
        m_temp = work("tmp");
        QVERIFY(QDir().mkpath(m_temp));
        qputenv("TMPDIR", QFile::encodeName(m_temp));
        QCOMPARE(QDir::tempPath(), m_temp);
        qputenv("XDG_CACHE_HOME", QFile::encodeName(work("cache")));
    }

    void cleanup()
    {
        m_work.reset();
        qputenv("TMPDIR", m_realTemp);
        qputenv("XDG_CACHE_HOME", m_realCache);
    }

    void packingStoresRelativeNamesAndTheSameBytes_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("relative");   // files and root named from the current folder
        QTest::newRow("flat and sub-folders") << QStringList{"bg1.bmp", "gfx/bg/bg1.bmp", "snd/drop.wav"}
                                              << false;
        QTest::newRow("beyond ASCII") << QStringList{"gfx/Eisbär.bmp", "Übung.wav"} << false;
        QTest::newRow("relative paths") << QStringList{"gfx/bg1.bmp"} << true;
    }

    void packingStoresRelativeNamesAndTheSameBytes()
    {
        QFETCH(QStringList, names);
        QFETCH(bool, relative);
        const QString package = work("Ice.zip");
        QStringList files = makeFiles(work("src"), names);
        QString root = work("src");
        const QString before = QDir::currentPath();
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        if (relative) {
            QVERIFY(QDir::setCurrent(m_work->path()));
            root = "src";
            files.replaceInStrings(m_work->path() + u'/', QString());
        }
        const Result<void> written = writeResourcePackage(package, files, root);
        QVERIFY2(written, qPrintable(written.errorText()));
        QVERIFY(!readFile(package).contains('\\'));
        // Packing again gives the same bytes: no file time is stored.
        QFile touched(work("src/" + names.first()));
        QVERIFY(touched.open(QIODevice::ReadWrite));
        QVERIFY(touched.setFileTime(QDateTime::currentDateTime().addDays(-3), QFileDevice::FileModificationTime));
        touched.close();
        QVERIFY(writeResourcePackage(work("again.zip"), files, root));
        QCOMPARE(readFile(work("again.zip")), readFile(package));

        ScriptedDialogs dialogs;
        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(), QStringList());
        QStringList expected;
        for (const QString &name : names)
            expected.append(name + "=content of " + name);
        expected.sort();
        QCOMPARE(contentsBelow(unpacked.location.folder), expected);
    }

    void refusedPackLeavesTheOldArchive_data()
    {
        QTest::addColumn<QString>("badFile");
        QTest::addColumn<PackageWriteOptions>("options");
        QTest::addColumn<QString>("errorStart");
        const PackageWriteOptions plain;
        QTest::newRow("outside the root") << "other/bg1.bmp" << plain << "%1 is not inside the folder ";
        QTest::newRow("a link leading out of the root") << "src/linked/bg1.bmp" << plain
                                                        << "%1 is not inside the folder ";
        QTest::newRow("missing file") << "src/none.bmp" << plain << "%1 is not a file that can be packed.";
        QTest::newRow("a folder") << "src/gfx" << plain << "%1 is not a file that can be packed.";
        QTest::newRow("encrypted, no password") << "" << PackageWriteOptions{PackageEncryption::Aes256, {}}
                                                << "An encrypted package needs a password.";
    }

    void refusedPackLeavesTheOldArchive()
    {
        QFETCH(QString, badFile);
        QFETCH(PackageWriteOptions, options);
        QFETCH(QString, errorStart);
        QStringList files = makeFiles(work("src"), {"gfx/bg1.bmp"});
        writeFile(work("other/bg1.bmp"), "elsewhere");
        QVERIFY(QFile::link(work("other"), work("src/linked")));
        if (!badFile.isEmpty())
            files.append(work(badFile));
        const QString package = work("Ice.zip");
        writeFile(package, "the old package");

        const Result<void> written = writeResourcePackage(package, files, work("src"), options);
        QVERIFY(!written);
        const QString error = written.errorText();

        QVERIFY2(error.startsWith(QString(errorStart).replace("%1", work(badFile))), qPrintable(error));
        QCOMPARE(readFile(package), QByteArray("the old package"));
        QCOMPARE(QDir(m_work->path()).entryList({"*.zip*"}, QDir::Files | QDir::Hidden), {"Ice.zip"});
    }

    void packageName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        QTest::newRow("windows path") << "C:\\themes\\Ice.zip" << "Ice";
        QTest::newRow("upper-case extension") << "C:\\themes\\ICE.ZIP" << "_";
        QTest::newRow("first .zip wins") << "C:\\my.zip.files\\Ice.zip" << "my";
        QTest::newRow("mixed separators") << "themes/winter\\Ice.zip" << "Ice";
        QTest::newRow("bare name") << "Ice.zip" << "Ice";
        QTest::newRow("text after .zip") << "/home/ann/Ice.zipped" << "Ice";
        QTest::newRow("no .zip") << "/home/ann/Ice.rar" << "_";
        QTest::newRow("empty") << "" << "_";
        QTest::newRow("dot") << "/home/ann/..zip" << "_.";
        QTest::newRow("dot-dot") << "C:\\themes\\...zip" << "_..";
        QTest::newRow("three dots are a name") << "/home/ann/....zip" << "...";
    }

    void packageName()
    {
        QFETCH(QString, path);
        QFETCH(QString, name);
        const PackageLocation location = packageLocationFor(path);
        QCOMPARE(location.tail, "stakko/" + name + u'/');
        QCOMPARE(location.folder, m_temp + "/stakko/" + name + u'/');
    }

    void extraction_data()
    {
        QTest::addColumn<QString>("package");     // as the theme names it, below the work folder
        QTest::addColumn<QByteArray>("bytes");    // null: there is no such file
        QTest::addColumn<QStringList>("before");  // "path=content", or "path@" for a link to outside/
        QTest::addColumn<QStringList>("after");   // what is below the work folder then, the package aside
        QTest::addColumn<QString>("reason");      // of the one error; "" when there is none
        using RawZip::build;
        const QString ice = "tmp/stakko/Ice/";
        const auto row = [](const char *name, const QByteArray &bytes, const QStringList &after,
                            const QString &reason = {}, const QStringList &before = {},
                            const QString &package = "themes/Ice.zip") {
            QTest::newRow(name) << package << bytes << before << after << reason;
        };
        row("top level", build({{"bg1.bmp", "pixels"}}), {ice + "bg1.bmp=pixels"});
        row("sub-folder", build({{"gfx/bg1.bmp", "pixels"}}), {ice + "gfx/bg1.bmp=pixels"});
        row("backslashes", build({{"gfx\\anim\\bg1.bmp", "pixels"}}), {ice + "gfx/anim/bg1.bmp=pixels"});
        row("dot parts", build({{"./gfx//bg1.bmp", "pixels"}}), {ice + "gfx/bg1.bmp=pixels"});
        row("windows path, empty folder", build({{"bg1.bmp", "pixels"}, {"sounds/", {}, Kind::Directory}}),
            {ice + "bg1.bmp=pixels", ice + "sounds/"}, {}, {}, "THEMES\\Ice.zip");
        // Python's zipfile writes an empty LZMA entry as a header and an end marker.
        const QByteArray emptyLzma = QByteArray::fromHex("090405005d000080000083fffbffffc0000000");
        row("empty LZMA entry",
            build({{"empty.txt", {}, Kind::File, false, 14, emptyLzma}, {"ok.bmp", "fine"}}),
            {ice + "empty.txt=", ice + "ok.bmp=fine"});
        row("replaces files, deletes nothing", build({{"gfx/bg1.bmp", "new frame"}}),
            {ice + "gfx/bg1.bmp=new frame", ice + "gfx/mine.bmp=the author's own"}, {},
            {ice + "gfx/bg1.bmp=old frame", ice + "gfx/mine.bmp=the author's own"});
        // Bytes already unpacked are compared, not rewritten: a difference anywhere still replaces them.
        const QByteArray frame = QByteArray(300000, 'f') + "end";
        for (const auto &[name, old] : {std::pair("differs at the start", "x" + frame.mid(1)),
                                        std::pair("differs past the first block", frame.chopped(1) + "D"),
                                        std::pair("old one longer", frame + "more"),
                                        std::pair("old one shorter", frame.left(200000)),
                                        std::pair("old one empty", QByteArray(""))}) {
            row(name, build({{"bg1.bmp", frame}}), {ice + "bg1.bmp=" + frame}, {}, {ice + "bg1.bmp=" + old});
        }
        row("empty entry over a file", build({{"empty.txt", ""}}), {ice + "empty.txt="}, {},
            {ice + "empty.txt=old"});
        row("same name twice: the last wins, even where the old file matches it",
            build({{"a.bmp", "first"}, {"a.bmp", "second"}, {"b.bmp", "second"}, {"b.bmp", "first"}}),
            {ice + "a.bmp=second", ice + "b.bmp=first"}, {}, {ice + "a.bmp=second", ice + "b.bmp=second"});

        const QString notZip = "It is not a zip archive or it is damaged.";
        const QString damaged = "It is damaged at bg1.bmp.";
        // The package folder is made even so, for the caller to publish.
        row("missing", QByteArray(), {ice}, "The file does not exist.");
        row("text file", "[Theme Info]\r\nname=Ice\r\n", {ice}, notZip);
        row("empty file", "", {ice}, notZip);
        row("cut short", build({{"bg1.bmp", QByteArray(4000, 'x')}}).left(2000), {ice}, damaged);
        row("wrong checksum", build({{"bg1.bmp", "pixels", Kind::File, true}}), {ice}, damaged);
        row("damaged entry keeps the old file, the rest unpacks",
            build({{"a.bmp", "new a"}, {"b.bmp", "broken b", Kind::File, true}, {"c.bmp", "new c"}}),
            {ice + "a.bmp=new a", ice + "b.bmp=good old b", ice + "c.bmp=new c"}, "It is damaged at b.bmp.",
            {ice + "b.bmp=good old b"});

        // Links are neither made nor followed.
        row("link entry",
            build({{"gfx", "../..", Kind::Symlink}, {"gfx/bg1.bmp", "evil"}, {"ok.bmp", "fine"}}),
            {ice + "gfx/bg1.bmp=evil", ice + "ok.bmp=fine"},
            "The entry gfx is a link or a special file and was skipped.");
        row("link already in the folder", build({{"gfx/bg1.bmp", "evil"}, {"ok.bmp", "fine"}}),
            {"outside/", ice + "gfx@", ice + "ok.bmp=fine"},
            "Could not write gfx/bg1.bmp: gfx is in the way (it is a link).", {ice + "gfx@"});
        for (const char *stored : {"../escaped.txt", "../../../escaped.txt", "gfx/../../escaped.txt",
                                   "..\\..\\escaped.txt", "gfx/..\\..\\escaped.txt",
                                   "/stakko-escape-test/escaped.txt", "C:\\escaped.txt", "C:escaped.txt"}) {
            row(stored, build({{stored, "evil"}, {"ok.bmp", "fine"}}), {ice + "ok.bmp=fine"},
                QStringLiteral("The entry %1 points outside the package folder and was skipped.")
                    .arg(QString::fromLatin1(stored).replace(u'\\', u'/')));
        }
    }

    void extraction()
    {
        QFETCH(QString, package);
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, before);
        QFETCH(QStringList, after);
        QFETCH(QString, reason);
        for (const QString &file : before) {
            const qsizetype split = file.indexOf(u'=');
            if (split >= 0) {
                // Unpacked files are the owner's alone: only such a file is compared and kept.
                QVERIFY(writeFile(work(file.left(split)), file.mid(split + 1).toUtf8()));
                QVERIFY(QFile::setPermissions(work(file.left(split)), QFile::ReadOwner | QFile::WriteOwner));
                continue;
            }
            const QString link = work(file.chopped(1));
            QVERIFY(QDir().mkpath(work("outside")) && QDir().mkpath(QFileInfo(link).absolutePath()));
            QVERIFY(QFile::link(work("outside"), link));
        }
        // Stored in lower case with "/": the theme's own spelling has to be found.
        if (!bytes.isNull())
            QVERIFY(writeFile(work(package.toLower().replace(u'\\', u'/')), bytes));
        const QString given = work(package);
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(given, dialogs);

        QCOMPARE(unpacked.location.folder, packageLocationFor(given).folder);
        QStringList found = contentsBelow(m_work->path());
        found.removeIf([](const QString &entry) { return entry.startsWith(u"themes/"); });
        QCOMPARE(found, after);
        QVERIFY(!QFileInfo::exists("/stakko-escape-test"));
        QCOMPARE(dialogs.inputPrompts, QStringList());
        QCOMPARE(unpacked.lines(), reason.isEmpty() ? QStringList() : QStringList{errorLine(given, reason)});
        QVERIFY(unpacked.isEmpty() || unpacked.problems.at(0).severity == Problem::Severity::Error);
        if (!before.isEmpty())
            return;
        // Others on a shared machine may not read or plant anything in what was made.
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                          | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QDirIterator made(m_temp, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (made.hasNext())
            QCOMPARE(QFile::permissions(made.next()) & others, QFile::Permissions());
    }

    void deflate64UnpacksAsUnzipDoes_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QList<QByteArray>>("contents");
        QTest::addColumn<bool>("damaged"); // a byte in the middle of the first entry flipped
        QByteArray text;
        for (int i = 0; i < 3000; ++i)
            text += "Frame " + QByteArray::number(i) + " of the falling blocks.\r\n";
        const QByteArray block = noiseBytes(30000, 1);
        // Each copy of the block can only come from the one 64000 bytes back: distance codes 30 and 31.
        const QByteArray farMatches = block + noiseBytes(34000, 2) + block + noiseBytes(34000, 3) + block;
        // Runs longer than deflate's 258 bytes: length code 285 with its 16 extra bits.
        const QByteArray longRuns = QByteArray(300000, 'a') + noiseBytes(1000, 4) + QByteArray(70000, 'b') + block;
        QTest::newRow("text") << QStringList{"gfx/readme.txt"} << QList<QByteArray>{text} << false;
        QTest::newRow("matches up to 64 KiB back") << QStringList{"bg1.bmp"} << QList<QByteArray>{farMatches} << false;
        QTest::newRow("long runs") << QStringList{"bg2.bmp"} << QList<QByteArray>{longRuns} << false;
        QTest::newRow("several files and folders")
            << QStringList{"gfx/bg1.bmp", "snd/drop.wav", "tiny.txt"} << QList<QByteArray>{farMatches, text, text.left(400)}
            << false;
        QTest::newRow("damaged") << QStringList{"bg1.bmp"} << QList<QByteArray>{farMatches} << true;
    }

    void deflate64UnpacksAsUnzipDoes()
    {
        QFETCH(QStringList, names);
        QFETCH(QList<QByteArray>, contents);
        QFETCH(bool, damaged);
        for (const auto &[tool, package] : {std::pair("7z", "p7zip-full"), std::pair("unzip", "unzip")}) {
            if (const QByteArray missing = missingTool(tool, package); !missing.isEmpty())
                QSKIP(missing.constData());
        }
        QStringList expected;
        for (qsizetype i = 0; i < names.size(); ++i) {
            QVERIFY(writeFile(work("src/" + names.at(i)), contents.at(i)));
            expected << names.at(i) + u'=' + QString::fromUtf8(contents.at(i));
        }
        expected.sort();
        const QString package = work("themes/Ice.zip");
        QVERIFY(QDir().mkpath(work("themes")));
        const QString before = QDir::currentPath();
        const auto restore = qScopeGuard([&before] { QDir::setCurrent(before); });
        QVERIFY(QDir::setCurrent(work("src")));
        const ProgramRun packed = runProgram("7z", QStringList{"a", "-tzip", "-mm=Deflate64", "-mx=9", package} + names);
        QVERIFY2(packed.status == 0, packed.err.constData());
        QDir::setCurrent(before);
        const ProgramRun listed = runProgram("unzip", {"-v", package});
        QCOMPARE(listed.out.count("Def64N"), names.size());
        if (damaged) {
            QByteArray bytes = readFile(package);
            bytes[bytes.size() / 3] = char(bytes.at(bytes.size() / 3) ^ 0x5A);
            QVERIFY(writeFile(package, bytes));
        }
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        const ProgramRun unzip = runProgram("unzip", {"-q", package, "-d", work("unzipped")});
        if (damaged) {
            QVERIFY(unzip.status != 0);
            QCOMPARE(unpacked.lines(), QStringList{errorLine(package, "It is damaged at bg1.bmp.")});
            QCOMPARE(contentsBelow(iceFolder()), QStringList());
            return;
        }
        QCOMPARE(unzip.status, 0);
        QCOMPARE(unpacked.lines(), QStringList());
        QCOMPARE(contentsBelow(iceFolder()), contentsBelow(work("unzipped")));
        QCOMPARE(contentsBelow(iceFolder()), expected);
        for (qsizetype i = 0; i < names.size(); ++i) { // byte for byte: the lists above read them as text
            QCOMPARE(readFile(iceFolder() + names.at(i)), readFile(work("unzipped/" + names.at(i))));
            QVERIFY(readFile(iceFolder() + names.at(i)) == contents.at(i));
        }
        // What the checker lists is what was unpacked.
        QStringList entries = packageEntryNames(package).value_or(QStringList{"unreadable"});
        QCOMPARE(entries.size(), names.size());
    }

    void dosNamesAreOemText_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<quint32>("host");
        QTest::addColumn<bool>("utf8");
        QTest::addColumn<QString>("unpacked");
        QTest::newRow("MS-DOS") << QByteArray("Caf\x82.bmp") << 0u << false << QStringLiteral("Café.bmp");
        QTest::newRow("OS/2") << QByteArray("Caf\x82.bmp") << 6u << false << QStringLiteral("Café.bmp");
        QTest::newRow("NTFS") << QByteArray("Caf\x82.bmp") << 11u << false << QStringLiteral("Café.bmp");
        QTest::newRow("MS-DOS, folder and letters beyond Windows-1252")
            << QByteArray("GFX\\\x9a\x81\xe1\xe3.bmp") << 0u << false << QStringLiteral("GFX/Üüßπ.bmp");
        QTest::newRow("MS-DOS, marked UTF-8") << QByteArray("Caf\xc3\xa9.bmp") << 0u << true << QStringLiteral("Café.bmp");
        QTest::newRow("Unix, UTF-8") << QByteArray("Caf\xc3\xa9.bmp") << 3u << false << QStringLiteral("Café.bmp");
        QTest::newRow("Unix, Windows-1252") << QByteArray("Caf\xe9.bmp") << 3u << false << QStringLiteral("Café.bmp");
        QTest::newRow("Unix, the MS-DOS byte") << QByteArray("Caf\x82.bmp") << 3u << false << QStringLiteral("Caf‚.bmp");
    }

    void dosNamesAreOemText()
    {
        QFETCH(QByteArray, stored);
        QFETCH(quint32, host);
        QFETCH(bool, utf8);
        QFETCH(QString, unpacked);
        RawZip::Entry entry{stored, "pixels"};
        entry.host = host;
        entry.utf8 = utf8;
        const QString package = rawPackage({entry});
        ScriptedDialogs dialogs;

        QCOMPARE(extractResourcePackage(package, dialogs).lines(), QStringList());

        QCOMPARE(contentsBelow(iceFolder()), QStringList{unpacked + "=pixels"});
        QCOMPARE(packageEntryNames(package).value_or(QStringList()), QStringList{unpacked});
        // A theme names its files in Windows-1252, in any letter case.
        QByteArray ansi;
        if (AnsiText::encode(unpacked.toUpper(), &ansi))
            QVERIFY(QFileInfo(resolveThemePath(iceFolder() + AnsiText::decode(ansi))).isFile());
    }

    void writtenEntriesStayInside_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"../x.bmp", "a/../../x.bmp", "./../x.bmp", "..\\x.bmp", "a\\..\\..\\x.bmp",
                                 "/tmp/x.bmp", "\\x.bmp", "C:\\x.bmp", "C:x.bmp", ".."})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void writtenEntriesStayInside()
    {
        QFETCH(QString, name);
        writeFile(work("x.bmp"), "pixels");
        const QString package = work("Ice.zip");
        writeFile(package, "the old package");

        const Result<void> written = writePackageEntries(package, {{"ok.bmp", work("x.bmp")}, {name, work("x.bmp")}});

        QVERIFY(!written);
        QCOMPARE(written.errorText(), name + " cannot be stored in a package: the name points outside the folder it unpacks into.");
        QCOMPARE(readFile(package), QByteArray("the old package"));
    }

    void unpackingAgainRewritesOnlyWhatDiffers()
    {
        const QString package = packedPackage();
        ScriptedDialogs dialogs;
        QVERIFY(extractResourcePackage(package, dialogs).isEmpty());
        const auto inode = [this](const char *name) {
            struct stat info {};
            return stat(QFile::encodeName(iceFolder() + name).constData(), &info) == 0 ? info.st_ino : 0;
        };
        const QStringList names = {"gfx/bg1.bmp", "gfx/bg2.bmp", "snd/drop.wav"};
        QList<ino_t> before;
        for (const QString &name : names)
            before.append(inode(qPrintable(name)));
        // Another program's hard link, or wider permissions, would survive in a kept file.
        QCOMPARE(link(QFile::encodeName(iceFolder() + "gfx/bg2.bmp"), QFile::encodeName(work("elsewhere.bmp"))), 0);
        QVERIFY(QFile::setPermissions(iceFolder() + "snd/drop.wav",
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));

        QVERIFY(extractResourcePackage(package, dialogs).isEmpty());

        QCOMPARE(inode("gfx/bg1.bmp"), before.at(0));
        QVERIFY(inode("gfx/bg2.bmp") != before.at(1));
        QVERIFY(inode("snd/drop.wav") != before.at(2));
        QCOMPARE(QFile::permissions(iceFolder() + "snd/drop.wav") & QFile::ReadOther, QFile::Permissions());
        QCOMPARE(contentsBelow(iceFolder()), m_packed);
    }

    void untrustedSharedFolderIsPassedOver_data()
    {
        QTest::addColumn<QString>("planted");   // below tmp
        QTest::addColumn<QString>("what");      // link, file, foreign
        QTest::newRow("stakko is a link") << "stakko" << "link";
        QTest::newRow("package folder is a link") << "stakko/Ice" << "link";
        QTest::newRow("stakko is a file") << "stakko" << "file";
        QTest::newRow("stakko of another user") << "stakko" << "foreign";
        QTest::newRow("package folder of another user") << "stakko/Ice" << "foreign";
        QTest::newRow("no temporary folder") << "" << "none";
    }

    void untrustedSharedFolderIsPassedOver()
    {
        QFETCH(QString, planted);
        QFETCH(QString, what);
        if (what == "foreign" && geteuid() != 0)
            QSKIP("a folder of another user needs root to make");
        const QString outside = work("victim");
        QVERIFY(QDir().mkpath(outside));
        const QString place = m_temp + u'/' + planted;
        QVERIFY(QDir().mkpath(QFileInfo(place).absolutePath()));
        if (what == "link")
            QVERIFY(QFile::link(outside, place));
        else if (what == "file")
            writeFile(place, "in the way");
        else if (what == "foreign")
            QVERIFY(QDir().mkpath(place) && chown(QFile::encodeName(place).constData(), 65534, 65534) == 0);
        else
            qputenv("TMPDIR", QFile::encodeName(work("gone")));
        const QString package = rawPackage({{"gfx/bg1.bmp", "pixels"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        const QString privateFolder = work("cache/stakko-theme-maker/stakko/Ice/");
        QCOMPARE(unpacked.location.folder, privateFolder);
        QCOMPARE(unpacked.location.tail, "stakko/Ice/");
        QCOMPARE(contentsBelow(privateFolder), QStringList{"gfx/bg1.bmp=pixels"});
        QCOMPARE(contentsBelow(outside), QStringList());
        QCOMPARE(unpacked.problems.size(), 1);
        QCOMPARE(unpacked.problems.at(0).severity, Problem::Severity::Information);
        QVERIFY2(unpacked.problems.at(0).text.contains(QDir::toNativeSeparators(privateFolder)),
                 qPrintable(unpacked.problems.at(0).text));
    }

    void fullDiskKeepsOldFilesAndLeavesNoPartials()
    {
        SmallDisk disk(512);
        if (!disk.isMounted())
            QSKIP(qPrintable(disk.skipReason()));
        qputenv("TMPDIR", QFile::encodeName(disk.path()));
        const QString ice = disk.filePath("stakko/Ice/");
        writeFile(ice + "gfx/bg1.bmp", "old frame");
        const QString package = rawPackage({{"gfx/bg1.bmp", noiseBytes(300000, 5)}, {"ok.bmp", "fine"}});
        QVERIFY(disk.fill(64 * 1024));
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(),
                 QStringList{errorLine(package, "Could not write gfx/bg1.bmp: No space left on device")});
        QCOMPARE(contentsBelow(ice), (QStringList{"gfx/bg1.bmp=old frame", "ok.bmp=fine"}));
    }

    void sizeCapStopsExtraction_data()
    {
        QTest::addColumn<qint64>("cap");
        QTest::addColumn<QString>("shown");
        QTest::newRow("bytes") << qint64(1000) << "1000 bytes";
        QTest::newRow("KiB") << qint64(64 << 10) << "64 KiB";
        QTest::newRow("MiB") << qint64(1 << 20) << "1 MiB";
    }

    void sizeCapStopsExtraction()
    {
        QFETCH(qint64, cap);
        QFETCH(QString, shown);
        // Zeros pack down to almost nothing: a small bomb.
        const QString package = packedPackage({}, {"gfx/anim/a.bmp", "gfx/anim/b.bmp", "gfx/c.bmp", "mine.bmp"},
                                              QByteArray(1 << 20, '\0'));
        QVERIFY(QFileInfo(package).size() < 50000);
        writeFile(iceFolder() + "mine.bmp", "the author's own");
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs, ExtractOptions{cap});

        QCOMPARE(unpacked.lines(),
                 QStringList{errorLine(package, QStringLiteral("Extraction stopped: the package would write "
                                                               "more than %1.").arg(shown))});
        // What the stopped run wrote is gone; what was there before is as it was.
        QCOMPARE(contentsBelow(iceFolder()), QStringList{"mine.bmp=the author's own"});
    }

    void passwords_data()
    {
        QTest::addColumn<PackageEncryption>("encryption");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<int>("prompts");
        QTest::addColumn<bool>("unpacked");
        const auto row = [](const char *name, PackageEncryption encryption, const Answers &answers,
                            int prompts, bool unpacked) {
            QTest::newRow(name) << encryption << answers << prompts << unpacked;
        };
        const PackageEncryption traditional = PackageEncryption::Traditional, aes = PackageEncryption::Aes256;
        row("traditional, right", traditional, {"s3cret"}, 1, true);
        row("AES-256, right", aes, {"s3cret"}, 1, true);
        // A wrong answer is asked again; the unanswered second question cancels.
        row("traditional, wrong", traditional, {"guess"}, 2, false);
        row("AES-256, wrong", aes, {"guess"}, 2, false);
        // Each answer is tried on its own: a typo neither spoils the next answer nor joins it.
        row("wrong, then right", traditional, {"guess", "s3cret"}, 2, true);
        row("AES-256, wrong, then right", aes, {"guess", "s3cret"}, 2, true);
        row("halves", traditional, {"s3c", "ret"}, 3, false);
        // A refused answer stops the asking: the right one queued behind it is never used.
        row("cancelled", traditional, {std::nullopt, "s3cret"}, 1, false);
        row("empty", traditional, {QString(), "s3cret"}, 1, false);
    }

    void passwords()
    {
        QFETCH(PackageEncryption, encryption);
        QFETCH(Answers, answers);
        QFETCH(int, prompts);
        QFETCH(bool, unpacked);
        const QString package = packedPackage({encryption, "s3cret"});
        writeFile(iceFolder() + "gfx/bg1.bmp", "old frame");
        ScriptedDialogs dialogs;
        dialogs.inputs.append(answers);

        const UnpackReport report = extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.inputPrompts, QStringList(prompts, "Please Enter The Password!"));
        if (unpacked) {
            QCOMPARE(report.lines(), QStringList());
            QCOMPARE(contentsBelow(iceFolder()), m_packed);
        } else {
            QCOMPARE(report.lines(),
                     QStringList{errorLine(package, "The password is wrong or missing for gfx/bg1.bmp.")});
            QCOMPARE(contentsBelow(iceFolder()), (QStringList{"gfx/bg1.bmp=old frame", "snd/"}));
        }

        // Each extraction asks afresh, whatever the last one was told.
        dialogs.inputs.clear();
        dialogs.inputs.enqueue("s3cret");
        QCOMPARE(extractResourcePackage(package, dialogs).lines(), QStringList());
        QCOMPARE(dialogs.inputPrompts.size(), prompts + 1);
        QCOMPARE(contentsBelow(iceFolder()), m_packed);
    }
};

QTEST_GUILESS_MAIN(ResourcePackageTest)
#include "tst_resourcepackage.moc"
