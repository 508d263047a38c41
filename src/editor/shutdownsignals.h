// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QSocketNotifier;

/**
 * SIGTERM, SIGINT and SIGHUP delivered as received() from the event loop, so the editor can
 * end as Exit does instead of at once. A signal the process was started with ignored (nohup)
 * stays ignored. One object at a time; its end puts back the handlers it replaced. When the
 * signals cannot be caught they keep their usual effect, with a warning.
 */
class ShutdownSignals : public QObject
{
    Q_OBJECT

public:
    explicit ShutdownSignals(QObject *parent = nullptr);
    ~ShutdownSignals() override;

signals:
    void received(int signalNumber);

private:
    void readPipe();

    QSocketNotifier *m_notifier = nullptr;
};
