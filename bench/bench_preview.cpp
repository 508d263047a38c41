// Animation previews, measured with the real system tick counter and event loop:
//  1. Frame timing: how long each frame stays beyond its delay (median, p99; target p99 <= 2 ms)
//     and the process CPU time over wall time while playing (target <= 3% of one core).
//  2. Building a 400-frame background strip (BMP, then JPEG) over decoding the same files in a
//     bare QImageReader loop (target <= 1.15), and the strip's memory over the frames' 24-bit
//     pixel bytes (target <= 1.1).
// Run with "timing" or "strip" for one half only.

#include "document/themedocument.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int stripFrames = 400;

double processCpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

double percentile(QList<double> values, double p)
{
    std::sort(values.begin(), values.end());
    const qsizetype at = std::min(values.size() - 1, qsizetype(p * double(values.size())));
    return values.at(at);
}

// Frames that look like backgrounds: a gradient with the frame number on it, so that JPEG
// and BMP decoding do realistic work.
void writeFrames(const QString &folder, const char *format, int count)
{
    for (int n = 1; n <= count; ++n) {
        QImage image(192, 352, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x)
                line[x] = qRgb((x + n) & 255, (y + 2 * n) & 255, (x * y / 64 + n) & 255);
        }
        QPainter(&image).drawText(20, 40, QString::number(n));
        image.save(QStringLiteral("%1/bg%2.%3").arg(folder).arg(n).arg(QLatin1StringView(format)),
                   format, 90);
    }
}

void configureBackground(ThemeDocument &doc, const QString &firstFrame, int count, int delay)
{
    doc.setNumber(u"bganimated", 1);
    doc.setText(u"bgimage", firstFrame);
    doc.setText(u"bgframecount", QString::number(count));
    doc.setText(u"bgstartingframe", QStringLiteral("1"));
    doc.setText(u"bgdelaybetweenframes", QString::number(delay));
}

bool frameTiming(const QString &folder)
{
    bool met = true;
    std::printf("Frame timing (3 s per delay; time on screen minus the delay)\n");
    for (int delay : {0, 10, 40, 100}) {
        ThemeDocument doc;
        LoadingSurface loading;
        FramePreviews previews(doc, loading);
        configureBackground(doc, folder + QStringLiteral("/bg1.bmp"), 10, delay);

        QElapsedTimer clock;
        QList<qint64> changes;
        changes.reserve(4000);
        QObject::connect(&previews, &FramePreviews::surfaceChanged, [&] {
            changes.append(clock.nsecsElapsed());
        });
        clock.start();
        previews.startFramePreview(ElementBackground);
        const double cpuBefore = processCpuSeconds();
        clock.restart();
        changes.clear();
        QEventLoop loop;
        QTimer::singleShot(3000, &loop, &QEventLoop::quit);
        loop.exec();
        const double wall = double(clock.nsecsElapsed()) / 1e9;
        const double cpu = processCpuSeconds() - cpuBefore;
        previews.stopAll();

        QList<double> late;
        for (qsizetype i = 2; i < changes.size(); ++i) // the first frame stays a single tick
            late.append(double(changes.at(i) - changes.at(i - 1)) / 1e6 - delay);
        if (late.isEmpty()) {
            std::printf("  delay %3d ms: no frames shown\n", delay);
            met = false;
            continue;
        }
        const double p99 = percentile(late, 0.99);
        const double share = cpu / wall;
        met = met && p99 <= 2.0 && share <= 0.03;
        std::printf("  delay %3d ms: %5lld frames, beyond delay median %.2f ms, p99 %.2f ms "
                    "(target <= 2) %s, CPU/wall %.2f%% (target <= 3%%) %s\n",
                    delay, static_cast<long long>(late.size()), percentile(late, 0.5), p99,
                    p99 <= 2.0 ? "OK" : "SLOW", share * 100, share <= 0.03 ? "OK" : "SLOW");
    }
    return met;
}

double bareDecodeMs(const QString &folder, const char *format)
{
    QElapsedTimer timer;
    timer.start();
    QImage image;
    for (int n = 1; n <= stripFrames; ++n) {
        QImageReader reader(QStringLiteral("%1/bg%2.%3").arg(folder).arg(n).arg(QLatin1StringView(format)));
        reader.read(&image);
    }
    return double(timer.nsecsElapsed()) / 1e6;
}

double stripBuildMs(const QString &folder, const char *format, qint64 *stripBytes)
{
    ThemeDocument doc;
    LoadingSurface loading;
    FramePreviews previews(doc, loading);
    configureBackground(doc, QStringLiteral("%1/bg1.%2").arg(folder, QLatin1StringView(format)),
                        stripFrames, 10);
    QElapsedTimer timer;
    timer.start();
    previews.startFramePreview(ElementBackground);
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    previews.stopAll();
    *stripBytes = previews.strip(ElementBackground).sizeInBytes();
    return ms;
}

double median(QList<double> values)
{
    return percentile(std::move(values), 0.5);
}

bool stripBuilding(const QString &folder)
{
    constexpr int rounds = 7;
    bool met = true;
    std::printf("Building a %d-frame background strip (median of %d rounds)\n", stripFrames, rounds);
    for (const char *format : {"bmp", "jpg"}) {
        writeFrames(folder, format, stripFrames);
        qint64 stripBytes = 0;
        bareDecodeMs(folder, format); // warm the file cache for both sides
        stripBuildMs(folder, format, &stripBytes);
        // Alternating the two sides spreads the load of a shared machine over both.
        QList<double> bare;
        QList<double> built;
        QList<double> ratios;
        for (int round = 0; round < rounds; ++round) {
            bare.append(bareDecodeMs(folder, format));
            built.append(stripBuildMs(folder, format, &stripBytes));
            ratios.append(built.last() / bare.last());
        }
        const double pixelBytes = 192.0 * 352 * 3 * stripFrames;
        const double timeRatio = median(ratios);
        const double memoryRatio = double(stripBytes) / pixelBytes;
        met = met && timeRatio <= 1.15 && memoryRatio <= 1.1;
        std::printf("  %s: strip %.1f ms, bare decode %.1f ms, ratio %.3f (target <= 1.15) %s; "
                    "strip memory / frame pixels %.3f (target <= 1.1) %s\n",
                    format, median(built), median(bare), timeRatio, timeRatio <= 1.15 ? "OK" : "SLOW",
                    memoryRatio, memoryRatio <= 1.1 ? "OK" : "SLOW");
    }
    return met;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    const QStringList parts = app.arguments().mid(1);
    const bool all = parts.isEmpty();
    QTemporaryDir dir;
    if (!dir.isValid())
        return 1;
    writeFrames(dir.path(), "bmp", 10);
    const bool timing = !(all || parts.contains(u"timing")) || frameTiming(dir.path());
    const bool building = !(all || parts.contains(u"strip")) || stripBuilding(dir.path());
    std::printf("%s\n", timing && building ? "All targets met." : "Some targets missed.");
    return 0;
}
