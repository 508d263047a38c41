// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor ended by the system: it exits as Exit does and leaves unsaved changes to be offered at the next start.

#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
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

    /** The editor's own folders are the test's. */
    QProcessEnvironment environment() const
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "TMPDIR"})
            env.insert(QLatin1StringView(name), m_dir->path());
        return env;
    }

    /** Starts the editor's copy and waits until it handles \a signalNumber, its start-up done. */
    void start(QProcess &editor, const QProcessEnvironment &env, const QStringList &args = {}, int signalNumber = SIGTERM)
    {
        editor.setProcessEnvironment(env);
        editor.start(path(QStringLiteral("bin/stakko-theme-maker")), args);
        QVERIFY(editor.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(catches(editor.processId(), signalNumber), 60000);
    }

    /** Sends \a signalNumber and waits for the editor's own, successful exit. */
    static void end(QProcess &editor, int signalNumber = SIGTERM)
    {
        QCOMPARE(::kill(pid_t(editor.processId()), signalNumber), 0);
        QVERIFY(editor.waitForFinished(10000));
        QCOMPARE(editor.exitStatus(), QProcess::NormalExit);
        QCOMPARE(editor.exitCode(), 0);
    }

    /** The autosave copies left for the next start. */
    QStringList copies() const
    {
        return QDir(path(QStringLiteral("Stakko Theme Maker/autosave")))
            .entryList({QStringLiteral("copy-*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    }

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
        QTest::addColumn<bool>("loaded");
        QTest::newRow("SIGTERM") << SIGTERM << false;
        QTest::newRow("SIGINT") << SIGINT << false;
        QTest::newRow("SIGHUP") << SIGHUP << false;
        QTest::newRow("SIGTERM after loading a theme") << SIGTERM << true;
    }

    void endsOnSignal()
    {
        QFETCH(int, signalNumber);
        QFETCH(bool, loaded);

        // A theme named on the command line loads with nothing unsaved.
        const QString theme = path(QStringLiteral("Night.skt"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setNumber(u"themetype", 0);
        doc.setText(u"name", QStringLiteral("Night"));
        QVERIFY(writeThemeFile(doc, theme));

        QProcess editor;
        // A shell without job control starts background commands with SIGINT ignored.
        editor.setChildProcessModifier([] { std::signal(SIGINT, SIG_DFL); });
        start(editor, environment(), loaded ? QStringList{theme} : QStringList{}, signalNumber);
        end(editor, signalNumber);
        QVERIFY(QFile::exists(path(QStringLiteral("bin/skm.ini"))));

        // Nothing was unsaved: no copy is left for the next start.
        QCOMPARE(copies(), QStringList());
    }

    void unsavedChangesAreOfferedAtTheNextStart()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()
            || QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
            QSKIP("typing into the editor needs Xvfb and xdotool");
        // An X server of its own, on a display number it picks itself.
        QProcess server;
        server.start(QStringLiteral("Xvfb"), {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
        QVERIFY(server.waitForReadyRead(20000));
        const QString display = u':' + QString::fromLatin1(server.readLine().trimmed());
        const auto stopServer = qScopeGuard([&server] {
            server.terminate();
            server.waitForFinished();
        });
        QProcessEnvironment env = environment();
        env.insert(QStringLiteral("DISPLAY"), display);
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        const auto xdotool = [&env](const QStringList &args) {
            QProcess tool;
            tool.setProcessEnvironment(env);
            tool.start(QStringLiteral("xdotool"), args);
            tool.waitForFinished();
            return QString::fromLatin1(tool.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        };

        // The author types a name into the new theme; the cursor stands in "Theme Name:" at the start.
        QProcess editor;
        start(editor, env);
        QStringList windows;
        QTRY_VERIFY_WITH_TIMEOUT(
            !(windows = xdotool({"search", "--onlyvisible", "--pid", QString::number(editor.processId())})).isEmpty(), 20000);
        xdotool({"windowfocus", "--sync", windows.first()});
        xdotool({"type", "Dusk"});
        // Typing has reached the editor once its autosave copy holds it.
        QTRY_VERIFY_WITH_TIMEOUT(!copies().isEmpty(), 20000);
        end(editor);
        QCOMPARE(copies().size(), 1);

        // The next start offers it.
        QProcess next;
        start(next, env);
        QTRY_VERIFY_WITH_TIMEOUT(!xdotool({"search", "--onlyvisible", "--name", "Recover Unsaved Changes"}).isEmpty(), 30000);
        end(next);
        // Not answered: still there for the start after.
        QCOMPARE(copies().size(), 1);
    }
};

QTEST_GUILESS_MAIN(ShutdownTest)
#include "tst_shutdown.moc"
