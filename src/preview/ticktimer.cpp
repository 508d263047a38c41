#include "preview/ticktimer.h"

#include <QSocketNotifier>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
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
#ifdef Q_OS_LINUX
    if (m_fd >= 0) {
        const timespec period{m_interval / 1000, long(m_interval % 1000) * 1000000};
        const itimerspec schedule{period, period};
        timerfd_settime(m_fd, 0, &schedule, nullptr);
        m_notifier->setEnabled(true);
        return;
    }
#endif
    m_fallback.start(m_interval);
}

void TickTimer::stop()
{
    m_active = false;
#ifdef Q_OS_LINUX
    if (m_fd >= 0) {
        const itimerspec disarmed{};
        timerfd_settime(m_fd, 0, &disarmed, nullptr);
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
#endif
    emit timeout();
}
