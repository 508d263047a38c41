#include "editor/pages.h"

#include "editor/pagewidgets.h"

QWidget *createBlocksPage()
{
    return PageWidgets::dataSetPage(EditorPage::Blocks, "picBlocks", "cmbBlocks");
}
