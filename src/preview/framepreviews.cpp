// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/framepreviews.h"

#include "theme/themedocument.h"
#include "preview/elementpreview.h"
#include "preview/framesequence.h"
#include "preview/framesettings.h"
#include "preview/framestrip.h"
#include "preview/loadingsurface.h"
#include "preview/loadprogress.h"
#include "preview/striploader.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>

// A load that ends within a second shows no progress; a longer one shows it from then on,
// unless it is about to end: a window that came and went at once would only flash.
static constexpr quint32 progressDelayMs = 1000;
static constexpr quint32 shortestProgressMs = 500;
static const QEvent::Type hurryEvent = QEvent::Type(QEvent::registerEventType());

struct FramePreviews::PendingLoad {
    AnimatedElementId element{}; // set when the load is made
    std::unique_ptr<StripLoader> loader;
    quint32 started = 0;
    qint64 ready = 0; // slots from the first that hold their frames
    bool showing = false;
    bool hurryPosted = false;
    // What a cancelled load puts back.
    QImage previousImage;
    quint64 previousGeneration = 0;
    std::vector<QImage> previousViews;
    const AnimatedElement *previousViewElement = nullptr;
    AnimationState previousState;
    bool wasActive = false;
};

static quint32 systemTickCount()
{
    // The monotonic clock counts from boot on the systems we run on, like the game's tick count.
    QElapsedTimer now;
    now.start();
    return quint32(now.msecsSinceReference());
}

static int fieldIndexOrNone(const char *key)
{
    return key ? ThemeDocument::requireIndex(QString::fromLatin1(key)) : -1;
}

FramePreviews::FramePreviews(ThemeDocument &doc, LoadingSurface &loading,
                             QObject *parent)
    : QObject(parent)
    , m_doc(doc)
    , m_loading(loading)
    , m_clock(systemTickCount)
{
    for (AnimatedElementId i : animatedElementIds) {
        const AnimatedElement &e = animatedElements[i];
        m_fields[i] = {fieldIndexOrNone(e.animatedFields[0]), fieldIndexOrNone(e.imageField),
                               fieldIndexOrNone(e.frameCountField),
                               fieldIndexOrNone(e.startingFrameField),
                               fieldIndexOrNone(e.delayField), fieldIndexOrNone(e.reverseField)};
        attachTimer(i, new TickTimer(this));
    }
    connect(&m_doc, &ThemeDocument::themeReset, this, &FramePreviews::stopAll);
    connect(&m_doc, &ThemeDocument::fieldChanged, this, &FramePreviews::fieldChanged);
}

FramePreviews::~FramePreviews()
{
    m_pending.reset();
    for (const auto &connection : m_timerConnections)
        disconnect(connection);
}

void FramePreviews::attachTimer(AnimatedElementId element, TickTimer *timer)
{
    QPointer<TickTimer> &slot = m_timers[element];
    if (slot == timer)
        return;
    disconnect(m_timerConnections[element]);
    const bool running = slot && slot->isActive();
    if (slot) {
        slot->stop();
        if (slot->parent() == this)
            delete slot.data();
    }
    slot = timer;
    timer->setInterval(1);
    m_timerConnections[element] =
        connect(timer, &TickTimer::timeout, this, [this, element] { sleepFor(element, sleepingTick(element)); });
    if (running)
        timer->start();
}

void FramePreviews::stopAll()
{
    for (const auto &timer : m_timers) {
        if (timer)
            timer->stop();
    }
}

void FramePreviews::clearSurfaces()
{
    stopAll();
    for (Surface &surface : m_surfaces) {
        surface.image = QImage();
        surface.showsView = false;
        surface.drawnAny = false;
        surface.drawn = {};
    }
    for (AnimatedElementId element : animatedElementIds)
        emit surfaceChanged(element, QImage());
}

FramePreviews::Strip &FramePreviews::stripOf(AnimatedElementId element)
{
    return m_strips[elementPreviews[element].strip == FrameStripId::Background ? 0 : 1];
}

const FramePreviews::Strip &FramePreviews::stripOf(AnimatedElementId element) const
{
    return m_strips[elementPreviews[element].strip == FrameStripId::Background ? 0 : 1];
}

const QImage &FramePreviews::strip(AnimatedElementId element)
{
    finishLoading();
    return stripOf(element).image;
}

QImage FramePreviews::surfaceImage(AnimatedElementId element) const
{
    return m_surfaces[elementPreviews[element].surface].image;
}

