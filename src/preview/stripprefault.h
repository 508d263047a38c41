// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <thread>

/**
 * Has the kernel supply the memory of a new, large strip on a helper thread while the caller
 * decodes frames into it, so that the caller's first writes rarely wait for fresh pages.
 * The pixels are not touched; the destructor waits for the helper, so the prefault must not
 * outlive the image. Where the system cannot do this, it does nothing.
 */
class StripPrefault
{
public:
    explicit StripPrefault(QImage &strip);
    ~StripPrefault();

    StripPrefault(const StripPrefault &) = delete;
    StripPrefault &operator=(const StripPrefault &) = delete;

private:
    std::thread m_helper;
};
