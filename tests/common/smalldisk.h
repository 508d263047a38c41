#pragma once

#include <QString>
#include <QTemporaryDir>

/**
 * A tiny tmpfs mounted for the test's lifetime, to see what writers do when the disk is full.
 * Mounting needs root; otherwise isMounted() is false and skipReason() says why.
 */
class SmallDisk
{
public:
    explicit SmallDisk(int kibibytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_mounted; }
    QString skipReason() const { return m_skipReason; }
    QString path() const { return m_dir.path(); }
    QString filePath(const QString &name) const { return m_dir.filePath(name); }

    /** Takes all free space but \a leftBytes with a filler file. */
    bool fill(qint64 leftBytes);

private:
    QTemporaryDir m_dir;
    bool m_mounted = false;
    QString m_skipReason;
};
