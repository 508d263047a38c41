// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"
#include "theme/animatedelement.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include "preview/ticktimer.h"

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class LoadProgress;
class LoadingSurface;
class StripLoader;
class ThemeDocument;

/**
 * The seven animation previews: loads an element's frames into its strip and plays them into
 * the element's preview surface on every tick of the element's timer.
 *
 * Each element has a timer; the engine makes its own until the window hands it the one to use
 * (attachTimer), so the window's page switches stop the animation by stopping that timer.
 */
class FramePreviews : public QObject
{
    Q_OBJECT

public:
    /** Milliseconds since system start, wrapping like a 32-bit tick counter. */
    using Clock = std::function<quint32()>;

    FramePreviews(ThemeDocument &doc, LoadingSurface &loading,
                  QObject *parent = nullptr);
    ~FramePreviews() override;

    /** Replaces the system tick counter, for tests and measurements. */
    void setClock(Clock clock) { m_clock = std::move(clock); }
    /** Where slow loads report progress; nullptr (the default) shows nothing. */
    void setProgress(LoadProgress *progress) { m_progress = progress; }

    /** Makes \a timer drive \a element from now on, replacing the engine's own timer. */
    void attachTimer(AnimatedElementId element, TickTimer *timer);
    TickTimer *timer(AnimatedElementId element) const { return m_timers[element]; }

    /**
     * The element's Preview command: checks its settings (the report names the first bad one),
     * starts loading every frame file once into a new strip and starts the element's timer, so
     * the animation plays from its first frame on while the rest load; a tick that reaches a
     * frame not loaded yet holds the picture until it is. Any early end leaves a running
     * animation exactly as it was, and so does a load cancelled under the progress window.
     */
    Report startFramePreview(AnimatedElementId element);

    /** Waits for the strip still loading, if any, showing progress as the load does. */
    void finishLoading();

    /** The frame files the element's strip was last built from, as the loader found them. */
    QStringList stripFiles(AnimatedElementId element) const { return m_stripFiles[element]; }
    /** The first of those files (from 1) that did not load, 0 when every one did. */
    qint64 firstFailedFrame(AnimatedElementId element) const { return m_firstFailed[element]; }
    /**
     * Builds a playing element's strip again from its files as they are now (the art changed
     * on disk); the animation goes on where it was. A stopped element is left alone.
     */
    Report reloadStrip(AnimatedElementId element);

    /** The frame number (from 1) the element's surface shows; 0 before it showed one. */
    qint64 shownFrame(AnimatedElementId element) const;
    /** The element's frame count, as playback rounds it, and its delay in milliseconds. */
    qint64 frameCount(AnimatedElementId element) const;
    double delay(AnimatedElementId element) const { return m_states[element].delay; }
    /**
     * Shows the frame \a steps away from the one shown (wrapping within the frame count), for
     * a paused animation; playing on continues from there.
     */
    void stepFrame(AnimatedElementId element, int steps);

    /** One timer tick: draws the current frame and moves on once the delay has passed. */
    void animationTick(AnimatedElementId element);
    /**
     * One tick of the element's timer, which sleeps through ticks that would change nothing:
     * returns the milliseconds to the next tick it runs, -1 for none until a setting, the
     * strip or the surface changes (those wake the timer for the next tick). Frames come
     * and go on the same ticks as with animationTick() every millisecond.
     */
    qint64 sleepingTick(AnimatedElementId element);

    /** Stops every element's timer; the surfaces keep their last frame. */
    void stopAll();
    /** Stops every element and empties every surface: another theme is open. */
    void clearSurfaces();

    /** What the element's preview surface shows now (null before anything was drawn). */
    QImage surfaceImage(AnimatedElementId element) const;

    /** The built frame strip the element plays from; a load still running is waited for. */
    const QImage &strip(AnimatedElementId element);

signals:
    /** The element's strip has loaded whole, from the files stripFiles() names. */
    void stripLoaded(AnimatedElementId element);

