// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "package/resourcepackage.h"

#include "common/ansitext.h"
#include "common/dialogs.h"
#include "common/pathlookup.h"
#include "common/platform.h"
#include "common/safefile.h"
#include "package/archivelibrary.h"
#include "package/deflate64.h"
#include "package/zipdirectory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace {

struct ArchiveReadDeleter {
    void operator()(archive *a) const { libarchive().archive_read_free(a); }
};

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
    return QCoreApplication::translate("ResourcePackage", "%1 bytes").arg(bytes);
}

/** The name of an entry the archive's directory does not list, as libarchive read it. */
QString entryName(archive_entry *entry)
{
    if (const char *utf8 = libarchive().archive_entry_pathname_utf8(entry))
        return QString::fromUtf8(utf8);
    // Names without the UTF-8 mark come from Windows tools; take them as the theme's code page.
    if (const char *raw = libarchive().archive_entry_pathname(entry))
        return AnsiText::decode(QByteArray(raw));
    return {};
}

constexpr quint16 deflate64Method = 9;
constexpr quint16 encryptedFlag = 1;

quint32 updateCrc32(quint32 crc, const char *data, qint64 size)
{
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> t {};
        for (quint32 n = 0; n < 256; ++n) {
            quint32 c = n;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            t[n] = c;
        }
        return t;
    }();
    crc = ~crc;
    for (qint64 i = 0; i < size; ++i)
        crc = table[(crc ^ quint8(data[i])) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

using Platform::Descriptor;
using Folder = Descriptor;

/** Where packages go when the shared temporary folder cannot be used: the author's own cache. */
QString privateBase()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    if (cache.isEmpty())
        return {};
    const QString base = cache + QStringLiteral("/stakko-theme-maker");
    if (!QDir().mkpath(base))
        return {};
    QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return base;
}

struct OpenedPackageFolder {
    PackageLocation location;
    Folder folder;
    QString notice;   // why the shared place was passed over, or ""
    QString problem;  // why no place could be used, or ""
};

OpenedPackageFolder openPackageFolder(const QString &packagePath)
{
    OpenedPackageFolder opened;
    const QString name = packageName(packagePath);
    QStringList refused;
    const auto refuse = [&refused](const QString &path, const QString &why) {
        refused.append(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), why));
    };
    for (const bool shared : {true, false}) {
        // The private place is made only when it is needed.
        const QString base = shared ? QDir::tempPath() : privateBase();
        if (base.isEmpty()) {
            // Qt gives no temporary folder when $TMPDIR names none.
            if (shared)
                refuse(qEnvironmentVariable("TMPDIR"), QCoreApplication::translate("ResourcePackage", "no such folder"));
            continue;
        }
        opened.location = packageLocationFor(packagePath, base);
        QDir().mkpath(base);
        const Result<Folder> baseFolder = Platform::openFolder(base);
        if (!baseFolder) {
            refuse(base, baseFolder.errorText());
            continue;
        }
        const Result<Platform::OwnFolder> stakko = Platform::openOwnFolder(baseFolder->fd(), "stakko");
        if (!stakko) {
            refuse(base + QStringLiteral("/stakko"), stakko.errorText());
            continue;
        }
        Result<Platform::OwnFolder> own = Platform::openOwnFolder(stakko->folder.fd(), QFile::encodeName(name));
        if (!own) {
            refuse(opened.location.folder, own.errorText());
            continue;
        }
        opened.folder = std::move(own->folder);
        if (!refused.isEmpty())
            opened.notice = QCoreApplication::translate("ResourcePackage", "The shared folder cannot be used safely (%1), so the package "
                                                                           "is unpacked in %2 instead.")
                                .arg(refused.join(QStringLiteral("; ")),
                                     QDir::toNativeSeparators(opened.location.folder));
        return opened;
    }
    opened.location = packageLocationFor(packagePath);
    opened.problem = QCoreApplication::translate("ResourcePackage", "No safe folder to unpack it into (%1).").arg(refused.join(QStringLiteral("; ")));
    return opened;
}

/**
 * Where one entry's bytes go. While they match the file already unpacked under that name, that
 * file is only read: unpacking a package again writes just what changed, and the disk need not
 * find room and inodes for hundreds of identical frames. A file kept this way is exactly what a
 * fresh unpack would leave: a plain file of ours, mode 0600, with these bytes.
 */
