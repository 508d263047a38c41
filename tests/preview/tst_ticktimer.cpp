// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/ticktimer.h"

#include <QEventLoop>
#include <QSignalSpy>
#include <QTest>

#include <thread>

// QTest::qWait sleeps between event passes, which would fold ticks together.
static void runEventLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

class TickTimerTest : public QObject
{
    Q_OBJECT

private slots:
    void ticksWhileActive_data()
    {
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("fewest");
        QTest::addColumn<int>("most");
        // Loose bounds: they catch a timer that never fires or ignores its period, not jitter.
        QTest::newRow("1 ms") << 1 << 40 << 400;
        QTest::newRow("20 ms") << 20 << 3 << 16;
        QTest::newRow("below 1 ms means 1 ms") << 0 << 40 << 400;
    }

    void ticksWhileActive()
    {
        QFETCH(int, interval);
        QFETCH(int, fewest);
        QFETCH(int, most);
        TickTimer timer;
        timer.setInterval(interval);
        QCOMPARE(timer.interval(), qMax(1, interval));
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.start();
        QVERIFY(timer.isActive());
        runEventLoop(200);
        QVERIFY2(ticks.size() >= fewest && ticks.size() <= most, qPrintable(QString::number(ticks.size())));
    }

    void stopEndsTicksAndStartResumes()
    {
        TickTimer timer;
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.start();
        QTRY_VERIFY(!ticks.isEmpty());
        timer.stop();
        QVERIFY(!timer.isActive());
        const qsizetype stoppedAt = ticks.size();
        runEventLoop(50);
        QCOMPARE(ticks.size(), stoppedAt);

        timer.start();
        QTRY_VERIFY(ticks.size() > stoppedAt);
    }

    void postponeHoldsTicksBackWhileActive()
    {
        TickTimer timer;
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.postpone(1); // a stopped timer stays stopped
        runEventLoop(20);
        QCOMPARE(ticks.size(), 0);

        timer.start();
        timer.postpone(-1);
        runEventLoop(50);
        QCOMPARE(ticks.size(), 0);
        QVERIFY(timer.isActive());

        timer.postpone(200);
        runEventLoop(50);
        QCOMPARE(ticks.size(), 0);
        timer.postpone(1);
        QTRY_VERIFY(ticks.size() >= 1);
        QTRY_VERIFY(ticks.size() >= 5); // every millisecond from there on
    }

    void stopBeforeTheLoopRunsDropsTheExpiry()
    {
        TickTimer timer;
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(5)); // expired, not yet delivered
        timer.stop();
        runEventLoop(30);
        QCOMPARE(ticks.size(), 0);
    }

    void missedPeriodsComeAsOneTimeout()
    {
        TickTimer timer;
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(30)); // a busy event loop
        QCoreApplication::processEvents();
        QCOMPARE(ticks.size(), 1);
        timer.stop();
    }
};

QTEST_GUILESS_MAIN(TickTimerTest)
#include "tst_ticktimer.moc"
