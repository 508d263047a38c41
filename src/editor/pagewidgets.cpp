// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pagewidgets.h"

#include "theme/themefields.h"
#include "editor/controlnames.h"
#include "preview/elementpreview.h"
#include "editor/previewsurface.h"
#include "editor/rawpicture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QResource>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace PageWidgets {

namespace {

int boxHeight()
{
    static const int height = QLineEdit().sizeHint().height();
    return height;
}

} // namespace

QIcon editorIcon(const char *name)
{
    // Rows share their icon. The pixels are stored raw, so no image reader runs at start-up.
    static QHash<QByteArray, QIcon> made;
    QIcon &icon = made[QByteArray(name)];
    if (!icon.isNull())
        return icon;
    for (const char *suffix : {".raw", "@2x.raw"}) {
        const QResource resource(QStringLiteral(":/icons/") + QLatin1StringView(name) + QLatin1StringView(suffix));
        const QImage stored = rawPicture(resource.uncompressedData());
        if (!stored.isNull())
            icon.addPixmap(QPixmap::fromImage(stored));
    }
    Q_ASSERT_X(!icon.isNull(), "editorIcon", name);
    return icon;
}

namespace {
FieldWidgets *recording = nullptr; // the page being built; pages are built one at a time
} // namespace

FieldRecording::FieldRecording(FieldWidgets &into)
    : m_outer(std::exchange(recording, &into))
{
}

FieldRecording::~FieldRecording()
{
    recording = m_outer;
}

void nameField(QWidget *control, const char *key)
{
    const int field = fieldIndex(key);
    Q_ASSERT_X(field >= 0, "nameField", key);
    control->setObjectName(fieldControls().at(field));
    if (recording)
        recording->append({field, control});
}

QString fieldCaption(const char *key)
{
    return fieldCaptionText(key);
}

QLineEdit *lineEdit(const char *key)
{
    auto *edit = new QLineEdit;
    nameField(edit, key);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 16);
    return edit;
}

QLineEdit *derivedBox(const char *key)
{
    QLineEdit *edit = lineEdit(key);
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::NoFocus);
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    edit->setPalette(palette);
    return edit;
}

QLineEdit *numberBox(const char *key)
{
    auto *edit = new QLineEdit;
    nameField(edit, key);
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 6 + 12);
    return edit;
}

QCheckBox *fieldCheckBox(const char *key)
{
    auto *box = new QCheckBox(fieldCaption(key));
    nameField(box, key);
    return box;
}

QPushButton *button(const QString &name, const QString &caption)
{
    auto *push = new QPushButton(caption);
    push->setObjectName(name);
    push->setAutoDefault(false);
    // As tall as a text box, so a row of box and buttons lines up and rows stay tight.
    push->setMaximumHeight(boxHeight());
    return push;
}

QToolButton *iconButton(const QString &name, const char *icon, const QString &toolTip)
{
    auto *tool = new QToolButton;
    tool->setObjectName(name);
    tool->setIcon(editorIcon(icon));
    tool->setToolTip(toolTip);
    tool->setAutoRaise(false);
    tool->setMaximumHeight(boxHeight());
    return tool;
}

QGroupBox *frame(const char *name, const QString &caption)
{
    auto *box = new QGroupBox(caption);
    box->setObjectName(QLatin1StringView(name));
    return box;
}

QLabel *label(const QString &text, QWidget *buddy)
{
    auto *caption = new QLabel(text);
    if (buddy)
        caption->setBuddy(buddy);
    return caption;
}

QWidget *stillImageBox(const char *boxName, const char *displayName, QSize area, const QString &accessibleName,
                       PreviewSurface *&display)
{
    auto *box = new QFrame;
    box->setObjectName(QLatin1StringView(boxName));
    box->setFrameShape(QFrame::StyledPanel);
    box->setFrameShadow(QFrame::Sunken);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(1, 1, 1, 1);
    display = new PreviewSurface(QLatin1StringView(displayName), area, PreviewSurface::Mode::Stretch);
    display->setAccessibleName(accessibleName);
    layout->addWidget(display);
    return box;
}

