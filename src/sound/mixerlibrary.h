// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/loadedlibrary.h"

#include <SDL.h>
#include <SDL_mixer.h>

// Every function of SDL and its mixer that the sound system calls.
#define STAKKO_MIXER_FUNCTIONS(X)                                                                      \
    X(SDL_SetHint) X(SDL_ResetHint) X(SDL_InitSubSystem) X(SDL_QuitSubSystem) X(SDL_GetError)        \
    X(Mix_Init) X(Mix_Quit) X(Mix_SetSoundFonts) X(Mix_OpenAudioDevice) X(Mix_CloseAudio)            \
    X(Mix_AllocateChannels) X(Mix_ReserveChannels) X(Mix_Volume) X(Mix_VolumeMusic) X(Mix_LoadWAV)   \
    X(Mix_LoadMUS) X(Mix_FreeChunk) X(Mix_FreeMusic) X(Mix_PlayChannel) X(Mix_PlayMusic)             \
    X(Mix_HaltChannel) X(Mix_HaltMusic) X(Mix_Playing) X(Mix_PlayingMusic) X(Mix_ChannelFinished)     \
    X(Mix_HookMusicFinished)

/**
 * The mixer library, loaded when sound is first wanted: it brings dozens of codec and sound
 * server libraries along, which the command line never needs and the editor's window should
 * not wait for.
 */
struct MixerLibrary {
    STAKKO_MIXER_FUNCTIONS(STAKKO_LIBRARY_POINTER)
};

/** The loaded library, or why it cannot be loaded; loaded (or tried) once per run. */
const Result<MixerLibrary> &mixerLibrary();
