// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/diskaudiocapture.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cstdlib>
#include <cstring>

static constexpr qint64 bytesPerFrame = 2 * sizeof(qint16);

DiskAudioCapture::DiskAudioCapture(const QString &rawFile)
    : m_file(rawFile)
    , m_driver("SDL_AUDIODRIVER", "disk")
    , m_output("SDL_DISKAUDIOFILE", QFile::encodeName(rawFile))
{
    QFile::remove(rawFile);
}

qint64 DiskAudioCapture::frameCount() const
{
    return QFileInfo(m_file).size() / bytesPerFrame;
}

QList<qint16> DiskAudioCapture::samples(qint64 firstFrame) const
{
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(firstFrame * bytesPerFrame))
        return {};
    const QByteArray bytes = file.readAll();
    QList<qint16> result(bytes.size() / bytesPerFrame * 2);
    std::memcpy(result.data(), bytes.constData(), result.size() * sizeof(qint16));
    return result;
}

bool DiskAudioCapture::waitForFrames(qint64 frames, int timeoutMs) const
{
    const QDeadlineTimer deadline(timeoutMs);
    while (frameCount() < frames && !deadline.hasExpired())
        QThread::msleep(1);
    return frameCount() >= frames;
}

qint64 DiskAudioCapture::waitForSound(qint64 firstFrame, int timeoutMs, int threshold) const
{
    const QDeadlineTimer deadline(timeoutMs);
    for (qint64 checked = firstFrame;; QThread::msleep(1)) {
        const QList<qint16> fresh = samples(checked);
        for (qsizetype i = 0; i < fresh.size(); ++i) {
            if (std::abs(fresh[i]) > threshold)
                return checked + i / 2;
        }
        checked += fresh.size() / 2;
        if (deadline.hasExpired())
            return -1;
    }
}

int DiskAudioCapture::peak(const QList<qint16> &samples)
{
    int loudest = 0;
    for (qint16 s : samples)
        loudest = std::max(loudest, std::abs(int(s)));
    return loudest;
}