class EntryOutput
{
public:
    EntryOutput(int folder, const QByteArray &name, bool mayKeepOld) : m_folder(folder), m_name(name)
    {
        if (!mayKeepOld)
            return;
        if (std::optional<Platform::OwnFile> old = Platform::openOwnPlainFile(folder, name)) {
            m_old = std::move(old->file);
            m_oldSize = old->size;
        }
    }

    bool add(const char *data, qint64 size)
    {
        if (m_old.isOpen()) {
            if (size <= m_oldSize - m_matched && oldHolds(data, size)) {
                m_matched += size;
                return true;
            }
            if (!startWriting())
                return false;
        }
        if (!m_file && !startWriting())
            return false;
        return m_file->write(data, size) || fail(m_file->errorString());
    }

    /** Whether the bytes are whole on disk: in the old file, or in a new one set aside to publish. */
    bool finish()
    {
        if (m_old.isOpen() && m_matched == m_oldSize)
            return true;
        if (!m_file && !startWriting())
            return false;
        return m_file->finishAside() || fail(m_file->errorString());
    }

    /** The new file to publish; none when the old one already held these bytes. */
    std::unique_ptr<SafeFile> takeFile() { return std::move(m_file); }
    QString errorString() const { return m_error; }

private:
    bool fail(const QString &error)
    {
        m_error = error;
        return false;
    }

    bool readOld(qint64 offset, qint64 size)
    {
        m_buffer.resize(size);
        const Result<void> read = Platform::readAt(m_old.fd(), m_buffer.data(), size, offset);
        return read || fail(read.errorText());
    }

    bool oldHolds(const char *data, qint64 size)
    {
        return readOld(m_matched, size) && std::memcmp(m_buffer.constData(), data, size_t(size)) == 0;
    }

    /** Opens the new file, holding the bytes that matched so far, taken from the old one. */
    bool startWriting()
    {
        m_file = std::make_unique<SafeFile>(m_folder, m_name, 0600);
        if (!m_file->open())
            return fail(m_file->errorString());
        for (qint64 done = 0; done < m_matched;) {
            const qint64 step = std::min<qint64>(m_matched - done, 256 * 1024);
            if (!readOld(done, step))
                return false;
            if (!m_file->write(m_buffer.constData(), step))
                return fail(m_file->errorString());
            done += step;
        }
        m_old = {};
        return true;
    }

    int m_folder;
    QByteArray m_name;
    Descriptor m_old;      // open while every byte so far matches it
    qint64 m_oldSize = 0;
    qint64 m_matched = 0;
    std::unique_ptr<SafeFile> m_file;
    QByteArray m_buffer;
    QString m_error;
};

class Extraction
{
public:
    Extraction(Dialogs &dialogs, const ExtractOptions &options) : m_dialogs(dialogs), m_options(options) {}

    /** Unpacks \a archivePath into \a folder; returns why something was left out, or "". */
    QString run(const QString &archivePath, int folder);

private:
    enum class Step { Next, Stop };
    enum class Outcome { Done, Failed, Stopped };

    static const char *askPassword(archive *, void *client);
    Step extractEntry(archive_entry *entry);
    Step extractFile(archive_entry *entry, const QStringList &parts, const ZipRecord *record);
    Outcome copyData(EntryOutput &out, const QString &name, bool encrypted);
    Outcome copyDeflate64(EntryOutput &out, const QString &name, const ZipRecord &record);
    /** The directory's record of the entry libarchive has just read, if it lists one. */
    const ZipRecord *currentRecord();
    bool fitsUnderCap(qint64 size);
    /** The folder of \a parts below the package folder, made when missing; -1 after a note. */
    int folderFor(const QStringList &parts, const QString &shownName);
    void finish(bool stopped);
    void note(const QString &reason);

