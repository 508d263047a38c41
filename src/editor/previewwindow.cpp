// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/previewwindow.h"

#include "theme/animatedelement.h"
#include "preview/elementpreview.h"
#include "preview/framepreviews.h"
#include "preview/ticktimer.h"
#include "editor/previewsurface.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QAction>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int largestZoom = 8;
constexpr int checkerSquare = 8;

/** Paints the picture at a whole-number zoom over a checkerboard. */
class Canvas : public QWidget
{
public:
    Canvas(const QImage &image, const int &zoom, QWidget *parent) : QWidget(parent), m_image(image), m_zoom(zoom)
    {
        // render() covers every pixel of the canvas; the scroll area's background under it
        // would be filled again on every frame for nothing.
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    int factor() const
    {
        if (m_zoom > 0 || m_image.isNull())
            return std::max(m_zoom, 1);
        // Fit: the largest whole step that fits, never below 1x.
        const QSize room = parentWidget() ? parentWidget()->size() : size();
        return std::clamp(std::min(room.width() / m_image.width(), room.height() / m_image.height()), 1, largestZoom);
    }

    QSize sizeHint() const override { return m_image.size() * factor(); }

    /** Paints the part of the picture within \a exposed, in the canvas's pixels. */
    void render(QPainter &painter, const QRect &exposed)
    {
        const int zoom = factor();
        const QSize shown = m_image.size() * zoom;
        // The checkerboard shows only through transparent pixels: under an opaque picture it
        // would cost thousands of squares a frame for nothing.
        for (int y = 0; m_image.hasAlphaChannel() && y < shown.height(); y += checkerSquare) {
            for (int x = 0; x < shown.width(); x += checkerSquare) {
                const bool dark = (x / checkerSquare + y / checkerSquare) % 2;
                painter.fillRect(x, y, checkerSquare, checkerSquare, dark ? QColor(0x99, 0x99, 0x99) : QColor(0xcc, 0xcc, 0xcc));
            }
        }
        // Only the picture's pixels the scroll area shows: at 8x most of a frame is out of sight.
        const QRect part = QRect(QPoint(exposed.left() / zoom, exposed.top() / zoom),
                                 QPoint(exposed.right() / zoom, exposed.bottom() / zoom))
                           & m_image.rect();
        m_zoomed = zoomedPixels(m_image, zoom, part, std::move(m_zoomed));
        if (!m_zoomed.isNull())
            painter.drawImage(part.topLeft() * zoom, m_zoomed);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        render(painter, event->rect());
    }

private:
    const QImage &m_image;
    const int &m_zoom;
    QImage m_zoomed; // kept from frame to frame: the same size each time
};

} // namespace

PreviewWindow::PreviewWindow(FramePreviews &frames, AnimatedElementId element, QWidget *parent)
    : QWidget(parent, Qt::Window), m_frames(&frames), m_element(element), m_image(frames.surfaceImage(element))
{
    // The picture comes first: the canvas takes its size from it when it is built.
    build(elementCaption(element));
    connect(&frames, &FramePreviews::surfaceChanged, this, [this](AnimatedElementId changed, const QImage &image) {
        if (changed == m_element)
            setImage(image);
    });
    connect(m_pause, &QPushButton::clicked, this, &PreviewWindow::togglePause);
    connect(m_back, &QPushButton::clicked, this, [this] { m_frames->stepFrame(m_element, -1); showFrameState(); });
    connect(m_forward, &QPushButton::clicked, this, [this] { m_frames->stepFrame(m_element, 1); showFrameState(); });
    showFrameState();
}

PreviewWindow::PreviewWindow(const QString &caption, const QImage &image, QWidget *parent)
    : QWidget(parent, Qt::Window), m_image(image)
{
    build(caption);
    for (QWidget *frameControl : {static_cast<QWidget *>(m_state), static_cast<QWidget *>(m_pause),
                                  static_cast<QWidget *>(m_back), static_cast<QWidget *>(m_forward)})
        frameControl->hide();
}

