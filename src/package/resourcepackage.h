// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"
#include "package/packagewriter.h"

#include <QString>
#include <QStringList>

#include <optional>

class Dialogs;

/** Where a package is unpacked: the folder, and the same folder below the temporary folder. */
struct PackageLocation {
    QString folder;   // QDir::tempPath() + "/stakko/" + name + "/"
    QString tail;     // "stakko/" + name + "/"
};

/**
 * The package name of \a packagePath: the text before the first ".zip" (exact case), after the
 * last "/" or "\\" in front of it. A name that would be empty, "." or ".." gets a leading "_",
 * so every package has a folder of its own.
 */
QString packageName(const QString &packagePath);

/** The package folder for \a packagePath below \a base (the temporary folder when empty). */
PackageLocation packageLocationFor(const QString &packagePath, const QString &base = {});

struct ExtractOptions {
    qint64 maxBytes = 2LL << 30;   // all entries together; stops zip bombs
    bool unpack = true;            // false: a load only names the package folder
};

/**
 * Unpacks the zip archive at \a packagePath (a theme's name for it: "\\" separators and any
 * letter case are accepted) into its package folder, recreating stored sub-folders and
 * replacing files of the same name; nothing already there is ever deleted. Entries that would
 * land outside the package folder, and links, are skipped. Passwords are asked for through
 * \a dialogs, each answer tried on its own; an empty or cancelled answer stops the asking for
 * the rest of this call.
 *
 * The temporary folder is shared with other users: a "stakko" or package folder there that is
 * a link, not a folder, or another user's is never used; the package then goes below the
 * author's cache folder instead, and the author is told. What is created is owner-only.
 *
 * The report holds at most one error; every entry that could be unpacked stays unpacked, and
 * a file whose entry failed keeps its old content. A run stopped by the size cap removes
 * everything it wrote and leaves the old files as they were. The location is filled in every
 * case, so the caller can publish it even when nothing was unpacked.
 */
struct UnpackReport : Report {
    PackageLocation location;
};
UnpackReport extractResourcePackage(const QString &packagePath, Dialogs &dialogs,
                                    const ExtractOptions &options = {});

/**
 * The names of the files \a packagePath would unpack, "/"-separated as they land below the
 * package folder, read from the archive's directory without unpacking anything; nullopt when
 * it is no readable zip archive.
 */
std::optional<QStringList> packageEntryNames(const QString &packagePath);
