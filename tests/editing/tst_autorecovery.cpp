// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/testfiles.h"
#include "editing/autorecovery.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

namespace {

const char *const childFolderVariable = "STAKKO_RECOVERY_CHILD";

// Unsaved work of every kind the document holds.
void edit(ThemeDocument &doc)
{
    doc.resetTheme();
    doc.setText(u"name", QStringLiteral("Glacier"));
    doc.setText(u"description", QStringLiteral("Cold\r\nand blue"));
    doc.setNumber(u"includecolors", 1);
    doc.setText(u"colortitle", QStringLiteral("1,2,3"));
    doc.setSwatch(0, 0x030201);
    doc.setNumber(u"themetype", 0);
    doc.setCurrentThemeFile(QStringLiteral("/home/me/Glacier.skt"));
    doc.setPackageFolder(QStringLiteral("/tmp/stakko/Glacier/"), QStringLiteral("stakko/Glacier/"));
    doc.setMusicFolder(QStringLiteral("/home/me/music/"));
}

QStringList everything(const ThemeDocument &doc)
{
    QStringList all;
    for (int i = 0; i < int(themeFields().size()); ++i)
        all << doc.value(i);
    for (int i = 0; i < int(std::size(colorKeys)); ++i)
        all << (doc.swatch(i) ? QString::number(*doc.swatch(i)) : QStringLiteral("none"));
    return all << doc.currentThemeFile() << doc.packageFolder() << doc.packageFolderTail() << doc.musicFolder();
}

// The editor that is killed: keeps a copy, says so, then waits for its end.
int runChild(const QString &folder)
{
    ThemeDocument doc;
    AutoRecovery recovery(doc, folder);
    recovery.setPageSource([] { return 3; });
    edit(doc);
    if (!recovery.writeCopy())
        return 1;
    std::fputs("ready\n", stdout);
    std::fflush(stdout);
    QThread::sleep(60);
    return 0;
}

} // namespace

class AutoRecoveryTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // A copy left by an editor killed while it held it.
    void killedEditor(const QString &folder)
    {
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QLatin1StringView(childFolderVariable), folder);
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(), {});
        QVERIFY(child.waitForReadyRead(20000));
        QCOMPARE(child.readLine(), QByteArray("ready\n"));
        child.kill();
        QVERIFY(child.waitForFinished());
    }

