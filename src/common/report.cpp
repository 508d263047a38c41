#include "common/report.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

QString Problem::shownTitle() const
{
    if (!title.isEmpty())
        return title;
    switch (severity) {
    case Severity::Error:
        return QStringLiteral("Error");
    case Severity::Warning:
        return QStringLiteral("Warning");
    case Severity::Information:
        break;
    }
    return QCoreApplication::applicationName();
}

void Report::error(const QString &text, const QString &field, const QString &file)
{
    problems.append({Problem::Severity::Error, text, field, file, {}, {}});
}

void Report::information(const QString &text, const QString &field, const QString &file)
{
    problems.append({Problem::Severity::Information, text, field, file, {}, {}});
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
