// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/runprogram.h"
#include "common/translations.h"
#include "art/artimport.h"
#include "editing/recentthemes.h"
#include "editor/aboutwindow.h"
#include "editor/editorparts.h"
#include "editor/mnemonics.h"
#include "editor/previewbinding.h"
#include "editor/previewwindow.h"
#include "editor/problemspanel.h"
#include "editor/recentmenu.h"
#include "theme/animatedelement.h"
#include "theme/themefields.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <functional>
#include <memory>

namespace {

using Texts = QMap<QString, QString>; // where it is shown -> the text

/** The editor as the program puts it together, every page built. */
struct Editor : EditorParts {
    PreviewBinding previews{window, doc, dialogs};
    QSettings settings{QDir::temp().filePath(QStringLiteral("editor.ini")), QSettings::IniFormat};
    RecentThemes recent{settings};
    RecentMenu recentMenu{*window.findChild<QMenu *>(QStringLiteral("mnuRecent")), recent, commands, dialogs};
    Editor()
    {
        for (QMenu *menu : window.findChildren<QMenu *>())
            emit menu->aboutToShow(); // items made when their menu opens
    }
};

/** Texts the same in English and German: names, numbers, file names, words German borrows. */
bool sameInBoth(const QString &text)
{
    static const QRegularExpression same(QStringLiteral(
        "^(Stakko Theme Maker|OK|Pause|Problem|Explosion|Tetris|JPEG \\(\\.jpg\\)|Version [0-9.]+|[0-9]+x|[0-9,]+|<a href=.*)$"));
    return same.match(text).hasMatch();
}

QString plain(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("&(?!&)"))).trimmed();
}

/**
 * What the core's tables give the editor to show: field captions, element captions and data
 * sets, art rows. They are the core's catalog's to translate.
 */
void add(Texts &texts, const QString &where, const QString &text)
{
    if (!text.isEmpty())
        texts.insert(where, text);
}

/** Every text \a root and the widgets in it show: titles, captions, items, tips, accessible sentences. */
Texts textsOf(QWidget *root)
{
    Texts texts;
    QList<QWidget *> widgets{root};
    widgets += root->findChildren<QWidget *>();
    for (int i = 0; i < widgets.size(); ++i) {
        QWidget *w = widgets.at(i);
        const QString where = QStringLiteral("%1 %2#%3 ").arg(QLatin1StringView(w->metaObject()->className()), w->objectName()).arg(i);
        if (w->isWindow() || qobject_cast<QDockWidget *>(w))
            add(texts, where + QStringLiteral("title"), w->windowTitle());
        add(texts, where + QStringLiteral("tool tip"), w->toolTip());
        add(texts, where + QStringLiteral("accessible name"), w->accessibleName());
        add(texts, where + QStringLiteral("accessible description"), w->accessibleDescription());
        if (auto *label = qobject_cast<QLabel *>(w))
            add(texts, where + QStringLiteral("label"), label->text());
        if (auto *button = qobject_cast<QAbstractButton *>(w))
            add(texts, where + QStringLiteral("caption"), button->text());
        if (auto *box = qobject_cast<QGroupBox *>(w))
            add(texts, where + QStringLiteral("frame"), box->title());
        if (auto *tabs = qobject_cast<QTabBar *>(w)) {
            for (int t = 0; t < tabs->count(); ++t) {
                add(texts, where + QStringLiteral("tab %1").arg(t), tabs->tabText(t));
                add(texts, where + QStringLiteral("tab tip %1").arg(t), tabs->tabToolTip(t));
            }
        }
        if (auto *combo = qobject_cast<QComboBox *>(w)) {
            for (int item = 0; item < combo->count(); ++item)
                add(texts, where + QStringLiteral("item %1").arg(item), combo->itemText(item));
        }
        if (auto *tree = qobject_cast<QTreeWidget *>(w)) {
            for (int column = 0; column < tree->columnCount(); ++column)
                add(texts, where + QStringLiteral("column %1").arg(column), tree->headerItem()->text(column));
        }
        // Qt's own menu of the items a narrow menu bar has no room for differs with the words' widths.
        const QList<QAction *> actions = qobject_cast<QMenu *>(w) && w->objectName().isEmpty() ? QList<QAction *>() : w->actions();
        for (int a = 0; a < actions.size(); ++a)
            add(texts, where + QStringLiteral("action %1").arg(a), actions.at(a)->text());
    }
    return texts;
}

