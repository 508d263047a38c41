// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"

#include <QGroupBox>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

// Both backgrounds play in the one preview beside their frames.
QGroupBox *sharedPreview()
{
    QGroupBox *box = frame("fraBGPreview", QStringLiteral("Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 2, 6, 6);
    auto *surface = new PreviewSurface(QLatin1StringView(elementControls[AnimatedElementId::Background].surface),
                                       animatedElements[AnimatedElementId::Background].surfaceSize, PreviewSurface::Mode::Natural);
    surface->setAccessibleName(QStringLiteral("Background preview"));
    layout->addWidget(surface);
    return box;
}

} // namespace

QWidget *createBackgroundPage()
{
    return dataSetPage(EditorPage::Background, "picFields", "cmbFields", {}, {}, sharedPreview());
}
