#include "consoledialogs.h"

#include <cstdio>
#include <iostream>
#include <string>

#include <termios.h>
#include <unistd.h>

Dialogs::Answer ConsoleDialogs::messageBox(const QString &title, const QString &text, Icon,
                                           Buttons buttons)
{
    QString shown = text;
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(shown));
    if (title == u"Error" || title == u"ERROR")
        m_errorShown = true;
    // Nobody can answer a question here; the safe answer changes nothing.
    return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
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
