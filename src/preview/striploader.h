// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/framesequence.h"
#include "preview/loadingsurface.h"

#include <QImage>
#include <QStringList>

#include <atomic>
#include <semaphore>
#include <thread>
#include <vector>

/**
 * Loads an animation's frame files into its strip on worker threads, each decoding through a
 * loading surface of its own. The strip gets the pixels that loading the frames one after the
 * other through one surface gives: a frame that does not load repeats the frame before it.
 * Memory beyond the strip stays at two pictures a worker, however many frames there are.
 */
class StripLoader
{
public:
    /** As many workers as the machine runs threads at once. */
    static int idealWorkers();

    /**
     * Starts loading frames 1 to \a count of \a sequence, named with \a folder in front, into
     * the slots of \a strip (slot n - 1 holds frame n) on \a workers threads. The strip must
     * stay alive, and untouched by anyone else, until finish() returned or the loader is gone.
     */
    StripLoader(QImage &strip, QSize frame, const FrameSequence &sequence, const QString &folder,
                qint64 count, int workers = idealWorkers());
    /** Cancels what is left: the workers stop after the frames they are decoding. */
    ~StripLoader();

    StripLoader(const StripLoader &) = delete;
    StripLoader &operator=(const StripLoader &) = delete;

    /**
     * Waits until one more frame, in no particular order, has loaded or failed to; as many
     * calls as there are frames return, a call beyond that waits for ever.
     */
    void waitForFrame();

    /**
     * Waits for every frame; then each slot whose frame did not load repeats the slot before
     * it, the first slot what \a loading holds. Afterwards \a loading holds the last frame
     * that loaded, as loading the frames in turn into it leaves it. Returns the frame files as
     * found on this system, in frame order.
     */
    QStringList finish(LoadingSurface &loading);

private:
    struct Worker {
        LoadingSurface surface;
        QImage strip;            // a header of its own over the strip's pixels
        qint64 lastLoaded = 0;   // its frames rise, so its surface holds this one
    };

    void run(Worker &worker, const FrameSequence &sequence, const QString &folder);

    QImage &m_strip;
    const QSize m_frame;
    const qint64 m_count;
    std::vector<QString> m_files;   // each slot written by the worker that took the frame
    std::vector<char> m_loaded;     // char, not bool: workers write neighbouring entries
    std::atomic<qint64> m_next{1};
    std::atomic<bool> m_cancelled{false};
    std::counting_semaphore<> m_done{0};
    std::vector<Worker> m_workers;
    std::vector<std::jthread> m_threads; // last, so they end before what they use
};
