// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/problemspanel.h"

#include "preview/elementpreview.h"
#include "theme/animatedelement.h"
#include "theme/themefields.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int codeRole = Qt::UserRole + 1;

QIcon severityIcon(Problem::Severity severity)
{
    const QStyle::StandardPixmap pixmap = severity == Problem::Severity::Error ? QStyle::SP_MessageBoxCritical
                                          : severity == Problem::Severity::Warning ? QStyle::SP_MessageBoxWarning
                                                                                   : QStyle::SP_MessageBoxInformation;
    return QApplication::style()->standardIcon(pixmap);
}

/** A field as the author sees it: "Number of frames (Game Background)"; the key when it has no control. */
QString shownField(const QString &key)
{
    const int index = fieldIndex(key);
    if (index < 0)
        return key;
    const AnimatedElement *element = elementOfField(key);
    return element ? ProblemsPanel::tr("%1 (%2)", "a field and the element it belongs to").arg(fieldLabel(index), elementCaption(element->id))
                   : fieldLabel(index);
}

} // namespace

ProblemsPanel::ProblemsPanel(QWidget *parent)
    : QDockWidget(tr("Problems"), parent)
    , m_list(new QTreeWidget)
    , m_count(new QToolButton)
    , m_explain(new QAction(tr("&Explain in the Manual"), this))
{
    setObjectName(QStringLiteral("dockProblems"));
    m_list->setObjectName(QLatin1StringView(listName));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({tr("Problem"), tr("Field")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setWordWrap(false);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(m_list, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        const QString key = item->data(0, keyRole).toString();
        if (!key.isEmpty())
            emit fieldRequested(key);
    });
    // Right-click (or the menu key) on a problem: its code's section in the manual.
    m_explain->setObjectName(QLatin1StringView(explainName));
    m_explain->setEnabled(false);
    m_list->addAction(m_explain);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        m_explain->setEnabled(item && !item->data(0, codeRole).toString().isEmpty());
    });
    connect(m_explain, &QAction::triggered, this, [this] {
        if (const QTreeWidgetItem *item = m_list->currentItem(); item && !item->data(0, codeRole).toString().isEmpty())
            emit manualRequested(item->data(0, codeRole).toString());
    });
    setWidget(m_list);

    m_count->setObjectName(QLatin1StringView(countName));
    m_count->setAutoRaise(true);
    m_count->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_count->setToolTip(tr("Show the problems the check found"));
    connect(m_count, &QToolButton::clicked, this, [this] {
        show();
        raise();
        m_list->setFocus();
    });
}

void ProblemsPanel::showReport(const Report &report)
{
    m_list->clear();
    QList<QTreeWidgetItem *> items;
    for (const Problem &p : report.problems) {
        QString text = p.text;
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        auto *item = new QTreeWidgetItem({text, shownField(p.field)});
        item->setIcon(0, severityIcon(p.severity));
        item->setToolTip(0, p.file.isEmpty() ? text : text + u'\n' + p.file);
        item->setToolTip(1, p.field);
        item->setData(0, keyRole, p.field);
        item->setData(0, codeRole, p.code);
        items.append(item);
    }
    m_list->addTopLevelItems(items);
    // Rows that kept their place but changed their text are not always repainted on their own.
    m_list->viewport()->update();
    QString count = report.summary();
    count[0] = count[0].toUpper();
    m_count->setText(count);
    m_count->setIcon(report.isEmpty() ? QIcon() : severityIcon(report.problems.first().severity));
}
