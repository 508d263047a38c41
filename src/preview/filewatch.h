// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

/**
 * Tells which of a set of files changed on disk, once the writing has settled, so a file half
 * written is never read and a burst of writes is read once. Folders are watched as well as
 * files: programs that save by writing a new file and renaming it end a plain file watch.
 */
class FileWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr int settleMs = 300;

    explicit FileWatch(QObject *parent = nullptr);

    /** Watches \a files from now on, as they are now: only later changes are told. */
    void setFiles(const QStringList &files);
    QStringList files() const { return m_stamps.keys(); }

signals:
    void changed(const QStringList &files);

private:
    struct Stamp {
        bool exists = false;
        qint64 size = -1;
        QDateTime modified;
        bool operator==(const Stamp &) const = default;
    };
    static Stamp stampOf(const QString &file);
    void settled();

    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    QHash<QString, Stamp> m_stamps;
};
