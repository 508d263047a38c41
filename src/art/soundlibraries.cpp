// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/soundlibraries.h"

#if !defined(STAKKO_SNDFILE_LIBRARY) || !defined(STAKKO_SAMPLERATE_LIBRARY)
#error "The build names the libraries it compiled against in STAKKO_SNDFILE_LIBRARY and STAKKO_SAMPLERATE_LIBRARY."
#endif

const Result<SndfileLibrary> &sndfileLibrary()
{
    STAKKO_LOAD_LIBRARY_ONCE(SndfileLibrary, STAKKO_SNDFILE_LIBRARY, STAKKO_SNDFILE_FUNCTIONS);
}

const Result<SamplerateLibrary> &samplerateLibrary()
{
    STAKKO_LOAD_LIBRARY_ONCE(SamplerateLibrary, STAKKO_SAMPLERATE_LIBRARY, STAKKO_SAMPLERATE_FUNCTIONS);
}
