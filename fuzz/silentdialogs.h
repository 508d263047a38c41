#pragma once

#include "common/dialogs.h"

/** Dialogs nobody answers: every question is cancelled and every message dismissed. */
class SilentDialogs : public Dialogs
{
public:
    Answer messageBox(const QString &, const QString &, Icon, Buttons buttons) override
    {
        return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
    }
    std::optional<QString> inputBox(const QString &, const QString &) override { return std::nullopt; }
    QString openFileName(const QString &, const QString &) override { return QString(); }
    QString saveFileName(const QString &) override { return QString(); }
    std::optional<quint32> chooseColor() override { return std::nullopt; }
};