Report FramePreviews::startFramePreview(AnimatedElementId element)
{
    Report report;
    const FieldIndexes &f = m_fields[element];
    if (f.animated >= 0 && m_doc.number(f.animated) != 1)
        return report;
    const Result<FrameSettings> read = readFrameSettings(m_doc, animatedElements[element]);
    if (!read.report().isEmpty()) {
        report.add(read.report().problems.first()); // the author fixes one number at a time
        return report;
    }
    const FrameSettings &settings = *read;

    if (const Result<bool> started = startLoad(element, settings.frameCount); !started.valueOr(false))
        return started.report();
    m_states[element] = {settings.startingFrame, 0, settings.frameCount, settings.delay,
                                 settings.startingFrame, {}, {}};
    m_timers[element]->start();
    return report;
}

Report FramePreviews::reloadStrip(AnimatedElementId element)
{
    if (!m_timers[element]->isActive())
        return {};
    const Result<bool> started = startLoad(element, m_states[element].frameCount);
    if (started.valueOr(false))
        finishLoading();
    return started.report();
}

void FramePreviews::replaceStrip(AnimatedElementId element, QImage &built)
{
    Strip &strip = stripOf(element);
    const quint64 replaced = strip.generation;
    strip.image.swap(built);
    strip.generation = m_nextGeneration++;
    strip.views.clear();
    releaseViews(replaced);
    // Their next tick draws from the new strip.
    for (AnimatedElementId other : animatedElementIds) {
        if (&stripOf(other) == &strip)
            wake(other);
    }
}

Result<bool> FramePreviews::startLoad(AnimatedElementId element, double frameCount)
{
    if (m_handling)
        return false; // a load is showing its progress, which lets this click through
    const AnimatedElement &e = animatedElements[element];
    const auto sequence = FrameSequence::fromImageText(m_doc.value(m_fields[element].image));
    if (!sequence)
        return false;

    const QString tooLarge =
        QCoreApplication::translate("FramePreviews", "The %1 animation is too large to preview: %2 frames need more than "
                                                     "1 GiB of memory.")
            .arg(elementCaption(e.id), m_doc.value(m_fields[element].frameCount).trimmed());
    if (FrameStrip::bytesNeeded(e, frameCount) > FrameStrip::maximumBytes)
        return Result<bool>::fail(tooLarge, QString::fromLatin1(e.frameCountField));
    finishLoading(); // one load at a time: the one running ends first
    QImage built = FrameStrip::allocate(e, frameCount);
    if (built.isNull())
        return Result<bool>::fail(tooLarge, QString::fromLatin1(e.frameCountField));

    auto load = std::make_unique<PendingLoad>();
    load->element = element;
    load->started = m_clock();
    load->previousState = m_states[element];
    load->wasActive = m_timers[element]->isActive();
    // Frames come on worker threads; one queued call at a time takes every frame that came.
    const auto arrived = [this] { postArrivals(); };
    load->loader = std::make_unique<StripLoader>(built, e.frame, *sequence, m_doc.packageFolder(),
                                                 frameNumber(frameCount), arrived);
    Strip &strip = stripOf(element);
    load->previousImage = strip.image;
    load->previousGeneration = strip.generation;
    load->previousViews = strip.views;
    load->previousViewElement = strip.viewElement;
    m_pending = std::move(load);
    replaceStrip(element, built);
    if (m_progress) // a load stuck on one file still shows its progress
        QTimer::singleShot(progressDelayMs, this, [this] {
            if (m_pending && !m_handling)
                takeArrivals(false);
        });
    return true;
}

void FramePreviews::postArrivals()
{
    if (!m_arrivalPosted.exchange(true))
        QMetaObject::invokeMethod(this, &FramePreviews::arrivalsPosted, Qt::QueuedConnection);
}

void FramePreviews::arrivalsPosted()
{
    m_arrivalPosted = false;
    if (m_pending && m_handling)
        postArrivals(); // taken once the progress shown has let go
    else if (m_pending)
        takeArrivals(false);
}

void FramePreviews::finishLoading()
{
    if (m_pending) // nothing else to show meanwhile
        m_pending->loader->hurry();
    while (m_pending && !m_handling)
        takeArrivals(true);
}

