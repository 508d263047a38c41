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
    /**
     * What the menu shows for each of \a paths: its file name, and its folder beside it,
     * "Ice.skt (/home/me/old)", where another of them has the same name (letter case ignored).
     */
    static QStringList labels(const QStringList &paths);
    void add(const QString &path);
    void remove(const QString &path);
    void clear();

private:
    void store(const QStringList &paths);

    QSettings &m_settings;
};
