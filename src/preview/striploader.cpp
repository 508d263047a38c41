// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/striploader.h"

#include "common/pathlookup.h"
#include "preview/framestrip.h"

#include <algorithm>
#include <system_error>

int StripLoader::idealWorkers()
{
    // Each worker holds two decoded frames; past eight, memory bandwidth stops the gain anyway.
    constexpr unsigned mostWorkers = 8;
    return int(std::clamp(std::thread::hardware_concurrency(), 1u, mostWorkers));
}

StripLoader::StripLoader(QImage &strip, QSize frame, const FrameSequence &sequence, const QString &folder,
                         qint64 count, int workers)
    : m_strip(strip)
    , m_frame(frame)
    , m_count(std::max<qint64>(count, 0))
    , m_files(size_t(m_count))
    , m_loaded(size_t(m_count))
    , m_workers(size_t(std::min<qint64>(std::max(workers, 1), m_count)))
{
    // QImage counts every write access in its header, so no two threads may write through one;
    // taking the pixels here, on the owner's thread, also settles that they are not shared.
    uchar *const pixels = strip.bits();
    for (Worker &worker : m_workers)
        worker.strip = QImage(pixels, strip.width(), strip.height(), strip.bytesPerLine(), strip.format());
    m_threads.reserve(m_workers.size());
    try {
        for (Worker &worker : m_workers)
            m_threads.emplace_back([this, &worker, sequence, folder] { run(worker, sequence, folder); });
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
        if (worker.surface.load(file)) {
            FrameStrip::placeFrame(worker.strip, m_frame, n - 1, worker.surface.picture());
            m_loaded[size_t(n - 1)] = true;
            worker.lastLoaded = n;
        }
        m_done.release();
    }
}

void StripLoader::waitForFrame()
{
    m_done.acquire();
}

QStringList StripLoader::finish(LoadingSurface &loading)
{
    m_threads.clear(); // waits for them
    for (qint64 n = 1; n <= m_count; ++n) {
        if (m_loaded[size_t(n - 1)])
            continue;
        if (n == 1)
            FrameStrip::placeFrame(m_strip, m_frame, 0, loading.picture());
        else
            FrameStrip::repeatSlotAbove(m_strip, m_frame, n - 1);
    }
    Worker *last = nullptr;
    for (Worker &worker : m_workers) {
        if (worker.lastLoaded > (last ? last->lastLoaded : 0))
            last = &worker;
    }
    if (last)
        loading = std::move(last->surface);
    return QStringList(m_files.begin(), m_files.end());
}
