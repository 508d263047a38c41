// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/backgroundcheck.h"
#include "theme/themesections.h"
#include "theme/description.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "theme/animatedelement.h"
#include "editing/filecommands.h"
#include "editor/aboutwindow.h"
#include "editor/controlnames.h"
#include "editor/editorstyle.h"
#include "editor/rawpicture.h"
#include "editor/mainwindow.h"
#include "editor/mnemonics.h"
#include "editor/previewsurface.h"
#include "editor/problemspanel.h"
#include "preview/elementpreview.h"
#include "preview/ticktimer.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyleFactory>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <functional>
#include <memory>

namespace {

const QStringList allTimers = [] {
    QStringList timers;
    for (const ElementControls &names : elementControls)
        timers << QLatin1StringView(names.timer);
    return timers;
}();
const QStringList panels = {"picGeneral", "picIface", "picFields", "picBlocks", "picMisc", "picSound"};
const QStringList menuItems = {"mnuGeneral", "mnuIface", "mnuBG", "mnuBLK", "mnuMisc", "mnuSounds"};

} // namespace

class MainWindowTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ThemeDocument> doc;
    std::unique_ptr<MainWindow> window;

    template<typename T = QWidget>
    T *control(const QString &name)
    {
        window->buildAllPages();
        T *found = window->findChild<T *>(name);
        if (!found)
            qWarning("no control %s", qPrintable(name));
        return found;
    }

    void startAllTimers()
    {
        for (const QString &name : allTimers)
            control<TickTimer>(name)->start();
    }

    QStringList runningTimers()
    {
        QStringList running;
        for (const QString &name : allTimers) {
            if (control<TickTimer>(name)->isActive())
                running << name;
        }
        return running;
    }

    // Frames nested in a section's frame take input only while the section is included.
    void includeEverySection()
    {
        for (const ThemeSection &section : themeSections())
            doc->setNumber(QLatin1StringView(section.include), 1);
    }

    // A bare X server has no window manager to activate the window: it asks for the focus itself.
    void showActive()
    {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    /** Calls \a visit with every page and data set shown in turn, and the controls then visible on it. */
    void forEveryPageAndDataSet(const std::function<void(const QString &, const QList<QWidget *> &)> &visit)
    {
        window->buildAllPages();
        for (EditorPage page : editorPages) {
            window->showPage(page);
            const char *selector = MainWindow::dataSetSelector(page);
            auto *combo = selector ? control<QComboBox>(QLatin1StringView(selector)) : nullptr;
            for (int set = 0; set < (combo ? combo->count() : 1); ++set) {
                if (combo)
                    combo->setCurrentIndex(set);
                QList<QWidget *> shown;
                for (QWidget *w : control(panels.at(qsizetype(enumIndex(page))))->findChildren<QWidget *>()) {
                    if (w->isVisibleTo(window.get()))
                        shown.append(w);
                }
                visit(panels.at(qsizetype(enumIndex(page))) + (combo ? u'/' + combo->currentText() : QString()), shown);
            }
        }
    }

    int pixelsOf(int twips) { return qRound(twips * window->logicalDpiY() / 1440.0); }

private slots:
    void init()
    {
        doc = std::make_unique<ThemeDocument>();
        window = std::make_unique<MainWindow>(*doc);
        window->startUp();
    }

    void cleanup()
    {
        window.reset();
        doc.reset();
    }

    void narrowMenuBarShowsTheStyleOwnOverflowArrow()
    {
        QStyle *plain = QStyleFactory::create(QApplication::style()->name());
        installEditorStyle();
        QMenuBar bar;
        for (const char *caption : {"&File", "&Edit", "&Theme Data", "&Tools", "&Help"})
            bar.addMenu(QString::fromLatin1(caption));
        bar.resize(60, 30);
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        auto *arrow = bar.findChild<QToolButton *>(QStringLiteral("qt_menubar_ext_button"));
        QVERIFY(arrow && arrow->isVisible());
        const QImage expected = plain->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton).pixmap(16).toImage();
        QVERIFY(!expected.isNull());
        QCOMPARE(arrow->icon().pixmap(16).toImage(), expected);
        QApplication::setStyle(plain);
    }

    void groupBoxesLookAsTheBaseStyleDrawsThem_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("checkable");
        QTest::newRow("titled") << QStringLiteral("Animation Configuration") << false;
        QTest::newRow("untitled") << QString() << false;
        QTest::newRow("checkable") << QStringLiteral("Theme Type 0") << true;
    }

    void groupBoxesLookAsTheBaseStyleDrawsThem()
    {
        QFETCH(QString, title);
        QFETCH(bool, checkable);
        const auto drawn = [&] {
            QGroupBox box(title);
            box.setCheckable(checkable);
            box.resize(180, 90);
            return box.grab().toImage();
        };
        const QString name = QApplication::style()->name();
        QApplication::setStyle(QStyleFactory::create(name));
        const QImage expected = drawn();
        installEditorStyle();
        const QImage actual = drawn();
        QApplication::setStyle(QStyleFactory::create(name));
        QCOMPARE(actual, expected);
    }

    static QImage translucentPicture()
    {
        QImage picture(5, 3, QImage::Format_ARGB32);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixel(x, y, qRgba(x * 50, y * 80, 200, x * 60));
        }
        return picture;
    }

    // What the build writes, the editor reads back as it was; anything else is no picture.
    void rawPicturesReadBackOnlyWhole_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("whole");
        const QByteArray written = rawPictureBytes(translucentPicture());
        QByteArray huge = written;
        huge[2] = 1; // a width beyond what the bytes hold
        QTest::newRow("as written") << written << true;
        QTest::newRow("one byte short") << written.chopped(1) << false;
        QTest::newRow("one byte over") << written + '\0' << false;
        QTest::newRow("header claims more") << huge << false;
        QTest::newRow("header only") << written.left(8) << false;
        QTest::newRow("empty") << QByteArray() << false;
    }
    void rawPicturesReadBackOnlyWhole()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, whole);
        const QImage read = rawPicture(bytes);
        QCOMPARE(read.isNull(), !whole);
        if (whole)
            QCOMPARE(read, translucentPicture().convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void everyFieldHasItsControl()
    {
        for (const QString &name : fieldControls())
            QVERIFY2(control(name), qPrintable(name));
        for (const RowControls &rows : {colorRows, soundRows}) {
            for (int i = 0; i < int(rows.keys.size()); ++i) {
                QVERIFY(control(rowControl(rows.show, i)));
                QVERIFY(control(rowControl(rows.browse, i)));
            }
        }
        for (int i = 0; i < int(interfaceRows.keys.size()); ++i)
            QCOMPARE(control<QLabel>(rowControl(interfaceRows.label, i))->buddy()->objectName(),
                     fieldControl(interfaceRows.keys[i]));
        for (const AnimatedElement &e : animatedElements) {
            for (const char *key : {e.rootField, e.extensionField}) {
                auto *box = control<QLineEdit>(fieldControl(key));
                QVERIFY2(box->isReadOnly(), key);
                QCOMPARE(box->palette().color(QPalette::Base), box->palette().color(QPalette::Window));
            }
        }
    }

    void pagesAreBuiltWhenFirstShown()
    {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        const int width = window->width();
        QVERIFY(!window->findChild<QWidget *>(QStringLiteral("txtBGNum")));

        // Edits and choices made before the page exists show once it does.
        doc->setText(u"bgframecount", QStringLiteral("12"));
        doc->setNumber(u"includebackground", 1);
        doc->setNumber(u"bganimated", 1);
        doc->setText(u"coloroptions", QStringLiteral("255,0,0"));
        window->showPage(MainWindow::Page::Background);
        QCOMPARE(window->findChild<QLineEdit *>(QStringLiteral("txtBGNum"))->text(), QStringLiteral("12"));
        QVERIFY(window->findChild<QWidget *>(QStringLiteral("fraBGAni"))->isEnabled());
        QVERIFY(window->findChild<QWidget *>(QStringLiteral("fraBackground"))->isVisibleTo(window.get()));
        QVERIFY(!window->findChild<QWidget *>(QStringLiteral("fraIBG"))->isVisibleTo(window.get()));
        QCOMPARE(window->findChild<QComboBox *>(QStringLiteral("cmbFields"))->count(), 2);

        // The first width holds every page, so switching pages never resizes the window sideways.
        window->buildAllPages();
        QCoreApplication::processEvents();
        QCOMPARE(window->width(), width);
        auto *swatch = control<PreviewSurface>("picPreviewColor(2)");
        QCOMPARE(swatch->fillColor(), QColor(255, 0, 0));
        QCOMPARE(QColor(swatch->grab().toImage().pixel(10, 10)), QColor(255, 0, 0));
    }

    void startUpState()
    {
        QCOMPARE(window->objectName(), QStringLiteral("frmMain"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Stakko Theme Maker"));
        QCOMPARE(window->currentPage(), MainWindow::Page::General);
        QVERIFY(control<QAction>("mnuGeneral")->isChecked());
        QCOMPARE(control<QComboBox>("cmbType")->currentText(), QStringLiteral("Theme Type 1"));
        QCOMPARE(control<QComboBox>("cmbFields")->currentText(), QStringLiteral("Background"));
        QCOMPARE(control<QComboBox>("cmbBlocks")->currentText(), QStringLiteral("Game Blocks"));
        QCOMPARE(control<QComboBox>("cmbMisc")->currentText(), QStringLiteral("Explosion"));
        QCOMPARE(control<QLineEdit>("txtThemeName")->text(), QStringLiteral("Stakko Theme"));
        QCOMPARE(control<QLineEdit>("txtBGDelay")->text(), QStringLiteral("10"));
        QVERIFY(!doc->isDirty());
        QVERIFY(doc->packageFolderTail().isEmpty());
        QVERIFY(doc->musicFolder().isEmpty());
        QVERIFY(runningTimers().isEmpty());
        // The window icon is the one the desktop shows.
        for (int size : {32, 64}) {
            const QImage desktop(QStringLiteral("%1/dist/icons/%2x%2/apps/" STAKKO_APP_ID ".png")
                                     .arg(qEnvironmentVariable("STAKKO_BUILD_DIR"))
                                     .arg(size));
            QVERIFY(!desktop.isNull());
            const QImage shown = window->windowIcon().pixmap(QSize(size, size), 1.0).toImage();
            QCOMPARE(shown.convertToFormat(QImage::Format_ARGB32), desktop.convertToFormat(QImage::Format_ARGB32));
        }
    }

    void pageSwitching_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("byMenu");
        QTest::addColumn<int>("heightTwips");
        const int heights[] = {6475, 6475, 7315, 6475, 6475, 6475};
        for (int page = 0; page < 6; ++page) {
            QTest::addRow("%s by tab", qPrintable(panels[page])) << page << false << heights[page];
            QTest::addRow("%s by menu", qPrintable(panels[page])) << page << true << heights[page];
        }
    }

    void pageSwitching()
    {
        QFETCH(int, page);
        QFETCH(bool, byMenu);
        QFETCH(int, heightTwips);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        // The tallest page first: the page shown before must not hold the window up.
        window->showPage(page == 2 ? MainWindow::Page::Blocks : MainWindow::Page::Background);

        if (byMenu)
            control<QAction>(menuItems[page])->trigger();
        else
            control<QTabBar>("tabMain")->setCurrentIndex(page);

        QCOMPARE(int(window->currentPage()), page);
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(control(panels[i])->isVisible(), i == page);
            QCOMPARE(control<QAction>(menuItems[i])->isChecked(), i == page);
        }
        QCOMPARE(control<QTabBar>("tabMain")->currentIndex(), page);
        QVERIFY(!doc->isDirty());
        // The page must fit below a desktop's title bar, not just in a frameless window.
        const int titleBar = 32;
        QVERIFY2(window->minimumSizeHint().height() <= pixelsOf(heightTwips) - titleBar,
                 qPrintable(QString::number(window->minimumSizeHint().height())));
        QCOMPARE(window->frameGeometry().height(), pixelsOf(heightTwips));
        QTest::qWait(20); // the height is applied again once the frame is known
        QCOMPARE(window->frameGeometry().height(), pixelsOf(heightTwips));
    }

    void pageTimers_data()
    {
        QTest::addColumn<QList<int>>("pages"); // shown in this order; -1 starts a new theme
        QTest::addColumn<QStringList>("keepRunning");
        QTest::newRow("General") << QList<int>{0} << QStringList{};
        QTest::newRow("Interface") << QList<int>{1} << QStringList{};
        QTest::newRow("Background") << QList<int>{2} << QStringList{"tmrBGPreview", "tmrPreviewIBG"};
        QTest::newRow("Blocks") << QList<int>{3}
                                << QStringList{"tmrPreviewIBG", "tmrPreviewBlk", "tmrPreviewNext", "tmrPreviewSW"};
        QTest::newRow("Misc") << QList<int>{4} << QStringList{"tmrPreviewExplosion", "tmrPreviewBomb"};
        QTest::newRow("Sounds") << QList<int>{5} << QStringList{};
        QTest::newRow("Background, Blocks, Background") << QList<int>{2, 3, 2} << QStringList{"tmrPreviewIBG"};
        QTest::newRow("Blocks, new theme") << QList<int>{3, -1} << QStringList{};
    }

    void pageTimers()
    {
        QFETCH(QList<int>, pages);
        QFETCH(QStringList, keepRunning);
        startAllTimers();
        for (int page : pages)
            page < 0 ? doc->resetTheme() : window->showPage(MainWindow::Page(page));
        QCOMPARE(runningTimers(), keepRunning);
    }

    void dataSets_data()
    {
        QTest::addColumn<QString>("selector");
        QTest::addColumn<int>("choice");
        QTest::addColumn<QList<QStringList>>("sets"); // frame, switch and preview timer of every choice
        const QList<std::pair<QString, QList<QStringList>>> selectors = {
            {"cmbFields", {{"fraBackground", "chkBG", "tmrBGPreview"}, {"fraIBG", "chkIBG", "tmrPreviewIBG"}}},
            {"cmbBlocks", {{"fraBlocks", "chkBlk", "tmrPreviewBlk"}, {"fraNext", "chkNext", "tmrPreviewNext"},
                           {"fraSW", "chkSW", "tmrPreviewSW"}}},
            {"cmbMisc", {{"fraExplosion", "chkExplosion", "tmrPreviewExplosion"},
                         {"fraBomb", "chkBomb", "tmrPreviewBomb"}, {"fraColor", "chkColor"}, {"fraMImg", "chkMImg"}}},
        };
        for (const auto &[selector, sets] : selectors) {
            for (int choice = 0; choice < sets.size(); ++choice)
                QTest::addRow("%s", qPrintable(sets[choice][0])) << selector << choice << sets;
        }
    }

    void dataSets()
    {
        QFETCH(QString, selector);
        QFETCH(int, choice);
        QFETCH(QList<QStringList>, sets);
        auto *combo = control<QComboBox>(selector);
        // Move away first so the wanted choice is a real change.
        combo->setCurrentIndex(choice == 0 ? 1 : 0);
        startAllTimers();

        combo->setCurrentIndex(choice);

        QStringList expectedRunning = allTimers;
        for (int i = 0; i < sets.size(); ++i) {
            QVERIFY2(control(sets[i][0])->isHidden() == (i != choice), qPrintable(sets[i][0]));
            QVERIFY2(control(sets[i][1])->isHidden() == (i != choice), qPrintable(sets[i][1]));
            if (i != choice && sets[i].size() > 2)
                expectedRunning.removeOne(sets[i][2]);
        }
        QCOMPARE(runningTimers(), expectedRunning);
        QVERIFY(!doc->isDirty());
    }

    void themeTypeSelector_data()
    {
        QTest::addColumn<int>("choice");
        QTest::addColumn<bool>("fromDocument");
        QTest::newRow("author picks Type 0") << 0 << false;
        QTest::newRow("author picks Type 1") << 1 << false;
        QTest::newRow("loader sets Type 0") << 0 << true;
        QTest::newRow("loader sets Type 1") << 1 << true;
    }

    void themeTypeSelector()
    {
        QFETCH(int, choice);
        QFETCH(bool, fromDocument);
        auto *type = control<QComboBox>("cmbType");
        type->setCurrentIndex(1 - choice);

        if (fromDocument)
            doc->setNumber(u"themetype", choice);
        else
            type->setCurrentIndex(choice);

        QCOMPARE(type->currentIndex(), choice);
        QCOMPARE(doc->number(u"themetype"), choice);
        QCOMPARE(control("txtResource")->isEnabled(), choice == 1);
        QCOMPARE(control("cmdBrowseResource")->isEnabled(), choice == 1);
        QCOMPARE(control("fraTheme0")->isEnabled(), choice == 0);
    }

    void switchedFrames_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("frame");
        const char *rows[][2] = {
            {"chkBG", "fraBackground"}, {"chkIBG", "fraIBG"}, {"chkBlk", "fraBlocks"},
            {"chkNext", "fraNext"}, {"chkSW", "fraSW"}, {"chkExplosion", "fraExplosion"},
            {"chkBomb", "fraBomb"}, {"chkColor", "fraColor"}, {"chkMImg", "fraMImg"},
            {"chkIface", "fraIface"}, {"chkSounds", "fraSound"}, {"chkMusic", "fraMusic"},
            {"chkBGAni", "fraBGAni"}, {"chkIBGAni", "fraIBGAni"}, {"chkNextAni", "fraNextAni"},
            {"chkSWAni", "fraSWAni"}, {"chkBlkAni", "fraBlkAni"}, {"chkSpecAni", "fraBlkAni"},
            {"chkInetBlkAni", "fraBlkAni"}, {"chkInetSpecAni", "fraBlkAni"},
        };
        for (const auto &row : rows)
            QTest::newRow(row[0]) << row[0] << row[1];
    }

    void switchedFrames()
    {
        QFETCH(QString, box);
        QFETCH(QString, frame);
        auto *check = control<QCheckBox>(box);
        const QString key = QLatin1StringView(themeFields()[size_t(fieldControls().indexOf(box))].key);
        QVERIFY(!control(frame)->isEnabled());
        if (!key.startsWith(QLatin1StringView("include")))
            includeEverySection();

        check->click();
        QVERIFY(control(frame)->isEnabled());
        QCOMPARE(doc->number(key), 1);
        QVERIFY(doc->isDirty());

        check->click();
        QVERIFY(!control(frame)->isEnabled());
        QCOMPARE(doc->number(key), 0);

        doc->setNumber(key, 2); // only a loaded file greys a switch; a click leaves it for good
        QCOMPARE(check->checkState(), Qt::PartiallyChecked);
        QVERIFY(!control(frame)->isEnabled());
        const QList<int> clicked = {1, 0, 1};
        for (int expected : clicked) {
            check->click();
            QCOMPARE(doc->number(key), expected);
        }
        QVERIFY(control(frame)->isEnabled());

        doc->resetTheme();
        QVERIFY(!control(frame)->isEnabled());
        QCOMPARE(check->checkState(), Qt::Unchecked);
    }

    void anyBlockAnimationSwitchOpensSettings()
    {
        includeEverySection();
        const QStringList boxes = {"chkBlkAni", "chkSpecAni", "chkInetBlkAni", "chkInetSpecAni"};
        for (const QString &name : boxes)
            control<QCheckBox>(name)->click();
        for (int i = 0; i < boxes.size() - 1; ++i) {
            control<QCheckBox>(boxes[i])->click();
            QVERIFY2(control("fraBlkAni")->isEnabled(), qPrintable(boxes[i]));
        }
        control<QCheckBox>(boxes.last())->click();
        QVERIFY(!control("fraBlkAni")->isEnabled());
    }

    void editBoxesAndDocumentAgree_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("controlName");
        QTest::addColumn<bool>("typeable");
        QTest::addColumn<bool>("included");
        QTest::newRow("name") << "name" << "txtThemeName" << true << true;
        QTest::newRow("root box, program filled") << "bgfilename" << "txtBGRoot" << false << true;
        QTest::newRow("frame count") << "bgframecount" << "txtBGNum" << true << true;
        QTest::newRow("colour row") << "colortheme" << "txtColor(3)" << true << true;
        QTest::newRow("interface row") << "ifacemain" << "txtIMain" << true << true;
        QTest::newRow("excluded interface row") << "ifacemain" << "txtIMain" << true << false;
        QTest::newRow("sound row") << "rotate" << "txtRotate" << true << true;
    }

    void editBoxesAndDocumentAgree()
    {
        QFETCH(QString, key);
        QFETCH(QString, controlName);
        QFETCH(bool, typeable);
        QFETCH(bool, included);
        if (included) {
            includeEverySection();
            doc->setNumber(u"bganimated", 1);
        }
        auto *edit = control<QLineEdit>(controlName);
        doc->setText(key, QStringLiteral("C:\\Art\\bg1.bmp"));
        QCOMPARE(edit->text(), QStringLiteral("C:\\Art\\bg1.bmp"));
        if (!typeable)
            return;

        edit->clear();
        const QString before = doc->value(key);
        doc->setDirty(false);
        QTest::keyClicks(edit, QStringLiteral("25"));
        QCOMPARE(doc->value(key), included ? QStringLiteral("25") : before);
        QCOMPARE(doc->isDirty(), included);
    }

    void generatedDescriptionKeepsItsLines()
    {
        auto *text = control<QPlainTextEdit>("txtDescription");
        doc->setText(u"name", QStringLiteral("Neon"));
        control<QPushButton>("cmdGenerateDescription")->click();
        QCOMPARE(doc->value(u"description"), generateDescription(*doc));
        // Shown with plain line feeds, kept with the CR LF it was given.
        QVERIFY(doc->value(u"description").startsWith(QStringLiteral("//Theme Name: Neon\r\n//Developer:")));
        QVERIFY(text->toPlainText().startsWith(QStringLiteral("//Theme Name: Neon\n//Developer:")));
        doc->setDirty(false);
        text->setPlainText(QStringLiteral("typed"));
        QCOMPARE(doc->value(u"description"), QStringLiteral("typed"));
        QVERIFY(doc->isDirty());
    }

    void closeGuardCanKeepTheWindowOpen()
    {
        window->show();
        bool allow = false;
        int asked = 0;
        window->setCloseGuard([&] {
            ++asked;
            return allow;
        });
        control<QAction>("mnuExit")->trigger();
        QVERIFY(window->isVisible());
        allow = true;
        QVERIFY(window->close());
        QCOMPARE(asked, 2);
        QVERIFY(!window->isVisible());
    }

    void problemsPanel_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("bad");
        QTest::addColumn<QString>("good");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("selector"); // "" for a page without data sets
        QTest::addColumn<QString>("dataSet");
        QTest::addColumn<QString>("focused"); // the key whose control takes the focus
        QTest::newRow("colour")
            << "colortitle" << "1,2" << "1,2,3" << 4 << "cmbMisc" << "Theme Colors" << "colortitle";
        QTest::newRow("block delay, animation off")
            << "blkdelaybetweenframes" << "fast" << "10" << 3 << "cmbBlocks" << "Game Blocks" << "animateblocks";
        QTest::newRow("bomb frames")
            << "Bombframecount" << "x" << "1" << 4 << "cmbMisc" << "Block Bomb" << "Bombframecount";
        QTest::newRow("internet background start, animation off")
            << "inetbgstartingframe" << "-1" << "1" << 2 << "cmbFields" << "Internet Background" << "inetbganimated";
        QTest::newRow("sound") << "rotate" << "/abs/rotate.wav" << "" << 5 << "" << "" << "rotate";
        // The root box takes no input: the image name it comes from takes the focus.
        QTest::newRow("background root, read-only")
            << "bgfilename" << "/abs/bg" << "" << 2 << "cmbFields" << "Background" << "bgimage";
    }

    // Found by Check Theme, shown below the page, reached by a double-click, gone once fixed.
    void problemsPanel()
    {
        QFETCH(QString, key);
        QFETCH(QString, bad);
        QFETCH(QString, good);
        QFETCH(int, page);
        QFETCH(QString, selector);
        QFETCH(QString, dataSet);
        QFETCH(QString, focused);
        showActive();
        QTest::qWait(20); // the height is applied once the frame is known
        const int pageHeight = window->centralWidget()->height();
        includeEverySection();
        doc->setText(key, bad);

        QAction *check = control<QAction>("mnuCheckTheme");
        QCOMPARE(check->shortcut(), QKeySequence(Qt::Key_F7));
        QSignalSpy finished(&window->themeCheck(), &BackgroundCheck::finished);
        check->trigger();
        QVERIFY(finished.wait());
        auto *list = control<QTreeWidget>(ProblemsPanel::listName);
        QVERIFY(list->isVisible());
        const Report &report = window->themeCheck().report();
        QCOMPARE(list->topLevelItemCount(), report.problems.size());
        QString count = report.summary();
        count[0] = count[0].toUpper();
        QCOMPARE(control<QToolButton>(ProblemsPanel::countName)->text(), count);
        // The count fits in the page's spare room; the panel brings room of its own.
        QTRY_COMPARE(window->centralWidget()->height(), pageHeight - window->statusBar()->height());
        window->problemsPanel().hide();
        QTRY_COMPARE(window->frameGeometry().height(), pixelsOf(6475));
        QCOMPARE(window->centralWidget()->height(), pageHeight - window->statusBar()->height());
        window->problemsPanel().show();

        // The field by its label (and its element), the key in the tooltip.
        const auto rowsOf = [list](const QString &key) {
            QList<QTreeWidgetItem *> found;
            for (int i = 0; i < list->topLevelItemCount(); ++i) {
                if (list->topLevelItem(i)->toolTip(1) == key)
                    found.append(list->topLevelItem(i));
            }
            return found;
        };
        const QList<QTreeWidgetItem *> rows = rowsOf(key);
        QVERIFY(!rows.isEmpty());
        const AnimatedElement *element = elementOfField(key);
        const QString label = fieldLabel(fieldIndex(key));
        QCOMPARE(rows.first()->text(1),
                 element ? QStringLiteral("%1 (%2)").arg(label, QLatin1StringView(elementPreviews[element->id].caption)) : label);
        QVERIFY(!label.endsWith(u':'));
        list->scrollToItem(rows.first());
        // A double-click is a click, then the second press that the view reads as one.
        const QPoint row = list->visualItemRect(rows.first()).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
        QCOMPARE(int(window->currentPage()), page);
        if (!selector.isEmpty())
            QCOMPARE(control<QComboBox>(selector)->currentText(), dataSet);
        QTRY_COMPARE(QApplication::focusWidget(), control(fieldControl(focused)));

        if (key == QLatin1String("bgfilename"))
            return; // a root names frames, found or missing, whatever it is
        doc->setText(key, good);
        QTRY_VERIFY(rowsOf(key).isEmpty());
    }

    // "NAME.skt - Stakko Theme Maker", marked while changed; the program's name alone without a file.
    void titleNamesTheFileAndItsChanges()
    {
        doc->setText(u"name", QStringLiteral("Changed"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Stakko Theme Maker"));
        doc->setCurrentThemeFile(QStringLiteral("/themes/Night.skt"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Night.skt[*] - Stakko Theme Maker"));
        QVERIFY(window->isWindowModified());
        doc->setDirty(false);
        QVERIFY(!window->isWindowModified());
        window->afterLoadOrSave(FileCommands::Done::Saved);
        QCOMPARE(window->statusBar()->currentMessage(), QStringLiteral("Saved Night.skt"));
        doc->setText(u"name", QStringLiteral("Changed again"));
        QVERIFY(window->isWindowModified());
        doc->resetTheme();
        QCOMPARE(window->windowTitle(), QStringLiteral("Stakko Theme Maker"));
    }

    void desktopShortcuts_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("keys");
        QTest::newRow("New") << "mnuNewTheme" << "Ctrl+N";
        QTest::newRow("Load") << "mnuLoadTheme" << "Ctrl+L";
        QTest::newRow("Load, desktop") << "mnuLoadTheme" << "Ctrl+O";
        QTest::newRow("Save") << "mnuSaveTheme" << "Ctrl+S";
        QTest::newRow("Save As") << "mnuSaveAs" << "Ctrl+A";
        QTest::newRow("Save As, desktop") << "mnuSaveAs" << "Ctrl+Shift+S";
        QTest::newRow("Exit") << "mnuExit" << "Ctrl+Q";
        QTest::newRow("next page") << "actNextPage" << "Ctrl+Tab";
        QTest::newRow("previous page") << "actPreviousPage" << "Ctrl+Shift+Tab";
    }

    void desktopShortcuts()
    {
        QFETCH(QString, item);
        QFETCH(QString, keys);
        QAction *action = control<QAction>(item);
        QVERIFY(action);
        QVERIFY2(action->shortcuts().contains(QKeySequence(keys)), qPrintable(keys));
        // The menu shows the original shortcut first; the added ones follow it.
        if (item.startsWith(u"mnu"))
            QVERIFY(action->shortcuts().first() != QKeySequence(QStringLiteral("Ctrl+O")));
    }

    // Ctrl+Tab and Ctrl+PgDn walk the pages round, backwards with Shift and PgUp.
    void pagesInTurnFromTheKeyboard()
    {
        showActive();
        QCOMPARE(window->currentPage(), MainWindow::Page::General);
        QTest::keyClick(window.get(), Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(window->currentPage(), MainWindow::Page::Sounds);
        QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(window->currentPage(), MainWindow::Page::General);
        control<QAction>("actNextPage")->trigger();
        QCOMPARE(window->currentPage(), MainWindow::Page::Interface);
        control<QAction>("actPreviousPage")->trigger();
        QCOMPARE(window->currentPage(), MainWindow::Page::General);
    }

    void frameSizeBesideEachElement_data()
    {
        QTest::addColumn<AnimatedElementId>("element");
        QTest::addColumn<QString>("shown");
        QTest::newRow("Game Background") << AnimatedElementId::Background << "192 x 352 per frame";
        QTest::newRow("Internet Background") << AnimatedElementId::InternetBackground << "96 x 176 per frame";
        QTest::newRow("Game Blocks") << AnimatedElementId::Blocks << "96 x 80 per frame";
        QTest::newRow("Next Block Window") << AnimatedElementId::NextBlock << "77 x 77 per frame";
        QTest::newRow("Special Window") << AnimatedElementId::SpecialWindow << "160 x 16 per frame";
        QTest::newRow("Explosion") << AnimatedElementId::Explosion << "192 x 64 per frame";
        QTest::newRow("Block Bomb") << AnimatedElementId::Bomb << "192 x 64 per frame";
    }

    void frameSizeBesideEachElement()
    {
        QFETCH(AnimatedElementId, element);
        QFETCH(QString, shown);
        auto *label = control<QLabel>(rowControl("lblFrameSize", int(enumIndex(element))));
        QVERIFY(label);
        QCOMPARE(label->text(), shown);
        QVERIFY(control(QLatin1StringView(elementControls[element].frame))->isAncestorOf(label));
    }

    void swatchesFollowTheColourText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("shown"); // invalid: "no colour"
        QTest::newRow("red") << "255,0,0" << QColor(255, 0, 0);
        QTest::newRow("black") << "0,0,0" << QColor(0, 0, 0);
        QTest::newRow("mixed") << "1,2,3" << QColor(1, 2, 3);
        QTest::newRow("two numbers") << "1,2" << QColor();
        QTest::newRow("out of range") << "256,0,0" << QColor();
        QTest::newRow("blanks") << "1, 2,3" << QColor();
        QTest::newRow("sign") << "+1,2,3" << QColor();
        QTest::newRow("empty") << "" << QColor();
    }

    // The swatch shows what the text says as it is typed; New shows the new theme's (none).
    void swatchesFollowTheColourText()
    {
        QFETCH(QString, text);
        QFETCH(QColor, shown);
        window->showPage(MainWindow::Page::Misc);
        auto *swatch = control<PreviewSurface>("picPreviewColor(3)");
        doc->setText(u"colortheme", QStringLiteral("9,9,9"));
        QCOMPARE(swatch->fillColor(), QColor(9, 9, 9));
        control<QLineEdit>("txtColor(3)")->setText(text);
        QCOMPARE(swatch->fillColor(), shown);
        QCOMPARE(swatch->description(),
                 QStringLiteral("Theme Screen Color: %1").arg(shown.isValid() ? text : QStringLiteral("no colour")));
        doc->resetTheme();
        QVERIFY(!swatch->fillColor().isValid());
    }

    void acceleratorLetters_data()
    {
        QTest::addColumn<QStringList>("captions");
        QTest::addColumn<QString>("taken");
        QTest::addColumn<QString>("avoided");
        QTest::addColumn<QStringList>("lettered");
        QTest::newRow("first letters of words first")
            << QStringList{"Theme Name:", "Theme Author:"} << "FETOH" << "" << QStringList{"Theme &Name:", "Theme &Author:"};
        QTest::newRow("own letter kept") << QStringList{"Theme &Load", "Theme &Save"} << "" << ""
                                         << QStringList{"Theme &Load", "Theme &Save"};
        QTest::newRow("shared own letter moves") << QStringList{"&Theme Data", "&Tools"} << "" << ""
                                                 << QStringList{"&Theme Data", "T&ools"};
        // A caption taking the only letter another one could have gives it up.
        QTest::newRow("no caption left without") << QStringList{"Ab", "A"} << "" << "" << QStringList{"A&b", "&A"};
        QTest::newRow("avoided only when nothing else") << QStringList{"Shield:", "Make Line:"} << "HIED" << "SM"
                                                        << QStringList{"Shie&ld:", "M&ake Line:"};
        QTest::newRow("avoided rather than none") << QStringList{"Sm"} << "" << "SM" << QStringList{"&Sm"};
        QTest::newRow("no letter at all") << QStringList{"Tt"} << "T" << "" << QStringList{"Tt"};
        QTest::newRow("ampersand in text") << QStringList{"R && D"} << "R" << "" << QStringList{"R && &D"};
    }

    void acceleratorLetters()
    {
        QFETCH(QStringList, captions);
        QFETCH(QString, taken);
        QFETCH(QString, avoided);
        QFETCH(QStringList, lettered);
        QCOMPARE(Mnemonics::assign(captions, taken, avoided), lettered);
    }

    // Alt and a letter reach one thing: menus, items, tabs and each page's labelled controls.
    void everyAcceleratorIsUnique()
    {
        const auto unique = [](const QString &where, const QStringList &captions) {
            QHash<QChar, QString> seen;
            for (const QString &caption : captions) {
                const QChar letter = Mnemonics::letterOf(caption);
                QVERIFY2(!letter.isNull(), qPrintable(where + QStringLiteral(": ") + caption));
                QVERIFY2(!seen.contains(letter), qPrintable(where + QStringLiteral(": ") + seen.value(letter) + QStringLiteral(" and ") + caption));
                seen.insert(letter, caption);
            }
        };
        QStringList bar;
        for (const QAction *menu : window->menuBar()->actions())
            bar << menu->text();
        unique(QStringLiteral("menu bar"), bar);
        QString barLetters;
        for (const QString &caption : std::as_const(bar))
            barLetters += Mnemonics::letterOf(caption);
        for (const QMenu *menu : window->menuBar()->findChildren<QMenu *>()) {
            QStringList items;
            for (const QAction *item : menu->actions()) {
                if (!item->isSeparator())
                    items << item->text();
            }
            unique(menu->title(), items);
        }
        auto *tabs = control<QTabBar>("tabMain");
        QStringList tabCaptions;
        for (int i = 0; i < tabs->count(); ++i) {
            tabCaptions << tabs->tabText(i);
            QVERIFY(!barLetters.contains(Mnemonics::letterOf(tabs->tabText(i))));
            // Both of the tab's pictures were read from the stored pixels.
            QCOMPARE(tabs->tabIcon(i).availableSizes(), QList<QSize>({QSize(16, 16), QSize(32, 32)}));
        }
        unique(QStringLiteral("tabs"), tabCaptions);

        forEveryPageAndDataSet([&](const QString &where, const QList<QWidget *> &shown) {
            QStringList captions;
            for (QWidget *w : shown) {
                auto *label = qobject_cast<QLabel *>(w);
                auto *button = qobject_cast<QAbstractButton *>(w);
                const bool labelsInput = label && label->buddy() && label->buddy()->focusPolicy() != Qt::NoFocus;
                const QString caption = labelsInput ? label->text() : button ? button->text() : QString();
                // Every label of an input and every check box has a letter; other buttons when they have one.
                if (labelsInput || qobject_cast<QCheckBox *>(w) || !Mnemonics::letterOf(caption).isNull())
                    captions << caption;
                QVERIFY2(!barLetters.contains(Mnemonics::letterOf(caption)) || Mnemonics::letterOf(caption).isNull(),
                         qPrintable(where + QStringLiteral(": ") + caption));
            }
            unique(where, captions);
        });
    }

    // A screen reader tells every control apart: each has a name, no two buttons say the same.
    void everyControlHasItsOwnAccessibleName()
    {
        forEveryPageAndDataSet([&](const QString &where, const QList<QWidget *> &shown) {
            QHash<QString, QString> buttons; // name and description -> object name
            for (QWidget *w : shown) {
                const bool control = w->focusPolicy() != Qt::NoFocus || qobject_cast<PreviewSurface *>(w);
                if (!control || qobject_cast<QAbstractScrollArea *>(w->parentWidget()))
                    continue;
                QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(w);
                QVERIFY(accessible);
                const QString name = accessible->text(QAccessible::Name);
                QVERIFY2(!name.trimmed().isEmpty(), qPrintable(where + QStringLiteral(": ") + w->objectName() + u' ' + w->metaObject()->className()));
                if (!qobject_cast<QAbstractButton *>(w))
                    continue;
                const QString said = name + u'|' + accessible->text(QAccessible::Description);
                QVERIFY2(!buttons.contains(said), qPrintable(where + QStringLiteral(": ") + buttons.value(said) + QStringLiteral(" and ") + w->objectName() + QStringLiteral(" say ") + said));
                buttons.insert(said, w->objectName());
            }
        });
        // Named after their rows, from the field table.
        const QList<std::pair<const char *, const char *>> named = {
            {"cmdBrowseSound(0)", "Browse for Rotate Block"}, {"cmdPlaySound(0)", "Play Rotate Block"},
            {"cmdPreviewIface(0)", "Preview Main/Fields Screen"}, {"cmdBrowseColor(0)", "Choose Title Bar Color"},
            {"cmdBrowseBG", "Browse for Game Background"}, {"cmdPreviewSpec", "Preview Special Window"},
            {"cmdBrowseMusic", "Browse for Music"}, {"cmdBrowseMisc(7)", "Browse for Team Font Image"}};
        for (const auto &[object, name] : named)
            QCOMPARE(QAccessible::queryAccessibleInterface(control(QLatin1StringView(object)))->text(QAccessible::Name), QLatin1StringView(name));
        auto *swatch = QAccessible::queryAccessibleInterface(control("picPreviewColor(0)"));
        doc->setText(u"colortitle", QStringLiteral("255,255,255"));
        QCOMPARE(swatch->text(QAccessible::Description), QStringLiteral("Title Bar Color: 255,255,255"));
    }

    // Restored after a crash: the check runs at once, its count in the status bar.
    void restoredThemeIsCheckedAtOnce()
    {
        QSignalSpy finished(&window->themeCheck(), &BackgroundCheck::finished);
        doc->setText(u"bgframecount", QStringLiteral("x"));
        doc->setNumber(u"includebackground", 1);
        window->showRestoredTheme(MainWindow::Page::Background);
        QCOMPARE(window->currentPage(), MainWindow::Page::Background);
        QVERIFY(finished.wait());
        auto *count = control<QToolButton>(ProblemsPanel::countName);
        QVERIFY(count && count->isVisibleTo(window.get()));
        QVERIFY(!window->themeCheck().report().isEmpty());
    }

    // One history behind the Edit menu, reached also while a text box has the focus.
    void undoAndRedoFromTheKeyboard()
    {
        // Typing goes to the theme's name from the start.
        showActive();
        QCOMPARE(QApplication::focusWidget(), control(fieldControl("name")));
        const QStringList menus = [this] {
            QStringList names;
            for (QAction *menu : window->menuBar()->actions())
                names << menu->menu()->objectName();
            return names;
        }();
        QCOMPARE(menus.mid(0, 3), (QStringList{"mnuFile", "mnuEdit", "mnuData"}));
        auto *name = control<QLineEdit>(fieldControl("name"));
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, QStringLiteral("Ice"));
        QCoreApplication::processEvents();
        doc->setNumber(u"includebackground", 1); // a command between: its own step
        QCoreApplication::processEvents();
        QVERIFY(control(QStringLiteral("fraBackground"))->isEnabled());
        doc->setDirty(false);

        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!control(QStringLiteral("fraBackground"))->isEnabled());
        QCOMPARE(doc->value(u"name"), QStringLiteral("Ice"));
        QVERIFY(doc->isDirty());
        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(name->text(), QStringLiteral("Stakko Theme"));
        QCOMPARE(control<QAction>("mnuRedo")->text(), QStringLiteral("&Redo Theme Name"));
        QTest::keyClick(name, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(name->text(), QStringLiteral("Ice"));
        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(control(QStringLiteral("fraBackground"))->isEnabled());
    }

    void aboutWindow_data()
    {
        QTest::addColumn<int>("closingKey"); // 0: the OK button
        QTest::newRow("closed by Enter") << int(Qt::Key_Return);
        QTest::newRow("closed by Esc") << int(Qt::Key_Escape);
        QTest::newRow("closed by OK") << 0;
    }

    void aboutWindow()
    {
        QFETCH(int, closingKey);
        QCOMPARE(AboutWindow::versionLine(), QStringLiteral("Version %1.%2.%3")
                                                 .arg(STAKKO_VERSION_MAJOR)
                                                 .arg(STAKKO_VERSION_MINOR)
                                                 .arg(STAKKO_VERSION_PATCH));
        control<QAction>("mnuAbout")->trigger();
        QPointer<AboutWindow> about = window->aboutWindow();
        QVERIFY(about);
        QCOMPARE(about->objectName(), QStringLiteral("frmAbout"));
        QCOMPARE(about->windowTitle(), QStringLiteral("About Stakko Theme Maker"));
        QCOMPARE(about->findChild<QLabel *>("lblVersion")->text(), AboutWindow::versionLine());
        QCOMPARE(about->findChild<QLabel *>("lblTitle")->text(), QStringLiteral("Stakko Theme Maker"));
        QCOMPARE(about->findChild<QLabel *>("lblDescription")->text().count(QLatin1Char('\n')), 1);
        const bool linked = !QStringLiteral(STAKKO_WEB_ADDRESS).isEmpty();
        QCOMPARE(about->findChild<QLabel *>("lblLink")->isVisibleTo(about), linked);
        QCOMPARE(about->findChild<QLabel *>("lblLatest")->isVisibleTo(about), linked);
        QVERIFY(about->findChild<QLabel *>("lblLink")->text().contains(QStringLiteral(STAKKO_WEB_ADDRESS)));
        QVERIFY(!about->isModal());

        control<QAction>("mnuAbout")->trigger();
        QCOMPARE(window->aboutWindow(), about.data());
        int open = 0;
        for (QWidget *top : QApplication::topLevelWidgets())
            open += qobject_cast<AboutWindow *>(top) ? 1 : 0;
        QCOMPARE(open, 1);

        QVERIFY(QTest::qWaitForWindowExposed(about.data()));
        if (closingKey)
            QTest::keyClick(about.data(), Qt::Key(closingKey));
        else
            about->findChild<QPushButton *>("cmdOK")->click();
        QTRY_VERIFY(!about); // unloaded: the next About loads afresh
        window->showAbout();
        QVERIFY(window->aboutWindow());
        QVERIFY(window->aboutWindow()->isVisible());
    }
};

QTEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
