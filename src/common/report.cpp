// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

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
        return QCoreApplication::translate("Report", "Error");
    case Severity::Warning:
        return QCoreApplication::translate("Report", "Warning");
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

qsizetype Report::count(Problem::Severity severity) const
{
    return std::count_if(problems.cbegin(), problems.cend(),
                         [severity](const Problem &p) { return p.severity == severity; });
}

QString Report::summary() const
{
    if (isEmpty())
        return QCoreApplication::translate("Report", "no problems");
    const qsizetype errors = count(Problem::Severity::Error);
    const qsizetype warnings = count(Problem::Severity::Warning);
    return QCoreApplication::translate("Report", "%1, %2")
        .arg(errors == 1 ? QCoreApplication::translate("Report", "1 error")
                         : QCoreApplication::translate("Report", "%1 errors").arg(errors),
             warnings == 1 ? QCoreApplication::translate("Report", "1 warning")
                           : QCoreApplication::translate("Report", "%1 warnings").arg(warnings));
}

QStringList Report::lines() const
{
    QStringList out;
    for (const Problem &p : problems) {
        out.append(p.shownTitle() + QStringLiteral(": ") + p.text);
    }
    return out;
}

const char *severityName(Problem::Severity severity)
{
    switch (severity) {
    case Problem::Severity::Error:
        return "error";
    case Problem::Severity::Warning:
        return "warning";
    case Problem::Severity::Information:
        break;
    }
    return "information";
}

QString firstErrorText(const Report &report)
{
    for (const Problem &problem : report.problems) {
        if (problem.severity == Problem::Severity::Error)
            return problem.text;
    }
    return {};
}
