#include "package/resourcepackage.h"

#include "common/scripteddialogs.h"
#include "packagetesthelpers.h"
#include "rawzip.h"

#include <QTest>

#include <memory>

using PackageTest::filesBelow;
using PackageTest::readFile;
using PackageTest::writeFile;
using RawZip::Kind;

using Answers = QList<std::optional<QString>>;

class ResourcePackageTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<PackageTest::ScratchFolder> m_work;
    QString m_temp;   // what QDir::tempPath() answers during a test

    QString work(const QString &relative) const { return m_work->file(relative); }
    QString iceFolder() const { return m_temp + QStringLiteral("/stakko/Ice/"); }

    QString rawPackage(const QList<RawZip::Entry> &entries) const
    {
        const QString path = work(QStringLiteral("themes/Ice.zip"));
        writeFile(path, RawZip::build(entries));
        return path;
    }

    /** A real package of three files, packed from work/src. */
    QString packedPackage(const PackageWriteOptions &options = {}) const
    {
        const QString root = work(QStringLiteral("src"));
        const QStringList names = {QStringLiteral("gfx/bg1.bmp"), QStringLiteral("gfx/bg2.bmp"),
                                   QStringLiteral("snd/drop.wav")};
        QStringList files;
        for (const QString &name : names) {
            writeFile(root + u'/' + name, "content of " + name.toUtf8());
            files.append(root + u'/' + name);
        }
        const QString path = work(QStringLiteral("themes/Ice.zip"));
        QDir().mkpath(work(QStringLiteral("themes")));
        QString error;
        if (!writeResourcePackage(path, files, root, &error, options))
            qWarning("packing failed: %s", qPrintable(error));
        return path;
    }

    static QString errorLine(const QString &path, const QString &reason)
    {
        return QStringLiteral("Error: Could not load resource file ") + path + u'\n' + reason;
    }

