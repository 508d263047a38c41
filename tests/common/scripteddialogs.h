// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/editordialogs.h"

#include <QList>
#include <QQueue>
#include <QStringList>

/**
 * Dialogs with answers queued by the test. Every question and shown message is recorded; a
 * question with no queued answer gets the cancel answer, so a forgotten script shows up as a
 * cancelled dialog.
 */
class ScriptedDialogs : public EditorDialogs
{
public:
    enum class Kind { Error, Warning, Information, Question };
    struct Message {
        QString title;
        QString text;
        Kind kind;
    };

    QQueue<Answer> answers;                  // for YesNoCancel questions
    QQueue<std::optional<QString>> inputs;   // input boxes
    QQueue<QString> openNames;               // open-file dialogs ("" = cancel)
    QQueue<QString> saveNames;               // save-file dialogs ("" = cancel)
    QQueue<std::optional<quint32>> colors;   // colour dialogs
    QQueue<QString> folders;                 // folder dialogs ("" = cancel)
    QQueue<int> choices;                     // choose(): the index of the button, -1 for none

    QList<Message> messages;
    QStringList inputPrompts;
    QStringList openFilters;
    QStringList openFolders;
    QStringList saveFilters;
    QStringList saveProposals;
    QStringList savePromptFiles; // the file each save prompt named
    int colorRequests = 0;

    void show(const Report &report) override
    {
        static constexpr Kind kinds[] = {Kind::Information, Kind::Warning, Kind::Error};
        for (const Problem &p : report.problems)
            messages.append({p.shownTitle(), p.text, kinds[int(p.severity)]});
    }

    Answer askYesNoCancel(const QString &title, const QString &text) override
    {
        messages.append({title, text, Kind::Question});
        return answers.isEmpty() ? Answer::Cancel : answers.dequeue();
    }

    Answer askToSave(const QString &title, const QString &text, const QString &file) override
    {
        savePromptFiles.append(file);
        return askYesNoCancel(title, text);
    }

    std::optional<QString> inputBox(const QString &prompt, const QString &) override
    {
        inputPrompts.append(prompt);
        return inputs.isEmpty() ? std::nullopt : inputs.dequeue();
    }

    QString openFileName(const QString &filter, const QString &initialFolder) override
    {
        openFilters.append(filter);
        openFolders.append(initialFolder);
        return openNames.isEmpty() ? QString() : openNames.dequeue();
    }

    QString saveFileName(const QString &filter, const QString &proposedName) override
    {
        saveFilters.append(filter);
        saveProposals.append(proposedName);
        return saveNames.isEmpty() ? QString() : saveNames.dequeue();
    }

    std::optional<quint32> chooseColor() override
    {
        ++colorRequests;
        return colors.isEmpty() ? std::nullopt : colors.dequeue();
    }

    int choose(const QString &title, const QString &text, const QStringList &) override
    {
        messages.append({title, text, Kind::Question});
        return choices.isEmpty() ? -1 : choices.dequeue();
    }

    QString chooseFolder(const QString &title) override
    {
        messages.append({title, QString(), Kind::Question});
        return folders.isEmpty() ? QString() : folders.dequeue();
    }

    /** "TITLE: TEXT" of every message so far, for compact comparisons. */
    QStringList messageLines() const
    {
        QStringList lines;
        for (const Message &m : messages)
            lines.append(m.title + QStringLiteral(": ") + m.text);
        return lines;
    }
};
