// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Building a 400-frame background strip (BMP, then JPEG) against decoding the same files in a
// bare QImageReader loop, and the memory the build takes at its peak (the strip and whatever
// frames are being decoded) over the frames' 24-bit pixel bytes.

#include "benchstats.h"
#include "previewframes.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int stripFrames = 400;

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

// A value in kB of /proc/self/status, in bytes; -1 where the system does not say.
qint64 statusBytes(const char *key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
        if (line.startsWith(key))
            return line.mid(qsizetype(qstrlen(key))).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return -1;
}

// Starts counting the peak of resident memory anew from what the process holds now.
bool resetResidentPeak()
{
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    return refs.open(QIODevice::WriteOnly) && refs.write("5") == 1;
}

double stripBuildMs(const QString &folder, const char *format, qint64 *buildBytes)
{
    ThemeDocument doc;
    LoadingSurface loading;
    FramePreviews previews(doc, loading);
    configureBackground(doc, QStringLiteral("%1/bg1.%2").arg(folder, QLatin1StringView(format)),
                        stripFrames, 10);
    const bool peakKnown = resetResidentPeak();
    const qint64 before = statusBytes("VmRSS:");
    QElapsedTimer timer;
    timer.start();
    previews.startFramePreview(AnimatedElementId::Background);
    previews.finishLoading();
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    previews.stopAll();
    const qint64 peak = statusBytes("VmHWM:");
    // Without the system's count, the strip alone stands for it.
    *buildBytes = peakKnown && before >= 0 && peak >= 0 ? peak - before
                                                        : previews.strip(AnimatedElementId::Background)
                                                              .sizeInBytes();
    return ms;
}

void stripBuilding(const QString &folder)
{
    constexpr int rounds = 7;
    std::printf("Building a %d-frame background strip (median of %d rounds)\n", stripFrames, rounds);
    for (const char *format : {"bmp", "jpg"}) {
        writeFrames(folder, format, stripFrames);
        qint64 buildBytes = 0;
        bareDecodeMs(folder, format); // warm the file cache for both sides
        stripBuildMs(folder, format, &buildBytes);
        // Alternating the two sides spreads the load of a shared machine over both.
        QList<double> bare;
        QList<double> built;
        QList<double> ratios;
        QList<double> memory;
        for (int round = 0; round < rounds; ++round) {
            bare.append(bareDecodeMs(folder, format));
            built.append(stripBuildMs(folder, format, &buildBytes));
            ratios.append(built.last() / bare.last());
            memory.append(double(buildBytes));
        }
        const double pixelBytes = 192.0 * 352 * 3 * stripFrames;
        const double timeRatio = median(ratios);
        const double memoryRatio = median(memory) / pixelBytes;
        std::printf("  %s: strip %.1f ms, bare decode %.1f ms\n", format, median(built), median(bare));
        benchRow(qPrintable(QStringLiteral("strip of %1 %2 frames / serial decode").arg(stripFrames).arg(format)),
                 timeRatio, 0.65, "x");
        benchRow(qPrintable(QStringLiteral("strip of %1 memory / frame pixels").arg(format)), memoryRatio, 1.1, "x");
    }
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QTemporaryDir dir;
    if (!dir.isValid())
        return 1;
    stripBuilding(dir.path());
    return 0;
}