    Dialogs &m_dialogs;
    const ExtractOptions &m_options;
    std::unique_ptr<archive, ArchiveReadDeleter> m_in;
    // The archive as Info-ZIP reads it: its directory for names and sizes, its bytes for Deflate64.
    QFile m_file;
    std::map<quint64, ZipRecord> m_records;   // by local header offset
    int m_root = -1;
    std::map<QString, Folder> m_folders;                        // by "/"-joined parts
    std::vector<std::pair<int, QByteArray>> m_createdFolders;   // parent, name: undone on a stop
    // Files land only when the run was not stopped, so a stopped run leaves the old files as they were.
    std::vector<std::pair<std::unique_ptr<SafeFile>, QString>> m_pending;
    std::set<QString> m_pendingNames;
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
        self->m_dialogs.inputBox(QCoreApplication::translate("ResourcePackage", "Please Enter The Password!"), QCoreApplication::applicationName());
    if (!answer || answer->isEmpty()) {
        self->m_passwordRefused = true;
        return nullptr;
    }
    // Each answer stands alone: a typo must not stick to the next try.
    self->m_password.clear();
    if (!AnsiText::encode(*answer, &self->m_password))
        self->m_password = answer->toUtf8();
    return self->m_password.constData();
}

void Extraction::note(const QString &reason)
{
    if (m_reason.isEmpty())
        m_reason = reason;
}

QString Extraction::run(const QString &archivePath, int folder)
{
    if (!QFileInfo(archivePath).isFile())
        return QCoreApplication::translate("ResourcePackage", "The file does not exist.");
    if (const Result<ArchiveLibrary> &loaded = archiveLibrary(); !loaded)
        return loaded.errorText();
    m_root = folder;
    m_file.setFileName(archivePath);
    if (m_file.open(QIODevice::ReadOnly)) {
        for (const ZipRecord &record : readZipDirectory(m_file).value_or(QList<ZipRecord>()))
            m_records.emplace(record.localHeaderOffset, record);
    }

    m_in.reset(libarchive().archive_read_new());
    libarchive().archive_read_support_format_zip(m_in.get());
    libarchive().archive_read_set_passphrase_callback(m_in.get(), this, askPassword);
    if (libarchive().archive_read_open_filename(m_in.get(), QFile::encodeName(archivePath).constData(), 256 * 1024)
        != ARCHIVE_OK)
        return QCoreApplication::translate("ResourcePackage", "It is not a zip archive or it is damaged.");

    Step step = Step::Next;
    while (step == Step::Next) {
        archive_entry *entry = nullptr;
        const int status = libarchive().archive_read_next_header(m_in.get(), &entry);
        if (status == ARCHIVE_EOF)
            break;
        if (status == ARCHIVE_FATAL) {
            note(QCoreApplication::translate("ResourcePackage", "It is not a zip archive or it is damaged."));
            break;
        }
        if (status == ARCHIVE_FAILED) {
            note(QCoreApplication::translate("ResourcePackage", "It is damaged at %1.").arg(entryName(entry)));
            continue;
        }
        step = extractEntry(entry);
    }
    finish(step == Step::Stop);
    return m_reason;
}

void Extraction::finish(bool stopped)
{
    if (stopped) {
        m_pending.clear();   // each removes its unpublished file
        // Innermost first, while the descriptors of their parents are still open.
        for (auto it = m_createdFolders.rbegin(); it != m_createdFolders.rend(); ++it)
            Platform::removeEmptyFolder(it->first, it->second);
        return;
    }
    for (auto &[file, name] : m_pending) {
        if (!file->publish())
            note(QCoreApplication::translate("ResourcePackage", "Could not write %1: %2").arg(name, file->errorString()));
    }
    m_pending.clear();
}

int Extraction::folderFor(const QStringList &parts, const QString &shownName)
{
    int parent = m_root;
    QString key;
    for (const QString &part : parts) {
        key += u'/' + part;
        auto found = m_folders.find(key);
        if (found == m_folders.end()) {
            const QByteArray name = QFile::encodeName(part);
            Result<Platform::OwnFolder> own = Platform::openOwnFolder(parent, name);
            if (!own) {
                note(QCoreApplication::translate("ResourcePackage", "Could not write %1: %2 is in the way (%3).")
                         .arg(shownName, key.mid(1), own.errorText()));
                return -1;
            }
            if (own->created)
                m_createdFolders.emplace_back(parent, name);
            found = m_folders.emplace(key, std::move(own->folder)).first;
        }
        parent = found->second.fd();
    }
    return parent;
}

