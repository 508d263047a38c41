// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/mixerlibrary.h"

#include <QLibrary>

#ifndef STAKKO_MIXER_LIBRARY
#error "The build names the mixer library it compiled against in STAKKO_MIXER_LIBRARY."
#endif

namespace {

Result<MixerLibrary> loadMixer()
{
    QLibrary library(QStringLiteral(STAKKO_MIXER_LIBRARY));
    // The mixer keeps threads and state for the whole run; unloading it would pull them away.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load())
        return Result<MixerLibrary>::fail(library.errorString());
    MixerLibrary functions;
    QStringList missing;
#define STAKKO_MIXER_RESOLVE(name)                                                   \
    functions.name = reinterpret_cast<decltype(functions.name)>(library.resolve(#name)); \
    if (!functions.name)                                                             \
        missing.append(QStringLiteral(#name));
    STAKKO_MIXER_FUNCTIONS(STAKKO_MIXER_RESOLVE)
#undef STAKKO_MIXER_RESOLVE
    if (!missing.isEmpty())
        return Result<MixerLibrary>::fail(
            QStringLiteral("%1 lacks %2").arg(library.fileName(), missing.join(QStringLiteral(", "))));
    return functions;
}

} // namespace

const Result<MixerLibrary> &mixerLibrary()
{
    static const Result<MixerLibrary> loaded = loadMixer();
    return loaded;
}
