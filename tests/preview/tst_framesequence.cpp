// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/framesequence.h"

#include <QTest>

class FrameSequenceTest : public QObject
{
    Q_OBJECT

private slots:
    void namingRule_data()
    {
        QTest::addColumn<QString>("imageText");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QString>("expected");   // "" when the text names no sequence

        QTest::newRow("first frame") << "bg1.bmp" << "" << 1 << "bg1.bmp";
        QTest::newRow("tenth frame") << "bg1.bmp" << "" << 10 << "bg10.bmp";
        QTest::newRow("zero belongs to the root") << "anim01.bmp" << "" << 10 << "anim010.bmp";
        QTest::newRow("full path") << "C:\\themes\\bg1.bmp" << "" << 2 << "C:\\themes\\bg2.bmp";
        QTest::newRow("dot in a folder splits there")
            << "C:\\my.themes\\bg1.bmp" << "" << 2 << "C:\\m2.themes\\bg1.bmp";
        QTest::newRow("extension keeps further dots") << "bg1.tar.gz" << "" << 3 << "bg3.tar.gz";
        QTest::newRow("dot second: empty root") << "1.bmp" << "" << 4 << "4.bmp";
        QTest::newRow("dot first: empty root") << ".bmp" << "" << 4 << "4.bmp";
        QTest::newRow("package folder in front")
            << "blk1.jpg" << "/tmp/stakko/pack/" << 12 << "/tmp/stakko/pack/blk12.jpg";
        QTest::newRow("no dot") << "background" << "" << 1 << "";
        QTest::newRow("empty") << "" << "" << 1 << "";
    }

    void namingRule()
    {
        QFETCH(QString, imageText);
        QFETCH(QString, folder);
        QFETCH(int, frame);
        QFETCH(QString, expected);

        const auto sequence = FrameSequence::fromImageText(imageText);
        QCOMPARE(sequence.has_value(), !expected.isEmpty());
        if (sequence)
            QCOMPARE(sequence->frameName(folder, frame), expected);
    }

    void authorNumbersAndFrameNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");   // NaN: not a number
        QTest::addColumn<double>("rounded");  // halves go to the even neighbour

        const double none = qQNaN();
        QTest::newRow("integer") << "3" << 3.0 << 3.0;
        QTest::newRow("blanks around") << "  12 " << 12.0 << 12.0;
        QTest::newRow("negative") << "-3" << -3.0 << -3.0;
        QTest::newRow("2.5") << "2.5" << 2.5 << 2.0;
        QTest::newRow("3.5") << "3.5" << 3.5 << 4.0;
        QTest::newRow("0.5") << "0.5" << 0.5 << 0.0;
        QTest::newRow("1.5") << "1.5" << 1.5 << 2.0;
        QTest::newRow("-2.5") << "-2.5" << -2.5 << -2.0;
        QTest::newRow("-1.5") << "-1.5" << -1.5 << -2.0;
        QTest::newRow("2.4") << "2.4" << 2.4 << 2.0;
        QTest::newRow("2.6") << "2.6" << 2.6 << 3.0;
        QTest::newRow("empty") << "" << none << none;
        QTest::newRow("blank") << "   " << none << none;
        QTest::newRow("letters") << "abc" << none << none;
        QTest::newRow("trailing letters") << "3x" << none << none;
        QTest::newRow("infinity") << "inf" << none << none;
        QTest::newRow("not a number") << "nan" << none << none;
    }

    void authorNumbersAndFrameNumbers()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        QFETCH(double, rounded);

        QCOMPARE(parseAuthorNumber(text).value_or(qQNaN()), number);
        if (qIsNaN(number))
            return;
        QCOMPARE(roundHalfEven(number), rounded);
        QCOMPARE(frameNumber(number), qint64(rounded));
    }
};

QTEST_GUILESS_MAIN(FrameSequenceTest)
#include "tst_framesequence.moc"
