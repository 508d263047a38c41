#include "preview/framepreviews.h"

#include "document/dialogs.h"
#include "document/themedocument.h"
#include "preview/framesequence.h"
#include "preview/framestrip.h"
#include "preview/loadingsurface.h"
#include "preview/loadprogress.h"
#include "preview/stripprefault.h"

#include <QElapsedTimer>
#include <QTimer>

#include <cstring>

// A load shorter than this finishes before a progress window would be readable.
static constexpr quint32 progressDelayMs = 500;

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

FramePreviews::FramePreviews(ThemeDocument &doc, Dialogs &dialogs, LoadingSurface &loading,
                             QObject *parent)
    : QObject(parent)
    , m_doc(doc)
    , m_dialogs(dialogs)
    , m_loading(loading)
    , m_clock(systemTickCount)
{
    for (int i = 0; i < AnimatedElementCount; ++i) {
        const AnimatedElement &e = animatedElements[i];
        m_fields[size_t(i)] = {fieldIndexOrNone(e.animatedField), fieldIndexOrNone(e.imageField),
                               fieldIndexOrNone(e.frameCountField),
                               fieldIndexOrNone(e.startingFrameField),
                               fieldIndexOrNone(e.delayField), fieldIndexOrNone(e.reverseField)};
        // Elements sharing a preview surface share its pictures.
        int surface = i;
        for (int j = 0; j < i; ++j) {
            if (qstrcmp(animatedElements[j].surface, e.surface) == 0) {
                surface = m_surfaceOf[size_t(j)];
                break;
            }
        }
        m_surfaceOf[size_t(i)] = surface;
        attachTimer(i, new QTimer(this));
    }
    connect(&m_doc, &ThemeDocument::themeReset, this, &FramePreviews::stopAll);
}

FramePreviews::~FramePreviews()
{
    for (const auto &connection : m_timerConnections)
        disconnect(connection);
}

