// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/settingsfiles.h"
#include "common/testfiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

class SettingsFilesTest : public QObject
{
    Q_OBJECT

private slots:
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

QTEST_GUILESS_MAIN(SettingsFilesTest)
#include "tst_settingsfiles.moc"
