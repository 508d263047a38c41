// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How the project is built and its tests are run.

#include "common/runprogram.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <pwd.h>
#include <unistd.h>

class SetupTest : public QObject
{
    Q_OBJECT

private slots:
    // No test may read or write the settings, caches or recovery copies of whoever runs them.
    void everyTestHasAHomeOfItsOwn_data()
    {
        QTest::addColumn<int>("location");
        QTest::newRow("configuration") << int(QStandardPaths::GenericConfigLocation);
        QTest::newRow("cache") << int(QStandardPaths::GenericCacheLocation);
        QTest::newRow("data") << int(QStandardPaths::GenericDataLocation);
    }

    void everyTestHasAHomeOfItsOwn()
    {
        QFETCH(int, location);
        const passwd *user = getpwuid(getuid());
        QVERIFY(user && user->pw_dir);
        const QString realHome = QDir(QFile::decodeName(user->pw_dir)).canonicalPath();
        const QString home = QDir::home().canonicalPath();
        QVERIFY2(home != realHome, qPrintable(home));
        QVERIFY2(home.startsWith(QDir(QDir::tempPath()).canonicalPath() + u'/'), qPrintable(home));
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::StandardLocation(location));
        QVERIFY2(folder.startsWith(QDir::homePath() + u'/'), qPrintable(folder));
    }

    // "make run" starts the editor without waiting for every test to build.
    void makeRunBuildsOnlyThePrograms()
    {
        const QString source = qEnvironmentVariable("STAKKO_SOURCE_DIR");
        const QString build = qEnvironmentVariable("STAKKO_BUILD_DIR");
        if (const QByteArray missing = missingTool(QStringLiteral("make"), "make"); !missing.isEmpty())
            QSKIP(missing.constData());
        QTemporaryDir elsewhere;
        const ProgramRun planned =
            runProgram(QStringLiteral("make"), {"-n", "-C", source, "run", "BUILD=" + elsewhere.path()});
        QCOMPARE(planned.status, 0);
        QStringList builds;
        for (const QString &line : QString::fromUtf8(planned.out).split(u'\n')) {
            if (line.contains(QStringLiteral("cmake --build")))
                builds << line.trimmed();
        }
        QCOMPARE(builds.size(), 1);
        QVERIFY2(builds.first().endsWith(QStringLiteral("--target programs")), qPrintable(builds.first()));
        // The build knows that target.
        const ProgramRun known =
            runProgram(qEnvironmentVariable("STAKKO_CMAKE"), {"--build", build, "--target", "programs", "--", "-n"});
        QVERIFY2(known.status == 0, known.err.constData());
    }
};

QTEST_GUILESS_MAIN(SetupTest)
#include "tst_setup.moc"
