// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>

#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

/**
 * A tiny tmpfs mounted for the test's lifetime, to see what writers do when the disk is full.
 * Mounting needs root; otherwise isMounted() is false and skipReason() says why.
 */
class SmallDisk
{
public:
    explicit SmallDisk(int kibibytes)
    {
        const QByteArray options = "size=" + QByteArray::number(kibibytes) + "k,mode=0755";
        if (geteuid() != 0)
            m_skipReason = QStringLiteral("a full disk needs a tmpfs mount, which needs root");
        else if (mount("tmpfs", QFile::encodeName(path()).constData(), "tmpfs", 0, options.constData()) != 0)
            m_skipReason = "could not mount a tmpfs: " + QString::fromLocal8Bit(std::strerror(errno));
        m_mounted = m_skipReason.isEmpty();
    }
    ~SmallDisk()
    {
        if (m_mounted)
            umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_mounted; }
    QString skipReason() const { return m_skipReason; }
    QString path() const { return m_dir.path(); }
    QString filePath(const QString &name) const { return m_dir.filePath(name); }

    /** Takes all free space but \a leftBytes with a filler file. */
    bool fill(qint64 leftBytes)
    {
        struct statvfs info {};
        QFile filler(filePath(QStringLiteral("filler")));
        if (statvfs(QFile::encodeName(path()).constData(), &info) != 0 || !filler.open(QIODevice::WriteOnly))
            return false;
        const QByteArray block(4096, 'f');
        const qint64 free = qint64(info.f_bavail) * qint64(info.f_frsize);
        for (qint64 left = free - leftBytes; left > 0; left -= block.size()) {
            if (filler.write(block.constData(), qMin<qint64>(left, block.size())) < 0)
                break;
        }
        return true;
    }

private:
    QTemporaryDir m_dir;
    bool m_mounted = false;
    QString m_skipReason;
};
