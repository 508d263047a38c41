// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/fieldvalues.h"
#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "preview/framepreviews.h"
#include "preview/framesequence.h"
#include "preview/loadingsurface.h"
#include "preview/loadprogress.h"
#include "preview/stillpreviews.h"
#include "preview/ticktimer.h"
#include "previewtesthelpers.h"

#include <QDateTime>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <thread>

namespace {

struct Settings {
    QString frames = QStringLiteral("5");
    QString start = QStringLiteral("1");
    QString delay = QStringLiteral("10");
    bool reverse = false;
};

// Ticks played after \a edits were made: \a step milliseconds apart, showing \a frames.
struct Run {
    Fields edits;
    quint32 step;
    QList<int> frames;
};

// Fields set just before the tick at \a at.
struct TimedEdit {
    quint32 at;
    QString key;
    QString value;
};

class RecordingProgress : public LoadProgress
{
public:
    qint64 cancelAt = -1;
    std::function<void()> duringUpdate; // what the events a dialog lets through do
    QStringList events;
    void begin(const QString &caption, qint64 total) override
    {
        events << QStringLiteral("begin %1 %2").arg(caption).arg(total);
    }
    bool update(qint64 done) override
    {
        if (duringUpdate)
            duringUpdate();
        return done != cancelAt;
    }
    void end() override { events << QStringLiteral("end"); }
};

// QTest::qWait sleeps between event passes, which would fold ticks together.
void runEventLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

class FramePreviewsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<ThemeDocument> m_doc;
    Report m_report; // everything the previews started in this test reported
    std::unique_ptr<LoadingSurface> m_loading;
    std::unique_ptr<FramePreviews> m_engine;
    quint32 m_now = 0;

    QString path(const QString &name) const { return m_dir->filePath(name); }

    void makeFrames(const QString &root, int count, QSize size, const QString &ext = "bmp")
    {
        for (int n = 1; n <= count; ++n)
            writeFrame(path(root + QString::number(n) + u'.' + ext), frameColor(n), size);
    }

    void configure(AnimatedElementId element, const QString &imageText, const Settings &s = {})
    {
        const AnimatedElement &e = animatedElements[element];
        if (e.animatedFields[0])
            m_doc->setNumber(QString::fromLatin1(e.animatedFields[0]), 1);
        if (e.reverseField)
            m_doc->setNumber(QString::fromLatin1(e.reverseField), s.reverse ? 1 : 0);
        if (e.startingFrameField)
            m_doc->setText(QString::fromLatin1(e.startingFrameField), s.start);
        m_doc->setText(QString::fromLatin1(e.imageField), imageText);
        m_doc->setText(QString::fromLatin1(e.frameCountField), s.frames);
        m_doc->setText(QString::fromLatin1(e.delayField), s.delay);
    }

    // Starts the element's preview and lets its frames load, as the event loop would.
    void startPreview(AnimatedElementId element)
    {
        m_report.append(m_engine->startFramePreview(element));
        m_engine->finishLoading();
    }

    // Writes frames root1.bmp... in the element's frame size and starts its preview on them.
    void preview(AnimatedElementId element, const QString &root, int files, const Settings &s)
    {
        makeFrames(root, files, animatedElements[element].frame);
        configure(element, path(root + QStringLiteral("1.bmp")), s);
        startPreview(element);
    }

    int shown(AnimatedElementId element) const
    {
        const QImage image = m_engine->surfaceImage(element);
        return image.isNull() ? -2 : frameOfPixel(image.pixel(0, 0));
    }

    // The frame in a slot; -1 when a slot lying whole in the strip does not hold it to its far corner.
    int slotColor(AnimatedElementId element, int slot) const
    {
        const QImage &strip = m_engine->strip(element);
        const QSize frame = animatedElements[element].frame;
        const int color = frameOfPixel(strip.pixel(0, slot * frame.height()));
        const int lastRow = (slot + 1) * frame.height() - 1;
        if (lastRow < strip.height() && frameOfPixel(strip.pixel(frame.width() - 1, lastRow)) != color)
            return -1;
        return color;
    }

    QList<int> play(AnimatedElementId element, int ticks, quint32 step = 11)
    {
        QList<int> frames;
        for (int i = 0; i < ticks; ++i) {
            m_now += step;
            m_engine->animationTick(element);
            frames << shown(element);
        }
        return frames;
    }

