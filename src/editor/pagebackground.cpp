// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"
#include "preview/elementpreview.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

// Both backgrounds play in the one preview beside their frames.
QGroupBox *sharedPreview(PreviewSurface *&surface)
{
    QGroupBox *box = frame("fraBGPreview", QCoreApplication::translate("PageWidgets", "Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 2, 6, 6);
    surface = new PreviewSurface(QLatin1StringView(elementControls[AnimatedElementId::Background].surface),
                                       elementPreviews[AnimatedElementId::Background].surfaceSize, PreviewSurface::Mode::Natural);
    surface->setAccessibleName(QCoreApplication::translate("PageWidgets", "Background preview"));
    layout->addWidget(surface);
    return box;
}

} // namespace

DataSetPage createBackgroundPage()
{
    PreviewSurface *surface = nullptr;
    QGroupBox *preview = sharedPreview(surface);
    DataSetPage page = dataSetPage(EditorPage::Background, "picFields", "cmbFields", {}, {}, preview);
    for (ElementFrame &element : page.elements)
        element.surface = surface;
    return page;
}
