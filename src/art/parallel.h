// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

/** Told how many of how many jobs are done; false asks the rest not to start. */
using ArtProgress = std::function<bool(qsizetype done, qsizetype total)>;

/**
 * Runs \a job(i) for i = 0 to \a count - 1 on every core, telling \a progress from the calling
 * thread between its own jobs. Returns false when progress stopped the run (jobs begun still end).
 */
inline bool parallelFor(qsizetype count, const std::function<void(qsizetype)> &job, const ArtProgress &progress = {})
{
    if (count <= 0)
        return true;
    std::atomic<qsizetype> next{0};
    std::atomic<qsizetype> done{0};
    std::atomic<bool> stop{false};
    const auto work = [&] {
        for (qsizetype i = next++; i < count && !stop; i = next++) {
            job(i);
            ++done;
        }
    };
    const int threads = int(std::clamp<qsizetype>(QThread::idealThreadCount(), 1, count));
    std::vector<std::thread> workers;
    for (int t = 1; t < threads; ++t)
        workers.emplace_back(work);
    // The caller's thread works too, telling the progress (and keeping a window alive) between jobs.
    for (qsizetype i = 0; !stop;) {
        if (progress && !progress(done, count))
            stop = true;
        else if ((i = next++) < count) {
            job(i);
            ++done;
        } else {
            break;
        }
    }
    for (std::thread &w : workers)
        w.join();
    return !stop && (!progress || progress(count, count));
}
