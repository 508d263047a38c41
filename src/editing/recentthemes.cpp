// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/recentthemes.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

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

QStringList RecentThemes::labels(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names.append(QFileInfo(path).fileName());
    QStringList labels;
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const bool twice = std::count_if(names.cbegin(), names.cend(), [&](const QString &n) {
                               return n.compare(names.at(i), Qt::CaseInsensitive) == 0;
                           }) > 1;
        labels.append(twice ? QStringLiteral("%1 (%2)").arg(names.at(i),
                                                            QDir::toNativeSeparators(QFileInfo(paths.at(i)).path()))
                            : names.at(i));
    }
    return labels;
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
