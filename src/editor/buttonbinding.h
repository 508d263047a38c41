// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QLatin1StringView>
#include <QObject>

#include "editor/pages.h"

#include <functional>

class Dialogs;
class EditorDialogs;
class QDropEvent;
class FileCommands;
class MainWindow;
class SoundSystem;
class ThemeDocument;

/**
 * Connects the window's Browse, play and music buttons to the field-editing and sound code.
 * A file dropped on a row's text box is taken as its Browse would take it, when it is of the
 * row's kind; a .skt file dropped anywhere loads through the Load command's save guard.
 * Controls come from the window's page structs, each page's as it is built.
 */
class ButtonBinding : public QObject
{
    Q_OBJECT

public:
    ButtonBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, SoundSystem &sound,
                  FileCommands &commands);

    /**
     * Asked with an animated row's image key and the file its Browse chose, before anything is
     * stored; true when the file was taken another way (imported), so Browse stores nothing.
     */
    void setImportOffer(std::function<bool(const QString &key, const QString &path)> offer) { m_importOffer = std::move(offer); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct DropRow {
        QLatin1StringView filter;
        std::function<void(Dialogs &)> browse;
    };

    void addBrowseRow(const char *key, QLatin1StringView filter, std::function<void(Dialogs &)> browse);
    void bindPage(EditorPage page);
    static bool fits(const QString &path, QLatin1StringView filter);
    void loadDroppedTheme(QDropEvent *drop);
    void toggleMusic();

    MainWindow &m_window;
    ThemeDocument &m_doc;
    EditorDialogs &m_dialogs;
    SoundSystem &m_sound;
    FileCommands &m_commands;
    QHash<QString, DropRow> m_browseRows; // by field key
    QHash<QObject *, DropRow> m_dropRows;
    std::function<bool(const QString &, const QString &)> m_importOffer;
};
