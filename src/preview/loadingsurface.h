// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

#include <optional>

/**
 * The one off-screen picture every image preview loads into. A load that fails leaves the
 * previous picture in place, so it always holds the last image that loaded successfully.
 */
class LoadingSurface
{
public:
    /**
     * Loads the image file at \a path (a theme path: "\" separators and any letter case are
     * accepted). Returns false, keeping the previous picture, when the file is missing, is a
     * folder or cannot be decoded.
     */
    bool load(const QString &path);

    /**
     * The size the header of the image file at \a path gives, read the way load() reads the
     * file but without decoding it; nullopt where load() would surely fail.
     */
    static std::optional<QSize> headerSize(const QString &path);

    /** Holds \a picture, as loading a file of \a format that decodes to it leaves the surface. */
    void keep(QImage picture, const QByteArray &format);
    /** Empties the picture. */
    void clear() { m_picture = QImage(); }

    const QImage &picture() const { return m_picture; }

private:
    bool keepScratch(const QByteArray &format);

    QImage m_picture;
    QImage m_scratch; // decode target, so a failed decode never touches the picture
    QByteArray m_lastFormat; // content format of the last file read, tried first on the next
};
