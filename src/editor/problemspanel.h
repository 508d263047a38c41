// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <QDockWidget>

class QAction;
class QToolButton;
class QTreeWidget;

/**
 * The list of what the last check found: severity icon, message and field. A double-click asks
 * for the problem's field; the count beside it (for the status bar) opens the panel. The list's
 * context menu asks for the manual's section on the problem's code.
 */
class ProblemsPanel : public QDockWidget
{
    Q_OBJECT

public:
    static constexpr const char *listName = "lstProblems";
    static constexpr const char *countName = "cmdProblemCount";
    static constexpr const char *explainName = "mnuExplainProblem";

    explicit ProblemsPanel(QWidget *parent = nullptr);

    void showReport(const Report &report);
    /** The button showing the count; it opens the panel. */
    QToolButton *countButton() const { return m_count; }

signals:
    void fieldRequested(const QString &key);
    /** The manual's section on the problem \a code ("frame-missing") is wanted. */
    void manualRequested(const QString &code);

private:
    QTreeWidget *m_list;
    QToolButton *m_count;
    QAction *m_explain;
};
