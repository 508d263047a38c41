// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// `stakko-theme import` of 200 frames of 384x704 PNG into 192x352 bitmaps (the theme saved and its
// package rebuilt too), against ImageMagick's `convert` doing the same resize, crop and write in
// one call, the two alternating. Prints the median times and the median of the rounds' ratios
// (target <= 0.5).

#include "benchstats.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

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
    QList<double> converts;
    QByteArray out;
    for (int run = 0; run <= runs; ++run) { // run 0 warms the caches
        const double ours = timedRun(QStringLiteral(STAKKO_CLI_PATH),
                                     {QStringLiteral("import"), theme, QStringLiteral("bgimage"), source,
                                      QStringLiteral("--from"), art}, env, &out);
        const double theirs = timedRun(convert, QStringList(pictures) << QStringLiteral("-resize")
                                                    << QStringLiteral("192x352^") << QStringLiteral("-gravity")
                                                    << QStringLiteral("center") << QStringLiteral("-extent")
                                                    << QStringLiteral("192x352") << QStringLiteral("-background")
                                                    << QStringLiteral("black") << QStringLiteral("-alpha")
                                                    << QStringLiteral("remove") << QStringLiteral("-scene")
                                                    << QStringLiteral("1") << QStringLiteral("BMP3:") + magick
                                                    + QStringLiteral("/bg%d.bmp"), env, &out);
        if (ours < 0 || theirs < 0) {
            std::fprintf(stderr, "a run failed:\n%s", out.constData());
            return 1;
        }
        if (run > 0) {
            imports.append(ours);
            converts.append(theirs);
        }
    }
    std::printf("%d frames 384x704 PNG to 192x352 bitmaps on %d cores\n", frameCount, QThread::idealThreadCount());
    std::printf("stakko-theme import: %.1f ms (median of %d)\n", median(imports), runs);
    std::printf("convert:             %.1f ms (median of %d)\n", median(converts), runs);
    benchRow("art import / convert", medianRatio(imports, converts), 0.5, "x");
    return 0;
}
