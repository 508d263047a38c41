// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/testfiles.h"
#include "sound/mixersettings.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>


namespace {

const QByteArray head = "//Stakko Theme Maker Configuration\r\n \r\n[Sound Mixer]\r\n";

QByteArray sevenLines(int frequency, int numchannels, int output)
{
    const QString lines = QStringLiteral("frequency=%1\r\nnumchannels=%2\r\n"
                                         "//0-NoSound,1-WinMM,2-DirectSound,3-A3D, #1 is recommended\r\n"
                                         "output=%3\r\n");
    return head + lines.arg(frequency).arg(numchannels).arg(output).toLatin1();
}

QList<qint32> values(const EditorConfig &config)
{
    return {config.frequency, config.numchannels, config.output};
}

} // namespace

class EditorConfigTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString path(const QString &name = QStringLiteral("skm.ini")) const { return m_dir.filePath(name); }

private slots:
    void settingsAsRead_data()
    {
        QTest::addColumn<QByteArray>("lines");          // below the section line
        QTest::addColumn<qint32>("outputBefore");
        QTest::addColumn<QList<qint32>>("read");        // frequency, numchannels, output

        const auto row = [](const char *name, const QByteArray &lines, qint32 before, QList<qint32> read) {
            QTest::newRow(name) << lines << before << read;
        };
        // Numbers are taken without a range check, halves rounding to even; others take the default.
        row("as they are", "frequency=22050\r\nnumchannels=32\r\n", 1, {22050, 32, 1});
        row("no range check", "frequency=-5\r\nnumchannels=0\r\n", 1, {-5, 0, 1});
        row("halves round to even", "frequency=22050.5\r\nnumchannels=2.5\r\n", 1, {22050, 2, 1});
        row("fraction rounds", "frequency=44099.7\r\nnumchannels=7.6\r\n", 1, {44100, 8, 1});
        row("not numbers", "frequency=fast\r\nnumchannels=8 channels\r\n", 1, {44100, 8, 1});
        row("grouped digits", "frequency=44,100\r\n", 1, {44100, 8, 1});
        row("too large", "frequency=99999999999\r\n", 1, {44100, 8, 1});
        // An output must be one of the texts 0 to 3; out of range gives 1, in range but unmatched keeps it.
        row("output 0, no sound", "output=0\r\n", 1, {44100, 8, 0});
        row("output 3, A3D", "output=3\r\n", 0, {44100, 8, 3});
        row("output 7, above range", "output=7\r\n", 0, {44100, 8, 1});
        row("output -1, below range", "output=-1\r\n", 0, {44100, 8, 1});
        row("output 3.5, above range", "output=3.5\r\n", 0, {44100, 8, 1});
        row("output 1.0 matches nothing", "output=1.0\r\n", 3, {44100, 8, 3});
        row("output, blanks dropped", "output =  2 \r\n", 0, {44100, 8, 2});
        row("output not a number", "output=loud\r\n", 0, {44100, 8, 1});
        row("output missing", "frequency=22050\r\n", 0, {22050, 8, 1});
    }

    void settingsAsRead()
    {
        QFETCH(QByteArray, lines);
        QFETCH(qint32, outputBefore);
        QFETCH(QList<qint32>, read);
        QVERIFY(writeFile(path(), head + lines));
        EditorConfig config;
        config.output = outputBefore;
        readEditorConfig(config, path());
        QCOMPARE(values(config), read);
    }

    void writtenAsSevenLines_data()
    {
        QTest::addColumn<QByteArray>("file");   // null: there is none
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("no file: the defaults") << QByteArray() << sevenLines(44100, 8, 1);
        // "2.5" selects no output, so a fresh configuration keeps its 0.
        QTest::newRow("extras dropped") << head + "frequency=-22050\r\nextra=keep me?\r\nnumchannels=16\r\n"
                                                  "output=2.5\r\n[Other]\r\nkey=value\r\n"
                                        << sevenLines(-22050, 16, 0);
    }

    void writtenAsSevenLines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, written);
        QFile::remove(path());
        if (!file.isNull())
            QVERIFY(writeFile(path(), file));
        EditorConfig config;
        readEditorConfig(config, path());
        const Result<void> saved = writeEditorConfig(config, path());
        QVERIFY(saved);
        QCOMPARE(saved.errorText(), QString());
        QCOMPARE(readFile(path()), written);

        EditorConfig again;
        readEditorConfig(again, path());
        QCOMPARE(values(again), values(config));
    }
};

QTEST_GUILESS_MAIN(EditorConfigTest)
#include "tst_mixersettings.moc"