private slots:
    void copyFollowsUnsavedChangesAndGoesOnSave()
    {
        const QString folder = m_dir.filePath(QStringLiteral("follow"));
        ThemeDocument doc;
        AutoRecovery recovery(doc, folder);
        recovery.setDelays(10, 50);
        connect(&recovery, &AutoRecovery::copyDue, &recovery, [&recovery] { QVERIFY(recovery.writeCopy()); });
        doc.setText(u"name", QStringLiteral("Thaw"));
        doc.setDirty(false); // saved before the changes settled: nothing to keep
        QTest::qWait(80);
        QVERIFY(!QDir(recovery.copyFolder()).exists());

        doc.setText(u"name", QStringLiteral("Frost"));
        const QString state = recovery.copyFolder() + QStringLiteral("/state.json");
        QTRY_VERIFY(QFile::exists(state));
        const QString written = m_dir.filePath(QStringLiteral("written.skt"));
        QVERIFY(writeThemeFile(doc, written));
        QCOMPARE(readFile(recovery.copyFolder() + QStringLiteral("/theme.skt")), readFile(written));
        QCOMPARE(QFile::permissions(folder) & (QFile::ReadOther | QFile::ReadGroup), QFile::Permissions());

        recovery.restart();
        QVERIFY(!QDir(recovery.copyFolder()).exists());
        QVERIFY(!QFile::exists(recovery.copyFolder() + QStringLiteral(".lock")));
    }

    void restoreOrDiscard_data()
    {
        QTest::addColumn<bool>("restore");
        QTest::newRow("Restore") << true;
        QTest::newRow("Discard") << false;
    }

    void restoreOrDiscard()
    {
        QFETCH(bool, restore);
        const QString folder = m_dir.filePath(restore ? QStringLiteral("restore") : QStringLiteral("discard"));
        // Only the copy of the editor that is gone is offered, not that of one still running.
        ThemeDocument running;
        AutoRecovery first(running, folder);
        edit(running);
        QVERIFY(first.writeCopy());
        killedEditor(folder);
        ThemeDocument doc;
        doc.resetTheme();
        doc.setDirty(false);
        AutoRecovery recovery(doc, folder);
        std::vector<AutoRecovery::Orphan> orphans = recovery.takeOrphans();
        QCOMPARE(orphans.size(), size_t(1));
        QCOMPARE(orphans.front().themeFile, QStringLiteral("/home/me/Glacier.skt"));
        QVERIFY(orphans.front().folder != first.copyFolder());
        // An editor starting now does not offer what this one holds.
        ThemeDocument third;
        QVERIFY(AutoRecovery(third, folder).takeOrphans().empty());
        const QStringList before = everything(doc);
        if (restore) {
            QCOMPARE(recovery.restore(orphans.front()).valueOr(-1), 3);
            ThemeDocument expected;
            edit(expected);
            QCOMPARE(everything(doc), everything(expected));
            QVERIFY(doc.isDirty());
        } else {
            recovery.discard(orphans.front());
            QCOMPARE(everything(doc), before);
        }
        QVERIFY(!QDir(orphans.front().folder).exists());
        QVERIFY(!QFile::exists(orphans.front().folder + QStringLiteral(".lock")));
        QVERIFY(recovery.takeOrphans().empty());
    }

    void copiesLeftForTheNextStartAreOffered_data()
    {
        QTest::addColumn<bool>("oldFolder");
        QTest::newRow("ended by the system") << false;
        QTest::newRow("left in the folder older editors used") << true;
    }

    void copiesLeftForTheNextStartAreOffered()
    {
        QFETCH(bool, oldFolder);
        const QString folder = m_dir.filePath(oldFolder ? QStringLiteral("autosave-old") : QStringLiteral("autosave"));
        const QString sessions = m_dir.filePath(QStringLiteral("sessions"));
        QString kept;
        {
            ThemeDocument ending;
            AutoRecovery recovery(ending, oldFolder ? sessions : folder);
            recovery.setPageSource([] { return 3; });
            edit(ending);
            const Result<QString> left = recovery.keepForNextStart();
            QVERIFY(left);
            kept = *left;
            QCOMPARE(kept, recovery.copyFolder());
        }
        QVERIFY(QFile::exists(kept + QStringLiteral("/state.json")));
        if (oldFolder) {
            // Older editors named each copy so.
            QVERIFY(QDir().rename(kept, sessions + QStringLiteral("/session-1-2")));
            AutoRecovery::takeOldCopies(sessions, folder);
            QVERIFY(!QDir(sessions).exists());
        }
        ThemeDocument doc;
        AutoRecovery next(doc, folder);
        const std::vector<AutoRecovery::Orphan> orphans = next.takeOrphans();
        QCOMPARE(orphans.size(), size_t(1));
        QCOMPARE(next.restore(orphans.front()).valueOr(-1), 3);
        ThemeDocument expected;
        edit(expected);
        QCOMPARE(everything(doc), everything(expected));
    }

    void filesOlderEditorsKeptAreNamedOnce()
    {
        const QString folder = m_dir.filePath(QStringLiteral("recovered"));
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(writeFile(folder + QStringLiteral("/Glacier 2026-01-02 030405.skt"), "[Theme Info]\r\n"));
        const Report first = AutoRecovery::announceOldKeptFiles(folder);
        QCOMPARE(first.problems.size(), 1);
        QCOMPARE(first.problems.first().severity, Problem::Severity::Information);
        QCOMPARE(first.problems.first().text,
                 QStringLiteral("Stakko Theme Maker was closed by the system with unsaved changes. They were kept in:\n%1\n"
                                "Load that file to get them back.")
                     .arg(QDir::toNativeSeparators(folder + QStringLiteral("/Glacier 2026-01-02 030405.skt"))));
        QVERIFY(AutoRecovery::announceOldKeptFiles(folder).isEmpty());
        QVERIFY(QFile::exists(folder + QStringLiteral("/Glacier 2026-01-02 030405.skt")));
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (qEnvironmentVariableIsSet(childFolderVariable))
        return runChild(qEnvironmentVariable(childFolderVariable));
    AutoRecoveryTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_autorecovery.moc"
