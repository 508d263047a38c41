#pragma once

#include "package/packagewriter.h"

#include <QString>

class Dialogs;

/** Where a package is unpacked: the folder, and the same folder below the temporary folder. */
struct PackageLocation {
    QString folder;   // QDir::tempPath() + "/stakko/" + name + "/"
    QString tail;     // "stakko/" + name + "/"
};

/**
 * The package folder for \a packagePath. The package name is the text before the first ".zip"
 * (exact case), after the last "/" or "\" in front of it; it is empty when there is no ".zip",
 * so such packages share the "stakko/" folder itself.
 */
PackageLocation packageLocationFor(const QString &packagePath);

struct ExtractOptions {
    qint64 maxBytes = 2LL << 30;   // all entries together; stops zip bombs
};

/**
 * Unpacks the zip archive at \a packagePath (a theme's name for it: "\" separators and any
 * letter case are accepted) into its package folder, recreating stored sub-folders and
 * replacing files of the same name; nothing already there is ever deleted. Entries that would
 * land outside the package folder, and links, are skipped. Passwords are asked for through
 * \a dialogs; an empty or cancelled answer stops the asking for the rest of this call.
 *
 * Problems are reported in at most one error message; every entry that could be unpacked
 * stays unpacked, and a file whose entry failed keeps its old content. The location is
 * returned in every case, so the caller can publish it even when nothing was unpacked.
 */
PackageLocation extractResourcePackage(const QString &packagePath, Dialogs &dialogs,
                                       const ExtractOptions &options = {});
