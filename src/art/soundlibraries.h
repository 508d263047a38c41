// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/loadedlibrary.h"

#include <samplerate.h>
#include <sndfile.h>

// Every function of libsndfile and libsamplerate that imported sounds are converted with.
#define STAKKO_SNDFILE_FUNCTIONS(X)                                                                 \
    X(sf_open) X(sf_open_virtual) X(sf_close) X(sf_error) X(sf_strerror) X(sf_command)             \
    X(sf_readf_float) X(sf_writef_float)
#define STAKKO_SAMPLERATE_FUNCTIONS(X) X(src_simple) X(src_strerror)

/** libsndfile, loaded when a sound is first imported. */
struct SndfileLibrary {
    STAKKO_SNDFILE_FUNCTIONS(STAKKO_LIBRARY_POINTER)
};

/** libsamplerate, loaded when a sound is first imported. */
struct SamplerateLibrary {
    STAKKO_SAMPLERATE_FUNCTIONS(STAKKO_LIBRARY_POINTER)
};

/** The loaded libraries, or why they cannot be loaded; loaded (or tried) once per run. */
const Result<SndfileLibrary> &sndfileLibrary();
const Result<SamplerateLibrary> &samplerateLibrary();
