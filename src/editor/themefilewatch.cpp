// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/themefilewatch.h"

#include "editing/filecommands.h"
#include "editor/editordialogs.h"
#include "theme/themedocument.h"

#include <QDir>
#include <QFileInfo>

ThemeFileWatch::ThemeFileWatch(ThemeDocument &doc, FileCommands &commands, EditorDialogs &dialogs, QObject *parent)
    : QObject(parent), m_doc(doc), m_commands(commands), m_dialogs(dialogs)
{
    connect(&doc, &ThemeDocument::fieldChanged, this, [this] { m_edited = true; });
    connect(&doc, &ThemeDocument::themeReset, this, [this] { m_watch.setFiles({}); });
    connect(&m_watch, &FileWatch::changed, this, &ThemeFileWatch::changedOnDisk);
}

void ThemeFileWatch::follow()
{
    m_edited = false;
    const QString file = m_doc.currentThemeFile();
    m_watch.setFiles(file.isEmpty() ? QStringList() : QStringList{QFileInfo(file).absoluteFilePath()});
}

void ThemeFileWatch::changedOnDisk()
{
    const QString file = m_doc.currentThemeFile();
    if (!QFileInfo(file).isFile())
        return; // deleted or moved away: the document is all there is now
    if (m_edited
        && m_dialogs.askYesNo(tr("Theme Changed"),
                              tr("%1 has been changed by another program.\n\nDiscard your changes and "
                                             "load it again?")
                                  .arg(QDir::toNativeSeparators(file)))
               != Dialogs::Answer::Yes) {
        m_watch.setFiles({QFileInfo(file).absoluteFilePath()}); // told once per change
        return;
    }
    m_doc.setDirty(false); // the question has been answered: Load must not ask again
    m_dialogs.show(m_commands.loadPath(file).report());
}
