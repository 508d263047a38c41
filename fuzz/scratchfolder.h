// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/**
 * One fuzz process's private folder below the system's temporary folder, removed at a normal
 * exit (kept after a crash, for a look). Making it points TMPDIR, and so QDir::tempPath(), at
 * it: code under test that unpacks or saves to "the temporary folder" stays inside it.
 * Any step that fails stops the run, since a target that cannot write its input tests nothing.
 */
class ScratchFolder
{
public:
    /** Makes the folder "<prefix>-XXXXXX" and points TMPDIR at it. */
    explicit ScratchFolder(const QString &prefix);

    /** The folder, canonical (no links on the way to it). */
    QString path() const { return m_path; }

    /** Writes \a bytes as the file \a name in the folder; returns its path. */
    QString write(const QString &name, const QByteArray &bytes) const;

    /** Deletes everything in the folder; links are deleted, never followed. */
    void clear() const;

private:
    QTemporaryDir m_dir;
    QString m_path;
};
