#include "package/resourcepackage.h"

#include "document/ansitext.h"
#include "document/dialogs.h"
#include "document/pathlookup.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

namespace {

struct ArchiveReadDeleter {
    void operator()(archive *a) const { archive_read_free(a); }
};
struct ArchiveWriteDeleter {
    void operator()(archive *a) const { archive_write_free(a); }
};

const QString passwordPrompt = QStringLiteral("Please Enter The Password!");

QString sizeText(qint64 bytes)
{
    struct Unit {
        qint64 size;
        const char *name;
    };
    static constexpr Unit units[] = {{1LL << 30, "GiB"}, {1LL << 20, "MiB"}, {1LL << 10, "KiB"}};
    for (const Unit &unit : units) {
        if (bytes >= unit.size && bytes % unit.size == 0)
            return QStringLiteral("%1 %2").arg(bytes / unit.size).arg(QLatin1StringView(unit.name));
    }
    return QStringLiteral("%1 bytes").arg(bytes);
}

/**
 * The entry's place below the package folder as clean "/"-separated parts, or nothing when
 * the name (already with "/" only) points outside it: absolute names, drive letters, "..".
 */
std::optional<QStringList> safeParts(const QString &name)
{
    if (name.startsWith(u'/'))
        return std::nullopt;
    if (name.size() >= 2 && name.at(1) == u':' && name.at(0).isLetter())
        return std::nullopt;
    QStringList parts;
    for (const QString &part : name.split(u'/', Qt::SkipEmptyParts)) {
        if (part == u"..")
            return std::nullopt;
        if (part != u".")
            parts.append(part);
    }
    return parts;
}

QString entryName(archive_entry *entry)
{
    if (const char *utf8 = archive_entry_pathname_utf8(entry))
        return QString::fromUtf8(utf8);
    // Names without the UTF-8 mark come from Windows tools; take them as the theme's code page.
    if (const char *raw = archive_entry_pathname(entry))
        return AnsiText::decode(QByteArray(raw));
    return {};
}

bool replaceFile(const QString &from, const QString &to, QString *reason)
{
    std::error_code failure;
    std::filesystem::rename(std::filesystem::path(from.toStdU16String()),
                            std::filesystem::path(to.toStdU16String()), failure);
    if (failure)
        *reason = QString::fromLocal8Bit(failure.message());
    return !failure;
}

class Extraction
{
public:
    Extraction(Dialogs &dialogs, const ExtractOptions &options) : m_dialogs(dialogs), m_options(options) {}

    /** Unpacks \a archivePath below \a folder; returns why something was left out, or "". */
    QString run(const QString &archivePath, const QString &folder);

private:
    enum class Step { Next, Stop };

    static const char *askPassword(archive *, void *client);
    Step extractEntry(archive_entry *entry);
    Step extractFile(archive_entry *entry, const QString &name, const QString &target);
    enum class Outcome { Done, Failed, Stopped };
    Outcome copyData(const QString &name, bool encrypted);
    void note(const QString &reason);

