// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QByteArray>
#include <QString>

/**
 * A file written whole or not at all. The bytes go to a new hidden file beside the target,
 * which replaces the target only when every write, the sync and the close have succeeded.
 * Until then, and after any failure, the old file is untouched; a file that is not committed
 * is removed. Failures are reported in the system's own words ("No space left on device").
 */
class SafeFile
{
public:
    /** Replaces \a path; a link there is followed, as an editor saving the author's own file would. */
    explicit SafeFile(const QString &path);
    /**
     * Replaces \a name inside the open folder \a folderFd (never following a link at \a name),
     * creating it with \a mode when new. The descriptor must stay open until commit or cancel.
     */
    SafeFile(int folderFd, const QByteArray &name, unsigned mode);
    ~SafeFile();
    SafeFile(const SafeFile &) = delete;
    SafeFile &operator=(const SafeFile &) = delete;

    bool open();
    bool write(const char *data, qint64 size);
    bool write(const QByteArray &bytes) { return write(bytes.constData(), bytes.size()); }
    /** Syncs (unless \a sync is false), closes and renames over the target. */
    bool commit(bool sync = true);
    /** Removes what was written; the target stays as it was. */
    void cancel();

    /** Closes the new file and keeps it under its hidden name, to be renamed later by publish(). */
    bool finishAside();
    /** Renames a file kept aside by finishAside() over its target. */
    bool publish();

    /** Why the last step failed. */
    QString errorString() const { return m_error; }

private:
    bool fail(int error);
    bool closeFile();

    QString m_path;        // for the folder-and-name form: empty
    int m_folderFd = -1;
    bool m_ownsFolder = false;
    QByteArray m_name;     // target, relative to the folder
    QByteArray m_tempName; // the hidden file, relative to the folder
    unsigned m_mode = 0666;
    bool m_keepMode = true; // take the old file's permissions
    int m_fd = -1;
    QString m_error;
};

/** \a bytes written whole to \a path with SafeFile; when not, the error is the system's reason. */
Result<void> writeWholeFile(const QString &path, const QByteArray &bytes);