    // (tick, frame) for each picture the next block window shows over 400 ms: ticking every
    // millisecond, or only on the ticks a sleeping timer asks for, an edit waking it. With
    // \a arrivesAt, the frames load only at that tick, which wakes the timer, and ticks count
    // from there as from the first.
    QList<QPair<quint32, int>> frameChanges(const Settings &settings, const QList<TimedEdit> &edits, bool sleeping,
                                            int arrivesAt = -1)
    {
        const AnimatedElementId element = AnimatedElementId::NextBlock;
        if (arrivesAt < 0) {
            preview(element, "nb", settings.frames.toInt(), settings);
        } else {
            makeFrames("nb", settings.frames.toInt(), animatedElements[element].frame);
            configure(element, path(QStringLiteral("nb1.bmp")), settings);
            m_report.append(m_engine->startFramePreview(element));
        }
        const quint32 late = quint32(std::max(arrivesAt, 0));
        QList<QPair<quint32, int>> changes;
        // Only a new picture is handed on, and it is the one the surface shows.
        connect(m_engine.get(), &FramePreviews::surfaceChanged, this,
                [&](AnimatedElementId changed, const QImage &image) {
                    QCOMPARE(changed, element);
                    changes.append({m_now - 1000 - late, frameOfPixel(image.pixel(0, 0))});
                });
        m_now = 1000;
        qsizetype nextEdit = 0;
        quint32 due = m_now;
        for (; m_now < 1400 + late; ++m_now) {
            bool edited = false;
            if (arrivesAt >= 0 && m_now == 1000 + late) {
                m_engine->finishLoading();
                edited = true;
            }
            for (; nextEdit < edits.size() && edits.at(nextEdit).at + 1000 == m_now; ++nextEdit, edited = true)
                m_doc->setValue(ThemeDocument::requireIndex(edits.at(nextEdit).key), edits.at(nextEdit).value);
            if (!sleeping) {
                m_engine->animationTick(element);
            } else if (edited || m_now == due) {
                const qint64 wait = m_engine->sleepingTick(element);
                due = wait < 0 ? 0 : m_now + quint32(wait);
            }
        }
        disconnect(m_engine.get(), &FramePreviews::surfaceChanged, this, nullptr);
        return changes;
    }

private slots:
    // A sleeping timer, or frames that arrive only after playing started (a tick reaching a frame still
    // loading holds the picture), show the frames at the ticks that ticking every millisecond does.
    void framesMatchTickingEveryMillisecond_data()
    {
        QTest::addColumn<Settings>("settings");
        QTest::addColumn<QList<TimedEdit>>("edits");
        QTest::addColumn<bool>("sleeping");
        QTest::addColumn<int>("arrivesAt"); // -1: loaded before the first tick
        const QList<TimedEdit> none;
        QTest::newRow("delay 10") << Settings{"5", "1", "10"} << none << true << -1;
        QTest::newRow("delay 0") << Settings{"3", "1", "0"} << none << true << -1;
        QTest::newRow("fractional delay, reverse from 2") << Settings{"4", "2", "2.5", true} << none << true << -1;
        QTest::newRow("one frame") << Settings{"1", "1", "7"} << none << true << -1;
        QTest::newRow("edits while playing")
            << Settings{"5", "1", "50"}
            << QList<TimedEdit>{{23, "nextblkdelaybetweenframes", "5"},     {40, "nextblkframecount", "2"},
                                {41, "nextblkframecount", "five"},           {60, "nextblkreverseanimation", "1"},
                                {80, "nextblkanimated", "0"},                {150, "nextblkanimated", "1"},
                                {151, "nextblkstartingframe", "2"},          {152, "nextblkframecount", "4"},
                                {200, "nextblkdelaybetweenframes", "-3"},    {230, "nextblkdelaybetweenframes", "30"},
                                {300, "nextblkdelaybetweenframes", "100000"}}
            << true << -1;
        for (const bool sleeping : {false, true}) {
            const char *timer = sleeping ? ", sleeping timer" : ", every tick";
            QTest::addRow("delay 10, a tick late%s", timer) << Settings{"5", "1", "10"} << none << sleeping << 1;
            QTest::addRow("delay 0, 37 ticks late%s", timer) << Settings{"3", "1", "0"} << none << sleeping << 37;
            QTest::addRow("reverse from 2, 250 ticks late%s", timer)
                << Settings{"4", "2", "2.5", true} << none << sleeping << 250;
        }
    }

    void framesMatchTickingEveryMillisecond()
    {
        QFETCH(Settings, settings);
        QFETCH(QList<TimedEdit>, edits);
        QFETCH(bool, sleeping);
        QFETCH(int, arrivesAt);
        const auto everyTick = frameChanges(settings, edits, false);
        cleanup();
        init();
        const auto changes = frameChanges(settings, edits, sleeping, arrivesAt);
        QVERIFY(!everyTick.isEmpty());
        QCOMPARE(changes, everyTick);
    }

