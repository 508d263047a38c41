// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// `stakko-theme build` of a theme naming 400 background frames, against Info-ZIP's `zip -q -r`
// over the same files, the two alternating. Prints the median times and the median of the
// rounds' ratios (target <= 1.2).

#include "benchstats.h"

#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>
#include <utility>

namespace {

constexpr int frameCount = 400;
constexpr int runs = 7;

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QString zip = QStandardPaths::findExecutable(QStringLiteral("zip"));
    if (zip.isEmpty()) {
        std::fprintf(stderr, "Info-ZIP zip is not installed: nothing to compare with\n");
        return 1;
    }
    QTemporaryDir work;
    const QString art = work.filePath(QStringLiteral("art"));
    if (!work.isValid() || !QDir().mkpath(art))
        return 1;
    drawFrames(art, frameCount);

    const Result<QString> written = writeFramesTheme(work.path(), frameCount);
    if (!written) {
        std::fprintf(stderr, "writing the theme failed: %s\n", qUtf8Printable(written.errorText()));
        return 1;
    }
    const QString theme = *written;

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TMPDIR"), work.filePath(QStringLiteral("tmp")));
    QDir().mkpath(work.filePath(QStringLiteral("tmp")));
    const QString built = work.filePath(QStringLiteral("Frames.zip"));
    const QString zipped = work.filePath(QStringLiteral("Zipped.zip"));
    QList<double> builds;
    QList<double> zips;
    QByteArray out;
    for (int run = 0; run <= runs; ++run) { // run 0 warms the caches
        // zip would add to an archive already there; both start from nothing.
        QFile::remove(zipped);
        const double ours = timedRun(QStringLiteral(STAKKO_CLI_PATH),
                                     {QStringLiteral("build"), theme, QStringLiteral("--from"), art}, env, &out);
        const double theirs = timedRun(zip, {QStringLiteral("-q"), QStringLiteral("-r"), zipped, QStringLiteral(".")},
                                       env, &out, art);
        if (ours < 0 || theirs < 0) {
            std::fprintf(stderr, "a run failed:\n%s", out.constData());
            return 1;
        }
        if (run > 0) {
            builds.append(ours);
            zips.append(theirs);
        }
    }
    const double ratio = medianRatio(builds, zips);
    std::printf("%d frames 192x352: build %.1f MB, zip %.1f MB\n", frameCount, double(QFileInfo(built).size()) / 1e6,
                double(QFileInfo(zipped).size()) / 1e6);
    std::printf("stakko-theme build: %.1f ms (median of %d)\n", median(builds), runs);
    std::printf("zip -q -r:          %.1f ms (median of %d)\n", median(zips), runs);
    benchRow("package build / zip -q -r", ratio, 1.2, "x");
    return 0;
}
