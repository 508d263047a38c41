// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Running another program as a test step: its exit status and both outputs, stdin closed.

#include <QProcess>
#include <QStandardPaths>

struct ProgramRun {
    int status = -1; // -1: did not start, crashed or timed out
    QByteArray out;
    QByteArray err;
};

inline ProgramRun runProgram(const QString &program, const QStringList &args,
                             const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment(),
                             int timeoutMs = 120000)
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setStandardInputFile(QProcess::nullDevice());
    p.start(program, args);
    if (!p.waitForFinished(timeoutMs) || p.exitStatus() != QProcess::NormalExit) {
        p.kill();
        p.waitForFinished();
        return {-1, p.readAllStandardOutput(), p.readAllStandardError() + p.errorString().toUtf8()};
    }
    return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
}

/** Why a test that needs \a tool cannot run here, or empty when it is installed. */
inline QByteArray missingTool(const QString &tool, const char *package)
{
    if (!QStandardPaths::findExecutable(tool).isEmpty())
        return {};
    return tool.toUtf8() + " is not installed (Debian package " + package + "; make test installs it)";
}

/** cmake --install of the build (STAKKO_BUILD_DIR) below \a destDir, with the prefix /usr. */
inline ProgramRun installBuild(const QString &destDir)
{
    const QString build = qEnvironmentVariable("STAKKO_BUILD_DIR");
    if (build.isEmpty())
        return {-1, {}, "STAKKO_BUILD_DIR names no build folder"};
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DESTDIR"), destDir);
    return runProgram(qEnvironmentVariable("STAKKO_CMAKE"),
                      {QStringLiteral("--install"), build, QStringLiteral("--prefix"), QStringLiteral("/usr")}, env);
}
