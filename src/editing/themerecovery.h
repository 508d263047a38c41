// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <QString>

class ThemeDocument;

/**
 * The copies of unsaved changes the editor keeps when the system ends it, in one owner-only
 * folder. A copy is never replaced or removed here; each is named to the author once, at a
 * later start, so the author can load it.
 */
class ThemeRecovery
{
public:
    /** "recovered" in the per-user application data folder. */
    static QString userFolder();

    explicit ThemeRecovery(const QString &folder = userFolder());

    /**
     * Writes \a doc whole as a new file named after its theme file ("Untitled" without one) and
     * the time, creating the folder owner-only when missing. Returns the new file's path, or ""
     * and fills \a error when nothing was kept.
     */
    QString keep(const ThemeDocument &doc, QString *error = nullptr) const;

    /**
     * Names every copy not named before in one information message, then remembers them as
     * named. The copies stay where they are.
     */
    Report announce() const;

private:
    QString m_folder;
};
