// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/scopedenvironment.h"

#include <QList>
#include <QString>

/**
 * Lets a test or benchmark hear what the sound system played: while it exists, audio goes
 * through SDL's "disk" driver into a raw file of 16-bit stereo frames at the opened rate.
 * Create it before the sound system opens its device; it restores the environment it changed.
 */
class DiskAudioCapture
{
public:
    explicit DiskAudioCapture(const QString &rawFile);

    /** Frames written so far (a frame is one left and one right sample). */
    qint64 frameCount() const;

    /** The interleaved samples of the frames from \a firstFrame on. */
    QList<qint16> samples(qint64 firstFrame = 0) const;

    /** Waits until at least \a frames frames exist; false after \a timeoutMs. */
    bool waitForFrames(qint64 frames, int timeoutMs) const;

    /**
     * Waits for the first frame at or after \a firstFrame with a sample louder than
     * \a threshold; returns its index, or -1 when none came within \a timeoutMs.
     */
    qint64 waitForSound(qint64 firstFrame, int timeoutMs, int threshold = 256) const;

    /** The largest sample magnitude in \a samples. */
    static int peak(const QList<qint16> &samples);

private:
    QString m_file;
    ScopedEnvironment m_driver;
    ScopedEnvironment m_output;
};