void FramePreviews::attachTimer(int element, QTimer *timer)
{
    QPointer<QTimer> &slot = m_timers[size_t(element)];
    if (slot == timer)
        return;
    disconnect(m_timerConnections[size_t(element)]);
    const bool running = slot && slot->isActive();
    if (slot) {
        slot->stop();
        if (slot->parent() == this)
            delete slot.data();
    }
    slot = timer;
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(1);
    m_timerConnections[size_t(element)] =
        connect(timer, &QTimer::timeout, this, [this, element] { animationTick(element); });
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

FramePreviews::Strip &FramePreviews::stripOf(int element)
{
    return m_strips[animatedElements[element].strip == FrameStripId::Background ? 0 : 1];
}

const FramePreviews::Strip &FramePreviews::stripOf(int element) const
{
    return m_strips[animatedElements[element].strip == FrameStripId::Background ? 0 : 1];
}

const QImage &FramePreviews::strip(int element) const
{
    return stripOf(element).image;
}

QImage FramePreviews::surfaceImage(int element) const
{
    const Surface &surface = m_surfaces[size_t(m_surfaceOf[size_t(element)])];
    return surface.shown < 0 ? QImage() : surface.buffers[size_t(surface.shown)];
}

bool FramePreviews::settingsValid(int element, double *frameCount, qint64 *startingFrame,
                                  double *delay)
{
    const FieldIndexes &f = m_fields[size_t(element)];
    const auto count = parseAuthorNumber(m_doc.value(f.frameCount));
    if (!count || !(*count > 0)) {
        m_dialogs.error(QStringLiteral("Number of frames needs to be 1 or greater!"));
        return false;
    }
    *frameCount = *count;
    *startingFrame = 1;
    if (f.startingFrame >= 0) {
        const auto start = parseAuthorNumber(m_doc.value(f.startingFrame));
        if (!start || !(*start > 0)) {
            m_dialogs.error(QStringLiteral("Starting frame needs to be 1 or greater!"));
            return false;
        }
        *startingFrame = frameNumber(*start);
    }
    const auto wait = parseAuthorNumber(m_doc.value(f.delay));
    if (!wait || !(*wait >= 0)) {
        m_dialogs.error(QStringLiteral("Delay between frames needs to be 0 or greater!"));
        return false;
    }
    *delay = *wait;
    return true;
}

void FramePreviews::startFramePreview(int element)
{
    const FieldIndexes &f = m_fields[size_t(element)];
    if (f.animated >= 0 && m_doc.number(f.animated) != 1)
        return;
    double frameCount = 0;
    qint64 startingFrame = 1;
    double delay = 0;
    if (!settingsValid(element, &frameCount, &startingFrame, &delay))
        return;

    QImage built;
    if (!buildStrip(element, frameCount, &built))
        return;

    Strip &strip = stripOf(element);
    strip.image.swap(built);
    strip.generation = m_nextGeneration++;
    m_states[size_t(element)] = {startingFrame, 0, frameCount, delay, startingFrame};
    m_timers[size_t(element)]->start();
}

bool FramePreviews::buildStrip(int element, double frameCount, QImage *built)
{
    const AnimatedElement &e = animatedElements[element];
    const auto sequence = FrameSequence::fromImageText(m_doc.value(m_fields[size_t(element)].image));
    if (!sequence)
        return false;

    const QString tooLarge =
        QStringLiteral("The %1 animation is too large to preview: %2 frames need more than "
                       "1 GiB of memory.")
            .arg(QString::fromLatin1(e.caption), m_doc.value(m_fields[size_t(element)].frameCount).trimmed());
    if (FrameStrip::bytesNeeded(e, frameCount) > FrameStrip::maximumBytes) {
        m_dialogs.error(tooLarge);
        return false;
    }
    *built = FrameStrip::allocate(e, frameCount);
    if (built->isNull()) {
        m_dialogs.error(tooLarge);
        return false;
    }

    const StripPrefault prefault(*built);
    const qint64 count = frameNumber(frameCount);
    const QString folder = m_doc.packageFolder();
    const quint32 started = m_clock();
    bool showing = false;
    for (qint64 n = 1; n <= count; ++n) {
        // A frame that does not load repeats whatever the loading surface still holds.
        m_loading.load(sequence->frameName(folder, n));
        FrameStrip::placeFrame(*built, e.frame, n - 1, m_loading.picture());
        if (!m_progress)
            continue;
        if (!showing && quint32(m_clock() - started) >= progressDelayMs) {
            m_progress->begin(QString::fromLatin1(e.caption), count);
            showing = true;
        }
        if (showing && !m_progress->update(n)) {
            m_progress->end();
            return false;
        }
    }
    if (showing)
        m_progress->end();
    FrameStrip::clearFrom(*built, count * e.frame.height());
    return true;
}

void FramePreviews::readSettings(int element)
{
    const FieldIndexes &f = m_fields[size_t(element)];
    AnimationState &state = m_states[size_t(element)];
    if (const auto count = parseAuthorNumber(m_doc.value(f.frameCount)))
        state.frameCount = *count;
    if (const auto delay = parseAuthorNumber(m_doc.value(f.delay)))
        state.delay = *delay;
    if (f.startingFrame >= 0) {
        if (const auto start = parseAuthorNumber(m_doc.value(f.startingFrame)))
            state.startingFrame = frameNumber(*start);
    }
}

void FramePreviews::animationTick(int element)
{
    const FieldIndexes &f = m_fields[size_t(element)];
    AnimationState &state = m_states[size_t(element)];
    if (f.animated >= 0 && m_doc.number(f.animated) != 1) {
        draw(element, 0);
        return;
    }
    readSettings(element);
    const bool reverse = f.reverse >= 0 && m_doc.number(f.reverse) == 1;
    draw(element, reverse ? frameNumber(state.frameCount - double(state.currentFrame))
                          : state.currentFrame - 1);
    const quint32 elapsed = m_clock() - state.lastAdvanceTime;
    if (state.delay < double(elapsed)) {
        ++state.currentFrame;
        if (state.frameCount < double(state.currentFrame))
            state.currentFrame = state.startingFrame;
        state.lastAdvanceTime = m_clock();
    }
}

void FramePreviews::draw(int element, qint64 slot)
{
    const Strip &strip = stripOf(element);
    Surface &surface = m_surfaces[size_t(m_surfaceOf[size_t(element)])];
    const DrawnFrame frame{element, strip.generation, slot};
    // Drawing the same slot again would give the same pixels: most ticks end here.
    if (surface.shown >= 0 && surface.drawn == frame)
        return;
    const int next = surface.shown == 0 ? 1 : 0;
    QImage &target = surface.buffers[size_t(next)];
    const QSize size = animatedElements[element].surfaceSize;
    if (target.size() != size)
        target = QImage(size, QImage::Format_RGB888);
    FrameStrip::drawSlot(strip.image, animatedElements[element].frame, slot, target);
    surface.shown = next;
    surface.drawn = frame;
    emit surfaceChanged(element, target);
}
