// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/archivelibrary.h"

#ifndef STAKKO_ARCHIVE_LIBRARY
#error "The build names the libarchive it compiled against in STAKKO_ARCHIVE_LIBRARY."
#endif

const Result<ArchiveLibrary> &archiveLibrary()
{
    STAKKO_LOAD_LIBRARY_ONCE(ArchiveLibrary, STAKKO_ARCHIVE_LIBRARY, STAKKO_ARCHIVE_FUNCTIONS);
}