private slots:
    void init()
    {
        m_work = std::make_unique<PackageTest::ScratchFolder>();
        QVERIFY(m_work->isValid());
        m_temp = m_work->temp();
    }

    void cleanup() { m_work.reset(); }

    void packageName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        QTest::newRow("windows path") << "C:\\themes\\Ice.zip" << "Ice";
        QTest::newRow("upper-case extension") << "C:\\themes\\ICE.ZIP" << "";
        QTest::newRow("first .zip wins") << "C:\\my.zip.files\\Ice.zip" << "my";
        QTest::newRow("slash path") << "/home/ann/themes/Ice.zip" << "Ice";
        QTest::newRow("mixed separators") << "themes/winter\\Ice.zip" << "Ice";
        QTest::newRow("bare name") << "Ice.zip" << "Ice";
        QTest::newRow("text after .zip") << "/home/ann/Ice.zipped" << "Ice";
        QTest::newRow("no .zip") << "/home/ann/Ice.rar" << "";
        QTest::newRow("empty") << "" << "";
    }

    void packageName()
    {
        QFETCH(QString, path);
        QFETCH(QString, name);
        const PackageLocation location = packageLocationFor(path);
        QCOMPARE(location.tail, QStringLiteral("stakko/") + name + u'/');
        QCOMPARE(location.folder, m_temp + QStringLiteral("/stakko/") + name + u'/');
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

        const PackageLocation location = extractResourcePackage(package, dialogs);

        QCOMPARE(location.folder, iceFolder());
        QCOMPARE(location.tail, QStringLiteral("stakko/Ice/"));
        QCOMPARE(dialogs.messageLines(), QStringList());
        QCOMPARE(filesBelow(iceFolder()), QStringList{expected});
        QCOMPARE(readFile(iceFolder() + expected), QByteArray("pixels"));
    }

    void windowsPathAndEmptyFolders()
    {
        rawPackage({{"bg1.bmp", "pixels"}, {"sounds/", {}, Kind::Directory}});
        ScriptedDialogs dialogs;
        extractResourcePackage(work(QStringLiteral("THEMES")) + QStringLiteral("\\Ice.zip"), dialogs);
        QCOMPARE(dialogs.messageLines(), QStringList());
        QCOMPARE(readFile(iceFolder() + QStringLiteral("bg1.bmp")), QByteArray("pixels"));
        QVERIFY(QFileInfo(iceFolder() + QStringLiteral("sounds")).isDir());
    }

    void replacesFilesAndDeletesNothing()
    {
        writeFile(iceFolder() + QStringLiteral("gfx/bg1.bmp"), "old frame");
        writeFile(iceFolder() + QStringLiteral("gfx/mine.bmp"), "the author's own");
        const QString package = rawPackage({{"gfx/bg1.bmp", "new frame"}});
        ScriptedDialogs dialogs;

        extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.messages.size(), 0);
        QCOMPARE(dialogs.inputPrompts.size(), 0);
        QCOMPARE(readFile(iceFolder() + QStringLiteral("gfx/bg1.bmp")), QByteArray("new frame"));
        QCOMPARE(readFile(iceFolder() + QStringLiteral("gfx/mine.bmp")), QByteArray("the author's own"));
        QCOMPARE(filesBelow(iceFolder()), (QStringList{QStringLiteral("gfx/bg1.bmp"), QStringLiteral("gfx/mine.bmp")}));
    }

    void unreadablePackageIsReported_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << QByteArray() << QStringLiteral("The file does not exist.");
        const QString notZip = QStringLiteral("It is not a zip archive or it is damaged.");
        QTest::newRow("text file") << QByteArray("[Theme Info]\r\nname=Ice\r\n") << notZip;
        QTest::newRow("empty file") << QByteArray("") << notZip;
        const QByteArray whole = RawZip::build({{"gfx/bg1.bmp", QByteArray(4000, 'x')}});
        QTest::newRow("cut short") << whole.left(2000) << QStringLiteral("It is damaged at gfx/bg1.bmp.");
        QTest::newRow("wrong checksum") << RawZip::build({{"gfx/bg1.bmp", "pixels", Kind::File, true}})
                                        << QStringLiteral("It is damaged at gfx/bg1.bmp.");
    }

    void unreadablePackageIsReported()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const QString package = work(QStringLiteral("themes/Ice.zip"));
        if (!bytes.isNull())
            writeFile(package, bytes);
        ScriptedDialogs dialogs;

        const PackageLocation location = extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.messageLines(), QStringList{errorLine(package, reason)});
        QCOMPARE(dialogs.messages.at(0).icon, Dialogs::Icon::Critical);
        QCOMPARE(location.folder, iceFolder());
        QVERIFY(QFileInfo(iceFolder()).isDir()); // made even so, for the caller to publish
        QCOMPARE(filesBelow(iceFolder()), QStringList());
    }

    void damagedEntryKeepsTheOldFileAndTheRestIsExtracted()
    {
        writeFile(iceFolder() + QStringLiteral("b.bmp"), "good old b");
        const QString package = rawPackage({{"a.bmp", "new a"},
                                            {"b.bmp", "broken b", Kind::File, true},
                                            {"c.bmp", "new c"}});
        ScriptedDialogs dialogs;

        extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.messageLines(), QStringList{errorLine(package, QStringLiteral("It is damaged at b.bmp."))});
        QCOMPARE(filesBelow(iceFolder()),
                 (QStringList{QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")}));
        QCOMPARE(readFile(iceFolder() + QStringLiteral("b.bmp")), QByteArray("good old b"));
        QCOMPARE(readFile(iceFolder() + QStringLiteral("c.bmp")), QByteArray("new c"));
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

        extractResourcePackage(package, dialogs);

        QCOMPARE(filesBelow(m_work->path()),
                 (QStringList{QStringLiteral("themes/Ice.zip"), QStringLiteral("tmp/stakko/Ice/ok.bmp")}));
        QVERIFY(!QFileInfo::exists(QStringLiteral("/stakko-escape-test")));
        QCOMPARE(dialogs.messageLines(),
                 QStringList{errorLine(package, QStringLiteral("The entry %1 points outside the package folder "
                                                               "and was skipped.").arg(QString::fromLatin1(stored).replace(u'\\', u'/')))});
    }

    void linkEntriesAreNotCreated()
    {
        const QString outside = work(QStringLiteral("outside"));
        QVERIFY(QDir().mkpath(outside));
        const QString package = rawPackage({{"gfx", outside.toUtf8(), Kind::Symlink},
                                            {"gfx/evil.bmp", "evil"},
                                            {"ok.bmp", "fine"}});
        ScriptedDialogs dialogs;

        extractResourcePackage(package, dialogs);

        QCOMPARE(filesBelow(outside), QStringList());
        QVERIFY(!QFileInfo(iceFolder() + QStringLiteral("gfx")).isSymLink());
        QCOMPARE(readFile(iceFolder() + QStringLiteral("ok.bmp")), QByteArray("fine"));
        QCOMPARE(dialogs.messageLines(),
                 QStringList{errorLine(package, QStringLiteral("The entry gfx is a link or a special file and was skipped."))});
    }

    void linkAlreadyInTheFolderIsNotFollowed()
    {
        const QString outside = work(QStringLiteral("outside"));
        QVERIFY(QDir().mkpath(outside));
        QVERIFY(QDir().mkpath(iceFolder()));
        QVERIFY(QFile::link(outside, iceFolder() + QStringLiteral("gfx")));
        const QString package = rawPackage({{"gfx/bg1.bmp", "evil"}, {"ok.bmp", "fine"}});
        ScriptedDialogs dialogs;

        extractResourcePackage(package, dialogs);

        QCOMPARE(filesBelow(outside), QStringList());
        QCOMPARE(readFile(iceFolder() + QStringLiteral("ok.bmp")), QByteArray("fine"));
        QCOMPARE(dialogs.messages.size(), 1);
        QVERIFY2(dialogs.messages.at(0).text.contains(QStringLiteral("\nCould not write gfx/bg1.bmp: ")),
                 qPrintable(dialogs.messages.at(0).text));
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
        const QString root = work(QStringLiteral("bomb"));
        QStringList files;
        for (const QString &name : {QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")}) {
            writeFile(root + u'/' + name, QByteArray(1 << 20, '\0'));
            files.append(root + u'/' + name);
        }
        const QString package = work(QStringLiteral("themes/Ice.zip"));
        QVERIFY(QDir().mkpath(work(QStringLiteral("themes"))));
        QVERIFY(writeResourcePackage(package, files, root));
        QVERIFY(QFileInfo(package).size() < 50000);
        ScriptedDialogs dialogs;

        extractResourcePackage(package, dialogs, ExtractOptions{cap});

        QCOMPARE(dialogs.messageLines(),
                 QStringList{errorLine(package, QStringLiteral("Extraction stopped: the package would write "
                                                               "more than %1.").arg(shown))});
        qint64 total = 0;
        for (const QString &file : filesBelow(iceFolder())) {
            QCOMPARE(QFileInfo(iceFolder() + file).size(), qint64(1 << 20));   // no half files
            total += QFileInfo(iceFolder() + file).size();
        }
        QVERIFY(total <= cap);
    }

    void passwords_data()
    {
        QTest::addColumn<PackageEncryption>("encryption");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<int>("prompts");
        QTest::addColumn<bool>("unpacked");
        const Answers right{QStringLiteral("s3cret")};
        QTest::newRow("traditional, right") << PackageEncryption::Traditional << right << 1 << true;
        QTest::newRow("AES-256, right") << PackageEncryption::Aes256 << right << 1 << true;
        // A wrong answer is asked again; the unanswered second question cancels.
        const Answers wrong{QStringLiteral("guess")};
        QTest::newRow("traditional, wrong") << PackageEncryption::Traditional << wrong << 2 << false;
        QTest::newRow("AES-256, wrong") << PackageEncryption::Aes256 << wrong << 2 << false;
        // A refused answer stops the asking: the right one queued behind it is never used.
        QTest::newRow("cancelled") << PackageEncryption::Traditional << Answers{std::nullopt, QStringLiteral("s3cret")}
                                   << 1 << false;
        QTest::newRow("empty") << PackageEncryption::Traditional << Answers{QString(), QStringLiteral("s3cret")}
                               << 1 << false;
    }

    void passwords()
    {
        QFETCH(PackageEncryption, encryption);
        QFETCH(Answers, answers);
        QFETCH(int, prompts);
        QFETCH(bool, unpacked);
        const QString package = packedPackage({encryption, QStringLiteral("s3cret")});
        writeFile(iceFolder() + QStringLiteral("gfx/bg1.bmp"), "old frame");
        ScriptedDialogs dialogs;
        for (const auto &answer : answers)
            dialogs.inputs.enqueue(answer);

        extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.inputPrompts, QStringList(prompts, QStringLiteral("Please Enter The Password!")));
        if (unpacked) {
            QCOMPARE(dialogs.messageLines(), QStringList());
            QCOMPARE(filesBelow(iceFolder()), (QStringList{QStringLiteral("gfx/bg1.bmp"), QStringLiteral("gfx/bg2.bmp"),
                                                           QStringLiteral("snd/drop.wav")}));
            QCOMPARE(readFile(iceFolder() + QStringLiteral("snd/drop.wav")), QByteArray("content of snd/drop.wav"));
        } else {
            QCOMPARE(dialogs.messageLines(),
                     QStringList{errorLine(package, QStringLiteral("The password is wrong or missing for gfx/bg1.bmp."))});
            QCOMPARE(filesBelow(iceFolder()), QStringList{QStringLiteral("gfx/bg1.bmp")});
            QCOMPARE(readFile(iceFolder() + QStringLiteral("gfx/bg1.bmp")), QByteArray("old frame"));
        }
    }

    void passwordStateStartsAfreshWithEachExtraction()
    {
        const QString package = packedPackage({PackageEncryption::Traditional, QStringLiteral("s3cret")});
        ScriptedDialogs dialogs;
        dialogs.inputs.enqueue(std::nullopt);
        extractResourcePackage(package, dialogs);
        dialogs.inputs.enqueue(QStringLiteral("s3cret"));
        extractResourcePackage(package, dialogs);
        QCOMPARE(dialogs.inputPrompts.size(), 2);
        QCOMPARE(dialogs.messages.size(), 1);
        QCOMPARE(filesBelow(iceFolder()).size(), 3);
    }
};

QTEST_GUILESS_MAIN(ResourcePackageTest)
#include "tst_resourcepackage.moc"
