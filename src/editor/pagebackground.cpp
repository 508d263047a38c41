#include "editor/pages.h"

#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

// Both backgrounds play in the one preview beside them, so their frames carry none.
constexpr AnimatedFrameSpec background = {
    "fraBackground", "Game Background", "txtBStart", "txtBGRoot", "txtBGExt",
    "cmdBrowseBG", "cmdPreviewBG", {"chkBGAni"}, nullptr,
    "fraBGAni", "txtBGNum", "txtBGStart", "txtBGStill", "txtBGDelay", "chkBGReverse",
    nullptr, nullptr, {}};

constexpr AnimatedFrameSpec internetBackground = {
    "fraIBG", "Game Internet Background", "txtIBGImage", "txtIBGRoot", "txtIBGExt",
    "cmdBrowseIBG", "cmdPreviewIBG", {"chkIBGAni"}, nullptr,
    "fraIBGAni", "txtIBGNum", "txtIBGStart", "txtIBGStill", "txtIBGDelay", "chkIBGReverse",
    nullptr, nullptr, {}};

QGroupBox *sharedPreview()
{
    QGroupBox *box = frame("fraBGPreview", QStringLiteral("Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 2, 6, 6);
    layout->addWidget(new PreviewSurface(QStringLiteral("picPreviewBG"), QSize(192, 352),
                                         PreviewSurface::Mode::Natural));
    return box;
}

} // namespace

QWidget *createBackgroundPage()
{
    return dataSetPage("picFields", "cmbFields",
                       {fieldCheckBox("chkBG"), fieldCheckBox("chkIBG")},
                       {animatedFrame(background), animatedFrame(internetBackground)},
                       sharedPreview());
}
