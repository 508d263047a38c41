// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/ticktimer.h"

#include <QSocketNotifier>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>
#endif

TickTimer::TickTimer(QObject *parent)
    : QObject(parent)
{
#ifdef Q_OS_LINUX
    m_fd = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_fd >= 0) {
        m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
        m_notifier->setEnabled(false);
        connect(m_notifier, &QSocketNotifier::activated, this, &TickTimer::expired);
        return;
    }
#endif
    // No kernel timer (another system, or out of descriptors): Qt's own still ticks.
    m_fallback.setTimerType(Qt::PreciseTimer);
    connect(&m_fallback, &QTimer::timeout, this, &TickTimer::timeout);
}

TickTimer::~TickTimer()
{
#ifdef Q_OS_LINUX
    if (m_fd >= 0) {
        delete m_notifier;
        close(m_fd);
    }
#endif
}

void TickTimer::setInterval(int milliseconds)
{
    m_interval = qMax(1, milliseconds);
}

void TickTimer::start()
{
    m_active = true;
    arm(m_interval);
}

void TickTimer::postpone(int milliseconds)
{
    if (m_active)
        arm(milliseconds < 0 ? -1 : qMax(1, milliseconds));
}

void TickTimer::arm(int period)
{
    m_period = period;
#ifdef Q_OS_LINUX
    if (m_fd >= 0) {
        if (period < 0) {
            const itimerspec disarmed{};
            timerfd_settime(m_fd, 0, &disarmed, nullptr);
            m_due = -1;
            return;
        }
        // Expiries land half way through a millisecond of the monotonic clock, which is also
        // the previews' tick counter: wake-up jitter then never moves a tick across a change
        // of the count, which would hold a frame one tick longer.
        constexpr qint64 millisecond = 1000000;
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        const qint64 due = (qint64(now.tv_sec) * 1000 + now.tv_nsec / millisecond + period) * millisecond
            + millisecond / 2;
        // The schedule running already costs no call into the kernel: a playing animation
        // keeps asking for the same period, one wake-up a frame.
        if (due == m_due && m_notifier->isEnabled())
            return;
        const timespec interval{period / 1000, long(period % 1000) * millisecond};
        const itimerspec schedule{interval, {time_t(due / 1000000000), long(due % 1000000000)}};
        m_due = timerfd_settime(m_fd, TFD_TIMER_ABSTIME, &schedule, nullptr) == 0 ? due : -1;
        m_notifier->setEnabled(true);
        return;
    }
#endif
    if (period < 0)
        m_fallback.stop();
    else
        m_fallback.start(period);
}

void TickTimer::stop()
{
    m_active = false;
#ifdef Q_OS_LINUX
    if (m_fd >= 0) {
        const itimerspec disarmed{};
        timerfd_settime(m_fd, 0, &disarmed, nullptr);
        m_due = -1;
        m_notifier->setEnabled(false);
        return;
    }
#endif
    m_fallback.stop();
}

void TickTimer::expired()
{
#ifdef Q_OS_LINUX
    quint64 expirations = 0;
    // Reading clears the expiry count; a stop() between expiry and here leaves nothing to read.
    if (read(m_fd, &expirations, sizeof expirations) != qint64(sizeof expirations) || !m_active)
        return;
    if (m_due >= 0)
        m_due += qint64(expirations) * m_period * 1000000;
#endif
    emit timeout();
}
