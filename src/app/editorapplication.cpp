// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editorapplication.h"

#include "screenshottour.h"

#include "common/settingsfiles.h"
#include "editing/autorecovery.h"
#include "editing/recentthemes.h"
#include "editing/themehistory.h"
#include "editor/artimportdialog.h"
#include "editor/buildcommand.h"
#include "editor/buttonbinding.h"
#include "editor/previewbinding.h"
#include "editor/recentmenu.h"
#include "editor/shutdownsignals.h"
#include "editor/themefilewatch.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QMenu>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <functional>
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

} // namespace

void UnattendedDialogs::show(const Report &report)
{
    for (const QString &line : report.lines())
        std::fprintf(stderr, "%s\n", qPrintable(line));
}

EditorApplication::EditorApplication(bool unattended)
    : m_window(m_doc)
    , m_interactive(&m_window)
    , m_dialogs(unattended ? static_cast<EditorDialogs &>(m_unattended) : m_interactive)
    , m_commands(m_doc, m_dialogs)
    , m_settings(settingsWritePath(SettingsFile::Editor), QSettings::IniFormat)
{
    // Each command's report is shown once the command is over.
    const auto onTriggered = [this](const char *item, auto command) {
        QObject::connect(m_window.findChild<QAction *>(QLatin1StringView(item)), &QAction::triggered, &m_window,
                         [this, command] { m_dialogs.show(command().report()); });
    };
    onTriggered("mnuNewTheme", [this] { return m_commands.newTheme(); });
    onTriggered("mnuLoadTheme", [this] { return m_commands.loadTheme(); });
    onTriggered("mnuSaveTheme", [this] { return m_commands.saveTheme(); });
    onTriggered("mnuSaveAs", [this] { return m_commands.saveAs(); });

    readEditorConfig(m_config, editorConfigReadPath());
    m_window.setCloseGuard([this] { return endEditor(); });
    m_previews = new PreviewBinding(m_window, m_doc, m_dialogs);
    auto *buttons = new ButtonBinding(m_window, m_doc, m_dialogs, m_sound, m_commands);
    new BuildCommand(m_window, m_doc, m_dialogs, m_commands);
    m_importer = new ArtImportCommand(m_window, m_doc, m_dialogs, m_commands);
    buttons->setImportOffer([this](const QString &key, const QString &path) { return m_importer->offerImport(key, path); });

    m_window.startUp();
    m_recent = std::make_unique<RecentThemes>(m_settings);
    new RecentMenu(*m_window.findChild<QMenu *>(QStringLiteral("mnuRecent")), *m_recent, m_commands, m_dialogs);
}

EditorApplication::~EditorApplication() = default;

int EditorApplication::takeScreenshots(const ScreenshotTour &tour)
{
    if (!tour.themePath.isEmpty()) {
        m_dialogs.show(m_commands.loadPath(tour.themePath).report());
        m_window.history().restart();
    }
    const int status = ::takeScreenshots(tour, m_window, *m_previews, *m_importer, m_doc);
    // Screenshots leave no trace: no prompt, no skm.ini.
    m_window.setCloseGuard({});
    return status;
}

bool EditorApplication::endEditor()
{
    const Result<bool> exit = m_commands.exitRequested();
    m_dialogs.show(exit.report());
    const bool ending = exit && *exit;
    if (ending)
        m_dialogs.show(m_sound.shutDown(m_config, editorConfigWritePath()));
    return ending;
}

// Exit without questions; the unsaved changes stay as the autosave copy for the next start.
void EditorApplication::endBySystem()
{
    m_endedBySystem = true;
    m_dialogs.switchTo(m_unattended);
    int status = 0;
    const Result<QString> kept = m_recovery->keepForNextStart();
    if (!kept) {
        std::fprintf(stderr, "%s\n", qPrintable(QCoreApplication::translate("EditorApplication", "Unsaved changes were lost: %1").arg(kept.errorText())));
        status = 1;
    } else if (!kept->isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(QCoreApplication::translate("EditorApplication", "Unsaved changes were kept in %1").arg(QDir::toNativeSeparators(*kept))));
    }
    m_doc.setDirty(false); // the copy holds them; Exit must not ask
    endEditor();
    QApplication::exit(status);
}

