#include "scripteddialogs.h"

void ScriptedDialogs::show(const Report &report)
{
    static constexpr Kind kinds[] = {Kind::Information, Kind::Warning, Kind::Error};
    for (const Problem &p : report.problems)
        messages.append({p.shownTitle(), p.text, kinds[int(p.severity)]});
}

Dialogs::Answer ScriptedDialogs::askYesNoCancel(const QString &title, const QString &text)
{
    messages.append({title, text, Kind::Question});
    return answers.isEmpty() ? Answer::Cancel : answers.dequeue();
}

std::optional<QString> ScriptedDialogs::inputBox(const QString &prompt, const QString &)
{
    inputPrompts.append(prompt);
    return inputs.isEmpty() ? std::nullopt : inputs.dequeue();
}

QString ScriptedDialogs::openFileName(const QString &filter, const QString &initialFolder)
{
    openFilters.append(filter);
    openFolders.append(initialFolder);
    return openNames.isEmpty() ? QString() : openNames.dequeue();
}

QString ScriptedDialogs::saveFileName(const QString &filter)
{
    saveFilters.append(filter);
    return saveNames.isEmpty() ? QString() : saveNames.dequeue();
}

std::optional<quint32> ScriptedDialogs::chooseColor()
{
    ++colorRequests;
    return colors.isEmpty() ? std::nullopt : colors.dequeue();
}

QStringList ScriptedDialogs::messageLines() const
{
    QStringList lines;
    for (const Message &m : messages)
        lines.append(m.title + QStringLiteral(": ") + m.text);
    return lines;
}
