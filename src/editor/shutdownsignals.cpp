// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/shutdownsignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

// A handler may reach nothing but globals: the pipe's write end while an object lives.
int pipeWriteEnd = -1;

// Async-signal-safe: one byte into a non-blocking pipe. A full pipe already holds a byte to act on.
void onSignal(int number)
{
    const int savedErrno = errno;
    const unsigned char byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = ::write(pipeWriteEnd, &byte, 1);
    errno = savedErrno;
}

} // namespace

ShutdownSignals::ShutdownSignals(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("Cannot catch SIGTERM, SIGINT and SIGHUP: %s", std::strerror(errno));
        return;
    }
    pipeWriteEnd = m_pipe[1];
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ShutdownSignals::readPipe);

    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < std::size(caught); ++i) {
        sigaction(caught[i], nullptr, &m_previous[i]);
        if (m_previous[i].sa_handler != SIG_IGN)
            sigaction(caught[i], &action, nullptr);
    }
}

ShutdownSignals::~ShutdownSignals()
{
    if (!m_notifier)
        return;
    for (size_t i = 0; i < std::size(caught); ++i)
        sigaction(caught[i], &m_previous[i], nullptr);
    pipeWriteEnd = -1;
    delete m_notifier;
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

void ShutdownSignals::readPipe()
{
    unsigned char byte = 0;
    while (::read(m_pipe[0], &byte, 1) == 1)
        emit received(byte);
}
