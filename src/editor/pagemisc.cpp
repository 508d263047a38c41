// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"

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

QGroupBox *colorFrame(MiscPage &bound)
{
    QGroupBox *box = frame("fraColor", QCoreApplication::translate("PageWidgets", "Theme Colors"));
    auto *grid = new QGridLayout(box);
    compact(grid);
    constexpr int rowsPerColumn = 6;
    for (ColorRow r : rowValues<ColorRow>) {
        const int i = rowOf(r);
        const int row = i % rowsPerColumn;
        const int column = (i / rowsPerColumn) * 5;
        auto *edit = new QLineEdit;
        nameField(edit, colorKeys[r]);
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("255,255,255")) + 14);
        grid->addWidget(label(fieldCaption(colorRows.keys[i]), edit), row, column);
        grid->addWidget(edit, row, column + 1);
        auto *swatch = new PreviewSurface(rowControl(colorRows.show, i), QSize(21, 21),
                                          PreviewSurface::Mode::Natural);
        swatch->setOutlined(true);
        bound.swatches.append(swatch);
        swatch->setAccessibleName(QCoreApplication::translate("PageWidgets", "%1 swatch", "a colour's field").arg(fieldLabel(fieldIndex(colorRows.keys[i]))));
        grid->addWidget(swatch, row, column + 2);
        bound.colorButtons[r] = iconButton(rowControl(colorRows.browse, i), "color", QCoreApplication::translate("PageWidgets", "Choose Color"));
        grid->addWidget(bound.colorButtons[r], row, column + 3);
    }
    grid->setColumnMinimumWidth(4, 12);
    grid->setRowStretch(rowsPerColumn, 1);
    return box;
}

QGroupBox *miscPreview(PreviewSurface *&display)
{
    QGroupBox *box = frame("fraPreviewMisc", QCoreApplication::translate("PageWidgets", "Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 2, 6, 6);
    layout->addWidget(stillImageBox("Picture1", "imgPreviewMisc", QSize(209, 169), QCoreApplication::translate("PageWidgets", "Miscellaneous image preview"), display));
    return box;
}

QGroupBox *miscImagesFrame(MiscPage &bound)
{
    QGroupBox *box = frame("fraMImg", QCoreApplication::translate("PageWidgets", "Miscellaneous Images"));
    auto *grid = new QGridLayout(box);
    compact(grid);
    const int rows = int(miscImageKeys.size());
    for (MiscImageRow r : rowValues<MiscImageRow>) {
        const int i = rowOf(r);
        auto *edit = new QLineEdit;
        nameField(edit, miscImageKeys[r]);
        grid->addWidget(label(fieldCaption(miscImageRows.keys[i]), edit), i, 0);
        grid->addWidget(edit, i, 1);
        const FileRow row{miscImageRows.keys[i], edit, button(rowControl(miscImageRows.browse, i), QCoreApplication::translate("PageWidgets", "Browse")),
                          button(rowControl(miscImageRows.show, i), QCoreApplication::translate("PageWidgets", "Preview"))};
        bound.images[r] = row;
        grid->addWidget(row.browse, i, 2);
        grid->addWidget(row.show, i, 3);
    }
    grid->addWidget(fieldCheckBox(FieldKey::winTransparent), rows, 0, 1, 4);
    grid->addWidget(fieldCheckBox(FieldKey::inetWinTransparent), rows + 1, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->addWidget(miscPreview(bound.display), 0, 4, rows + 2, 1, Qt::AlignTop);
    grid->setRowStretch(rows + 2, 1);
    return box;
}

} // namespace

MiscPage createMiscPage()
{
    MiscPage bound;
    FieldWidgets made;
    FieldRecording recording(made);
    bound.colorsFrame = colorFrame(bound);
    bound.imagesFrame = miscImagesFrame(bound);
    static_cast<DataSetPage &>(bound) = dataSetPage(EditorPage::Misc, "picMisc", "cmbMisc",
                                                    {includeKey(Section::Colors), includeKey(Section::MiscImages)},
                                                    {bound.colorsFrame, bound.imagesFrame});
    bound.fields += made;
    return bound;
}
