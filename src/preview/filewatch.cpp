// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/filewatch.h"

#include <QFileInfo>
#include <QSet>

FileWatch::FileWatch(QObject *parent)
    : QObject(parent)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleMs);
    connect(&m_settle, &QTimer::timeout, this, &FileWatch::settled);
    // Each write restarts the wait: the files are read once the writing stops.
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settle, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settle, qOverload<>(&QTimer::start));
}

FileWatch::Stamp FileWatch::stampOf(const QString &file)
{
    const QFileInfo info(file);
    if (!info.isFile())
        return {};
    return {true, info.size(), info.lastModified()};
}

void FileWatch::setFiles(const QStringList &files)
{
    m_stamps.clear();
    QSet<QString> folders;
    for (const QString &file : files) {
        m_stamps.insert(file, stampOf(file));
        folders.insert(QFileInfo(file).absolutePath());
    }
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    QStringList paths(folders.cbegin(), folders.cend());
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            paths << file;
    }
    if (!paths.isEmpty())
        m_watcher.addPaths(paths);
}

void FileWatch::settled()
{
    QStringList found;
    for (auto it = m_stamps.begin(); it != m_stamps.end(); ++it) {
        const Stamp now = stampOf(it.key());
        if (now != *it) {
            *it = now;
            found << it.key();
        }
    }
    // A file replaced by renaming is a new file: watch it again.
    for (const QString &file : std::as_const(found)) {
        if (QFileInfo(file).isFile() && !m_watcher.files().contains(file))
            m_watcher.addPath(file);
    }
    if (!found.isEmpty())
        emit changed(found);
}
