#include "editor/mainwindow.h"

#include "document/description.h"
#include "document/filecommands.h"
#include "document/themedocument.h"
#include "document/themefields.h"
#include "editor/aboutwindow.h"
#include "editor/pages.h"
#include "editor/pagewidgets.h"
#include "editor/previewsurface.h"
#include "preview/ticktimer.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontMetricsF>
#include <QFrame>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QtMath>

#include <span>

namespace {

// The seven preview timers, one bit each, so the page and data-set tables can list them.
enum TimerBit : unsigned {
    BG = 1, IBG = 2, Blk = 4, Next = 8, SW = 16, Explosion = 32, Bomb = 64, AllTimers = 127,
};
constexpr const char *timerNames[7] = {
    "tmrBGPreview", "tmrPreviewIBG", "tmrPreviewBlk", "tmrPreviewNext",
    "tmrPreviewSW", "tmrPreviewExplosion", "tmrPreviewBomb",
};

// Wide enough for the widest page at common fonts; see buildPageArea().
constexpr qreal pageAreaWidthInCharacters = 124;

struct PageRow {
    QWidget *(*create)();
    const char *tabCaption;
    const char *tabToolTip;
    const char *icon;
    const char *menuItem;
    const char *menuCaption;
    int heightTwips;         // outer window height while the page is shown
    unsigned timersStopped;  // the page's own timers keep running
    const char *slug;
    const char *selector;    // data-set selector, nullptr for none
};

constexpr PageRow pageRows[MainWindow::pageCount] = {
    {createGeneralPage, "General", "General Theme Information", "tab-general", "mnuGeneral", "&General",
     6475, AllTimers, "general", nullptr},
    {createInterfacePage, "IFace", "Graphical Interface Configuration", "tab-iface", "mnuIface", "&Interface",
     6475, AllTimers, "interface", nullptr},
    {createBackgroundPage, "Background", "Game Background Configuration", "tab-background", "mnuBG",
     "&Background", 7315, Blk | SW | Next | Explosion | Bomb, "background", "cmbFields"},
    {createBlocksPage, "Blocks", "Game Block Configuration", "tab-blocks", "mnuBLK", "Bl&ocks",
     6475, BG | Explosion | Bomb, "blocks", "cmbBlocks"},
    // "Misceallenous" is the menu caption authors know: kept as the original spells it.
    {createMiscPage, "Misc. GFX", "Miscellaneous graphics", "tab-misc", "mnuMisc", "&Misceallenous Graphics",
     6475, BG | Blk | IBG | SW | Next, "misc", "cmbMisc"},
    {createSoundPage, "Sounds/Music", "Sounds and Music configuration", "tab-sounds", "mnuSounds",
     "&Sounds and Music", 6475, AllTimers, "sounds", nullptr},
};

// A choice shows its frame and include box, hides the other sets' and stops their timers.
struct DataSet {
    const char *caption;
    const char *frame;
    const char *includeBox;
    unsigned timer;
};
constexpr DataSet fieldSets[] = {
    {"Background", "fraBackground", "chkBG", BG},
    {"Internet Background", "fraIBG", "chkIBG", IBG},
};
constexpr DataSet blockSets[] = {
    {"Game Blocks", "fraBlocks", "chkBlk", Blk},
    {"Next Block Window", "fraNext", "chkNext", Next},
    {"Special Window", "fraSW", "chkSW", SW},
};
constexpr DataSet miscSets[] = {
    {"Explosion", "fraExplosion", "chkExplosion", Explosion},
    {"Block Bomb", "fraBomb", "chkBomb", Bomb},
    {"Theme Colors", "fraColor", "chkColor", 0},
    {"Misc. Images", "fraMImg", "chkMImg", 0},
};
struct Selector {
    const char *name;
    std::span<const DataSet> sets;
};
const Selector selectors[] = {
    {"cmbFields", fieldSets},
    {"cmbBlocks", blockSets},
    {"cmbMisc", miscSets},
};

// A frame takes input exactly when one of its switches is 1; 2 (greyed) counts as off.
struct SwitchedFrame {
    const char *frame;
    const char *switches[4];
};
constexpr SwitchedFrame switchedFrames[] = {
    {"fraIface", {"includeinterface"}},
    {"fraBackground", {"includebackground"}},
    {"fraIBG", {"includeinetbackground"}},
    {"fraBlocks", {"includeblocks"}},
    {"fraNext", {"includenextwindow"}},
    {"fraSW", {"includespecialwindow"}},
    {"fraExplosion", {"includeexplosion"}},
    {"fraBomb", {"includebomb"}},
    {"fraColor", {"includecolors"}},
    {"fraMImg", {"includemiscimages"}},
    {"fraSound", {"includesounds"}},
    {"fraMusic", {"includemusic"}},
    {"fraBGAni", {"bganimated"}},
    {"fraIBGAni", {"inetbganimated"}},
    {"fraNextAni", {"nextblkanimated"}},
    {"fraSWAni", {"specialwindowanimated"}},
    {"fraBlkAni", {"animateblocks", "animatespecials", "animateinetblocks", "animateinetspecials"}},
};

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

} // namespace

