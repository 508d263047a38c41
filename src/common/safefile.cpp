// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/safefile.h"

#include "common/platform.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

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

SafeFile::SafeFile(int folderFd, const QByteArray &name, unsigned mode)
    : m_folderFd(folderFd), m_name(name), m_mode(mode), m_keepMode(false)
{
}

SafeFile::~SafeFile()
{
    cancel();
    if (m_ownsFolder)
        Platform::closeFile(m_folderFd);
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
        if (const int error = Platform::openFolderAt(folder, m_folderFd))
            return fail(error);
        m_ownsFolder = true;
        m_name = QFile::encodeName(info.fileName());
    }
    const Platform::FileAt old = Platform::fileAt(m_folderFd, m_name);
    if (old.folder)
        return fail(Platform::isAFolderError());

    int error = 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        // Cut so a long name still leaves room for the suffix.
        m_tempName = "." + m_name.left(200) + "."
                     + QByteArray::number(QRandomGenerator::system()->generate(), 36) + ".partial";
        error = Platform::createNewFile(m_folderFd, m_tempName, m_mode, m_fd);
        if (!Platform::isExistsError(error))
            break;
    }
    if (error) {
        m_fd = -1;
        m_tempName.clear();
        return fail(error);
    }
    // The umask must not narrow an existing file's permissions on every save.
    if (m_keepMode && old.plain) {
        if (const int modeError = Platform::setFileMode(m_fd, old.mode)) {
            cancel();
            return fail(modeError);
        }
    }
    return true;
}

bool SafeFile::write(const char *data, qint64 size)
{
    if (const int error = Platform::writeAll(m_fd, data, size))
        return fail(error);
    return true;
}

bool SafeFile::closeFile()
{
    const int fd = m_fd;
    m_fd = -1;
    // Delayed allocation may only now learn that the disk is full.
    if (const int error = Platform::closeFile(fd)) {
        cancel();
        return fail(error);
    }
    return true;
}

bool SafeFile::commit(bool sync)
{
    if (m_fd < 0)
        return false;
    if (const int error = sync ? Platform::syncFile(m_fd) : 0) {
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
    if (const int error = Platform::renameInFolder(m_folderFd, m_tempName, m_name)) {
        cancel();
        return fail(error);
    }
    m_tempName.clear();
    return true;
}

void SafeFile::cancel()
{
    if (m_fd >= 0) {
        Platform::closeFile(m_fd);
        m_fd = -1;
    }
    if (!m_tempName.isEmpty()) {
        Platform::removeFileIn(m_folderFd, m_tempName);
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
