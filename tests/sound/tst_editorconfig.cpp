#include "sound/editorconfig.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

class EditorConfigTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;

    QString configWith(const QByteArray &mixerLines)
    {
        const QString path = m_dir->filePath(QStringLiteral("skm.ini"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(path));
        file.write("//Stakko Theme Maker Configuration\r\n \r\n[Sound Mixer]\r\n" + mixerLines);
        return path;
    }

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    static QByteArray sevenLines(int frequency, int numchannels, int output)
    {
        return QStringLiteral("//Stakko Theme Maker Configuration\r\n \r\n[Sound Mixer]\r\nfrequency=%1\r\n"
                              "numchannels=%2\r\n//0-NoSound,1-WinMM,2-DirectSound,3-A3D, #1 is recommended\r\n"
                              "output=%3\r\n")
            .arg(frequency).arg(numchannels).arg(output).toLatin1();
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void missingFileGivesDefaultsWrittenAsSevenLines()
    {
        EditorConfig config;
        readEditorConfig(config, m_dir->filePath(QStringLiteral("absent.ini")));
        const QString path = m_dir->filePath(QStringLiteral("skm.ini"));
        QString error;
        QVERIFY(writeEditorConfig(config, path, &error));
        QVERIFY(error.isEmpty());
        QCOMPARE(contents(path), sevenLines(44100, 8, 1));
    }

    void outputCorrections_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<qint32>("before");
        QTest::addColumn<qint32>("expected");
        QTest::newRow("0 no sound") << QByteArray("output=0") << 1 << 0;
        QTest::newRow("3 A3D") << QByteArray("output=3") << 0 << 3;
        QTest::newRow("7 above range") << QByteArray("output=7") << 0 << 1;
        QTest::newRow("-1 below range") << QByteArray("output=-1") << 0 << 1;
        QTest::newRow("3.5 above range") << QByteArray("output=3.5") << 0 << 1;
        QTest::newRow("1.0 in range but matches nothing") << QByteArray("output=1.0") << 3 << 3;
        QTest::newRow("blanks dropped") << QByteArray("output =  2 ") << 0 << 2;
        QTest::newRow("not a number") << QByteArray("output=loud") << 0 << 1;
        QTest::newRow("missing key") << QByteArray("frequency=22050") << 0 << 1;
    }

    void outputCorrections()
    {
        QFETCH(QByteArray, line);
        QFETCH(qint32, before);
        QFETCH(qint32, expected);
        EditorConfig config;
        config.output = before;
        readEditorConfig(config, configWith(line + "\r\n"));
        QCOMPARE(config.output, expected);
    }

    void numberSettings_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<qint32>("frequency");
        QTest::addColumn<qint32>("numchannels");
        QTest::newRow("taken as they are") << QByteArray("frequency=22050\r\nnumchannels=32\r\n") << 22050 << 32;
        QTest::newRow("no range check") << QByteArray("frequency=-5\r\nnumchannels=0\r\n") << -5 << 0;
        QTest::newRow("halves round to even") << QByteArray("frequency=22050.5\r\nnumchannels=2.5\r\n") << 22050 << 2;
        QTest::newRow("fraction rounds") << QByteArray("frequency=44099.7\r\nnumchannels=7.6\r\n") << 44100 << 8;
        QTest::newRow("not numbers take defaults")
            << QByteArray("frequency=fast\r\nnumchannels=8 channels\r\n") << 44100 << 8;
        QTest::newRow("grouped digits are not numbers") << QByteArray("frequency=44,100\r\n") << 44100 << 8;
        QTest::newRow("too large takes default") << QByteArray("frequency=99999999999\r\n") << 44100 << 8;
    }

    void numberSettings()
    {
        QFETCH(QByteArray, lines);
        QFETCH(qint32, frequency);
        QFETCH(qint32, numchannels);
        EditorConfig config;
        readEditorConfig(config, configWith(lines));
        QCOMPARE(config.frequency, frequency);
        QCOMPARE(config.numchannels, numchannels);
    }

    void roundTripKeepsValuesAndDropsExtras()
    {
        // "2.5" selects no output, so a fresh configuration keeps its 0.
        const QString path = configWith("frequency=-22050\r\nextra=keep me?\r\nnumchannels=16\r\n"
                                        "output=2.5\r\n[Other]\r\nkey=value\r\n");
        EditorConfig config;
        readEditorConfig(config, path);
        QVERIFY(writeEditorConfig(config, path));
        QCOMPARE(contents(path), sevenLines(-22050, 16, 0));

        EditorConfig again;
        readEditorConfig(again, path);
        QCOMPARE(again.frequency, -22050);
        QCOMPARE(again.numchannels, 16);
        QCOMPARE(again.output, 0);
    }

    void missingFolderReportsError()
    {
        const QString path = m_dir->filePath(QStringLiteral("missing-folder/skm.ini"));
        QString error;
        QVERIFY(!writeEditorConfig(EditorConfig{48000, 4, 2}, path, &error));
        QVERIFY(error.contains(QStringLiteral("skm.ini")));
        QVERIFY(!QFileInfo::exists(path));
    }

    void writePathIsBesideProgramWhenWritable()
    {
        const QString programFolder = QCoreApplication::applicationDirPath();
        if (!QFileInfo(programFolder).isWritable())
            QSKIP("the test program's folder is read-only here");
        QCOMPARE(editorConfigWritePath(), programFolder + QStringLiteral("/skm.ini"));
        QCOMPARE(QFileInfo(editorConfigReadPath()).fileName(), QStringLiteral("skm.ini"));
    }
};

QTEST_GUILESS_MAIN(EditorConfigTest)
#include "tst_editorconfig.moc"