    /**
     * The picture of \a element's preview surface changed to \a image. Also sent with the
     * same pixels when a new strip replaces the one the picture was shown from.
     */
    void surfaceChanged(AnimatedElementId element, const QImage &image);

protected:
    void customEvent(QEvent *event) override;

private:
    struct FieldIndexes {
        int animated = -1, image = -1, frameCount = -1, startingFrame = -1, delay = -1,
            reverse = -1;
    };
    // A number read from a field, kept with the text it was read from: ticks read the
    // settings every millisecond, and they are edited far more rarely than that.
    struct ParsedNumber {
        QString text;
        std::optional<double> value;
    };
    struct AnimationState {
        qint64 currentFrame = 1;
        quint32 lastAdvanceTime = 0;
        // The settings last read as numbers; a tick keeps them while a text is not a number.
        double frameCount = 1;
        double delay = 0;
        qint64 startingFrame = 1;
        // The tick a sleeping timer skipped that would only have advanced the frame.
        std::optional<quint32> skippedAdvance;
        // Since when the frame to draw is waiting to be loaded; the animation's time stands still.
        std::optional<quint32> heldSince;
    };
    struct SettingTexts {
        ParsedNumber frameCount, delay, startingFrame;
    };
    struct DrawnFrame {
        std::optional<AnimatedElementId> element;
        quint64 stripGeneration = 0;
        qint64 slot = 0;
        bool operator==(const DrawnFrame &) const = default;
    };
    struct Surface {
        QImage image;                   // what the surface shows
        bool showsView = false;         // image lies in a strip's memory
        std::array<QImage, 2> buffers;  // for frames no view can show; alternated, so that
        int nextBuffer = 0;             // a receiver holding the last one costs no copy
        std::array<std::optional<AnimatedElementId>, 2> bufferDrawnBy; // element that last drew each buffer
        bool drawnAny = false;
        DrawnFrame drawn;
    };
    struct Strip {
        // Shared with the views below; nothing may write to it once built.
        QImage image;
        quint64 generation = 0;
        // Per slot, the surface-sized view of the slot's frame, made on its first draw.
        std::vector<QImage> views;
        const AnimatedElement *viewElement = nullptr; // whose surface size the views have
    };

    struct PendingLoad;
    /** Whether a load started; false when there is nothing to load now, a failure when too large. */
    Result<bool> startLoad(AnimatedElementId element, double frameCount);
    void postArrivals();
    void arrivalsPosted();
    void takeArrivals(bool waitForOne);
    void endLoad(bool cancelled);
    bool slotReady(AnimatedElementId element, qint64 slot) const;
    struct NextChange {
        qint64 ms = 1;         // from the last tick; -1: none until woken
        bool advances = false; // only the frame counter moves then, not the picture
    };
    NextChange nextChange(AnimatedElementId element) const;
    void sleepFor(AnimatedElementId element, qint64 ms);
    void wake(AnimatedElementId element);
    void wakeOthersOnSurface(AnimatedElementId element);
    void fieldChanged(int index);
    bool isPaused(AnimatedElementId element) const;
    bool isReversed(AnimatedElementId element) const;
    qint64 slotToDraw(AnimatedElementId element) const;
    bool surfaceShows(AnimatedElementId element, qint64 slot) const;
    void replaceStrip(AnimatedElementId element, QImage &built);
    static std::optional<double> readNumber(ParsedNumber &parsed, const QString &text);
    void readSettings(AnimatedElementId element);
    void advance(AnimatedElementId element, quint32 now);
    bool draw(AnimatedElementId element, qint64 slot);
    const QImage *viewOf(Strip &strip, const AnimatedElement &element, qint64 slot);
    void releaseViews(quint64 stripGeneration);
    Strip &stripOf(AnimatedElementId element);
    const Strip &stripOf(AnimatedElementId element) const;

    ThemeDocument &m_doc;
    LoadingSurface &m_loading;
    Clock m_clock;
    LoadProgress *m_progress = nullptr;
    ElementTable<FieldIndexes> m_fields;
    ElementTable<AnimationState> m_states;
    ElementTable<SettingTexts> m_settingTexts;
    ElementTable<QPointer<TickTimer>> m_timers;
    ElementTable<QMetaObject::Connection> m_timerConnections;
    ElementTable<Surface> m_surfaces; // by the element whose surface it is
    std::array<Strip, 2> m_strips;
    quint64 m_nextGeneration = 1;
    ElementTable<QStringList> m_stripFiles;
    ElementTable<qint64> m_firstFailed{};
    std::unique_ptr<PendingLoad> m_pending; // the strip loading now, one at a time
    std::atomic<bool> m_arrivalPosted{false};
    bool m_handling = false; // progress is being shown, which may let events through
};
