// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

/**
 * Names for assistive technology, derived from what the page already says. A button whose
 * caption repeats within \a scope ("Browse", an icon's "Play Sound") is named after its row:
 * the label beside it in its grid ("Browse for Rotate Block", "Play Rotate Block"), else the
 * frame it sits in ("Preview Game Background"). Names given by hand are kept.
 */
void nameRowButtons(QWidget *scope);
