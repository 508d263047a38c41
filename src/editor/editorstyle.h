// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/**
 * Puts the editor's style over the application's own (the desktop's, or the one -style
 * names): the same look, but the menu bar's overflow arrow is read from disk only when the
 * bar is ever too narrow to show it. Reading it at start-up would be the first image read,
 * which makes Qt survey every image plugin installed before the window can appear.
 */
void installEditorStyle();