QWidget *dataSetRow(const char *selectorName, QComboBox *&selector)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    selector = new QComboBox;
    selector->setObjectName(QLatin1StringView(selectorName));
    layout->addWidget(label(QCoreApplication::translate("PageWidgets", "Data Set to Edit:"), selector));
    layout->addWidget(selector);
    layout->addStretch(1);
    return row;
}

DataSetPage dataSetPage(EditorPage page, const char *panelName, const char *selector,
                        std::initializer_list<const char *> includeKeys, std::initializer_list<QWidget *> frames,
                        QWidget *side)
{
    DataSetPage built;
    FieldRecording recording(built.fields);
    auto *panel = new QWidget;
    built.panel = panel;
    panel->setObjectName(QLatin1StringView(panelName));
    auto *grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->addWidget(dataSetRow(selector, built.selector), 0, 0);
    for (AnimatedElementId element : animatedElementIds) {
        if (elementPages[element].page == page)
            grid->addWidget(fieldCheckBox(animatedElements[element].includeField), 0, 1);
    }
    for (const char *key : includeKeys)
        grid->addWidget(fieldCheckBox(key), 0, 1);
    for (AnimatedElementId element : animatedElementIds) {
        if (elementPages[element].page == page) {
            built.elements.append(animatedFrame(element));
            grid->addWidget(built.elements.constLast().frame, 1, 0, 1, 2);
        }
    }
    for (QWidget *f : frames)
        grid->addWidget(f, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    if (side)
        grid->addWidget(side, 0, 2, 2, 1, Qt::AlignTop);
    return built;
}

void compact(QGridLayout *grid)
{
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(6);
}

namespace {

void addFormRow(QGridLayout *grid, QWidget *field, const char *key)
{
    const int row = grid->rowCount();
    grid->addWidget(label(fieldCaption(key), field), row, 0);
    grid->addWidget(field, row, 1, Qt::AlignLeft);
}

QGroupBox *animationSettings(const AnimatedElement &e, const char *name)
{
    QGroupBox *settings = frame(name, QCoreApplication::translate("PageWidgets", "Animation Configuration"));
    auto *grid = new QGridLayout(settings);
    compact(grid);
    for (const char *key : {e.frameCountField, e.startingFrameField, e.stillFrameField, e.delayField}) {
        if (key)
            addFormRow(grid, numberBox(key), key);
    }
    if (e.reverseField)
        grid->addWidget(fieldCheckBox(e.reverseField), grid->rowCount(), 0, 1, 2);
    grid->setColumnStretch(2, 1);
    return settings;
}

QGroupBox *previewFrame(const ElementControls &names, QSize area, const QString &caption, PreviewSurface *&surface)
{
    QGroupBox *box = frame(names.previewFrame, QCoreApplication::translate("PageWidgets", "Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 4, 6, 6);
    surface = new PreviewSurface(QLatin1StringView(names.surface), area, PreviewSurface::Mode::Natural);
    surface->setAccessibleName(QCoreApplication::translate("PageWidgets", "%1 preview", "an animated element's caption").arg(caption));
    layout->addWidget(surface, 0, Qt::AlignCenter);
    return box;
}

} // namespace

ElementFrame animatedFrame(AnimatedElementId element)
{
    const AnimatedElement &e = animatedElements[element];
    const ElementPreview &shown = elementPreviews[element];
    const ElementControls &names = elementControls[element];
    QGroupBox *box = frame(names.frame, elementCaption(element));
    ElementFrame built{element, box, nullptr, {e.imageField}};

    auto *fields = new QGridLayout;
    compact(fields);
    QLineEdit *image = lineEdit(e.imageField);
    built.image.edit = image;
    fields->addWidget(label(fieldCaption(e.imageField), image), 0, 0, 1, 2);
    fields->addWidget(image, 1, 0, 1, 2);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    built.image.browse = button(QLatin1StringView(names.browse), QCoreApplication::translate("PageWidgets", "Browse"));
    built.image.show = button(QLatin1StringView(names.preview), QCoreApplication::translate("PageWidgets", "Preview"));
    buttons->addWidget(built.image.browse);
    buttons->addWidget(built.image.show);
    buttons->addStretch(1);
    fields->addLayout(buttons, 2, 0, 1, 2);
    // What the game cuts each frame to, so the author paints the right size.
    auto *frameSize = new QLabel(QCoreApplication::translate("PageWidgets", "%1 x %2 per frame").arg(e.frame.width()).arg(e.frame.height()));
    frameSize->setObjectName(rowControl("lblFrameSize", int(enumIndex(element))));
    fields->addWidget(frameSize, 3, 0, 1, 2);
    addFormRow(fields, derivedBox(e.rootField), e.rootField);
    addFormRow(fields, derivedBox(e.extensionField), e.extensionField);
    for (const char *key : e.animatedFields) {
        if (key)
            fields->addWidget(fieldCheckBox(key), fields->rowCount(), 0, 1, 2);
    }
    if (e.transparencyField)
        fields->addWidget(fieldCheckBox(e.transparencyField), fields->rowCount(), 0, 1, 2);
    fields->setColumnStretch(1, 1);
    fields->setRowStretch(fields->rowCount(), 1);

    // Side by side: a frame is only as tall as its longest column.
    auto *columns = new QHBoxLayout(box);
    columns->addLayout(fields, 1);
    built.settings = animationSettings(e, names.aniFrame);
    columns->addWidget(built.settings, 0, Qt::AlignTop);
    if (names.previewFrame)
        columns->addWidget(previewFrame(names, shown.surfaceSize, elementCaption(element), built.surface), 0, Qt::AlignTop);
    return built;
}

} // namespace PageWidgets

QWidget *EditorPages::panel(EditorPage page) const
{
    switch (page) {
    case EditorPage::General: return general.panel;
    case EditorPage::Interface: return iface.panel;
    case EditorPage::Background: return background.panel;
    case EditorPage::Blocks: return blocks.panel;
    case EditorPage::Misc: return misc.panel;
    case EditorPage::Sounds: return sounds.panel;
    }
    return nullptr;
}

QComboBox *EditorPages::selector(EditorPage page) const
{
    switch (page) {
    case EditorPage::Background: return background.selector;
    case EditorPage::Blocks: return blocks.selector;
    case EditorPage::Misc: return misc.selector;
    default: return nullptr;
    }
}

QList<ElementFrame> EditorPages::elementFrames(EditorPage page) const
{
    switch (page) {
    case EditorPage::Background: return background.elements;
    case EditorPage::Blocks: return blocks.elements;
    case EditorPage::Misc: return misc.elements;
    default: return {};
    }
}

QGroupBox *EditorPages::sectionFrame(Section section) const
{
    switch (section) {
    case Section::Interface: return iface.screensFrame;
    case Section::Colors: return misc.colorsFrame;
    case Section::MiscImages: return misc.imagesFrame;
    case Section::Sounds: return sounds.soundsFrame;
    case Section::Music: return sounds.musicFrame;
    default: return nullptr;
    }
}

FieldWidgets EditorPages::fieldWidgets(EditorPage page) const
{
    switch (page) {
    case EditorPage::General: return general.fields;
    case EditorPage::Interface: return iface.fields;
    case EditorPage::Background: return background.fields;
    case EditorPage::Blocks: return blocks.fields;
    case EditorPage::Misc: return misc.fields;
    case EditorPage::Sounds: return sounds.fields;
    }
    return {};
}

QList<FileRow> EditorPages::fileRows(EditorPage page) const
{
    QList<FileRow> rows;
    for (const ElementFrame &element : elementFrames(page))
        rows.append(element.image);
    switch (page) {
    case EditorPage::General:
        if (general.panel)
            rows << general.skin << FileRow{FieldKey::resourceFile, general.resourceFile, general.browseResource};
        break;
    case EditorPage::Interface:
        if (iface.panel)
            rows.append(QList<FileRow>(iface.screens.begin(), iface.screens.end()));
        break;
    case EditorPage::Misc:
        if (misc.panel)
            rows.append(QList<FileRow>(misc.images.begin(), misc.images.end()));
        break;
    case EditorPage::Sounds:
        if (sounds.panel)
            rows << QList<FileRow>(sounds.sounds.begin(), sounds.sounds.end()) << sounds.music;
        break;
    default: break;
    }
    return rows;
}
