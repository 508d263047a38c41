#include "preview/loadingsurface.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

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
    void previewsReadThemeImages_data();
    void previewsReadThemeImages();
    void jpegVariantsAreWhatTheyClaim();
    void grayscaleJpeg();
    void failedLoadKeepsThePicture();
};

void ImageFormatsTest::previewsReadThemeImages_data()
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

void ImageFormatsTest::previewsReadThemeImages()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);

    QTemporaryDir dir;
    QFile file(dir.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();

    LoadingSurface surface;
    QVERIFY(surface.load(file.fileName()));
    const QImage &picture = surface.picture();
    const int w = picture.width();
    const int h = picture.height();
    QVERIFY2(near(picture.pixel(0, 0), red), qPrintable(QString::number(picture.pixel(0, 0), 16)));
    // Quarter points: lossy formats blur the edge between the halves.
    QVERIFY(near(picture.pixel(w / 4, h - 1), red));
    QVERIFY(near(picture.pixel(3 * w / 4, 0), blue));
    QVERIFY(near(picture.pixel(w - 1, h - 1), blue));
}

void ImageFormatsTest::jpegVariantsAreWhatTheyClaim()
{
    // Start of frame 0 marks a baseline file, 2 a progressive one.
    QVERIFY(written(halves(), "jpeg").contains(QByteArray::fromHex("ffc0")));
    QVERIFY(written(halves(), "jpeg", true).contains(QByteArray::fromHex("ffc2")));
}

void ImageFormatsTest::grayscaleJpeg()
{
    QImage gray(8, 8, QImage::Format_Grayscale8);
    gray.fill(qRgb(128, 128, 128));
    QTemporaryDir dir;
    QFile file(dir.filePath("gray.jpg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(written(gray, "jpeg"));
    file.close();

    LoadingSurface surface;
    QVERIFY(surface.load(file.fileName()));
    QVERIFY(surface.picture().isGrayscale());
    QVERIFY(near(surface.picture().pixel(4, 4), qRgb(128, 128, 128)));
}

void ImageFormatsTest::failedLoadKeepsThePicture()
{
    QTemporaryDir dir;
    QFile good(dir.filePath("good.bmp"));
    QVERIFY(good.open(QIODevice::WriteOnly));
    good.write(bitmap(8, 0, twoRows("00000101")));
    good.close();
    QFile truncated(dir.filePath("bad.bmp"));
    QVERIFY(truncated.open(QIODevice::WriteOnly));
    truncated.write(bitmap(24, 0, twoRows("0000ff0000ffff0000ff0000")).left(40));
    truncated.close();

    LoadingSurface surface;
    QVERIFY(surface.load(good.fileName()));
    QVERIFY(!surface.load(truncated.fileName()));
    QVERIFY(!surface.load(dir.path()));
    QVERIFY(!surface.load(dir.filePath("none.bmp")));
    QCOMPARE(surface.picture().size(), QSize(4, 2));
    QVERIFY(near(surface.picture().pixel(3, 1), blue));
}

QTEST_GUILESS_MAIN(ImageFormatsTest)
#include "tst_imageformats.moc"
