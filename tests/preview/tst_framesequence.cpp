#include "preview/framesequence.h"

#include <QTest>

class FrameSequenceTest : public QObject
{
    Q_OBJECT

private slots:
    void namingRule_data();
    void namingRule();
    void textWithoutDotNamesNoSequence();
    void authorNumbers_data();
    void authorNumbers();
    void halvesRoundToEven_data();
    void halvesRoundToEven();
};

void FrameSequenceTest::namingRule_data()
{
    QTest::addColumn<QString>("imageText");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("frame");
    QTest::addColumn<QString>("expected");

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
}

void FrameSequenceTest::namingRule()
{
    QFETCH(QString, imageText);
    QFETCH(QString, folder);
    QFETCH(int, frame);
    QFETCH(QString, expected);

    const auto sequence = FrameSequence::fromImageText(imageText);
    QVERIFY(sequence);
    QCOMPARE(sequence->frameName(folder, frame), expected);
}

void FrameSequenceTest::textWithoutDotNamesNoSequence()
{
    QVERIFY(!FrameSequence::fromImageText(QStringLiteral("background")));
    QVERIFY(!FrameSequence::fromImageText(QString()));
}

void FrameSequenceTest::authorNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("expected");

    QTest::newRow("integer") << "3" << true << 3.0;
    QTest::newRow("blanks around") << "  12 " << true << 12.0;
    QTest::newRow("fraction") << "2.5" << true << 2.5;
    QTest::newRow("negative") << "-3" << true << -3.0;
    QTest::newRow("empty") << "" << false << 0.0;
    QTest::newRow("blank") << "   " << false << 0.0;
    QTest::newRow("letters") << "abc" << false << 0.0;
    QTest::newRow("trailing letters") << "3x" << false << 0.0;
    QTest::newRow("infinity") << "inf" << false << 0.0;
    QTest::newRow("not a number") << "nan" << false << 0.0;
}

void FrameSequenceTest::authorNumbers()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(double, expected);

    const auto number = parseAuthorNumber(text);
    QCOMPARE(number.has_value(), valid);
    if (valid)
        QCOMPARE(*number, expected);
}

void FrameSequenceTest::halvesRoundToEven_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");

    QTest::newRow("2.5") << 2.5 << 2.0;
    QTest::newRow("3.5") << 3.5 << 4.0;
    QTest::newRow("0.5") << 0.5 << 0.0;
    QTest::newRow("1.5") << 1.5 << 2.0;
    QTest::newRow("-2.5") << -2.5 << -2.0;
    QTest::newRow("-1.5") << -1.5 << -2.0;
    QTest::newRow("2.4") << 2.4 << 2.0;
    QTest::newRow("2.6") << 2.6 << 3.0;
    QTest::newRow("whole") << 7.0 << 7.0;
}

void FrameSequenceTest::halvesRoundToEven()
{
    QFETCH(double, value);
    QFETCH(double, expected);
    QCOMPARE(roundHalfEven(value), expected);
    QCOMPARE(frameNumber(value), qint64(expected));
}

QTEST_GUILESS_MAIN(FrameSequenceTest)
#include "tst_framesequence.moc"
