#include "common/pathlookup.h"
#include "common/diskaudiocapture.h"
#include "sound/musicformat.h"
#include "sound/soundsystem.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <csignal>
#include <cstring>
#include <memory>
#include <optional>

namespace {

constexpr int rate = 44100;
constexpr int hearingTimeoutMs = 5000;
// Audio already mixed when a call returns may still reach the file: two mixer buffers.
constexpr qint64 inFlightFrames = 2048;

void appendBytes(QByteArray &bytes, quint32 value, int size, bool bigEndian = false)
{
    for (int i = 0; i < size; ++i)
        bytes.append(char((value >> (8 * (bigEndian ? size - 1 - i : i))) & 0xFF));
}

enum class Encoding { Unsigned, Signed, Float };

/** A 440 Hz mono tone at half of full scale. */
QByteArray toneSamples(Encoding encoding, int bits, double seconds)
{
    QByteArray data;
    const int frames = int(seconds * rate);
    for (int i = 0; i < frames; ++i) {
        const double v = 0.5 * std::sin(2 * M_PI * 440 * i / rate);
        if (encoding == Encoding::Float) {
            const float f = float(v);
            quint32 raw;
            std::memcpy(&raw, &f, sizeof raw);
            appendBytes(data, raw, 4);
        } else if (encoding == Encoding::Unsigned) {
            data.append(char(quint8(128 + std::lround(v * 127))));
        } else {
            const double scale = std::ldexp(1.0, bits - 1) - 1;
            appendBytes(data, quint32(qint32(std::lround(v * scale))), bits / 8);
        }
    }
    return data;
}

QByteArray waveFile(Encoding encoding, int bits, double seconds)
{
    const QByteArray data = toneSamples(encoding, bits, seconds);
    QByteArray bytes("RIFF");
    appendBytes(bytes, 36 + data.size(), 4);
    bytes.append("WAVEfmt ");
    appendBytes(bytes, 16, 4);
    appendBytes(bytes, encoding == Encoding::Float ? 3 : 1, 2);
    appendBytes(bytes, 1, 2); // mono
    appendBytes(bytes, rate, 4);
    appendBytes(bytes, rate * bits / 8, 4);
    appendBytes(bytes, bits / 8, 2);
    appendBytes(bytes, bits, 2);
    bytes.append("data");
    appendBytes(bytes, data.size(), 4);
    return bytes + data;
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
    constexpr int sampleBytes = 64;
    QByteArray bytes(20, '\0'); // title
    for (int sample = 1; sample <= 31; ++sample) {
        bytes.append(QByteArray(22, '\0'));
        appendBytes(bytes, sample == 1 ? sampleBytes / 2 : 0, 2, true); // length in words
        bytes.append(char(0));                                          // finetune
        bytes.append(char(sample == 1 ? 64 : 0));                       // volume
        appendBytes(bytes, 0, 2, true);                                 // loop start
        appendBytes(bytes, sample == 1 ? sampleBytes / 2 : 1, 2, true); // loop length
    }
    bytes.append(char(1));   // one position
    bytes.append(char(127));
    bytes.append(QByteArray(128, '\0'));
    bytes.append("M.K.");
    QByteArray pattern(64 * 4 * 4, '\0');
    const int period = 428;
    pattern[0] = char((1 & 0xF0) | (period >> 8));
    pattern[1] = char(period & 0xFF);
    pattern[2] = char((1 & 0x0F) << 4);
    bytes.append(pattern);
    for (int i = 0; i < sampleBytes; ++i)
        bytes.append(char(i < sampleBytes / 2 ? 100 : -100));
    return bytes;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/** Runs a Debian tool that converts a file; false when the tool is missing or fails. */
bool convert(const QString &tool, const QStringList &arguments)
{
    if (QStandardPaths::findExecutable(tool).isEmpty())
        return false;
    QProcess process;
    process.start(tool, arguments);
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit
           && process.exitCode() == 0;
}

EditorConfig config(qint32 frequency = rate, qint32 numchannels = 8, qint32 output = 1)
{
    return EditorConfig{frequency, numchannels, output};
}

/** Sets (nullopt: clears) an environment variable until the returned guard goes. */
auto scopedEnvironment(const char *name, const std::optional<QByteArray> &value)
{
    const bool wasSet = qEnvironmentVariableIsSet(name);
    const QByteArray old = qgetenv(name);
    value ? qputenv(name, *value) : qunsetenv(name);
    return qScopeGuard([=] { wasSet ? qputenv(name, old) : qunsetenv(name); });
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
        QVERIFY(writeFile(file("tone.wav"), waveFile(Encoding::Signed, 16, 3)));
        QVERIFY(writeFile(file("blip.wav"), waveFile(Encoding::Signed, 16, 0.1)));
        QVERIFY(writeFile(file("song.mid"), midiSong()));
        QVERIFY(writeFile(file("Songs/Tune.MID"), midiSong()));
        QVERIFY(writeFile(file("tune.mod"), modModule()));
        QVERIFY(writeFile(file("Sounds/Ding.WAV"), waveFile(Encoding::Signed, 16, 0.5)));
        QVERIFY(writeFile(file("pcm8.wav"), waveFile(Encoding::Unsigned, 8, 0.5)));
        QVERIFY(writeFile(file("pcm24.wav"), waveFile(Encoding::Signed, 24, 0.5)));
        QVERIFY(writeFile(file("pcm32.wav"), waveFile(Encoding::Signed, 32, 0.5)));
        QVERIFY(writeFile(file("float32.wav"), waveFile(Encoding::Float, 32, 0.5)));

        // Encoders may be absent; the rows that need their output skip then.
        convert("oggenc", {"-Q", "-o", file("tone.ogg"), file("tone.wav")});
        convert("lame", {"--silent", file("tone.wav"), file("tone.mp3")});
        for (const char *encoding : {"mu-law", "a-law", "ima-adpcm", "ms-adpcm"})
            convert("sox", {file("pcm24.wav"), "-e", encoding, file(QStringLiteral("%1.wav").arg(encoding))});
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

    void errorTexts_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0 << "No errors";
        QTest::newRow("1, two blanks") << 1 << "Cannot call this command after FSOUND_Init.  Call FSOUND_Close first.";
        QTest::newRow("12, trailing blank") << 12 << "Not enough memory ";
        QTest::newRow("18, last") << 18 << "Required Mediaplayer codec is not installed";
        QTest::newRow("19") << 19 << "Unknown error";
        QTest::newRow("negative") << -1 << "Unknown error";
    }

    void errorTexts()
    {
        QFETCH(int, code);
        QFETCH(QString, text);
        QCOMPARE(SoundSystem::soundErrorText(code), text);
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
        QCOMPARE(m_report.lines(), QStringList());
    }

    void openingOtherMusicStopsCurrent()
    {
        QVERIFY(playMusic(file("tune.mod")));
        QVERIFY(heard());

        openMusic(file("tone.wav"));
        QVERIFY(!m_sound->musicPlaying());
        QVERIFY(m_sound->musicIsStream());
        QVERIFY(silentAfter(m_capture->frameCount()));
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
        QTest::newRow("wave") << waveFile(Encoding::Signed, 16, 0.01) << "x" << MusicContent::Playable;
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
        QCOMPARE(m_report.problems.size(), 1);
        const Problem message = m_report.problems.first();
        QCOMPARE(message.shownTitle(), QString("Error"));
        QCOMPARE(message.text, "Error while opening sound\r\n" + reason);
        QCOMPARE(message.severity, Problem::Severity::Error);
        QVERIFY(!m_sound->musicHandle());
        m_sound->playMusic();
        QVERIFY(!m_sound->musicPlaying());
    }

    void waveVariantsAreHeard_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("pcm 8") << file("pcm8.wav");
        QTest::newRow("pcm 16, windows path") << m_dir.path() + "\\sounds\\ding.wav";
        QTest::newRow("pcm 24") << file("pcm24.wav");
        QTest::newRow("pcm 32") << file("pcm32.wav");
        QTest::newRow("float 32") << file("float32.wav");
        QTest::newRow("mu-law") << file("mu-law.wav");
        QTest::newRow("a-law") << file("a-law.wav");
        QTest::newRow("ima adpcm") << file("ima-adpcm.wav");
        QTest::newRow("ms adpcm") << file("ms-adpcm.wav");
    }

