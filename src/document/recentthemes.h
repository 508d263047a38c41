// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QSettings;

/**
 * The themes the author opened or saved last, newest first, kept in the per-user settings (the
 * theme files and skm.ini stay as the game knows them). Each path is held once, absolute.
 */
class RecentThemes
{
public:
    static constexpr int limit = 10;

    explicit RecentThemes(QSettings &settings);

    QStringList paths() const;
    void add(const QString &path);
    void remove(const QString &path);
    void clear();

private:
    void store(const QStringList &paths);

    QSettings &m_settings;
};