/** A window of the editor, as an author opens it. */
struct Window {
    const char *name;
    std::function<QWidget *(Editor &)> open;
};

const Window windows[] = {
    {"main window", [](Editor &e) -> QWidget * { return &e.window; }},
    {"problems panel", [](Editor &e) -> QWidget * { return &e.window.problemsPanel(); }},
    {"about window", [](Editor &e) -> QWidget * {
         e.window.findChild<QAction *>(QStringLiteral("mnuAbout"))->trigger();
         return e.window.aboutWindow();
     }},
    {"closer look", [](Editor &e) -> QWidget * { return e.previews.openPreviewWindow(AnimatedElementId::Blocks); }},
    {"still picture", [](Editor &e) -> QWidget * { return e.previews.openPreviewWindow(StillWindow::InterfaceScreen); }},
    {"import dialog", [](Editor &e) -> QWidget * {
         return e.importer.dialogFor(QString::fromLatin1(animatedElements[AnimatedElementId::Background].imageField), {});
     }},
};

/** The accelerators of each menu, and of the import dialog's form, in the catalog's own words. */
struct AcceleratorGroup {
    const char *context;
    QList<const char *> captions;
};

const AcceleratorGroup acceleratorGroups[] = {
    {"MainWindow", {"&File", "&Edit", "&Theme Data", "T&ools", "&Help"}},
    {"MainWindow", {"Theme &New", "Theme &Load", "Theme &Save", "Theme Save &As", "&Recent Themes", "E&xit"}},
    {"MainWindow", {"&Undo", "&Redo"}},
    {"MainWindow", {"&General", "&Interface", "&Background", "Bl&ocks", "&Misceallenous Graphics", "&Sounds and Music"}},
    {"MainWindow", {"&Check Theme", "Use Art &Folder...", "&Build Resource Package"}},
    {"MainWindow", {"Stakko Theme Maker &Manual", "&About"}},
    {"ArtImportDialog", {"&Row:", "&Files...", "F&older...", "&Source:", "F&it:", "&Background:", "Fo&rmat:", "S&heet:"}},
};

} // namespace

class GermanEditorTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QMap<QString, Texts> m_english;

