// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/stripprefault.h"

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

StripPrefault::StripPrefault(QImage &strip)
{
#if defined(Q_OS_LINUX) && defined(MADV_POPULATE_WRITE)
    // Whole pages inside the pixels only; a thread costs more than faulting a small strip.
    constexpr quintptr page = 4096;
    constexpr quintptr worthwhile = 2 * 1024 * 1024;
    const auto begin = (quintptr(strip.bits()) + page - 1) & ~(page - 1);
    const auto end = (quintptr(strip.bits()) + quintptr(strip.sizeInBytes())) & ~(page - 1);
    if (strip.isNull() || end < begin + worthwhile)
        return;
    // Populating writes no data, so the caller may write the same pages meanwhile. An old
    // kernel refuses the advice, which only leaves the faults to the caller.
    m_helper = std::thread([begin, end] {
        madvise(reinterpret_cast<void *>(begin), end - begin, MADV_POPULATE_WRITE);
    });
#else
    Q_UNUSED(strip);
#endif
}

StripPrefault::~StripPrefault()
{
    if (m_helper.joinable())
        m_helper.join();
}
