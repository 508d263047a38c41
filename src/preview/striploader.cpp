// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/striploader.h"

#include "common/pathlookup.h"
#include "common/platform.h"
#include "preview/framestrip.h"

#include <QFile>

#include <algorithm>
#include <system_error>

// Workers fill every core; yielding to the window's thread (and the display server) shows each
// frame as it comes instead of after the last.
static void yieldToTheWindow()
{
    Platform::yieldToOtherThreads();
}

int StripLoader::idealWorkers()
{
    // Each worker holds two decoded frames; past eight, memory bandwidth stops the gain anyway.
    constexpr unsigned mostWorkers = 8;
    return int(std::clamp(std::thread::hardware_concurrency(), 1u, mostWorkers));
}

StripLoader::StripLoader(QImage &strip, QSize frame, const FrameSequence &sequence, const QString &folder,
                         qint64 count, std::function<void()> arrived, int workers)
    : m_frame(frame)
    , m_count(std::max<qint64>(count, 0))
    , m_arrived(std::move(arrived))
    , m_sequence(sequence)
    , m_folder(folder)
    , m_workerCount(int(std::min<qint64>(std::max(workers, 1), m_count)))
    , m_files(size_t(m_count))
    , m_state(std::make_unique<std::atomic<char>[]>(size_t(m_count)))
{
    // QImage counts every write access in its header, so no two threads may write through one;
    // taking the pixels here, on the owner's thread, also settles that they are not shared.
    uchar *const pixels = strip.bits();
    m_strip = QImage(pixels, strip.width(), strip.height(), strip.bytesPerLine(), strip.format());
    FrameStrip::clearFrom(m_strip, m_count * frame.height());
    m_workers.reserve(size_t(m_workerCount) * 2);
    m_threads.reserve(size_t(m_workerCount) * 2);
    startWorkers(m_workerCount, true);
    // Out of threads: this thread takes every frame.
    if (m_threads.empty() && !m_workers.empty())
        run(m_workers.front());
}

StripLoader::~StripLoader()
{
    m_cancelled = true;
}

void StripLoader::startWorkers(int count, bool yielding)
{
    uchar *const pixels = m_strip.bits(); // on the owner's thread, like every use of m_strip
    for (int i = 0; i < count && m_workers.size() < m_workers.capacity(); ++i) {
        Worker &worker = m_workers.emplace_back();
        // A header of its own, so that writing through it never copies the shared pixels.
        worker.strip = QImage(pixels, m_strip.width(), m_strip.height(),
                              m_strip.bytesPerLine(), m_strip.format());
        worker.yielding = yielding;
        try {
            m_threads.emplace_back([this, &worker] {
                if (worker.yielding)
                    yieldToTheWindow();
                run(worker);
            });
        } catch (const std::system_error &) {
            return; // out of threads: those running take every frame
        }
    }
}

void StripLoader::hurry()
{
    if (m_hurried.exchange(true) || m_next.load() > m_count || m_threads.empty())
        return;
    startWorkers(m_workerCount, false);
}

void StripLoader::run(Worker &worker)
{
    // Taking the next frame keeps every worker busy to the end, whatever each frame costs.
    for (qint64 n = m_next++; n <= m_count && !m_cancelled; n = m_next++) {
        // Found once: the loader would otherwise search a folder of wrong-case names again.
        const QString file = resolveThemePath(m_sequence.frameName(m_folder, n));
        m_files[size_t(n - 1)] = file;
        SlotState state = Failed;
        QFile in(file);
        // A frame file that needs no decoding goes straight to its slot, without a picture.
        if (worker.inPlace && in.open(QIODevice::ReadOnly)
            && FrameStrip::readFrameInPlace(in, worker.strip, m_frame, n - 1)) {
            state = Loaded;
            worker.lastLoaded = n;
            worker.lastInPlace = true;
        } else if (worker.surface.load(file)) {
            FrameStrip::placeFrame(worker.strip, m_frame, n - 1, worker.surface.picture());
            state = Loaded;
            worker.lastLoaded = n;
            worker.lastInPlace = false;
            // A sequence's files are alike: after one that needed the reader, the rest will.
            worker.inPlace = false;
        }
        m_state[size_t(n - 1)].store(state, std::memory_order_release);
        m_done.release();
        if (m_arrived)
            m_arrived();
        if (worker.yielding && m_hurried)
            return;
    }
}

void StripLoader::takeArrived()
{
    while (m_taken < m_count && m_done.try_acquire())
        ++m_taken;
}

void StripLoader::waitForFrame()
{
    m_done.acquire();
    ++m_taken;
}

qint64 StripLoader::settle(const QImage &firstFallback)
{
    for (; m_settled < m_count; ++m_settled) {
        const char state = m_state[size_t(m_settled)].load(std::memory_order_acquire);
        if (state == Pending)
            break;
        if (state == Loaded)
            continue;
        if (m_settled == 0)
            FrameStrip::placeFrame(m_strip, m_frame, 0, firstFallback);
        else
            FrameStrip::repeatSlotAbove(m_strip, m_frame, m_settled);
    }
    return m_settled;
}

QStringList StripLoader::finish(LoadingSurface &loading)
{
    m_threads.clear(); // waits for them
    settle(loading.picture());
    Worker *last = nullptr;
    for (Worker &worker : m_workers) {
        if (worker.lastLoaded > (last ? last->lastLoaded : 0))
            last = &worker;
    }
    if (last && last->lastInPlace) // its picture is the slot, as the reader would have left it
        loading.keep(m_strip.copy(0, int((last->lastLoaded - 1) * m_frame.height()), m_frame.width(), m_frame.height()),
                     "bmp");
    else if (last)
        loading = std::move(last->surface);
    return QStringList(m_files.begin(), m_files.end());
}

qint64 StripLoader::firstFailed() const
{
    for (qint64 slot = 0; slot < m_count; ++slot) {
        if (m_state[size_t(slot)].load(std::memory_order_acquire) == Failed)
            return slot + 1;
    }
    return 0;
}
