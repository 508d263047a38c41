#pragma once

#include <QSize>
#include <QString>

#include <initializer_list>

class QCheckBox;
class QIcon;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class QWidget;

/**
 * Makers for the named controls the pages are built from. Field controls take their caption
 * from the document's field table, so a caption is written down once.
 */
namespace PageWidgets {

/** The caption of the document field edited by \a control ("txtBGNum" -> "Number of frames:"). */
QString fieldCaption(const char *control);

/** One of the editor's own icons by name ("play"), with its double-size variant for high DPI. */
QIcon editorIcon(const char *name);

QLineEdit *lineEdit(const char *name);
/** A root or extension box: filled by the program only, drawn grey. */
QLineEdit *derivedBox(const char *name);
/** A narrow box for frame numbers and delays. */
QLineEdit *numberBox(const char *name);
/** A field check box with its caption from the field table. */
QCheckBox *fieldCheckBox(const char *name);
QPushButton *button(const QString &name, const QString &caption);
QToolButton *iconButton(const QString &name, const char *icon, const QString &toolTip);
QGroupBox *frame(const char *name, const QString &caption);
QLabel *label(const QString &text, QWidget *buddy = nullptr);
/** A sunken picture box holding a still-image display that stretches pictures to \a area. */
QWidget *stillImageBox(const char *boxName, const char *displayName, QSize area);
/** "Data Set to Edit:" with its selector. */
QWidget *dataSetRow(const char *selectorName);

/**
 * A page with a data-set selector: the selector row with the include boxes sharing one place
 * beside it, then the frames sharing one place, then \a side (if any) to their right.
 */
QWidget *dataSetPage(const char *panel, const char *selector, std::initializer_list<QWidget *> includeBoxes,
                     std::initializer_list<QWidget *> frames, QWidget *side = nullptr);

/** Tight spacing for rows of boxes inside a frame. */
void compact(QGridLayout *grid);

/** One animated element's frame: image, buttons, root/extension, switches, settings, preview. */
struct AnimatedFrameSpec {
    const char *frame;        // "fraBlocks"
    const char *caption;      // "Game Blocks"
    const char *image;        // "txtBlkStart"
    const char *root;
    const char *extension;
    const char *browse;
    const char *preview;
    const char *switches[4];  // animation switches, unused ones nullptr
    const char *transparency; // nullptr when the element has none
    const char *aniFrame;     // "fraBlkAni"
    const char *number;
    const char *start;        // nullptr for elements that always start at frame 1
    const char *still;
    const char *delay;
    const char *reverse;
    const char *previewFrame; // nullptr: the page shows the preview outside the frame
    const char *surface;
    QSize surfaceArea;        // the visible part of a frame
};

QGroupBox *animatedFrame(const AnimatedFrameSpec &row);

} // namespace PageWidgets
