// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "consoledialogs.h"

#include <cstdio>
#include <iostream>
#include <string>

#include <termios.h>
#include <unistd.h>

void ConsoleDialogs::print(const Report &report)
{
    for (QString line : report.lines()) {
        line.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
    }
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
    if (!isatty(STDIN_FILENO))
        return std::nullopt;

    std::fprintf(stderr, "%s ", qUtf8Printable(prompt));
    std::fflush(stderr);
    termios saved {};
    const bool quiet = tcgetattr(STDIN_FILENO, &saved) == 0;
    if (quiet) {
        termios silent = saved;
        silent.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSANOW, &silent);
    }
    std::string line;
    const bool got = bool(std::getline(std::cin, line));
    if (quiet)
        tcsetattr(STDIN_FILENO, TCSANOW, &saved);
    std::fprintf(stderr, "\n");
    if (!got)
        return std::nullopt;
    return QString::fromStdString(line);
}
