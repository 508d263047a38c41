// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// From a press of a sound row's play button, and of "Play Music", to the first audible
// sample, through the editor's own window and bindings. Audio goes through SDL's disk driver,
// which consumes it at the real rate. Then the processor time the audio thread spends mixing
// one buffer of a soundfont song and a sound against the buffer's length: the mixer plays
// without underruns while that stays well below one, for the buffer the editor opens and for
// the smaller ones it could have opened.

#include "benchstats.h"
#include "common/diskaudiocapture.h"
#include "common/scripteddialogs.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "editor/buttonbinding.h"
#include "editor/controlnames.h"
#include "editor/mainwindow.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <SDL.h>
#include <SDL_mixer.h>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <memory>

namespace {

constexpr int rounds = 9;
constexpr int sampleRate = 22050;
constexpr int frequency = 44100;

void put(QByteArray &bytes, quint32 value, int size, bool bigEndian = false)
{
    for (int i = 0; i < size; ++i) {
        const int shift = 8 * (bigEndian ? size - 1 - i : i);
        bytes.append(char((value >> shift) & 0xFF));
    }
}

/** A mono wave file of 16-bit \a samples. */
QByteArray monoWave(const QByteArray &samples)
{
    QByteArray bytes("RIFF");
    put(bytes, 36 + samples.size(), 4);
    bytes.append("WAVEfmt ");
    for (quint32 field : {16u, 1u | (1u << 16), quint32(sampleRate), quint32(sampleRate * 2), 2u | (16u << 16)})
        put(bytes, field, 4);
    bytes.append("data");
    put(bytes, samples.size(), 4);
    return bytes + samples;
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
    return monoWave(data);
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

/** A 40 ms click of a tone, loud from its first sample. */
QByteArray clickWave()
{
    const int frames = sampleRate / 25;
    QByteArray data;
    for (int i = 0; i < frames; ++i)
        put(data, quint16(qint16(i % 50 < 25 ? 12000 : -12000)), 2);
    return monoWave(data);
}

/** The editor as its main() builds it, with the theme's files in \a folder and sound open. */
struct Editor {
    ThemeDocument doc;
    ScriptedDialogs dialogs;
    SoundSystem sound;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<FileCommands> commands;

    explicit Editor(const QString &folder)
    {
        doc.resetTheme();
        doc.setPackageFolder(folder + u'/', QString());
        doc.setMusicFolder(folder + u'/');
        doc.setNumber(u"includesounds", 1);
        doc.setNumber(u"includemusic", 1);
        doc.setText(QLatin1StringView(soundRowKeys[SoundRow::Rotate]), QStringLiteral("click.wav"));
        window = std::make_unique<MainWindow>(doc);
        commands = std::make_unique<FileCommands>(doc, dialogs);
        new ButtonBinding(*window, doc, dialogs, sound, *commands);
        window->buildAllPages();
        EditorConfig config;
        config.frequency = frequency;
        config.numchannels = 8;
        config.output = 1;
        sound.initSound(config);
    }

    QAbstractButton *button(const QString &name) const { return window->findChild<QAbstractButton *>(name); }
};

/**
 * Milliseconds from clicking \a button to the first audible sample: the moment its buffer
 * reached the device plus its place in the buffer. Negative when nothing was heard.
 */
double clickToSound(const DiskAudioCapture &capture, QAbstractButton *button)
{
    // A click comes at any moment of the device's buffer, not in step with the last wait.
    QThread::usleep(QRandomGenerator::global()->bounded(12000));
    const qint64 before = capture.frameCount();
    QElapsedTimer timer;
    timer.start();
    button->click();
    const qint64 heard = capture.waitForSound(before, 5000);
    if (heard < 0)
        return -1;
    const double seen = double(timer.nsecsElapsed()) / 1e6;
    return seen + double(heard % SoundSystem::bufferFrames(frequency)) * 1000 / frequency;
}

/** Waits until the device plays silence again. */
void waitForSilence(const DiskAudioCapture &capture)
{
    for (int tries = 0; tries < 500; ++tries) {
        const qint64 now = capture.frameCount();
        QThread::msleep(20);
        if (DiskAudioCapture::peak(capture.samples(now)) < 256)
            return;
    }
}

void measureClicks(const QString &folder, const QString &raw)
{
    DiskAudioCapture capture(raw);
    Editor editor(folder);
    QAbstractButton *play = editor.button(rowControl(soundRows.show, 0));
    // The device opens with the first sound and stays open while sounds follow one another.
    if (editor.sound.soundAvailable())
        play->click();
    if (!editor.sound.soundAvailable() || !capture.waitForFrames(1, 2000)) {
        std::printf("No sound device opened: click and music timings skipped\n");
        benchRow("sound device opened", 1, 0);
        return;
    }
    waitForSilence(capture);
    QAbstractButton *music = editor.button(QStringLiteral("cmdPlayMusic"));
    QList<double> sound;
    QList<double> midi;
    QList<double> ogg;
    const bool haveOgg = QFile::exists(folder + QStringLiteral("/long.ogg"));
    for (int round = 0; round < rounds; ++round) {
        sound.append(clickToSound(capture, play));
        waitForSilence(capture);
        for (auto &[song, times] : {std::pair<const char *, QList<double> *>{"long.mid", &midi}, {"long.ogg", &ogg}}) {
            if (times == &ogg && !haveOgg)
                continue;
            editor.doc.setText(u"midi", QLatin1StringView(song));
            times->append(clickToSound(capture, music));
            music->click(); // "Stop Music"
            waitForSilence(capture);
        }
    }
    std::printf("Click to first sound, median of %d, %d-frame buffers at %d Hz\n", rounds,
                SoundSystem::bufferFrames(frequency), frequency);
    for (const auto &[what, times, target] : {std::tuple<const char *, QList<double> *, double>{
                                                  "click to sound: wave of a sound row", &sound, 30},
                                              {"click to sound: MIDI song (soundfont)", &midi, 50},
                                              {"click to sound: OGG stream", &ogg, 50}}) {
        if (times->isEmpty()) {
            std::printf("  %s: skipped, oggenc is not installed\n", what);
            continue;
        }
        const double worst = *std::max_element(times->begin(), times->end());
        std::printf("  %s: median %.1f ms, slowest %.1f ms\n", what, median(*times), worst);
        benchRow(what, std::min(*std::min_element(times->begin(), times->end()), 0.0) < 0 ? 1e9 : median(*times),
                 target, " ms");
    }
}

// The audio thread's processor time at the end of each mixed buffer.
std::atomic<int> mixedBuffers{0};
double mixCpuMs[4096];

void noteMixed(void *, Uint8 *, int)
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    const int n = mixedBuffers.load(std::memory_order_relaxed);
    if (n < int(std::size(mixCpuMs))) {
        mixCpuMs[n] = double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
        mixedBuffers.store(n + 1, std::memory_order_release);
    }
}

/** p99 of the audio thread's processor time per buffer over its length, or -1. */
double mixingLoad(const QString &folder, const QString &raw, int frames)
{
    DiskAudioCapture capture(raw);
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return -1;
    Mix_Init(MIX_INIT_MID | MIX_INIT_OGG);
    Mix_SetSoundFonts("/usr/share/sounds/sf2/TimGM6mb.sf2");
    double load = -1;
    if (Mix_OpenAudioDevice(frequency, MIX_DEFAULT_FORMAT, 2, frames, nullptr, 0) == 0) {
        Mix_Music *song = Mix_LoadMUS(QFile::encodeName(folder + QStringLiteral("/long.mid")).constData());
        Mix_Chunk *click = Mix_LoadWAV(QFile::encodeName(folder + QStringLiteral("/click.wav")).constData());
        mixedBuffers = 0;
        Mix_SetPostMix(noteMixed, nullptr);
        if (song && click && Mix_PlayMusic(song, -1) == 0) {
            Mix_PlayChannel(-1, click, 40);
            QThread::msleep(1500);
        }
        Mix_SetPostMix(nullptr, nullptr);
        Mix_HaltMusic();
        Mix_HaltChannel(-1);
        const int n = mixedBuffers.load(std::memory_order_acquire);
        QList<double> perBuffer;
        for (int i = 2; i < n; ++i) // the first buffers pay for starting up
            perBuffer.append(mixCpuMs[i] - mixCpuMs[i - 1]);
        if (!perBuffer.isEmpty()) {
            std::sort(perBuffer.begin(), perBuffer.end());
            load = perBuffer.at(perBuffer.size() * 99 / 100) / (frames * 1000.0 / frequency);
        }
        if (click)
            Mix_FreeChunk(click);
        if (song)
            Mix_FreeMusic(song);
        Mix_CloseAudio();
    }
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return load;
}

void measureMixing(const QString &folder, const QString &raw)
{
    const int opened = SoundSystem::bufferFrames(frequency);
    std::printf("Mixing a soundfont song and a sound, p99 processor time per buffer / buffer length\n");
    int smallest = 0;
    for (int frames = opened; frames >= 64; frames /= 2) {
        const double load = mixingLoad(folder, raw, frames);
        std::printf("  %4d frames (%.1f ms): %.3f\n", frames, frames * 1000.0 / frequency, load);
        if (load >= 0 && load < 0.5)
            smallest = frames;
        if (frames == opened)
            benchRow("mixing one buffer / its length (opened buffer)", load < 0 ? 1e9 : load, 0.5, "x");
    }
    std::printf("  smallest buffer mixed in under half its length: %d frames\n", smallest);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (!dir.isValid() || !writeFile(dir.filePath("click.wav"), clickWave())
        || !writeFile(dir.filePath("long.mid"), longMidi()) || !writeFile(dir.filePath("long.wav"), longWave()))
        return 1;
    if (!QStandardPaths::findExecutable("oggenc").isEmpty())
        QProcess::execute("oggenc", {"-Q", "-q", "0", "-o", dir.filePath("long.ogg"), dir.filePath("long.wav")});
    const QString raw = dir.filePath("out.raw");
    measureClicks(dir.path(), raw);
    measureMixing(dir.path(), raw);
    return 0;
}
