// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "consoledialogs.h"

#include "common/platform.h"

#include <cstdio>

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
    return Platform::readHiddenLine(prompt);
}
