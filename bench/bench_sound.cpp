// How long the author waits between pressing "Play Music" and hearing it, for a long OGG
// stream (which must not be decoded whole first) and for a MIDI song (soundfont loading).
// Audio goes through SDL's disk driver, which consumes it at the real playback rate.

#include "common/diskaudiocapture.h"
#include "sound/soundsystem.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

constexpr double targetMs = 100;
constexpr int runs = 7;
constexpr int sampleRate = 22050;

void print(const Report &report)
{
    for (const QString &line : report.lines())
        QTextStream(stderr) << line << "\n";
}

void put(QByteArray &bytes, quint32 value, int size, bool bigEndian = false)
{
    for (int i = 0; i < size; ++i) {
        const int shift = 8 * (bigEndian ? size - 1 - i : i);
        bytes.append(char((value >> shift) & 0xFF));
    }
}

/** Five minutes of a slowly gliding mono tone, as 16-bit PCM. */
QByteArray longWave()
{
    const int frames = 300 * sampleRate;
    QByteArray data;
    data.reserve(frames * 2);
    double phase = 0;
    for (int i = 0; i < frames; ++i) {
        phase += 2 * M_PI * (330 + 110 * std::sin(i / double(sampleRate))) / sampleRate;
        put(data, quint16(qint16(12000 * std::sin(phase))), 2);
    }
    QByteArray bytes("RIFF");
    put(bytes, 36 + data.size(), 4);
    bytes.append("WAVEfmt ");
    for (quint32 field : {16u, 1u | (1u << 16), quint32(sampleRate), quint32(sampleRate * 2), 2u | (16u << 16)})
        put(bytes, field, 4);
    bytes.append("data");
    put(bytes, data.size(), 4);
    return bytes + data;
}

/** A five-minute MIDI song: a rising scale of quarter notes at 120 beats per minute. */
QByteArray longMidi()
{
    QByteArray track = QByteArray::fromHex("00C000");
    for (int beat = 0; beat < 600; ++beat) {
        const char note = char(48 + beat % 24);
        track += QByteArray::fromHex("0090") + note + char(100);
        track += QByteArray::fromHex("6080") + note + char(64); // 96 ticks later
    }
    track += QByteArray::fromHex("00FF2F00");
    QByteArray bytes("MThd");
    put(bytes, 6, 4, true);
    put(bytes, 0, 2, true);
    put(bytes, 1, 2, true);
    put(bytes, 96, 2, true);
    bytes.append("MTrk");
    put(bytes, track.size(), 4, true);
    return bytes + track;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

struct Timing {
    double toSoundMs = -1; // wall clock, from opening to the first audible frame
    double openCpuMs = 0;  // processor time spent opening: what a busy machine cannot hide
};

Timing timeToFirstSound(const QString &music, const QString &rawFile)
{
    DiskAudioCapture capture(rawFile);
    SoundSystem sound;
    EditorConfig config;
    config.frequency = 44100;
    config.numchannels = 8;
    config.output = 1;
    Timing timing;
    print(sound.initSound(config));
    if (!sound.soundAvailable() || !capture.waitForFrames(1, 2000))
        return timing;

    const qint64 before = capture.frameCount();
    QElapsedTimer timer;
    timer.start();
    const std::clock_t cpuStart = std::clock();
    const Report opened = sound.openMusic(music);
    timing.openCpuMs = (std::clock() - cpuStart) * 1000.0 / CLOCKS_PER_SEC;
    print(opened);
    sound.playMusic();
    if (capture.waitForSound(before, 5000) >= 0)
        timing.toSoundMs = timer.nsecsElapsed() / 1e6;
    return timing;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void report(const char *what, const QString &music, const QString &rawFile)
{
    QList<double> toSound;
    QList<double> openCpu;
    for (int i = 0; i < runs; ++i) {
        const Timing timing = timeToFirstSound(music, rawFile);
        toSound.append(timing.toSoundMs);
        openCpu.append(timing.openCpuMs);
    }
    QTextStream out(stdout);
    if (*std::min_element(toSound.begin(), toSound.end()) < 0) {
        out << what << ": no sound heard\n";
        return;
    }
    const double ms = median(toSound);
    out << what << ": " << QString::number(ms, 'f', 1) << " ms to first sound (median of " << runs
        << "; opening took " << QString::number(median(openCpu), 'f', 1)
        << " ms of processor time), target " << targetMs << " ms, ratio "
        << QString::number(ms / targetMs, 'f', 2) << "\n";
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString raw = dir.filePath("out.raw");

    const QString midi = dir.filePath("long.mid");
    if (writeFile(midi, longMidi()))
        report("MIDI song, 5 minutes", midi, raw);

    const QString wave = dir.filePath("long.wav");
    const QString ogg = dir.filePath("long.ogg");
    if (QStandardPaths::findExecutable("oggenc").isEmpty()) {
        QTextStream(stdout) << "OGG stream: skipped, oggenc is not installed\n";
    } else if (writeFile(wave, longWave())
               && QProcess::execute("oggenc", {"-Q", "-q", "0", "-o", ogg, wave}) == 0) {
        report("OGG stream, 5 minutes", ogg, raw);
    }
    return 0;
}
