// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/recentthemes.h"

#include <QFileInfo>
#include <QSettings>

namespace {

const QString settingsKey = QStringLiteral("recentThemes");

} // namespace

RecentThemes::RecentThemes(QSettings &settings)
    : m_settings(settings)
{
}

QStringList RecentThemes::paths() const
{
    // Settings edited by hand may hold anything: empty entries and doubles are dropped.
    QStringList paths;
    for (const QString &path : m_settings.value(settingsKey).toStringList()) {
        if (!path.isEmpty() && !paths.contains(path) && paths.size() < limit)
            paths.append(path);
    }
    return paths;
}

void RecentThemes::add(const QString &path)
{
    if (path.isEmpty())
        return;
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList paths = this->paths();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    store(paths.mid(0, limit));
}

void RecentThemes::remove(const QString &path)
{
    QStringList paths = this->paths();
    paths.removeAll(path);
    store(paths);
}

void RecentThemes::clear()
{
    store({});
}

void RecentThemes::store(const QStringList &paths)
{
    m_settings.setValue(settingsKey, paths);
    m_settings.sync();
}
