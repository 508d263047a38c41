#include "smalldisk.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <cstring>

#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

SmallDisk::SmallDisk(int kibibytes)
{
    if (geteuid() != 0) {
        m_skipReason = QStringLiteral("a full disk needs a tmpfs mount, which needs root");
        return;
    }
    const QByteArray options = "size=" + QByteArray::number(kibibytes) + "k,mode=0755";
    if (mount("tmpfs", QFile::encodeName(m_dir.path()).constData(), "tmpfs", 0, options.constData()) != 0) {
        m_skipReason = QStringLiteral("could not mount a tmpfs: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return;
    }
    m_mounted = true;
}

SmallDisk::~SmallDisk()
{
    if (m_mounted)
        umount2(QFile::encodeName(m_dir.path()).constData(), MNT_DETACH);
}

bool SmallDisk::fill(qint64 leftBytes)
{
    struct statvfs info {};
    if (statvfs(QFile::encodeName(m_dir.path()).constData(), &info) != 0)
        return false;
    const qint64 free = qint64(info.f_bavail) * qint64(info.f_frsize);
    QFile filler(filePath(QStringLiteral("filler")));
    if (!filler.open(QIODevice::WriteOnly))
        return false;
    const QByteArray block(4096, 'f');
    for (qint64 left = free - leftBytes; left > 0; left -= block.size()) {
        if (filler.write(block.constData(), qMin<qint64>(left, block.size())) < 0)
            break;
    }
    filler.close();
    return true;
}
