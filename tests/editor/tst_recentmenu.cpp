// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "editing/filecommands.h"
#include "editing/recentthemes.h"
#include "theme/themedocument.h"
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

    /** The entries' tooltips (their paths), or with \a texts their captions. */
    static QStringList entries(QMenu &menu, bool texts = false)
    {
        emit menu.aboutToShow();
        QStringList found;
        for (QAction *item : menu.actions()) {
            if (!item->isSeparator() && item->objectName() != u"mnuClearRecent")
                found << (texts ? item->text() : item->toolTip());
        }
        return found;
    }

    // The submenu over a list of its own, as the editor makes it.
    struct Recent {
        QSettings settings;
        RecentThemes recent{settings};
        QMenu menu;
        ScriptedDialogs dialogs;
        ThemeDocument doc;
        FileCommands commands{doc, dialogs};
        RecentMenu recentMenu{menu, recent, commands, dialogs};
        explicit Recent(const QString &ini) : settings(ini, QSettings::IniFormat) {}
    };

private slots:
    void newestFirstOnceEachAtMostTen()
    {
        Recent r(m_dir.filePath(QStringLiteral("a.ini")));
        for (int n = 1; n <= 12; ++n)
            r.recent.add(theme(n));
        r.recent.add(theme(5));
        QStringList expected{theme(5)};
        for (int n = 12; n >= 3; --n) {
            if (n != 5)
                expected << theme(n);
        }
        QCOMPARE(r.recent.paths(), expected);
        // Kept across runs, as written.
        QSettings again(m_dir.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
        QCOMPARE(RecentThemes(again).paths(), expected);

        QCOMPARE(entries(r.menu), expected);
        r.menu.findChild<QAction *>(QStringLiteral("mnuClearRecent"))->trigger();
        QCOMPARE(entries(r.menu), QStringList());
        QVERIFY(!r.menu.findChild<QAction *>(QStringLiteral("mnuClearRecent"))->isEnabled());
    }

    void namesThatAppearTwiceShowTheirFolder()
    {
        const QStringList paths{"/home/ann/themes/Ice.skt", "/home/ann/old/ice.skt", "/home/ann/Snow.skt"};
        Recent r(m_dir.filePath(QStringLiteral("c.ini")));
        for (const QString &path : paths)
            r.recent.add(path);
        QCOMPARE(entries(r.menu, true),
                 (QStringList{"&1 Snow.skt", "&2 ice.skt (/home/ann/old)", "&3 Ice.skt (/home/ann/themes)"}));
    }

    void openingOneLoadsItOrDropsItWhenGone()
    {
        Recent r(m_dir.filePath(QStringLiteral("b.ini")));
        const QString gone = m_dir.filePath(QStringLiteral("gone.skt"));
        r.recent.add(gone);
        r.recent.add(theme(1));
        r.doc.setDirty(true);

        r.recentMenu.open(theme(1)); // the save question is cancelled: nothing loads
        QCOMPARE(r.doc.currentThemeFile(), QString());
        r.dialogs.answers.enqueue(Dialogs::Answer::No);
        r.recentMenu.open(theme(1));
        QCOMPARE(r.doc.value(u"name"), QStringLiteral("T1"));
        QCOMPARE(r.doc.currentThemeFile(), theme(1));

        r.dialogs.messages.clear();
        r.recentMenu.open(gone);
        QCOMPARE(r.recent.paths(), QStringList{theme(1)});
        QCOMPARE(r.dialogs.messages.size(), 1);
        QVERIFY(r.dialogs.messages.first().text.contains(QDir::toNativeSeparators(gone)));
        QCOMPARE(r.doc.currentThemeFile(), theme(1));
    }

    void oneThatNoLongerLoadsLeavesTheList()
    {
        Recent r(m_dir.filePath(QStringLiteral("d.ini")));
        const QString notes = m_dir.filePath(QStringLiteral("notes.skt"));
        QVERIFY(writeFile(notes, "shopping list\n"));
        r.recent.add(theme(2));
        r.recent.add(notes);

        r.recentMenu.open(notes);
        QCOMPARE(r.recent.paths(), QStringList{theme(2)});
        QCOMPARE(r.doc.currentThemeFile(), QString());
        QCOMPARE(r.dialogs.messages.size(), 2); // why it did not load, and that it left the list
        QVERIFY(r.dialogs.messages.last().text.contains(QStringLiteral("removed from the recent themes")));
    }
};

QTEST_MAIN(RecentMenuTest)
#include "tst_recentmenu.moc"
