// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/diskaudiocapture.h"
#include "common/pathlookup.h"
#include "common/runprogram.h"
#include "common/scopedenvironment.h"
#include "common/testfiles.h"
#include "sound/musicformat.h"
#include "sound/soundsystem.h"

#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <csignal>
#include <memory>

namespace {

constexpr int rate = 44100;
constexpr int hearingTimeoutMs = 5000;
// Audio already mixed when a call returns may still reach the file: two mixer buffers.
constexpr qint64 inFlightFrames = 2048;

/** A 440 Hz mono tone at half of full scale, 16-bit. */
QByteArray waveFile(double seconds)
{
    QByteArray data;
    for (int i = 0; i < int(seconds * rate); ++i)
        putLittleEndian(data, {{quint32(std::lround(16383.5 * std::sin(2 * M_PI * 440 * i / rate))), 2}});
    return waveBytes(data, rate, 16);
}

/** Format 0, one track, 96 ticks a beat: a piano C major chord held for four beats (two seconds). */
QByteArray midiSong()
{
    return QByteArray::fromHex("4D546864" "00000006" "0000" "0001" "0060" "4D54726B" "0000001A"
                               "00C000" "00903C64" "00904064" "00904364"
                               "8300803C40" "00804040" "00804340" "00FF2F00");
}

/** A four-channel ProTracker module: one looped square-wave sample played at C-2. */
QByteArray modModule()
{
    // A title; sample 1 of 32 words at full volume, looped whole; 30 empty samples.
    QByteArray bytes = QByteArray(42, '\0') + QByteArray::fromHex("0020" "00" "40" "0000" "0020");
    for (int sample = 2; sample <= 31; ++sample)
        bytes += QByteArray(22, '\0') + QByteArray::fromHex("0000" "00" "00" "0000" "0001");
    // One position playing pattern 0, whose first note is sample 1 at period 428.
    bytes += "\x01\x7f" + QByteArray(128, '\0') + "M.K.";
    bytes += QByteArray::fromHex("01ac1000") + QByteArray(64 * 4 * 4 - 4, '\0');
    return bytes + QByteArray(32, char(100)) + QByteArray(32, char(-100));
}

EditorConfig config(qint32 frequency = rate, qint32 numchannels = 8, qint32 output = 1)
{
    return EditorConfig{frequency, numchannels, output};
}

} // namespace

Q_DECLARE_METATYPE(EditorConfig)
Q_DECLARE_METATYPE(MusicContent)

class SoundSystemTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<DiskAudioCapture> m_capture;
    std::unique_ptr<SoundSystem> m_sound;
    Report m_report; // everything the sound system reported in this test

    bool initSound(const EditorConfig &settings)
    {
        m_report.append(m_sound->initSound(settings));
        return m_sound->soundAvailable();
    }
    void openMusic(const QString &path) { m_report.append(m_sound->openMusic(path)); }

    QString file(const QString &name) const { return m_dir.filePath(name); }

    bool start(const EditorConfig &settings = config())
    {
        return initSound(settings) && m_report.isEmpty();
    }

    /** Starts sound and plays \a path as music; false when sound would not start. */
    bool playMusic(const QString &path, const EditorConfig &settings = config())
    {
        if (!start(settings))
            return false;
        openMusic(path);
        m_sound->playMusic();
        return true;
    }

    bool heard(qint64 fromFrame = 0) const { return m_capture->waitForSound(fromFrame, hearingTimeoutMs) >= 0; }

    /** Half a second of audio from \a firstFrame on is silent (the frames already in flight skipped). */
    bool silentAfter(qint64 firstFrame) const
    {
        const qint64 from = firstFrame + inFlightFrames;
        return m_capture->waitForFrames(from + rate / 2, hearingTimeoutMs)
               && DiskAudioCapture::peak(m_capture->samples(from)) == 0;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(writeFile(file("tone.wav"), waveFile(3)));
        QVERIFY(writeFile(file("blip.wav"), waveFile(0.1)));
        QVERIFY(writeFile(file("Sounds/Ding.WAV"), waveFile(0.5)));
        QVERIFY(writeFile(file("song.mid"), midiSong()));
        QVERIFY(writeFile(file("Songs/Tune.MID"), midiSong()));
        QVERIFY(writeFile(file("tune.mod"), modModule()));

        // Encoders may be absent; the rows that need their output skip then.
        runProgram("oggenc", {"-Q", "-o", file("tone.ogg"), file("tone.wav")});
        runProgram("lame", {"--silent", file("tone.wav"), file("tone.mp3")});
        for (const QString variant : {"pcm8 -b 8 -e unsigned-integer", "pcm24 -b 24", "pcm32 -b 32",
                                      "float32 -e floating-point", "mu-law -e mu-law", "a-law -e a-law",
                                      "ima-adpcm -e ima-adpcm", "ms-adpcm -e ms-adpcm"}) {
            const QStringList words = variant.split(u' ');
            runProgram("sox", QStringList{file("Sounds/Ding.WAV")} + words.mid(1) << file(words[0] + ".wav"));
        }
    }

    void init()
    {
        m_report = {};
        m_capture = std::make_unique<DiskAudioCapture>(file(QStringLiteral("out%1.raw").arg(++m_run)));
        m_sound = std::make_unique<SoundSystem>();
    }

    void cleanup()
    {
        m_sound.reset(); // closes the device before the capture gives the driver back
        m_capture.reset();
    }

    void musicKinds_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("stream");
        QTest::newRow("upper-case MIDI") << "song.MID" << false;
        QTest::newRow("dot in a folder") << "C:\\My.Music\\song.mid" << false;
        QTest::newRow("it") << "x.IT" << false;
        QTest::newRow("mp3") << "song.mp3" << true;
        QTest::newRow("shorter than four") << ".xm" << true;
        QTest::newRow("no dot") << "C:\\Music\\midi" << true;
        QTest::newRow("dot only in a folder") << "C:\\My.mid\\song" << true;
    }

    void musicKinds()
    {
        QFETCH(QString, path);
        QFETCH(bool, stream);
        QVERIFY(!m_sound->isStreamFile(path)); // nothing is a stream without sound
        QVERIFY(start());
        QCOMPARE(m_sound->isStreamFile(path), stream);
    }

    void musicIsHeardStopsAndPlaysAgain_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("stream");
        QTest::newRow("wave stream") << file("tone.wav") << true;
        QTest::newRow("midi song") << file("song.mid") << false;
        QTest::newRow("looping mod module") << file("tune.mod") << false;
        QTest::newRow("ogg stream") << file("tone.ogg") << true;
        QTest::newRow("mp3 stream") << file("tone.mp3") << true;
        QTest::newRow("windows path, other case") << m_dir.path() + "\\SONGS\\tune.mid" << false;
    }

    void musicIsHeardStopsAndPlaysAgain()
    {
        QFETCH(QString, path);
        QFETCH(bool, stream);
        if (!QFileInfo::exists(resolveThemePath(path)))
            QSKIP("the encoder for this format is not installed");
        QVERIFY(playMusic(path));
        QVERIFY(m_sound->musicHandle());
        QCOMPARE(m_sound->musicIsStream(), stream);
        QVERIFY(m_sound->musicPlaying());
        QVERIFY(heard());

        m_sound->stopMusic();
        QVERIFY(!m_sound->musicPlaying());
        QVERIFY(m_sound->musicHandle()); // stopped, not freed
        QVERIFY(silentAfter(m_capture->frameCount()));
        m_sound->freeMusic();
        QVERIFY(!m_sound->musicHandle());

        const qint64 freedAt = m_capture->frameCount();
        openMusic(path);
        m_sound->playMusic();
        QVERIFY(heard(freedAt));

        // Opening other music stops this one.
        openMusic(file(stream ? "tune.mod" : "tone.wav"));
        QVERIFY(!m_sound->musicPlaying());
        QCOMPARE(m_sound->musicIsStream(), !stream);
        QVERIFY(silentAfter(m_capture->frameCount()));
        QCOMPARE(m_report.lines(), QStringList());
    }

    void musicContent_data()
    {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QString>("path");
        QTest::addColumn<MusicContent>("content");
        const QByteArray zeros(musicHeaderLength, '\0');
        const auto at = [&](qsizetype offset, const QByteArray &bytes) {
            return QByteArray(zeros).replace(offset, bytes.size(), bytes);
        };
        QTest::newRow("midi") << midiSong() << "x.bin" << MusicContent::Playable;
        QTest::newRow("midi, bad header length") << at(0, QByteArray("MThd\0\0\0\7", 8)) << "x.mid" << MusicContent::Damaged;
        QTest::newRow("midi, cut short") << QByteArray("MThd") << "x.mid" << MusicContent::Damaged;
        QTest::newRow("mod by signature") << modModule() << "TUNE" << MusicContent::Playable;
        QTest::newRow("old mod, by name only") << zeros << "tune.MOD" << MusicContent::Playable;
        QTest::newRow("s3m") << at(44, "SCRM") << "x.s3m" << MusicContent::Playable;
        QTest::newRow("mp3 frame") << at(0, "\xFF\xFB\x90") << "x.mp3" << MusicContent::Playable;
        QTest::newRow("wave") << waveFile(0.01) << "x" << MusicContent::Playable;
        QTest::newRow("wma by name") << zeros << "x.WMA" << MusicContent::WindowsMedia;
        QTest::newRow("zeros named mp3") << zeros << "x.mp3" << MusicContent::Unrecognised;
        QTest::newRow("empty") << QByteArray() << "x.ogg" << MusicContent::Unrecognised;
    }

    void musicContent()
    {
        QFETCH(QByteArray, head);
        QFETCH(QString, path);
        QFETCH(MusicContent, content);
        QCOMPARE(classifyMusicContent(head.left(musicHeaderLength), path), content);
    }

    void unopenableMusicIsReported_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content"); // null: no such file
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << "missing.ogg" << QByteArray() << "File not found";
        QTest::newRow("music folder alone") << "" << QByteArray() << "File not found";
        QTest::newRow("text") << "notes.txt" << QByteArray("just some words\r\n") << "Unknown file format";
        QTest::newRow("windows media")
            << "song.wma" << QByteArray::fromHex("3026B2758E66CF11A6D900AA0062CE6C") + QByteArray(100, '\0')
            << "Unknown file format";
        QTest::newRow("broken ogg") << "broken.ogg" << QByteArray("OggS") + QByteArray(4000, '\0')
                                    << "Error loading file";
        QTest::newRow("broken midi") << "broken.mid" << QByteArray("MThd") + QByteArray(4, '\xFF')
                                     << "Error loading file";
    }

    void unopenableMusicIsReported()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        const QString path = file("bad/" + name);
        QDir().mkpath(file("bad"));
        if (!content.isNull())
            QVERIFY(writeFile(path, content));
        QVERIFY(start());

        openMusic(path);
        QCOMPARE(m_report.lines(), QStringList{"Error: Error while opening sound\r\n" + reason});
        QCOMPARE(m_report.problems.first().severity, Problem::Severity::Error);
        QVERIFY(!m_sound->musicHandle());
        m_sound->playMusic();
        QVERIFY(!m_sound->musicPlaying());
    }

    void waves_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("heard");
        QTest::newRow("pcm 16, windows path") << m_dir.path() + "\\sounds\\ding.wav" << true;
        for (const char *variant : {"pcm8", "pcm24", "pcm32", "float32", "mu-law", "a-law", "ima-adpcm",
                                    "ms-adpcm"})
            QTest::newRow(variant) << file(variant + QStringLiteral(".wav")) << true;
        // Nothing plays and nothing is said; the next sound plays as ever.
        QTest::newRow("missing") << file("nothing.wav") << false;
        QTest::newRow("a folder") << m_dir.path() + "/" << false;
    }

    void waves()
    {
        QFETCH(QString, path);
        QFETCH(bool, heard);
        if (heard && !QFileInfo::exists(resolveThemePath(path)))
            QSKIP("sox is not installed");
        QVERIFY(start());
        m_sound->playWaveFile(path);
        if (heard) {
            QVERIFY(this->heard());
        } else {
            QVERIFY(m_capture->waitForFrames(rate / 2, hearingTimeoutMs));
            QCOMPARE(DiskAudioCapture::peak(m_capture->samples()), 0);
            m_sound->playWaveFile(file("blip.wav"));
            QVERIFY(this->heard());
        }
        QCOMPARE(m_report.lines(), QStringList());
    }

    void newWaveReplacesPlayingOne()
    {
        QVERIFY(start());
        m_sound->playWaveFile(file("tone.wav")); // three seconds
        QVERIFY(heard());
        m_sound->playWaveFile(file("blip.wav")); // a tenth of a second
        QVERIFY(silentAfter(m_capture->frameCount() + rate / 10));
    }

    void shutDownClosesSoundThenWritesSettings()
    {
        QVERIFY(start());
        const QString ini = file("skm.ini");
        QVERIFY(m_sound->shutDown({22050, 16, 2}, ini).isEmpty());
        QVERIFY(!m_sound->soundAvailable());
        EditorConfig back;
        readEditorConfig(back, ini);
        QCOMPARE(QList<qint32>({back.frequency, back.numchannels, back.output}),
                 QList<qint32>({22050, 16, 2}));

        // A settings file that cannot be written is said; the sound is closed all the same.
        QVERIFY(start());
        const Report unwritten = m_sound->shutDown({22050, 16, 2}, file("missing/skm.ini"));
        QCOMPARE(unwritten.problems.size(), 1);
        QVERIFY2(unwritten.problems.first().text.contains(u"skm.ini"), qPrintable(unwritten.lines().join(u'\n')));
        QVERIFY(!QFileInfo::exists(file("missing/skm.ini")));
        QVERIFY(!m_sound->soundAvailable());
    }

    void noSoundOutputIsSilent_data()
    {
        QTest::addColumn<bool>("driverChosen");
        QTest::addColumn<QString>("music");
        QTest::newRow("disk driver") << true << file("tone.wav");
        QTest::newRow("no driver chosen, no device needed") << false << file("song.mid");
    }

    void noSoundOutputIsSilent()
    {
        QFETCH(bool, driverChosen);
        QFETCH(QString, music);
        const ScopedEnvironment driverChoice(
            "SDL_AUDIODRIVER", driverChosen ? std::optional(qgetenv("SDL_AUDIODRIVER")) : std::nullopt);
        QVERIFY(playMusic(music, config(rate, 8, 0)));
        QVERIFY(m_sound->soundAvailable());
        QVERIFY(m_sound->musicPlaying());
        if (driverChosen) {
            m_sound->playWaveFile(file("tone.wav"));
            QVERIFY(m_capture->waitForFrames(rate, hearingTimeoutMs));
            QCOMPARE(DiskAudioCapture::peak(m_capture->samples()), 0);
        }
        QCOMPARE(m_report.lines(), QStringList());
    }

    void signalsAreLeftToTheProgram()
    {
        // The mixer's own handler would turn SIGTERM into a quit event nobody reads. It is put
        // only where no handler is, so the test framework's is set aside meanwhile.
        struct sigaction plain = {}, framework = {}, after = {};
        plain.sa_handler = SIG_DFL;
        QCOMPARE(sigaction(SIGTERM, &plain, &framework), 0);
        const auto restore = qScopeGuard([&framework] { sigaction(SIGTERM, &framework, nullptr); });
        QVERIFY(start());
        QCOMPARE(sigaction(SIGTERM, nullptr, &after), 0);
        QVERIFY(after.sa_handler == SIG_DFL);
    }

    void failedInitialisationIsReportedOnce_data()
    {
        QTest::addColumn<EditorConfig>("settings");
        QTest::addColumn<QByteArray>("driver");
        QTest::newRow("frequency 1") << config(1) << QByteArray("disk");
        QTest::newRow("frequency ten million") << config(10000000) << QByteArray("disk");
        QTest::newRow("negative channel count") << config(rate, -1) << QByteArray("disk");
        QTest::newRow("unknown driver") << config() << QByteArray("nosuchdriver");
    }

    void failedInitialisationIsReportedOnce()
    {
        QFETCH(EditorConfig, settings);
        QFETCH(QByteArray, driver);
        const ScopedEnvironment driverChoice("SDL_AUDIODRIVER", driver);

        QVERIFY(!initSound(settings));
        QCOMPARE(m_report.lines(), QStringList{"ERROR: Could not initialize sound/music subsystem!"});
        QCOMPARE(m_report.problems.first().severity, Problem::Severity::Error);
        QVERIFY(!m_sound->soundAvailable());

        // Without sound every music operation is a quiet no-op; wave sounds still play.
        openMusic(file("tone.wav"));
        openMusic(file("missing.ogg"));
        m_sound->playMusic();
        QVERIFY(!m_sound->musicHandle());
        QVERIFY(!m_sound->musicPlaying());
        if (driver == "disk") {
            m_sound->playWaveFile(file("blip.wav"));
            QVERIFY(heard());
        }
        QCOMPARE(m_report.problems.size(), 1);
    }
};

QTEST_GUILESS_MAIN(SoundSystemTest)
#include "tst_soundsystem.moc"
