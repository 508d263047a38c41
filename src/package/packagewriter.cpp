// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/packagewriter.h"

#include "common/ansitext.h"
#include "common/pathlookup.h"
#include "common/safefile.h"
#include "package/archivelibrary.h"
#include "package/zipdirectory.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

struct ArchiveWriteDeleter {
    void operator()(archive *a) const { libarchive().archive_write_free(a); }
};
struct EntryDeleter {
    void operator()(archive_entry *e) const { libarchive().archive_entry_free(e); }
};

la_ssize_t writeToSafeFile(archive *, void *client, const void *buffer, size_t length)
{
    auto *out = static_cast<SafeFile *>(client);
    return out->write(static_cast<const char *>(buffer), qint64(length)) ? la_ssize_t(length) : -1;
}

// Zip dates are local time: midnight 2000-01-01 here gives the same stored date everywhere.
time_t fixedEntryTime()
{
    return time_t(QDateTime(QDate(2000, 1, 1), QTime(0, 0)).toSecsSinceEpoch());
}

/** A report holding the one error \a text: a failed Result of any kind. */
Report failure(const QString &text)
{
    Report report;
    report.error(text);
    return report;
}

Result<QList<PackageEntry>> collectFiles(const QStringList &files, const QString &root)
{
    QList<PackageEntry> out;
    const QDir rootDir(QFileInfo(root).absoluteFilePath());
    for (const QString &file : files) {
        const QFileInfo info(file);
        const QString name = rootDir.relativeFilePath(info.absoluteFilePath());
        if (name.isEmpty() || name == u"." || name == u".." || name.startsWith(u"../")
            || QDir::isAbsolutePath(name) || leadsOutOfFolder(rootDir.path(), name))
            return failure(QCoreApplication::translate("PackageWriter", "%1 is not inside the folder %2.")
                               .arg(file, QDir::toNativeSeparators(rootDir.path())));
        if (!info.isFile())
            return failure(QCoreApplication::translate("PackageWriter", "%1 is not a file that can be packed.").arg(file));
        out.append({name, info.absoluteFilePath()});
    }
    return out;
}

Result<void> setEncryption(archive *a, const PackageWriteOptions &options)
{
    if (options.encryption == PackageEncryption::None)
        return {};
    QByteArray password;
    if (options.password.isEmpty())
        return failure(QCoreApplication::translate("PackageWriter", "An encrypted package needs a password."));
    // The same code page the extractor uses for the answer to its password question.
    if (!AnsiText::encode(options.password, &password))
        return failure(QCoreApplication::translate("PackageWriter", "The password may only use Windows-1252 letters."));
    const char *setting = options.encryption == PackageEncryption::Aes256 ? "zip:encryption=aes256"
                                                                          : "zip:encryption=zipcrypt";
    if (libarchive().archive_write_set_options(a, setting) != ARCHIVE_OK
        || libarchive().archive_write_set_passphrase(a, password.constData()) != ARCHIVE_OK)
        return failure(QCoreApplication::translate("PackageWriter", "This system cannot encrypt packages: %1")
                           .arg(QString::fromLocal8Bit(libarchive().archive_error_string(a))));
    return {};
}

Result<void> addFile(archive *a, const PackageEntry &file, time_t mtime, QByteArray &buffer)
{
    QFile in(file.source);
    if (!in.open(QIODevice::ReadOnly))
        return failure(QCoreApplication::translate("PackageWriter", "Could not read %1: %2").arg(file.source, in.errorString()));

    std::unique_ptr<archive_entry, EntryDeleter> entry(libarchive().archive_entry_new());
    libarchive().archive_entry_set_pathname_utf8(entry.get(), file.name.toUtf8().constData());
    libarchive().archive_entry_set_filetype(entry.get(), AE_IFREG);
    libarchive().archive_entry_set_perm(entry.get(), 0644);
    libarchive().archive_entry_set_size(entry.get(), in.size());
    libarchive().archive_entry_set_mtime(entry.get(), mtime, 0);
    if (libarchive().archive_write_header(a, entry.get()) < ARCHIVE_WARN)
        return failure(QCoreApplication::translate("PackageWriter", "Could not add %1: %2")
                           .arg(file.name, QString::fromLocal8Bit(libarchive().archive_error_string(a))));

    qint64 total = 0;
    for (;;) {
        const qint64 got = in.read(buffer.data(), buffer.size());
        if (got < 0)
            return failure(QCoreApplication::translate("PackageWriter", "Could not read %1: %2").arg(file.source, in.errorString()));
        if (got == 0)
            break;
        if (libarchive().archive_write_data(a, buffer.constData(), size_t(got)) != got)
            return failure(QCoreApplication::translate("PackageWriter", "Could not add %1: %2")
                               .arg(file.name, QString::fromLocal8Bit(libarchive().archive_error_string(a))));
        total += got;
    }
    if (total != libarchive().archive_entry_size(entry.get()))
        return failure(QCoreApplication::translate("PackageWriter", "%1 changed while it was packed.").arg(file.source));
    return {};
}

} // namespace

