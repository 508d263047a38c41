// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"

#include <QList>

#include <optional>
#include <utility>

class PreviewSurface;
class QAbstractButton;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QWidget;

/** The editor's pages, in tab order. */
enum class EditorPage { General, Interface, Background, Blocks, Misc, Sounds };

inline constexpr std::size_t editorPageCount = enumIndex(EditorPage::Sounds) + 1;

/** Every page, in tab order. */
inline constexpr auto editorPages = enumValues<EditorPage, editorPageCount>();

/** The page at tab \a index, or nothing outside the tabs. */
constexpr std::optional<EditorPage> editorPageAt(int index)
{
    if (index < 0 || index >= int(editorPageCount))
        return std::nullopt;
    return EditorPage(index);
}

/** Where the editor shows an animated element: its page and its choice in the page's data-set selector. */
struct ElementPage {
    AnimatedElementId id;
    EditorPage page;
    const char *dataSet;     // "Internet Background"; nullptr: the element's caption
    EditorPage alsoTicksOn;  // showing this page leaves its tick running too
};

inline constexpr ElementTable<ElementPage> elementPages{{
    {AnimatedElementId::Background, EditorPage::Background, QT_TRANSLATE_NOOP("MainWindow", "Background"), EditorPage::Background},
    // The Blocks page leaves it playing.
    {AnimatedElementId::InternetBackground, EditorPage::Background, QT_TRANSLATE_NOOP("MainWindow", "Internet Background"), EditorPage::Blocks},
    {AnimatedElementId::Blocks, EditorPage::Blocks, nullptr, EditorPage::Blocks},
    {AnimatedElementId::NextBlock, EditorPage::Blocks, nullptr, EditorPage::Blocks},
    {AnimatedElementId::SpecialWindow, EditorPage::Blocks, nullptr, EditorPage::Blocks},
    {AnimatedElementId::Explosion, EditorPage::Misc, nullptr, EditorPage::Misc},
    {AnimatedElementId::Bomb, EditorPage::Misc, nullptr, EditorPage::Misc},
}};
static_assert(rowsMatchKeys(elementPages));

/** A row naming a file: its field's key and text box, its Browse and its preview or play button, if any. */
struct FileRow {
    const char *key = nullptr;
    QLineEdit *edit = nullptr;
    QAbstractButton *browse = nullptr;
    QAbstractButton *show = nullptr;
};

/** The field controls a page made, each with its field's index in themeFields(): what the window binds. */
using FieldWidgets = QList<std::pair<int, QWidget *>>;

/** Animated element \a element's frame: its image row (show: Preview) and the surface it plays on. */
struct ElementFrame {
    AnimatedElementId element = AnimatedElementId::Background;
    QGroupBox *frame = nullptr;
    QGroupBox *settings = nullptr; // the animation settings
    FileRow image;
    PreviewSurface *surface = nullptr; // shared by the elements of a page with one preview
};

/** The General page and the controls the window binds beyond its field boxes. */
struct GeneralPage {
    QWidget *panel = nullptr;
    FieldWidgets fields;
    QComboBox *themeType = nullptr;
    QLineEdit *resourceFile = nullptr;
    QPushButton *browseResource = nullptr;
    QPushButton *generateDescription = nullptr;
    QGroupBox *themeType0 = nullptr;
    FileRow skin;
};

/** The interface screens, each with Browse and Preview, and the display they show in. */
struct InterfacePage {
    QWidget *panel = nullptr;
    FieldWidgets fields;
    QGroupBox *screensFrame = nullptr;
    RowTable<InterfaceRow, FileRow> screens{};
    PreviewSurface *display = nullptr;
};

/** A page choosing what it shows with its data-set selector: animated elements first. */
struct DataSetPage {
    QWidget *panel = nullptr;
    FieldWidgets fields;
    QComboBox *selector = nullptr;
    QList<ElementFrame> elements;
};

/** The Misc page: its elements, the theme colours and the miscellaneous images with their display. */
struct MiscPage : DataSetPage {
    QGroupBox *colorsFrame = nullptr;
    QGroupBox *imagesFrame = nullptr;
    RowTable<ColorRow, QAbstractButton *> colorButtons{};
    QList<PreviewSurface *> swatches;
    RowTable<MiscImageRow, FileRow> images{};
    PreviewSurface *display = nullptr;
};

/** The sounds with Browse and play buttons, and the music row (show: Play Music). */
struct SoundPage {
    QWidget *panel = nullptr;
    FieldWidgets fields;
    QGroupBox *soundsFrame = nullptr;
    QGroupBox *musicFrame = nullptr;
    RowTable<SoundRow, FileRow> sounds{};
    FileRow music;
};

/** The six pages as far as they are built; a page not built yet has no panel. */
struct EditorPages {
    GeneralPage general;
    InterfacePage iface;
    DataSetPage background;
    DataSetPage blocks;
    MiscPage misc;
    SoundPage sounds;

    QWidget *panel(EditorPage page) const;
    /** The page's data-set selector, or nullptr (none, or not built). */
    QComboBox *selector(EditorPage page) const;
    /** The field controls of \a page; empty while it is not built. */
    FieldWidgets fieldWidgets(EditorPage page) const;
    /** Every row naming a file on \a page; empty while it is not built. */
    QList<FileRow> fileRows(EditorPage page) const;
    /** The animated elements' frames on \a page; empty while it is not built. */
    QList<ElementFrame> elementFrames(EditorPage page) const;
    /** The frame holding \a section's fields, or nullptr (none of its own, or not built). */
    QGroupBox *sectionFrame(Section section) const;
};

/**
 * The six page panels of the main window, each holding its controls under their own object
 * names. The panels only lay controls out; the main window binds them to the document.
 */
GeneralPage createGeneralPage();
InterfacePage createInterfacePage();
DataSetPage createBackgroundPage();
DataSetPage createBlocksPage();
MiscPage createMiscPage();
SoundPage createSoundPage();