MainWindow::MainWindow(ThemeDocument &document, QWidget *parent)
    : QMainWindow(parent)
    , m_doc(document)
{
    Q_INIT_RESOURCE(icons);
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(PageWidgets::editorIcon("app"));

    buildMenus();
    buildTimers();
    m_controls.fill(nullptr, qsizetype(themeFields().size()));
    m_switchedFrames.fill(nullptr, qsizetype(std::size(switchedFrames)));
    setCentralWidget(buildPageArea());
    connect(&m_doc, &ThemeDocument::fieldChanged, this, &MainWindow::showFieldValue);
    connect(&m_doc, &ThemeDocument::swatchChanged, this, &MainWindow::showSwatch);
    connect(&m_doc, &ThemeDocument::themeReset, this, [this] {
        stopTimers(AllTimers);
        refreshThemeType();
    });
    buildPage(int(Page::General));
}

MainWindow::~MainWindow()
{
    delete m_about;
}

QString MainWindow::pageSlug(Page page)
{
    return QString::fromLatin1(pageRows[int(page)].slug);
}

const char *MainWindow::dataSetSelector(Page page)
{
    return pageRows[int(page)].selector;
}

void MainWindow::buildMenus()
{
    auto addItem = [](QMenu *menu, const char *name, const QString &caption) {
        QAction *action = menu->addAction(caption);
        action->setObjectName(QLatin1StringView(name));
        return action;
    };

    QMenu *file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("mnuFile"));
    addItem(file, "mnuNewTheme", QStringLiteral("Theme &New"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
    addItem(file, "mnuLoadTheme", QStringLiteral("Theme &Load"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    addItem(file, "mnuSaveTheme", QStringLiteral("Theme &Save"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    addItem(file, "mnuSaveAs", QStringLiteral("Theme Save &As"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+A")));
    file->addSeparator()->setObjectName(QStringLiteral("mnuSpacer"));
    connect(addItem(file, "mnuExit", QStringLiteral("E&xit")), &QAction::triggered, this, &QWidget::close);

    QMenu *data = menuBar()->addMenu(QStringLiteral("&Theme Data"));
    data->setObjectName(QStringLiteral("mnuData"));
    for (int i = 0; i < pageCount; ++i) {
        QAction *item = addItem(data, pageRows[i].menuItem, QString::fromLatin1(pageRows[i].menuCaption));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, i] { showPage(Page(i)); });
        m_pageActions[i] = item;
    }

    QMenu *help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    connect(addItem(help, "mnuAbout", QStringLiteral("About")), &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::buildTimers()
{
    // The preview engine connects and starts them; the window only stops them.
    for (int i = 0; i < 7; ++i) {
        auto *timer = new TickTimer(this);
        timer->setObjectName(QLatin1StringView(timerNames[i]));
        timer->setInterval(1);
        m_timers[i] = timer;
    }
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
    for (int i = 0; i < pageCount; ++i) {
        m_tabs->addTab(PageWidgets::editorIcon(pageRows[i].icon),
                       QString::fromLatin1(pageRows[i].tabCaption));
        m_tabs->setTabToolTip(i, QString::fromLatin1(pageRows[i].tabToolTip));
    }
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0 && index < pageCount)
            showPage(Page(index));
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

void MainWindow::buildPage(int page)
{
    if (m_panels[page])
        return;
    QWidget *panel = pageRows[page].create();
    panel->setVisible(false); // shown filled, so selectors size themselves to their items
    static_cast<QGridLayout *>(m_area->layout())->addWidget(panel, 0, 0);
    m_panels[page] = panel;
    // Hidden panels do not count in a layout; the window stays as wide as the widest page.
    const int needed = panel->sizeHint().width() + 12;
    if (needed > m_area->minimumWidth())
        m_area->setMinimumWidth(needed);

    if (page == int(Page::General)) {
        m_type = panel->findChild<QComboBox *>(QStringLiteral("cmbType"));
        connect(m_type, &QComboBox::currentIndexChanged, this, [this](int choice) {
            if (choice < 0)
                return;
            m_doc.setNumber(u"themetype", choice);
            applyThemeTypeChoice();
        });
        connect(panel->findChild<QPushButton *>(QStringLiteral("cmdGenerateDescription")), &QPushButton::clicked,
                this, [this] { m_doc.setText(u"description", generateDescription(m_doc)); });
    }
    for (int i = 0; i < int(std::size(switchedFrames)); ++i) {
        if (!m_switchedFrames.at(i))
            m_switchedFrames[i] = panel->findChild<QWidget *>(QLatin1StringView(switchedFrames[i].frame));
    }
    bindFields(panel);
    bindSwatches(panel);
    for (int selector = 0; selector < int(std::size(selectors)); ++selector)
        bindSelector(panel, selector);
    refreshSwitchedFrames();
    refreshThemeType();

    for (qsizetype i = 0; i < m_pending.size();) {
        PendingControl &pending = m_pending[i];
        QWidget *control = pending.context ? panel->findChild<QWidget *>(pending.name) : nullptr;
        if (control)
            pending.use(control);
        if (control || !pending.context)
            m_pending.removeAt(i);
        else
            ++i;
    }
    panel->setVisible(page == int(m_page));
}

void MainWindow::buildAllPages()
{
    for (int page = 0; page < pageCount; ++page)
        buildPage(page);
    for (const PendingControl &pending : std::as_const(m_pending)) {
        if (pending.context)
            qWarning("MainWindow: no control named %s", qPrintable(pending.name));
    }
    m_pending.clear();
}

void MainWindow::withControl(const QString &name, QObject *context, std::function<void(QWidget *)> use)
{
    if (QWidget *control = findChild<QWidget *>(name))
        use(control);
    else
        m_pending.append({name, context, std::move(use)});
}

void MainWindow::bindFields(QWidget *panel)
{
    const auto fields = themeFields();
    for (int i = 0; i < int(fields.size()); ++i) {
        if (m_controls.at(i))
            continue;
        QWidget *control = panel->findChild<QWidget *>(QLatin1StringView(fields[size_t(i)].control));
        if (!control)
            continue;
        m_controls[i] = control;
        if (auto *edit = qobject_cast<QLineEdit *>(control)) {
            connect(edit, &QLineEdit::textChanged, this, [this, i](const QString &text) {
                if (!m_showingField)
                    m_doc.setValue(i, text);
            });
        } else if (auto *text = qobject_cast<QPlainTextEdit *>(control)) {
            connect(text, &QPlainTextEdit::textChanged, this, [this, i, text] {
                if (!m_showingField)
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

    if (field.kind == FieldKind::Switch)
        refreshSwitchedFrames();
    else if (field.kind == FieldKind::TypeIndex && m_type->count() > m_doc.number(index))
        m_type->setCurrentIndex(m_doc.number(index)); // runs the choice handler when it moves
}

void MainWindow::bindSwatches(QWidget *panel)
{
    if (panel->findChild<PreviewSurface *>(QStringLiteral("picPreviewColor(0)"))) {
        for (int i = 0; i < 12; ++i)
            showSwatch(i);
    }
}

void MainWindow::showSwatch(int index)
{
    auto *swatch = findChild<PreviewSurface *>(QStringLiteral("picPreviewColor(%1)").arg(index));
    if (!swatch)
        return;
    const auto value = m_doc.swatch(index);
    // No colour yet is saved as white, so that is what the swatch shows.
    swatch->setFillColor(value ? swatchColor(*value) : QColor(Qt::white));
}

void MainWindow::bindSelector(QWidget *panel, int selector)
{
    auto *combo = panel->findChild<QComboBox *>(QLatin1StringView(selectors[selector].name));
    if (!combo)
        return;
    connect(combo, &QComboBox::currentIndexChanged, this, [this, selector](int choice) {
        chooseDataSet(selector, choice);
    });
    if (m_started)
        fillSelector(combo, selector);
    showDataSet(selector);
}

void MainWindow::fillSelector(QComboBox *combo, int selector)
{
    for (const DataSet &set : selectors[selector].sets)
        combo->addItem(QString::fromLatin1(set.caption));
    combo->setCurrentIndex(m_dataSetChoice[selector]);
}

void MainWindow::refreshSwitchedFrames()
{
    for (int i = 0; i < int(std::size(switchedFrames)); ++i) {
        bool on = false;
        for (const char *key : switchedFrames[i].switches) {
            if (key && m_doc.isOn(QLatin1StringView(key)))
                on = true;
        }
        if (QWidget *frame = m_switchedFrames.at(i))
            frame->setEnabled(on);
    }
}

void MainWindow::refreshThemeType()
{
    QWidget *general = m_panels[int(Page::General)];
    if (!general)
        return;
    const bool packaged = m_doc.number(u"themetype") == 1;
    general->findChild<QWidget *>(QStringLiteral("txtResource"))->setEnabled(packaged);
    general->findChild<QWidget *>(QStringLiteral("cmdBrowseResource"))->setEnabled(packaged);
    general->findChild<QWidget *>(QStringLiteral("fraTheme0"))->setEnabled(!packaged);
}

void MainWindow::applyThemeTypeChoice()
{
    m_doc.setDirty(true);
    refreshThemeType();
}

void MainWindow::chooseDataSet(int selector, int choice)
{
    const std::span<const DataSet> sets = selectors[selector].sets;
    if (choice < 0 || choice >= int(sets.size()))
        return;
    m_dataSetChoice[selector] = choice;
    unsigned stopped = 0;
    for (int i = 0; i < int(sets.size()); ++i) {
        if (i != choice)
            stopped |= sets[size_t(i)].timer;
    }
    showDataSet(selector);
    stopTimers(stopped);
}

void MainWindow::showDataSet(int selector)
{
    const std::span<const DataSet> sets = selectors[selector].sets;
    for (int i = 0; i < int(sets.size()); ++i) {
        const bool shown = i == m_dataSetChoice[selector];
        // A page not built yet shows the choice when it is.
        if (auto *frame = findChild<QWidget *>(QLatin1StringView(sets[size_t(i)].frame)))
            frame->setVisible(shown);
        if (auto *box = findChild<QWidget *>(QLatin1StringView(sets[size_t(i)].includeBox)))
            box->setVisible(shown);
    }
}

void MainWindow::stopTimers(unsigned timerBits)
{
    for (int i = 0; i < 7; ++i) {
        if (timerBits & (1u << i))
            m_timers[i]->stop();
    }
}

void MainWindow::showPage(Page page)
{
    const int index = int(page);
    if (index < 0 || index >= pageCount)
        return;
    m_page = page;
    buildPage(index);
    for (int i = 0; i < pageCount; ++i) {
        if (m_panels[i])
            m_panels[i]->setVisible(i == index);
    }
    applyWindowHeight();
    stopTimers(pageRows[index].timersStopped);
    for (int i = 0; i < pageCount; ++i)
        m_pageActions[i]->setChecked(i == index);
    const QSignalBlocker blocker(m_tabs);
    m_tabs->setCurrentIndex(index);
}

void MainWindow::applyWindowHeight()
{
    const int outer = qRound(pageRows[int(m_page)].heightTwips * logicalDpiY() / 1440.0);
    const int frame = frameGeometry().height() - geometry().height();
    resize(qMax(width(), minimumSizeHint().width()), outer - frame);
}

void MainWindow::startUp()
{
    setWindowTitle(QStringLiteral("Stakko Theme Maker"));

    m_type->addItems({QStringLiteral("Theme Type 0"), QStringLiteral("Theme Type 1")});
    m_type->setCurrentIndex(1);

    m_started = true;
    for (int selector = 0; selector < int(std::size(selectors)); ++selector) {
        chooseDataSet(selector, 0); // also when the first item was already current
        // Pages not built yet fill their selector when they are.
        if (auto *combo = findChild<QComboBox *>(QLatin1StringView(selectors[selector].name)))
            fillSelector(combo, selector);
    }

    setStartUpState(m_doc);
    showPage(Page(qMax(0, m_tabs->currentIndex())));
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

AboutWindow *MainWindow::aboutWindow() const
{
    return m_about;
}

void MainWindow::showAbout()
{
    if (!m_about)
        m_about = new AboutWindow(windowIcon());
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}
