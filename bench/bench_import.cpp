// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// `stakko-theme import` of 200 frames of 384x704 PNG into 192x352 bitmaps (the theme saved and its
// package rebuilt too, as the author waits for them), against ImageMagick's `convert` doing the same
// resize, crop and write in one call, the two alternating. Prints the median times and the median
// of the rounds' ratios (target <= 0.5); then the same without the package rebuild: the import's
// time less that of `stakko-theme build` packing the same frames, timed in the same round. The
// processor time of both sides is printed too: on a loaded machine it says more than the clock.

#include "benchstats.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

#include <sys/resource.h>

namespace {

constexpr int frameCount = 200;
constexpr int runs = 5;

/** Art as a painting program exports it: 384x704 with alpha, a colour each and a band of noise. */
void drawArt(const QString &folder)
{
    QRandomGenerator random(11);
    for (int n = 1; n <= frameCount; ++n) {
        QImage frame(384, 704, QImage::Format_ARGB32);
        frame.fill(QColor::fromHsv(n * 7 % 360, 150, 210));
        const int top = n * 3 % (frame.height() - 80);
        for (int y = top; y < top + 80; ++y)
            random.fillRange(reinterpret_cast<quint32 *>(frame.scanLine(y)), frame.width());
        frame.save(folder + QStringLiteral("/frame%1.png").arg(n), "PNG");
    }
}

/** User and system time of the children waited for so far, in ms: what a run cost, whatever the load. */
double childrenCpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto ms = [](timeval t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/** timedRun(), adding the processor time the run took to \a cpu. */
double timedRun(const QString &program, const QStringList &args, const QProcessEnvironment &env, QByteArray *out,
                double *cpu)
{
    const double before = childrenCpuMs();
    const double ms = timedRun(program, args, env, out);
    *cpu = childrenCpuMs() - before;
    return ms;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QString convert = QStandardPaths::findExecutable(QStringLiteral("convert"));
    if (convert.isEmpty()) {
        std::fprintf(stderr, "ImageMagick's convert is not installed: nothing to compare with\n");
        return 1;
    }
    QTemporaryDir work;
    const QString source = work.filePath(QStringLiteral("source"));
    const QString art = work.filePath(QStringLiteral("art"));
    const QString magick = work.filePath(QStringLiteral("magick"));
    if (!work.isValid() || !QDir().mkpath(source) || !QDir().mkpath(art) || !QDir().mkpath(magick))
        return 1;
    drawArt(source);
    const Result<QString> written = writeFramesTheme(work.path(), 1);
    if (!written) {
        std::fprintf(stderr, "writing the theme failed: %s\n", qUtf8Printable(written.errorText()));
        return 1;
    }
    const QString theme = *written;
    QStringList pictures;
    for (int n = 1; n <= frameCount; ++n)
        pictures << source + QStringLiteral("/frame%1.png").arg(n);

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TMPDIR"), work.filePath(QStringLiteral("tmp")));
    QDir().mkpath(work.filePath(QStringLiteral("tmp")));
    QList<double> imports;
    QList<double> builds;
    QList<double> converts;
    QList<double> importCpu;
    QList<double> convertCpu;
    QByteArray out;
    for (int run = 0; run <= runs; ++run) { // run 0 warms the caches
        double ourCpu = 0;
        double theirCpu = 0;
        const double ours = timedRun(QStringLiteral(STAKKO_CLI_PATH),
                                     {QStringLiteral("import"), theme, QStringLiteral("bgimage"), source,
                                      QStringLiteral("--from"), art}, env, &out, &ourCpu);
        const double theirs = timedRun(convert, QStringList(pictures) << QStringLiteral("-resize")
                                                    << QStringLiteral("192x352^") << QStringLiteral("-gravity")
                                                    << QStringLiteral("center") << QStringLiteral("-extent")
                                                    << QStringLiteral("192x352") << QStringLiteral("-background")
                                                    << QStringLiteral("black") << QStringLiteral("-alpha")
                                                    << QStringLiteral("remove") << QStringLiteral("-scene")
                                                    << QStringLiteral("1") << QStringLiteral("BMP3:") + magick
                                                    + QStringLiteral("/bg%d.bmp"), env, &out, &theirCpu);
        const double build = timedRun(QStringLiteral(STAKKO_CLI_PATH),
                                      {QStringLiteral("build"), theme, QStringLiteral("--from"), art}, env, &out);
        if (ours < 0 || theirs < 0 || build < 0) {
            std::fprintf(stderr, "a run failed:\n%s", out.constData());
            return 1;
        }
        if (run > 0) {
            imports.append(ours);
            builds.append(build);
            converts.append(theirs);
            importCpu.append(ourCpu);
            convertCpu.append(theirCpu);
        }
    }
    std::printf("%d frames 384x704 PNG to 192x352 bitmaps on %d cores\n", frameCount, QThread::idealThreadCount());
    // Shared machines make every figure noisy: the load says how much.
    if (QFile load(QStringLiteral("/proc/loadavg")); load.open(QIODevice::ReadOnly))
        std::printf("load average at the end: %s", load.readLine().constData());
    std::printf("stakko-theme import: %.1f ms (median of %d)\n", median(imports), runs);
    std::printf("stakko-theme build:  %.1f ms (median of %d), the package rebuild alone\n", median(builds), runs);
    std::printf("convert:             %.1f ms (median of %d)\n", median(converts), runs);
    // Processor time hardly moves with the load; wall time (the rows) does, convert's the most.
    std::printf("processor time: import %.1f ms, convert %.1f ms, ratio %.2f\n", median(importCpu),
                median(convertCpu), medianRatio(importCpu, convertCpu));
    QList<double> framesOnly;
    for (qsizetype i = 0; i < imports.size(); ++i)
        framesOnly.append(imports.at(i) - builds.at(i));
    benchRow("art import / convert", medianRatio(imports, converts), 0.5, "x");
    benchRow("art import less package rebuild / convert", medianRatio(framesOnly, converts), 0.5, "x");
    return 0;
}
