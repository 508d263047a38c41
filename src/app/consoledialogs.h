// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/dialogs.h"

#include "common/report.h"

#include <QCoreApplication>

/** The context of the command line's own texts in its catalog. */
struct CommandLine {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

/**
 * Dialogs for the command line: the password question is answered from --password once, else
 * asked on a terminal, else left unanswered; the save dialog is answered with -o; nobody can
 * answer the others, so they are cancelled.
 */
class ConsoleDialogs : public Dialogs
{
public:
    std::optional<QString> password;
    QString saveName;

    /** Prints every problem to stderr as "TITLE: TEXT", each line break a new line. */
    static void print(const Report &report);
    /** Prints a usage error: what was wrong, then where help is. */
    static void printUsageError(const QString &message);

    Answer askYesNoCancel(const QString &, const QString &) override { return Answer::Cancel; }
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override;
    QString openFileName(const QString &, const QString &) override { return {}; }
    QString saveFileName(const QString &, const QString &) override { return saveName; }
    std::optional<quint32> chooseColor() override { return std::nullopt; }

private:
    bool m_passwordUsed = false;
};
