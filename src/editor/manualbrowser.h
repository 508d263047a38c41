// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

class QWidget;

/**
 * Opens \a address, a page of the manual, in the system's browser. When there is no manual
 * (an empty address) or no browser took the page, a box over \a parent says so.
 */
void openUserManual(const QUrl &address, QWidget *parent);
