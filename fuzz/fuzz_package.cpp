// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Resource package bytes through the unpacker: whatever the archive holds, nothing may land
// outside the package folder, no link may be made and no more than the cap may be written.

#include "fuzzsupport.h"
#include "scratchfolder.h"
#include "silentdialogs.h"

#include "package/resourcepackage.h"

#include <QFile>

#include <filesystem>
#include <system_error>

namespace {

// Low enough that a bomb costs the fuzzer little time and disk.
constexpr qint64 maxBytes = 4 << 20;

const QString zipName = QStringLiteral("package.zip");

// The call under test, in one place.
PackageLocation extract(const QString &zip)
{
    SilentDialogs dialogs;
    ExtractOptions options;
    options.maxBytes = maxBytes;
    return extractResourcePackage(zip, dialogs, options).location;
}

QString shown(const std::filesystem::path &path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

/**
 * Walks the scratch folder without following links. Allowed: the package file, the "stakko"
 * folder and, below the package folder, plain folders and files. Returns the first thing
 * that is not, or "".
 */
QString firstStray(const std::filesystem::path &root, const std::filesystem::path &package)
{
    namespace fs = std::filesystem;
    std::error_code failure;
    qint64 unpacked = 0;
    for (fs::recursive_directory_iterator entry(root, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const fs::file_status status = entry->symlink_status(failure);
        if (failure)
            break;
        const fs::path relative = entry->path().lexically_relative(root);
        if (fs::is_symlink(status))
            return QStringLiteral("a link was made: ") + shown(relative);
        if (!fs::is_regular_file(status) && !fs::is_directory(status))
            return QStringLiteral("a special file was made: ") + shown(relative);
        if (relative == zipName.toStdString() || relative == "stakko")
            continue;
        const fs::path inPackage = relative.lexically_relative(package);
        if (inPackage.empty() || *inPackage.begin() == "..")
            return QStringLiteral("written outside the package folder: ") + shown(relative);
        if (fs::is_regular_file(status))
            unpacked += qint64(fs::file_size(entry->path(), failure));
    }
    if (failure)
        return QStringLiteral("the scratch folder could not be walked: ")
               + QString::fromStdString(failure.message());
    if (unpacked > maxBytes)
        return QStringLiteral("%1 bytes unpacked, above the cap of %2").arg(unpacked).arg(maxBytes);
    return QString();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString zip = freshInput(zipName, data, size);
    const PackageLocation location = extract(zip);

    const QString tail = QStringLiteral("stakko/package/");
    require(location.tail == tail && location.folder == scratch().path() + u'/' + tail,
            QStringLiteral("unexpected package folder ") + location.folder);
    const std::filesystem::path root(QFile::encodeName(scratch().path()).toStdString());
    const QString stray = firstStray(root, std::filesystem::path("stakko/package"));
    require(stray.isEmpty(), stray);
    return 0;
}
