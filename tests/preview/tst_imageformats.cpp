// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/pathlookup.h"
#include "preview/elementpreview.h"
#include "preview/framesequence.h"
#include "preview/framestrip.h"
#include "preview/loadingsurface.h"
#include "preview/striploader.h"

#include "common/testfiles.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <functional>

// Every picture here is 4 x 2: red in the left half, blue in the right half.
static constexpr QRgb red = 0xFFFF0000;
static constexpr QRgb blue = 0xFF0000FF;

namespace {

/**
 * A Windows bitmap of \a size at 72 dpi (a negative height stores the rows top-down), paletted
 * ones with palette red, blue; \a gap bytes lie between the header and the \a pixels as stored.
 */
QByteArray bitmap(int bitsPerPixel, int compression, const QByteArray &pixels,
                  const QList<quint32> &masks = {}, QSize size = {4, 2}, int gap = 0)
{
    const bool paletted = bitsPerPixel <= 8;
    const quint32 offset = 14 + 40 + quint32(masks.size()) * 4 + (paletted ? 8 : 0) + quint32(gap);
    QByteArray bytes("BM");
    const quint32 pixelBytes = quint32(pixels.size());
    putLittleEndian(bytes, {{offset + pixelBytes, 4}, {0, 4}, {offset, 4}, {40, 4}, {quint32(size.width()), 4},
                            {quint32(size.height()), 4}, {1, 2}, {quint32(bitsPerPixel), 2},
                            {quint32(compression), 4}, {pixelBytes, 4}, {2835, 4}, {2835, 4},
                            {paletted ? 2u : 0u, 4}, {0, 4}});
    for (quint32 mask : masks)
        putLittleEndian(bytes, {{mask, 4}});
    if (paletted)
        bytes.append(QByteArray::fromHex("0000ff00" "ff000000")); // blue green red 0
    return bytes + QByteArray(gap, '\x5A') + pixels;
}

QByteArray twoRows(const char *hexRow)
{
    const QByteArray row = QByteArray::fromHex(hexRow);
    return row + row;
}

/** A GIF of two colours whose LZW stream restarts its table every two codes (3-bit codes). */
QByteArray gif()
{
    return QByteArray::fromHex("474946383961" "04000200" "800000" "ff0000" "0000ff"    // screen, colours
                               "2c" "00000000" "04000200" "00" "02"                     // image, code size
                               "05" "0498106052" "00" "3b");                            // data, trailer
}

QImage halves()
{
    QImage image = solidImage({16, 16}, red);
    QPainter(&image).fillRect(8, 0, 8, 16, QColor(blue));
    return image;
}

/** A picture whose every pixel differs from its neighbours, so a shifted byte shows. */
QImage pattern(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(x * 7 + y, x * 3 + y * 5, 255 - x - y * 11, 80 + x % 170));
    return image.convertToFormat(format);
}

/** Writes \a bytes to \a name in \a dir; returns the file's path. */
QString saved(const QTemporaryDir &dir, const QString &name, const QByteArray &bytes)
{
    writeFile(dir.filePath(name), bytes);
    return dir.filePath(name);
}

/**
 * A 24-bit bitmap of \a picture, rows stored bottom-up (top-down when \a topDown), with
 * \a gap bytes between the header and the pixels; \a tweak then edits the header.
 */
QByteArray bitmap24(const QImage &picture, bool topDown, int gap = 0,
                    const std::function<void(QByteArray &)> &tweak = {})
{
    const int w = picture.width();
    const int h = picture.height();
    const int rowBytes = (w * 3 + 3) & ~3;
    QByteArray rows;
    for (int i = 0; i < h; ++i) {
        const int y = topDown ? i : h - 1 - i;
        QByteArray row(rowBytes, '\x77'); // padding as some writers leave it
        for (int x = 0; x < w; ++x) {
            const QRgb c = picture.pixel(x, y);
            row[3 * x] = char(qBlue(c));
            row[3 * x + 1] = char(qGreen(c));
            row[3 * x + 2] = char(qRed(c));
        }
        rows += row;
    }
    QByteArray bytes = bitmap(24, 0, rows, {}, QSize(w, topDown ? -h : h), gap);
    if (tweak)
        tweak(bytes);
    return bytes;
}

void put(QByteArray &bytes, int at, quint32 value, int size)
{
    QByteArray field;
    putLittleEndian(field, {{value, size}});
    bytes.replace(at, size, field);
}

