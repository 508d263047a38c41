// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/mixerlibrary.h"

#include <QLibrary>

#include <optional>

#ifndef STAKKO_MIXER_LIBRARY
#error "The build names the mixer library it compiled against in STAKKO_MIXER_LIBRARY."
#endif

namespace {

struct LoadedMixer {
    std::optional<MixerLibrary> functions;
    QString problem;
};

LoadedMixer loadMixer()
{
    LoadedMixer loaded;
    QLibrary library(QStringLiteral(STAKKO_MIXER_LIBRARY));
    // The mixer keeps threads and state for the whole run; unloading it would pull them away.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) {
        loaded.problem = library.errorString();
        return loaded;
    }
    MixerLibrary functions;
    QStringList missing;
#define STAKKO_MIXER_RESOLVE(name)                                                   \
    functions.name = reinterpret_cast<decltype(functions.name)>(library.resolve(#name)); \
    if (!functions.name)                                                             \
        missing.append(QStringLiteral(#name));
    STAKKO_MIXER_FUNCTIONS(STAKKO_MIXER_RESOLVE)
#undef STAKKO_MIXER_RESOLVE
    if (!missing.isEmpty()) {
        loaded.problem = QStringLiteral("%1 lacks %2").arg(library.fileName(), missing.join(QStringLiteral(", ")));
        return loaded;
    }
    loaded.functions = functions;
    return loaded;
}

} // namespace

const MixerLibrary *mixerLibrary(QString *why)
{
    static const LoadedMixer loaded = loadMixer();
    if (why)
        *why = loaded.problem;
    return loaded.functions ? &*loaded.functions : nullptr;
}
