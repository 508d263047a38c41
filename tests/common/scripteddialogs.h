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

    QList<Message> messages;
    QStringList inputPrompts;
    QStringList openFilters;
    QStringList openFolders;
    QStringList saveFilters;
    int colorRequests = 0;

    void show(const Report &report) override;
    Answer askYesNoCancel(const QString &title, const QString &text) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override;
    QString openFileName(const QString &filter, const QString &initialFolder) override;
    QString saveFileName(const QString &filter) override;
    std::optional<quint32> chooseColor() override;

    /** "TITLE: TEXT" of every message so far, for compact comparisons. */
    QStringList messageLines() const;
};