private slots:
    void initTestCase()
    {
        qputenv("TMPDIR", QFile::encodeName(m_dir.path()));
        // The English first, as the sources spell it; then the German.
        for (const Window &window : windows) {
            Editor editor;
            m_english.insert(QLatin1StringView(window.name), textsOf(window.open(editor)));
        }
        // As the editor asks for it: Qt's own catalog says the standard buttons.
        QVERIFY(useLanguage(QStringLiteral("de"), {Catalog::core, Catalog::editor, Catalog::qt}));
    }

    // A text still in English is one whose tr() went missing or whose translation is.
    void noEnglishLeft_data()
    {
        QTest::addColumn<QString>("window");
        for (const Window &window : windows)
            QTest::newRow(window.name) << QString::fromLatin1(window.name);
    }

    void noEnglishLeft()
    {
        QFETCH(QString, window);
        const Texts &english = m_english.value(window);
        QVERIFY(english.size() > 3);
        Editor editor;
        const auto *shown = std::find_if(std::begin(windows), std::end(windows),
                                         [&](const Window &w) { return window == QLatin1StringView(w.name); });
        const Texts german = textsOf(shown->open(editor));
        QStringList unmatched;
        for (auto it = german.cbegin(); it != german.cend(); ++it) {
            if (!english.contains(it.key()))
                unmatched << QStringLiteral("German only: ") + it.key() + QStringLiteral(": ") + it.value();
        }
        for (auto it = english.cbegin(); it != english.cend(); ++it) {
            if (!german.contains(it.key()))
                unmatched << QStringLiteral("English only: ") + it.key() + QStringLiteral(": ") + it.value();
        }
        QVERIFY2(unmatched.isEmpty(), qPrintable(unmatched.join(u'\n')));
        QStringList left;
        int translated = 0;
        for (auto it = english.cbegin(); it != english.cend(); ++it) {
            const QString source = plain(it.value());
            if (german.value(it.key()) != it.value()) {
                ++translated;
                continue;
            }
            static const QRegularExpression letters(QStringLiteral("[A-Za-z]{2}"));
            if (!source.contains(letters) || sameInBoth(source))
                continue;
            left << it.key() + QStringLiteral(": ") + it.value();
        }
        QVERIFY2(left.isEmpty(), qPrintable(QStringLiteral("still English:\n") + left.join(u'\n')));
        QVERIFY(translated > 0);
    }

    // Alt and a letter reach one thing in German too: the catalog keeps each group's letters apart.
    void germanAcceleratorsAreUnique_data()
    {
        QTest::addColumn<QString>("context");
        QTest::addColumn<QStringList>("captions");
        for (const AcceleratorGroup &group : acceleratorGroups) {
            QStringList captions;
            for (const char *caption : group.captions)
                captions << QLatin1StringView(caption);
            QTest::newRow(group.captions.first()) << QString::fromLatin1(group.context) << captions;
        }
    }

    void germanAcceleratorsAreUnique()
    {
        QFETCH(QString, context);
        QFETCH(QStringList, captions);
        QHash<QChar, QString> seen;
        for (const QString &caption : std::as_const(captions)) {
            const QString german = QCoreApplication::translate(qPrintable(context), qPrintable(caption));
            QVERIFY2(german != caption || sameInBoth(plain(caption)), qPrintable(caption));
            QCOMPARE(german.count(QRegularExpression(QStringLiteral("&(?!&)"))), 1);
            const QChar letter = Mnemonics::letterOf(german);
            QVERIFY2(!seen.contains(letter), qPrintable(seen.value(letter) + QStringLiteral(" and ") + german));
            seen.insert(letter, german);
        }
    }

    // --help needs no display in either language; the English stays as it was written.
    void helpSpeaksTheAuthorsLanguage()
    {
        const QString editor = qEnvironmentVariable("STAKKO_EDITOR");
        if (editor.isEmpty())
            QSKIP("STAKKO_EDITOR names no editor binary");
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("DISPLAY"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        env.remove(QStringLiteral("QT_QPA_PLATFORM"));
        const ProgramRun english = runProgram(editor, {QStringLiteral("--help")}, env);
        QCOMPARE(english.status, 0);
        QVERIFY(english.out.startsWith("Usage: stakko-theme-maker [THEME.skt]\n"));
        QVERIFY(english.out.endsWith("Exit status: 0 done, 1 a screenshot could not be written, 2 usage error.\n"));
        const ProgramRun german = runProgram(editor, {QStringLiteral("--lang"), QStringLiteral("de"), QStringLiteral("--help")}, env);
        QCOMPARE(german.status, 0);
        QVERIFY2(german.out.startsWith(QCoreApplication::translate("main", "Usage: stakko-theme-maker [THEME.skt]\n"
                                                                           "       stakko-theme-maker --screenshot DIR [THEME.skt]\n")
                                           .toUtf8()),
                 german.out.constData());
        QVERIFY(!german.out.contains("Usage:"));
        QVERIFY(german.out.contains("--screenshot"));
    }
};

QTEST_MAIN(GermanEditorTest)
#include "tst_germaneditor.moc"
