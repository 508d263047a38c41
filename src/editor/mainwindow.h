// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/animatedelement.h"
#include "editing/filecommands.h"
#include "editor/pages.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <functional>
#include <optional>
#include <span>

class AboutWindow;
class BackgroundCheck;
class ProblemsPanel;
class ThemeHistory;
class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QTabBar;
class QTimer;
class TickTimer;
class ThemeDocument;

/**
 * The editor's one working window: the whole theme document as controls on six pages.
 * Controls carry their design names (controlnames.h: "txtBGNum", "txtColor(3)", "tmrPreviewBlk")
 * for tests and tools; the bindings take them from the page structs (pages()). Every field control
 * follows the document both ways; the window keeps no theme state of its own.
 *
 * A page's controls are made when the page is first shown, so the window appears without
 * waiting for pages nobody has opened yet. Timers and menu items exist from the start.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    using Page = EditorPage;

    explicit MainWindow(ThemeDocument &document, QWidget *parent = nullptr);
    ~MainWindow() override;

    ThemeDocument &document() { return m_doc; }

    /**
     * The start-up sequence: selectors filled and chosen, the document in its start-up state,
     * General page shown. Call once, before the window is first shown.
     */
    void startUp();

    /**
     * Asked on Exit and on every close request; false keeps the editor open. Without a
     * guard the window simply closes.
     */
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }

    /** The pages' controls, as far as the pages are built. */
    const EditorPages &pages() const { return m_pages; }
    /**
     * Calls \a bind with each page built so far, then with every page as it is built, while
     * \a context lives.
     */
    void bindPages(QObject *context, const std::function<void(Page)> &bind);
    /** The timer that plays animated element \a element's preview. */
    TickTimer *previewTimer(AnimatedElementId element) const { return m_timers[element]; }
    /** Builds the pages not shown yet, for tools and tests that reach every control at once. */
    void buildAllPages();

    /** Makes \a page current: panel, window height, preview timers, menu check, tab. */
    void showPage(Page page);
    Page currentPage() const { return m_page; }

    /** The theme type selector's choice handler: marks the theme changed and enables its groups. */
    void applyThemeTypeChoice();

    /**
     * Checks the theme off the UI thread and shows what it finds in the Problems panel and the
     * status bar. Once a check has run, edits check again when typing pauses.
     */
    void checkTheme();
    BackgroundCheck &themeCheck() const { return *m_check; }
    /** The document's undo history, behind the Edit menu. */
    ThemeHistory &history() const { return *m_history; }
    ProblemsPanel &problemsPanel();
    /** Puts the cursor in the "Theme Name:" box when the General page shows, so typing goes somewhere. */
    void focusThemeName();
    /** Shows the page and data set of field \a key and puts the focus on its control. */
    void revealField(const QString &key);

    /** Opens the manual in the system's browser: the section on the checker's \a code, or its start. */
    void showManual(const QString &code = {});
    /**
     * What the window does once a theme has loaded (a fresh undo history, the cursor in the name
     * box) or been written ("Saved NAME.skt" in the status bar); either way the theme is checked.
     */
    void afterLoadOrSave(FileCommands::Done done);
    /** A theme brought back from a crash: a fresh history, the page it was on, checked at once. */
    void showRestoredTheme(std::optional<Page> page);

    /** Opens the About window, or brings the open one forward. */
    void showAbout();
    /** The open About window, or nullptr. */
    AboutWindow *aboutWindow() const;

    /** Page titles for file names and captions: "general", "background", ... */
    static QString pageSlug(Page page);
    /** The object name of the page's data-set selector, or nullptr when it has none. */
    static const char *dataSetSelector(Page page);

signals:
    /** Another theme is open (New, or a Load that loaded): what showed the old one empties. */
    void themeOpened();
    /** Page \a page has just been built and bound to the document. */
    void pageBuilt(MainWindow::Page page);

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void buildMenus();
    void buildTimers();
    void buildProblems();
    QWidget *buildPageArea();
    void buildPage(Page page);
    void bindFields(Page page);
    void bindSelector(Page page);
    void fillSelector(QComboBox *combo, Page page);
    void showSwatch(int index);
    /** Names for assistive technology where the page says nothing on its own. */
    void nameControls(QWidget *panel);
    /** Accelerator letters for the page's controls, data set by data set. */
    void assignAccelerators(Page page);
    QString menuBarLetters() const;
    /** "NAME.skt - Stakko Theme Maker", marked while there are unsaved changes. */
    void showTitle();
    void showDataSet(Page page);
    void showFieldValue(int index);
    void refreshSwitchedFrames();
    void refreshThemeType();
    void chooseDataSet(Page page, int choice);
    void applyWindowHeight();

    /** The frame of data set \a choice of \a page, or nullptr while the page is not built. */
    QWidget *dataSetFrame(Page page, int choice) const;

    // A frame that takes input exactly when one of its switches is 1; 2 (greyed) counts as off.
    struct SwitchedFrame {
        std::array<const char *, 4> switches; // unused ones nullptr
        QWidget *frame;
    };

    ThemeDocument &m_doc;
    Page m_page = Page::General;
    QTabBar *m_tabs = nullptr;
    QFrame *m_area = nullptr;
    EnumArray<Page, QWidget *, editorPageCount> m_panels{}; // nullptr until first shown
    EnumArray<Page, QAction *, editorPageCount> m_pageActions{};
    ElementTable<TickTimer *> m_timers{};
    EditorPages m_pages;                // a page's part empty until it is built
    QList<QWidget *> m_controls;        // by field index; nullptr while its page is not built
    QList<SwitchedFrame> m_switchedFrames; // of the pages built so far
    EnumArray<Page, int, editorPageCount> m_dataSetChoice{}; // by place in the page's selector
    bool m_started = false;             // startUp() has filled the selectors
    QPointer<AboutWindow> m_about;
    BackgroundCheck *m_check = nullptr;
    ThemeHistory *m_history = nullptr;
    ProblemsPanel *m_problems = nullptr;
    bool m_countShown = false; // the problem count sits in the status bar
    QTimer *m_recheck = nullptr;
    std::function<bool()> m_closeGuard;
    bool m_showingField = false;
};
