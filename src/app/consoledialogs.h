#pragma once

#include "common/dialogs.h"

/**
 * Dialogs for the command line: messages go to stderr as "TITLE: TEXT", the password question
 * is answered from --password once, else asked on a terminal, else left unanswered.
 */
class ConsoleDialogs : public Dialogs
{
public:
    std::optional<QString> password;

    bool errorShown() const { return m_errorShown; }

    Answer messageBox(const QString &title, const QString &text, Icon icon, Buttons buttons) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override;
    QString openFileName(const QString &, const QString &) override { return {}; }
    QString saveFileName(const QString &) override { return {}; }
    std::optional<quint32> chooseColor() override { return std::nullopt; }

private:
    bool m_errorShown = false;
    bool m_passwordUsed = false;
};
