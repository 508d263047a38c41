// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A playing animation preview, measured with the real system tick counter and event loop: how
// long each frame stays beyond its delay (median, p99) and the process CPU time over wall time,
// beside the same wake-ups with nothing done in them.

#include "benchstats.h"
#include "previewframes.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include <poll.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

double processCpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

/**
 * What waking alone costs at \a periodMs, as a share of one core over \a seconds: a kernel timer
 * waited for with poll and read and nothing else (\a throughQt false), or the same timer woken
 * through Qt's event loop with nothing done on waking, as any Qt program waits.
 */
double emptyWakeShare(int periodMs, int seconds, bool throughQt)
{
    const int fd = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    if (fd < 0)
        return -1;
    const timespec period{periodMs / 1000, (periodMs % 1000) * 1000000L};
    const itimerspec schedule{period, period};
    timerfd_settime(fd, 0, &schedule, nullptr);
    const auto drain = [fd] {
        quint64 expirations = 0;
        return read(fd, &expirations, sizeof expirations) >= 0;
    };
    const double cpuBefore = processCpuSeconds();
    QElapsedTimer clock;
    clock.start();
    if (throughQt) {
        QSocketNotifier notifier(fd, QSocketNotifier::Read);
        QObject::connect(&notifier, &QSocketNotifier::activated, drain);
        QEventLoop loop;
        QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
        loop.exec();
    } else {
        pollfd waiting{fd, POLLIN, 0};
        while (clock.elapsed() < seconds * 1000 && poll(&waiting, 1, -1) == 1 && drain()) {
        }
    }
    const double share = (processCpuSeconds() - cpuBefore) / (double(clock.nsecsElapsed()) / 1e9);
    close(fd);
    return share;
}

void frameTiming(const QString &folder, const QList<int> &delays)
{
    std::printf("Frame timing (10 s per delay, longer for slow ones; time on screen minus the delay)\n");
    for (int delay : delays) {
        ThemeDocument doc;
        LoadingSurface loading;
        FramePreviews previews(doc, loading);
        configureBackground(doc, folder + QStringLiteral("/bg1.bmp"), 10, delay);

        QElapsedTimer clock;
        QList<qint64> changes;
        changes.reserve(12000);
        QObject::connect(&previews, &FramePreviews::surfaceChanged, [&] {
            changes.append(clock.nsecsElapsed());
        });
        clock.start();
        previews.startFramePreview(AnimatedElementId::Background);
        previews.finishLoading();
        const double cpuBefore = processCpuSeconds();
        clock.restart();
        changes.clear();
        QEventLoop loop;
        // At least 300 frames, so that the p99 is not simply the slowest frame.
        QTimer::singleShot(std::max(10000, 300 * (delay + 1)), &loop, &QEventLoop::quit);
        loop.exec();
        const double wall = double(clock.nsecsElapsed()) / 1e9;
        const double cpu = processCpuSeconds() - cpuBefore;
        previews.stopAll();

        QList<double> late;
        for (qsizetype i = 2; i < changes.size(); ++i) // the first frame stays a single tick
            late.append(double(changes.at(i) - changes.at(i - 1)) / 1e6 - delay);
        if (late.isEmpty()) {
            std::printf("  delay %3d ms: no frames shown\n", delay);
            benchRow(qPrintable(QStringLiteral("playback %1 ms: frames shown").arg(delay)), 0, -1);
            continue;
        }
        const double share = cpu / wall;
        std::printf("  delay %3d ms: %5lld frames, beyond delay median %.2f ms, p99 %.2f ms, CPU/wall %.2f%%\n",
                    delay, static_cast<long long>(late.size()), percentile(late, 0.5), percentile(late, 0.99),
                    share * 100);
        const QString name = QStringLiteral("playback %1 ms: ").arg(delay);
        benchRow(qPrintable(name + QStringLiteral("beyond delay, median")), percentile(late, 0.5), 1.0, " ms");
        benchRow(qPrintable(name + QStringLiteral("beyond delay, p99")), percentile(late, 0.99), 2.0, " ms");
        benchRow(qPrintable(name + QStringLiteral("CPU of one core")), share * 100, delay >= 10 ? 0.5 : 3.0, "%");
        // The same wake-ups with nothing done in them: the floors this machine and Qt set.
        const double bare = emptyWakeShare(delay + 1, 5, false);
        const double qt = emptyWakeShare(delay + 1, 5, true);
        std::printf("  delay %3d ms: waking alone at the same rate takes %.2f%% bare, %.2f%% through Qt's event loop\n",
                    delay, bare * 100, qt * 100);
        benchRow(qPrintable(name + QStringLiteral("CPU / Qt's empty event loop")), share / qt, 1.5, "x");
    }
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QTemporaryDir dir;
    if (!dir.isValid())
        return 1;
    writeFrames(dir.path(), "bmp", 10);
    // Delays named on the command line, for a closer look at one of them.
    QList<int> delays;
    for (const QString &argument : app.arguments().mid(1))
        delays.append(argument.toInt());
    frameTiming(dir.path(), delays.isEmpty() ? QList<int>{0, 10, 40, 100} : delays);
    return 0;
}