Result<void> writeResourcePackage(const QString &zipPath, const QStringList &files, const QString &root,
                                  const PackageWriteOptions &options)
{
    Result<QList<PackageEntry>> packed = collectFiles(files, root);
    if (!packed)
        return packed.takeReport();
    return writePackageEntries(zipPath, *packed, {}, options);
}

Result<void> writePackageEntries(const QString &zipPath, const QList<PackageEntry> &packed,
                                 const PackageProgress &progress, const PackageWriteOptions &options)
{
    // Whatever asked for it, no entry may unpack outside the folder it is unpacked into.
    for (const PackageEntry &entry : packed) {
        const std::optional<QStringList> parts = entryNameParts(entry.name);
        if (!parts || parts->isEmpty())
            return failure(QCoreApplication::translate("PackageWriter", "%1 cannot be stored in a package: the name points outside the "
                                                                        "folder it unpacks into.")
                               .arg(entry.name));
    }
    if (const Result<ArchiveLibrary> &loaded = archiveLibrary(); !loaded)
        return failure(QCoreApplication::translate("PackageWriter", "Could not write %1: %2").arg(zipPath, loaded.errorText()));
    SafeFile out(zipPath);
    if (!out.open())
        return failure(QCoreApplication::translate("PackageWriter", "Could not write %1: %2").arg(zipPath, out.errorString()));
    // The system's reason for a failed write beats libarchive's generic one.
    const auto writeFailure = [&](archive *a) {
        const QString reason = out.errorString().isEmpty()
                                   ? QString::fromLocal8Bit(libarchive().archive_error_string(a))
                                   : out.errorString();
        return failure(QCoreApplication::translate("PackageWriter", "Could not write %1: %2").arg(zipPath, reason));
    };

    std::unique_ptr<archive, ArchiveWriteDeleter> zip(libarchive().archive_write_new());
    archive *a = zip.get();
    if (libarchive().archive_write_set_format_zip(a) != ARCHIVE_OK
        || libarchive().archive_write_set_options(a, "zip:compression=deflate,zip:hdrcharset=UTF-8") != ARCHIVE_OK
        || libarchive().archive_write_set_bytes_in_last_block(a, 1) != ARCHIVE_OK)
        return failure(QCoreApplication::translate("PackageWriter", "Could not set up the zip writer: %1")
                           .arg(QString::fromLocal8Bit(libarchive().archive_error_string(a))));
    if (Result<void> encrypting = setEncryption(a, options); !encrypting)
        return encrypting;
    if (libarchive().archive_write_open(a, &out, nullptr, writeToSafeFile, nullptr) != ARCHIVE_OK)
        return writeFailure(a);

    const time_t mtime = fixedEntryTime();
    // One buffer for every file: fresh pages for each would cost more than the reading.
    QByteArray buffer(256 * 1024, Qt::Uninitialized);
    for (qsizetype i = 0; i < packed.size(); ++i) {
        if (Result<void> added = addFile(a, packed.at(i), mtime, buffer); !added)
            return out.errorString().isEmpty() ? added : writeFailure(a);
        if (progress && !progress(i + 1, packed.size()))
            return failure(QCoreApplication::translate("PackageWriter", "Writing %1 was cancelled.").arg(zipPath));
    }
    if (libarchive().archive_write_close(a) != ARCHIVE_OK)
        return writeFailure(a);
    if (!out.commit())
        return failure(QCoreApplication::translate("PackageWriter", "Could not write %1: %2").arg(zipPath, out.errorString()));
    return {};
}
