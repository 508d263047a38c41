// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/loadedlibrary.h"

LibraryLoader::LibraryLoader(const char *soname)
    : m_library(QString::fromLatin1(soname))
{
    // Its threads and state stay for the whole run: unloading would pull them away.
    m_library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!m_library.load())
        m_loadError = m_library.errorString();
}

QString LibraryLoader::failure() const
{
    if (!m_loadError.isEmpty())
        return m_loadError;
    if (!m_missing.isEmpty())
        return QStringLiteral("%1 lacks %2").arg(m_library.fileName(), m_missing.join(QStringLiteral(", ")));
    return {};
}
