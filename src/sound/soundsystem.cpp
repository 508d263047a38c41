// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/soundsystem.h"

#include "common/pathlookup.h"
#include "sound/mixerlibrary.h"
#include "sound/musicformat.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

/** The mixer's functions, once startAudio() has loaded them. */
const MixerLibrary &mixer()
{
    return mixerLibrary().value();
}

/*
 * Output types of skm.ini and the SDL audio drivers they select. The environment variable
 * SDL_AUDIODRIVER, when set, overrides the table. nullptr lets SDL try its drivers in its own
 * order of preference. Output type 0 opens the "dummy" driver and also mutes the mixer, so it
 * stays silent even when the environment picks a real driver.
 *
 *   type | meaning in skm.ini | Linux                 | Windows               | macOS
 *   -----+--------------------+-----------------------+-----------------------+-----------
 *   0    | no sound           | dummy                 | dummy                 | dummy
 *   1    | recommended        | SDL's choice          | SDL's choice (WASAPI) | SDL's choice
 *   2    | first alternative  | pipewire, pulseaudio  | directsound           | SDL's choice
 *   3    | second alternative | alsa                  | winmm                 | SDL's choice
 */
struct OutputDriver {
    const char *linuxDrivers;
    const char *windowsDrivers;
};

constexpr OutputDriver outputDrivers[] = {
    {"dummy", "dummy"},
    {nullptr, nullptr},
    {"pipewire,pulseaudio", "directsound"},
    {"alsa", "winmm"},
};

const char *driverForOutput(qint32 output)
{
    if (output < 0 || output >= qint32(std::size(outputDrivers)))
        output = 1;
#if defined(Q_OS_WIN)
    return outputDrivers[output].windowsDrivers;
#elif defined(Q_OS_LINUX)
    return outputDrivers[output].linuxDrivers;
#else
    return output == 0 ? "dummy" : nullptr;
#endif
}

// SDL would resample any rate; one no sound hardware offers is a typing error in skm.ini.
constexpr qint32 lowestFrequency = 4000;
constexpr qint32 highestFrequency = 192000;
constexpr qint32 mostChannels = 1024;

// About 10 ms a buffer: sound servers wake their clients about that often, so a shorter
// buffer would only add wake-ups, and mixing a soundfont song's buffer takes a fraction of it.
constexpr int bufferMs = 10;

// Wave sounds own channel 0; nothing else in the editor plays sound effects.
constexpr int waveChannel = 0;

// Small General MIDI soundfonts first: the synthesiser loads the whole font for every song.
constexpr const char *soundFonts[] = {
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    "/usr/share/sounds/sf2/default-GM.sf2",
};

QByteArray nativeName(const QString &path)
{
#ifdef Q_OS_WIN
    return path.toUtf8(); // SDL widens UTF-8 names itself on Windows
#else
    return QFile::encodeName(path);
#endif
}

void useSoundFont()
{
    if (!qEnvironmentVariableIsEmpty("SDL_SOUNDFONTS"))
        return; // the user's own choice; the mixer reads it itself
    for (const char *font : soundFonts) {
        if (QFileInfo::exists(QString::fromLatin1(font))) {
            mixer().Mix_SetSoundFonts(font);
            return;
        }
    }
}

bool startAudio(const char *driver)
{
    if (const Result<MixerLibrary> &loaded = mixerLibrary(); !loaded) {
        qWarning("No sound: %s", qPrintable(loaded.errorText()));
        return false;
    }
    mixer().SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Stakko Theme Maker");
    // SIGTERM and SIGINT are the program's to handle: SDL would turn them into events nobody reads.
    mixer().SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (driver)
        mixer().SDL_SetHint(SDL_HINT_AUDIODRIVER, driver); // a set environment variable still wins
    else
        mixer().SDL_ResetHint(SDL_HINT_AUDIODRIVER);
    if (mixer().SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    mixer().Mix_Init(MIX_INIT_FLAC | MIX_INIT_MOD | MIX_INIT_MP3 | MIX_INIT_OGG | MIX_INIT_MID | MIX_INIT_OPUS);
    useSoundFont();
    return true;
}

void stopAudio()
{
    mixer().Mix_Quit();
    mixer().SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

// Why the mixer refused a file that looked playable.
SoundError loadFailure(const QString &mixerError)
{
    if (mixerError.contains(u"Couldn't open"))
        return SoundError::FileNotFound;
    if (mixerError.contains(u"hasn't been opened"))
        return SoundError::NotInitialised;
    if (mixerError.contains(u"Unrecognized audio format"))
        return SoundError::UnknownFormat;
    return SoundError::LoadFailed;
}

} // namespace

SoundError SoundSystem::checkMusicFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return SoundError::FileNotFound;
    switch (classifyMusicContent(file.read(musicHeaderLength), path)) {
    case MusicContent::Playable:
        return SoundError::None;
    case MusicContent::Damaged:
        return SoundError::LoadFailed;
    case MusicContent::WindowsMedia:
    case MusicContent::Unrecognised:
        break;
    }
    return SoundError::UnknownFormat;
}