void FramePreviews::takeArrivals(bool waitForOne)
{
    PendingLoad &load = *m_pending;
    StripLoader &loader = *load.loader;
    // Waiting, one frame at a time, so that progress counts every frame.
    if (!waitForOne)
        loader.takeArrived();
    else if (loader.taken() < loader.count())
        loader.waitForFrame();
    const qint64 ready = loader.settle(m_loading.picture());
    if (ready > load.ready) {
        const qint64 was = load.ready;
        load.ready = ready;
        for (AnimatedElementId other : animatedElementIds) {
            // Only a timer asleep on a frame that was loading: waking the others would cost a
            // tick for every frame that comes.
            const qint64 wanted = slotToDraw(other);
            if (&stripOf(other) == &stripOf(load.element) && wanted >= was && wanted < ready)
                wake(other);
        }
    }
    const qint64 done = loader.taken();
    if (m_progress && done < loader.count()) {
        const quint32 elapsed = m_clock() - load.started;
        const double left = double(elapsed) * double(loader.count() - done) / double(std::max<qint64>(done, 1));
        if (!load.showing && elapsed >= progressDelayMs && left >= shortestProgressMs) {
            m_progress->begin(elementCaption(load.element), loader.count());
            load.showing = true;
        }
        if (load.showing) {
            m_handling = true;
            const bool goOn = m_progress->update(done);
            m_handling = false;
            if (!goOn)
                return endLoad(true);
        }
    }
    if (done >= loader.count())
        endLoad(false);
}

void FramePreviews::endLoad(bool cancelled)
{
    const std::unique_ptr<PendingLoad> load = std::move(m_pending);
    if (load->showing)
        m_progress->end();
    const AnimatedElementId element = load->element;
    if (!cancelled) {
        m_stripFiles[element] = load->loader->finish(m_loading);
        m_firstFailed[element] = load->loader->firstFailed();
        emit stripLoaded(element);
        return;
    }
    load->loader.reset(); // its workers end after the frames in hand
    Strip &strip = stripOf(element);
    const quint64 cancelledGeneration = strip.generation;
    strip.image = load->previousImage;
    strip.generation = load->previousGeneration;
    strip.views = load->previousViews;
    strip.viewElement = load->previousViewElement;
    releaseViews(cancelledGeneration);
    m_states[element] = load->previousState;
    if (!load->wasActive)
        m_timers[element]->stop();
    for (AnimatedElementId other : animatedElementIds) {
        if (&stripOf(other) == &strip)
            wake(other);
    }
}

bool FramePreviews::slotReady(AnimatedElementId element, qint64 slot) const
{
    if (!m_pending || &stripOf(m_pending->element) != &stripOf(element))
        return true;
    // Slots outside the frames lie in rows cleared from the start.
    return slot < m_pending->ready || slot >= m_pending->loader->count() || slot < 0;
}

std::optional<double> FramePreviews::readNumber(ParsedNumber &parsed, const QString &text)
{
    if (text != parsed.text) {
        parsed.value = parseAuthorNumber(text);
        parsed.text = text;
    }
    return parsed.value;
}

void FramePreviews::readSettings(AnimatedElementId element)
{
    const FieldIndexes &f = m_fields[element];
    AnimationState &state = m_states[element];
    SettingTexts &texts = m_settingTexts[element];
    if (const auto count = readNumber(texts.frameCount, m_doc.value(f.frameCount)))
        state.frameCount = *count;
    if (const auto delay = readNumber(texts.delay, m_doc.value(f.delay)))
        state.delay = *delay;
    if (f.startingFrame >= 0) {
        if (const auto start = readNumber(texts.startingFrame, m_doc.value(f.startingFrame)))
            state.startingFrame = frameNumber(*start);
    }
}

bool FramePreviews::isPaused(AnimatedElementId element) const
{
    const FieldIndexes &f = m_fields[element];
    return f.animated >= 0 && m_doc.number(f.animated) != 1;
}

bool FramePreviews::isReversed(AnimatedElementId element) const
{
    const FieldIndexes &f = m_fields[element];
    return f.reverse >= 0 && m_doc.number(f.reverse) == 1;
}

qint64 FramePreviews::slotToDraw(AnimatedElementId element) const
{
    if (isPaused(element))
        return 0;
    const AnimationState &state = m_states[element];
    return isReversed(element) ? frameNumber(state.frameCount - double(state.currentFrame)) : state.currentFrame - 1;
}