const ZipRecord *Extraction::currentRecord()
{
    // libarchive reads the first local header at or after this position.
    const la_int64_t position = libarchive().archive_read_header_position(m_in.get());
    const auto found = m_records.lower_bound(quint64(std::max<la_int64_t>(position, 0)));
    if (found == m_records.end())
        return nullptr;
    const qint64 gap = qint64(found->first) - position;
    if (gap > 0) {
        if (gap > 1024 * 1024 || !m_file.seek(position))
            return nullptr;
        if (m_file.read(gap + 4).indexOf(QByteArrayLiteral("PK\x03\x04")) != gap)
            return nullptr;
    }
    return &found->second;
}

Extraction::Step Extraction::extractEntry(archive_entry *entry)
{
    const ZipRecord *record = currentRecord();
    const QString name = (record ? record->text() : entryName(entry)).replace(u'\\', u'/');
    const std::optional<QStringList> parts = entryNameParts(name);
    if (!parts) {
        note(QCoreApplication::translate("ResourcePackage", "The entry %1 points outside the package folder and was skipped.").arg(name));
        return Step::Next;
    }
    if (parts->isEmpty())
        return Step::Next;

    const mode_t type = libarchive().archive_entry_filetype(entry);
    if (libarchive().archive_entry_hardlink(entry) || (type != AE_IFREG && type != AE_IFDIR)) {
        note(QCoreApplication::translate("ResourcePackage", "The entry %1 is a link or a special file and was skipped.")
                 .arg(parts->join(u'/')));
        return Step::Next;
    }
    if (type == AE_IFREG)
        return extractFile(entry, *parts, record);
    folderFor(*parts, parts->join(u'/'));
    return Step::Next;
}

Extraction::Step Extraction::extractFile(archive_entry *entry, const QStringList &parts, const ZipRecord *record)
{
    const QString shownName = parts.join(u'/');
    const int folder = folderFor(parts.mid(0, parts.size() - 1), shownName);
    if (folder < 0)
        return Step::Next;
    // A name met twice is written each time, so the last entry wins.
    EntryOutput out(folder, QFile::encodeName(parts.last()), !m_pendingNames.contains(shownName));
    // libarchive 3.6 calls an empty LZMA entry damaged; an entry of no bytes has nothing to read.
    const bool empty = libarchive().archive_entry_size_is_set(entry) && libarchive().archive_entry_size(entry) == 0;
    const bool deflate64 = record && record->method == deflate64Method;
    const Outcome outcome = empty       ? Outcome::Done
                            : deflate64 ? copyDeflate64(out, shownName, *record)
                                        : copyData(out, shownName, libarchive().archive_entry_is_encrypted(entry));
    if (outcome == Outcome::Stopped)
        return Step::Stop;
    if (outcome == Outcome::Failed)
        return Step::Next;
    if (!out.finish()) {
        note(QCoreApplication::translate("ResourcePackage", "Could not write %1: %2").arg(shownName, out.errorString()));
        return Step::Next;
    }
    std::unique_ptr<SafeFile> file = out.takeFile();
    if (!file)
        return Step::Next;
    m_pendingNames.insert(shownName);
    m_pending.emplace_back(std::move(file), shownName);
    return Step::Next;
}

Extraction::Outcome Extraction::copyData(EntryOutput &out, const QString &name, bool encrypted)
{
    for (;;) {
        const void *block = nullptr;
        size_t size = 0;
        la_int64_t offset = 0;
        const int status = libarchive().archive_read_data_block(m_in.get(), &block, &size, &offset);
        if (status == ARCHIVE_EOF)
            return Outcome::Done;
        // A checksum mismatch is only a warning to libarchive; for a theme it is a broken file.
        if (status != ARCHIVE_OK) {
            note(encrypted ? QCoreApplication::translate("ResourcePackage", "The password is wrong or missing for %1.").arg(name)
                           : QCoreApplication::translate("ResourcePackage", "It is damaged at %1.").arg(name));
            return Outcome::Failed;
        }
        if (!fitsUnderCap(qint64(size)))
            return Outcome::Stopped;
        if (!out.add(static_cast<const char *>(block), qint64(size))) {
            note(QCoreApplication::translate("ResourcePackage", "Could not write %1: %2").arg(name, out.errorString()));
            return Outcome::Failed;
        }
        m_written += qint64(size);
    }
}

bool Extraction::fitsUnderCap(qint64 size)
{
    if (size <= m_options.maxBytes - m_written)
        return true;
    m_reason = QCoreApplication::translate("ResourcePackage", "Extraction stopped: the package would write more than %1.").arg(sizeText(m_options.maxBytes));
    return false;
}

