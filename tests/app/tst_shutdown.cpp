// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor ended by the system: it exits as Exit does and keeps unsaved changes for the author.

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "document/themedocument.h"
#include "document/themefilewriter.h"
#include "document/themeloader.h"
#include "document/themerecovery.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

/** The process handles \a signalNumber itself: once its start-up is done, it ends politely. */
bool catches(qint64 pid, int signalNumber)
{
    const QByteArray status = readFile(QStringLiteral("/proc/%1/status").arg(pid));
    const qsizetype at = status.indexOf("SigCgt:");
    if (at < 0)
        return false;
    const quint64 mask = status.mid(at + 7, status.indexOf('\n', at) - at - 7).trimmed().toULongLong(nullptr, 16);
    return mask & (quint64(1) << (signalNumber - 1));
}

} // namespace

class ShutdownTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;

    QString path(const QString &name) const { return m_dir->filePath(name); }

private slots:
    void init()
    {
        const QString editor = QString::fromLocal8Bit(qgetenv("STAKKO_EDITOR"));
        if (editor.isEmpty())
            QSKIP("STAKKO_EDITOR names no editor binary");
        m_dir = std::make_unique<QTemporaryDir>();
        // skm.ini goes beside a program in a writable folder: this copy's, not the build's.
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("bin")));
        QVERIFY(QFile::copy(editor, path(QStringLiteral("bin/stakko-theme-maker"))));
    }

    void endsOnSignal_data()
    {
        QTest::addColumn<int>("signalNumber");
        QTest::addColumn<bool>("unsaved");
        QTest::newRow("SIGTERM") << SIGTERM << false;
        QTest::newRow("SIGINT") << SIGINT << false;
        QTest::newRow("SIGHUP") << SIGHUP << false;
        QTest::newRow("SIGTERM with unsaved changes") << SIGTERM << true;
    }

    void endsOnSignal()
    {
        QFETCH(int, signalNumber);
        QFETCH(bool, unsaved);

        // Loading a theme named on the command line counts as changing it.
        const QString theme = path(QStringLiteral("Night.skt"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setNumber(u"themetype", 0);
        doc.setText(u"name", QStringLiteral("Night"));
        QVERIFY(writeThemeFile(doc, theme));

        QProcess editor;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "TMPDIR"})
            env.insert(QLatin1StringView(name), m_dir->path());
        editor.setProcessEnvironment(env);
        // A shell without job control starts background commands with SIGINT ignored.
        editor.setChildProcessModifier([] { std::signal(SIGINT, SIG_DFL); });
        editor.start(path(QStringLiteral("bin/stakko-theme-maker")), unsaved ? QStringList{theme} : QStringList{});
        QVERIFY(editor.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(catches(editor.processId(), signalNumber), 60000);
        QCOMPARE(::kill(pid_t(editor.processId()), signalNumber), 0);

        QVERIFY(editor.waitForFinished(10000));
        QCOMPARE(editor.exitStatus(), QProcess::NormalExit);
        QCOMPARE(editor.exitCode(), 0);
        QVERIFY(QFile::exists(path(QStringLiteral("bin/skm.ini"))));

        const QString folder = path(QStringLiteral("Stakko Theme Maker/recovered"));
        const QStringList kept = QDir(folder).entryList({QStringLiteral("*.skt")}, QDir::Files);
        QCOMPARE(kept.size(), unsaved ? 1 : 0);
        if (!unsaved)
            return;
        QCOMPARE(QFile::permissions(folder) & 0x0777, QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
        QVERIFY(kept.first().startsWith(QStringLiteral("Night ")));
        const QString copy = folder + u'/' + kept.first();

        // The copy is the theme as the editor held it, and loads back cleanly.
        ScriptedDialogs quiet;
        ThemeDocument loaded;
        QVERIFY(loadThemeFile(loaded, theme, quiet).loaded);
        QVERIFY(writeThemeFile(loaded, path(QStringLiteral("expected.skt"))));
        QCOMPARE(readFile(copy), readFile(path(QStringLiteral("expected.skt"))));
        ThemeDocument back;
        const LoadReport report = loadThemeFile(back, copy, quiet);
        QVERIFY(report.loaded);
        QCOMPARE(report.lines(), QStringList());

        // The next start names the copy once, and leaves it where it is.
        const ThemeRecovery recovery(folder);
        const Report first = recovery.announce();
        QCOMPARE(first.lines(),
                 QStringList{"Unsaved Changes Kept: Stakko Theme Maker was closed by the system with unsaved "
                             "changes. They were kept in:\n" + QDir::toNativeSeparators(copy)
                             + "\nLoad that file to get them back."});
        QCOMPARE(first.problems.first().severity, Problem::Severity::Information);
        QCOMPARE(recovery.announce().lines(), QStringList());
        QVERIFY(QFile::exists(copy));
    }
};

QTEST_GUILESS_MAIN(ShutdownTest)
#include "tst_shutdown.moc"
