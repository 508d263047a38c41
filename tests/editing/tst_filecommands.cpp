// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "editing/filecommands.h"

#include <QDir>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

using Answer = Dialogs::Answer;

enum class Command { New, Load, Exit };

const QString promptText =
    QStringLiteral("Caution: This action will cause all previous changes to be lost, do you wish to save?");

} // namespace

class FileCommandsTest : public QObject
{
    Q_OBJECT

    QString path(const QString &name) const { return m_dir.filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dirOwner;
    QDir m_dir;

private slots:
    void init()
    {
        m_dirOwner = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dirOwner->isValid());
        m_dir = QDir(m_dirOwner->path());
    }

    void guardedCommands_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<bool>("dirty");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QString>("saveName");  // Save As dialog after "Yes"; "" cancels it
        QTest::addColumn<bool>("goesOn");

        const struct { const char *name; Command command; } commands[] = {
            {"New", Command::New}, {"Load", Command::Load}, {"Exit", Command::Exit}};
        for (const auto &c : commands) {
            QTest::addRow("%s, clean, no question", c.name) << c.command << false << Answer::Cancel << QString() << true;
            QTest::addRow("%s, Cancel", c.name) << c.command << true << Answer::Cancel << QString() << false;
            QTest::addRow("%s, No", c.name) << c.command << true << Answer::No << QString() << true;
            QTest::addRow("%s, Yes, saved", c.name) << c.command << true << Answer::Yes << "saved.skt" << true;
            QTest::addRow("%s, Yes, Save As cancelled", c.name) << c.command << true << Answer::Yes << QString() << false;
        }
    }

    void guardedCommands()
    {
        QFETCH(Command, command);
        QFETCH(bool, dirty);
        QFETCH(Answer, answer);
        QFETCH(QString, saveName);
        QFETCH(bool, goesOn);

        const QString current = path(QStringLiteral("current.skt"));
        QVERIFY(writeFile(current, "untouched"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setCurrentThemeFile(current);
        doc.setText(u"name", QStringLiteral("Unsaved Work"));
        doc.setDirty(dirty);

        ScriptedDialogs dialogs;
        dialogs.answers.enqueue(answer);
        if (!saveName.isEmpty())
            dialogs.saveNames.enqueue(path(saveName));
        FileCommands commands(doc, dialogs);
        commands.setProgramFolder(m_dir.path());

        bool exitAllowed = false;
        Report told;
        switch (command) {
        case Command::New: told = commands.newTheme().takeReport(); break;
        case Command::Load: told = commands.loadTheme().takeReport(); break; // the open dialog is cancelled
        case Command::Exit: {
            Result<bool> exit = commands.exitRequested();
            exitAllowed = exit && *exit;
            told = exit.takeReport();
            break;
        }
        }

        dialogs.show(told);
        QCOMPARE(dialogs.messageLines(), dirty ? QStringList{promptText} : QStringList());
        QCOMPARE(dialogs.savePromptFiles, dirty ? QStringList{QStringLiteral("current.skt")} : QStringList());
        if (dirty)
            QCOMPARE(dialogs.messages.first().kind, ScriptedDialogs::Kind::Question);
        // "Yes" always asks for a new file, even when the theme has one.
        QCOMPARE(dialogs.saveFilters, dirty && answer == Answer::Yes ? QStringList{themeFileFilter} : QStringList());
        QCOMPARE(readFile(current), QByteArray("untouched"));
        if (!saveName.isEmpty()) {
            QVERIFY(readFile(path(saveName)).contains("Unsaved Work"));
            QCOMPARE(doc.currentThemeFile(), command == Command::New ? QString() : path(saveName));
        }

        if (!goesOn) {
            QCOMPARE(doc.value(u"name"), QStringLiteral("Unsaved Work"));
            QVERIFY(doc.isDirty());
            QCOMPARE(doc.currentThemeFile(), current);
            QVERIFY(dialogs.openFilters.isEmpty());
            QVERIFY(!exitAllowed);
            return;
        }

        QVERIFY(!doc.isDirty());
        switch (command) {
        case Command::New:
            QCOMPARE(doc.value(u"name"), QStringLiteral("Stakko Theme"));
            QCOMPARE(doc.number(u"themetype"), 1);
            QCOMPARE(doc.currentThemeFile(), QString());
            break;
        case Command::Load: // with no "data" folder beside the program, in the author's documents
            QCOMPARE(dialogs.openFilters, QStringList{themeFileFilter});
            QCOMPARE(dialogs.openFolders,
                     QStringList{QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)});
            QCOMPARE(doc.value(u"name"), QStringLiteral("Unsaved Work"));
            break;
        case Command::Exit:
            QVERIFY(exitAllowed);
            break;
        }
    }

    void saveCommands_data()
    {
        QTest::addColumn<bool>("saveAs");          // Save As instead of Save
        QTest::addColumn<QString>("current");     // "" for none
        QTest::addColumn<bool>("dirtyBefore");
        QTest::addColumn<QString>("saveName");    // "" cancels the dialog
        QTest::addColumn<bool>("dialogShown");
        QTest::addColumn<bool>("dirtyAfter");
        QTest::addColumn<QString>("currentAfter");
        QTest::addColumn<QString>("error");       // the file an error names, "" when saved or cancelled

        // A folder that cannot exist: its parent is a plain file (permissions do not stop root).
        const QString unwritable = QStringLiteral("plain/theme.skt");
        QTest::newRow("Save, current file")
            << false << "current.skt" << true << "" << false << false << "current.skt" << "";
        QTest::newRow("Save, new theme, saved")
            << false << "" << true << "chosen.skt" << true << false << "chosen.skt" << "";
        QTest::newRow("Save, new theme, cancelled")
            << false << "" << true << "" << true << true << "" << "";
        QTest::newRow("Save, new clean theme, cancelled")
            << false << "" << false << "" << true << true << "" << "";
        QTest::newRow("Save, write fails")
            << false << unwritable << false << "" << false << true << unwritable << unwritable;
        QTest::newRow("Save As, saved")
            << true << "current.skt" << true << "chosen.skt" << true << false << "chosen.skt" << "";
        QTest::newRow("Save As, typed name kept without extension")
            << true << "" << true << "mytheme" << true << false << "mytheme" << "";
        QTest::newRow("Save As, cancelled")
            << true << "current.skt" << true << "" << true << true << "current.skt" << "";
        QTest::newRow("Save As on clean theme, cancelled")
            << true << "current.skt" << false << "" << true << true << "current.skt" << "";
        QTest::newRow("Save As, write fails")
            << true << "current.skt" << false << unwritable << true << true << "current.skt" << unwritable;
    }

    void saveCommands()
    {
        QFETCH(bool, saveAs);
        QFETCH(QString, current);
        QFETCH(bool, dirtyBefore);
        QFETCH(QString, saveName);
        QFETCH(bool, dialogShown);
        QFETCH(bool, dirtyAfter);
        QFETCH(QString, currentAfter);
        QFETCH(QString, error);

        QVERIFY(writeFile(path(QStringLiteral("plain")), "x"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setText(u"name", QStringLiteral("Ice Age"));
        if (!current.isEmpty())
            doc.setCurrentThemeFile(path(current));
        doc.setDirty(dirtyBefore);
        ScriptedDialogs dialogs;
        if (!saveName.isEmpty())
            dialogs.saveNames.enqueue(path(saveName));
        FileCommands commands(doc, dialogs);
        int afterSaves = 0;
        commands.setAfterLoadOrSave([&afterSaves](FileCommands::Done done) { afterSaves += done == FileCommands::Done::Saved; });

        Result<void> saved = saveAs ? commands.saveAs() : commands.saveTheme();

        QCOMPARE(dialogs.saveFilters.size(), dialogShown ? 1 : 0);
        // The dialog offers the theme's name as the file's.
        QCOMPARE(dialogs.saveProposals, dialogShown ? QStringList{"Ice Age.skt"} : QStringList());
        QCOMPARE(doc.isDirty(), dirtyAfter);
        QCOMPARE(afterSaves, dirtyAfter ? 0 : 1);
        QCOMPARE(doc.currentThemeFile(), currentAfter.isEmpty() ? QString() : path(currentAfter));
        if (!dirtyAfter)
            QVERIFY(readFile(doc.currentThemeFile()).contains("Ice Age"));
        QCOMPARE(m_dir.entryList({QStringLiteral("*.skt.skt"), QStringLiteral("mytheme.skt")}), QStringList());
        QCOMPARE(saved.ok(), error.isEmpty());
        dialogs.show(saved.report());
        QCOMPARE(dialogs.messages.size(), error.isEmpty() ? 0 : 1);
        if (!error.isEmpty()) {
            QCOMPARE(dialogs.messages.first().title, QStringLiteral("Error"));
            QCOMPARE(dialogs.messages.first().kind, ScriptedDialogs::Kind::Error);
            QVERIFY(dialogs.messages.first().text.contains(path(error)));
        }
    }

    void proposedFileName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("proposed");
        QTest::newRow("plain") << "Ice Age" << "Ice Age.skt";
        QTest::newRow("blanks around") << "  Ice  " << "Ice.skt";
        QTest::newRow("characters no file name holds") << "A/B\\C: \"D\" <E>|F?*" << "A_B_C_ _D_ _E__F__.skt";
        QTest::newRow("dots at the end") << "Ice..." << "Ice.skt";
        QTest::newRow("blank") << "   " << "";
    }

    void proposedFileName()
    {
        QFETCH(QString, name);
        QFETCH(QString, proposed);
        QCOMPARE(proposedThemeFileName(name), proposed);
    }

    void failedLoadChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes"); // null: there is no file
        QTest::addColumn<bool>("byPath");       // loadPath() rather than the Load command
        QTest::addColumn<bool>("dirty");
        const struct {
            const char *name;
            QByteArray bytes;
        } files[] = {
            {"no theme type", "[Theme Info]\r\nname=Other\r\nresourcefile=pack.zip\r\nifacemain=o.bmp\r\n"},
            {"no file", QByteArray()},
        };
        for (const auto &f : files) {
            QTest::addRow("%s, Load command, unchanged theme", f.name) << f.bytes << false << false;
            QTest::addRow("%s, Load command, changes let go", f.name) << f.bytes << false << true;
            QTest::addRow("%s, by path, changed theme", f.name) << f.bytes << true << true;
        }
    }

    void failedLoadChangesNothing()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, byPath);
        QFETCH(bool, dirty);
        qputenv("TMPDIR", QFile::encodeName(m_dir.path()));
        const QString bad = path(QStringLiteral("other.skt"));
        if (!bytes.isNull())
            QVERIFY(writeFile(bad, bytes));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setText(u"name", QStringLiteral("Glacier"));
        doc.setText(u"description", QStringLiteral("//Glacier"));
        doc.setText(u"midi", QStringLiteral("g.mid"));
        doc.setSwatch(0, 0x123456);
        doc.setCurrentThemeFile(path(QStringLiteral("glacier.skt")));
        doc.setPackageFolder(QStringLiteral("/tmp/stakko/Glacier/"), QStringLiteral("stakko/Glacier/"));
        doc.setMusicFolder(QStringLiteral("/tmp/stakko/Glacier/"));
        doc.setDirty(dirty);
        ThemeDocument before;
        before.assignFrom(doc);
        ScriptedDialogs dialogs;
        dialogs.answers.enqueue(Answer::No);
        dialogs.openNames.enqueue(bad);
        FileCommands commands(doc, dialogs);
        commands.setProgramFolder(m_dir.path());
        int afterLoads = 0;
        commands.setAfterLoadOrSave([&afterLoads](FileCommands::Done) { ++afterLoads; });

        const Result<FileCommands::LoadOutcome> loaded = byPath ? commands.loadPath(bad) : commands.loadTheme();
        QVERIFY(!loaded);

        for (int i = 0; i < int(themeFields().size()); ++i)
            QCOMPARE(doc.value(i), before.value(i));
        for (int i = 0; i < int(std::size(colorKeys)); ++i)
            QCOMPARE(doc.swatch(i), before.swatch(i));
        QCOMPARE(doc.currentThemeFile(), before.currentThemeFile());
        QCOMPARE(doc.packageFolder(), before.packageFolder());
        QCOMPARE(doc.packageFolderTail(), before.packageFolderTail());
        QCOMPARE(doc.musicFolder(), before.musicFolder());
        QCOMPARE(doc.isDirty(), dirty);
        QCOMPARE(afterLoads, 0);
        const Report &report = loaded.report();
        QVERIFY(std::any_of(report.problems.cbegin(), report.problems.cend(),
                            [](const Problem &p) { return p.code == u"theme-unreadable"; }));
    }

    void currentFileThatNoLongerLoadsIsNotSavedOver()
    {
        const QString theme = path(QStringLiteral("glacier.skt"));
        QVERIFY(writeFile(theme, "[Theme Info]\r\nname=Glacier\r\nthemetype=0\r\n"));
        ThemeDocument doc;
        ScriptedDialogs dialogs;
        FileCommands commands(doc, dialogs);
        QCOMPARE(*commands.loadPath(theme), FileCommands::LoadOutcome::Loaded);
        // Another program writes something else there; loading it again fails.
        QVERIFY(writeFile(theme, "shopping list\n"));
        QVERIFY(!commands.loadPath(theme));
        QCOMPARE(doc.value(u"name"), QStringLiteral("Glacier"));
        QVERIFY(commands.saveTheme()); // asks for a file: the Save As dialog is cancelled
        QCOMPARE(dialogs.saveFilters.size(), 1);
        QCOMPARE(readFile(theme), QByteArray("shopping list\n"));
    }

    void loadSetsCurrentFileAndLeavesNothingUnsaved_data()
    {
        QTest::addColumn<bool>("byPath");
        QTest::newRow("Load command") << false;
        QTest::newRow("path named outside the dialogs") << true;
    }

    void loadSetsCurrentFileAndLeavesNothingUnsaved()
    {
        QFETCH(bool, byPath);
        QVERIFY(m_dir.mkdir(QStringLiteral("data")));
        const QString theme = path(QStringLiteral("glacier.skt"));
        QVERIFY(writeFile(theme, "[Theme Info]\r\nname=Glacier\r\nthemetype=0\r\n"));
        ThemeDocument doc;
        doc.resetTheme();
        doc.setText(u"name", QStringLiteral("Unsaved Work"));
        ScriptedDialogs dialogs;
        dialogs.answers.enqueue(Answer::Cancel);
        dialogs.answers.enqueue(Answer::No);
        dialogs.openNames.enqueue(theme);
        FileCommands commands(doc, dialogs);
        commands.setProgramFolder(m_dir.path());
        int afterLoads = 0;
        commands.setAfterLoadOrSave([&afterLoads](FileCommands::Done done) { afterLoads += done == FileCommands::Done::Loaded; });
        Report told;
        const auto load = [&] {
            Result<FileCommands::LoadOutcome> loaded = byPath ? commands.loadPath(theme) : commands.loadTheme();
            told.append(loaded.report());
            return loaded.valueOr(FileCommands::LoadOutcome::Stopped);
        };

        // "Cancel" stops both and says so.
        QCOMPARE(load(), FileCommands::LoadOutcome::Stopped);
        QCOMPARE(doc.value(u"name"), QStringLiteral("Unsaved Work"));
        QCOMPARE(doc.currentThemeFile(), QString());
        QCOMPARE(afterLoads, 0);

        QSignalSpy dirtied(&doc, &ThemeDocument::dirtyChanged);
        QCOMPARE(load(), FileCommands::LoadOutcome::Loaded);
        QCOMPARE(afterLoads, 1);
        QCOMPARE(doc.currentThemeFile(), theme);
        QCOMPARE(doc.value(u"name"), QStringLiteral("Glacier"));
        QCOMPARE(doc.number(u"themetype"), 0);
        // The loader's own writes are no edits: nothing is unsaved, not even for a moment.
        QVERIFY(!doc.isDirty());
        QVERIFY(!dirtied.contains(QVariantList{true}));
        dialogs.show(told);
        QCOMPARE(dialogs.messageLines(), QStringList(2, promptText));
        const QString dataFolder = m_dir.path() + QStringLiteral("/data/");
        QCOMPARE(dialogs.openFolders, byPath ? QStringList() : QStringList{dataFolder});
        // The first edit changes that, and a New now asks.
        doc.setText(u"version", QStringLiteral("2"));
        QVERIFY(doc.isDirty());
    }
};

QTEST_GUILESS_MAIN(FileCommandsTest)
#include "tst_filecommands.moc"
