// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/recentmenu.h"

#include "editing/filecommands.h"
#include "editing/recentthemes.h"
#include "editor/editordialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

RecentMenu::RecentMenu(QMenu &menu, RecentThemes &recent, FileCommands &commands, EditorDialogs &dialogs)
    : QObject(&menu), m_menu(menu), m_recent(recent), m_commands(commands), m_dialogs(dialogs)
{
    m_menu.setToolTipsVisible(true);
    connect(&m_menu, &QMenu::aboutToShow, this, &RecentMenu::fill);
    fill();
}

void RecentMenu::fill()
{
    m_menu.clear();
    const QStringList paths = m_recent.paths();
    const QStringList labels = RecentThemes::labels(paths);
    for (int i = 0; i < paths.size(); ++i) {
        const QString &path = paths.at(i);
        // "&1" to "&9" then "1&0": each entry has a key of its own.
        const QString number = i < 9 ? QStringLiteral("&%1").arg(i + 1) : QStringLiteral("1&0");
        QString name = labels.at(i);
        QAction *item = m_menu.addAction(number + u' ' + name.replace(u'&', QStringLiteral("&&")));
        item->setToolTip(QDir::toNativeSeparators(path));
        connect(item, &QAction::triggered, this, [this, path] { open(path); });
    }
    m_menu.addSeparator();
    QAction *clear = m_menu.addAction(tr("&Clear Recent Themes"));
    clear->setObjectName(QStringLiteral("mnuClearRecent"));
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, this, [this] { m_recent.clear(); });
}

void RecentMenu::open(const QString &path)
{
    if (!QFileInfo(path).isFile()) {
        m_recent.remove(path);
        Report report;
        report.information(tr("The theme file %1 no longer exists. It has been removed from the "
                                          "recent themes.")
                               .arg(QDir::toNativeSeparators(path)),
                           {}, path);
        m_dialogs.show(report);
        return;
    }
    const Result<FileCommands::LoadOutcome> loaded = m_commands.loadPath(path);
    m_dialogs.show(loaded.report());
    if (!loaded) {
        m_recent.remove(path);
        Report report;
        report.information(tr("%1 did not load as a theme. It has been removed from the recent themes.")
                               .arg(QDir::toNativeSeparators(path)),
                           {}, path);
        m_dialogs.show(report);
    }
}