    Dialogs &m_dialogs;
    const ExtractOptions &m_options;
    std::unique_ptr<archive, ArchiveReadDeleter> m_in;
    std::unique_ptr<archive, ArchiveWriteDeleter> m_out;
    QString m_folder;          // canonical, so no link in front of it trips the link check
    QString m_reason;
    qint64 m_written = 0;
    bool m_passwordRefused = false;
    QByteArray m_password;     // must outlive the callback's return
};

const char *Extraction::askPassword(archive *, void *client)
{
    auto *self = static_cast<Extraction *>(client);
    if (self->m_passwordRefused)
        return nullptr;
    const std::optional<QString> answer =
        self->m_dialogs.inputBox(passwordPrompt, QCoreApplication::applicationName());
    if (!answer || answer->isEmpty()) {
        self->m_passwordRefused = true;
        return nullptr;
    }
    if (!AnsiText::encode(*answer, &self->m_password))
        self->m_password = answer->toUtf8();
    return self->m_password.constData();
}

void Extraction::note(const QString &reason)
{
    if (m_reason.isEmpty())
        m_reason = reason;
}

QString Extraction::run(const QString &archivePath, const QString &folder)
{
    if (!QFileInfo(archivePath).isFile())
        return QStringLiteral("The file does not exist.");
    m_folder = QFileInfo(folder).canonicalFilePath();
    if (m_folder.isEmpty())
        return QStringLiteral("The folder %1 could not be created.").arg(QDir::toNativeSeparators(folder));

    m_in.reset(archive_read_new());
    archive_read_support_format_zip(m_in.get());
    archive_read_set_passphrase_callback(m_in.get(), this, askPassword);
    m_out.reset(archive_write_disk_new());
    // No SECURE_NOABSOLUTEPATHS: every target is absolute by construction, and entry names
    // that are absolute never get this far.
    archive_write_disk_set_options(m_out.get(), ARCHIVE_EXTRACT_TIME | ARCHIVE_EXTRACT_SECURE_NODOTDOT
                                                    | ARCHIVE_EXTRACT_SECURE_SYMLINKS);

    if (archive_read_open_filename(m_in.get(), QFile::encodeName(archivePath).constData(), 256 * 1024)
        != ARCHIVE_OK)
        return QStringLiteral("It is not a zip archive or it is damaged.");

    for (;;) {
        archive_entry *entry = nullptr;
        const int status = archive_read_next_header(m_in.get(), &entry);
        if (status == ARCHIVE_EOF)
            break;
        if (status == ARCHIVE_FATAL) {
            note(QStringLiteral("It is not a zip archive or it is damaged."));
            break;
        }
        if (status == ARCHIVE_FAILED) {
            note(QStringLiteral("It is damaged at %1.").arg(entryName(entry)));
            continue;
        }
        if (extractEntry(entry) == Step::Stop)
            break;
    }
    return m_reason;
}

Extraction::Step Extraction::extractEntry(archive_entry *entry)
{
    const QString name = entryName(entry).replace(u'\\', u'/');
    const std::optional<QStringList> parts = safeParts(name);
    if (!parts) {
        note(QStringLiteral("The entry %1 points outside the package folder and was skipped.").arg(name));
        return Step::Next;
    }
    if (parts->isEmpty())
        return Step::Next;
    const QString target = m_folder + u'/' + parts->join(u'/');
    const QString shownName = parts->join(u'/');

    const mode_t type = archive_entry_filetype(entry);
    if (archive_entry_hardlink(entry) || (type != AE_IFREG && type != AE_IFDIR)) {
        note(QStringLiteral("The entry %1 is a link or a special file and was skipped.").arg(shownName));
        return Step::Next;
    }
    if (type == AE_IFREG)
        return extractFile(entry, shownName, target);

    const QFileInfo existing(target);
    if (existing.exists() && (!existing.isDir() || existing.isSymLink())) {
        note(QStringLiteral("Could not write %1: a file of that name is in the way.").arg(shownName));
        return Step::Next;
    }
    archive_entry_copy_pathname(entry, QFile::encodeName(target).constData());
    archive_entry_set_perm(entry, 0755);
    if (archive_write_header(m_out.get(), entry) < ARCHIVE_WARN)
        note(QStringLiteral("Could not write %1: %2")
                 .arg(shownName, QString::fromLocal8Bit(archive_error_string(m_out.get()))));
    archive_write_finish_entry(m_out.get());
    return Step::Next;
}

Extraction::Step Extraction::extractFile(archive_entry *entry, const QString &name, const QString &target)
{
    // Written beside the target and renamed over it, so a failed entry leaves the old file.
    const qsizetype slash = target.lastIndexOf(u'/');
    const QString partial = target.left(slash + 1) + QStringLiteral(".~") + target.mid(slash + 1)
                            + QStringLiteral(".partial");
    const bool encrypted = archive_entry_is_encrypted(entry);

    archive_entry_copy_pathname(entry, QFile::encodeName(partial).constData());
    archive_entry_set_perm(entry, 0644);
    archive_entry_unset_size(entry);   // a lying size must not make the writer pad the file
    if (archive_write_header(m_out.get(), entry) < ARCHIVE_WARN) {
        note(QStringLiteral("Could not write %1: %2")
                 .arg(name, QString::fromLocal8Bit(archive_error_string(m_out.get()))));
        return Step::Next;
    }

    const Outcome outcome = copyData(name, encrypted);
    const bool closed = archive_write_finish_entry(m_out.get()) >= ARCHIVE_WARN;
    if (outcome == Outcome::Done) {
        QString failure = QString::fromLocal8Bit(archive_error_string(m_out.get()));
        if (closed && replaceFile(partial, target, &failure))
            return Step::Next;
        note(QStringLiteral("Could not write %1: %2").arg(name, failure));
    }
    QFile::remove(partial);
    return outcome == Outcome::Stopped ? Step::Stop : Step::Next;
}

Extraction::Outcome Extraction::copyData(const QString &name, bool encrypted)
{
    for (;;) {
        const void *block = nullptr;
        size_t size = 0;
        la_int64_t offset = 0;
        const int status = archive_read_data_block(m_in.get(), &block, &size, &offset);
        if (status == ARCHIVE_EOF)
            return Outcome::Done;
        // A checksum mismatch is only a warning to libarchive; for a theme it is a broken file.
        if (status != ARCHIVE_OK) {
            note(encrypted ? QStringLiteral("The password is wrong or missing for %1.").arg(name)
                           : QStringLiteral("It is damaged at %1.").arg(name));
            return Outcome::Failed;
        }
        if (qint64(size) > m_options.maxBytes - m_written) {
            m_reason = QStringLiteral("Extraction stopped: the package would write more than %1.")
                           .arg(sizeText(m_options.maxBytes));
            return Outcome::Stopped;
        }
        if (archive_write_data_block(m_out.get(), block, size, offset) < ARCHIVE_WARN) {
            note(QStringLiteral("Could not write %1: %2")
                     .arg(name, QString::fromLocal8Bit(archive_error_string(m_out.get()))));
            return Outcome::Failed;
        }
        m_written += qint64(size);
    }
}

} // namespace

PackageLocation packageLocationFor(const QString &packagePath)
{
    const qsizetype zip = packagePath.indexOf(QStringLiteral(".zip"));
    QString name;
    if (zip >= 0) {
        const QString front = packagePath.left(zip);
        name = front.mid(afterLastSeparator(front));
    }
    const QString tail = QStringLiteral("stakko/") + name + u'/';
    return {QDir::tempPath() + u'/' + tail, tail};
}

PackageLocation extractResourcePackage(const QString &packagePath, Dialogs &dialogs,
                                       const ExtractOptions &options)
{
    const PackageLocation location = packageLocationFor(packagePath);
    const QString temp = QDir::tempPath();
    QDir().mkdir(temp);
    QDir().mkdir(temp + QStringLiteral("/stakko"));
    QDir().mkdir(location.folder);

    Extraction extraction(dialogs, options);
    const QString reason = extraction.run(resolveThemePath(packagePath), location.folder);
    if (!reason.isEmpty())
        dialogs.error(QStringLiteral("Could not load resource file ") + packagePath + u'\n' + reason);
    return location;
}
