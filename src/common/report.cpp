#include "common/report.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

QString Problem::shownTitle() const
{
    if (!title.isEmpty())
        return title;
    return severity == Severity::Error ? QStringLiteral("Error") : QCoreApplication::applicationName();
}

void Report::error(const QString &text, const QString &subject, const QString &title)
{
    problems.append({Problem::Severity::Error, text, subject, title});
}

void Report::information(const QString &text, const QString &subject, const QString &title)
{
    problems.append({Problem::Severity::Information, text, subject, title});
}

bool Report::hasErrors() const
{
    return std::any_of(problems.cbegin(), problems.cend(),
                       [](const Problem &p) { return p.severity == Problem::Severity::Error; });
}

QStringList Report::lines() const
{
    QStringList out;
    for (const Problem &p : problems) {
        out.append(p.shownTitle() + QStringLiteral(": ") + p.text);
    }
    return out;
}
