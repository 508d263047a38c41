// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor: stakko-theme-maker [THEME.skt], or --screenshot DIR [THEME.skt] (see usageText).

#include "check/backgroundcheck.h"
#include "common/allocator.h"
#include "common/safefile.h"
#include "editing/autorecovery.h"
#include "editing/fieldbrowsing.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "editing/recentthemes.h"
#include "editing/themehistory.h"
#include "editing/themerecovery.h"
#include "editor/artimportdialog.h"
#include "editor/buildcommand.h"
#include "editor/buttonbinding.h"
#include "editor/editorstyle.h"
#include "editor/controlnames.h"
#include "editor/editordialogs.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/previewwindow.h"
#include "editor/problemspanel.h"
#include "editor/qtdialogs.h"
#include "editor/recentmenu.h"
#include "editor/shutdownsignals.h"
#include "editor/themefilewatch.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocale>
#include <QMenu>
#include <QProcess>
#include <QSettings>
#include <QTextStream>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <functional>
#include <optional>
#include <utility>

namespace {

/**
 * Calls a function once, on the turn of the event loop after \a window first shows on screen,
 * or after a second if it never does (started minimised).
 */
class AfterFirstShow : public QObject
{
public:
    AfterFirstShow(QWindow *window, std::function<void()> then)
        : QObject(window)
        , m_then(std::move(then))
    {
        window->installEventFilter(this);
        QTimer::singleShot(1000, this, &AfterFirstShow::call);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // Qt paints a widget window while handling its first exposure, so the next turn comes after.
        if (event->type() == QEvent::Expose && static_cast<QWindow *>(watched)->isExposed()) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, &AfterFirstShow::call);
        }
        return false;
    }

private:
    void call()
    {
        if (!m_then)
            return;
        const std::function<void()> then = std::exchange(m_then, {});
        deleteLater();
        then();
    }

    std::function<void()> m_then;
};

const char *const usageLines =
    "Usage: stakko-theme-maker [THEME.skt]\n"
    "       stakko-theme-maker --screenshot DIR [THEME.skt]\n";

const char *const usageText =
    "\n"
    "Opens THEME, a .skt theme file (as a file manager passes it), or a new theme.\n"
    "\n"
    "Options:\n"
    "  --screenshot DIR   write every page and data set of THEME, with its previews playing,\n"
    "                     as PNG files in DIR (at the screen's resolution and again at\n"
    "                     144 DPI), then the Problems panel, the File and Edit menus and the\n"
    "                     closer look at 4x, and exit; nothing else is written\n"
    "  --help, --version\n"
    "\n"
    "Exit status: 0 done, 1 a screenshot could not be written, 2 usage error.\n";

/** Usage errors end here, before any window: exit status 2. */
int usageError()
{
    std::fprintf(stderr, "%sTry 'stakko-theme-maker --help'.\n", usageLines);
    return 2;
}

/** --help and --version are answered before the application starts, so they need no display. */
std::optional<int> answerWithoutWindow(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        const QByteArrayView arg(argv[i]);
        if (arg == "--help" || arg == "-h") {
            std::printf("%s%s", usageLines, usageText);
            return 0;
        }
        if (arg == "--version") {
            std::printf("stakko-theme-maker %s\n", STAKKO_VERSION_STRING);
            return 0;
        }
    }
    return std::nullopt;
}

/** For screenshots and an end by the system: messages go to stderr and every question is cancelled. */
class UnattendedDialogs : public EditorDialogs
{
public:
    void show(const Report &report) override
    {
        for (const QString &line : report.lines())
            std::fprintf(stderr, "%s\n", qPrintable(line));
    }
    Answer askYesNoCancel(const QString &, const QString &) override { return Answer::Cancel; }
    std::optional<QString> inputBox(const QString &, const QString &) override { return std::nullopt; }
    QString openFileName(const QString &, const QString &) override { return {}; }
    QString saveFileName(const QString &, const QString &) override { return {}; }
    std::optional<quint32> chooseColor() override { return std::nullopt; }
};

