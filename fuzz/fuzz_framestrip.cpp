// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Image bytes as the frame files of a two-frame animation, built into a strip and played as
// the editor's Preview button does. The strip and the preview surface are checked against
// the frame decoded on its own and converted by Qt.
//
// Input: one selector byte, then the image file.
//   bits 0-1  file extension: bmp, jpg, png, gif (the content decides; the name may lie)
//   bits 2-4  animated element (modulo the seven), for its frame and strip geometry
//   bit 5     frame count "1.5" instead of "2": the second frame is cut by the strip's end
//   bit 6     the second frame file holds only the first half of the bytes

#include "fuzzsupport.h"
#include "scratchfolder.h"

#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "preview/elementpreview.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"

#include <QImageReader>

#include <cmath>
#include <cstring>

namespace {

const char *const extensions[] = {"bmp", "jpg", "png", "gif"};

struct Case {
    AnimatedElementId element;
    QString extension;
    double frameCount;
    bool secondFrameCut;
};

Case caseOf(uchar selector)
{
    return {animatedElementIds[(selector >> 2 & 7) % animatedElementCount], QLatin1StringView(extensions[selector & 3]),
            selector & 0x20 ? 1.5 : 2.0, (selector & 0x40) != 0};
}

void setField(ThemeDocument &doc, const char *key, const QString &value)
{
    if (key)
        doc.setText(QLatin1StringView(key), value);
}

/** The document as an author leaves it before pressing the element's Preview button. */
void prepare(ThemeDocument &doc, const AnimatedElement &e, const Case &c)
{
    if (e.animatedFields[0])
        doc.setNumber(QLatin1StringView(e.animatedFields[0]), 1);
    setField(doc, e.imageField, QStringLiteral("f1.") + c.extension);
    setField(doc, e.frameCountField, QString::number(c.frameCount));
    setField(doc, e.startingFrameField, QStringLiteral("1"));
    setField(doc, e.delayField, QStringLiteral("10"));
    doc.setPackageFolder(scratch().path() + u'/', QString());
}

/** Frame 1 as the loading surface's first read decodes it: by content, from a fresh reader. */
QImage decodedAlone(const QString &path)
{
    // What the header probe refuses (a bitmap whose pixels end early) the loader refuses too,
    // although Qt alone would decode it.
    if (!LoadingSurface::headerSize(path))
        return QImage();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    QImage picture;
    if (!reader.read(&picture))
        return QImage();
    return picture.convertToFormat(QImage::Format_RGB888);
}

/** Row \a y of \a image, \a bytes long; every byte past the image's own pixels reads as 0. */
QByteArray rowOf(const QImage &image, int y, int width, qsizetype bytes)
{
    QByteArray row(bytes, '\0');
    if (y >= 0 && y < image.height()) {
        const int copied = std::min(width, image.width()) * 3;
        std::memcpy(row.data(), image.constScanLine(y), size_t(std::min<qsizetype>(copied, bytes)));
    }
    return row;
}

/** Slot 0 holds the frame's top-left frame rectangle, black where the picture ends. */
void checkFirstSlot(const QImage &strip, const AnimatedElement &e, const QImage &picture)
{
    const int rows = std::min(e.frame.height(), strip.height());
    const int width = std::min(e.frame.width(), strip.width());
    for (int y = 0; y < rows; ++y) {
        const QByteArray expected = rowOf(picture, y, width, strip.bytesPerLine());
        require(rowOf(strip, y, strip.width(), strip.bytesPerLine()) == expected,
                QStringLiteral("strip row %1 is not the decoded frame's row").arg(y));
    }
}

/** With the same file twice, slot 1 repeats slot 0 wherever the strip holds it. */
void checkSecondSlotRepeats(const QImage &strip, const AnimatedElement &e)
{
    const int height = e.frame.height();
    for (int y = height; y < std::min(2 * height, strip.height()); ++y) {
        require(rowOf(strip, y, strip.width(), strip.bytesPerLine())
                    == rowOf(strip, y - height, strip.width(), strip.bytesPerLine()),
                QStringLiteral("strip row %1 differs from the same file's row %2").arg(y).arg(y - height));
    }
}

/** Rows below the last frame are cleared. */
void checkTail(const QImage &strip, const AnimatedElement &e)
{
    const QByteArray cleared(strip.bytesPerLine(), '\0');
    for (int y = 2 * e.frame.height(); y < strip.height(); ++y)
        require(rowOf(strip, y, strip.width(), strip.bytesPerLine()) == cleared,
                QStringLiteral("strip row %1 below the last frame is not cleared").arg(y));
}

/** The surface shows \a slot's frame from the strip, black around it. */
void checkSurface(const QImage &surface, const QImage &strip, const AnimatedElement &e, qint64 slot)
{
    const QSize area = elementPreviews[e.id].surfaceSize;
    require(surface.size() == area && surface.format() == QImage::Format_RGB888,
            QStringLiteral("the preview surface has the wrong size or format"));
    const int width = std::min({e.frame.width(), strip.width(), area.width()});
    const qsizetype bytes = qsizetype(area.width()) * 3;
    for (int y = 0; y < area.height(); ++y) {
        const int from = y < e.frame.height() ? int(slot) * e.frame.height() + y : -1;
        require(rowOf(surface, y, surface.width(), bytes) == rowOf(strip, from, width, bytes),
                QStringLiteral("surface row %1 does not show slot %2").arg(y).arg(slot));
    }
}

} // namespace

