// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/dialogs.h"
#include "common/report.h"

/** The editor's dialogs: the core's questions, and the boxes that tell what a command reported. */
class EditorDialogs : public Dialogs
{
public:
    /** One OK box per problem, in order, with the icon of its severity. */
    virtual void show(const Report &report) = 0;
};