void PreviewWindow::build(const QString &caption)
{
    setObjectName(QStringLiteral("frmPreviewWindow"));
    setWindowTitle(tr("Preview - %1").arg(caption));
    setAttribute(Qt::WA_DeleteOnClose);
    // A window of its own, closed as a dialog or a document tab is.
    auto *closing = new QAction(this);
    closing->setObjectName(QStringLiteral("actClosePreview"));
    QList<QKeySequence> keys{QKeySequence(Qt::Key_Escape), QKeySequence(QStringLiteral("Ctrl+W"))};
    // The platform's own Close, unless it is one of these: a key bound twice would be ambiguous.
    for (const QKeySequence &platform : QKeySequence::keyBindings(QKeySequence::Close)) {
        if (!keys.contains(platform))
            keys.append(platform);
    }
    closing->setShortcuts(keys);
    connect(closing, &QAction::triggered, this, &QWidget::close);
    addAction(closing);

    m_zoom = new QComboBox;
    m_zoom->setObjectName(QStringLiteral("cmbZoom"));
    for (int factor = 1; factor <= largestZoom; ++factor)
        m_zoom->addItem(QStringLiteral("%1x").arg(factor), factor);
    m_zoom->addItem(tr("Fit"), 0);
    m_zoom->setCurrentIndex(1);
    m_pause = new QPushButton(tr("Pause"));
    m_pause->setObjectName(QStringLiteral("cmdPause"));
    m_back = new QPushButton(tr("< Step"));
    m_back->setObjectName(QStringLiteral("cmdStepBack"));
    m_forward = new QPushButton(tr("Step >"));
    m_forward->setObjectName(QStringLiteral("cmdStepForward"));
    m_state = new QLabel;
    m_state->setObjectName(QStringLiteral("lblFrameState"));

    auto *bar = new QHBoxLayout;
    bar->addWidget(new QLabel(tr("Zoom:")));
    bar->addWidget(m_zoom);
    bar->addSpacing(12);
    bar->addWidget(m_pause);
    bar->addWidget(m_back);
    bar->addWidget(m_forward);
    bar->addSpacing(12);
    bar->addWidget(m_state, 1);

    auto *scroll = new QScrollArea;
    scroll->setAlignment(Qt::AlignCenter);
    m_canvas = new Canvas(m_image, m_zoomFactor, scroll);
    m_canvas->setObjectName(QStringLiteral("picZoomed"));
    scroll->setWidget(m_canvas);
    scroll->setWidgetResizable(false);
    connect(m_zoom, &QComboBox::currentIndexChanged, this, [this] {
        m_zoomFactor = m_zoom->currentData().toInt();
        m_canvas->resize(m_canvas->sizeHint());
        m_canvas->update();
        fitToPicture();
    });

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(scroll, 1);
    m_canvas->resize(m_canvas->sizeHint());
    fitToPicture();
}

void PreviewWindow::fitToPicture()
{
    if (m_zoomFactor == 0)
        return; // fitting goes the other way: the picture follows the window
    // Room for the picture and the bar above it, within the screen.
    const QSize wanted(std::max(480, m_canvas->width() + 40), m_canvas->height() + 80);
    const QSize room = screen() ? screen()->availableSize() * 9 / 10 : wanted;
    resize(wanted.boundedTo(room));
}

void PreviewWindow::setImage(const QImage &image)
{
    const bool resized = image.size() != m_image.size();
    m_image = image; // converted as it is zoomed, only the part in sight
    if (resized)
        m_canvas->resize(m_canvas->sizeHint());
    m_canvas->update();
    if (m_frames)
        showFrameState();
}

void PreviewWindow::setZoom(int zoom)
{
    m_zoom->setCurrentIndex(zoom == 0 ? largestZoom : std::clamp(zoom, 1, largestZoom) - 1);
}

int PreviewWindow::zoom() const
{
    return m_zoom->currentData().toInt();
}

QImage PreviewWindow::rendered() const
{
    if (m_canvas->sizeHint().isEmpty())
        return {};
    QImage out(m_canvas->sizeHint(), QImage::Format_RGB32);
    QPainter painter(&out);
    static_cast<Canvas *>(m_canvas)->render(painter, out.rect());
    return out;
}

void PreviewWindow::showFrameState()
{
    const bool playing = m_frames->timer(m_element)->isActive();
    m_pause->setText(playing ? tr("Pause") : tr("Play"));
    m_back->setEnabled(!playing);
    m_forward->setEnabled(!playing);
    // A number changing on every frame could not be read, and would set the window's layout
    // and text again every frame: a playing animation says what plays.
    m_state->setText(playing ? tr("Playing %1 frames, delay %2 ms")
                                   .arg(m_frames->frameCount(m_element))
                                   .arg(m_frames->delay(m_element))
                             : tr("Frame %1 of %2, delay %3 ms")
                                   .arg(m_frames->shownFrame(m_element))
                                   .arg(m_frames->frameCount(m_element))
                                   .arg(m_frames->delay(m_element)));
}

void PreviewWindow::togglePause()
{
    TickTimer *timer = m_frames->timer(m_element);
    if (timer->isActive())
        timer->stop();
    else
        timer->start();
    showFrameState();
}
