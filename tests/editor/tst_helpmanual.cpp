// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Help opens the manual, and the Problems panel the section on a problem's code, in the
// system's browser: the addresses are caught where the browser would take them.

#include "common/usermanual.h"
#include "theme/themedocument.h"
#include "editor/mainwindow.h"
#include "editor/problemspanel.h"

#include <QAction>
#include <QDesktopServices>
#include <QMenu>
#include <QTest>
#include <QTreeWidget>

class HelpManualTest : public QObject
{
    Q_OBJECT

    QList<QUrl> m_opened;

public slots:
    void openUrl(const QUrl &address) { m_opened.append(address); }

private slots:
    void initTestCase()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
        QVERIFY2(!userManualUrl().isEmpty(), "the build's manual is there (the user-manual target)");
    }

    void init() { m_opened.clear(); }

    void helpMenuOpensTheManualWithF1()
    {
        ThemeDocument doc;
        MainWindow window(doc);
        window.startUp();
        auto *manual = window.findChild<QAction *>(QStringLiteral("mnuManual"));
        QVERIFY(manual);
        QCOMPARE(manual->text(), QStringLiteral("Stakko Theme Maker &Manual"));
        QCOMPARE(manual->shortcut(), QKeySequence(Qt::Key_F1));
        auto *help = window.findChild<QMenu *>(QStringLiteral("mnuHelp"));
        QVERIFY(help->actions().contains(manual));

        manual->trigger();
        QCOMPARE(m_opened, QList<QUrl>{userManualUrl()});
        QVERIFY(m_opened.first().toLocalFile().endsWith(QStringLiteral("/index.html")));
        QVERIFY(QFileInfo::exists(m_opened.first().toLocalFile()));
    }

    void problemOpensItsCodesSection_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("a code") << "frame-missing";
        QTest::newRow("no code") << "";
    }

    void problemOpensItsCodesSection()
    {
        QFETCH(QString, code);
        ThemeDocument doc;
        MainWindow window(doc);
        window.startUp();
        Report report;
        report.add({Problem::Severity::Error, QStringLiteral("Frame 2 of Game Background is missing"),
                    QStringLiteral("bgfilename"), QStringLiteral("bg2.bmp"), code, {}});
        ProblemsPanel &panel = window.problemsPanel();
        panel.showReport(report);
        auto *list = panel.findChild<QTreeWidget *>(QLatin1StringView(ProblemsPanel::listName));
        auto *explain = panel.findChild<QAction *>(QLatin1StringView(ProblemsPanel::explainName));
        QVERIFY(explain && list->actions().contains(explain));
        QCOMPARE(list->contextMenuPolicy(), Qt::ActionsContextMenu);
        QVERIFY(!explain->isEnabled());

        list->setCurrentItem(list->topLevelItem(0));
        QCOMPARE(explain->isEnabled(), !code.isEmpty());
        explain->trigger();
        if (code.isEmpty()) {
            QVERIFY(m_opened.isEmpty());
            return;
        }
        QCOMPARE(m_opened, QList<QUrl>{problemCodeUrl(code)});
        const QUrl address = m_opened.first();
        QCOMPARE(QFileInfo(address.toLocalFile()).fileName(), checkingPage);
        QCOMPARE(address.fragment(), QStringLiteral("code-frame-missing"));
    }
};

QTEST_MAIN(HelpManualTest)
#include "tst_helpmanual.moc"
