// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/mixerlibrary.h"

#ifndef STAKKO_MIXER_LIBRARY
#error "The build names the mixer library it compiled against in STAKKO_MIXER_LIBRARY."
#endif

const Result<MixerLibrary> &mixerLibrary()
{
    STAKKO_LOAD_LIBRARY_ONCE(MixerLibrary, STAKKO_MIXER_LIBRARY, STAKKO_MIXER_FUNCTIONS);
}
