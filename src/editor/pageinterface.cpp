// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

QWidget *previewColumn(PreviewSurface *&display)
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    QWidget *area = stillImageBox("picPreview", "imgIPreview", QSize(191, 124), QCoreApplication::translate("PageWidgets", "Interface screen preview"), display);
    layout->addWidget(label(QCoreApplication::translate("PageWidgets", "Preview:")));
    layout->addWidget(area, 0, Qt::AlignLeft);
    layout->addWidget(fieldCheckBox(FieldKey::menuTransparent));
    layout->addStretch(1);
    return column;
}

} // namespace

InterfacePage createInterfacePage()
{
    InterfacePage bound;
    FieldRecording recording(bound.fields);
    auto *page = new QWidget;
    bound.panel = page;
    page->setObjectName(QStringLiteral("picIface"));

    QGroupBox *screens = frame("fraIface", QCoreApplication::translate("PageWidgets", "Interface"));
    bound.screensFrame = screens;
    auto *grid = new QGridLayout(screens);
    compact(grid);
    const int rows = int(interfaceRowKeys.size());
    for (InterfaceRow r : rowValues<InterfaceRow>) {
        const int i = rowOf(r);
        QLineEdit *edit = lineEdit(interfaceRows.keys[i]);
        QLabel *caption = label(fieldCaption(interfaceRows.keys[i]), edit);
        caption->setObjectName(rowControl(interfaceRows.label, i));
        grid->addWidget(caption, i, 0);
        grid->addWidget(edit, i, 1);
        const FileRow row{interfaceRows.keys[i], edit, button(rowControl(interfaceRows.browse, i), QCoreApplication::translate("PageWidgets", "Browse")),
                          iconButton(rowControl(interfaceRows.show, i), "preview", QCoreApplication::translate("PageWidgets", "Preview"))};
        bound.screens[r] = row;
        grid->addWidget(row.browse, i, 2);
        grid->addWidget(row.show, i, 3);
    }
    grid->setColumnStretch(1, 1);
    grid->addWidget(previewColumn(bound.display), 0, 4, rows, 1);
    grid->setColumnMinimumWidth(4, 191 + 2);

    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fieldCheckBox(includeKey(Section::Interface)));
    layout->addWidget(screens);
    layout->addStretch(1);
    return bound;
}