bool near(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= 12 && qAbs(qGreen(a) - qGreen(b)) <= 12
        && qAbs(qBlue(a) - qBlue(b)) <= 12;
}

// Frames of the next-block window: 77 x 77 in a strip 78 pixels wide, so its rows are padded.
const AnimatedElement &nextBlock = animatedElements[AnimatedElementId::NextBlock];

/**
 * Frame \a n's own picture for frames of \a frame's size: every pixel differs from its
 * neighbours and from other frames'. Unless \a exact, odd frames are cut to the frame
 * rectangle and even ones leave part of it to be cleared.
 */
QImage framePicture(int n, QImage::Format format, QSize frame, bool exact = false)
{
    const QSize size = exact ? frame : frame + (n % 2 ? QSize(9, 4) : QSize(-20, -9));
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(x * 7 + n * 31, y * 5 + n * 17, x + y + n * 59, 200 + n));
    return image.convertToFormat(format);
}

/**
 * The file of frame \a n as \a kind describes it: b a bitmap, x one of exactly the frame's
 * size, p a translucent PNG under the same .bmp name, m none, g bytes of no picture, c a
 * bitmap whose pixels end early.
 */
void writeFrameFile(const QString &path, int n, QChar kind, QSize frame = nextBlock.frame)
{
    const QByteArray bitmap = imageBytes(framePicture(n, QImage::Format_RGB32, frame, kind == u'x'), "BMP");
    if (kind == u'b' || kind == u'x')
        QVERIFY(writeFile(path, bitmap));
    else if (kind == u'p')
        QVERIFY(writeFile(path, imageBytes(framePicture(n, QImage::Format_ARGB32, frame), "PNG")));
    else if (kind == u'g')
        QVERIFY(writeFile(path, "no picture at all"));
    else if (kind == u'c')
        QVERIFY(writeFile(path, bitmap.left(bitmap.size() / 2)));
}

QByteArray bytesOf(const QImage &image)
{
    return QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes());
}

} // namespace

class ImageFormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void previewsReadThemeImages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("name");

        QTest::newRow("bmp 1 bit") << bitmap(1, 0, twoRows("30000000")) << "a.bmp";
        QTest::newRow("bmp 4 bit") << bitmap(4, 0, twoRows("00110000")) << "a.bmp";
        QTest::newRow("bmp 8 bit") << bitmap(8, 0, twoRows("00000101")) << "a.bmp";
        QTest::newRow("bmp 4 bit rle")
            << bitmap(4, 2, QByteArray::fromHex("0200" "0211" "0000" "0200" "0211" "0001"))
            << "a.bmp";
        QTest::newRow("bmp 8 bit rle")
            << bitmap(8, 1, QByteArray::fromHex("0200" "0201" "0000" "0200" "0201" "0001"))
            << "a.bmp";
        QTest::newRow("bmp 16 bit") << bitmap(16, 0, twoRows("007c007c1f001f00")) << "a.bmp";
        QTest::newRow("bmp 16 bit 565")
            << bitmap(16, 3, twoRows("00f800f81f001f00"), {0xF800, 0x07E0, 0x001F}) << "a.bmp";
        QTest::newRow("gif") << gif() << "a.gif";
        QTest::newRow("png") << imageBytes(halves(), "png", 100) << "a.png";
        // Start of frame 0 marks a baseline file, 2 a progressive one.
        const QByteArray baseline = imageBytes(halves(), "jpeg", 100);
        const QByteArray progressive = imageBytes(halves(), "jpeg", 100, true);
        QVERIFY(baseline.contains("\xff\xc0") && progressive.contains("\xff\xc2"));
        QTest::newRow("jpeg baseline") << baseline << "a.jpg";
        QTest::newRow("jpeg progressive") << progressive << "a.jpg";
        QTest::newRow("jpeg named bmp") << imageBytes(halves(), "jpeg", 100) << "a.bmp";
    }

    void previewsReadThemeImages()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);

        QTemporaryDir dir;
        LoadingSurface surface;
        QVERIFY(surface.load(saved(dir, name, bytes)));
        const QImage &picture = surface.picture();
        const int w = picture.width();
        const int h = picture.height();
        QVERIFY2(near(picture.pixel(0, 0), red), qPrintable(QString::number(picture.pixel(0, 0), 16)));
        // Quarter points: lossy formats blur the edge between the halves.
        QVERIFY(near(picture.pixel(w / 4, h - 1), red));
        QVERIFY(near(picture.pixel(3 * w / 4, 0), blue));
        QVERIFY(near(picture.pixel(w - 1, h - 1), blue));
    }

    void framesOfAnyFormatLoadInAnyOrder_data()
    {
        QTest::addColumn<QStringList>("files"); // "format:name" per frame in loading order; gray: a jpeg

        QTest::newRow("bitmaps, then a renamed jpeg") << QStringList{"bmp:1.bmp", "bmp:2.bmp", "jpeg:3.bmp"};
        QTest::newRow("jpegs, then a renamed bitmap") << QStringList{"jpeg:1.jpg", "bmp:2.jpg", "jpeg:3.jpg"};
        QTest::newRow("png among bitmaps") << QStringList{"bmp:1.bmp", "png:2.bmp", "bmp:3.bmp"};
        QTest::newRow("gif after a bitmap") << QStringList{"bmp:1.bmp", "gif:2.bmp"};
        QTest::newRow("bitmap after a gif") << QStringList{"gif:1.gif", "bmp:2.gif"};
        QTest::newRow("grayscale jpeg after a colour one") << QStringList{"jpeg:1.jpg", "gray:2.jpg"};
    }

    void framesOfAnyFormatLoadInAnyOrder()
    {
        QFETCH(QStringList, files);
        const QList<QRgb> colors{red, blue, qRgb(0, 160, 0)};

        QTemporaryDir dir;
        LoadingSurface surface;
        for (qsizetype i = 0; i < files.size(); ++i) {
            const QStringList formatAndName = files.at(i).split(u':');
            const bool gray = formatAndName.at(0) == u"gray";
            const QByteArray format = gray ? "jpeg" : formatAndName.at(0).toLatin1();
            const QImage image = solidImage({6, 4}, colors.at(i), gray ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
            const QByteArray bytes = format == "gif" ? gif() : imageBytes(image, format.constData(), 100);
            QVERIFY2(surface.load(saved(dir, formatAndName.at(1), bytes)), qPrintable(files.at(i)));
            // The gif helper draws the red and blue halves.
            const QRgb expected = format == "gif" ? red : image.pixel(0, 0);
            QVERIFY2(near(surface.picture().pixel(0, 0), expected), qPrintable(files.at(i)));
        }
    }

    void plainBitmapsReadAsQtReadsThem_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("fast");    // read on the own path; otherwise by Qt
        QTest::addColumn<bool>("loads");   // if so, as Qt reads it

        // Widths cover every row padding and both sides of the five-pixel shuffle.
        for (const QSize size : {QSize(1, 1), QSize(2, 3), QSize(3, 2), QSize(5, 4), QSize(6, 1), QSize(7, 5),
                                 QSize(11, 2), QSize(17, 3), QSize(192, 352)}) {
            for (const bool topDown : {false, true}) {
                QTest::addRow("%dx%d %s", size.width(), size.height(), topDown ? "top-down" : "bottom-up")
                    << bitmap24(pattern(size, QImage::Format_RGB32), topDown) << true << true;
            }
        }
        const QImage picture = pattern(QSize(9, 4), QImage::Format_RGB32);
        QTest::newRow("gap before the pixels") << bitmap24(picture, false, 10) << true << true;
        const auto tweaked = [&picture](int at, quint32 value, int size) {
            return bitmap24(picture, false, 12, [=](QByteArray &b) { put(b, at, value, size); });
        };
        // Qt reads on from the header when the offset points back into it.
        QTest::newRow("offset inside the header") << tweaked(10, 20, 4) << false << true;
        QTest::newRow("colour table") << tweaked(46, 3, 4) << false << true;
        QTest::newRow("two planes") << tweaked(26, 2, 2) << false << false;
        QTest::newRow("bit fields") << tweaked(30, 3, 4) << false << false;
        QTest::newRow("no width") << tweaked(18, 0, 4) << false << false;
        // The previews' own 24-bit picture of red and blue halves, and a 32-bit one Qt reads.
        const QByteArray halves24 = bitmap(24, 0, twoRows("0000ff0000ffff0000ff0000"));
        QTest::newRow("4x2 halves") << halves24 << true << true;
        QTest::newRow("32 bit") << bitmap(32, 0, twoRows("0000ff000000ff00ff000000ff000000")) << false << true;
        // Qt would show whatever memory held where the rows are missing.
        QTest::newRow("one byte short") << bitmap24(picture, true).chopped(1) << false << false;
        QTest::newRow("half a row short") << halves24.chopped(6) << false << false;
        QTest::newRow("header cut short") << halves24.left(40) << false << false;
        QTest::newRow("header longer than the file says") << tweaked(14, 108, 4) << false << false;
    }

    void plainBitmapsReadAsQtReadsThem()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, fast);
        QFETCH(bool, loads);

        QTemporaryDir dir;
        const QString path = saved(dir, "frame.bmp", bytes);
        LoadingSurface surface;
        // A picture of another size first: its memory must not leak into the new one, and a
        // failed load keeps it on show.
        QVERIFY(surface.load(saved(dir, "before.bmp", bitmap24(pattern(QSize(9, 4), QImage::Format_RGB32), true))));
        const QImage before = surface.picture();
        const bool loaded = surface.load(path);

        QCOMPARE(loaded && surface.picture().format() == QImage::Format_RGB888, fast);
        QCOMPARE(loaded, loads);
        QImage byQt;
        if (loaded && QImageReader(path).read(&byQt))
            QCOMPARE(surface.picture().convertToFormat(QImage::Format_RGB32), byQt.convertToFormat(QImage::Format_RGB32));
        QCOMPARE(LoadingSurface::headerSize(path).has_value(), loads);

        // Straight into the middle of three slots of its size, a plain bitmap gives the rows
        // placeFrame() gives its picture; anything else, or a slot of another size or one
        // the strip cuts, is left as it was.
        const QSize frame = loaded ? surface.picture().size() : QSize(9, 4);
        QImage strip(frame.width(), frame.height() * 3, QImage::Format_RGB888);
        std::memset(strip.bits(), 0x5a, size_t(strip.sizeInBytes()));
        QImage placed = strip.copy();
        QFile in(path);
        QVERIFY(in.open(QIODevice::ReadOnly));
        for (const auto &[size, slot] : {std::pair(frame + QSize(1, 0), 1), std::pair(frame - QSize(0, 1), 1),
                                         std::pair(frame, 3)})
            QVERIFY(!FrameStrip::readFrameInPlace(in, strip, size, slot));
        QCOMPARE(FrameStrip::readFrameInPlace(in, strip, frame, 1), fast);
        if (fast)
            FrameStrip::placeFrame(placed, frame, 1, surface.picture());
        QVERIFY(bytesOf(strip) == bytesOf(placed));
        if (loaded)
            return;
        QCOMPARE(surface.picture(), before);
        // So do a folder and a missing file.
        QVERIFY(!surface.load(dir.path()) && !surface.load(dir.filePath("none.bmp")));
        QCOMPARE(surface.picture(), before);
    }

    void stripHoldsThePictureAsQtConvertsIt_data()
    {
        QTest::addColumn<AnimatedElementId>("element");
        QTest::addColumn<QImage>("picture");

        const QList<QSize> sizes{{1, 1}, {5, 3}, {21, 17}, {96, 176}, {97, 200}, {300, 400}};
        const QList<std::pair<const char *, QImage::Format>> formats{
            {"rgb32", QImage::Format_RGB32},       {"rgb888", QImage::Format_RGB888},
            {"argb32", QImage::Format_ARGB32},     {"indexed", QImage::Format_Indexed8},
            {"grayscale", QImage::Format_Grayscale8}};
        using enum AnimatedElementId;
        for (AnimatedElementId element : {Background, InternetBackground, Blocks, SpecialWindow}) {
            for (const auto &[name, format] : formats) {
                for (QSize size : sizes) {
                    QTest::addRow("%s %s %dx%d", elementPreviews[element].caption, name,
                                  size.width(), size.height())
                        << element << pattern(size, format);
                }
            }
        }
    }

    void stripHoldsThePictureAsQtConvertsIt()
    {
        QFETCH(AnimatedElementId, element);
        QFETCH(QImage, picture);
        const AnimatedElement &e = animatedElements[element];

        QImage strip = FrameStrip::allocate(e, 3);
        std::memset(strip.bits(), 0xAB, size_t(strip.sizeInBytes())); // as fresh memory may hold
        FrameStrip::placeFrame(strip, e.frame, 1, picture);

        const QRect cut(QPoint(0, 0), e.frame.boundedTo(picture.size()).boundedTo(QSize(e.stripWidth, 1 << 20)));
        const QImage converted = picture.copy(cut).convertToFormat(QImage::Format_RGB888);
        for (int y = 0; y < e.frame.height(); ++y) {
            const auto *row = strip.constScanLine(e.frame.height() + y);
            QByteArray expected(strip.bytesPerLine(), '\0');
            if (y < converted.height())
                std::memcpy(expected.data(), converted.constScanLine(y), size_t(converted.width()) * 3);
            QCOMPARE(QByteArray(reinterpret_cast<const char *>(row), strip.bytesPerLine()), expected);
        }
        // The neighbouring slots are left alone.
        QCOMPARE(strip.constScanLine(e.frame.height() - 1)[0], uchar(0xAB));
        QCOMPARE(strip.constScanLine(2 * e.frame.height())[0], uchar(0xAB));
    }

    void stripIsTheOneLoadingInTurnGives_data()
    {
        QTest::addColumn<QString>("frames"); // one letter a frame, as writeFrameFile() reads it
        QTest::addColumn<int>("workers");
        QTest::addColumn<bool>("hurried"); // after the first frame, as once it is on screen
        QTest::addColumn<AnimatedElementId>("element");

        const QList<std::pair<const char *, const char *>> cases{
            {"every frame loads", "bpbbpbbbpbbb"},
            {"first fails", "mbbbbbbb"},
            {"first two fail", "gcbpbbbb"},
            {"one in the middle", "bbbbmbbb"},
            {"a run in the middle", "bbpgmcbbb"},
            {"every other frame", "bmbgbcbmbgbm"},
            {"last fails", "bbbbpbbm"},
            {"all fail", "mgcmgc"},
            {"more workers than frames", "bm"},
            // The background's rows are as wide as its strip's: its plain bitmaps of the
            // frame's size go to their slots unread by the surface.
            {"background, all straight to their slots", "xxxxxxx"},
            {"background, straight beside decoded", "xbxpmxcx"},
            {"background, last one decoded", "xxxb"},
        };
        for (const auto &[name, frames] : cases) {
            const AnimatedElementId element = QByteArrayView(name).startsWith("background")
                                                  ? AnimatedElementId::Background
                                                  : AnimatedElementId::NextBlock;
            for (int workers : {1, 2, 3}) {
                for (bool hurried : {false, true})
                    QTest::addRow("%s, %d workers%s", name, workers, hurried ? ", hurried" : "")
                        << QString::fromLatin1(frames) << workers << hurried << element;
            }
        }
    }

    void stripIsTheOneLoadingInTurnGives()
    {
        QFETCH(QString, frames);
        QFETCH(int, workers);
        QFETCH(bool, hurried);
        QFETCH(AnimatedElementId, element);
        const AnimatedElement &e = animatedElements[element];
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const qint64 count = frames.size();
        for (int n = 1; n <= count; ++n)
            writeFrameFile(dir.filePath(QStringLiteral("f%1.bmp").arg(n)), n, frames.at(n - 1), e.frame);
        const QString before = dir.filePath(QStringLiteral("before.bmp"));
        writeFrameFile(before, 40, u'b', e.frame);
        const auto sequence = FrameSequence::fromImageText(QStringLiteral("f1.bmp"));
        const QString folder = dir.path() + u'/';

        // The reference: every frame in turn through one surface, each placed as it comes.
        LoadingSurface inTurn;
        QVERIFY(inTurn.load(before));
        QImage expected = FrameStrip::allocate(e, double(count));
        QStringList expectedFiles;
        for (qint64 n = 1; n <= count; ++n) {
            inTurn.load(sequence->frameName(folder, n));
            FrameStrip::placeFrame(expected, e.frame, n - 1, inTurn.picture());
            expectedFiles << resolveThemePath(sequence->frameName(folder, n));
        }
        // Slots are frame-high; the loader clears the strip's spare rows below them.
        FrameStrip::clearFrom(expected, count * e.frame.height());

        LoadingSurface loading;
        QVERIFY(loading.load(before));
        QImage strip = FrameStrip::allocate(e, double(count));
        StripLoader loader(strip, e.frame, *sequence, folder, count, {}, workers);
        for (qint64 n = 1; n <= count; ++n) {
            loader.waitForFrame();
            if (hurried && n == 1)
                loader.hurry();
        }
        QCOMPARE(loader.finish(loading), expectedFiles);

        QCOMPARE(strip.size(), expected.size());
        QVERIFY(bytesOf(strip) == bytesOf(expected));
        QCOMPARE(loading.picture(), inTurn.picture());
    }
};

QTEST_GUILESS_MAIN(ImageFormatsTest)
#include "tst_imageformats.moc"