/** Hands every call to one of the other dialogs: the editor's own until nobody is there to answer. */
class SwitchedDialogs : public EditorDialogs
{
public:
    explicit SwitchedDialogs(EditorDialogs &target) : m_target(&target) {}
    void switchTo(EditorDialogs &target) { m_target = &target; }

    void show(const Report &report) override { m_target->show(report); }
    Answer askYesNoCancel(const QString &title, const QString &text) override
    {
        return m_target->askYesNoCancel(title, text);
    }
    Answer askToSave(const QString &title, const QString &text, const QString &file) override
    {
        return m_target->askToSave(title, text, file);
    }
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override
    {
        return m_target->inputBox(prompt, title);
    }
    QString openFileName(const QString &filter, const QString &folder) override
    {
        return m_target->openFileName(filter, folder);
    }
    QString saveFileName(const QString &filter, const QString &proposedName) override
    {
        return m_target->saveFileName(filter, proposedName);
    }
    std::optional<quint32> chooseColor() override { return m_target->chooseColor(); }
    Answer askYesNo(const QString &title, const QString &text) override { return m_target->askYesNo(title, text); }
    QString chooseFolder(const QString &title) override { return m_target->chooseFolder(title); }
    int choose(const QString &title, const QString &text, const QStringList &choices) override
    {
        return m_target->choose(title, text, choices);
    }

private:
    EditorDialogs *m_target;
};

QString fileSlug(const QString &caption)
{
    QString slug;
    for (const QChar c : caption.toLower()) {
        if (c.isLetterOrNumber())
            slug += c;
        else if (!slug.endsWith(QLatin1Char('-')))
            slug += QLatin1Char('-');
    }
    while (slug.endsWith(QLatin1Char('-')))
        slug.chop(1);
    return slug;
}

/** Lets a moment of playing and painting pass. */
void settle()
{
    QEventLoop loop;
    QTimer::singleShot(400, &loop, &QEventLoop::quit);
    loop.exec();
}

/** Starts every preview the page shows and lets the animations play a moment. */
void playVisiblePreviews(MainWindow &window)
{
    QStringList buttons;
    for (const ElementControls &names : elementControls)
        buttons << QLatin1StringView(names.preview);
    buttons << rowControl(interfaceRows.show, 0) << rowControl(miscImageRows.show, 0);
    for (const QString &name : std::as_const(buttons)) {
        auto *button = window.findChild<QAbstractButton *>(name);
        if (button && button->isVisibleTo(&window) && button->isEnabled())
            button->click();
    }
    if (auto *previews = window.findChild<PreviewBinding *>())
        previews->frames().finishLoading();
    settle();
}

bool savePicture(QWidget &widget, const QString &path)
{
    QByteArray png;
    QBuffer buffer(&png);
    QString reason = QStringLiteral("the picture could not be encoded");
    if (!buffer.open(QIODevice::WriteOnly) || !widget.grab().save(&buffer, "PNG")
        || !writeWholeFile(path, png, &reason)) {
        std::fprintf(stderr, "Could not write %s: %s\n", qPrintable(path), qPrintable(reason));
        return false;
    }
    return true;
}

bool saveShot(MainWindow &window, const QString &path)
{
    QApplication::processEvents();
    playVisiblePreviews(window);
    return savePicture(window, path);
}

