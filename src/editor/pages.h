// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

/**
 * The six page panels of the main window, each holding its controls under their own object
 * names. The panels only lay controls out; the main window binds them to the document.
 */
QWidget *createGeneralPage();
QWidget *createInterfacePage();
QWidget *createBackgroundPage();
QWidget *createBlocksPage();
QWidget *createMiscPage();
QWidget *createSoundPage();
