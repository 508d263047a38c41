// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QTimer>

class QSocketNotifier;

/**
 * A periodic tick source with QTimer's start/stop/isActive interface, for animation previews.
 * Qt's timers wake the event loop on whole milliseconds under glib, so a 1 ms timer runs at
 * 1.1 ms with up to a tick of jitter; on Linux this one is a kernel timer (timerfd) whose
 * expiries wake the loop on time, in the middle of a millisecond of the monotonic clock.
 * Elsewhere it is a precise QTimer. Missed periods are folded into one timeout(), as QTimer does.
 */
class TickTimer : public QObject
{
    Q_OBJECT

public:
    explicit TickTimer(QObject *parent = nullptr);
    ~TickTimer() override;

    /** The period in milliseconds, at least 1; takes effect at the next start(). */
    void setInterval(int milliseconds);
    int interval() const { return m_interval; }
    bool isActive() const { return m_active; }

public slots:
    /** Starts, or restarts, ticking: the first timeout() comes about one period from now. */
    void start();
    void stop();
    /**
     * For an active timer, timeouts come on every \a milliseconds-th millisecond tick from
     * the current one (at least 1) until the next postpone() or start(); a negative value
     * holds them back until then. The timer stays active.
     */
    void postpone(int milliseconds);
    /**
     * For an active timer, like postpone(\a milliseconds) unless a timeout is due sooner
     * already: then that one stays, and so does the schedule after it.
     */
    void hasten(int milliseconds);

signals:
    void timeout();

private:
    void expired();
    void arm(int period);

    int m_interval = 1;
    bool m_active = false;
    int m_fd = -1;
    int m_period = 1;  // of the running schedule, which postpone() may have changed
    qint64 m_due = -1; // the kernel timer's next expiry, in nanoseconds; -1 when disarmed
    QSocketNotifier *m_notifier = nullptr;
    QTimer m_fallback;
};
