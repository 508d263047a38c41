// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// render-icon SOURCE.svg SIZE OUTPUT: draws the icon SIZE pixels square, as PNG, or as the raw
// picture the editor's window icon reads (OUTPUT ending in .raw). Build-time only: the
// programs themselves never read SVG.
// render-icon --qt-picture RESOURCE OUTPUT: writes a picture of Qt's own resources as
// rawPicture() reads it, so the editor draws Qt's picture without an image reader.

#include "common/safefile.h"
#include "editor/rawpicture.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QWidget>

#include <cstdio>

namespace {

int fail(const QString &why)
{
    std::fprintf(stderr, "render-icon: %s\n", qPrintable(why));
    return 1;
}

} // namespace

int writeQtPicture(const QString &resource, const QString &output)
{
    // The picture lies among Qt Widgets' resources, there once the library is loaded.
    static_cast<void>(QWidget::staticMetaObject.className());
    const QImage picture(resource);
    if (picture.isNull())
        return fail(resource + QStringLiteral(" is no picture"));
    if (const Result<void> written = writeWholeFile(output, rawPictureBytes(picture)); !written)
        return fail(QStringLiteral("could not write %1: %2").arg(output, written.errorText()));
    return 0;
}

int main(int argc, char *argv[])
{
    if (argc == 4 && QByteArrayView(argv[1]) == "--qt-picture")
        return writeQtPicture(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (argc != 4)
        return fail(QStringLiteral("usage: render-icon SOURCE.svg SIZE OUTPUT.png|OUTPUT.raw"));
    const QString source = QString::fromLocal8Bit(argv[1]);
    const int size = QByteArray(argv[2]).toInt();
    const QString output = QString::fromLocal8Bit(argv[3]);

    QSvgRenderer svg(source);
    if (!svg.isValid())
        return fail(source + QStringLiteral(" is no SVG drawing"));
    if (size <= 0 || size > 1024)
        return fail(QStringLiteral("size %1 is out of range").arg(QLatin1StringView(argv[2])));

    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    svg.render(&painter, QRectF(0, 0, size, size));
    painter.end();

    QByteArray bytes;
    if (output.endsWith(QLatin1String(".raw"))) {
        bytes = rawPictureBytes(image);
    } else {
        QBuffer buffer(&bytes);
        if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
            return fail(QStringLiteral("the picture could not be encoded as PNG"));
    }
    if (const Result<void> written = writeWholeFile(output, bytes); !written)
        return fail(QStringLiteral("could not write %1: %2").arg(output, written.errorText()));
    return 0;
}