void FramePreviews::animationTick(AnimatedElementId element)
{
    AnimationState &state = m_states[element];
    if (isPaused(element)) {
        draw(element, 0);
        return;
    }
    readSettings(element);
    if (!draw(element, slotToDraw(element))) {
        // The frame is still loading: the animation's time stands still until it is there, so
        // the frames that follow come on the same ticks as they would have without the wait.
        if (!state.heldSince)
            state.heldSince = m_clock();
        return;
    }
    if (state.heldSince) {
        state.lastAdvanceTime += m_clock() - *state.heldSince;
        state.heldSince.reset();
    }
    const quint32 elapsed = m_clock() - state.lastAdvanceTime;
    if (state.delay < double(elapsed))
        advance(element, m_clock());
}

void FramePreviews::advance(AnimatedElementId element, quint32 now)
{
    AnimationState &state = m_states[element];
    ++state.currentFrame;
    if (state.frameCount < double(state.currentFrame))
        state.currentFrame = state.startingFrame;
    state.lastAdvanceTime = now;
}

bool FramePreviews::surfaceShows(AnimatedElementId element, qint64 slot) const
{
    const Surface &surface = m_surfaces[elementPreviews[element].surface];
    return surface.drawnAny && surface.drawn == DrawnFrame{element, stripOf(element).generation, slot};
}

FramePreviews::NextChange FramePreviews::nextChange(AnimatedElementId element) const
{
    // A frame still loading wakes the timer when it has loaded.
    if (!slotReady(element, slotToDraw(element)))
        return {-1};
    // A tick first draws: while the surface already shows that slot, drawing is free.
    if (!surfaceShows(element, slotToDraw(element)))
        return {};
    if (isPaused(element))
        return {-1};
    const AnimationState &state = m_states[element];
    // The advancing tick is the first on which more than the delay has passed: a whole
    // number of milliseconds, so the delay's fraction never counts.
    if (!(state.delay >= 0))
        return {};
    // A sleep that long wakes once more and finds the rest.
    constexpr double longestSleep = 60000;
    const double due = std::floor(state.delay) + 1 - double(quint32(m_clock() - state.lastAdvanceTime));
    if (due > longestSleep)
        return {qint64(longestSleep)};
    return {qint64(std::max(due, 1.0)), true};
}

qint64 FramePreviews::sleepingTick(AnimatedElementId element)
{
    AnimationState &state = m_states[element];
    const quint32 now = m_clock();
    // Woken after the skipped tick, its advance is made up as it would have been: a wake-up
    // that a busy machine made late still draws the new frame at once, keeping the animation's
    // time, instead of costing a second wake-up. Woken earlier, the tick below decides.
    if (state.skippedAdvance && qint32(now - *state.skippedAdvance) >= 1)
        advance(element, *state.skippedAdvance);
    state.skippedAdvance.reset();
    animationTick(element);
    const NextChange next = nextChange(element);
    if (!next.advances)
        return next.ms;
    // Sleeping through the advancing tick too leaves one wake-up for each frame.
    state.skippedAdvance = now + quint32(next.ms);
    return next.ms + 1;
}

void FramePreviews::sleepFor(AnimatedElementId element, qint64 ms)
{
    if (TickTimer *timer = m_timers[element]; timer && timer->isActive())
        timer->postpone(int(ms));
}

void FramePreviews::wake(AnimatedElementId element)
{
    // Never later than due: frames arriving faster than a millisecond apart would otherwise
    // hold the first tick back until they stopped.
    if (TickTimer *timer = m_timers[element]; timer && timer->isActive())
        timer->hasten(1);
}

void FramePreviews::wakeOthersOnSurface(AnimatedElementId element)
{
    // Another element showing on the same surface draws its own frame over this one on its
    // next tick, as it would if it ticked every millisecond.
    const AnimatedElementId surface = elementPreviews[element].surface;
    for (AnimatedElementId other : animatedElementIds) {
        if (other != element && elementPreviews[other].surface == surface)
            wake(other);
    }
}

void FramePreviews::fieldChanged(int index)
{
    for (AnimatedElementId element : animatedElementIds) {
        const FieldIndexes &f = m_fields[element];
        for (const int read : {f.animated, f.frameCount, f.startingFrame, f.delay, f.reverse}) {
            if (read == index)
                wake(element);
        }
    }
}

qint64 FramePreviews::shownFrame(AnimatedElementId element) const
{
    const Surface &surface = m_surfaces[elementPreviews[element].surface];
    return surface.drawnAny && surface.drawn.element == element ? surface.drawn.slot + 1 : 0;
}

qint64 FramePreviews::frameCount(AnimatedElementId element) const
{
    return std::max<qint64>(1, frameNumber(m_states[element].frameCount));
}

