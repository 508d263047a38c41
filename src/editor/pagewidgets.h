// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/pages.h"
#include "theme/animatedelement.h"

#include <QSize>
#include <QString>

#include <initializer_list>

class QCheckBox;
class QComboBox;
class QIcon;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class PreviewSurface;
class QPushButton;
class QToolButton;
class QWidget;

/**
 * Makers for the named controls the pages are built from. Field controls are made from the
 * field's key: the name comes from the control-name table, the caption from the field table.
 */
namespace PageWidgets {

/** While it lives, the field controls made by nameField (and the makers below) are kept in \a into. */
class FieldRecording
{
public:
    explicit FieldRecording(FieldWidgets &into);
    ~FieldRecording();
    FieldRecording(const FieldRecording &) = delete;
    FieldRecording &operator=(const FieldRecording &) = delete;

private:
    FieldWidgets *m_outer;
};

/** Gives \a control field \a key's control name and keeps it in the page being recorded. */
void nameField(QWidget *control, const char *key);

/** The caption of document field \a key ("bgframecount" -> "Number of frames:"). */
QString fieldCaption(const char *key);

/** One of the editor's own icons by name ("play"), with its double-size variant for high DPI. */
QIcon editorIcon(const char *name);

QLineEdit *lineEdit(const char *key);
/** A root or extension box: filled by the program only, drawn grey. */
QLineEdit *derivedBox(const char *key);
/** A narrow box for frame numbers and delays. */
QLineEdit *numberBox(const char *key);
/** A field check box with its caption from the field table. */
QCheckBox *fieldCheckBox(const char *key);
QPushButton *button(const QString &name, const QString &caption);
QToolButton *iconButton(const QString &name, const char *icon, const QString &toolTip);
QGroupBox *frame(const char *name, const QString &caption);
QLabel *label(const QString &text, QWidget *buddy = nullptr);
/** A sunken picture box holding a still-image display that stretches pictures to \a area, kept in \a display. */
QWidget *stillImageBox(const char *boxName, const char *displayName, QSize area, const QString &accessibleName,
                       PreviewSurface *&display);
/** "Data Set to Edit:" with its selector, kept in \a selector. */
QWidget *dataSetRow(const char *selectorName, QComboBox *&selector);

/**
 * A page with a data-set selector: the selector row with the include boxes sharing one place
 * beside it, then the frames sharing one place, then \a side (if any) to their right. The
 * page's animated elements come first, then the sections switched by \a includeKeys, whose
 * \a frames follow in the same order.
 */
DataSetPage dataSetPage(EditorPage page, const char *panelName, const char *selector,
                     std::initializer_list<const char *> includeKeys = {},
                     std::initializer_list<QWidget *> frames = {}, QWidget *side = nullptr);

/** Tight spacing for rows of boxes inside a frame. */
void compact(QGridLayout *grid);

/** Animated element \a element's frame: image, buttons, root/extension, switches, settings, preview. */
ElementFrame animatedFrame(AnimatedElementId element);

} // namespace PageWidgets
