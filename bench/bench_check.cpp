// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// `stakko-theme check` of a Type 1 theme whose package holds 400 background frames, against
// `stakko-theme dump` of the same theme: both load it and unpack the package, so the ratio is
// what checking adds. Prints the median times and the median of the rounds' ratios (target <= 1.3).

#include "benchstats.h"

#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "package/packagewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <utility>

namespace {

constexpr int frameCount = 400;
constexpr int runs = 7;

/** Milliseconds one run of the command line took; negative when it failed. */
double timed(const QStringList &args, const QProcessEnvironment &env, QByteArray *out)
{
    return timedRun(QStringLiteral(STAKKO_CLI_PATH), args, env, out);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir work;
    if (!work.isValid() || !QDir(work.path()).mkpath(QStringLiteral("frames")))
        return 1;

    const QString package = work.filePath(QStringLiteral("Frames.zip"));
    const Result<void> packed = writeResourcePackage(
        package, drawFrames(work.filePath(QStringLiteral("frames")), frameCount), work.filePath(QStringLiteral("frames")));
    if (!packed) {
        std::fprintf(stderr, "packing failed: %s\n", qUtf8Printable(packed.errorText()));
        return 1;
    }
    const Result<QString> written = writeFramesTheme(work.path(), frameCount);
    if (!written) {
        std::fprintf(stderr, "writing the theme failed: %s\n", qUtf8Printable(written.errorText()));
        return 1;
    }
    const QString theme = *written;
    std::printf("theme: Type 1, package of %d frames 192x352, %.1f MB\n", frameCount,
                double(QFileInfo(package).size()) / 1e6);

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TMPDIR"), work.filePath(QStringLiteral("tmp")));
    QDir().mkpath(work.filePath(QStringLiteral("tmp")));
    QList<double> checks;
    QList<double> dumps;
    QByteArray found;
    QByteArray dumped;
    for (int run = 0; run <= runs; ++run) {   // run 0 warms the caches and creates the files
        const double check = timed({QStringLiteral("check"), theme}, env, &found);
        const double dump = timed({QStringLiteral("dump"), theme}, env, &dumped);
        if (check < 0 || dump < 0) {
            std::fprintf(stderr, "a run failed:\n%s", found.constData());
            return 1;
        }
        if (run > 0) {
            checks.append(check);
            dumps.append(dump);
        }
    }

    const double ratio = medianRatio(checks, dumps);
    std::printf("check found: %s", found.right(found.size() - found.lastIndexOf('\n', -2) - 1).constData());
    std::printf("stakko-theme check: %.1f ms (median of %d)\n", median(checks), runs);
    std::printf("stakko-theme dump:  %.1f ms (median of %d)\n", median(dumps), runs);
    benchRow("check / dump of a Type 1 theme", ratio, 1.3, "x");
    return 0;
}