/** The File and Edit menus open, and the blocks' closer look at 4x. */
bool writeToolShots(MainWindow &window, PreviewBinding &previews, const QString &folder, const QString &suffix)
{
    bool ok = true;
    for (const char *name : {"mnuFile", "mnuEdit"}) {
        auto *menu = window.findChild<QMenu *>(QLatin1StringView(name));
        menu->popup(window.mapToGlobal(QPoint(0, 0)));
        settle();
        ok = savePicture(*menu, QStringLiteral("%1/menu-%2%3.png").arg(folder, QLatin1StringView(name + 3).toString().toLower(), suffix)) && ok;
        menu->hide();
    }
    window.showPage(MainWindow::Page::Blocks);
    window.findChild<QAbstractButton *>(QLatin1StringView(elementControls[ElementBlocks].preview))->click();
    PreviewWindow *closer = previews.openPreviewWindow(ElementBlocks);
    closer->setZoom(4);
    settle();
    ok = savePicture(*closer, folder + QStringLiteral("/preview-window-4x") + suffix + QStringLiteral(".png")) && ok;
    closer->close();
    window.showPage(MainWindow::Page::General);
    return ok;
}

bool writeScreenshots(MainWindow &window, const QString &folder, const QString &suffix)
{
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "Could not create %s\n", qPrintable(folder));
        return false;
    }
    window.show();
    bool ok = true;
    for (int i = 0; i < MainWindow::pageCount; ++i) {
        const auto page = MainWindow::Page(i);
        window.showPage(page);
        const QString base = folder + QLatin1Char('/') + MainWindow::pageSlug(page);
        const char *selectorName = MainWindow::dataSetSelector(page);
        if (!selectorName) {
            ok = saveShot(window, base + suffix + QStringLiteral(".png")) && ok;
            continue;
        }
        auto *selector = window.findChild<QComboBox *>(QLatin1StringView(selectorName));
        for (int choice = 0; choice < selector->count(); ++choice) {
            selector->setCurrentIndex(choice);
            const QString name = base + QLatin1Char('-') + fileSlug(selector->itemText(choice));
            ok = saveShot(window, name + suffix + QStringLiteral(".png")) && ok;
        }
        selector->setCurrentIndex(0);
    }
    window.showPage(MainWindow::Page::General);

    // Last, as the panel and the count take room below the pages.
    QEventLoop loop;
    QObject::connect(&window.themeCheck(), &BackgroundCheck::finished, &loop, &QEventLoop::quit);
    window.checkTheme();
    loop.exec();
    window.problemsPanel().show();
    return saveShot(window, folder + QStringLiteral("/problems") + suffix + QStringLiteral(".png")) && ok;
}

/** The import dialog over the Background page, with the theme's own background frames as its source. */
bool writeImportShot(MainWindow &window, ArtImportCommand &importer, const ThemeDocument &doc, const QString &folder,
                     const QString &suffix)
{
    window.showPage(MainWindow::Page::Background);
    QStringList frames;
    const std::optional<FrameFileName> split = splitFrameFileName(doc.value(u"bgimage"));
    for (int n = 1; split && n <= 8; ++n) {
        const QString file = doc.packageFolder() + split->root + QString::number(n) + u'.' + split->extension;
        if (QFileInfo::exists(file))
            frames << file;
    }
    std::unique_ptr<ArtImportDialog> dialog(importer.dialogFor(QStringLiteral("bgimage"), frames));
    dialog->show();
    settle();
    const bool ok = savePicture(*dialog, folder + QStringLiteral("/import-dialog") + suffix + QStringLiteral(".png"));
    window.showPage(MainWindow::Page::General);
    return ok;
}

/** The 144 DPI pass needs a fresh process: the scale factor is fixed when the application starts. */
int runScaledPass(const QStringList &arguments)
{
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.5"));
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit)
        return 1;
    return child.exitCode();
}

} // namespace

