// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"

#include <QImage>
#include <QWidget>

class FramePreviews;
class QComboBox;
class QLabel;
class QPushButton;
class TickTimer;

/**
 * A closer look at one preview: the picture enlarged by whole steps (1x to 8x, every pixel a
 * square, no smoothing) or fitted to the window, over a checkerboard. For an animation it is
 * the page's own animation, not a copy: it shows the same frames by the same rules, and its
 * pause, step forward and step back act on that animation.
 */
class PreviewWindow : public QWidget
{
    Q_OBJECT

public:
    /** The window of animated element \a element, playing from \a frames. */
    PreviewWindow(FramePreviews &frames, AnimatedElementId element, QWidget *parent = nullptr);
    /** The window of a still picture; setImage() follows it. */
    PreviewWindow(const QString &caption, const QImage &image, QWidget *parent = nullptr);

    void setImage(const QImage &image);
    /** 1 to 8, or 0 to fit the window. */
    void setZoom(int zoom);
    int zoom() const;
    /** The picture as drawn at the chosen zoom (checkerboard where the picture has no pixels). */
    QImage rendered() const;

private:
    void build(const QString &caption);
    void fitToPicture();
    void showFrameState();
    void togglePause();

    FramePreviews *m_frames = nullptr;
    AnimatedElementId m_element{}; // the element shown, when m_frames is set
    QImage m_image;
    int m_zoomFactor = 2; // 0: fit
    QWidget *m_canvas = nullptr;
    QComboBox *m_zoom = nullptr;
    QLabel *m_state = nullptr;
    QPushButton *m_pause = nullptr;
    QPushButton *m_back = nullptr;
    QPushButton *m_forward = nullptr;
};