void FramePreviews::stepFrame(AnimatedElementId element, int steps)
{
    readSettings(element);
    const qint64 count = frameCount(element);
    const qint64 slot = ((std::max<qint64>(shownFrame(element), 1) - 1 + steps) % count + count) % count;
    draw(element, slot);
    // The next tick draws this frame again, whichever way the animation runs.
    m_states[element].currentFrame = isReversed(element) ? count - slot : slot + 1;
    m_states[element].lastAdvanceTime = m_clock();
    wake(element);
}

bool FramePreviews::draw(AnimatedElementId element, qint64 slot)
{
    // Drawing the same slot again would give the same pixels: most ticks end here.
    if (surfaceShows(element, slot))
        return true;
    if (!slotReady(element, slot))
        return false;
    Strip &strip = stripOf(element);
    Surface &surface = m_surfaces[elementPreviews[element].surface];
    const AnimatedElement &e = animatedElements[element];
    if (const QImage *view = viewOf(strip, e, slot)) {
        surface.image = *view;
        surface.showsView = true;
    } else {
        const size_t index = size_t(surface.nextBuffer);
        surface.nextBuffer = 1 - surface.nextBuffer;
        QImage &target = surface.buffers[index];
        if (target.size() != elementPreviews[element].surfaceSize) {
            target = QImage(elementPreviews[element].surfaceSize, QImage::Format_RGB888);
            surface.bufferDrawnBy[index].reset();
        }
        // Around its frame, an element leaves the surface cleared: a 96 x 176 corner then
        // costs a quarter of the 192 x 352 surface it is shown on.
        FrameStrip::drawSlot(strip.image, e.frame, slot, target,
                             surface.bufferDrawnBy[index] == element);
        surface.bufferDrawnBy[index] = element;
        surface.image = target;
        surface.showsView = false;
    }
    surface.drawnAny = true;
    surface.drawn = {element, strip.generation, slot};
    wakeOthersOnSurface(element);
    emit surfaceChanged(element, surface.image);
    if (m_pending && !m_pending->hurryPosted && &stripOf(m_pending->element) == &strip) {
        // Posted after the repaint the picture asked for, at its low priority: the frames left
        // decode at the window's priority once the first is on screen.
        m_pending->hurryPosted = true;
        QCoreApplication::postEvent(this, new QEvent(hurryEvent), Qt::LowEventPriority);
    }
    return true;
}

void FramePreviews::customEvent(QEvent *event)
{
    if (event->type() == hurryEvent && m_pending)
        m_pending->loader->hurry();
}

const QImage *FramePreviews::viewOf(Strip &strip, const AnimatedElement &e, qint64 slot)
{
    // A view shows what drawSlot() would copy only where the surface lies inside the frame
    // and the frame inside the strip; elsewhere the surface needs cleared pixels of its own.
    const QSize size = elementPreviews[e.id].surfaceSize;
    const qint64 top = slot * e.frame.height();
    if (slot < 0 || size.width() > e.frame.width() || size.height() > e.frame.height()
        || size.width() > strip.image.width() || top + size.height() > strip.image.height())
        return nullptr;
    // Elements sharing a strip have frames of other sizes; only one plays at a time.
    if (strip.viewElement != &e) {
        strip.views.clear();
        strip.viewElement = &e;
    }
    if (qint64(strip.views.size()) <= slot)
        strip.views.resize(size_t(slot) + 1);
    QImage &view = strip.views[size_t(slot)];
    if (view.isNull()) {
        // Each view holds the strip's pixels, so a picture a receiver keeps stays valid
        // after the strip is replaced.
        view = QImage(strip.image.constScanLine(int(top)), size.width(), size.height(),
                      strip.image.bytesPerLine(), QImage::Format_RGB888,
                      [](void *pixels) { delete static_cast<QImage *>(pixels); },
                      new QImage(strip.image));
    }
    return &view;
}

void FramePreviews::releaseViews(quint64 stripGeneration)
{
    // A surface still showing a frame of a replaced strip gets pixels of its own, so that the
    // old strip's memory is not kept by a picture that may stay on screen for long.
    for (Surface &surface : m_surfaces) {
        if (!surface.showsView || !surface.drawn.element || surface.drawn.stripGeneration != stripGeneration)
            continue;
        surface.image = surface.image.copy();
        surface.showsView = false;
        emit surfaceChanged(*surface.drawn.element, surface.image);
    }
}
