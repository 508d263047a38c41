// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/loadedlibrary.h"

#include <archive.h>
#include <archive_entry.h>

// Every function of libarchive that packages are read and written with.
#define STAKKO_ARCHIVE_FUNCTIONS(X)                                                                         \
    X(archive_error_string) X(archive_read_new) X(archive_read_free) X(archive_read_support_format_zip)     \
    X(archive_read_set_passphrase_callback) X(archive_read_open_filename) X(archive_read_next_header)       \
    X(archive_read_header_position) X(archive_read_data_block) X(archive_write_new) X(archive_write_free)   \
    X(archive_write_set_format_zip) X(archive_write_set_options) X(archive_write_set_bytes_in_last_block)  \
    X(archive_write_set_passphrase) X(archive_write_open) X(archive_write_header) X(archive_write_data)     \
    X(archive_write_close) X(archive_entry_new) X(archive_entry_free) X(archive_entry_pathname)            \
    X(archive_entry_pathname_utf8) X(archive_entry_set_pathname_utf8) X(archive_entry_size)                \
    X(archive_entry_size_is_set) X(archive_entry_set_size) X(archive_entry_set_perm)                       \
    X(archive_entry_set_mtime) X(archive_entry_filetype) X(archive_entry_set_filetype)                     \
    X(archive_entry_hardlink) X(archive_entry_is_encrypted)

/** libarchive, loaded when a package is first read or written. */
struct ArchiveLibrary {
    STAKKO_ARCHIVE_FUNCTIONS(STAKKO_LIBRARY_POINTER)
};

/** The loaded library, or why it cannot be loaded; loaded (or tried) once per run. */
const Result<ArchiveLibrary> &archiveLibrary();

/** The loaded library's functions: only once archiveLibrary() has loaded. */
inline const ArchiveLibrary &libarchive() { return archiveLibrary().value(); }