int main(int argc, char *argv[])
{
    keepFreedMemory();
    if (const std::optional<int> answered = answerWithoutWindow(argc, argv))
        return *answered;
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Stakko Theme Maker"));
    QApplication::setApplicationVersion(QStringLiteral(STAKKO_VERSION_STRING));
    installEditorStyle();
    // Ties the windows to the desktop entry, for its icon and name in docks and task bars.
    QGuiApplication::setDesktopFileName(QStringLiteral(STAKKO_APP_ID));

    QStringList args = QApplication::arguments().mid(1);
    QString screenshotFolder;
    QString screenshotSuffix;
    bool scaledPass = false;
    if (args.value(0) == QLatin1String("--screenshot")) {
        if (args.size() < 2)
            return usageError();
        screenshotFolder = args.value(1);
        args = args.mid(2);
        if (args.value(0) == QLatin1String("--scaled-pass")) {
            scaledPass = true;
            screenshotSuffix = QStringLiteral("-144dpi");
            args.removeFirst();
        }
    }
    if (args.size() > 1 || args.value(0).startsWith(QLatin1String("--")))
        return usageError();
    const QString themePath = args.value(0);

    ThemeDocument doc;
    MainWindow window(doc);
    QtDialogs interactive(&window);
    UnattendedDialogs unattended;
    SwitchedDialogs dialogs(screenshotFolder.isEmpty() ? static_cast<EditorDialogs &>(interactive) : unattended);
    FileCommands commands(doc, dialogs);

    // Each command's report is shown once the command is over.
    auto onTriggered = [&](const char *item, auto command) {
        QObject::connect(window.findChild<QAction *>(QLatin1StringView(item)), &QAction::triggered, &window,
                         [&, command] {
                             command();
                             dialogs.show(commands.takeReport());
                         });
    };
    onTriggered("mnuNewTheme", [&commands] { commands.newTheme(); });
    onTriggered("mnuLoadTheme", [&commands] { commands.loadTheme(); });
    onTriggered("mnuSaveTheme", [&commands] { commands.saveTheme(); });
    onTriggered("mnuSaveAs", [&commands] { commands.saveAs(); });

    // The sound settings are read now and written back at the end; the mixer opens once the
    // window is on screen, so a failure message stands over the editor, not an empty desktop.
    EditorConfig config;
    readEditorConfig(config, editorConfigReadPath());
    SoundSystem sound;
    const auto endEditor = [&] {
        const bool ending = commands.exitRequested();
        dialogs.show(commands.takeReport());
        if (ending)
            dialogs.show(sound.shutDown(config, editorConfigWritePath()));
        return ending;
    };
    window.setCloseGuard(endEditor);
    auto *previews = new PreviewBinding(window, doc, dialogs);
    auto *buttons = new ButtonBinding(window, doc, dialogs, sound, commands);
    new BuildCommand(window, doc, dialogs, commands);
    auto *importer = new ArtImportCommand(window, doc, dialogs, commands);
    buttons->setImportOffer([importer](const QString &key, const QString &path) { return importer->offerImport(key, path); });

    window.startUp();
    // Beside the per-user skm.ini; the theme files and skm.ini keep the layout the game reads.
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Stakko Theme Maker"),
                       QStringLiteral("editor"));
    RecentThemes recent(settings);
    new RecentMenu(*window.findChild<QMenu *>(QStringLiteral("mnuRecent")), recent, commands, dialogs);

    if (!screenshotFolder.isEmpty()) {
        // Pictures of one moment: the previews' clock stands still, so every run (and every
        // rebuild of the manual) shows the same frames.
        previews->frames().setClock([] { return quint32(0); });
        if (!themePath.isEmpty()) {
            commands.loadPath(themePath);
            dialogs.show(commands.takeReport());
            window.history().restart();
        }
        bool ok = writeScreenshots(window, screenshotFolder, screenshotSuffix);
        ok = ok && writeToolShots(window, *previews, screenshotFolder, screenshotSuffix);
        ok = ok && writeImportShot(window, *importer, doc, screenshotFolder, screenshotSuffix);
        if (!scaledPass) {
            QStringList childArgs{QStringLiteral("--screenshot"), screenshotFolder, QStringLiteral("--scaled-pass")};
            if (!themePath.isEmpty())
                childArgs << themePath;
            ok = runScaledPass(childArgs) == 0 && ok;
        }
        // Screenshots leave no trace: no prompt, no skm.ini.
        window.setCloseGuard({});
        return ok ? 0 : 1;
    }

    // Everything below belongs to a session with an author: screenshots leave none of it.
    AutoRecovery recovery(doc);
    recovery.setPageSource([&window] { return int(window.currentPage()); });
    QObject::connect(&recovery, &AutoRecovery::copyFailed, &window, [&dialogs](const QString &error) {
        Report report;
        report.error(QStringLiteral("Unsaved changes could not be kept for recovery: ") + error);
        dialogs.show(report);
    }, Qt::SingleShotConnection);
    ThemeFileWatch themeWatch(doc, commands, dialogs);
    commands.setAfterLoadOrSave([&](FileCommands::Done done) {
        recovery.restart();
        themeWatch.follow();
        recent.add(doc.currentThemeFile());
        window.afterLoadOrSave(done);
    });
    const auto offerRecovery = [&] {
        const std::vector<AutoRecovery::Orphan> orphans = recovery.takeOrphans();
        if (orphans.empty())
            return;
        // One document: the newest copy is offered, older ones wait for the next start.
        const AutoRecovery::Orphan &newest = orphans.front();
        const QString theme = newest.themeFile.isEmpty() ? QStringLiteral("a new theme")
                                                         : QDir::toNativeSeparators(newest.themeFile);
        const QString text = QStringLiteral("Stakko Theme Maker did not end properly while %1 had unsaved changes "
                                            "(kept %2).\n\n\"Restore\" brings the theme back as it was; "
                                            "\"Discard\" deletes the kept changes.")
                                 .arg(theme, QLocale().toString(newest.written.toLocalTime(), QLocale::ShortFormat));
        const int choice = dialogs.choose(QStringLiteral("Recover Unsaved Changes"), text,
                                          {QStringLiteral("Restore"), QStringLiteral("Discard")});
        if (choice == 1) {
            recovery.discard(newest);
        } else if (choice == 0) {
            QString error;
            const std::optional<int> page = recovery.restore(newest, &error);
            Report report;
            if (!page)
                report.error(QStringLiteral("The unsaved changes could not be restored: ") + error);
            dialogs.show(report);
            window.showRestoredTheme(page);
        }
    };

    // Ended by the system: Exit without questions, the unsaved changes kept for the next start.
    bool endedBySystem = false;
    const auto endBySystem = [&] {
        endedBySystem = true;
        dialogs.switchTo(unattended);
        int status = 0;
        if (doc.isDirty()) {
            QString error;
            const QString kept = ThemeRecovery().keep(doc, &error);
            if (kept.isEmpty()) {
                std::fprintf(stderr, "Unsaved changes were lost: %s\n", qPrintable(error));
                status = 1;
            } else {
                std::fprintf(stderr, "Unsaved changes were kept in %s\n", qPrintable(kept));
            }
            doc.setDirty(false); // the kept copy holds them; Exit must not ask
        }
        endEditor();
        QApplication::exit(status);
    };

    window.show();
    // Opening the sound device loads the audio libraries: the window comes first.
    new AfterFirstShow(window.windowHandle(), [&] {
        // Caught from the first turn of the event loop on; before, there is nothing to lose.
        auto *ending = new ShutdownSignals(&window);
        QObject::connect(ending, &ShutdownSignals::received, &window, endBySystem, Qt::SingleShotConnection);
        // A message below may be waiting when the system ends the editor; the rest is then skipped.
        dialogs.show(sound.initSound(config));
        if (!endedBySystem)
            dialogs.show(ThemeRecovery().announce());
        if (!endedBySystem)
            offerRecovery();
        if (!endedBySystem && !themePath.isEmpty()) {
            commands.loadPath(themePath);
            dialogs.show(commands.takeReport());
        }
    });
    return app.exec();
}
