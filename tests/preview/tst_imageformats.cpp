#include "preview/framestrip.h"
#include "preview/loadingsurface.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <cstring>

// Every picture here is 4 x 2: red in the left half, blue in the right half.
static constexpr QRgb red = 0xFFFF0000;
static constexpr QRgb blue = 0xFF0000FF;

namespace {

void appendLe(QByteArray &bytes, quint32 value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.append(char((value >> (8 * i)) & 0xFF));
}

/** A Windows bitmap with palette red, blue; \a pixels are the rows bottom-up as stored. */
QByteArray bitmap(int bitsPerPixel, int compression, const QByteArray &pixels,
                  const QList<quint32> &masks = {})
{
    const bool paletted = bitsPerPixel <= 8;
    const int paletteBytes = paletted ? 2 * 4 : 0;
    const int offset = 14 + 40 + int(masks.size()) * 4 + paletteBytes;
    QByteArray bytes("BM");
    appendLe(bytes, quint32(offset + pixels.size()), 4);
    appendLe(bytes, 0, 4);
    appendLe(bytes, quint32(offset), 4);
    appendLe(bytes, 40, 4);
    appendLe(bytes, 4, 4);
    appendLe(bytes, 2, 4);
    appendLe(bytes, 1, 2);
    appendLe(bytes, quint32(bitsPerPixel), 2);
    appendLe(bytes, quint32(compression), 4);
    appendLe(bytes, quint32(pixels.size()), 4);
    appendLe(bytes, 2835, 4);
    appendLe(bytes, 2835, 4);
    appendLe(bytes, paletted ? 2 : 0, 4);
    appendLe(bytes, 0, 4);
    for (quint32 mask : masks)
        appendLe(bytes, mask, 4);
    if (paletted)
        bytes.append(QByteArray::fromHex("0000ff00" "ff000000")); // blue green red 0
    return bytes + pixels;
}

QByteArray twoRows(const char *hexRow)
{
    const QByteArray row = QByteArray::fromHex(hexRow);
    return row + row;
}

/** A GIF whose LZW stream restarts its table every two codes, so codes stay 3 bits wide. */
QByteArray gif()
{
    QByteArray bytes("GIF89a");
    appendLe(bytes, 4, 2);
    appendLe(bytes, 2, 2);
    bytes.append(char(0x80)); // global colour table of two entries
    bytes.append(char(0));
    bytes.append(char(0));
    bytes.append(QByteArray::fromHex("ff0000" "0000ff"));
    bytes.append(',');
    appendLe(bytes, 0, 4);
    appendLe(bytes, 4, 2);
    appendLe(bytes, 2, 2);
    bytes.append(char(0));
    bytes.append(char(2)); // minimum code size

    const QList<int> indexes{0, 0, 1, 1, 0, 0, 1, 1};
    QList<int> codes;
    for (qsizetype i = 0; i < indexes.size(); i += 2)
        codes << 4 << indexes.at(i) << indexes.at(i + 1);
    codes << 5;
    QByteArray data;
    int bits = 0;
    quint32 buffer = 0;
    for (int code : codes) {
        buffer |= quint32(code) << bits;
        bits += 3;
        while (bits >= 8) {
            data.append(char(buffer & 0xFF));
            buffer >>= 8;
            bits -= 8;
        }
    }
    if (bits > 0)
        data.append(char(buffer & 0xFF));
    bytes.append(char(data.size()));
    bytes.append(data);
    bytes.append(char(0));
    bytes.append(';');
    return bytes;
}

QByteArray written(const QImage &image, const char *format, bool progressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(100);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return bytes;
}

QImage halves()
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(red);
    for (int y = 0; y < 16; ++y)
        for (int x = 8; x < 16; ++x)
            image.setPixel(x, y, blue);
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

QImage solid(QRgb color)
{
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/** Writes \a bytes to \a name in \a dir; returns the file's path. */
QString saved(const QTemporaryDir &dir, const QString &name, const QByteArray &bytes)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qWarning("could not write %s", qPrintable(file.fileName()));
    return file.fileName();
}

bool near(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= 12 && qAbs(qGreen(a) - qGreen(b)) <= 12
        && qAbs(qBlue(a) - qBlue(b)) <= 12;
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
        QTest::newRow("bmp 24 bit") << bitmap(24, 0, twoRows("0000ff0000ffff0000ff0000")) << "a.bmp";
        QTest::newRow("bmp 32 bit")
            << bitmap(32, 0, twoRows("0000ff000000ff00ff000000ff000000")) << "a.bmp";
        QTest::newRow("gif") << gif() << "a.gif";
        QTest::newRow("png") << written(halves(), "png") << "a.png";
        QTest::newRow("jpeg baseline") << written(halves(), "jpeg") << "a.jpg";
        QTest::newRow("jpeg progressive") << written(halves(), "jpeg", true) << "a.jpg";
        QTest::newRow("jpeg named bmp") << written(halves(), "jpeg") << "a.bmp";
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

    void jpegVariantsAreWhatTheyClaim()
    {
        // Start of frame 0 marks a baseline file, 2 a progressive one.
        QVERIFY(written(halves(), "jpeg").contains(QByteArray::fromHex("ffc0")));
        QVERIFY(written(halves(), "jpeg", true).contains(QByteArray::fromHex("ffc2")));
    }

    void grayscaleJpeg()
    {
        QImage gray(8, 8, QImage::Format_Grayscale8);
        gray.fill(qRgb(128, 128, 128));
        QTemporaryDir dir;
        LoadingSurface surface;
        QVERIFY(surface.load(saved(dir, "gray.jpg", written(gray, "jpeg"))));
        QVERIFY(surface.picture().isGrayscale());
        QVERIFY(near(surface.picture().pixel(4, 4), qRgb(128, 128, 128)));
    }

    void failedLoadKeepsThePicture()
    {
        QTemporaryDir dir;
        LoadingSurface surface;
        QVERIFY(surface.load(saved(dir, "good.bmp", bitmap(8, 0, twoRows("00000101")))));
        QVERIFY(!surface.load(saved(dir, "bad.bmp", bitmap(24, 0, twoRows("0000ff0000ffff0000ff0000")).left(40))));
        // Cut inside the pixels: Qt would fill the missing rows with whatever memory held.
        QVERIFY(!surface.load(saved(dir, "cut.bmp", bitmap(24, 0, twoRows("0000ff0000ffff0000ff0000")).chopped(6))));
        QVERIFY(!surface.load(dir.path()));
        QVERIFY(!surface.load(dir.filePath("none.bmp")));
        QCOMPARE(surface.picture().size(), QSize(4, 2));
        QVERIFY(near(surface.picture().pixel(3, 1), blue));
    }

    void framesOfAnyFormatLoadInAnyOrder_data()
    {
        QTest::addColumn<QStringList>("files"); // "format:name" per frame, loaded in this order

        QTest::newRow("bitmaps, then a renamed jpeg") << QStringList{"bmp:1.bmp", "bmp:2.bmp", "jpeg:3.bmp"};
        QTest::newRow("jpegs, then a renamed bitmap") << QStringList{"jpeg:1.jpg", "bmp:2.jpg", "jpeg:3.jpg"};
        QTest::newRow("png among bitmaps") << QStringList{"bmp:1.bmp", "png:2.bmp", "bmp:3.bmp"};
        QTest::newRow("gif after a bitmap") << QStringList{"bmp:1.bmp", "gif:2.bmp"};
        QTest::newRow("bitmap after a gif") << QStringList{"gif:1.gif", "bmp:2.gif"};
    }

    void framesOfAnyFormatLoadInAnyOrder()
    {
        QFETCH(QStringList, files);
        const QList<QRgb> colors{red, blue, qRgb(0, 160, 0)};

        QTemporaryDir dir;
        LoadingSurface surface;
        for (qsizetype i = 0; i < files.size(); ++i) {
            const QStringList formatAndName = files.at(i).split(u':');
            const QByteArray format = formatAndName.at(0).toLatin1();
            QImage image = solid(colors.at(i));
            if (format == "gif")
                image = image.convertToFormat(QImage::Format_Indexed8);
            const QByteArray bytes = format == "gif" ? gif() : written(image, format.constData());
            QVERIFY2(surface.load(saved(dir, formatAndName.at(1), bytes)), qPrintable(files.at(i)));
            // The gif helper draws the red and blue halves.
            const QRgb expected = format == "gif" ? red : colors.at(i);
            QVERIFY2(near(surface.picture().pixel(0, 0), expected), qPrintable(files.at(i)));
        }
    }

    void stripHoldsThePictureAsQtConvertsIt_data()
    {
        QTest::addColumn<int>("element");
        QTest::addColumn<QImage>("picture");

        const QList<QSize> sizes{{1, 1}, {5, 3}, {21, 17}, {96, 176}, {97, 200}, {300, 400}};
        const QList<std::pair<const char *, QImage::Format>> formats{
            {"rgb32", QImage::Format_RGB32},       {"rgb888", QImage::Format_RGB888},
            {"argb32", QImage::Format_ARGB32},     {"indexed", QImage::Format_Indexed8},
            {"grayscale", QImage::Format_Grayscale8}};
        for (int element : {int(ElementBackground), int(ElementInternetBackground), int(ElementBlocks),
                            int(ElementSpecialWindow)}) {
            for (const auto &[name, format] : formats) {
                for (QSize size : sizes) {
                    QTest::addRow("%s %s %dx%d", animatedElements[element].caption, name,
                                  size.width(), size.height())
                        << element << pattern(size, format);
                }
            }
        }
    }

    void stripHoldsThePictureAsQtConvertsIt()
    {
        QFETCH(int, element);
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
};

QTEST_GUILESS_MAIN(ImageFormatsTest)
#include "tst_imageformats.moc"