SoundSystem::SoundSystem()
{
    m_quietTimer.setSingleShot(true);
    m_quietTimer.setInterval(std::chrono::seconds(5));
    m_quietTimer.callOnTimeout([this] { suspendIfQuiet(); });
}

SoundSystem::~SoundSystem()
{
    closeSound();
}

Report SoundSystem::initSound(const EditorConfig &config)
{
    Report report;
    closeSound();
    m_soundAvailable = openMixer(config);
    if (!m_soundAvailable)
        report.add({Problem::Severity::Error, QCoreApplication::translate("SoundSystem", "Could not initialize sound/music subsystem!"), {}, {}, {},
                    QCoreApplication::translate("SoundSystem", "ERROR")});
    return report;
}

Report SoundSystem::shutDown(const EditorConfig &config, const QString &configPath)
{
    Report report;
    closeSound();
    report.append(writeEditorConfig(config, configPath).report());
    return report;
}

bool SoundSystem::openMixer(const EditorConfig &config)
{
    if (config.frequency < lowestFrequency || config.frequency > highestFrequency
        || config.numchannels < 0 || config.numchannels > mostChannels)
        return false;
    if (!startAudio(driverForOutput(config.output)))
        return false;
    if (!openDevice({config.frequency, std::max(config.numchannels, waveChannel + 1), config.output == 0})) {
        stopAudio();
        return false;
    }
    m_mixerOpen = true;
    suspendIfQuiet(); // opened to see that it opens; nothing sounds yet
    return true;
}

bool SoundSystem::openWaveDevice()
{
    if (!startAudio(nullptr))
        return false;
    if (!openDevice({MIX_DEFAULT_FREQUENCY, waveChannel + 1, false})) {
        stopAudio();
        return false;
    }
    m_mixerOpen = true;
    return true;
}

// The one sound system whose device may be closed when its sounds end.
static SoundSystem *quietWatch = nullptr;

bool SoundSystem::openDevice(const DeviceSettings &settings)
{
    if (mixer().Mix_OpenAudioDevice(settings.frequency, MIX_DEFAULT_FORMAT, 2, bufferFrames(settings.frequency),
                                    nullptr, 0)
        != 0)
        return false;
    m_device = settings;
    m_suspended = false;
    mixer().Mix_AllocateChannels(settings.channels);
    mixer().Mix_ReserveChannels(waveChannel + 1);
    if (settings.muted) {
        mixer().Mix_VolumeMusic(0);
        mixer().Mix_Volume(-1, 0);
    }
    mixer().Mix_ChannelFinished([](int) { soundEnded(); });
    mixer().Mix_HookMusicFinished(&SoundSystem::soundEnded);
    quietWatch = this;
    return true;
}

void SoundSystem::soundEnded()
{
    // Called on the audio thread, which must not close its own device: the UI thread does.
    if (QCoreApplication *app = QCoreApplication::instance())
        QMetaObject::invokeMethod(app, [] {
            if (quietWatch)
                quietWatch->m_quietTimer.start();
        }, Qt::QueuedConnection);
}

void SoundSystem::suspendIfQuiet()
{
    if (!deviceOpen() || mixer().Mix_Playing(-1) > 0 || mixer().Mix_PlayingMusic())
        return;
    freeMusic(); // a stream that played to its end; the music button still reads as before

    if (m_wave) {
        mixer().Mix_FreeChunk(m_wave);
        m_wave = nullptr;
    }
    mixer().Mix_CloseAudio();
    m_suspended = true;
}

