// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/previewbinding.h"

#include "editing/colorchoice.h"
#include "common/pathlookup.h"
#include "theme/themedocument.h"
#include "editor/controlnames.h"
#include "editor/editordialogs.h"
#include "editor/mainwindow.h"
#include "editor/previewsurface.h"
#include "editor/previewwindow.h"
#include "preview/elementpreview.h"
#include "preview/framesequence.h"
#include "preview/loadprogress.h"

#include <QAbstractButton>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTimer>
#include <QWidget>

namespace {

/** Long frame loads show a progress dialog with a Cancel button; the window stays usable meanwhile. */
class ProgressDialogReporter : public LoadProgress
{
public:
    explicit ProgressDialogReporter(QWidget *window) : m_window(window) {}

    void begin(const QString &caption, qint64 total) override
    {
        // The dialog counts in int; scale very long loads down to fit.
        m_scale = std::max<qint64>(1, total / std::numeric_limits<int>::max() + 1);
        m_dialog = new QProgressDialog(PreviewBinding::tr("Loading %1 frames...").arg(caption),
                                       PreviewBinding::tr("Cancel"), 0, int(total / m_scale),
                                       m_window);
        m_dialog->setWindowTitle(PreviewBinding::tr("Preview"));
        m_dialog->setMinimumDuration(0); // a second has already passed
        m_dialog->setAutoClose(false);
        m_dialog->setAutoReset(false);
    }

    bool update(qint64 done) override
    {
        if (!m_dialog)
            return true;
        m_dialog->setValue(int(done / m_scale));
        return !m_dialog->wasCanceled();
    }

    void end() override
    {
        delete m_dialog.data();
    }

private:
    QWidget *m_window;
    QPointer<QProgressDialog> m_dialog;
    qint64 m_scale = 1;
};

} // namespace

PreviewBinding::PreviewBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs)
    : QObject(&window)
    , m_window(window)
    , m_doc(doc)
    , m_dialogs(dialogs)
    , m_frames(doc, m_loading)
    , m_stills(doc, m_loading)
    , m_progress(std::make_unique<ProgressDialogReporter>(&window))
{
    m_frames.setProgress(m_progress.get());
    bindAnimations();
    m_window.bindPages(this, [this](EditorPage page) { bindPage(page); });
    connect(&m_watch, &FileWatch::changed, this, &PreviewBinding::reloadChanged);
    connect(&m_frames, &FramePreviews::stripLoaded, this, [this](AnimatedElementId element) {
        showTrouble(missingFrame(element));
        watchShownFiles();
    });
    connect(&window, &MainWindow::themeOpened, this, [this] {
        m_frames.clearSurfaces();
        m_stills.clear();
        m_interfaceRow.reset();
        m_miscRow.reset();
        watchShownFiles();
    });
}

