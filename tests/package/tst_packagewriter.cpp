#include "package/resourcepackage.h"

#include "common/scripteddialogs.h"
#include "packagetesthelpers.h"

#include <QTest>

#include <memory>

using PackageTest::filesBelow;
using PackageTest::readFile;
using PackageTest::writeFile;

class PackageWriterTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<PackageTest::ScratchFolder> m_work;

    QString work(const QString &relative) const { return m_work->file(relative); }


    /** The theme's files below work/src, as paths. */
    QStringList themeFiles(const QStringList &names) const
    {
        QStringList files;
        for (const QString &name : names) {
            writeFile(work(QStringLiteral("src/") + name), "bytes of " + name.toUtf8());
            files.append(work(QStringLiteral("src/") + name));
        }
        return files;
    }

private slots:
    void init()
    {
        m_work = std::make_unique<PackageTest::ScratchFolder>();
        QVERIFY(m_work->isValid());
    }

    void cleanup() { m_work.reset(); }

    void namesAreStoredRelativeToTheRoot_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::newRow("flat") << QStringList{QStringLiteral("bg1.bmp"), QStringLiteral("drop.wav")};
        QTest::newRow("sub-folders") << QStringList{QStringLiteral("gfx/bg/bg1.bmp"), QStringLiteral("snd/drop.wav")};
        QTest::newRow("beyond ASCII") << QStringList{QStringLiteral("gfx/Eisbär.bmp"), QStringLiteral("Übung.wav")};
    }

    void namesAreStoredRelativeToTheRoot()
    {
        QFETCH(QStringList, names);
        const QString package = work(QStringLiteral("Ice.zip"));
        QString error;
        QVERIFY2(writeResourcePackage(package, themeFiles(names), work(QStringLiteral("src")), &error),
                 qPrintable(error));
        QVERIFY(!readFile(package).contains('\\'));

        ScriptedDialogs dialogs;
        const PackageLocation location = extractResourcePackage(package, dialogs);

        QCOMPARE(dialogs.messageLines(), QStringList());
        QStringList expected = names;
        expected.sort();
        QCOMPARE(filesBelow(location.folder), expected);
        for (const QString &name : names)
            QCOMPARE(readFile(location.folder + name), "bytes of " + name.toUtf8());
    }

    void relativePathsCountFromTheCurrentFolder()
    {
        const QStringList files = themeFiles({QStringLiteral("gfx/bg1.bmp")});
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_work->path()));
        const bool written = writeResourcePackage(QStringLiteral("Ice.zip"), {QStringLiteral("src/gfx/bg1.bmp")},
                                                  QStringLiteral("src"));
        QDir::setCurrent(before);
        QVERIFY(written);

        ScriptedDialogs dialogs;
        const PackageLocation location = extractResourcePackage(work(QStringLiteral("Ice.zip")), dialogs);
        QCOMPARE(filesBelow(location.folder), QStringList{QStringLiteral("gfx/bg1.bmp")});
    }

    void packingAgainGivesTheSameBytes()
    {
        const QStringList files = themeFiles({QStringLiteral("gfx/bg1.bmp"), QStringLiteral("snd/drop.wav")});
        QVERIFY(writeResourcePackage(work(QStringLiteral("first.zip")), files, work(QStringLiteral("src"))));
        QFile touched(files.at(0));
        QVERIFY(touched.open(QIODevice::ReadWrite));
        QVERIFY(touched.setFileTime(QDateTime::currentDateTime().addDays(-3), QFileDevice::FileModificationTime));
        touched.close();
        QVERIFY(writeResourcePackage(work(QStringLiteral("second.zip")), files, work(QStringLiteral("src"))));

        QCOMPARE(readFile(work(QStringLiteral("second.zip"))), readFile(work(QStringLiteral("first.zip"))));
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
        QStringList files = themeFiles({QStringLiteral("gfx/bg1.bmp")});
        writeFile(work(QStringLiteral("other/bg1.bmp")), "elsewhere");
        files.append(work(badFile));
        const QString package = work(QStringLiteral("Ice.zip"));
        writeFile(package, "the old package");

        QString error;
        QVERIFY(!writeResourcePackage(package, files, work(QStringLiteral("src")), &error));

        QVERIFY2(error.startsWith(errorStart.arg(work(badFile))), qPrintable(error));
        QCOMPARE(readFile(package), QByteArray("the old package"));
        QCOMPARE(QDir(m_work->path()).entryList({QStringLiteral("*.zip*")}, QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("Ice.zip")});
    }

    void encryptionNeedsAPassword()
    {
        QString error;
        QVERIFY(!writeResourcePackage(work(QStringLiteral("Ice.zip")), themeFiles({QStringLiteral("a.bmp")}),
                                      work(QStringLiteral("src")), &error, {PackageEncryption::Aes256, QString()}));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFileInfo::exists(work(QStringLiteral("Ice.zip"))));
    }
};

QTEST_GUILESS_MAIN(PackageWriterTest)
#include "tst_packagewriter.moc"
