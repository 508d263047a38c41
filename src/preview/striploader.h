// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/framesequence.h"
#include "preview/loadingsurface.h"

#include <QImage>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <semaphore>
#include <thread>
#include <vector>

/**
 * Loads an animation's frame files into its strip on worker threads, each decoding through a
 * loading surface of its own. The strip gets the pixels that loading the frames one after the
 * other through one surface gives: a frame that does not load repeats the frame before it.
 * Memory beyond the strip stays at two pictures a worker, however many frames there are.
 * Slots become final from the first on (settle()), so the strip can be shown while it loads.
 * The workers start below the window's priority, so the first frame shows at once; hurry()
 * hands the frames left to workers at the window's priority, which a busy machine would
 * otherwise starve.
 */
class StripLoader
{
public:
    /** As many workers as the machine runs threads at once. */
    static int idealWorkers();

    /**
     * Starts loading frames 1 to \a count of \a sequence, named with \a folder in front, into
     * the slots of \a strip (slot n - 1 holds frame n) on \a workers threads, and clears the
     * rows below the last frame. The loader writes the strip's pixels, never its header: the
     * pixels must stay alive until the loader is gone. \a arrived is called on a worker thread
     * after each frame.
     */
    StripLoader(QImage &strip, QSize frame, const FrameSequence &sequence, const QString &folder,
                qint64 count, std::function<void()> arrived = {}, int workers = idealWorkers());
    /** Cancels what is left: the workers stop after the frames they are decoding. */
    ~StripLoader();

    StripLoader(const StripLoader &) = delete;
    StripLoader &operator=(const StripLoader &) = delete;

    qint64 count() const { return m_count; }
    /** Frames taken by takeArrived() and waitForFrame() so far. */
    qint64 taken() const { return m_taken; }
    /**
     * Decodes the frames not yet taken at the priority of the thread calling it (the window's,
     * once the first frame is on screen): the first workers stop after the frames in hand.
     */
    void hurry();
    /** Takes, without waiting, the frames that loaded or failed to since the last take. */
    void takeArrived();
    /** Waits until one more frame has loaded or failed to, and takes it. */
    void waitForFrame();

    /**
     * Makes final, from the first slot on, every slot whose frame is done: a frame that did not
     * load repeats the slot above, the first slot \a firstFallback. Returns how many slots from
     * the first are final; on the owner's thread only.
     */
    qint64 settle(const QImage &firstFallback);

    /**
     * Waits for every frame and settles the strip. Afterwards \a loading holds the last frame
     * that loaded, as loading the frames in turn into it leaves it. Returns the frame files as
     * found on this system, in frame order.
     */
    QStringList finish(LoadingSurface &loading);
    /** The first frame (from 1) that did not load, 0 when every one did; after finish(). */
    qint64 firstFailed() const;

private:
    struct Worker {
        LoadingSurface surface;
        QImage strip;            // a header of its own over the strip's pixels
        qint64 lastLoaded = 0;   // its frames rise, so its surface holds this one
        bool yielding = false;   // below the window's priority: stops once hurried
        bool inPlace = true;     // frames tried straight into their slots
        bool lastInPlace = false; // lastLoaded went there so, its surface left as it was
    };
    enum SlotState : char { Pending, Loaded, Failed };

    void startWorkers(int count, bool yielding);
    void run(Worker &worker);

    QImage m_strip; // the owner's header over the pixels, for repairs
    const QSize m_frame;
    const qint64 m_count;
    const std::function<void()> m_arrived;
    const FrameSequence m_sequence;
    const QString m_folder;
    const int m_workerCount;
    std::vector<QString> m_files;   // each slot written by the worker that took the frame
    std::unique_ptr<std::atomic<char>[]> m_state; // SlotState per slot
    qint64 m_settled = 0;
    qint64 m_taken = 0;
    std::atomic<qint64> m_next{1};
    std::atomic<bool> m_cancelled{false};
    std::atomic<bool> m_hurried{false};
    std::counting_semaphore<> m_done{0};
    std::vector<Worker> m_workers; // room for both sets reserved: threads hold references
    std::vector<std::jthread> m_threads; // last, so they end before what they use
};
