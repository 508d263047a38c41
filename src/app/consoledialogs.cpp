// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "consoledialogs.h"

#include "common/platform.h"

#include <cstdio>

void ConsoleDialogs::print(const Report &report)
{
    for (const Problem &p : report.problems) {
        QString line = CommandLine::tr("%1: %2", "a message box's title and text").arg(p.shownTitle(), p.text);
        line.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
    }
}

void ConsoleDialogs::printUsageError(const QString &message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(CommandLine::tr("stakko-theme: %1\nTry 'stakko-theme --help'.").arg(message)));
}

std::optional<QString> ConsoleDialogs::inputBox(const QString &prompt, const QString &)
{
    if (password) {
        // Given once: a wrong password must not be retried forever.
        if (m_passwordUsed)
            return std::nullopt;
        m_passwordUsed = true;
        return password;
    }
    return Platform::readHiddenLine(prompt);
}
