// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/mainwindow.h"

#include "check/backgroundcheck.h"
#include "common/usermanual.h"
#include "theme/description.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "editing/themehistory.h"
#include "theme/themecolors.h"
#include "theme/themeloader.h"
#include "editor/aboutwindow.h"
#include "editor/accessiblenames.h"
#include "editor/mnemonics.h"
#include "editor/controlnames.h"
#include "editor/manualbrowser.h"
#include "editor/pages.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"
#include "editor/problemspanel.h"
#include "preview/elementpreview.h"
#include "preview/ticktimer.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QComboBox>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QToolButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtMath>

#include <span>
#include <variant>

namespace {

constexpr char programName[] = "Stakko Theme Maker";

// Edits check again this long after typing pauses.
constexpr int recheckDelayMs = 500;

// Wide enough for the widest page at common fonts; see buildPageArea().
constexpr qreal pageAreaWidthInCharacters = 124;

struct PageRow {
    const char *tabCaption;
    const char *tabToolTip;
    const char *icon;
    const char *menuItem;
    const char *menuCaption;
    int heightTwips;         // outer window height while the page is shown
    const char *slug;
    const char *selector;    // data-set selector, nullptr for none
};

constexpr EnumArray<EditorPage, PageRow, editorPageCount> pageRows{{
    {QT_TRANSLATE_NOOP("MainWindow", "General"), QT_TRANSLATE_NOOP("MainWindow", "General Theme Information"), "tab-general", "mnuGeneral", QT_TRANSLATE_NOOP("MainWindow", "&General"),
     6475, "general", nullptr},
    {QT_TRANSLATE_NOOP("MainWindow", "IFace"), QT_TRANSLATE_NOOP("MainWindow", "Graphical Interface Configuration"), "tab-iface", "mnuIface", QT_TRANSLATE_NOOP("MainWindow", "&Interface"),
     6475, "interface", nullptr},
    {QT_TRANSLATE_NOOP("MainWindow", "Background"), QT_TRANSLATE_NOOP("MainWindow", "Game Background Configuration"), "tab-background", "mnuBG",
     QT_TRANSLATE_NOOP("MainWindow", "&Background"), 7315, "background", "cmbFields"},
    {QT_TRANSLATE_NOOP("MainWindow", "Blocks"), QT_TRANSLATE_NOOP("MainWindow", "Game Block Configuration"), "tab-blocks", "mnuBLK", QT_TRANSLATE_NOOP("MainWindow", "Bl&ocks"),
     6475, "blocks", "cmbBlocks"},
    // "Misceallenous" is the menu caption authors know: kept as the original spells it.
    {QT_TRANSLATE_NOOP("MainWindow", "Misc. GFX"), QT_TRANSLATE_NOOP("MainWindow", "Miscellaneous graphics"), "tab-misc", "mnuMisc", QT_TRANSLATE_NOOP("MainWindow", "&Misceallenous Graphics"),
     6475, "misc", "cmbMisc"},
    {QT_TRANSLATE_NOOP("MainWindow", "Sounds/Music"), QT_TRANSLATE_NOOP("MainWindow", "Sounds and Music configuration"), "tab-sounds", "mnuSounds",
     QT_TRANSLATE_NOOP("MainWindow", "&Sounds and Music"), 6475, "sounds", nullptr},
}};

// A section's frame (from its page's struct), switched by its include box. One with a data set is
// a choice of its page's selector: the page's animated elements come first, then the sections listed here.
struct SectionFrame {
    Section section;
    EditorPage page;
    const char *dataSet;  // nullptr: always shown
};
constexpr SectionFrame sectionFrames[] = {
    {Section::Interface, EditorPage::Interface, nullptr},
    {Section::Colors, EditorPage::Misc, QT_TRANSLATE_NOOP("MainWindow", "Theme Colors")},
    {Section::MiscImages, EditorPage::Misc, QT_TRANSLATE_NOOP("MainWindow", "Misc. Images")},
    {Section::Sounds, EditorPage::Sounds, nullptr},
    {Section::Music, EditorPage::Sounds, nullptr},
};

// One choice of a page's data-set selector: an animated element or a section.
struct DataSet {
    std::variant<AnimatedElementId, Section> shows;
    const char *includeKey;
    const char *name; // in the source's words
    QString shown;    // in the author's language
};

// A choice shows its frame and include box, hides the other sets' and stops their animations.
QList<DataSet> dataSetsOf(EditorPage page)
{
    QList<DataSet> sets;
    for (AnimatedElementId i : animatedElementIds) {
        if (elementPages[i].page != page)
            continue;
        const char *own = elementPages[i].dataSet;
        sets.append({i, animatedElements[i].includeField, own ? own : elementPreviews[i].caption,
                     own ? MainWindow::tr(own) : elementCaption(i)});
    }
    for (const SectionFrame &section : sectionFrames) {
        if (section.dataSet && section.page == page)
            sets.append({section.section, includeKey(section.section), section.dataSet, MainWindow::tr(section.dataSet)});
    }
    return sets;
}

int switchValue(Qt::CheckState state)
{
    switch (state) {
    case Qt::Checked: return 1;
    case Qt::PartiallyChecked: return 2;
    default: return 0;
    }
}

// Typed descriptions break lines with LF; loaded and generated ones may carry CR LF.
QString withLineFeeds(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QColor swatchColor(quint32 value)
{
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

/**
 * Hidden panels and data sets do not count in a layout: the page area keeps the width of the
 * widest one shown so far, with the buttons the bindings add and captions as long as the
 * language makes them. True when it grew.
 */
bool widenFor(QWidget *area, QWidget *panel)
{
    panel->layout()->invalidate();
    const int needed = panel->sizeHint().width() + 12;
    if (needed <= area->minimumWidth())
        return false;
    area->setMinimumWidth(needed);
    return true;
}

} // namespace

MainWindow::MainWindow(ThemeDocument &document, QWidget *parent)
    : QMainWindow(parent)
    , m_doc(document)
    , m_history(new ThemeHistory(document, this))
{
    Q_INIT_RESOURCE(icons);
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(PageWidgets::editorIcon("app"));

    buildMenus();
    buildTimers();
    buildProblems();
    m_controls.fill(nullptr, qsizetype(themeFields().size()));
    setCentralWidget(buildPageArea());
    connect(&m_doc, &ThemeDocument::fieldChanged, this, &MainWindow::showFieldValue);
    connect(&m_doc, &ThemeDocument::stateChanged, this, &MainWindow::showTitle);
    connect(&m_doc, &ThemeDocument::dirtyChanged, this, &MainWindow::showTitle);
    connect(&m_doc, &ThemeDocument::themeReset, this, [this] {
        for (TickTimer *timer : m_timers)
            timer->stop();
        refreshThemeType();
        focusThemeName();
        emit themeOpened();
    });
    buildPage(Page::General);
}

MainWindow::~MainWindow()
{
    delete m_about;
}

QString MainWindow::pageSlug(Page page)
{
    return QString::fromLatin1(pageRows[page].slug);
}

const char *MainWindow::dataSetSelector(Page page)
{
    return pageRows[page].selector;
}

void MainWindow::buildMenus()
{
    auto addItem = [](QMenu *menu, const char *name, const QString &caption) {
        QAction *action = menu->addAction(caption);
        action->setObjectName(QLatin1StringView(name));
        return action;
    };

    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->setObjectName(QStringLiteral("mnuFile"));
    // The first shortcut is the one the menu shows; the desktop's usual ones follow it.
    const auto keys = [](std::initializer_list<const char *> sequences) {
        QList<QKeySequence> list;
        for (const char *sequence : sequences)
            list.append(QKeySequence(QLatin1StringView(sequence)));
        return list;
    };
    addItem(file, "mnuNewTheme", tr("Theme &New"))->setShortcuts(keys({"Ctrl+N"}));
    addItem(file, "mnuLoadTheme", tr("Theme &Load"))->setShortcuts(keys({"Ctrl+L", "Ctrl+O"}));
    addItem(file, "mnuSaveTheme", tr("Theme &Save"))->setShortcuts(keys({"Ctrl+S"}));
    addItem(file, "mnuSaveAs", tr("Theme Save &As"))->setShortcuts(keys({"Ctrl+A", "Ctrl+Shift+S"}));
    file->addMenu(tr("&Recent Themes"))->setObjectName(QStringLiteral("mnuRecent"));
    file->addSeparator()->setObjectName(QStringLiteral("mnuSpacer"));
    QAction *exit = addItem(file, "mnuExit", tr("E&xit"));
    exit->setShortcuts(keys({"Ctrl+Q"}));
    connect(exit, &QAction::triggered, this, &QWidget::close);

    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    edit->setObjectName(QStringLiteral("mnuEdit"));
    QAction *undo = m_history->stack().createUndoAction(edit, tr("&Undo"));
    undo->setObjectName(QStringLiteral("mnuUndo"));
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    QAction *redo = m_history->stack().createRedoAction(edit, tr("&Redo"));
    redo->setObjectName(QStringLiteral("mnuRedo"));
    redo->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    edit->addActions({undo, redo});

    QMenu *data = menuBar()->addMenu(tr("&Theme Data"));
    data->setObjectName(QStringLiteral("mnuData"));
    for (Page page : editorPages) {
        QAction *item = addItem(data, pageRows[page].menuItem, tr(pageRows[page].menuCaption));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, page] { showPage(page); });
        m_pageActions[page] = item;
    }

