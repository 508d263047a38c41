// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include "sound/mixersettings.h"

#include <QString>
#include <QTimer>


// The mixer's own handle types, declared here so that callers need no SDL headers.
struct _Mix_Music;
using Mix_Music = _Mix_Music;
struct Mix_Chunk;

/** Why music cannot be played, each with the text soundErrorText() gives it. */
enum class SoundError { None, NotInitialised, DeviceFailed, FileNotFound, UnknownFormat, LoadFailed };

/**
 * The program's one sound system: the music item the author previews and the theme's wave
 * sounds. Music plays only after a successful initSound(); wave sounds play whenever any
 * audio device can be opened. Nothing here waits for playback to finish.
 */
class SoundSystem
{
public:
    SoundSystem();
    ~SoundSystem();
    SoundSystem(const SoundSystem &) = delete;
    SoundSystem &operator=(const SoundSystem &) = delete;

    /**
     * Opens the mixer with the settings of \a config. On failure reports "Could not initialize
     * sound/music subsystem!" and leaves soundAvailable() false.
     */
    Report initSound(const EditorConfig &config);

    /** Stops and frees the music and any wave sound, then releases the audio device. */
    void closeSound();

    /** The editor's end: closes the sound, then writes \a config to \a configPath (skm.ini). */
    Report shutDown(const EditorConfig &config, const QString &configPath);

    /** The music kind of \a path: false for module songs (MIDI and trackers) and whenever sound is unavailable. */
    bool isStreamFile(const QString &path) const;

    /**
     * Frees the current music, then opens the file at \a path (a theme path: "\" separators and
     * any letter case are accepted). A file that cannot be opened is reported with the matching
     * soundErrorText() and leaves no music item. Does nothing without sound.
     */
    Report openMusic(const QString &path, const QString &field = {});

    /** Starts the open music item from its beginning; module songs loop, streams play once. */
    void playMusic();
    void stopMusic();
    void freeMusic();

    /**
     * Plays the wave file at \a path without waiting, replacing a wave sound still playing.
     * A missing or unreadable file plays nothing and reports nothing.
     */
    void playWaveFile(const QString &path);

    /**
     * What openMusic() makes of the file at \a path (as found on disk) from its opening bytes,
     * without a sound device: SoundError::None when it looks playable.
     */
    static SoundError checkMusicFile(const QString &path);

    /**
     * Frames in one mixer buffer at \a frequency: a sound starts on the next buffer, so this
     * is the wait between a click and its sound.
     */
    static int bufferFrames(int frequency);

    /** The text for the error \a code, as the music errors are reported. */
    static QString soundErrorText(SoundError code);

    bool soundAvailable() const { return m_soundAvailable; }
    Mix_Music *musicHandle() const { return m_musicHandle; }
    bool musicIsStream() const { return m_musicIsStream; }
    bool musicPlaying() const { return m_musicPlaying; }

    /**
     * Whether the audio device is open now. It is closed while nothing sounds (its thread would
     * otherwise wake for every buffer of silence) and opened again by the next sound.
     */
    bool deviceOpen() const { return m_mixerOpen && !m_suspended; }

private:
    // How the device was opened, so that it opens the same way again.
    struct DeviceSettings {
        int frequency = 0;
        int channels = 0;
        bool muted = false;
    };
    bool openMixer(const EditorConfig &config);
    bool openWaveDevice();
    bool openDevice(const DeviceSettings &settings);
    bool wakeDevice();
    void suspendIfQuiet();
    void closeMixer();
    static void soundEnded();

    bool m_soundAvailable = false;
    Mix_Music *m_musicHandle = nullptr;
    bool m_musicIsStream = false;
    bool m_musicPlaying = false;

    bool m_mixerOpen = false;
    bool m_suspended = false; // the mixer stands open, its device closed
    DeviceSettings m_device;
    // Closing waits a little after the last sound: an author plays sounds again and again, and
    // opening the device anew costs a song its soundfont's set-up.
    QTimer m_quietTimer;
    Mix_Chunk *m_wave = nullptr;
};
