// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/buildcommand.h"

#include "editing/packagebuilder.h"
#include "common/pathlookup.h"
#include "editing/filecommands.h"
#include "theme/referencedfiles.h"
#include "theme/themedocument.h"
#include "editor/editordialogs.h"
#include "editor/mainwindow.h"
#include "editor/problemspanel.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QStatusBar>

namespace {

const char *const caption = QT_TRANSLATE_NOOP("BuildCommand", "Build Resource Package");
// Listing more than this in one box helps nobody; the Problems panel holds them all.
constexpr int listedProblems = 12;

} // namespace

BuildCommand::BuildCommand(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, FileCommands &commands)
    : QObject(&window), m_window(window), m_doc(doc), m_dialogs(dialogs), m_commands(commands)
{
    connect(window.findChild<QAction *>(QStringLiteral("mnuBuildPackage")), &QAction::triggered, this,
            &BuildCommand::build);
}

bool BuildCommand::build()
{
    if (m_doc.number(FieldKey::themeType) == 1 && m_doc.currentThemeFile().isEmpty()) {
        const Result<bool> saved = m_commands.saveThemeAs();
        m_dialogs.show(saved.report());
        if (!saved || !*saved)
            return false;
    }
    QStringList away;
    for (const FileReference &r : referencesToRelink(m_doc, defaultBuildSource(m_doc)))
        away << QStringLiteral("%1: %2").arg(r.key, isAbsoluteThemePath(r.name) ? QDir::toNativeSeparators(r.name) : r.name);
    const bool relink =
        !away.isEmpty()
        && m_dialogs.askYesNo(tr(caption), tr("These files are named by absolute paths or lie outside the package "
                                                      "folder, which the player's machine will not have:\n\n%1\n\nStore "
                                                      "them in the package under their own names and change the fields to "
                                                      "those names?")
                                           .arg(away.join(u'\n')))
               == Dialogs::Answer::Yes;

    // The progress dialog lets events through while it writes: no second build may start then.
    QAction *command = m_window.findChild<QAction *>(QStringLiteral("mnuBuildPackage"));
    command->setEnabled(false);
    const auto enableAgain = qScopeGuard([command] { command->setEnabled(true); });
    QProgressDialog progress(tr("Writing the resource package..."), tr("Cancel"), 0, 1,
                             &m_window);
    progress.setWindowTitle(tr(caption));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500); // small packages are done before it would show
    const auto showProgress = [&](qsizetype done, qsizetype total) {
        progress.setMaximum(int(total));
        progress.setValue(int(done));
        QApplication::processEvents();
        return !progress.wasCanceled();
    };
    const ThemeBuild result =
        buildThemePackage(m_doc, m_commands, m_dialogs, {QString(), QString(), relink}, showProgress, true);
    const BuildReport &built = result.built;
    progress.reset();

    if (!built.written) {
        Report shown;
        QStringList lines;
        for (const Problem &p : built.problems.mid(0, listedProblems))
            lines << p.text;
        if (built.problems.size() > listedProblems)
            lines << tr("... and %1 more in the Problems panel.").arg(built.problems.size() - listedProblems);
        shown.error(tr("The resource package was not written:\n\n%1").arg(lines.join(u'\n')), {}, built.package);
        m_dialogs.show(shown);
        if (built.problems.size() > 1) {
            m_window.problemsPanel().showReport(built);
            m_window.problemsPanel().show();
        }
        return false;
    }
    m_dialogs.show(result.told);
    m_window.statusBar()->showMessage(
        tr("Wrote %1 (%2 files)").arg(QDir::toNativeSeparators(built.package)).arg(built.entries), 10000);
    m_window.checkTheme();
    return true;
}
