// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/dialogs.h"

/** Dialogs nobody answers: every question is cancelled. */
class SilentDialogs : public Dialogs
{
public:
    Answer askYesNoCancel(const QString &, const QString &) override { return Answer::Cancel; }
    std::optional<QString> inputBox(const QString &, const QString &) override { return std::nullopt; }
    QString openFileName(const QString &, const QString &) override { return QString(); }
    QString saveFileName(const QString &, const QString &) override { return QString(); }
    std::optional<quint32> chooseColor() override { return std::nullopt; }
};
