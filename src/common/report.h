// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

/** One thing a command has to tell: the words the editor shows in a box and the command line prints. */
struct Problem {
    enum class Severity { Information, Warning, Error };

    Severity severity = Severity::Error;
    QString text;  // the message, exactly as shown
    QString field; // the field key it is about; "" for the theme as a whole
    QString file;  // the file it is about; may be ""
    QString code;  // a stable name of its kind ("frame-missing"); "" where nobody sorts by kind
    QString title; // the box title; "" for the usual one ("Error", or the program's name)

    /** The title the message is shown under. */
    QString shownTitle() const;
};

/** What a command found, in the order it found it; empty when there was nothing to tell. */
struct Report {
    QList<Problem> problems;

    void add(Problem problem) { problems.append(std::move(problem)); }
    void error(const QString &text, const QString &field = {}, const QString &file = {});
    void information(const QString &text, const QString &field = {}, const QString &file = {});
    void append(const Report &other) { problems += other.problems; }

    bool isEmpty() const { return problems.isEmpty(); }
    bool hasErrors() const;
    qsizetype count(Problem::Severity severity) const;
    /** "2 errors, 1 warning"; "no problems" when empty. */
    QString summary() const;
    /** "TITLE: TEXT" of every problem. */
    QStringList lines() const;
};

/** "error", "warning" or "information": how summaries and --json name a severity. */
const char *severityName(Problem::Severity severity);

/** The text of the first error in \a report; "" when it holds none. */
QString firstErrorText(const Report &report);
