// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor ended by the system: it exits as Exit does and keeps unsaved changes for the author.

#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

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
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "TMPDIR"})
            env.insert(QLatin1StringView(name), m_dir->path());
        editor.setProcessEnvironment(env);
        // A shell without job control starts background commands with SIGINT ignored.
        editor.setChildProcessModifier([] { std::signal(SIGINT, SIG_DFL); });
        editor.start(path(QStringLiteral("bin/stakko-theme-maker")), loaded ? QStringList{theme} : QStringList{});
        QVERIFY(editor.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(catches(editor.processId(), signalNumber), 60000);
        QCOMPARE(::kill(pid_t(editor.processId()), signalNumber), 0);

        QVERIFY(editor.waitForFinished(10000));
        QCOMPARE(editor.exitStatus(), QProcess::NormalExit);
        QCOMPARE(editor.exitCode(), 0);
        QVERIFY(QFile::exists(path(QStringLiteral("bin/skm.ini"))));

        const QString folder = path(QStringLiteral("Stakko Theme Maker/recovered"));
        const QStringList kept = QDir(folder).entryList({QStringLiteral("*.skt")}, QDir::Files);
        QCOMPARE(kept, QStringList());
    }
};

QTEST_GUILESS_MAIN(ShutdownTest)
#include "tst_shutdown.moc"