PreviewWindow *PreviewBinding::openPreviewWindow(PreviewTarget target)
{
    const AnimatedElementId *element = std::get_if<AnimatedElementId>(&target);
    const StillWindow *still = std::get_if<StillWindow>(&target);
    QPointer<PreviewWindow> &window = element ? m_elementWindows[*element] : m_stillWindows[*still];
    if (!window) {
        if (element) {
            window = new PreviewWindow(m_frames, *element, &m_window);
        } else {
            const bool interface = *still == StillWindow::InterfaceScreen;
            window = new PreviewWindow(interface ? tr("Interface Screen") : tr("Misc. Image"),
                                       interface ? m_stills.interfacePicture() : m_stills.miscPicture(), &m_window);
            connect(&m_stills, interface ? &StillPreviews::interfacePictureChanged : &StillPreviews::miscPictureChanged,
                    window, &PreviewWindow::setImage);
        }
    }
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

bool PreviewBinding::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonDblClick && m_zoomable.contains(watched)) {
        PreviewTarget which = m_zoomable.value(watched);
        // A surface several elements share opens the one whose data set shows.
        for (AnimatedElementId element : animatedElementIds) {
            if (std::holds_alternative<AnimatedElementId>(which) && m_surfaces[element] == watched
                && m_frames.timer(element)->isActive())
                which = element;
        }
        openPreviewWindow(which);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

QString PreviewBinding::describeSurface(const PreviewSurface *surface) const
{
    // A shared surface shows the element that drew on it last; a playing one first.
    std::optional<AnimatedElementId> shown;
    for (AnimatedElementId element : animatedElementIds) {
        if (m_surfaces[element] != surface || m_frames.shownFrame(element) == 0)
            continue;
        if (!shown || m_frames.timer(element)->isActive())
            shown = element;
    }
    if (!shown || surface->image().isNull())
        return tr("%1, empty", "a preview's accessible name").arg(surface->accessibleName());
    return (m_frames.timer(*shown)->isActive() ? tr("%1 preview, frame %2 of %3, playing") : tr("%1 preview, frame %2 of %3, paused"))
        .arg(elementCaption(*shown))
        .arg(m_frames.shownFrame(*shown))
        .arg(m_frames.frameCount(*shown));
}

void PreviewBinding::showTrouble(const QString &text)
{
    if (text.isEmpty())
        m_window.statusBar()->clearMessage();
    else
        m_window.statusBar()->showMessage(text);
}

QString PreviewBinding::missingFrame(AnimatedElementId element) const
{
    const QString imageText = m_doc.value(QLatin1StringView(animatedElements[element].imageField));
    const QString caption = elementCaption(element);
    const auto sequence = FrameSequence::fromImageText(imageText);
    if (!sequence) {
        return imageText.isEmpty() ? tr("%1: no image is chosen").arg(caption)
                                   : tr("%1: \"%2\" names no frame file (it has no extension)")
                                         .arg(caption, imageText);
    }
    // The loader has tried every frame file: the first it could not load is the one to name.
    const qint64 n = m_frames.firstFailedFrame(element);
    if (!m_frames.timer(element)->isActive() || n < 1 || n > m_frames.stripFiles(element).size())
        return {};
    const QString file = m_frames.stripFiles(element).at(n - 1);
    const char *trouble = QFileInfo(file).isFile() ? QT_TR_NOOP("Frame %1 of %2 cannot be read as an image: %3")
                                                   : QT_TR_NOOP("Frame %1 of %2 is missing: %3");
    return tr(trouble).arg(n).arg(caption, QDir::toNativeSeparators(file));
}

QString PreviewBinding::stillFile(const char *key) const
{
    return resolveThemePath(themeFilePath(m_doc.packageFolder(), m_doc.value(QLatin1StringView(key))));
}

void PreviewBinding::watchShownFiles()
{
    QStringList files;
    for (AnimatedElementId element : animatedElementIds) {
        if (m_frames.timer(element)->isActive())
            files += m_frames.stripFiles(element);
    }
    if (m_interfaceRow)
        files << stillFile(interfaceRowKeys[*m_interfaceRow]);
    if (m_miscRow)
        files << stillFile(miscImageKeys[*m_miscRow]);
    m_watch.setFiles(files);
}

void PreviewBinding::reloadChanged(const QStringList &files)
{
    const auto touched = [&files](const QStringList &shown) {
        return std::any_of(files.cbegin(), files.cend(), [&shown](const QString &f) { return shown.contains(f); });
    };
    for (AnimatedElementId element : animatedElementIds) {
        if (touched(m_frames.stripFiles(element)))
            m_dialogs.show(m_frames.reloadStrip(element));
    }
    if (m_interfaceRow && touched({stillFile(interfaceRowKeys[*m_interfaceRow])}))
        m_stills.showInterfaceScreenPreview(*m_interfaceRow); // a file still being replaced keeps the picture
    if (m_miscRow && touched({stillFile(miscImageKeys[*m_miscRow])}))
        m_stills.showMiscImagePreview(*m_miscRow);
    watchShownFiles();
}

PreviewBinding::~PreviewBinding()
{
    m_frames.setProgress(nullptr);
}

void PreviewBinding::bindAnimations()
{
    for (AnimatedElementId element : animatedElementIds)
        m_frames.attachTimer(element, m_window.previewTimer(element));
    connect(&m_frames, &FramePreviews::surfaceChanged, this,
            [this](AnimatedElementId element, const QImage &image) {
                if (PreviewSurface *surface = m_surfaces[element])
                    surface->setImage(image);
            });
}

void PreviewBinding::makeZoomable(QWidget *display, PreviewTarget which)
{
    // One surface serves several elements: it opens the one its page shows now.
    if (m_zoomable.contains(display))
        return;
    m_zoomable.insert(display, which);
    display->installEventFilter(this);
}

void PreviewBinding::bindPage(EditorPage page)
{
    const EditorPages &pages = m_window.pages();
    for (const ElementFrame &frame : pages.elementFrames(page)) {
        const AnimatedElementId element = frame.element;
        connect(frame.image.show, &QAbstractButton::clicked, this, [this, element] {
            // A setting that stops the preview is a message of its own; files it cannot show are told quietly.
            const Report report = m_frames.startFramePreview(element);
            m_dialogs.show(report);
            // Files it cannot show are looked for once the strip has loaded: reading every
            // frame's header here would hold up the first frame.
            if (!report.isEmpty())
                showTrouble({});
            else if (!m_frames.timer(element)->isActive() || !FrameSequence::fromImageText(m_doc.value(
                         QLatin1StringView(animatedElements[element].imageField))))
                showTrouble(missingFrame(element));
            watchShownFiles();
        });
        PreviewSurface *surface = frame.surface;
        m_surfaces[element] = surface;
        surface->setDescriber([this, surface] { return describeSurface(surface); });
        makeZoomable(surface, element);
    }
    // The displays sit beside the buttons that fill them, so they exist by the time a picture comes.
    if (page == EditorPage::Interface) {
        for (InterfaceRow row : rowValues<InterfaceRow>) {
            connect(pages.iface.screens[row].show, &QAbstractButton::clicked, this, [this, row] {
                m_dialogs.show(m_stills.showInterfaceScreenPreview(row));
                showTrouble({});
                m_interfaceRow = row;
                watchShownFiles();
            });
        }
        connect(&m_stills, &StillPreviews::interfacePictureChanged, pages.iface.display, &PreviewSurface::setImage);
        makeZoomable(pages.iface.display, StillWindow::InterfaceScreen);
    }
    if (page == EditorPage::Misc) {
        for (MiscImageRow row : rowValues<MiscImageRow>) {
            connect(pages.misc.images[row].show, &QAbstractButton::clicked, this, [this, row] {
                const QString file = stillFile(miscImageKeys[row]);
                // The display then keeps the last picture loaded: say that this one is not it.
                const bool shown = m_doc.value(QLatin1StringView(miscImageKeys[row])).isEmpty() || LoadingSurface::headerSize(file);
                showTrouble(shown ? QString() : tr("Unable to load image: %1").arg(QDir::toNativeSeparators(file)));
                m_stills.showMiscImagePreview(row);
                m_miscRow = row;
                watchShownFiles();
            });
        }
        for (ColorRow row : rowValues<ColorRow>) {
            connect(pages.misc.colorButtons[row], &QAbstractButton::clicked, this,
                    [this, row] { chooseThemeColor(m_doc, m_dialogs, row); });
        }
        connect(&m_stills, &StillPreviews::miscPictureChanged, pages.misc.display, &PreviewSurface::setImage);
        makeZoomable(pages.misc.display, StillWindow::MiscImage);
    }
}
