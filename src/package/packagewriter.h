// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

enum class PackageEncryption {
    None,
    Traditional,   // the old PKWARE scheme every unzip reads
    Aes256,
};

struct PackageWriteOptions {
    PackageEncryption encryption = PackageEncryption::None;
    QString password;   // required unless encryption is None
};

/**
 * Writes a zip archive (deflate) of \a files at \a zipPath, replacing it atomically. Each entry
 * is named by its file's path relative to \a root with "/" separators; relative paths in
 * \a files and \a root count from the current folder. Entries keep the given order and carry
 * a fixed date, so packing the same files again gives the same bytes (unless encrypted).
 *
 * Fails when a file is outside \a root (a link leading out of it counts), cannot be read, or the
 * archive cannot be written; an existing archive at \a zipPath is then untouched.
 */
Result<void> writeResourcePackage(const QString &zipPath, const QStringList &files, const QString &root,
                                  const PackageWriteOptions &options = {});

struct PackageEntry {
    QString name;   // as stored, "/" separators
    QString source; // the file it is read from
};

/**
 * Told after each entry how many of how many are written; false stops the writing, and the
 * archive at the target then stays as it was.
 */
using PackageProgress = std::function<bool(qsizetype done, qsizetype total)>;

/**
 * writeResourcePackage() with each entry's stored name given: entries in the given order, the
 * same fixed date, the same bytes for the same input. Fails when a name would unpack outside the
 * package folder (absolute, a drive letter, a ".." part, "\\" counting as "/"), a file cannot be
 * read, the archive cannot be written or \a progress stopped it.
 */
Result<void> writePackageEntries(const QString &zipPath, const QList<PackageEntry> &entries,
                                 const PackageProgress &progress = {}, const PackageWriteOptions &options = {});
