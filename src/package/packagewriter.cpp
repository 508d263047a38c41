// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/packagewriter.h"

#include "common/ansitext.h"
#include "common/pathlookup.h"
#include "common/safefile.h"
#include "package/zipdirectory.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace {

struct ArchiveWriteDeleter {
    void operator()(archive *a) const { archive_write_free(a); }
};
struct EntryDeleter {
    void operator()(archive_entry *e) const { archive_entry_free(e); }
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

bool fail(QString *error, const QString &text)
{
    if (error)
        *error = text;
    return false;
}

bool collectFiles(const QStringList &files, const QString &root, QList<PackageEntry> *out,
                  QString *error)
{
    const QDir rootDir(QFileInfo(root).absoluteFilePath());
    for (const QString &file : files) {
        const QFileInfo info(file);
        const QString name = rootDir.relativeFilePath(info.absoluteFilePath());
        if (name.isEmpty() || name == u"." || name == u".." || name.startsWith(u"../")
            || QDir::isAbsolutePath(name) || leadsOutOfFolder(rootDir.path(), name))
            return fail(error, QStringLiteral("%1 is not inside the folder %2.")
                                   .arg(file, QDir::toNativeSeparators(rootDir.path())));
        if (!info.isFile())
            return fail(error, QStringLiteral("%1 is not a file that can be packed.").arg(file));
        out->append({name, info.absoluteFilePath()});
    }
    return true;
}

bool setEncryption(archive *a, const PackageWriteOptions &options, QString *error)
{
    if (options.encryption == PackageEncryption::None)
        return true;
    QByteArray password;
    if (options.password.isEmpty())
        return fail(error, QStringLiteral("An encrypted package needs a password."));
    // The same code page the extractor uses for the answer to its password question.
    if (!AnsiText::encode(options.password, &password))
        return fail(error, QStringLiteral("The password may only use Windows-1252 letters."));
    const char *setting = options.encryption == PackageEncryption::Aes256 ? "zip:encryption=aes256"
                                                                          : "zip:encryption=zipcrypt";
    if (archive_write_set_options(a, setting) != ARCHIVE_OK
        || archive_write_set_passphrase(a, password.constData()) != ARCHIVE_OK)
        return fail(error, QStringLiteral("This system cannot encrypt packages: %1")
                               .arg(QString::fromLocal8Bit(archive_error_string(a))));
    return true;
}

bool addFile(archive *a, const PackageEntry &file, time_t mtime, QByteArray &buffer, QString *error)
{
    QFile in(file.source);
    if (!in.open(QIODevice::ReadOnly))
        return fail(error, QStringLiteral("Could not read %1: %2").arg(file.source, in.errorString()));

    std::unique_ptr<archive_entry, EntryDeleter> entry(archive_entry_new());
    archive_entry_set_pathname_utf8(entry.get(), file.name.toUtf8().constData());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_size(entry.get(), in.size());
    archive_entry_set_mtime(entry.get(), mtime, 0);
    if (archive_write_header(a, entry.get()) < ARCHIVE_WARN)
        return fail(error, QStringLiteral("Could not add %1: %2")
                               .arg(file.name, QString::fromLocal8Bit(archive_error_string(a))));

    qint64 total = 0;
    for (;;) {
        const qint64 got = in.read(buffer.data(), buffer.size());
        if (got < 0)
            return fail(error, QStringLiteral("Could not read %1: %2").arg(file.source, in.errorString()));
        if (got == 0)
            break;
        if (archive_write_data(a, buffer.constData(), size_t(got)) != got)
            return fail(error, QStringLiteral("Could not add %1: %2")
                                   .arg(file.name, QString::fromLocal8Bit(archive_error_string(a))));
        total += got;
    }
    if (total != archive_entry_size(entry.get()))
        return fail(error, QStringLiteral("%1 changed while it was packed.").arg(file.source));
    return true;
}

} // namespace

bool writeResourcePackage(const QString &zipPath, const QStringList &files, const QString &root,
                          QString *error, const PackageWriteOptions &options)
{
    QList<PackageEntry> packed;
    return collectFiles(files, root, &packed, error) && writePackageEntries(zipPath, packed, error, {}, options);
}

bool writePackageEntries(const QString &zipPath, const QList<PackageEntry> &packed, QString *error,
                         const PackageProgress &progress, const PackageWriteOptions &options)
{
    // Whatever asked for it, no entry may unpack outside the folder it is unpacked into.
    for (const PackageEntry &entry : packed) {
        const std::optional<QStringList> parts = entryNameParts(entry.name);
        if (!parts || parts->isEmpty())
            return fail(error, QStringLiteral("%1 cannot be stored in a package: the name points outside the "
                                              "folder it unpacks into.")
                                   .arg(entry.name));
    }
    SafeFile out(zipPath);
    if (!out.open())
        return fail(error, QStringLiteral("Could not write %1: %2").arg(zipPath, out.errorString()));
    // The system's reason for a failed write beats libarchive's generic one.
    const auto writeFailure = [&](archive *a) {
        const QString reason = out.errorString().isEmpty()
                                   ? QString::fromLocal8Bit(archive_error_string(a))
                                   : out.errorString();
        return fail(error, QStringLiteral("Could not write %1: %2").arg(zipPath, reason));
    };

    std::unique_ptr<archive, ArchiveWriteDeleter> zip(archive_write_new());
    archive *a = zip.get();
    if (archive_write_set_format_zip(a) != ARCHIVE_OK
        || archive_write_set_options(a, "zip:compression=deflate,zip:hdrcharset=UTF-8") != ARCHIVE_OK
        || archive_write_set_bytes_in_last_block(a, 1) != ARCHIVE_OK)
        return fail(error, QStringLiteral("Could not set up the zip writer: %1")
                               .arg(QString::fromLocal8Bit(archive_error_string(a))));
    if (!setEncryption(a, options, error))
        return false;
    if (archive_write_open(a, &out, nullptr, writeToSafeFile, nullptr) != ARCHIVE_OK)
        return writeFailure(a);

    const time_t mtime = fixedEntryTime();
    // One buffer for every file: fresh pages for each would cost more than the reading.
    QByteArray buffer(256 * 1024, Qt::Uninitialized);
    for (qsizetype i = 0; i < packed.size(); ++i) {
        if (!addFile(a, packed.at(i), mtime, buffer, error))
            return out.errorString().isEmpty() ? false : writeFailure(a);
        if (progress && !progress(i + 1, packed.size()))
            return fail(error, QStringLiteral("Writing %1 was cancelled.").arg(zipPath));
    }
    if (archive_write_close(a) != ARCHIVE_OK)
        return writeFailure(a);
    if (!out.commit())
        return fail(error, QStringLiteral("Could not write %1: %2").arg(zipPath, out.errorString()));
    return true;
}
