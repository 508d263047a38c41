// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "theme/themesections.h"
#include "theme/themecolors.h"
#include "theme/themeloader.h"
#include "editor/buildcommand.h"
#include "editor/buttonbinding.h"
#include "editor/controlnames.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/previewsurface.h"
#include "editor/previewwindow.h"
#include "editor/themefilewatch.h"
#include "preview/previewtesthelpers.h"
#include "preview/ticktimer.h"
#include "package/packagewriter.h"
#include "package/rawzip.h"
#include "package/resourcepackage.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QPointer>
#include <QStatusBar>
#include <QAction>
#include <QLineEdit>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class WindowBindingsTest : public QObject
{
    Q_OBJECT

    // The window with both bindings, as the editor runs it.
    struct Editor {
        ThemeDocument doc;
        ScriptedDialogs dialogs;
        SoundSystem sound; // never opened: music calls do nothing, as when sound is unavailable
        MainWindow window{doc};
        FileCommands commands{doc, dialogs};
        ButtonBinding buttons{window, doc, dialogs, sound, commands};
        PreviewBinding previews{window, doc, dialogs};
        BuildCommand build{window, doc, dialogs, commands};
        ThemeFileWatch themeWatch{doc, commands, dialogs};

        Editor() { window.startUp(); }
        // The bindings came first, so this also checks that pages built later get connected.
        template<typename T = QWidget>
        T *control(const QString &name)
        {
            window.buildAllPages();
            return window.findChild<T *>(name);
        }
        void click(const QString &name)
        {
            auto *button = control<QAbstractButton>(name);
            QVERIFY2(button, qPrintable(name));
            button->click();
        }
        int shownFrame(const QString &surface)
        {
            const QImage image = control<PreviewSurface>(surface)->image();
            return image.isNull() ? -2 : frameOfPixel(image.pixel(0, 0));
        }
    };

    QTemporaryDir m_dir;

    static void everyRowEnabled(Editor &e)
    {
        for (const ThemeSection &section : themeSections())
            e.doc.setNumber(section.include, 1);
        e.doc.setNumber(u"themetype", 0); // the skin group is enabled for Type 0 only
    }

    void prepareBackground(Editor &e)
    {
        for (int n = 1; n <= 3; ++n)
            writeFrame(m_dir.filePath(QStringLiteral("bg%1.bmp").arg(n)), frameColor(n), {192, 352});
        e.doc.setNumber(u"includebackground", 1);
        e.doc.setNumber(u"bganimated", 1);
        e.doc.setText(u"bgimage", m_dir.filePath("bg1.bmp"));
        e.doc.setText(u"bgframecount", QStringLiteral("3"));
        e.doc.setText(u"bgdelaybetweenframes", QStringLiteral("0"));
        e.window.showPage(MainWindow::Page::Background);
    }

private slots:
    void browseButtonsFillTheirFields_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("background splits root") << "cmdBrowseBG" << "/art/bg1.bmp" << "bgfilename" << "/art/bg";
        QTest::newRow("bomb image") << "cmdBrowseBomb" << "/art/bomb1.jpg" << "bombimage" << "/art/bomb1.jpg";
        QTest::newRow("interface row 2") << "cmdBrowseIface(2)" << "/art/t.bmp" << "ifacethemes" << "/art/t.bmp";
        QTest::newRow("misc row 7") << "cmdBrowseMisc(7)" << "/art/f.bmp" << "teamfont" << "/art/f.bmp";
        QTest::newRow("shield sound") << "cmdBrowseSound(10)" << "/snd/s.wav" << "holyshield" << "/snd/s.wav";
        QTest::newRow("skin") << "cmdBrowseSkin" << "/art/skin.bmp" << "skinfile" << "/art/skin.bmp";
        QTest::newRow("music") << "cmdBrowseMusic" << "/snd/m.ogg" << "midi" << "/snd/m.ogg";
        QTest::newRow("art folder, from the menu") << "mnuArtFolder" << "/art" << "resourcefile" << "art.zip";
        // The colour dialog answers 0xBBGGRR (here 0x030201); the text says red, green, blue.
        QTest::newRow("colour row 5") << "cmdBrowseColor(5)" << "197121" << QString::fromLatin1(colorKeys[ColorRow(5)]) << "1,2,3";
    }

    void browseButtonsFillTheirFields()
    {
        QFETCH(QString, button);
        QFETCH(QString, chosen);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        Editor e;
        everyRowEnabled(e);
        e.doc.setDirty(false);
        if (button.startsWith(u"mnu")) {
            e.dialogs.folders.enqueue(chosen);
            e.control<QAction>(button)->trigger();
        } else if (button.startsWith(QLatin1StringView(colorRows.browse))) {
            e.dialogs.colors.enqueue(chosen.toUInt());
            e.click(button);
        } else {
            e.dialogs.openNames.enqueue(chosen);
            e.click(button);
        }
        QCOMPARE(e.doc.value(key), expected);
        QVERIFY(e.doc.isDirty());
    }

    void filesDroppedOnRows_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("file");   // written into the test folder; "*.skt" is a theme
        QTest::addColumn<QString>("key");    // "" when the drop is refused
        QTest::addColumn<QString>("stored"); // relative to the test folder
        QTest::newRow("frame image, root split") << fieldControl("bgimage") << "bg1.bmp" << "bgfilename" << "bg";
        QTest::newRow("picture renamed .png") << rowControl(miscImageRows.edit, 2) << "door.png" << "internetdoor"
                                              << "door.png";
        QTest::newRow("sound") << fieldControl("rotate") << "turn.wav" << "rotate" << "turn.wav";
        QTest::newRow("music") << fieldControl("midi") << "tune.ogg" << "midi" << "tune.ogg";
        QTest::newRow("skin") << fieldControl("skinfile") << "skin.bmp" << "skinfile" << "skin.bmp";
        QTest::newRow("package, unpacked") << fieldControl("resourcefile") << "pack.zip" << "resourcefile" << "*";
        QTest::newRow("text named .bmp refused") << fieldControl("skinfile") << "notes.bmp" << "" << "";
        QTest::newRow("mp3 on a sound row refused") << fieldControl("drop") << "drop.mp3" << "" << "";
        QTest::newRow("theme on a row loads") << fieldControl("rotate") << "other.skt" << "name" << "Other";
    }

    void filesDroppedOnRows()
    {
        QFETCH(QString, control);
        QFETCH(QString, file);
        QFETCH(QString, key);
        QFETCH(QString, stored);
        qputenv("TMPDIR", QFile::encodeName(m_dir.filePath(QStringLiteral("tmp")))); // where packages unpack
        QDir().mkpath(m_dir.filePath(QStringLiteral("tmp")));
        Editor e;
        everyRowEnabled(e);
        e.doc.setPackageFolder(m_dir.path() + u'/', m_dir.path() + u'/');
        const QString path = m_dir.filePath(file);
        if (file.endsWith(u".bmp") && key.isEmpty())
            QVERIFY(writeFile(path, "shopping list"));
        else if (file.endsWith(u".bmp") || file.endsWith(u".png"))
            writeFrame(path, frameColor(1), {8, 8});
        else if (file.endsWith(u".zip"))
            QVERIFY(writeFile(m_dir.filePath("inside.txt"), "x")
                    && writeResourcePackage(path, {m_dir.filePath("inside.txt")}, m_dir.path())
                    && e.doc.setNumber(u"themetype", 1)); // the resource row takes input in Type 1 only
        else if (file.endsWith(u".skt"))
            QVERIFY(writeFile(path, "[Theme Info]\r\nname=Other\r\nthemetype=0\r\n"));
        else
            QVERIFY(writeFile(path, "sound"));
        e.doc.setDirty(false);
        const QString before = e.doc.value(fieldControls().indexOf(control));
        QWidget *target = e.control(control);
        QVERIFY(target);

        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QCOMPARE(enter.isAccepted(), !key.isEmpty());
        QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
        if (key.isEmpty()) {
            QCOMPARE(e.doc.value(fieldControls().indexOf(control)), before);
            QVERIFY(!e.doc.isDirty());
        } else if (stored == u"*") { // a package is named by its full path and unpacked
            QCOMPARE(e.doc.value(key), QDir::toNativeSeparators(path));
            QVERIFY(QFile::exists(e.doc.packageFolder() + QStringLiteral("inside.txt")));
        } else {
            QCOMPARE(e.doc.value(key), stored);
        }
    }

    void buildFromTheMenu_data()
    {
        QTest::addColumn<QString>("rotate");   // %ART% for the art folder
        QTest::addColumn<int>("relinkAnswer"); // -1: no question is asked
        QTest::addColumn<QString>("stored");   // rotate once built; "" when nothing was built
        QTest::addColumn<QString>("refusal");  // what the message says when nothing was built
        const int yes = int(Dialogs::Answer::Yes), no = int(Dialogs::Answer::No);
        QTest::newRow("art folder") << "r.wav" << -1 << "r.wav" << "";
        QTest::newRow("absolute, relinked") << "%ART%r.wav" << yes << "r.wav" << "";
        QTest::newRow("absolute, kept") << "%ART%r.wav" << no << "" << "absolute path";
        // private.wav lies beside the art folder; out.wav in it is a link to it.
        QTest::newRow("climb, relinked") << "..\\private.wav" << yes << "private.wav" << "";
        QTest::newRow("climb, kept") << "../private.wav" << no << "" << "\"../private.wav\" lies outside the folder";
        QTest::newRow("link leading out, relinked") << "out.wav" << yes << "out.wav" << "";
        QTest::newRow("link leading out, kept") << "out.wav" << no << "" << "\"out.wav\" lies outside the folder";
    }

    // A new theme from a folder of art: saved through Save As, then packed beside it.
    void buildFromTheMenu()
    {
        QFETCH(QString, rotate);
        QFETCH(int, relinkAnswer);
        QFETCH(QString, stored);
        QFETCH(QString, refusal);
        QTemporaryDir dir;
        const QString art = dir.filePath(QStringLiteral("art/"));
        QVERIFY(writeFile(art + QStringLiteral("r.wav"), "RIFF"));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("private.wav")), "private"));
        QVERIFY(QFile::link(dir.filePath(QStringLiteral("private.wav")), art + QStringLiteral("out.wav")));
        Editor e;
        e.dialogs.folders.enqueue(art);
        e.control<QAction>(QStringLiteral("mnuArtFolder"))->trigger();
        e.doc.setNumber(u"includesounds", 1);
        e.doc.setText(u"rotate", rotate.replace(QStringLiteral("%ART%"), art));
        const QString theme = dir.filePath(QStringLiteral("Rock.skt"));
        e.dialogs.saveNames.enqueue(theme);
        if (relinkAnswer >= 0)
            e.dialogs.answers.enqueue(Dialogs::Answer(relinkAnswer));

        e.control<QAction>(QStringLiteral("mnuBuildPackage"))->trigger();
        QCOMPARE(e.doc.currentThemeFile(), theme);
        const QString zip = dir.filePath(QStringLiteral("art.zip"));
        QCOMPARE(QFile::exists(zip), !stored.isEmpty());
        QCOMPARE(e.doc.value(u"rotate"), stored.isEmpty() ? rotate : stored);
        const auto asked = std::find_if(e.dialogs.messages.cbegin(), e.dialogs.messages.cend(), [](const auto &m) {
            return m.kind == ScriptedDialogs::Kind::Question && m.title == u"Build Resource Package";
        });
        QCOMPARE(asked != e.dialogs.messages.cend(), relinkAnswer >= 0);
        if (relinkAnswer >= 0) // the question names the field and the file
            QVERIFY2(asked->text.contains(QStringLiteral("\nrotate: ") + rotate + u'\n'), qPrintable(asked->text));
        if (stored.isEmpty()) {
            QVERIFY2(e.dialogs.messageLines().last().contains(refusal), qPrintable(e.dialogs.messageLines().last()));
            return;
        }
        for (const QByteArray &name : RawZip::centralNames(readFile(zip)))
            QVERIFY2(!RawZip::leadsOutside(name), name.constData());
        QCOMPARE(packageEntryNames(zip).value_or(QStringList()), QStringList{stored});
        QCOMPARE(e.doc.packageFolder(), QDir::cleanPath(art) + u'/'); // previews keep following the art
        QVERIFY(readFile(theme).contains("rotate=" + stored.toLatin1()));
    }

    // Art replaced the way painting programs save (a new file renamed over the old one).
    static void repaint(const QString &path, int frame, QSize size)
    {
        writeFrame(path + QStringLiteral(".new.bmp"), frameColor(frame), size);
        QFile::remove(path);
        QVERIFY(QFile::rename(path + QStringLiteral(".new.bmp"), path));
    }

    void changedArtShowsInRunningPreviews()
    {
        Editor e;
        prepareBackground(e);
        e.click("cmdPreviewBG");
        writeFrame(m_dir.filePath("chat.bmp"), frameColor(7), {640, 480});
        e.doc.setNumber(u"includeinterface", 1);
        e.doc.setText(u"ifacechat", m_dir.filePath("chat.bmp"));
        e.window.showPage(MainWindow::Page::Interface);
        e.click("cmdPreviewIface(4)");
        QCOMPARE(e.shownFrame("imgIPreview"), 7);
        e.window.showPage(MainWindow::Page::Background);
        e.click("cmdPreviewBG");
        e.previews.frames().finishLoading(); // the art changes once it has loaded
        QSignalSpy reloads(&e.previews.watch(), &FileWatch::changed);

        repaint(m_dir.filePath("bg2.bmp"), 9, {192, 352});
        repaint(m_dir.filePath("chat.bmp"), 8, {640, 480});
        const auto slot = [&e](int n) {
            return frameOfPixel(e.previews.frames().strip(AnimatedElementId::Background).pixel(0, 352 * n));
        };
        QTRY_COMPARE(slot(1), 9);
        QCOMPARE(slot(0), 1);
        QVERIFY(e.control<TickTimer>(QStringLiteral("tmrBGPreview"))->isActive());
        QCOMPARE(e.shownFrame("imgIPreview"), 8);
        QCOMPARE(reloads.size(), 1); // both writes settled into one reading
        // A stopped preview is left alone.
        e.control<TickTimer>(QStringLiteral("tmrBGPreview"))->stop();
        repaint(m_dir.filePath("bg3.bmp"), 5, {192, 352});
        QTRY_COMPARE(reloads.size(), 2);
        QCOMPARE(slot(2), 3);

        // A screen that cannot be read is said, and the display keeps what it showed.
        e.doc.setText(u"ifacechat", m_dir.filePath("gone.bmp"));
        e.click("cmdPreviewIface(4)");
        QCOMPARE(e.dialogs.messageLines(), QStringList{"Error: Unable to load image: " + m_dir.filePath("gone.bmp")});
        QCOMPARE(e.shownFrame("imgIPreview"), 8);
    }

    // Frames reach the window as 32-bit pixels equal to what Qt converts them to, whatever the
    // width (the fast path takes four pixels at a time and finishes the row one by one); the
    // closer look's zoom of any part of them equals Qt's own unsmoothed scaling.
    void framesReachTheWindowAsQtConvertsThem_data()
    {
        QTest::addColumn<int>("width");
        for (const int width : {1, 5, 6, 7, 10, 192})
            QTest::addRow("%d pixels wide", width) << width;
    }
    void framesReachTheWindowAsQtConvertsThem()
    {
        QFETCH(int, width);
        QImage frame(width, 3, QImage::Format_RGB888);
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.bytesPerLine(); ++x)
                frame.scanLine(y)[x] = uchar(x * 37 + y * 11);
        }
        const QImage shown = windowPixels(frame);
        QCOMPARE(shown.format(), QImage::Format_RGB32);
        QCOMPARE(shown, frame.convertToFormat(QImage::Format_RGB32));

        QImage translucent = shown.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        translucent.setPixel(0, 1, qRgba(0, 0, 0, 0));
        const QRect beyond(width / 2, 1, width, 5); // runs past the right and the bottom
        for (const QImage &picture : {shown, translucent, frame}) {
            for (const int zoom : {1, 2, 3}) {
                for (const QRect &part : {shown.rect(), beyond}) {
                    const QRect inside = part & shown.rect();
                    const QImage expected = picture.copy(inside).scaled(inside.size() * zoom, Qt::IgnoreAspectRatio,
                                                                        Qt::FastTransformation);
                    QCOMPARE(zoomedPixels(picture, zoom, part), expected.convertToFormat(picture.depth() == 32 ?
                             picture.format() : QImage::Format_RGB32));
                }
            }
        }
    }

    // The preview plays in the page until the page changes; the closer look is the page's own
    // animation: its pause and steps move the page's preview.
    void previewPlaysZoomsPausesAndSteps()
    {
        Editor e;
        prepareBackground(e);
        e.click("cmdPreviewBG");
        auto *timer = e.control<TickTimer>(QStringLiteral("tmrBGPreview"));
        QVERIFY(timer->isActive());
        QVERIFY(e.dialogs.messages.isEmpty());
        QSet<int> seen;
        QTRY_VERIFY_WITH_TIMEOUT((seen << e.shownFrame("picPreviewBG"), seen.size() == 3), 5000);
        QVERIFY(!seen.contains(0));
        QTest::mouseDClick(e.control(QStringLiteral("picPreviewBG")), Qt::LeftButton);
        auto *window = e.window.findChild<PreviewWindow *>();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->zoom(), 2);

        window->setZoom(4);
        const QImage zoomed = window->rendered();
        QCOMPARE(zoomed.size(), QSize(192 * 4, 352 * 4));
        const QImage shown = e.control<PreviewSurface>(QStringLiteral("picPreviewBG"))->image();
        QCOMPARE(zoomed.pixel(4 * 10, 4 * 10), shown.pixel(10, 10));
        QCOMPARE(zoomed.pixel(4 * 10 + 3, 4 * 10 + 3), shown.pixel(10, 10)); // squares, not smoothed

        window->findChild<QPushButton *>(QStringLiteral("cmdPause"))->click();
        QVERIFY(!timer->isActive());
        const int paused = int(e.previews.frames().shownFrame(AnimatedElementId::Background));
        const auto step = [window](const char *button) { window->findChild<QPushButton *>(QLatin1StringView(button))->click(); };
        step("cmdStepForward");
        QCOMPARE(e.shownFrame("picPreviewBG"), paused % 3 + 1);
        step("cmdStepBack");
        step("cmdStepBack");
        QCOMPARE(e.shownFrame("picPreviewBG"), (paused + 1) % 3 + 1);
        QVERIFY(window->findChild<QLabel *>(QStringLiteral("lblFrameState"))->text().startsWith(
            QStringLiteral("Frame %1 of 3").arg((paused + 1) % 3 + 1)));
        window->findChild<QPushButton *>(QStringLiteral("cmdPause"))->click();
        QVERIFY(timer->isActive());

        e.window.showPage(MainWindow::Page::Blocks);
        QVERIFY(!timer->isActive());
        const QImage last = e.control<PreviewSurface>("picPreviewBG")->image();
        QTest::qWait(20);
        QCOMPARE(e.control<PreviewSurface>("picPreviewBG")->image(), last);
    }

    void themeFileChangedElsewhere_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<int>("answer"); // to the discard question; -1: none is asked
        QTest::addColumn<QString>("name");
        QTest::newRow("no changes: loaded again") << false << -1 << "Outside";
        QTest::newRow("changes kept") << true << int(Dialogs::Answer::No) << "Mine";
        QTest::newRow("changes discarded") << true << int(Dialogs::Answer::Yes) << "Outside";
    }

    void themeFileChangedElsewhere()
    {
        QFETCH(bool, edited);
        QFETCH(int, answer);
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString theme = dir.filePath(QStringLiteral("T.skt"));
        QVERIFY(writeFile(theme, "[Theme Info]\r\nname=Before\r\nthemetype=0\r\n"));
        Editor e;
        e.commands.setAfterLoadOrSave([&e](FileCommands::Done) { e.themeWatch.follow(); });
        QCOMPARE(*e.commands.loadPath(theme), FileCommands::LoadOutcome::Loaded);
        // The editor's own save is no change from outside.
        QVERIFY(e.commands.saveTheme());
        QTest::qWait(FileWatch::settleMs * 2);
        QVERIFY(e.dialogs.messages.isEmpty());
        if (edited)
            e.doc.setText(u"name", QStringLiteral("Mine"));
        if (answer >= 0)
            e.dialogs.answers.enqueue(Dialogs::Answer(answer));

        QVERIFY(writeFile(theme, "[Theme Info]\r\nname=Outside\r\nthemetype=0\r\n"));
        QTRY_COMPARE(e.doc.value(u"name"), name);
        QTest::qWait(FileWatch::settleMs * 2);
        QCOMPARE(e.doc.value(u"name"), name);
        QCOMPARE(e.dialogs.messages.size(), answer >= 0 ? 1 : 0);
    }

    void musicButtonTogglesOnItsCaption()
    {
        Editor e;
        e.doc.setNumber(u"includemusic", 1);
        auto *music = e.control<QAbstractButton>(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(music->text(), QStringLiteral("Play Music"));
        e.click(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(music->text(), QStringLiteral("Stop Music"));
        e.click(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(music->text(), QStringLiteral("Play Music"));
        QVERIFY(e.dialogs.messages.isEmpty()); // without sound, music does nothing and says nothing
    }

    void closerLookDrawsAtOnceAndClosesFromTheKeyboard_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Esc") << int(Qt::Key_Escape) << int(Qt::NoModifier);
        QTest::newRow("Ctrl+W") << int(Qt::Key_W) << int(Qt::ControlModifier);
    }

    void closerLookDrawsAtOnceAndClosesFromTheKeyboard()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        Editor e;
        prepareBackground(e);
        e.click("cmdPreviewBG");
        QTRY_VERIFY(!e.control<PreviewSurface>("picPreviewBG")->image().isNull());
        QPointer<PreviewWindow> closer = e.previews.openPreviewWindow(AnimatedElementId::Background);
        // Drawn before any zoom is chosen: the picture at 2x, not an empty area.
        auto *canvas = closer->findChild<QWidget *>(QStringLiteral("picZoomed"));
        QCOMPARE(canvas->size(), QSize(192 * 2, 352 * 2));
        QCOMPARE(closer->rendered().size(), QSize(192 * 2, 352 * 2));
        closer->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(closer));
        QTest::keyClick(closer->findChild<QComboBox *>(QStringLiteral("cmbZoom")), Qt::Key(key),
                        Qt::KeyboardModifiers(modifiers));
        QTRY_VERIFY(closer.isNull());
    }

    void newAndLoadShowTheThemeThatIsOpen_data()
    {
        QTest::addColumn<bool>("load");
        QTest::newRow("New") << false;
        QTest::newRow("Load") << true;
    }

    // Nothing of the theme before stays on screen: animations, still images and swatches.
    void newAndLoadShowTheThemeThatIsOpen()
    {
        QFETCH(bool, load);
        QTemporaryDir dir;
        const QString theme = dir.filePath(QStringLiteral("Other.skt"));
        QVERIFY(writeFile(theme, "[Theme Info]\r\nname=Other\r\nthemetype=0\r\n"));
        Editor e;
        e.commands.setAfterLoadOrSave([&e](FileCommands::Done done) { e.window.afterLoadOrSave(done); });
        prepareBackground(e);
        for (const char *include : {"includeinterface", "includemiscimages", "includecolors"})
            e.doc.setNumber(QLatin1StringView(include), 1);
        e.click("cmdPreviewBG");
        QTRY_VERIFY(!e.control<PreviewSurface>("picPreviewBG")->image().isNull());
        e.doc.setText(u"ifacemain", m_dir.filePath("bg1.bmp"));
        e.click("cmdPreviewIface(0)");
        e.doc.setText(u"door1", m_dir.filePath("bg2.bmp"));
        e.click("cmdPreviewMisc(0)");
        e.doc.setText(u"colortitle", QStringLiteral("1,2,3"));
        QVERIFY(!e.control<PreviewSurface>("imgIPreview")->image().isNull());
        QVERIFY(!e.control<PreviewSurface>("imgPreviewMisc")->image().isNull());
        QCOMPARE(e.control<PreviewSurface>("picPreviewColor(0)")->fillColor(), QColor(1, 2, 3));
        QPointer<PreviewWindow> closer = e.previews.openPreviewWindow(AnimatedElementId::Background);
        e.doc.setDirty(false);

        if (load)
            QVERIFY(e.commands.loadPath(theme));
        else
            QVERIFY(e.commands.newTheme());
        for (const char *surface : {"picPreviewBG", "imgIPreview", "imgPreviewMisc"})
            QVERIFY2(e.control<PreviewSurface>(QLatin1StringView(surface))->image().isNull(), surface);
        QVERIFY(closer->rendered().isNull());
        // The swatch shows the open theme's colour text: none after New.
        const std::optional<quint32> color = colorOfText(e.doc.value(u"colortitle"));
        QCOMPARE(e.control<PreviewSurface>("picPreviewColor(0)")->fillColor(),
                 color ? QColor(int(*color & 0xFF), int(*color >> 8 & 0xFF), int(*color >> 16)) : QColor());
        if (!load)
            QVERIFY(!color);
        QVERIFY(!e.control<TickTimer>("tmrBGPreview")->isActive());
    }

    void previewSaysWhatItCannotShow_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<QString>("second"); // frame 2's content; "" for no file
        QTest::addColumn<QString>("said");   // in the status bar, FILE the frame's path
        QTest::newRow("a frame missing") << "bg1.bmp" << "" << "Frame 2 of Game Background is missing: FILE";
        QTest::newRow("a frame unreadable") << "bg1.bmp" << "not a picture"
                                            << "Frame 2 of Game Background cannot be read as an image: FILE";
        QTest::newRow("no extension") << "bg" << "" << "Game Background: \"PATHbg\" names no frame file (it has no extension)";
    }

    // Told in the status bar, where the author goes on working; no box.
    void previewSaysWhatItCannotShow()
    {
        QFETCH(QString, image);
        QFETCH(QString, second);
        QFETCH(QString, said);
        QTemporaryDir dir;
        writeFrame(dir.filePath(QStringLiteral("bg1.bmp")), frameColor(1), {192, 352});
        if (!second.isEmpty())
            QVERIFY(writeFile(dir.filePath(QStringLiteral("bg2.bmp")), second.toLatin1()));
        Editor e;
        prepareBackground(e);
        e.doc.setText(u"bgimage", dir.filePath(image));
        e.doc.setText(u"bgframecount", QStringLiteral("2"));
        e.click("cmdPreviewBG");
        QVERIFY(e.dialogs.messages.isEmpty());
        QTRY_COMPARE(e.window.statusBar()->currentMessage(),
                 QString(said).replace(QStringLiteral("FILE"), dir.filePath(QStringLiteral("bg2.bmp")))
                     .replace(QStringLiteral("PATH"), dir.path() + u'/'));

        // All frames there: the message goes.
        writeFrame(dir.filePath(QStringLiteral("bg2.bmp")), frameColor(2), {192, 352});
        e.doc.setText(u"bgimage", dir.filePath(QStringLiteral("bg1.bmp")));
        e.click("cmdPreviewBG");
        QTRY_COMPARE(e.window.statusBar()->currentMessage(), QString());
    }

    void playButtonSaysWhatItCannotPlay()
    {
        Editor e;
        everyRowEnabled(e);
        const QString missing = m_dir.filePath(QStringLiteral("nothing.wav"));
        e.doc.setText(u"rotate", missing);
        e.click("cmdPlaySound(0)");
        QVERIFY(e.window.statusBar()->currentMessage().contains(missing));
        QVERIFY(e.window.statusBar()->currentMessage().contains(QStringLiteral("missing")));
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("noise.wav")), "not a wave"));
        e.doc.setText(u"rotate", m_dir.filePath(QStringLiteral("noise.wav")));
        e.click("cmdPlaySound(0)");
        QVERIFY(e.window.statusBar()->currentMessage().startsWith(QStringLiteral("Rotate Block")));
        QVERIFY(e.window.statusBar()->currentMessage().contains(QStringLiteral("noise.wav")));
        QVERIFY(e.dialogs.messages.isEmpty());
    }

    // What a screen reader hears of a preview: the element, the frame, whether it plays.
    void previewSurfaceSaysWhatItShows()
    {
        Editor e;
        prepareBackground(e);
        auto *surface = QAccessible::queryAccessibleInterface(e.control("picPreviewBG"));
        QCOMPARE(surface->text(QAccessible::Name), QStringLiteral("Background preview"));
        QCOMPARE(surface->text(QAccessible::Description), QStringLiteral("Background preview, empty"));
        e.click("cmdPreviewBG");
        QTRY_VERIFY(e.previews.frames().shownFrame(AnimatedElementId::Background) > 0);
        e.control<TickTimer>("tmrBGPreview")->stop();
        QCOMPARE(surface->text(QAccessible::Description),
                 QStringLiteral("Game Background preview, frame %1 of 3, paused")
                     .arg(e.previews.frames().shownFrame(AnimatedElementId::Background)));
        e.control<TickTimer>("tmrBGPreview")->start();
        QVERIFY(surface->text(QAccessible::Description).endsWith(QStringLiteral("of 3, playing")));
    }
};

QTEST_MAIN(WindowBindingsTest)
#include "tst_windowbindings.moc"
