// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/**
 * Progress of a long frame load, shown once the load has taken half a second. The editor
 * fills it with a progress dialog; without one, loads simply run to the end.
 */
class LoadProgress
{
public:
    virtual ~LoadProgress() = default;

    /** The load of \a total frames of \a caption is slow enough to show. */
    virtual void begin(const QString &caption, qint64 total) = 0;
    /** \a done frames are loaded; returns false when the author cancelled. */
    virtual bool update(qint64 done) = 0;
    /** The load ended, finished or cancelled. */
    virtual void end() = 0;
};
