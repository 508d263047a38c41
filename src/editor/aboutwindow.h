// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

class QIcon;

/**
 * The About window: title, version, credits and the web link. It blocks nothing and deletes
 * itself when closed, so each opening starts from a fresh load.
 */
class AboutWindow : public QDialog
{
    Q_OBJECT

public:
    explicit AboutWindow(const QIcon &icon, QWidget *parent = nullptr);

    /** "Version 1.0.3": the program's version numbers joined by ".". */
    static QString versionLine();
};
