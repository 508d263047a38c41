// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/pathlookup.h"
#include "theme/animatedelement.h"
#include "preview/framesequence.h"
#include "preview/framestrip.h"
#include "preview/loadingsurface.h"
#include "preview/striploader.h"

#include "common/testfiles.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

// Frames of the next-block window: 77 x 77 in a strip 78 pixels wide, so its rows are padded.
const AnimatedElement &element = animatedElements[AnimatedElementId::NextBlock];

/** Frame \a n's own picture: every pixel differs from its neighbours and from other frames'. */
QImage picture(int n, QImage::Format format)
{
    // Odd frames are cut to the frame rectangle, even ones leave part of it to be cleared.
    const QSize size = element.frame + (n % 2 ? QSize(9, 4) : QSize(-20, -9));
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(x * 7 + n * 31, y * 5 + n * 17, x + y + n * 59, 200 + n));
    return image.convertToFormat(format);
}

/**
 * The file of frame \a n as \a kind describes it: b a bitmap, p a translucent PNG under the
 * same .bmp name, m none, g bytes of no picture, c a bitmap whose pixels end early.
 */
void writeFrameFile(const QString &path, int n, QChar kind)
{
    const QByteArray bitmap = imageBytes(picture(n, QImage::Format_RGB32), "BMP");
    if (kind == u'b')
        QVERIFY(writeFile(path, bitmap));
    else if (kind == u'p')
        QVERIFY(writeFile(path, imageBytes(picture(n, QImage::Format_ARGB32), "PNG")));
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

class StripLoaderTest : public QObject
{
    Q_OBJECT

private slots:
    void stripIsTheOneLoadingInTurnGives_data()
    {
        QTest::addColumn<QString>("frames"); // one letter a frame, as writeFrameFile() reads it
        QTest::addColumn<int>("workers");
        QTest::addColumn<bool>("hurried"); // after the first frame, as once it is on screen

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
        };
        for (const auto &[name, frames] : cases) {
            for (int workers : {1, 2, 3}) {
                for (bool hurried : {false, true})
                    QTest::addRow("%s, %d workers%s", name, workers, hurried ? ", hurried" : "")
                        << QString::fromLatin1(frames) << workers << hurried;
            }
        }
    }

    void stripIsTheOneLoadingInTurnGives()
    {
        QFETCH(QString, frames);
        QFETCH(int, workers);
        QFETCH(bool, hurried);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const qint64 count = frames.size();
        for (int n = 1; n <= count; ++n)
            writeFrameFile(dir.filePath(QStringLiteral("f%1.bmp").arg(n)), n, frames.at(n - 1));
        const QString before = dir.filePath(QStringLiteral("before.bmp"));
        writeFrameFile(before, 40, u'b');
        const auto sequence = FrameSequence::fromImageText(QStringLiteral("f1.bmp"));
        const QString folder = dir.path() + u'/';

        // The reference: every frame in turn through one surface, each placed as it comes.
        LoadingSurface inTurn;
        QVERIFY(inTurn.load(before));
        QImage expected = FrameStrip::allocate(element, double(count));
        QStringList expectedFiles;
        for (qint64 n = 1; n <= count; ++n) {
            inTurn.load(sequence->frameName(folder, n));
            FrameStrip::placeFrame(expected, element.frame, n - 1, inTurn.picture());
            expectedFiles << resolveThemePath(sequence->frameName(folder, n));
        }
        // Slots are frame-high; the loader clears the strip's spare rows below them.
        FrameStrip::clearFrom(expected, count * element.frame.height());

        LoadingSurface loading;
        QVERIFY(loading.load(before));
        QImage strip = FrameStrip::allocate(element, double(count));
        StripLoader loader(strip, element.frame, *sequence, folder, count, {}, workers);
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

QTEST_GUILESS_MAIN(StripLoaderTest)
#include "tst_striploader.moc"
