#include "editor/pages.h"

#include "editor/pagewidgets.h"

#include <QCheckBox>
#include <QGroupBox>

using namespace PageWidgets;

namespace {

constexpr AnimatedFrameSpec blocks = {
    "fraBlocks", "Game Blocks", "txtBlkStart", "txtBlkRoot", "txtBlkExt",
    "cmdBrowseBlocks", "cmdPreviewBlocks",
    {"chkBlkAni", "chkSpecAni", "chkInetBlkAni", "chkInetSpecAni"}, "chkBlkTrans",
    "fraBlkAni", "txtBlkNum", "txtBlkStartImage", "txtBlkStill", "txtBlkDelay", "chkBlkReverse",
    "fraBlkPreview", "picPreviewBlk", {96, 80}};

constexpr AnimatedFrameSpec nextWindow = {
    "fraNext", "Next Block Window", "txtNextImage", "txtNextRoot", "txtNextExt",
    "cmdBrowseNext", "cmdPreviewNext", {"chkNextAni"}, nullptr,
    "fraNextAni", "txtNextNum", "txtNextStart", "txtNextStill", "txtNextDelay", "chkNextReverse",
    "fraNextPreview", "picPreviewNext", {77, 77}};

constexpr AnimatedFrameSpec specialWindow = {
    "fraSW", "Special Window", "txtSWImage", "txtSWRoot", "txtSWExt",
    "cmdBrowseSpec", "cmdPreviewSpec", {"chkSWAni"}, nullptr,
    "fraSWAni", "txtSWNum", "txtSWStart", "txtSWStill", "txtSWDelay", "chkSWReverse",
    "fraPreviewSpec", "picPreviewSW", {160, 16}};

} // namespace

QWidget *createBlocksPage()
{
    return dataSetPage("picBlocks", "cmbBlocks",
                       {fieldCheckBox("chkBlk"), fieldCheckBox("chkNext"), fieldCheckBox("chkSW")},
                       {animatedFrame(blocks), animatedFrame(nextWindow), animatedFrame(specialWindow)});
}
