// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <QImage>
#include <QObject>
#include <QSize>

enum class InterfaceRow;
class LoadingSurface;
enum class MiscImageRow;
class ThemeDocument;

/**
 * The previews without animation: the ten interface screens, the eight miscellaneous images
 * and the colour chooser of the twelve theme colours. The displays scale the pictures they
 * are handed to their fixed areas, ignoring the aspect ratio.
 */
class StillPreviews : public QObject
{
    Q_OBJECT

public:
    static constexpr QSize interfaceDisplaySize{191, 124};
    static constexpr QSize miscDisplaySize{209, 169};

    StillPreviews(ThemeDocument &doc, LoadingSurface &loading, QObject *parent = nullptr);

    /**
     * Shows interface screen \a row. An empty path empties the display; a file that
     * cannot be loaded is reported and the display keeps its picture.
     */
    Report showInterfaceScreenPreview(InterfaceRow row);

    /**
     * Shows miscellaneous image \a row. A file that cannot be loaded shows, without a
     * message, the last image any preview loaded.
     */
    void showMiscImagePreview(MiscImageRow row);

    /** Empties both displays: another theme is open. */
    void clear();

    QImage interfacePicture() const { return m_interfacePicture; }
    QImage miscPicture() const { return m_miscPicture; }

signals:
    void interfacePictureChanged(const QImage &picture);
    void miscPictureChanged(const QImage &picture);

private:
    ThemeDocument &m_doc;
    LoadingSurface &m_loading;
    QImage m_interfacePicture;
    QImage m_miscPicture;
};
