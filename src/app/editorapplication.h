// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editing/filecommands.h"
#include "editor/editordialogs.h"
#include "editor/mainwindow.h"
#include "editor/qtdialogs.h"
#include "sound/mixersettings.h"
#include "sound/soundsystem.h"
#include "theme/themedocument.h"

#include <QSettings>

#include <memory>

class ArtImportCommand;
class AutoRecovery;
class PreviewBinding;
class RecentThemes;
class ThemeFileWatch;
struct ScreenshotTour;

/** For screenshots and an end by the system: messages go to stderr and every question is cancelled. */
class UnattendedDialogs : public EditorDialogs
{
public:
    void show(const Report &report) override;
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

/**
 * The editor as the author meets it: one document, its window and every command over it, the
 * sound settings read at the start and written at the end, the recent themes, autosave copies
 * and the theme file followed on disk. Ended by the system, it exits as Exit does without a
 * question and leaves the unsaved changes as an autosave copy offered at the next start.
 */
class EditorApplication
{
public:
    /** \a unattended: nobody answers questions (screenshots). */
    explicit EditorApplication(bool unattended = false);
    ~EditorApplication();

    /** Shows the window and runs until the author (or the system) ends the editor; the exit status. */
    int run(const QString &themePath);
    /** The screenshot tour over \a tour's theme; nothing of a session with an author is written. */
    int takeScreenshots(const ScreenshotTour &tour);

private:
    bool endEditor();
    void endBySystem();
    void offerRecovery();
    void startSession(const QString &themePath);

    ThemeDocument m_doc;
    MainWindow m_window;
    QtDialogs m_interactive;
    UnattendedDialogs m_unattended;
    SwitchedDialogs m_dialogs;
    FileCommands m_commands;
    // The sound settings are read now and written back at the end; the mixer opens once the
    // window is on screen, so a failure message stands over the editor, not an empty desktop.
    EditorConfig m_config;
    SoundSystem m_sound;
    PreviewBinding *m_previews = nullptr;
    ArtImportCommand *m_importer = nullptr;
    // Beside the per-user skm.ini; the theme files and skm.ini keep the layout the game reads.
    QSettings m_settings;
    std::unique_ptr<RecentThemes> m_recent;
    // A session with an author only: screenshots leave none of it.
    std::unique_ptr<AutoRecovery> m_recovery;
    std::unique_ptr<ThemeFileWatch> m_themeWatch;
    bool m_copyFailureShown = false;
    bool m_endedBySystem = false;
};