    void waveVariantsAreHeard()
    {
        QFETCH(QString, path);
        if (!QFileInfo::exists(resolveThemePath(path)))
            QSKIP("sox is not installed");
        QVERIFY(start());
        m_sound->playWaveFile(path);
        QVERIFY(heard());
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

    void missingWaveIsIgnored()
    {
        QVERIFY(start());
        m_sound->playWaveFile(file("nothing.wav"));
        m_sound->playWaveFile(m_dir.path() + "/");
        m_sound->playWaveFile(file("notes.txt"));
        QVERIFY(m_capture->waitForFrames(rate / 2, hearingTimeoutMs));
        QCOMPARE(DiskAudioCapture::peak(m_capture->samples()), 0);
        QCOMPARE(m_report.lines(), QStringList());

        m_sound->playWaveFile(file("blip.wav"));
        QVERIFY(heard());
    }

    void shutDownClosesSoundThenWritesSettings()
    {
        QVERIFY(start());
        const QString ini = file("skm.ini");
        QVERIFY(m_sound->shutDown({22050, 16, 2}, ini).isEmpty());
        QVERIFY(!m_sound->soundAvailable());
        EditorConfig back;
        readEditorConfig(back, ini);
        QCOMPARE(back.frequency, 22050);
        QCOMPARE(back.numchannels, 16);
        QCOMPARE(back.output, 2);

        // A settings file that cannot be written is said; the sound is closed all the same.
        QVERIFY(start());
        const Report failed = m_sound->shutDown({22050, 16, 2}, file("missing/skm.ini"));
        QCOMPARE(failed.problems.size(), 1);
        QVERIFY(!m_sound->soundAvailable());
    }

    void wavesPlayWithoutMixer()
    {
        QVERIFY(!initSound(config(1)));
        m_sound->playWaveFile(file("blip.wav"));
        QVERIFY(heard());
        QCOMPARE(m_report.problems.size(), 1); // only the failed start-up
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
        const auto driverChoice = scopedEnvironment(
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
        const auto driverChoice = scopedEnvironment("SDL_AUDIODRIVER", driver);

        QVERIFY(!initSound(settings));
        QCOMPARE(m_report.lines(), QStringList{"ERROR: Could not initialize sound/music subsystem!"});
        QCOMPARE(m_report.problems.first().severity, Problem::Severity::Error);
        QVERIFY(!m_sound->soundAvailable());

        // Without sound every music operation is a quiet no-op.
        openMusic(file("tone.wav"));
        openMusic(file("missing.ogg"));
        m_sound->playMusic();
        QVERIFY(!m_sound->musicHandle());
        QVERIFY(!m_sound->musicPlaying());
        QCOMPARE(m_report.problems.size(), 1);
    }
};

QTEST_GUILESS_MAIN(SoundSystemTest)
#include "tst_soundsystem.moc"