// libarchive has no Deflate64: the entry's bytes are read from the file and inflated here.
Extraction::Outcome Extraction::copyDeflate64(EntryOutput &out, const QString &name, const ZipRecord &record)
{
    if (record.flags & encryptedFlag) {
        note(QCoreApplication::translate("ResourcePackage", "%1 is encrypted and compressed with Deflate64, which cannot be unpacked here.").arg(name));
        return Outcome::Failed;
    }
    const QString damaged = QCoreApplication::translate("ResourcePackage", "It is damaged at %1.").arg(name);
    const std::optional<quint64> start = zipDataOffset(m_file, record);
    if (!start || !m_file.seek(qint64(*start))) {
        note(damaged);
        return Outcome::Failed;
    }
    quint64 left = record.compressedSize;
    const ByteSource in = [&](char *buffer, qint64 size) {
        const qint64 got = m_file.read(buffer, qint64(std::min<quint64>(quint64(size), left)));
        left -= quint64(std::max<qint64>(got, 0));
        return got;
    };
    quint32 crc = 0;
    quint64 total = 0;
    bool capped = false;
    bool writeFailed = false;
    const ByteSink sink = [&](const char *data, qint64 size) {
        if (!fitsUnderCap(size)) {
            capped = true;
            return false;
        }
        if (!out.add(data, size)) {
            writeFailed = true;
            return false;
        }
        m_written += size;
        total += quint64(size);
        crc = updateCrc32(crc, data, size);
        return true;
    };
    const InflateOutcome outcome = inflateDeflate64(in, sink);
    if (capped)
        return Outcome::Stopped;
    if (writeFailed) {
        note(QCoreApplication::translate("ResourcePackage", "Could not write %1: %2").arg(name, out.errorString()));
        return Outcome::Failed;
    }
    // Info-ZIP checks both as well.
    if (outcome != InflateOutcome::Done || crc != record.crc || total != record.size) {
        note(damaged);
        return Outcome::Failed;
    }
    return Outcome::Done;
}

} // namespace

QString packageName(const QString &packagePath)
{
    const qsizetype zip = packagePath.indexOf(QStringLiteral(".zip"));
    QString name;
    if (zip >= 0) {
        const QString front = packagePath.left(zip);
        name = front.mid(afterLastSeparator(front));
    }
    // These would name the shared folder itself or the one above it.
    if (name.isEmpty() || name == u"." || name == u"..")
        name.prepend(u'_');
    return name;
}

PackageLocation packageLocationFor(const QString &packagePath, const QString &base)
{
    const QString tail = QStringLiteral("stakko/") + packageName(packagePath) + u'/';
    return {(base.isEmpty() ? QDir::tempPath() : base) + u'/' + tail, tail};
}

UnpackReport extractResourcePackage(const QString &packagePath, Dialogs &dialogs, const ExtractOptions &options)
{
    UnpackReport report;
    OpenedPackageFolder opened = openPackageFolder(packagePath);
    report.location = opened.location;
    QString reason = opened.problem;
    if (reason.isEmpty()) {
        if (!opened.notice.isEmpty())
            report.information(opened.notice, {}, packagePath);
        Extraction extraction(dialogs, options);
        reason = extraction.run(resolveThemePath(packagePath), opened.folder.fd());
    }
    if (!reason.isEmpty()) {
        const bool missing = !QFileInfo(resolveThemePath(packagePath)).isFile();
        const QString text = QCoreApplication::translate("ResourcePackage", "Could not load resource file %1\n%2").arg(packagePath, reason);
        report.add({Problem::Severity::Error, text, {}, packagePath,
                    missing ? QStringLiteral("package-missing") : QStringLiteral("package-unreadable"), {}});
    }
    return report;
}

std::optional<QStringList> packageEntryNames(const QString &packagePath)
{
    // The central directory alone: no entry is read, so encrypted ones need no password.
    QFile file(resolveThemePath(packagePath));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const std::optional<QList<ZipRecord>> records = readZipDirectory(file);
    if (!records)
        return std::nullopt;
    QStringList names;
    for (const ZipRecord &record : *records) {
        const std::optional<QStringList> parts = entryNameParts(record.text().replace(u'\\', u'/'));
        if (parts && !parts->isEmpty() && record.isFile())
            names.append(parts->join(u'/'));
    }
    return names;
}
