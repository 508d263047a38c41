// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every file the program writes goes through one mechanism, whole or not at all; settings files
// are written only where their user alone may write.

#include "common/safefile.h"
#include "common/settingsfiles.h"
#include "common/smalldisk.h"
#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "package/packagewriter.h"
#include "sound/mixersettings.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

#include <unistd.h>

using Writer = std::function<Result<void>(const QString &path)>;
Q_DECLARE_METATYPE(Writer)

class SafeFileTest : public QObject
{
    Q_OBJECT

private slots:
    // Small enough to sit in a write buffer, so only a checked flush or close sees the failure.
    void fullDiskKeepsTheOldFile_data()
    {
        QTest::addColumn<Writer>("writer");
        QTest::addColumn<qint64>("leftBytes");
        QTest::newRow("theme file") << Writer([](const QString &path) {
            ThemeDocument doc;
            doc.resetTheme();
            doc.setText(u"description", QString(9000, u'd'));
            return writeThemeFile(doc, path);
        }) << qint64(4096);
        QTest::newRow("skm.ini") << Writer([](const QString &path) {
            return writeEditorConfig({44100, 8, 1}, path);
        }) << qint64(0);
        QTest::newRow("package") << Writer([](const QString &path) {
            const QString source = QFileInfo(path).absolutePath() + QStringLiteral("/../source");
            writeFile(source + QStringLiteral("/bg1.bmp"), noiseBytes(12000, 7));
            return writeResourcePackage(path, {source + QStringLiteral("/bg1.bmp")}, source);
        }) << qint64(8192);
    }

    void fullDiskKeepsTheOldFile()
    {
        QFETCH(Writer, writer);
        QFETCH(qint64, leftBytes);
        SmallDisk disk(256);
        if (!disk.isMounted())
            QSKIP(qPrintable(disk.skipReason()));
        const QString target = disk.filePath(QStringLiteral("out/target"));
        QVERIFY(writeFile(target, "the old file"));
        QVERIFY(disk.fill(leftBytes));

        const Result<void> written = writer(target);
        QVERIFY(!written);
        const QString error = written.errorText();

        QVERIFY2(error.contains(QStringLiteral("No space left on device")), qPrintable(error));
        QCOMPARE(contentsBelow(disk.filePath(QStringLiteral("out"))), QStringList{"target=the old file"});
    }

    void replacingKeepsPermissionsAndFollowsLinks_data()
    {
        QTest::addColumn<bool>("throughLink");
        QTest::newRow("plain file") << false;
        QTest::newRow("through a link") << true;
    }

    void replacingKeepsPermissionsAndFollowsLinks()
    {
        QFETCH(bool, throughLink);
        QTemporaryDir dir;
        const QString real = dir.filePath(QStringLiteral("real.skt"));
        QVERIFY(writeFile(real, "old"));
        QVERIFY(QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        const QFile::Permissions permissions = QFile::permissions(real);
        QString path = real;
        if (throughLink) {
            path = dir.filePath(QStringLiteral("link.skt"));
            QVERIFY(QFile::link(real, path));
        }

        const Result<void> written = writeWholeFile(path, "new");
        QVERIFY2(written, qPrintable(written.errorText()));

        QCOMPARE(contentsBelow(dir.path()), (throughLink ? QStringList{"link.skt@", "real.skt=new"}
                                                         : QStringList{"real.skt=new"}));
        QCOMPARE(QFile::permissions(real), permissions);
    }

    void editorSettingsStayPerUser()
    {
        // Even where skm.ini may sit beside the program, the editor's own settings do not.
        const QString userFolder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
        QCOMPARE(settingsWritePath(SettingsFile::Editor), userFolder + QStringLiteral("/editor.ini"));
        QCOMPARE(settingsReadPath(SettingsFile::Editor), userFolder + QStringLiteral("/editor.ini"));
        const QString programFolder = QCoreApplication::applicationDirPath();
        const QString mixer = settingsBesideProgram(programFolder, {}) ? programFolder : userFolder;
        QCOMPARE(settingsWritePath(SettingsFile::Mixer), mixer + QStringLiteral("/skm.ini"));
    }

    void settingsStayBesideOnlyAnOwnUnsharedCopy_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QFile::Permissions>("permissions");
        QTest::addColumn<bool>("beside");
        const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        const QFile::Permissions shared = own | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
        QTest::newRow("own folder") << "own" << shared << true;
        QTest::newRow("installed copy's folder") << "usr/bin" << shared << false;
        QTest::newRow("group may write") << "own" << (shared | QFile::WriteGroup) << false;
        QTest::newRow("anyone may write") << "own" << (shared | QFile::WriteOther) << false;
        QTest::newRow("a link to an own folder") << "link" << shared << false;
        QTest::newRow("missing") << "missing" << shared << false;
        if (::geteuid() != 0) // root writes anywhere
            QTest::newRow("read-only") << "own" << (shared & ~QFile::WriteOwner) << false;
    }

    void settingsStayBesideOnlyAnOwnUnsharedCopy()
    {
        QFETCH(QString, folder);
        QFETCH(QFile::Permissions, permissions);
        QFETCH(bool, beside);
        QTemporaryDir dir;
        // An installed copy: usr/bin beside usr/share/metainfo.
        QVERIFY(QDir().mkpath(dir.filePath("usr/share/metainfo")));
        QVERIFY(writeFile(dir.filePath("usr/share/metainfo/app.xml"), "<component/>"));
        for (const char *name : {"own", "usr/bin"}) {
            QVERIFY(QDir().mkpath(dir.filePath(name)));
            QVERIFY(QFile::setPermissions(dir.filePath(name), permissions));
        }
        QVERIFY(QFile::link(dir.filePath("own"), dir.filePath("link")));
        QCOMPARE(settingsBesideProgram(dir.filePath(folder), "../share/metainfo/app.xml"), beside);
        QVERIFY(QFile::setPermissions(dir.filePath("own"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
};

QTEST_GUILESS_MAIN(SafeFileTest)
#include "tst_safefile.moc"
