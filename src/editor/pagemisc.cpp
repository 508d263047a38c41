#include "editor/pages.h"

#include "document/themefields.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

constexpr AnimatedFrameSpec explosion = {
    "fraExplosion", "Explosion", "txtExplosionImage", "txtExplosionRoot", "txtExplosionExt",
    "cmdBrowseExplosion", "cmdPreviewExplosion", {}, "chkExplosionTrans",
    "fraExplosionAni", "txtExplosionNum", nullptr, nullptr, "txtExplosionDelay", nullptr,
    "fraPreviewExplosion", "picPreviewExplosion", {192, 64}};

// The bomb preview shows only the left 64 columns of each frame.
constexpr AnimatedFrameSpec bomb = {
    "fraBomb", "Block Bomb", "txtBombImage", "txtBombRoot", "txtBombExt",
    "cmdBrowseBomb", "cmdPreviewBomb", {}, "chkBombTrans",
    "fraBombAni", "txtBombNum", nullptr, nullptr, "txtBombDelay", nullptr,
    "fraPreviewBomb", "picPreviewBomb", {64, 64}};

QString indexed(const char *name, int i)
{
    return QStringLiteral("%1(%2)").arg(QLatin1StringView(name)).arg(i);
}

QGroupBox *colorFrame()
{
    QGroupBox *box = frame("fraColor", QStringLiteral("Theme Colors"));
    auto *grid = new QGridLayout(box);
    compact(grid);
    constexpr int rowsPerColumn = 6;
    for (int i = 0; i < 12; ++i) {
        const int row = i % rowsPerColumn;
        const int column = (i / rowsPerColumn) * 5;
        auto *edit = new QLineEdit;
        edit->setObjectName(indexed("txtColor", i));
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("255,255,255")) + 14);
        const char *key = colorKeys[i];
        grid->addWidget(label(QString::fromLatin1(fieldSpec(key).caption), edit),
                        row, column);
        grid->addWidget(edit, row, column + 1);
        auto *swatch = new PreviewSurface(indexed("picPreviewColor", i), QSize(21, 21),
                                          PreviewSurface::Mode::Natural);
        swatch->setOutlined(true);
        grid->addWidget(swatch, row, column + 2);
        grid->addWidget(iconButton(indexed("cmdBrowseColor", i), "color",
                                   QStringLiteral("Choose Color")),
                        row, column + 3);
    }
    grid->setColumnMinimumWidth(4, 12);
    grid->setRowStretch(rowsPerColumn, 1);
    return box;
}

QGroupBox *miscPreview()
{
    QGroupBox *box = frame("fraPreviewMisc", QStringLiteral("Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 2, 6, 6);
    layout->addWidget(stillImageBox("Picture1", "imgPreviewMisc", QSize(209, 169)));
    return box;
}

QGroupBox *miscImagesFrame()
{
    QGroupBox *box = frame("fraMImg", QStringLiteral("Miscellaneous Images"));
    auto *grid = new QGridLayout(box);
    compact(grid);
    for (int i = 0; i < 8; ++i) {
        auto *edit = new QLineEdit;
        edit->setObjectName(indexed("txtMiscImage", i));
        const char *key = miscImageKeys[i];
        grid->addWidget(label(QString::fromLatin1(fieldSpec(key).caption), edit),
                        i, 0);
        grid->addWidget(edit, i, 1);
        grid->addWidget(button(indexed("cmdBrowseMisc", i), QStringLiteral("Browse")), i, 2);
        grid->addWidget(button(indexed("cmdPreviewMisc", i), QStringLiteral("Preview")), i, 3);
    }
    grid->addWidget(fieldCheckBox("chkWinTrans"), 8, 0, 1, 4);
    grid->addWidget(fieldCheckBox("chkWinInetTrans"), 9, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->addWidget(miscPreview(), 0, 4, 10, 1, Qt::AlignTop);
    grid->setRowStretch(10, 1);
    return box;
}

} // namespace

QWidget *createMiscPage()
{
    return dataSetPage("picMisc", "cmbMisc",
                       {fieldCheckBox("chkExplosion"), fieldCheckBox("chkBomb"), fieldCheckBox("chkColor"),
                        fieldCheckBox("chkMImg")},
                       {animatedFrame(explosion), animatedFrame(bomb), colorFrame(), miscImagesFrame()});
}
