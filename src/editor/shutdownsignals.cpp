// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/shutdownsignals.h"

#include "common/platform.h"

#include <QSocketNotifier>

ShutdownSignals::ShutdownSignals(QObject *parent)
    : QObject(parent)
{
    const int caught = Platform::catchShutdownSignals();
    if (caught < 0)
        return;
    m_notifier = new QSocketNotifier(caught, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ShutdownSignals::readPipe);
}

ShutdownSignals::~ShutdownSignals()
{
    if (!m_notifier)
        return;
    delete m_notifier;
    Platform::releaseShutdownSignals();
}

void ShutdownSignals::readPipe()
{
    while (const int number = Platform::takeShutdownSignal())
        emit received(number);
}
