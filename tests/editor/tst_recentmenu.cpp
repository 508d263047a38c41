// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "document/filecommands.h"
#include "document/recentthemes.h"
#include "document/themedocument.h"
#include "editor/recentmenu.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

class RecentMenuTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString theme(int n)
    {
        const QString path = m_dir.filePath(QStringLiteral("t%1.skt").arg(n));
        if (!QFile::exists(path))
            writeFile(path, QStringLiteral("[Theme Info]\r\nname=T%1\r\nthemetype=0\r\n").arg(n).toLatin1());
        return path;
    }

    static QStringList entries(QMenu &menu)
    {
        emit menu.aboutToShow();
        QStringList tips;
        for (QAction *item : menu.actions()) {
            if (!item->isSeparator() && item->objectName() != u"mnuClearRecent")
                tips << item->toolTip();
        }
        return tips;
    }

private slots:
    void newestFirstOnceEachAtMostTen()
    {
        QSettings settings(m_dir.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
        RecentThemes recent(settings);
        for (int n = 1; n <= 12; ++n)
            recent.add(theme(n));
        recent.add(theme(5));
        QStringList expected{theme(5)};
        for (int n = 12; n >= 3; --n) {
            if (n != 5)
                expected << theme(n);
        }
        QCOMPARE(recent.paths(), expected);
        // Kept across runs, as written.
        QSettings again(m_dir.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
        QCOMPARE(RecentThemes(again).paths(), expected);

        QMenu menu;
        ScriptedDialogs dialogs;
        ThemeDocument doc;
        FileCommands commands(doc, dialogs);
        RecentMenu recentMenu(menu, recent, commands, dialogs);
        QCOMPARE(entries(menu), expected);
        menu.findChild<QAction *>(QStringLiteral("mnuClearRecent"))->trigger();
        QCOMPARE(entries(menu), QStringList());
        QVERIFY(!menu.findChild<QAction *>(QStringLiteral("mnuClearRecent"))->isEnabled());
    }

    void openingOneLoadsItOrDropsItWhenGone()
    {
        QSettings settings(m_dir.filePath(QStringLiteral("b.ini")), QSettings::IniFormat);
        RecentThemes recent(settings);
        const QString gone = m_dir.filePath(QStringLiteral("gone.skt"));
        recent.add(gone);
        recent.add(theme(1));
        QMenu menu;
        ScriptedDialogs dialogs;
        ThemeDocument doc;
        doc.setDirty(true);
        FileCommands commands(doc, dialogs);
        RecentMenu recentMenu(menu, recent, commands, dialogs);

        recentMenu.open(theme(1)); // the save question is cancelled: nothing loads
        QCOMPARE(doc.currentThemeFile(), QString());
        dialogs.answers.enqueue(Dialogs::Answer::No);
        recentMenu.open(theme(1));
        QCOMPARE(doc.value(u"name"), QStringLiteral("T1"));
        QCOMPARE(doc.currentThemeFile(), theme(1));

        dialogs.messages.clear();
        recentMenu.open(gone);
        QCOMPARE(recent.paths(), QStringList{theme(1)});
        QCOMPARE(dialogs.messages.size(), 1);
        QVERIFY(dialogs.messages.first().text.contains(QDir::toNativeSeparators(gone)));
        QCOMPARE(doc.currentThemeFile(), theme(1));
    }
};

QTEST_MAIN(RecentMenuTest)
#include "tst_recentmenu.moc"
