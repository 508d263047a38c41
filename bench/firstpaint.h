// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The moment a start-up benchmark's child first paints, shared by the editor and the plain window.

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>

#include <cstdio>
#include <ctime>

// One system-wide clock, so parent and child readings compare.
inline qint64 monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

/** Prints the clock at the first paint event any widget receives, then ends the application. */
class FirstPaint : public QObject
{
protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            std::printf("%lld\n", static_cast<long long>(monotonicNs()));
            std::fflush(stdout);
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_seen = false;
};