void EditorApplication::offerRecovery()
{
    const std::vector<AutoRecovery::Orphan> orphans = m_recovery->takeOrphans();
    if (orphans.empty())
        return;
    // One document: the newest copy is offered, older ones wait for the next start.
    const AutoRecovery::Orphan &newest = orphans.front();
    const QString theme = newest.themeFile.isEmpty() ? QCoreApplication::translate("EditorApplication", "a new theme")
                                                     : QDir::toNativeSeparators(newest.themeFile);
    const QString text = QCoreApplication::translate("EditorApplication", "Stakko Theme Maker did not end properly while %1 had unsaved changes "
                                        "(kept %2).\n\n\"Restore\" brings the theme back as it was; "
                                        "\"Discard\" deletes the kept changes.")
                             .arg(theme, QLocale().toString(newest.written.toLocalTime(), QLocale::ShortFormat));
    const int choice = m_dialogs.choose(QCoreApplication::translate("EditorApplication", "Recover Unsaved Changes"), text,
                                        {QCoreApplication::translate("EditorApplication", "Restore"), QCoreApplication::translate("EditorApplication", "Discard")});
    if (choice == 1) {
        m_recovery->discard(newest);
    } else if (choice == 0) {
        const Result<int> page = m_recovery->restore(newest);
        Report report;
        if (!page)
            report.error(QCoreApplication::translate("EditorApplication", "The unsaved changes could not be restored: %1").arg(page.errorText()));
        m_dialogs.show(report);
        m_window.showRestoredTheme(page ? editorPageAt(*page) : std::nullopt);
    }
}

void EditorApplication::startSession(const QString &themePath)
{
    // Caught from the first turn of the event loop on; before, there is nothing to lose.
    auto *ending = new ShutdownSignals(&m_window);
    QObject::connect(ending, &ShutdownSignals::received, &m_window, [this] { endBySystem(); },
                     Qt::SingleShotConnection);
    // A message below may be waiting when the system ends the editor; the rest is then skipped.
    m_dialogs.show(m_sound.initSound(m_config));
    if (!m_endedBySystem)
        m_dialogs.show(AutoRecovery::takeOlderEditorsCopies());
    if (!m_endedBySystem)
        offerRecovery();
    if (!m_endedBySystem && !themePath.isEmpty())
        m_dialogs.show(m_commands.loadPath(themePath).report());
}

int EditorApplication::run(const QString &themePath)
{
    m_recovery = std::make_unique<AutoRecovery>(m_doc);
    m_recovery->setPageSource([this] { return int(m_window.currentPage()); });
    QObject::connect(m_recovery.get(), &AutoRecovery::copyDue, &m_window, [this] {
        const Result<void> written = m_recovery->writeCopy();
        // Told once: the editor keeps trying at each change.
        if (written || m_copyFailureShown)
            return;
        m_copyFailureShown = true;
        Report report;
        report.error(QCoreApplication::translate("EditorApplication", "Unsaved changes could not be kept for recovery: %1").arg(written.errorText()));
        m_dialogs.show(report);
    });
    m_themeWatch = std::make_unique<ThemeFileWatch>(m_doc, m_commands, m_dialogs);
    m_commands.setAfterLoadOrSave([this](FileCommands::Done done) {
        m_recovery->restart();
        m_themeWatch->follow();
        m_recent->add(m_doc.currentThemeFile());
        m_window.afterLoadOrSave(done);
    });

    m_window.show();
    // Opening the sound device loads the audio libraries: the window comes first.
    new AfterFirstShow(m_window.windowHandle(), [this, themePath] { startSession(themePath); });
    return QApplication::exec();
}
