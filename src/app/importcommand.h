// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class ConsoleDialogs;

/** `stakko-theme import THEME KEY SOURCE... [options]`; \a args as the program got them. Returns the exit status. */
int runImportCommand(const QStringList &args, ConsoleDialogs &dialogs);