    // Pages in turn, as tabs elsewhere on the desktop: forward and back, wrapping round.
    for (const auto &[name, step, sequences] : {std::tuple{"actNextPage", 1, keys({"Ctrl+Tab", "Ctrl+PgDown"})},
                                               std::tuple{"actPreviousPage", -1, keys({"Ctrl+Shift+Tab", "Ctrl+PgUp"})}}) {
        auto *turn = new QAction(this);
        turn->setObjectName(QLatin1StringView(name));
        turn->setShortcuts(sequences);
        connect(turn, &QAction::triggered, this, [this, step] {
            const int count = int(editorPageCount);
            showPage(*editorPageAt((int(m_page) + step + count) % count));
        });
        addAction(turn);
    }

    // "Theme Data" has the menu bar's T.
    QMenu *tools = menuBar()->addMenu(tr("T&ools"));
    tools->setObjectName(QStringLiteral("mnuTools"));
    QAction *check = addItem(tools, "mnuCheckTheme", tr("&Check Theme"));
    check->setShortcut(QKeySequence(Qt::Key_F7));
    connect(check, &QAction::triggered, this, [this] {
        checkTheme();
        problemsPanel().show();
        m_problems->raise();
    });
    tools->addSeparator();
    addItem(tools, "mnuArtFolder", tr("Use Art &Folder..."));
    addItem(tools, "mnuBuildPackage", tr("&Build Resource Package"));

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    QAction *manual = addItem(help, "mnuManual", tr("Stakko Theme Maker &Manual"));
    manual->setShortcut(QKeySequence(Qt::Key_F1));
    connect(manual, &QAction::triggered, this, [this] { showManual(); });
    connect(addItem(help, "mnuAbout", tr("&About")), &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::buildTimers()
{
    // The preview engine connects and starts them; the window only stops them.
    for (AnimatedElementId i : animatedElementIds) {
        auto *timer = new TickTimer(this);
        timer->setObjectName(QLatin1StringView(elementControls[i].timer));
        timer->setInterval(1);
        m_timers[i] = timer;
    }
}

ProblemsPanel &MainWindow::problemsPanel()
{
    // Made when first needed: the window shows sooner without it.
    if (m_problems)
        return *m_problems;
    m_problems = new ProblemsPanel(this);
    m_problems->hide();
    addDockWidget(Qt::BottomDockWidgetArea, m_problems);
    // The panel and the status bar take room of their own: the pages keep theirs.
    connect(m_problems, &QDockWidget::visibilityChanged, this, [this] { QTimer::singleShot(0, this, &MainWindow::applyWindowHeight); });
    connect(m_problems, &QDockWidget::topLevelChanged, this, &MainWindow::applyWindowHeight);
    connect(m_problems, &ProblemsPanel::fieldRequested, this, &MainWindow::revealField);
    connect(m_problems, &ProblemsPanel::manualRequested, this, &MainWindow::showManual);
    return *m_problems;
}

void MainWindow::buildProblems()
{
    m_check = new BackgroundCheck(m_doc, this);
    connect(m_check, &BackgroundCheck::finished, this, [this] {
        problemsPanel().showReport(m_check->report());
        if (!m_countShown) {
            m_countShown = true;
            statusBar()->addPermanentWidget(m_problems->countButton());
            statusBar()->show();
            applyWindowHeight();
        }
    });

    m_recheck = new QTimer(this);
    m_recheck->setSingleShot(true);
    m_recheck->setInterval(recheckDelayMs);
    connect(m_recheck, &QTimer::timeout, this, &MainWindow::checkTheme);
    const auto recheck = [this] {
        if (m_check->hasResult())
            m_recheck->start();
    };
    connect(&m_doc, &ThemeDocument::fieldChanged, this, recheck);
    connect(&m_doc, &ThemeDocument::stateChanged, this, recheck);
}

void MainWindow::checkTheme()
{
    m_recheck->stop();
    m_check->start();
}

void MainWindow::focusThemeName()
{
    if (m_page != Page::General)
        return;
    auto *name = m_controls.at(fieldIndex(FieldKey::name));
    name->setFocus(Qt::OtherFocusReason);
    if (auto *edit = qobject_cast<QLineEdit *>(name))
        edit->selectAll();
}

void MainWindow::revealField(const QString &key)
{
    const int index = fieldIndex(key);
    if (index < 0)
        return;
    buildAllPages();
    QWidget *control = m_controls.at(index);
    if (!control)
        return;
    // A box the program fills takes no input: the author edits the image name it comes from.
    if (control->focusPolicy() == Qt::NoFocus) {
        if (const AnimatedElement *element = elementOfField(key))
            control = m_controls.at(fieldIndex(element->imageField));
    }
    for (Page page : editorPages) {
        if (!m_panels[page]->isAncestorOf(control))
            continue;
        showPage(page);
        const QList<DataSet> sets = dataSetsOf(page);
        for (int i = 0; i < sets.size(); ++i) {
            const QWidget *frame = dataSetFrame(page, i);
            const bool inSet = (frame && frame->isAncestorOf(control)) || fieldIndex(sets[i].includeKey) == index;
            if (inSet) {
                if (QComboBox *combo = m_pages.selector(page))
                    combo->setCurrentIndex(i);
                chooseDataSet(page, i);
            }
        }
        break;
    }
    // A control switched off cannot take the focus: the switch that turns it on takes it.
    for (const SwitchedFrame &switched : std::as_const(m_switchedFrames)) {
        const bool outermostOff = !switched.frame->isEnabled()
            && switched.frame->parentWidget()->isEnabled() && switched.frame->isAncestorOf(control);
        if (outermostOff && switched.switches[0]) {
            control = m_controls.at(fieldIndex(switched.switches[0]));
            break;
        }
    }
    control->setFocus(Qt::OtherFocusReason);
    if (auto *edit = qobject_cast<QLineEdit *>(control))
        edit->selectAll();
}

QWidget *MainWindow::buildPageArea()
{
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(6, 2, 6, 6);
    layout->setSpacing(0);

    m_tabs = new QTabBar;
    m_tabs->setObjectName(QStringLiteral("tabMain"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    for (Page page : editorPages) {
        const int tab = m_tabs->addTab(PageWidgets::editorIcon(pageRows[page].icon), tr(pageRows[page].tabCaption));
        m_tabs->setTabToolTip(tab, tr(pageRows[page].tabToolTip));
    }
    QStringList tabCaptions;
    for (int i = 0; i < m_tabs->count(); ++i)
        tabCaptions.append(m_tabs->tabText(i));
    // Alt and a letter switch pages too, apart from the menu bar's letters.
    const QStringList lettered = Mnemonics::assign(tabCaptions, menuBarLetters());
    for (int i = 0; i < m_tabs->count(); ++i)
        m_tabs->setTabText(i, lettered.at(i));
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (const std::optional<Page> page = editorPageAt(index))
            showPage(*page);
    });
    layout->addWidget(m_tabs);

    m_area = new QFrame;
    m_area->setFrameShape(QFrame::StyledPanel);
    auto *stack = new QGridLayout(m_area);
    stack->setContentsMargins(6, 6, 6, 6);
    // Pages not built yet cannot be measured. This width, in average characters of the font,
    // holds every page at common desktop fonts, so switching pages does not resize the window;
    // a page that needs more widens it when it is built.
    m_area->setMinimumWidth(qCeil(QFontMetricsF(m_area->font()).averageCharWidth() * pageAreaWidthInCharacters));
    layout->addWidget(m_area, 1);
    return central;
}

void MainWindow::buildPage(Page page)
{
    if (m_panels[page])
        return;
    switch (page) {
    case Page::General: m_pages.general = createGeneralPage(); break;
    case Page::Interface: m_pages.iface = createInterfacePage(); break;
    case Page::Background: m_pages.background = createBackgroundPage(); break;
    case Page::Blocks: m_pages.blocks = createBlocksPage(); break;
    case Page::Misc: m_pages.misc = createMiscPage(); break;
    case Page::Sounds: m_pages.sounds = createSoundPage(); break;
    }
    QWidget *panel = m_pages.panel(page);
    panel->setVisible(false); // shown filled, so selectors size themselves to their items
    static_cast<QGridLayout *>(m_area->layout())->addWidget(panel, 0, 0);
    m_panels[page] = panel;

    if (page == Page::General) {
        connect(m_pages.general.themeType, &QComboBox::currentIndexChanged, this, [this](int choice) {
            if (choice < 0)
                return;
            m_doc.setNumber(FieldKey::themeType, choice);
            applyThemeTypeChoice();
        });
        connect(m_pages.general.generateDescription, &QPushButton::clicked, this,
                [this] { m_doc.setText(FieldKey::description, generateDescription(m_doc)); });
    }
    for (const SectionFrame &section : sectionFrames) {
        if (section.page == page)
            m_switchedFrames.append({{includeKey(section.section)}, m_pages.sectionFrame(section.section)});
    }
    for (const ElementFrame &frame : m_pages.elementFrames(page)) {
        const AnimatedElement &e = animatedElements[frame.element];
        m_switchedFrames.append({{e.includeField}, frame.frame});
        if (e.animatedFields[0])
            m_switchedFrames.append({std::to_array(e.animatedFields), frame.settings});
    }
    bindFields(page);
    nameControls(panel);
    for (int i = 0; i < int(colorRows.keys.size()); ++i)
        showSwatch(i);
    bindSelector(page);
    assignAccelerators(page);
    refreshSwitchedFrames();
    refreshThemeType();

    emit pageBuilt(page);
    widenFor(m_area, panel);
    panel->setVisible(page == m_page);
}

void MainWindow::nameControls(QWidget *panel)
{
    nameRowButtons(panel);
    // A box without a label of its own (the music file) is named by its field.
    QList<const QWidget *> labelled;
    for (const QLabel *label : panel->findChildren<QLabel *>())
        labelled.append(label->buddy());
    for (int i = 0; i < int(m_controls.size()); ++i) {
        QWidget *control = m_controls.at(i);
        if (control && panel->isAncestorOf(control) && !labelled.contains(control) && control->accessibleName().isEmpty()
            && !qobject_cast<QAbstractButton *>(control))
            control->setAccessibleName(fieldLabel(i));
    }
}

QString MainWindow::menuBarLetters() const
{
    QString letters;
    for (const QAction *menu : menuBar()->actions())
        letters += Mnemonics::letterOf(menu->text());
    return letters;
}

void MainWindow::assignAccelerators(Page page)
{
    // The menu bar's letters stay the menu bar's; the page's own controls share the rest.
    // Controls shown with every data set come first, then each set beside them.
    const QString bar = menuBarLetters();
    // The tabs' letters go to a control only where nothing else is left: Alt+letter then cycles.
    QString tabs;
    for (int i = 0; i < m_tabs->count(); ++i)
        tabs += Mnemonics::letterOf(m_tabs->tabText(i));
    QWidget *panel = m_panels[page];
    QList<QList<QWidget *>> sets;
    QList<QWidget *> setParts;
    const QList<DataSet> dataSets = dataSetsOf(page);
    for (int i = 0; i < dataSets.size(); ++i) {
        QWidget *frame = dataSetFrame(page, i);
        QWidget *include = m_controls.at(fieldIndex(dataSets[i].includeKey));
        QList<QWidget *> controls = Mnemonics::captionedControls(frame);
        controls.prepend(include);
        sets.append(controls);
        setParts << frame << include;
    }
    const QList<QWidget *> common = Mnemonics::captionedControls(panel, setParts);
    Mnemonics::assignControls(common, bar, tabs);
    QString taken = bar;
    for (const QWidget *control : common)
        taken += Mnemonics::letterOf(Mnemonics::captionOf(control));
    for (const QList<QWidget *> &set : std::as_const(sets))
        Mnemonics::assignControls(set, taken, tabs);
}

void MainWindow::buildAllPages()
{
    for (Page page : editorPages)
        buildPage(page);
}

void MainWindow::bindPages(QObject *context, const std::function<void(Page)> &bind)
{
    for (Page page : editorPages) {
        if (m_panels[page])
            bind(page);
    }
    connect(this, &MainWindow::pageBuilt, context, bind);
}

void MainWindow::bindFields(Page page)
{
    for (const auto &made : m_pages.fieldWidgets(page)) {
        const int i = made.first;
        QWidget *control = made.second;
        if (m_controls.at(i))
            continue;
        m_controls[i] = control;
        if (auto *edit = qobject_cast<QLineEdit *>(control)) {
            edit->installEventFilter(this);
            connect(edit, &QLineEdit::textChanged, this, [this, i](const QString &text) {
                if (m_showingField)
                    return;
                m_history->markTyped(i);
                m_doc.setValue(i, text);
            });
        } else if (auto *text = qobject_cast<QPlainTextEdit *>(control)) {
            text->installEventFilter(this);
            connect(text, &QPlainTextEdit::textChanged, this, [this, i, text] {
                if (m_showingField)
                    return;
                m_history->markTyped(i);
                m_doc.setValue(i, text->toPlainText());
            });
        } else if (auto *box = qobject_cast<QCheckBox *>(control)) {
            connect(box, &QCheckBox::stateChanged, this, [this, i, box](int state) {
                // Only a loaded file can produce the greyed state; a click never returns to it.
                if (state != Qt::PartiallyChecked)
                    box->setTristate(false);
                if (!m_showingField)
                    m_doc.setNumberAt(i, switchValue(Qt::CheckState(state)));
            });
        }
        showFieldValue(i);
    }
}

void MainWindow::showFieldValue(int index)
{
    const FieldSpec &field = themeFields()[size_t(index)];
    QWidget *control = m_controls.at(index);
    const QString value = m_doc.value(index);
    m_showingField = true;
    if (auto *edit = qobject_cast<QLineEdit *>(control)) {
        if (edit->text() != value)
            edit->setText(value);
    } else if (auto *text = qobject_cast<QPlainTextEdit *>(control)) {
        if (text->toPlainText() != withLineFeeds(value))
            text->setPlainText(withLineFeeds(value));
    } else if (auto *box = qobject_cast<QCheckBox *>(control)) {
        const int number = m_doc.number(index);
        box->setCheckState(number == 1 ? Qt::Checked : number == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
    }
    m_showingField = false;

    for (int row = 0; row < int(colorRows.keys.size()); ++row) {
        if (qstrcmp(colorRows.keys[row], field.key) == 0)
            showSwatch(row);
    }
    if (field.kind == FieldKind::Switch)
        refreshSwitchedFrames();
    else if (field.kind == FieldKind::TypeIndex && m_pages.general.themeType->count() > m_doc.number(index))
        m_pages.general.themeType->setCurrentIndex(m_doc.number(index)); // runs the choice handler when it moves
}

void MainWindow::showSwatch(int index)
{
    PreviewSurface *swatch = m_pages.misc.swatches.value(index);
    if (!swatch)
        return;
    // The swatch shows the text as it stands, so typing, choosing, New and Load agree.
    const int field = fieldIndex(colorRows.keys[index]);
    const QString text = m_doc.value(field);
    const auto color = colorOfText(text);
    swatch->setFillColor(color ? swatchColor(*color) : QColor());
    swatch->setAccessibleDescription(
        tr("%1: %2", "a colour's field and its value").arg(fieldLabel(field), color ? text : tr("no colour")));
}

void MainWindow::bindSelector(Page page)
{
    QComboBox *combo = m_pages.selector(page);
    if (!combo)
        return;
    connect(combo, &QComboBox::currentIndexChanged, this, [this, page](int choice) {
        chooseDataSet(page, choice);
    });
    if (m_started)
        fillSelector(combo, page);
    showDataSet(page);
}

void MainWindow::fillSelector(QComboBox *combo, Page page)
{
    for (const DataSet &set : dataSetsOf(page))
        // The data: the set's name in the source's words, for file names that stay put in every language.
        combo->addItem(set.shown, QString::fromLatin1(set.name));
    combo->setCurrentIndex(m_dataSetChoice[page]);
}

void MainWindow::refreshSwitchedFrames()
{
    for (const SwitchedFrame &switched : std::as_const(m_switchedFrames)) {
        bool on = false;
        for (const char *key : switched.switches) {
            if (key && m_doc.isOn(QLatin1StringView(key)))
                on = true;
        }
        switched.frame->setEnabled(on);
    }
}

void MainWindow::refreshThemeType()
{
    if (!m_pages.general.panel)
        return;
    const bool packaged = m_doc.number(FieldKey::themeType) == 1;
    m_pages.general.resourceFile->setEnabled(packaged);
    m_pages.general.browseResource->setEnabled(packaged);
    m_pages.general.themeType0->setEnabled(!packaged);
}

void MainWindow::applyThemeTypeChoice()
{
    m_doc.setDirty(true);
    refreshThemeType();
}

void MainWindow::chooseDataSet(Page page, int choice)
{
    const QList<DataSet> sets = dataSetsOf(page);
    if (choice < 0 || choice >= sets.size())
        return;
    m_dataSetChoice[page] = choice;
    showDataSet(page);
    if (m_panels[page] && widenFor(m_area, m_panels[page]) && page == m_page)
        applyWindowHeight();
    for (int i = 0; i < sets.size(); ++i) {
        if (const auto *element = std::get_if<AnimatedElementId>(&sets[i].shows); element && i != choice)
            m_timers[*element]->stop();
    }
}

QWidget *MainWindow::dataSetFrame(Page page, int choice) const
{
    const QList<DataSet> sets = dataSetsOf(page);
    if (const auto *section = std::get_if<Section>(&sets.at(choice).shows))
        return m_pages.sectionFrame(*section);
    for (const ElementFrame &frame : m_pages.elementFrames(page)) {
        if (frame.element == std::get<AnimatedElementId>(sets.at(choice).shows))
            return frame.frame;
    }
    return nullptr;
}

void MainWindow::showDataSet(Page page)
{
    const QList<DataSet> sets = dataSetsOf(page);
    for (int i = 0; i < sets.size(); ++i) {
        const bool shown = i == m_dataSetChoice[page];
        // A page not built yet shows the choice when it is.
        if (QWidget *frame = dataSetFrame(page, i))
            frame->setVisible(shown);
        if (QWidget *box = m_controls.at(fieldIndex(sets[i].includeKey)))
            box->setVisible(shown);
    }
}

void MainWindow::showPage(Page page)
{
    m_page = page;
    buildPage(page);
    for (Page other : editorPages) {
        if (m_panels[other])
            m_panels[other]->setVisible(other == page);
    }
    applyWindowHeight();
    // A page leaves its own animations running, and those of elements that tick on it too.
    for (AnimatedElementId i : animatedElementIds) {
        if (elementPages[i].page != page && elementPages[i].alsoTicksOn != page)
            m_timers[i]->stop();
    }
    for (Page other : editorPages)
        m_pageActions[other]->setChecked(other == page);
    const QSignalBlocker blocker(m_tabs);
    m_tabs->setCurrentIndex(int(enumIndex(page)));
}

void MainWindow::applyWindowHeight()
{
    // The page shown before still holds the window's minimum up until the layouts are redone
    // from the inside out; resize() would stop there.
    m_area->layout()->invalidate();
    m_area->layout()->activate();
    centralWidget()->layout()->activate();
    layout()->activate();
    const int outer = qRound(pageRows[m_page].heightTwips * logicalDpiY() / 1440.0);
    const int frame = frameGeometry().height() - geometry().height();
    const bool docked = m_problems && !m_problems->isHidden() && !m_problems->isFloating();
    if (!docked) {
        // The status bar fits in what every page leaves spare: the window keeps its height.
        resize(qMax(width(), minimumSizeHint().width()), outer - frame);
        return;
    }
    // The Problems panel takes room of its own: the page keeps its height, the panel its own.
    // Made with the first count: asking for it earlier would make it.
    const auto *bar = findChild<QStatusBar *>(QString(), Qt::FindDirectChildrenOnly);
    const int status = !bar || bar->isHidden() ? 0 : bar->sizeHint().height();
    const int pageHeight = outer - frame - menuBar()->height() - status;
    const int extra = status + qMax(m_problems->height(), m_problems->sizeHint().height())
                      + style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, this);
    const int pageMinimum = centralWidget()->minimumHeight();
    centralWidget()->setMinimumHeight(pageHeight);
    resize(qMax(width(), minimumSizeHint().width()), menuBar()->height() + pageHeight + extra);
    layout()->activate();
    centralWidget()->setMinimumHeight(pageMinimum);
}

void MainWindow::showTitle()
{
    const QString file = m_doc.currentThemeFile();
    // The mark shows the unsaved changes of a file; a new theme is named by the program alone.
    setWindowTitle(file.isEmpty() ? QString::fromLatin1(programName)
                                  : tr("%1[*] - %2", "the theme file's name, the program's").arg(QFileInfo(file).fileName(), QLatin1StringView(programName)));
    setWindowModified(!file.isEmpty() && m_doc.isDirty());
}

void MainWindow::afterLoadOrSave(FileCommands::Done done)
{
    if (done == FileCommands::Done::Loaded) {
        m_history->restart();
        focusThemeName();
        emit themeOpened();
    } else {
        statusBar()->showMessage(tr("Saved %1").arg(QFileInfo(m_doc.currentThemeFile()).fileName()));
    }
    checkTheme();
}

void MainWindow::showRestoredTheme(std::optional<Page> page)
{
    m_history->restart();
    if (page)
        showPage(*page);
    // The author sees at once what the restored theme still lacks.
    checkTheme();
}

void MainWindow::startUp()
{
    showTitle();
    // Items added by anyone, now or later, get letters of their own when their menu opens.
    for (QMenu *menu : menuBar()->findChildren<QMenu *>()) {
        Mnemonics::assignMenu(menu);
        connect(menu, &QMenu::aboutToShow, menu, [menu] { Mnemonics::assignMenu(menu); });
    }

    m_pages.general.themeType->addItems({tr("Theme Type 0"), tr("Theme Type 1")});
    m_pages.general.themeType->setCurrentIndex(1);

    m_started = true;
    for (Page page : editorPages) {
        const char *selector = pageRows[page].selector;
        if (!selector)
            continue;
        chooseDataSet(page, 0); // also when the first item was already current
        // Pages not built yet fill their selector when they are.
        if (QComboBox *combo = m_pages.selector(page))
            fillSelector(combo, page);
    }

    setStartUpState(m_doc);
    showPage(editorPageAt(m_tabs->currentIndex()).value_or(Page::General));
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // The frame around the window is known only once it is shown.
    QTimer::singleShot(0, this, &MainWindow::applyWindowHeight);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_closeGuard && !m_closeGuard()) {
        event->ignore();
        return;
    }
    event->accept();
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Text boxes keep an undo of their own; the document's one history wins, so a step undone
    // in a box is the same step the menu undoes.
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)
            || key->keyCombination() == QKeyCombination(Qt::ControlModifier, Qt::Key_Y)) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

AboutWindow *MainWindow::aboutWindow() const
{
    return m_about;
}

void MainWindow::showManual(const QString &code)
{
    openUserManual(code.isEmpty() ? userManualUrl() : problemCodeUrl(code), this);
}

void MainWindow::showAbout()
{
    if (!m_about)
        m_about = new AboutWindow(windowIcon());
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}
