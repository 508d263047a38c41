#include "package/resourcepackage.h"

#include "common/scripteddialogs.h"
#include "common/smalldisk.h"
#include "rawzip.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

#include <memory>

using RawZip::Kind;

using Answers = QList<std::optional<QString>>;

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/** Every file and link below \a folder, relative and sorted; leftovers show up here too. */
QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        found.append(QDir(folder).relativeFilePath(it.next()));
    found.sort();
    return found;
}

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

    QString work(const QString &relative) const { return m_work->filePath(relative); }
    QString iceFolder() const { return m_temp + "/stakko/Ice/"; }

    QString rawPackage(const QList<RawZip::Entry> &entries) const
    {
        const QString path = work("themes/Ice.zip");
        writeFile(path, RawZip::build(entries));
        return path;
    }

    /** A real package of three files, packed from work/src. */
    QString packedPackage(const PackageWriteOptions &options = {}) const
    {
        const QString root = work("src");
        const QStringList files = makeFiles(root, {"gfx/bg1.bmp", "gfx/bg2.bmp", "snd/drop.wav"});
        const QString path = work("themes/Ice.zip");
        QDir().mkpath(work("themes"));
        QString error;
        if (!writeResourcePackage(path, files, root, &error, options))
            qWarning("packing failed: %s", qPrintable(error));
        return path;
    }

    static QString errorLine(const QString &path, const QString &reason)
    {
        return "Error: Could not load resource file " + path + u'\n' + reason;
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

    void namesAreStoredRelativeToTheRoot_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::newRow("flat and sub-folders") << QStringList{"bg1.bmp", "gfx/bg/bg1.bmp", "snd/drop.wav"};
        QTest::newRow("beyond ASCII") << QStringList{"gfx/Eisbär.bmp", "Übung.wav"};
    }

    void namesAreStoredRelativeToTheRoot()
    {
        QFETCH(QStringList, names);
        const QString package = work("Ice.zip");
        QString error;
        QVERIFY2(writeResourcePackage(package, makeFiles(work("src"), names), work("src"), &error),
                 qPrintable(error));
        QVERIFY(!readFile(package).contains('\\'));

        ScriptedDialogs dialogs;
        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(), QStringList());
        QStringList expected = names;
        expected.sort();
        QCOMPARE(filesBelow(unpacked.location.folder), expected);
        for (const QString &name : names)
            QCOMPARE(readFile(unpacked.location.folder + name), "content of " + name.toUtf8());
    }

    void relativePathsCountFromTheCurrentFolder()
    {
        makeFiles(work("src"), {"gfx/bg1.bmp"});
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_work->path()));
        const bool written = writeResourcePackage("Ice.zip", {"src/gfx/bg1.bmp"}, "src");
        QDir::setCurrent(before);
        QVERIFY(written);

        ScriptedDialogs dialogs;
        const UnpackReport unpacked = extractResourcePackage(work("Ice.zip"), dialogs);
        QCOMPARE(filesBelow(unpacked.location.folder), QStringList{"gfx/bg1.bmp"});
    }

    void packingAgainGivesTheSameBytes()
    {
        const QStringList files = makeFiles(work("src"), {"gfx/bg1.bmp", "snd/drop.wav"});
        QVERIFY(writeResourcePackage(work("first.zip"), files, work("src")));
        QFile touched(files.at(0));
        QVERIFY(touched.open(QIODevice::ReadWrite));
        QVERIFY(touched.setFileTime(QDateTime::currentDateTime().addDays(-3), QFileDevice::FileModificationTime));
        touched.close();
        QVERIFY(writeResourcePackage(work("second.zip"), files, work("src")));

        QCOMPARE(readFile(work("second.zip")), readFile(work("first.zip")));
    }

    void refusedPackLeavesTheOldArchive_data()
    {
        QTest::addColumn<QString>("badFile");
        QTest::addColumn<QString>("errorStart");
        QTest::newRow("outside the root") << "other/bg1.bmp" << "%1 is not inside the folder ";
        QTest::newRow("missing file") << "src/none.bmp" << "%1 is not a file that can be packed.";
        QTest::newRow("a folder") << "src/gfx" << "%1 is not a file that can be packed.";
    }

    void refusedPackLeavesTheOldArchive()
    {
        QFETCH(QString, badFile);
        QFETCH(QString, errorStart);
        QStringList files = makeFiles(work("src"), {"gfx/bg1.bmp"});
        writeFile(work("other/bg1.bmp"), "elsewhere");
        files.append(work(badFile));
        const QString package = work("Ice.zip");
        writeFile(package, "the old package");

        QString error;
        QVERIFY(!writeResourcePackage(package, files, work("src"), &error));

        QVERIFY2(error.startsWith(errorStart.arg(work(badFile))), qPrintable(error));
        QCOMPARE(readFile(package), QByteArray("the old package"));
        QCOMPARE(QDir(m_work->path()).entryList({"*.zip*"}, QDir::Files | QDir::Hidden), QStringList{"Ice.zip"});
    }

    void encryptionNeedsAPassword()
    {
        QString error;
        QVERIFY(!writeResourcePackage(work("Ice.zip"), makeFiles(work("src"), {"a.bmp"}),
                                      work("src"), &error, {PackageEncryption::Aes256, QString()}));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFileInfo::exists(work("Ice.zip")));
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

    void oddPackageNamesStayInTheirOwnFolder_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("folder");
        QTest::newRow("dot-dot") << "...zip" << "_..";
        QTest::newRow("dot") << "..zip" << "_.";
        QTest::newRow("no .zip") << "ICE.ZIP" << "_";
    }

    void oddPackageNamesStayInTheirOwnFolder()
    {
        QFETCH(QString, fileName);
        QFETCH(QString, folder);
        const QString package = work("themes/" + fileName);
        writeFile(package, RawZip::build({{"ok.bmp", "fine"}}));
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.location.tail, "stakko/" + folder + u'/');
        QCOMPARE(filesBelow(m_work->path()), (QStringList{"themes/" + fileName, "tmp/stakko/" + folder + "/ok.bmp"}));
    }

    void extractsEntriesBelowThePackageFolder_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("expected");
        QTest::newRow("top level") << QByteArray("bg1.bmp") << "bg1.bmp";
        QTest::newRow("sub-folder") << QByteArray("gfx/bg1.bmp") << "gfx/bg1.bmp";
        QTest::newRow("backslashes") << QByteArray("gfx\\anim\\bg1.bmp") << "gfx/anim/bg1.bmp";
        QTest::newRow("dot parts") << QByteArray("./gfx//bg1.bmp") << "gfx/bg1.bmp";
    }

    void extractsEntriesBelowThePackageFolder()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, expected);
        const QString package = rawPackage({{stored, "pixels"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.location.folder, iceFolder());
        QCOMPARE(unpacked.location.tail, "stakko/Ice/");
        QCOMPARE(unpacked.lines(), QStringList());
        QCOMPARE(filesBelow(iceFolder()), QStringList{expected});
        QCOMPARE(readFile(iceFolder() + expected), QByteArray("pixels"));
    }

    void windowsPathAndEmptyFolders()
    {
        rawPackage({{"bg1.bmp", "pixels"}, {"sounds/", {}, Kind::Directory}});
        ScriptedDialogs dialogs;
        const UnpackReport unpacked = extractResourcePackage(work("THEMES") + "\\Ice.zip", dialogs);
        QCOMPARE(unpacked.lines(), QStringList());
        QCOMPARE(readFile(iceFolder() + "bg1.bmp"), QByteArray("pixels"));
        QVERIFY(QFileInfo(iceFolder() + "sounds").isDir());
        // Others on a shared machine may not read or plant anything here.
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                          | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        for (const QString &made : {m_temp + "/stakko", iceFolder(), iceFolder() + "sounds", iceFolder() + "bg1.bmp"})
            QCOMPARE(QFile::permissions(made) & others, QFile::Permissions());
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
        QCOMPARE(readFile(privateFolder + "gfx/bg1.bmp"), QByteArray("pixels"));
        QCOMPARE(filesBelow(outside), QStringList());
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
        QByteArray noise(300000, Qt::Uninitialized);
        for (qsizetype i = 0; i < noise.size(); ++i)
            noise[i] = char((i * 7919) ^ (i >> 8) * 31);
        const QString package = rawPackage({{"gfx/bg1.bmp", noise}, {"ok.bmp", "fine"}});
        QVERIFY(disk.fill(64 * 1024));
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(),
                 QStringList{errorLine(package, "Could not write gfx/bg1.bmp: No space left on device")});
        QCOMPARE(readFile(ice + "gfx/bg1.bmp"), QByteArray("old frame"));
        QCOMPARE(filesBelow(ice), (QStringList{"gfx/bg1.bmp", "ok.bmp"}));
    }

    void emptyLzmaEntryIsAnEmptyFile()
    {
        // Python's zipfile writes an empty LZMA entry as a header and an end marker.
        const QByteArray emptyLzma = QByteArray::fromHex("090405005d000080000083fffbffffc0000000");
        const QString package = rawPackage({{"empty.txt", {}, Kind::File, false, 14, emptyLzma}, {"ok.bmp", "fine"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(), QStringList());
        QCOMPARE(filesBelow(iceFolder()), (QStringList{"empty.txt", "ok.bmp"}));
        QCOMPARE(QFileInfo(iceFolder() + "empty.txt").size(), 0);
    }

    void replacesFilesAndDeletesNothing()
    {
        writeFile(iceFolder() + "gfx/bg1.bmp", "old frame");
        writeFile(iceFolder() + "gfx/mine.bmp", "the author's own");
        const QString package = rawPackage({{"gfx/bg1.bmp", "new frame"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.problems.size(), 0);
        QCOMPARE(dialogs.inputPrompts.size(), 0);
        QCOMPARE(readFile(iceFolder() + "gfx/bg1.bmp"), QByteArray("new frame"));
        QCOMPARE(readFile(iceFolder() + "gfx/mine.bmp"), QByteArray("the author's own"));
        QCOMPARE(filesBelow(iceFolder()), (QStringList{"gfx/bg1.bmp", "gfx/mine.bmp"}));
    }

    void unreadablePackageIsReported_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << QByteArray() << "The file does not exist.";
        const QString notZip = "It is not a zip archive or it is damaged.";
        QTest::newRow("text file") << QByteArray("[Theme Info]\r\nname=Ice\r\n") << notZip;
        QTest::newRow("empty file") << QByteArray("") << notZip;
        const QByteArray whole = RawZip::build({{"gfx/bg1.bmp", QByteArray(4000, 'x')}});
        QTest::newRow("cut short") << whole.left(2000) << "It is damaged at gfx/bg1.bmp.";
        QTest::newRow("wrong checksum") << RawZip::build({{"gfx/bg1.bmp", "pixels", Kind::File, true}})
                                        << "It is damaged at gfx/bg1.bmp.";
    }

    void unreadablePackageIsReported()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const QString package = work("themes/Ice.zip");
        if (!bytes.isNull())
            writeFile(package, bytes);
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(), QStringList{errorLine(package, reason)});
        QCOMPARE(unpacked.problems.at(0).severity, Problem::Severity::Error);
        QCOMPARE(unpacked.location.folder, iceFolder());
        QVERIFY(QFileInfo(iceFolder()).isDir()); // made even so, for the caller to publish
        QCOMPARE(filesBelow(iceFolder()), QStringList());
    }

    void damagedEntryKeepsTheOldFileAndTheRestIsExtracted()
    {
        writeFile(iceFolder() + "b.bmp", "good old b");
        const QString package = rawPackage({{"a.bmp", "new a"},
                                            {"b.bmp", "broken b", Kind::File, true},
                                            {"c.bmp", "new c"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(unpacked.lines(), QStringList{errorLine(package, "It is damaged at b.bmp.")});
        QCOMPARE(filesBelow(iceFolder()),
                 (QStringList{"a.bmp", "b.bmp", "c.bmp"}));
        QCOMPARE(readFile(iceFolder() + "b.bmp"), QByteArray("good old b"));
        QCOMPARE(readFile(iceFolder() + "c.bmp"), QByteArray("new c"));
    }

    void entriesPointingOutsideAreSkipped_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("dot-dot") << QByteArray("../escaped.txt");
        QTest::newRow("deep dot-dot") << QByteArray("../../../escaped.txt");
        QTest::newRow("dot-dot inside") << QByteArray("gfx/../../escaped.txt");
        QTest::newRow("backslash dot-dot") << QByteArray("..\\..\\escaped.txt");
        QTest::newRow("mixed dot-dot") << QByteArray("gfx/..\\..\\escaped.txt");
        QTest::newRow("absolute") << QByteArray("/stakko-escape-test/escaped.txt");
        QTest::newRow("drive letter") << QByteArray("C:\\escaped.txt");
        QTest::newRow("drive-relative") << QByteArray("C:escaped.txt");
    }

    void entriesPointingOutsideAreSkipped()
    {
        QFETCH(QByteArray, stored);
        const QString package = rawPackage({{stored, "evil"}, {"ok.bmp", "fine"}});
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(filesBelow(m_work->path()),
                 (QStringList{"themes/Ice.zip", "tmp/stakko/Ice/ok.bmp"}));
        QVERIFY(!QFileInfo::exists("/stakko-escape-test"));
        QCOMPARE(unpacked.lines(),
                 QStringList{errorLine(package, QStringLiteral("The entry %1 points outside the package folder "
                                                               "and was skipped.").arg(QString::fromLatin1(stored).replace(u'\\', u'/')))});
    }

    void linksAreNeitherMadeNorFollowed_data()
    {
        QTest::addColumn<bool>("linkInFolder");
        QTest::addColumn<QString>("reason");
        QTest::newRow("link entry") << false << "The entry gfx is a link or a special file and was skipped.";
        QTest::newRow("link already in the folder") << true << "Could not write gfx/bg1.bmp: ";
    }

    void linksAreNeitherMadeNorFollowed()
    {
        QFETCH(bool, linkInFolder);
        QFETCH(QString, reason);
        const QString outside = work("outside");
        QVERIFY(QDir().mkpath(outside));
        QVERIFY(QDir().mkpath(iceFolder()));
        QList<RawZip::Entry> entries{{"gfx/bg1.bmp", "evil"}, {"ok.bmp", "fine"}};
        if (linkInFolder)
            QVERIFY(QFile::link(outside, iceFolder() + "gfx"));
        else
            entries.prepend({"gfx", outside.toUtf8(), Kind::Symlink});
        const QString package = rawPackage(entries);
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs);

        QCOMPARE(filesBelow(outside), QStringList());
        QCOMPARE(QFileInfo(iceFolder() + "gfx").isSymLink(), linkInFolder);
        QCOMPARE(readFile(iceFolder() + "ok.bmp"), QByteArray("fine"));
        QCOMPARE(unpacked.problems.size(), 1);
        QVERIFY2(unpacked.lines().at(0).startsWith(errorLine(package, reason)),
                 qPrintable(unpacked.lines().at(0)));
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
        const QString root = work("bomb");
        const QStringList files =
            makeFiles(root, {"gfx/anim/a.bmp", "gfx/anim/b.bmp", "gfx/c.bmp", "mine.bmp"}, QByteArray(1 << 20, '\0'));
        const QString package = work("themes/Ice.zip");
        QVERIFY(QDir().mkpath(work("themes")));
        QVERIFY(writeResourcePackage(package, files, root));
        QVERIFY(QFileInfo(package).size() < 50000);
        writeFile(iceFolder() + "mine.bmp", "the author's own");
        ScriptedDialogs dialogs;

        const UnpackReport unpacked = extractResourcePackage(package, dialogs, ExtractOptions{cap});

        QCOMPARE(unpacked.lines(),
                 QStringList{errorLine(package, QStringLiteral("Extraction stopped: the package would write "
                                                               "more than %1.").arg(shown))});
        // What the stopped run wrote is gone; what was there before is as it was.
        QCOMPARE(filesBelow(iceFolder()), QStringList{"mine.bmp"});
        QCOMPARE(readFile(iceFolder() + "mine.bmp"), QByteArray("the author's own"));
        QVERIFY(!QFileInfo::exists(iceFolder() + "gfx"));
    }

    void passwords_data()
    {
        QTest::addColumn<PackageEncryption>("encryption");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<int>("prompts");
        QTest::addColumn<bool>("unpacked");
        const Answers right{"s3cret"};
        QTest::newRow("traditional, right") << PackageEncryption::Traditional << right << 1 << true;
        QTest::newRow("AES-256, right") << PackageEncryption::Aes256 << right << 1 << true;
        // A wrong answer is asked again; the unanswered second question cancels.
        const Answers wrong{"guess"};
        QTest::newRow("traditional, wrong") << PackageEncryption::Traditional << wrong << 2 << false;
        QTest::newRow("AES-256, wrong") << PackageEncryption::Aes256 << wrong << 2 << false;
        // Each answer is tried on its own: a typo neither spoils the next answer nor joins it.
        QTest::newRow("wrong, then right") << PackageEncryption::Traditional << Answers{"guess", "s3cret"} << 2
                                           << true;
        QTest::newRow("AES-256, wrong, then right") << PackageEncryption::Aes256 << Answers{"guess", "s3cret"}
                                                    << 2 << true;
        QTest::newRow("halves") << PackageEncryption::Traditional << Answers{"s3c", "ret"} << 3 << false;
        // A refused answer stops the asking: the right one queued behind it is never used.
        QTest::newRow("cancelled") << PackageEncryption::Traditional << Answers{std::nullopt, "s3cret"}
                                   << 1 << false;
        QTest::newRow("empty") << PackageEncryption::Traditional << Answers{QString(), "s3cret"}
                               << 1 << false;
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
        for (const auto &answer : answers)
            dialogs.inputs.enqueue(answer);

        const UnpackReport report = extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.inputPrompts, QStringList(prompts, "Please Enter The Password!"));
        if (unpacked) {
            QCOMPARE(report.lines(), QStringList());
            QCOMPARE(filesBelow(iceFolder()), (QStringList{"gfx/bg1.bmp", "gfx/bg2.bmp",
                                                           "snd/drop.wav"}));
            QCOMPARE(readFile(iceFolder() + "snd/drop.wav"), QByteArray("content of snd/drop.wav"));
        } else {
            QCOMPARE(report.lines(),
                     QStringList{errorLine(package, "The password is wrong or missing for gfx/bg1.bmp.")});
            QCOMPARE(filesBelow(iceFolder()), QStringList{"gfx/bg1.bmp"});
            QCOMPARE(readFile(iceFolder() + "gfx/bg1.bmp"), QByteArray("old frame"));
        }
    }

    void passwordStateStartsAfreshWithEachExtraction()
    {
        const QString package = packedPackage({PackageEncryption::Traditional, "s3cret"});
        ScriptedDialogs dialogs;
        dialogs.inputs.enqueue(std::nullopt);
        QCOMPARE(extractResourcePackage(package, dialogs).problems.size(), 1);
        dialogs.inputs.enqueue("s3cret");
        QCOMPARE(extractResourcePackage(package, dialogs).problems.size(), 0);
        QCOMPARE(dialogs.inputPrompts.size(), 2);
        QCOMPARE(filesBelow(iceFolder()).size(), 3);
    }
};

QTEST_GUILESS_MAIN(ResourcePackageTest)
#include "tst_resourcepackage.moc"
