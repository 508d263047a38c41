// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/pagewidgets.h"

DataSetPage createBlocksPage()
{
    return PageWidgets::dataSetPage(EditorPage::Blocks, "picBlocks", "cmbBlocks");
}
