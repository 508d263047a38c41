// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/filewatch.h"
#include "editor/pages.h"
#include "theme/animatedelement.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"
#include "preview/stillpreviews.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <array>
#include <memory>
#include <optional>
#include <variant>

class EditorDialogs;
class LoadProgress;
class MainWindow;
class PreviewSurface;
class PreviewWindow;
class ThemeDocument;

/** The still-image displays that open a closer look of their own. */
enum class StillWindow { InterfaceScreen, MiscImage };

/** What a closer look shows: an animated element or a still-image display. */
using PreviewTarget = std::variant<AnimatedElementId, StillWindow>;

/**
 * Connects the preview controls of the main window to the preview engines: the Preview
 * buttons, the seven preview timers (which the window's page switches stop), the preview
 * surfaces, the two still-image displays and the colour buttons. Controls come from the
 * window's page structs, each page's as it is built.
 */
class PreviewBinding : public QObject
{
    Q_OBJECT

public:
    PreviewBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs);
    ~PreviewBinding() override;

    FramePreviews &frames() { return m_frames; }
    StillPreviews &stills() { return m_stills; }
    /** The files the previews show, followed on disk: changed art shows within a moment. */
    FileWatch &watch() { return m_watch; }

    /**
     * Opens (or brings forward) the closer look at  target: an animated element's preview or
     * the interface or miscellaneous image display. A double-click on a preview does the same.
     */
    PreviewWindow *openPreviewWindow(PreviewTarget target);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void bindAnimations();
    void bindPage(EditorPage page);
    void makeZoomable(QWidget *display, PreviewTarget which);
    void watchShownFiles();
    void reloadChanged(const QStringList &files);
    QString stillFile(const char *key) const;
    /** A preview's trouble in the status bar, where it does not stop the author; "" clears it. */
    void showTrouble(const QString &text);
    /** Why the element's preview shows nothing or not every frame: the first frame file missing or unreadable. */
    QString missingFrame(AnimatedElementId element) const;
    /** "Game Background preview, frame 3 of 12, playing": what the surface shows now. */
    QString describeSurface(const PreviewSurface *surface) const;

    MainWindow &m_window;
    ThemeDocument &m_doc;
    EditorDialogs &m_dialogs;
    LoadingSurface m_loading;
    FramePreviews m_frames;
    StillPreviews m_stills;
    std::unique_ptr<LoadProgress> m_progress;
    FileWatch m_watch;
    std::optional<InterfaceRow> m_interfaceRow; // the still previews' rows shown last, if any since the theme opened
    std::optional<MiscImageRow> m_miscRow;
    ElementTable<QPointer<PreviewWindow>> m_elementWindows;
    EnumArray<StillWindow, QPointer<PreviewWindow>, 2> m_stillWindows;
    QHash<QObject *, PreviewTarget> m_zoomable; // preview displays, with what they open
    // Kept when their page is built: a frame change must not search the whole window.
    ElementTable<QPointer<PreviewSurface>> m_surfaces;
};
