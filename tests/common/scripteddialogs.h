#pragma once

#include "common/dialogs.h"

#include <QList>
#include <QQueue>
#include <QStringList>

/**
 * Dialogs with answers queued by the test. Every question is recorded; a question with no
 * queued answer gets the cancel answer, so a forgotten script shows up as a cancelled dialog.
 */
class ScriptedDialogs : public Dialogs
{
public:
    struct Message {
        QString title;
        QString text;
        Icon icon;
        Buttons buttons;
    };

    QQueue<Answer> answers;                  // for YesNoCancel boxes; OK boxes answer Ok
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

    Answer messageBox(const QString &title, const QString &text, Icon icon, Buttons buttons) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override;
    QString openFileName(const QString &filter, const QString &initialFolder) override;
    QString saveFileName(const QString &filter) override;
    std::optional<quint32> chooseColor() override;

    /** "TITLE: TEXT" of every message so far, for compact comparisons. */
    QStringList messageLines() const;
};
