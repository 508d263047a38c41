#pragma once

#include <QString>
#include <QStringList>

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
 * Returns false and fills \a error when a file is outside \a root, cannot be read, or the
 * archive cannot be written; an existing archive at \a zipPath is then untouched.
 */
bool writeResourcePackage(const QString &zipPath, const QStringList &files, const QString &root,
                          QString *error = nullptr, const PackageWriteOptions &options = {});
