// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "art/artimport.h"

#include <QDialog>
#include <QHash>
#include <QObject>

class EditorDialogs;
class FileCommands;
class MainWindow;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class ThemeDocument;

/**
 * The import dialog: the source, the fit, the background colour, the format and quality, with
 * the first frame before and after at the row's size (1x and 2x), and the frames and delay found.
 */
class ArtImportDialog : public QDialog
{
    Q_OBJECT

public:
    ArtImportDialog(const QStringList &keys, const QString &key, QWidget *parent = nullptr);

    QString key() const;
    QStringList sources() const { return m_sources; }
    void setSources(const QStringList &sources);
    ArtOptions options() const;

private:
    void chooseFiles();
    void chooseFolder();
    void chooseBackground();
    void refresh();

    QComboBox *m_row;
    QLineEdit *m_source;
    QComboBox *m_fit;
    QPushButton *m_background;
    QComboBox *m_format;
    QSpinBox *m_quality;
    QSpinBox *m_columns;
    QSpinBox *m_rows;
    QLabel *m_before;
    QLabel *m_after;
    QLabel *m_after2x;
    QLabel *m_found;
    QPushButton *m_ok;
    QStringList m_sources;
    QColor m_backgroundColor = Qt::black;
    ArtFrames m_art; // what the source gave, read once per source
};

/**
 * "Import..." beside every image, animation, sound and music Browse button, "Tools" >
 * "Import Art..." for the current page, and the drops a row's Browse would refuse: each opens
 * the dialog, then imports (one undo step for the fields) and checks the theme.
 */
class ArtImportCommand : public QObject
{
    Q_OBJECT

public:
    ArtImportCommand(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, FileCommands &commands);

    /** The dialog for row \a key with \a sources filled in; true when art was imported. */
    bool importInto(const QString &key, const QStringList &sources = {});
    /**
     * Browse chose \a path for row \a key: when it is art the game cannot take as it is, asks
     * whether to import it. True when the author chose the import (Browse then stores nothing).
     */
    bool offerImport(const QString &key, const QString &path);
    /** The dialog open for row \a key, without running it: for screenshots. */
    ArtImportDialog *dialogFor(const QString &key, const QStringList &sources);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addImportButton(QWidget *browse, const QString &key);
    QStringList keysOnCurrentPage() const;

    MainWindow &m_window;
    ThemeDocument &m_doc;
    EditorDialogs &m_dialogs;
    FileCommands &m_commands;
    QHash<QObject *, QString> m_dropRows; // text box -> key
    QHash<QString, QWidget *> m_buttons;  // key -> its Import button
};

/**
 * Whether the file or folder \a path dropped on (or browsed for) row \a key is art the game cannot
 * take as it is, so that importing it is what the author wants: a folder, a picture other than a
 * bitmap or JPEG, a first frame without its number, a sound that is not a wave, music the game
 * does not play.
 */
bool wantsImport(const QString &key, const QString &path);