    void editWakesASleepingTimer()
    {
        preview(AnimatedElementId::NextBlock, "nb", 2, {"2", "1", "100000"});
        m_engine->setClock([] { return quint32(QDateTime::currentMSecsSinceEpoch()); });
        QTRY_COMPARE(shown(AnimatedElementId::NextBlock), 2);
        m_doc->setText(QStringLiteral("nextblkdelaybetweenframes"), QStringLiteral("0"));
        QTRY_COMPARE(shown(AnimatedElementId::NextBlock), 1);
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        m_doc = std::make_unique<ThemeDocument>();
        m_doc->resetTheme();
        m_loading = std::make_unique<LoadingSurface>();
        m_engine = std::make_unique<FramePreviews>(*m_doc, *m_loading);
        m_report = {};
        m_now = 123456;
        m_engine->setClock([this] { return m_now; });
    }

    void cleanup()
    {
        m_engine.reset();
        m_doc.reset();
    }

    void refusedStartsSayWhy_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<int>("animated");
        QTest::addColumn<Settings>("settings");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("starts");

        const QString frames = "Error: Number of frames needs to be 1 or greater!";
        const QString start = "Error: Starting frame needs to be 1 or greater!";
        const QString delay = "Error: Delay between frames needs to be 0 or greater!";
        const QString bmp = "bg1.bmp";
        QTest::newRow("zero frames") << bmp << 1 << Settings{"0", "1", "10"} << frames << false;
        QTest::newRow("letters as frames") << bmp << 1 << Settings{"abc", "1", "10"} << frames << false;
        QTest::newRow("no frames") << bmp << 1 << Settings{"", "1", "10"} << frames << false;
        QTest::newRow("frames before start") << bmp << 1 << Settings{"0", "0", "-1"} << frames << false;
        QTest::newRow("zero start") << bmp << 1 << Settings{"3", "0", "10"} << start << false;
        QTest::newRow("start before delay") << bmp << 1 << Settings{"3", "x", "-1"} << start << false;
        QTest::newRow("negative delay") << bmp << 1 << Settings{"3", "1", "-1"} << delay << false;
        QTest::newRow("empty delay") << bmp << 1 << Settings{"3", "1", ""} << delay << false;
        QTest::newRow("zero delay is fine") << bmp << 1 << Settings{"3", "1", "0"} << "" << true;
        QTest::newRow("blanks are fine") << bmp << 1 << Settings{" 3 ", " 2 ", " 5 "} << "" << true;
        QTest::newRow("greyed switch counts as off") << bmp << 2 << Settings{"0", "1", "10"} << "" << false;
        QTest::newRow("text without a dot") << "bg" << 1 << Settings{"3", "1", "10"} << "" << false;
        QTest::newRow("strip over 1 GiB")
            << bmp << 1 << Settings{"6000", "1", "10"}
            << "Error: The Game Background animation is too large to preview: 6000 frames need more than 1 GiB of memory."
            << false;
    }

    void refusedStartsSayWhy()
    {
        QFETCH(QString, image);
        QFETCH(int, animated);
        QFETCH(Settings, settings);
        QFETCH(QString, message);
        QFETCH(bool, starts);

        makeFrames("bg", 3, {192, 352});
        configure(AnimatedElementId::Background, image.contains(u'.') ? path(image) : image, settings);
        m_doc->setNumber(u"bganimated", animated);
        startPreview(AnimatedElementId::Background);

        QCOMPARE(m_report.lines(), message.isEmpty() ? QStringList() : QStringList{message});
        if (!message.isEmpty())
            QCOMPARE(m_report.problems.first().severity, Problem::Severity::Error);
        QCOMPARE(m_engine->timer(AnimatedElementId::Background)->isActive(), starts);
        QCOMPARE(m_engine->strip(AnimatedElementId::Background).isNull(), !starts);
    }

    void stripSlotsHoldWholeFramesOnly_data()
    {
        QTest::addColumn<AnimatedElementId>("element");
        QTest::addColumn<QList<int>>("files");
        QTest::addColumn<QString>("frames");
        QTest::addColumn<QSize>("strip");
        QTest::addColumn<QList<int>>("expectedSlots");

        const QList<int> four{1, 2, 3, 4};
        const QList<int> ten{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        const AnimatedElementId bg = AnimatedElementId::Background;
        QTest::newRow("3 loads three") << bg << QList<int>{1, 2, 3} << "3" << QSize(192, 1056) << QList<int>{1, 2, 3};
        QTest::newRow("2.5 loads two") << bg << four << "2.5" << QSize(192, 880) << QList<int>{1, 2, 0};
        QTest::newRow("3.5 loads four") << bg << four << "3.5" << QSize(192, 1232) << QList<int>{1, 2, 3, 4};
        QTest::newRow("0.5 loads none") << bg << four << "0.5" << QSize(192, 176) << QList<int>{0};
        QTest::newRow("ten, two digits") << AnimatedElementId::Blocks << ten << "10" << QSize(98, 800) << ten;
        QTest::newRow("missing frame repeats the one before")
            << AnimatedElementId::NextBlock << QList<int>{1, 3} << "4" << QSize(78, 4 * 78) << QList<int>{1, 1, 3, 3};
        QTest::newRow("count beyond sixteen bits")
            << AnimatedElementId::SpecialWindow << QList<int>{1} << "2100" << QSize(161, 2100 * 17) << QList<int>(2100, 1);
    }

    void stripSlotsHoldWholeFramesOnly()
    {
        QFETCH(AnimatedElementId, element);
        QFETCH(QList<int>, files);
        QFETCH(QString, frames);
        QFETCH(QSize, strip);
        QFETCH(QList<int>, expectedSlots);

        // Named as on Windows: a backslash, and letter case the files do not share.
        for (int n : files)
            writeFrame(path(QStringLiteral("Pack/F%1.BMP").arg(n)), frameColor(n), animatedElements[element].frame);
        m_doc->setPackageFolder(m_dir->path() + u'/', QStringLiteral("Pack"));
        configure(element, QStringLiteral("pack\\f1.bmp"), {frames});
        startPreview(element);

        QCOMPARE(m_engine->strip(element).size(), strip);
        QList<int> found;
        for (int slot = 0; slot < expectedSlots.size(); ++slot)
            found << slotColor(element, slot);
        QCOMPARE(found, expectedSlots);
        QVERIFY(m_engine->timer(element)->isActive());
        QVERIFY(m_report.problems.isEmpty());
        if (files.size() < 4)
            QCOMPARE(frameOfPixel(m_loading->picture().pixel(0, 0)), files.last());
    }

    void progressShowsOnceForLoadsPastASecond_data()
    {
        QTest::addColumn<quint32>("msPerFrame");
        QTest::addColumn<QStringList>("events");
        QTest::newRow("ends within a second") << quint32(200) << QStringList{};
        QTest::newRow("about to end at a second: no flash") << quint32(350) << QStringList{};
        QTest::newRow("longer") << quint32(600) << QStringList{"begin Game Blocks 4", "end"};
    }

    void progressShowsOnceForLoadsPastASecond()
    {
        QFETCH(quint32, msPerFrame);
        QFETCH(QStringList, events);
        RecordingProgress progress;
        m_engine->setProgress(&progress);
        m_engine->setClock([this, msPerFrame] { return m_now += msPerFrame; });
        preview(AnimatedElementId::Blocks, "bk", 4, {"4"});
        QCOMPARE(progress.events, events);
        QVERIFY(m_engine->timer(AnimatedElementId::Blocks)->isActive());
        m_engine->setProgress(nullptr);
    }

    void slowLoadShowsProgressAndStartsThatStopKeepTheRunningAnimation()
    {
        RecordingProgress progress;
        m_engine->setProgress(&progress);
        const auto slowClock = [this] { return m_now += 600; }; // every frame takes 600 ms
        m_engine->setClock(slowClock);
        makeFrames("bo", 4, {192, 64}, "png");
        // No second build starts while the progress dialog lets events through.
        makeFrames("bg", 2, {192, 352});
        configure(AnimatedElementId::Background, path("bg1.bmp"), {"2"});
        progress.duringUpdate = [this] { startPreview(AnimatedElementId::Background); };
        preview(AnimatedElementId::Explosion, "ex", 4, {"4"});
        progress.duringUpdate = {};
        QCOMPARE(progress.events, (QStringList{"begin Explosion 4", "end"}));
        QVERIFY(!m_engine->timer(AnimatedElementId::Background)->isActive());
        m_engine->setClock([this] { return m_now; });
        QCOMPARE(play(AnimatedElementId::Explosion, 2), (QList<int>{1, 2}));

        // A cancelled load on the same strip, a refused setting and an image text without a dot.
        progress.cancelAt = 3;
        m_engine->setClock(slowClock);
        configure(AnimatedElementId::Bomb, path("bo1.png"), {"4"});
        startPreview(AnimatedElementId::Bomb);
        QCOMPARE(progress.events.size(), 4);
        QVERIFY(!m_engine->timer(AnimatedElementId::Bomb)->isActive());
        m_engine->setClock([this] { return m_now; });
        m_doc->setText(u"explodeframecount", QStringLiteral("0"));
        startPreview(AnimatedElementId::Explosion);
        m_doc->setText(u"explodeframecount", QStringLiteral("4"));
        m_doc->setText(u"explodeimage", QStringLiteral("nodot"));
        startPreview(AnimatedElementId::Explosion);

        QCOMPARE(m_report.problems.size(), 1);
        QVERIFY(m_engine->timer(AnimatedElementId::Explosion)->isActive());
        QCOMPARE(m_engine->strip(AnimatedElementId::Explosion).height(), 4 * 65);
        QCOMPARE(play(AnimatedElementId::Explosion, 3), (QList<int>{3, 4, 1}));
    }

    void playback_data()
    {
        QTest::addColumn<AnimatedElementId>("element");
        QTest::addColumn<Settings>("settings");
        QTest::addColumn<quint32>("firstTick");
        QTest::addColumn<QList<Run>>("runs");

        const quint32 soon = 123456;
        const AnimatedElementId bg = AnimatedElementId::Background;
        const AnimatedElementId blocks = AnimatedElementId::Blocks;
        QTest::newRow("forward") << bg << Settings{"5"} << soon
                                 << QList<Run>{{{}, 11, {1, 2, 3, 4, 5, 1, 2}}};
        QTest::newRow("one frame") << blocks << Settings{"1"} << soon << QList<Run>{{{}, 11, {1, 1, 1, 1}}};
        QTest::newRow("four from 2") << AnimatedElementId::NextBlock << Settings{"4", "2"} << soon
                                     << QList<Run>{{{}, 11, {2, 3, 4, 2, 3, 4, 2}}};
        QTest::newRow("reverse five") << AnimatedElementId::SpecialWindow << Settings{"5", "1", "10", true} << soon
                                      << QList<Run>{{{}, 11, {5, 4, 3, 2, 1, 5, 4}}};
        QTest::newRow("reverse from 3") << blocks << Settings{"5", "3", "10", true} << soon
                                        << QList<Run>{{{}, 11, {3, 2, 1, 3, 2, 1}}};
        QTest::newRow("explosion") << AnimatedElementId::Explosion << Settings{"3", ""} << soon
                                   << QList<Run>{{{}, 11, {1, 2, 3, 1, 2, 3}}};
        QTest::newRow("bomb") << AnimatedElementId::Bomb << Settings{"2"} << soon << QList<Run>{{{}, 11, {1, 2, 1}}};
        // The first tick advances at once; later frames stay until more than the delay passed.
        QTest::newRow("delay 10, 5 ms ticks") << bg << Settings{"5"} << soon
                                              << QList<Run>{{{}, 5, {1, 2, 2, 2, 3, 3, 3, 4}}};
        QTest::newRow("tick counter wraps") << bg << Settings{"5"} << 0xFFFFFFF0u
                                            << QList<Run>{{{}, 5, {1, 2, 2, 2, 3, 3, 3, 4}}};
        // Frame 4 is on screen and has not yet stayed its delay when the count drops to 3.
        QTest::newRow("frame count edited while playing")
            << bg << Settings{"5", "2"} << soon
            << QList<Run>{{{}, 5, {2, 3, 3, 3, 4}}, {{{"bgframecount", "3"}}, 5, {4, 4, 2, 2}}};
        QTest::newRow("non-numbers keep the last valid settings")
            << bg << Settings{"5"} << soon
            << QList<Run>{{{}, 5, {1, 2}},
                          {{{"bgframecount", "five"}, {"bgdelaybetweenframes", ""}, {"bgstartingframe", "?"}},
                           5, {2, 2, 3, 3, 3, 4}},
                          {{}, 11, {4, 5, 1}}};
        QTest::newRow("not animated shows the first slot")
            << blocks << Settings{"5", "2"} << soon
            << QList<Run>{{{}, 11, {2, 3}}, {{{"animateblocks", "0"}}, 11, {1, 1, 1}},
                          {{{"animateblocks", "1"}}, 11, {4, 5}}};
        // 3 - 7 in reverse is a negative slot.
        QTest::newRow("start beyond the strip shows a cleared frame")
            << blocks << Settings{"3", "7"} << soon
            << QList<Run>{{{}, 11, {0, 0, 0}}, {{{"blkreverseanimation", "1"}}, 11, {0, 0}}};
    }

    void playback()
    {
        QFETCH(AnimatedElementId, element);
        QFETCH(Settings, settings);
        QFETCH(quint32, firstTick);
        QFETCH(QList<Run>, runs);

        preview(element, "f", settings.frames.toInt(), settings);
        m_now = firstTick - runs.first().step;
        for (const Run &run : runs) {
            setFields(*m_doc, run.edits);
            QCOMPARE(play(element, int(run.frames.size()), run.step), run.frames);
        }
        // A surface shows a whole frame, but for the bomb's left square.
        const QSize surface = element == AnimatedElementId::Bomb ? QSize(64, 64) : animatedElements[element].frame;
        QCOMPARE(m_engine->surfaceImage(element).size(), surface);
        QVERIFY(m_report.problems.isEmpty());
    }

    void internetBackgroundDrawsIntoAClearedCorner_data()
    {
        QTest::addColumn<Settings>("background");
        QTest::addColumn<int>("backgroundFrame");
        QTest::addColumn<Settings>("internet");
        QTest::addColumn<QList<int>>("frames");
        QTest::newRow("over a viewed background") << Settings{"1"} << 1 << Settings{"3", "1", "10", true}
                                                  << QList<int>{3, 2, 1, 3};
        // Frame 2 of 1.5 lies half outside its strip, so the background is drawn, not viewed.
        QTest::newRow("over a drawn background") << Settings{"1.5", "2"} << 2 << Settings{"3"}
                                                 << QList<int>{1, 2, 3, 1, 2};
    }

    void internetBackgroundDrawsIntoAClearedCorner()
    {
        QFETCH(Settings, background);
        QFETCH(int, backgroundFrame);
        QFETCH(Settings, internet);
        QFETCH(QList<int>, frames);
        preview(AnimatedElementId::Background, "bg", 2, background);
        QCOMPARE(play(AnimatedElementId::Background, 2), QList<int>(2, backgroundFrame));
        preview(AnimatedElementId::InternetBackground, "ibg", 3, internet);

        for (int expected : frames) {
            play(AnimatedElementId::InternetBackground, 1);
            const QImage surface = m_engine->surfaceImage(AnimatedElementId::Background);
            QCOMPARE(surface.size(), QSize(192, 352));
            QCOMPARE(frameOfPixel(surface.pixel(95, 175)), expected);
            for (const QPoint outside : {QPoint(96, 0), QPoint(0, 176), QPoint(150, 100), QPoint(191, 351)})
                QCOMPARE(frameOfPixel(surface.pixel(outside)), 0);
        }
    }

    void shownPictureOutlivesItsStrip_data()
    {
        QTest::addColumn<AnimatedElementId>("rebuilt"); // the element whose preview replaces the shared strip

        QTest::newRow("same element") << AnimatedElementId::Background;
        QTest::newRow("element sharing the strip") << AnimatedElementId::InternetBackground;
    }

    void shownPictureOutlivesItsStrip()
    {
        QFETCH(AnimatedElementId, rebuilt);
        preview(AnimatedElementId::Background, "bg", 2, {"2"});
        play(AnimatedElementId::Background, 2);
        const QImage kept = m_engine->surfaceImage(AnimatedElementId::Background); // as a window keeps it
        const QImage &oldStrip = m_engine->strip(AnimatedElementId::Background);
        const auto oldBegin = quintptr(oldStrip.constBits());
        const auto oldEnd = oldBegin + quintptr(oldStrip.sizeInBytes());

        for (int n = 1; n <= 2; ++n)
            writeFrame(path(QStringLiteral("new%1.bmp").arg(n)), frameColor(n + 4),
                       animatedElements[rebuilt].frame);
        configure(rebuilt, path("new1.bmp"), {"2"});
        QSignalSpy spy(m_engine.get(), &FramePreviews::surfaceChanged);
        startPreview(rebuilt);

        QCOMPARE(frameOfPixel(kept.pixel(0, 0)), 2);
        QCOMPARE(frameOfPixel(m_engine->strip(AnimatedElementId::Background).pixel(0, 0)), 5);
        // The surface still shows its frame, now from memory that does not keep the old strip.
        const QImage shown = m_engine->surfaceImage(AnimatedElementId::Background);
        QCOMPARE(shown, kept);
        const auto shownAt = quintptr(shown.constBits());
        QVERIFY(shownAt < oldBegin || shownAt >= oldEnd);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().at(0).value<AnimatedElementId>(), AnimatedElementId::Background);
        QCOMPARE(spy.first().at(1).value<QImage>(), kept);
    }

    void resetStopsEveryTimer()
    {
        preview(AnimatedElementId::Background, "bg", 2, {"2"});
        preview(AnimatedElementId::Explosion, "ex", 2, {"2"});
        play(AnimatedElementId::Background, 1);
        QVERIFY(m_engine->timer(AnimatedElementId::Explosion)->isActive());

        m_doc->resetTheme();
        for (AnimatedElementId element : animatedElementIds)
            QVERIFY(!m_engine->timer(element)->isActive());
        QCOMPARE(shown(AnimatedElementId::Background), 1); // the last drawn frame stays
    }

    void interfaceScreens_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("inPackage");
        QTest::addColumn<QString>("text");   // below the package folder, or else the test folder
        QTest::addColumn<int>("shown");      // the frame colour then shown; 3, the screen before, on failure;
                                             // -1: the display is emptied
        QTest::newRow("full path") << 2 << "ifacethemes" << false << "t/theme.bmp" << 4;
        QTest::newRow("in the package, any case") << 4 << "ifacechat" << true << "screens\\chat.bmp" << 5;
        QTest::newRow("missing file") << 9 << "ifaceinet" << false << "missing.bmp" << 3;
        QTest::newRow("empty text in a package") << 9 << "ifaceinet" << true << "" << 3;
        QTest::newRow("not an image") << 9 << "ifaceinet" << false << "notes.bmp" << 3;
        QTest::newRow("empty text") << 0 << "ifacemain" << false << "" << -1;
    }

    void interfaceScreens()
    {
        QFETCH(int, row);
        QFETCH(QString, key);
        QFETCH(bool, inPackage);
        QFETCH(QString, text);
        QFETCH(int, shown);
        writeFrame(path("t/theme.bmp"), frameColor(4), {640, 480});
        writeFrame(path("pack/Screens/Chat.bmp"), frameColor(5), {640, 480});
        QVERIFY(writeFile(path("notes.bmp"), "not a picture"));
        writeFrame(path("menu.bmp"), frameColor(3), {640, 480});
        m_doc->setText(u"ifacemenu", path("menu.bmp"));
        StillPreviews stills(*m_doc, *m_loading);
        QVERIFY(stills.showInterfaceScreenPreview(InterfaceRow::Menu).isEmpty());

        const QString folder = inPackage ? path("pack") + u'/' : QString();
        m_doc->setPackageFolder(folder, QString());
        m_doc->setText(key, inPackage || text.isEmpty() ? text : path(text));
        QSignalSpy spy(&stills, &StillPreviews::interfacePictureChanged);
        const Report report = stills.showInterfaceScreenPreview(*rowFromIndex<InterfaceRow>(row));

        const bool failed = shown == 3;
        const QString error = "Error: Unable to load image: " + folder + m_doc->value(key);
        QCOMPARE(report.lines(), failed ? QStringList{error} : QStringList());
        QVERIFY(report.isEmpty() || report.problems.first().severity == Problem::Severity::Error);
        QCOMPARE(spy.size(), failed ? 0 : 1);
        if (shown < 0) {
            QVERIFY(stills.interfacePicture().isNull());
            QVERIFY(m_loading->picture().isNull());
            return;
        }
        // Handed over unscaled: the display does the scaling.
        QCOMPARE(stills.interfacePicture().size(), QSize(640, 480));
        QCOMPARE(frameOfPixel(stills.interfacePicture().pixel(639, 479)), shown);
    }

    void failedMiscImageShowsTheLastLoadedPicture()
    {
        StillPreviews stills(*m_doc, *m_loading);
        m_doc->setText(u"door1", QString());
        stills.showMiscImagePreview(MiscImageRow::DoorLeft);
        QVERIFY(stills.miscPicture().isNull());

        // The frame previews load through the same surface.
        makeFrames("bg", 2, {192, 352});
        configure(AnimatedElementId::Background, path("bg1.bmp"), {"2"});
        startPreview(AnimatedElementId::Background);
        QVERIFY(m_report.isEmpty());
        m_doc->setText(u"warning", path("warning.bmp"));
        QSignalSpy spy(&stills, &StillPreviews::miscPictureChanged);
        stills.showMiscImagePreview(MiscImageRow::Warning);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(frameOfPixel(stills.miscPicture().pixel(0, 0)), 2);

        writeFrame(path("door.bmp"), frameColor(6), {8, 8});
        m_doc->setText(u"door2", path("door.bmp"));
        stills.showMiscImagePreview(MiscImageRow::DoorRight);
        stills.showMiscImagePreview(MiscImageRow::DoorLeft);
        QCOMPARE(frameOfPixel(stills.miscPicture().pixel(0, 0)), 6);
    }

    void namingRule_data()
    {
        QTest::addColumn<QString>("imageText");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QString>("expected");   // "" when the text names no sequence

        QTest::newRow("first frame") << "bg1.bmp" << "" << 1 << "bg1.bmp";
        QTest::newRow("tenth frame") << "bg1.bmp" << "" << 10 << "bg10.bmp";
        QTest::newRow("zero belongs to the root") << "anim01.bmp" << "" << 10 << "anim010.bmp";
        QTest::newRow("full path") << "C:\\themes\\bg1.bmp" << "" << 2 << "C:\\themes\\bg2.bmp";
        QTest::newRow("dot in a folder splits there")
            << "C:\\my.themes\\bg1.bmp" << "" << 2 << "C:\\m2.themes\\bg1.bmp";
        QTest::newRow("extension keeps further dots") << "bg1.tar.gz" << "" << 3 << "bg3.tar.gz";
        QTest::newRow("dot second: empty root") << "1.bmp" << "" << 4 << "4.bmp";
        QTest::newRow("dot first: empty root") << ".bmp" << "" << 4 << "4.bmp";
        QTest::newRow("package folder in front")
            << "blk1.jpg" << "/tmp/stakko/pack/" << 12 << "/tmp/stakko/pack/blk12.jpg";
        QTest::newRow("no dot") << "background" << "" << 1 << "";
        QTest::newRow("empty") << "" << "" << 1 << "";
    }

    void namingRule()
    {
        QFETCH(QString, imageText);
        QFETCH(QString, folder);
        QFETCH(int, frame);
        QFETCH(QString, expected);

        const auto sequence = FrameSequence::fromImageText(imageText);
        QCOMPARE(sequence.has_value(), !expected.isEmpty());
        if (sequence)
            QCOMPARE(sequence->frameName(folder, frame), expected);
    }

    void authorNumbersAndFrameNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");   // NaN: not a number
        QTest::addColumn<double>("rounded");  // halves go to the even neighbour

        const double none = qQNaN();
        QTest::newRow("integer") << "3" << 3.0 << 3.0;
        QTest::newRow("blanks around") << "  12 " << 12.0 << 12.0;
        QTest::newRow("negative") << "-3" << -3.0 << -3.0;
        QTest::newRow("2.5") << "2.5" << 2.5 << 2.0;
        QTest::newRow("3.5") << "3.5" << 3.5 << 4.0;
        QTest::newRow("0.5") << "0.5" << 0.5 << 0.0;
        QTest::newRow("1.5") << "1.5" << 1.5 << 2.0;
        QTest::newRow("-2.5") << "-2.5" << -2.5 << -2.0;
        QTest::newRow("-1.5") << "-1.5" << -1.5 << -2.0;
        QTest::newRow("2.4") << "2.4" << 2.4 << 2.0;
        QTest::newRow("2.6") << "2.6" << 2.6 << 3.0;
        QTest::newRow("empty") << "" << none << none;
        QTest::newRow("blank") << "   " << none << none;
        QTest::newRow("letters") << "abc" << none << none;
        QTest::newRow("trailing letters") << "3x" << none << none;
        QTest::newRow("infinity") << "inf" << none << none;
        QTest::newRow("not a number") << "nan" << none << none;
    }

    void authorNumbersAndFrameNumbers()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        QFETCH(double, rounded);

        QCOMPARE(parseAuthorNumber(text).value_or(qQNaN()), number);
        if (qIsNaN(number))
            return;
        QCOMPARE(roundHalfEven(number), rounded);
        QCOMPARE(frameNumber(number), qint64(rounded));
    }

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

    void postponeHoldsTicksBackAndHastenNeverDoes()
    {
        TickTimer timer;
        QSignalSpy ticks(&timer, &TickTimer::timeout);
        timer.postpone(1); // a stopped timer stays stopped
        timer.hasten(1);
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

        timer.postpone(-1);
        timer.hasten(1); // held back: it comes now
        const qsizetype held = ticks.size();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.size() > held, 500);
        timer.postpone(30);
        const qsizetype before = ticks.size();
        timer.hasten(2000); // due sooner already: that one stays
        QTRY_VERIFY_WITH_TIMEOUT(ticks.size() > before, 500);
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

QTEST_GUILESS_MAIN(FramePreviewsTest)
#include "tst_framepreviews.moc"