// Qt's BMP reader reports success for a file whose pixel data ends early and leaves the rows
// it did not read as the allocator gave them. Filling every allocation with one byte makes
// those rows the same in the strip and in the frame decoded alone, so the comparison stays
// exact and a finding replays the same way with or without the runner's options.
// The image plugins' dynamic TLS, as the sanitizer records it from __tls_get_addr, holds a
// bogus block now and then, and the leak check's tracer then dies reading it; static TLS and
// every thread's stack are still scanned.
extern "C" const char *__asan_default_options()
{
    return "max_malloc_fill_size=134217728:malloc_fill_byte=190:intercept_tls_get_addr=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // Only the top-left frame rectangle is ever used; decoding huge pictures buys nothing.
    QImageReader::setAllocationLimit(32);
    if (size < 1)
        return 0;
    const Case c = caseOf(data[0]);
    const AnimatedElement &e = animatedElements[c.element];
    const QByteArray image = inputBytes(data + 1, size - 1);

    const QString first = freshInput(QStringLiteral("f1.") + c.extension, data + 1, size - 1);
    scratch().write(QStringLiteral("f2.") + c.extension,
                    c.secondFrameCut ? image.left(image.size() / 2) : image);

    ThemeDocument doc;
    prepare(doc, e, c);
    LoadingSurface loading;
    FramePreviews previews(doc, loading);
    quint32 now = 1000;
    previews.setClock([&now] { return now; });

    // The call under test, in one place.
    previews.startFramePreview(c.element);

    const QImage &strip = previews.strip(c.element);
    const int height = int(std::ceil(e.stripHeightPerFrame * c.frameCount));
    require(strip.width() == e.stripWidth && strip.height() == height,
            QStringLiteral("the strip is %1 x %2").arg(strip.width()).arg(strip.height()));
    checkFirstSlot(strip, e, decodedAlone(first));
    if (!c.secondFrameCut)
        checkSecondSlotRepeats(strip, e);
    checkTail(strip, e);

    // Frame 1, then frame 2 (or frame 1 again for "1.5"), then back to frame 1 on the next
    // advance: the second drawing of a surface redraws only the frame's area.
    const qint64 expectedSlots[] = {0, c.frameCount == 2.0 ? 1 : 0, 0};
    for (const qint64 slot : expectedSlots) {
        previews.animationTick(c.element);
        checkSurface(previews.surfaceImage(c.element), strip, e, slot);
        now += 1000;
    }
    return 0;
}
