// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/editordialogs.h"

#include <QColor>
#include <QPointer>
#include <QStringList>
#include <QWidget>

/**
 * The editor's dialogs. The file dialogs behave as one shared dialog: each opens in the folder
 * the last one was given, and one given no folder opens where the author last chose a file.
 */
class QtDialogs : public EditorDialogs
{
public:
    explicit QtDialogs(QWidget *parent = nullptr);

    Answer askYesNoCancel(const QString &title, const QString &text) override;
    Answer askToSave(const QString &title, const QString &text, const QString &file) override;
    void show(const Report &report) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override;
    QString openFileName(const QString &filter, const QString &initialFolder) override;
    QString saveFileName(const QString &filter, const QString &proposedName) override;
    std::optional<quint32> chooseColor() override;
    Answer askYesNo(const QString &title, const QString &text) override;
    QString chooseFolder(const QString &title) override;
    int choose(const QString &title, const QString &text, const QStringList &choices) override;

    /**
     * Qt's name filters for a "Description|pattern|...|" filter: one "Description (patterns)"
     * entry per pair, patterns separated by blanks, in the same order.
     */
    static QStringList qtNameFilters(const QString &filter);

    /** The folder the next file dialog opens in; "" lets Qt choose. */
    QString nextDialogFolder() const;

private:
    QString runFileDialog(const QString &filter, bool save, const QString &proposedName = {});

    QPointer<QWidget> m_parent;
    QString m_folder;      // the folder the last dialog was given
    QString m_lastChosen;  // the folder of the last file chosen
    QColor m_lastColor = Qt::white;
};
