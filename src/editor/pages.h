// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QWidget;

/** The General page and the controls the window binds beyond its field boxes. */
struct GeneralPage {
    QWidget *panel = nullptr;
    QComboBox *themeType = nullptr;
    QLineEdit *resourceFile = nullptr;
    QPushButton *browseResource = nullptr;
    QPushButton *generateDescription = nullptr;
    QGroupBox *themeType0 = nullptr;
};

/**
 * The six page panels of the main window, each holding its controls under their own object
 * names. The panels only lay controls out; the main window binds them to the document.
 */
GeneralPage createGeneralPage();
QWidget *createInterfacePage();
QWidget *createBackgroundPage();
QWidget *createBlocksPage();
QWidget *createMiscPage();
QWidget *createSoundPage();
