// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Unpacking a package of 400 background frames, against Info-ZIP's unzip on the same file: again
// over the files of the run before, and into an empty folder. Targets <= 1.15.

#include "benchstats.h"

#include "common/dialogs.h"
#include "package/resourcepackage.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int frameCount = 400;
constexpr int runs = 7;

class SilentDialogs : public Dialogs
{
public:
    Answer askYesNoCancel(const QString &, const QString &) override { return Answer::Cancel; }
    std::optional<QString> inputBox(const QString &, const QString &) override { return std::nullopt; }
    QString openFileName(const QString &, const QString &) override { return {}; }
    QString saveFileName(const QString &, const QString &) override { return {}; }
    std::optional<quint32> chooseColor() override { return std::nullopt; }
};

/** Frames that compress like drawn art: flat tiles with a noisy band that moves. */
QStringList makeFrames(const QString &folder)
{
    QDir().mkpath(folder + QStringLiteral("/gfx"));
    QRandomGenerator random(2024);
    QStringList files;
    for (int n = 1; n <= frameCount; ++n) {
        QImage frame(192, 352, QImage::Format_RGB888);
        for (int y = 0; y < frame.height(); ++y) {
            uchar *line = frame.scanLine(y);
            const bool noisy = (y + n) % 352 < 40;
            for (int x = 0; x < frame.width(); ++x) {
                line[3 * x] = uchar((x / 8) * 8 + n);
                line[3 * x + 1] = uchar((y / 8) * 8);
                line[3 * x + 2] = noisy ? uchar(random.bounded(256)) : uchar(n);
            }
        }
        const QString path = folder + QStringLiteral("/gfx/bg%1.bmp").arg(n);
        frame.save(path, "BMP");
        files.append(path);
    }
    return files;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir work;
    if (!work.isValid())
        return 1;
    const QByteArray realTemp = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(work.filePath(QStringLiteral("tmp"))));
    QDir().mkpath(work.filePath(QStringLiteral("tmp")));

    const QString package = work.filePath(QStringLiteral("Frames.zip"));
    const Result<void> packed =
        writeResourcePackage(package, makeFrames(work.filePath(QStringLiteral("src"))), work.filePath(QStringLiteral("src")));
    if (!packed) {
        std::fprintf(stderr, "packing failed: %s\n", qUtf8Printable(packed.errorText()));
        return 1;
    }
    std::printf("package: %d frames 192x352, %.1f MB\n", frameCount,
                double(QFileInfo(package).size()) / 1e6);

    SilentDialogs dialogs;
    const QString unzipFolder = work.filePath(QStringLiteral("unzip"));
    const QString oursFolder = packageLocationFor(package).folder;
    bool failed = false;
    // Again: the files from the run before are there. First: both sides start from an empty folder.
    const auto measure = [&](bool first, QList<double> &ours, QList<double> &theirs) {
        for (int run = 0; run <= runs; ++run) {   // run 0 warms the caches and creates the files
            if (first) {
                QDir(oursFolder).removeRecursively();
                QDir(unzipFolder).removeRecursively();
            }
            QElapsedTimer timer;
            timer.start();
            const UnpackReport report = extractResourcePackage(package, dialogs);
            const double oursMs = double(timer.nsecsElapsed()) / 1e6;
            for (const QString &line : report.lines())
                std::fprintf(stderr, "%s\n", qUtf8Printable(line));
            failed = failed || !report.isEmpty();

            timer.restart();
            QProcess unzip;
            unzip.start(QStringLiteral("unzip"), {QStringLiteral("-o"), QStringLiteral("-q"), package,
                                                  QStringLiteral("-d"), unzipFolder});
            if (!unzip.waitForFinished(-1) || unzip.exitCode() != 0) {
                std::fprintf(stderr, "unzip failed: %s\n", unzip.readAllStandardError().constData());
                failed = true;
            }
            const double theirsMs = double(timer.nsecsElapsed()) / 1e6;
            if (run > 0) {
                ours.append(oursMs);
                theirs.append(theirsMs);
            }
        }
    };
    QList<double> oursAgain, theirsAgain, oursFirst, theirsFirst;
    measure(false, oursAgain, theirsAgain);
    measure(true, oursFirst, theirsFirst);
    qputenv("TMPDIR", realTemp);
    if (failed)
        return 1;

    std::printf("again: extractResourcePackage %.1f ms, unzip -o -q %.1f ms (medians of %d)\n", median(oursAgain),
                median(theirsAgain), runs);
    std::printf("first: extractResourcePackage %.1f ms, unzip -o -q %.1f ms (medians of %d)\n", median(oursFirst),
                median(theirsFirst), runs);
    benchRow("package unpack again / unzip -o -q", medianRatio(oursAgain, theirsAgain), 1.15, "x");
    benchRow("package unpack, empty folder / unzip -o -q", medianRatio(oursFirst, theirsFirst), 1.15, "x");
    return 0;
}
