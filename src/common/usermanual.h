// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QUrl>

/**
 * The folder of the HTML manual for a program in \a programFolder: the installed copy, found
 * relative to the program as the prefix places it, else the build's copy for a program run
 * from its build. "" when there is neither.
 */
QString userManualFolder(const QString &programFolder);

/** Where the installed copy of the manual belongs for a program in \a programFolder. */
QString installedManualFolder(const QString &programFolder);

/**
 * The address of \a page in the running program's manual, with \a section as its fragment;
 * an empty address when there is no manual.
 */
QUrl userManualUrl(const QString &page = QStringLiteral("index.html"), const QString &section = {});

/** The manual's page on checking, which gives every problem code a section of its own. */
inline const QString checkingPage = QStringLiteral("checking.html");

/** The section on the checker's problem \a code ("frame-missing"): "code-frame-missing". */
QString problemCodeSection(const QString &code);

/** userManualUrl() of the section on the checker's problem \a code; empty for a problem without one. */
QUrl problemCodeUrl(const QString &code);
