// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/ticktimer.h"

#include "common/platform.h"

#include <QSocketNotifier>

TickTimer::TickTimer(QObject *parent)
    : QObject(parent)
{
    m_fd = Platform::openTickTimer();
    if (m_fd >= 0) {
        m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
        m_notifier->setEnabled(false);
        connect(m_notifier, &QSocketNotifier::activated, this, &TickTimer::expired);
        return;
    }
    // No kernel timer (another system, or out of descriptors): Qt's own still ticks.
    m_fallback.setTimerType(Qt::PreciseTimer);
    connect(&m_fallback, &QTimer::timeout, this, &TickTimer::timeout);
}

TickTimer::~TickTimer()
{
    if (m_fd >= 0) {
        delete m_notifier;
        Platform::closeTickTimer(m_fd);
    }
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

void TickTimer::hasten(int milliseconds)
{
    if (!m_active)
        return;
    const qint64 within = qint64(qMax(1, milliseconds)) * 1000000;
    const qint64 left = m_fd >= 0 ? (m_due >= 0 ? Platform::tickTimerNanosecondsLeft(m_fd) : -1)
                        : m_fallback.isActive() ? qint64(m_fallback.remainingTime()) * 1000000
                                                : -1;
    if (left < 0 || left > within)
        arm(qMax(1, milliseconds));
}

void TickTimer::arm(int period)
{
    m_period = period;
    if (m_fd >= 0) {
        if (period < 0) {
            Platform::disarmTickTimer(m_fd);
            m_due = -1;
            return;
        }
        // Expiries land half way through a millisecond of the monotonic clock, which is also
        // the previews' tick counter: wake-up jitter then never moves a tick across a change
        // of the count, which would hold a frame one tick longer.
        constexpr qint64 millisecond = 1000000;
        const qint64 due = (Platform::monotonicNanoseconds() / millisecond + period) * millisecond + millisecond / 2;
        // The schedule running already costs no call into the kernel: a playing animation
        // keeps asking for the same period, one wake-up a frame.
        if (due == m_due && m_notifier->isEnabled())
            return;
        m_due = Platform::armTickTimer(m_fd, due, period) ? due : -1;
        m_notifier->setEnabled(true);
        return;
    }
    if (period < 0)
        m_fallback.stop();
    else
        m_fallback.start(period);
}

void TickTimer::stop()
{
    m_active = false;
    if (m_fd >= 0) {
        Platform::disarmTickTimer(m_fd);
        m_due = -1;
        m_notifier->setEnabled(false);
        return;
    }
    m_fallback.stop();
}

void TickTimer::expired()
{
    // Taking clears the expiry count; a stop() between expiry and here leaves nothing to take.
    const quint64 expirations = Platform::takeTickTimerExpiries(m_fd);
    if (expirations == 0 || !m_active)
        return;
    if (m_due >= 0)
        m_due += qint64(expirations) * m_period * 1000000;
    emit timeout();
}
