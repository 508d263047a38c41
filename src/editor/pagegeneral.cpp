// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

QGroupBox *themeType0Group(FileRow &skinRow)
{
    QGroupBox *group = frame("fraTheme0", QCoreApplication::translate("PageWidgets", "Theme Type 0"));
    auto *grid = new QGridLayout(group);
    compact(grid);
    QLineEdit *skin = lineEdit(FieldKey::skinFile);
    grid->addWidget(label(fieldCaption(FieldKey::skinFile), skin), 0, 0);
    grid->addWidget(skin, 0, 1);
    skinRow = {FieldKey::skinFile, skin, button(QStringLiteral("cmdBrowseSkin"), QCoreApplication::translate("PageWidgets", "Browse"))};
    grid->addWidget(skinRow.browse, 0, 2);
    grid->addWidget(fieldCheckBox(FieldKey::skinTransparency), 0, 3);
    grid->setColumnStretch(1, 1);
    return group;
}

} // namespace

GeneralPage createGeneralPage()
{
    GeneralPage bound;
    FieldRecording recording(bound.fields);
    auto *page = new QWidget;
    bound.panel = page;
    page->setObjectName(QStringLiteral("picGeneral"));
    QGroupBox *general = frame("fraGeneral", QCoreApplication::translate("PageWidgets", "General Theme Information"));

    auto *grid = new QGridLayout(general);
    compact(grid);
    for (const char *key : {FieldKey::name, FieldKey::developer, FieldKey::version}) {
        const int row = grid->rowCount();
        QLineEdit *edit = lineEdit(key);
        grid->addWidget(label(fieldCaption(key), edit), row, 0);
        grid->addWidget(edit, row, 1, 1, 2);
    }

    auto *type = new QComboBox;
    bound.themeType = type;
    nameField(type, FieldKey::themeType);
    int row = grid->rowCount();
    grid->addWidget(label(fieldCaption(FieldKey::themeType), type), row, 0);
    grid->addWidget(type, row, 1, Qt::AlignLeft);

    QLineEdit *resource = lineEdit(FieldKey::resourceFile);
    bound.resourceFile = resource;
    row = grid->rowCount();
    grid->addWidget(label(fieldCaption(FieldKey::resourceFile), resource), row, 0);
    grid->addWidget(resource, row, 1);
    bound.browseResource = button(QStringLiteral("cmdBrowseResource"), QCoreApplication::translate("PageWidgets", "Browse"));
    grid->addWidget(bound.browseResource, row, 2);

    bound.themeType0 = themeType0Group(bound.skin);
    grid->addWidget(bound.themeType0, grid->rowCount(), 0, 1, 3);

    auto *description = new QPlainTextEdit;
    nameField(description, FieldKey::description);
    description->setTabChangesFocus(true);
    description->setMinimumHeight(description->fontMetrics().lineSpacing() * 3 + 8);
    row = grid->rowCount();
    grid->addWidget(label(fieldCaption(FieldKey::description), description), row, 0, Qt::AlignLeft | Qt::AlignBottom);
    bound.generateDescription = button(QStringLiteral("cmdGenerateDescription"), QCoreApplication::translate("PageWidgets", "Generate Description"));
    grid->addWidget(bound.generateDescription, row, 1, 1, 2, Qt::AlignRight);
    grid->addWidget(description, grid->rowCount(), 0, 1, 3);
    grid->setRowStretch(grid->rowCount() - 1, 1);
    grid->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(general);
    return bound;
}