bool SoundSystem::wakeDevice()
{
    return !m_suspended || openDevice(m_device);
}

void SoundSystem::closeMixer()
{
    if (!m_mixerOpen)
        return;
    if (quietWatch == this)
        quietWatch = nullptr;
    if (!m_suspended) {
        mixer().Mix_HaltChannel(-1);
        if (m_wave) {
            mixer().Mix_FreeChunk(m_wave);
            m_wave = nullptr;
        }
        mixer().Mix_CloseAudio();
    }
    stopAudio();
    m_mixerOpen = false;
    m_suspended = false;
}

void SoundSystem::closeSound()
{
    if (m_soundAvailable) {
        stopMusic();
        freeMusic();
    }
    closeMixer();
    m_soundAvailable = false;
}

bool SoundSystem::isStreamFile(const QString &path) const
{
    if (!m_soundAvailable)
        return false;
    if (path.size() < 4 || !path.contains(u'.'))
        return true;
    return !isModuleSongName(path);
}

Report SoundSystem::openMusic(const QString &path, const QString &field)
{
    Report report;
    if (!m_soundAvailable)
        return report;
    stopMusic();
    freeMusic();
    m_musicIsStream = isStreamFile(path);
    if (!wakeDevice()) {
        report.error(QCoreApplication::translate("SoundSystem", "Error while opening sound\r\n%1").arg(soundErrorText(SoundError::DeviceFailed)), field, path);
        return report;
    }

    const QString file = resolveThemePath(path);
    SoundError code = checkMusicFile(file);
    if (code == SoundError::None) {
        // Mix_LoadMUS keeps streams on disk and decodes them as they play.
        m_musicHandle = mixer().Mix_LoadMUS(nativeName(file).constData());
        if (!m_musicHandle)
            code = loadFailure(QString::fromUtf8(mixer().SDL_GetError()));
    }
    if (!m_musicHandle) {
        report.error(QCoreApplication::translate("SoundSystem", "Error while opening sound\r\n%1").arg(soundErrorText(code)), field, path);
        m_musicPlaying = false;
    }
    return report;
}

void SoundSystem::playMusic()
{
    if (!m_musicHandle)
        return;
    // Module songs repeat like the game plays them; streams end after one pass.
    m_musicPlaying = mixer().Mix_PlayMusic(m_musicHandle, m_musicIsStream ? 0 : -1) == 0;
}

void SoundSystem::stopMusic()
{
    if (!m_soundAvailable || !m_musicPlaying)
        return;
    mixer().Mix_HaltMusic();
    m_musicPlaying = false;
}

void SoundSystem::freeMusic()
{
    if (!m_soundAvailable)
        return;
    if (m_musicHandle)
        mixer().Mix_FreeMusic(m_musicHandle);
    m_musicHandle = nullptr;
    m_musicPlaying = false;
}

void SoundSystem::playWaveFile(const QString &path)
{
    if (m_mixerOpen ? !wakeDevice() : !openWaveDevice())
        return;
    Mix_Chunk *chunk = mixer().Mix_LoadWAV(nativeName(resolveThemePath(path)).constData());
    if (!chunk)
        return;
    mixer().Mix_HaltChannel(waveChannel);
    if (m_wave)
        mixer().Mix_FreeChunk(m_wave);
    m_wave = chunk;
    mixer().Mix_PlayChannel(waveChannel, m_wave, 0);
}

int SoundSystem::bufferFrames(int frequency)
{
    // Devices take powers of two best.
    int frames = 64;
    while (frames < qint64(frequency) * bufferMs / 1000)
        frames *= 2;
    return frames;
}

QString SoundSystem::soundErrorText(SoundError code)
{
    // The texts authors know from the original sound library's error table.
    switch (code) {
    case SoundError::None: break;
    case SoundError::NotInitialised: return QCoreApplication::translate("SoundSystem", "This command failed because FSOUND_Init was not called");
    case SoundError::DeviceFailed: return QCoreApplication::translate("SoundSystem", "Error initializing output device.");
    case SoundError::FileNotFound: return QCoreApplication::translate("SoundSystem", "File not found");
    case SoundError::UnknownFormat: return QCoreApplication::translate("SoundSystem", "Unknown file format");
    case SoundError::LoadFailed: return QCoreApplication::translate("SoundSystem", "Error loading file");
    }
    return {};
}
