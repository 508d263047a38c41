#pragma once

#include <QList>
#include <QString>

/** One thing a command has to tell: the words the editor shows in a box and the command line prints. */
struct Problem {
    enum class Severity { Information, Error };

    Severity severity = Severity::Error;
    QString text;    // the message, exactly as shown
    QString subject; // the field key or file it is about; "" for the theme as a whole
    QString title;   // the box title; "" for the usual one ("Error", or the program's name)

    /** The title the message is shown under. */
    QString shownTitle() const;
};

/** What a command found, in the order it found it; empty when there was nothing to tell. */
struct Report {
    QList<Problem> problems;

    void error(const QString &text, const QString &subject = {}, const QString &title = {});
    void information(const QString &text, const QString &subject = {}, const QString &title = {});
    void append(const Report &other) { problems += other.problems; }

    bool isEmpty() const { return problems.isEmpty(); }
    bool hasErrors() const;
    /** "TITLE: TEXT" of every problem. */
    QStringList lines() const;
};
