// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

namespace {

/** The file a save really replaces: the target of a link, like any editor's save. */
QString followLinks(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isSymLink())
        return path;
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.symLinkTarget() : canonical;
}

} // namespace

SafeFile::SafeFile(const QString &path) : m_path(followLinks(path)) {}

SafeFile::SafeFile(int folderFd, const QByteArray &name, mode_t mode)
    : m_folderFd(folderFd), m_name(name), m_mode(mode), m_keepMode(false)
{
}

SafeFile::~SafeFile()
{
    cancel();
    if (m_ownsFolder)
        ::close(m_folderFd);
}

bool SafeFile::fail(int error)
{
    m_error = systemReason(error);
    return false;
}

bool SafeFile::open()
{
    if (!m_path.isEmpty()) {
        const QFileInfo info(m_path);
        const QByteArray folder = QFile::encodeName(info.absolutePath());
        m_folderFd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_folderFd < 0)
            return fail(errno);
        m_ownsFolder = true;
        m_name = QFile::encodeName(info.fileName());
    }
    struct stat old {};
    const bool replacing = fstatat(m_folderFd, m_name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0;
    if (replacing && S_ISDIR(old.st_mode))
        return fail(EISDIR);

    for (int attempt = 0; attempt < 100; ++attempt) {
        // Cut so a long name still leaves room for the suffix.
        m_tempName = "." + m_name.left(200) + "."
                     + QByteArray::number(QRandomGenerator::system()->generate(), 36) + ".partial";
        m_fd = ::openat(m_folderFd, m_tempName.constData(),
                        O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, m_mode);
        if (m_fd >= 0 || errno != EEXIST)
            break;
    }
    if (m_fd < 0) {
        m_tempName.clear();
        return fail(errno);
    }
    // The umask must not narrow an existing file's permissions on every save.
    if (m_keepMode && replacing && S_ISREG(old.st_mode) && fchmod(m_fd, old.st_mode & 07777) != 0) {
        const int error = errno;
        cancel();
        return fail(error);
    }
    return true;
}

bool SafeFile::write(const char *data, qint64 size)
{
    while (size > 0) {
        const ssize_t written = ::write(m_fd, data, size_t(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return fail(errno);
        }
        data += written;
        size -= written;
    }
    return true;
}

bool SafeFile::closeFile()
{
    const int fd = m_fd;
    m_fd = -1;
    // Delayed allocation may only now learn that the disk is full.
    if (::close(fd) != 0) {
        const int error = errno;
        cancel();
        return fail(error);
    }
    return true;
}

bool SafeFile::commit(bool sync)
{
    if (m_fd < 0)
        return false;
    if (sync && fsync(m_fd) != 0) {
        const int error = errno;
        cancel();
        return fail(error);
    }
    return finishAside() && publish();
}

bool SafeFile::finishAside()
{
    return m_fd >= 0 && closeFile();
}

bool SafeFile::publish()
{
    if (renameat(m_folderFd, m_tempName.constData(), m_folderFd, m_name.constData()) != 0) {
        const int error = errno;
        cancel();
        return fail(error);
    }
    m_tempName.clear();
    return true;
}

void SafeFile::cancel()
{
    if (m_fd >= 0) {
        ::close(m_fd);
        m_fd = -1;
    }
    if (!m_tempName.isEmpty()) {
        unlinkat(m_folderFd, m_tempName.constData(), 0);
        m_tempName.clear();
    }
}

Result<void> writeWholeFile(const QString &path, const QByteArray &bytes)
{
    SafeFile file(path);
    if (file.open() && file.write(bytes) && file.commit())
        return {};
    return Result<void>::fail(file.errorString(), {}, path);
}
