#pragma once

#include "sound/editorconfig.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

class AboutWindow;
class QAction;
class QCheckBox;
class QComboBox;
class QTabBar;
class QTimer;
class ThemeDocument;

/**
 * The editor's one working window: the whole theme document as controls on six pages.
 * Controls carry their design names ("txtBGNum", "txtColor(3)", "tmrPreviewBlk") so the file
 * commands, the previews and tests reach them with findChild(). Every field control follows
 * the document both ways; the window keeps no theme state of its own.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class Page { General, Interface, Background, Blocks, Misc, Sounds };
    static constexpr int pageCount = 6;

    explicit MainWindow(ThemeDocument &document, QWidget *parent = nullptr);
    ~MainWindow() override;

    ThemeDocument &document() { return m_doc; }

    /**
     * The start-up sequence: selectors filled and chosen, document reset, dirty flag and
     * folders cleared, General page shown, editor configuration read, sound system opened
     * through the initSound hook. Call once, before the window is first shown.
     */
    void startUp();

    /** Called at the end of startUp() with the configuration just read. */
    void setInitSound(std::function<void(const EditorConfig &)> hook) { m_initSound = std::move(hook); }
    const EditorConfig &editorConfig() const { return m_config; }
    EditorConfig &editorConfig() { return m_config; }

    /**
     * Asked on Exit and on every close request; false keeps the editor open. Without a
     * guard the window simply closes.
     */
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }

    /** Makes \a page current: panel, window height, preview timers, menu check, tab. */
    void showPage(Page page);
    Page currentPage() const { return m_page; }

    /** The theme type selector's choice handler: marks the theme changed and enables its groups. */
    void applyThemeTypeChoice();

    /** Opens the About window, or brings the open one forward. */
    void showAbout();
    /** The open About window, or nullptr. */
    AboutWindow *aboutWindow() const;

    /** Page titles for file names and captions: "general", "background", ... */
    static QString pageSlug(Page page);
    /** The object name of the page's data-set selector, or nullptr when it has none. */
    static const char *dataSetSelector(Page page);

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void buildMenus();
    void buildTimers();
    QWidget *buildPageArea();
    void bindFields();
    void bindSwatches();
    void showFieldValue(int index);
    void refreshSwitchedFrames();
    void refreshThemeType();
    void chooseDataSet(int selector, int choice);
    void stopTimers(unsigned timerBits);
    void applyWindowHeight();

    ThemeDocument &m_doc;
    Page m_page = Page::General;
    QTabBar *m_tabs = nullptr;
    QWidget *m_panels[pageCount] = {};
    QAction *m_pageActions[pageCount] = {};
    QTimer *m_timers[7] = {};
    QComboBox *m_type = nullptr;
    QList<QWidget *> m_controls;        // by field index
    QList<QWidget *> m_switchedFrames;  // by row of the switched-frame table
    QPointer<AboutWindow> m_about;
    EditorConfig m_config;
    std::function<void(const EditorConfig &)> m_initSound;
    std::function<bool()> m_closeGuard;
    bool m_showingField = false;
};
