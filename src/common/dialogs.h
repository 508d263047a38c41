// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/**
 * The questions the core asks the person at the keyboard. The editor answers with real
 * dialogs, the command line from its options or a terminal prompt, tests with scripted answers.
 * Cancelling any of them is a plain "not done" answer, never an error. What went wrong is not
 * told here: commands return it in a Report.
 */
class Dialogs
{
public:
    enum class Answer { Yes, No, Cancel };

    virtual ~Dialogs() = default;

    /** A warning with Yes, No and Cancel, Yes the default: the save prompt. */
    virtual Answer askYesNoCancel(const QString &title, const QString &text) = 0;

    /**
     * The save prompt about the theme in \a file (a file name, "" for a theme never saved): the
     * same question, the file named beside it where a window can show it.
     */
    virtual Answer askToSave(const QString &title, const QString &text, const QString &file)
    {
        Q_UNUSED(file);
        return askYesNoCancel(title, text);
    }

    /** A question with Yes and No only; where a Cancel exists it counts as No. */
    virtual Answer askYesNo(const QString &title, const QString &text)
    {
        return askYesNoCancel(title, text) == Answer::Yes ? Answer::Yes : Answer::No;
    }

    /** A text input box; nullopt when cancelled. */
    virtual std::optional<QString> inputBox(const QString &prompt, const QString &title) = 0;

    /**
     * Open-file dialog. \a filter is in the "Description|pattern|...|" form; \a initialFolder
     * empty means "where the last dialog was". Returns the chosen path, or "" when cancelled.
     */
    virtual QString openFileName(const QString &filter, const QString &initialFolder) = 0;

    /**
     * Save-file dialog, same conventions, offering \a proposedName (a file name, may be "") in
     * the folder of the last dialog. A name the author types without extension gets the filter's
     * first one; there is no overwrite question.
     */
    virtual QString saveFileName(const QString &filter, const QString &proposedName) = 0;

    /** The colour dialog; the chosen colour as red + 256 green + 65536 blue, or nullopt. */
    virtual std::optional<quint32> chooseColor() = 0;

    /** A question answered by one of \a choices (button captions); -1 when nobody chose. */
    virtual int choose(const QString &title, const QString &text, const QStringList &choices)
    {
        Q_UNUSED(title);
        Q_UNUSED(text);
        Q_UNUSED(choices);
        return -1;
    }

    /** A folder dialog; "" when cancelled, and where nobody can choose. */
    virtual QString chooseFolder(const QString &title)
    {
        Q_UNUSED(title);
        return {};
    }
};
