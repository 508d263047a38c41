// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/striploader.h"

#include "common/pathlookup.h"
#include "common/platform.h"
#include "preview/framestrip.h"

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
    , m_files(size_t(m_count))
    , m_state(std::make_unique<std::atomic<char>[]>(size_t(m_count)))
    , m_workers(size_t(std::min<qint64>(std::max(workers, 1), m_count)))
{
    // QImage counts every write access in its header, so no two threads may write through one;
    // taking the pixels here, on the owner's thread, also settles that they are not shared.
    uchar *const pixels = strip.bits();
    m_strip = QImage(pixels, strip.width(), strip.height(), strip.bytesPerLine(), strip.format());
    FrameStrip::clearFrom(m_strip, m_count * frame.height());
    for (Worker &worker : m_workers)
        worker.strip = QImage(pixels, strip.width(), strip.height(), strip.bytesPerLine(), strip.format());
    m_threads.reserve(m_workers.size());
    try {
        for (Worker &worker : m_workers)
            m_threads.emplace_back([this, &worker, sequence, folder] {
                yieldToTheWindow();
                run(worker, sequence, folder);
            });
    } catch (const std::system_error &) {
        // Out of threads: those running take every frame; with none, this thread does.
        if (m_threads.empty() && !m_workers.empty())
            run(m_workers.front(), sequence, folder);
    }
}

StripLoader::~StripLoader()
{
    m_cancelled = true;
}

void StripLoader::run(Worker &worker, const FrameSequence &sequence, const QString &folder)
{
    // Taking the next frame keeps every worker busy to the end, whatever each frame costs.
    for (qint64 n = m_next++; n <= m_count && !m_cancelled; n = m_next++) {
        // Found once: the loader would otherwise search a folder of wrong-case names again.
        const QString file = resolveThemePath(sequence.frameName(folder, n));
        m_files[size_t(n - 1)] = file;
        SlotState state = Failed;
        if (worker.surface.load(file)) {
            FrameStrip::placeFrame(worker.strip, m_frame, n - 1, worker.surface.picture());
            state = Loaded;
            worker.lastLoaded = n;
        }
        m_state[size_t(n - 1)].store(state, std::memory_order_release);
        m_done.release();
        if (m_arrived)
            m_arrived();
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
    if (last)
        loading = std::move(last->surface);
    return QStringList(m_files.begin(), m_files.end());
}
