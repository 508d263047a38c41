// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What an author does to fields: the Browse buttons, the colour dialog and the undo history.

#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "editing/colorchoice.h"
#include "theme/animatedelement.h"
#include "editing/fieldbrowsing.h"
#include "editing/themehistory.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "package/packagewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <span>

namespace {

using Browse = std::function<bool(ThemeDocument &, Dialogs &)>;
using RowBrowse = bool (*)(ThemeDocument &, Dialogs &, int);

// A row's Browse reached from a number, as a combo index or a restored value reaches it.
template <typename Row, bool (*browse)(ThemeDocument &, Dialogs &, Row)>
bool browseRowAt(ThemeDocument &doc, Dialogs &dialogs, int index)
{
    const std::optional<Row> row = rowFromIndex<Row>(index);
    return row && browse(doc, dialogs, *row);
}

// One Browse button: the field it fills, what it runs, the filter its dialog shows and, for an
// animated element, the element whose frame root and extension it fills too.
struct BrowseButton {
    QString key;
    Browse run;
    QString filter;
    const AnimatedElement *element = nullptr;
};

QList<BrowseButton> packageBrowseButtons()
{
    QList<BrowseButton> buttons;
    const auto addRows = [&buttons](std::span<const char *const> keys, RowBrowse browse, QLatin1StringView filter) {
        for (int i = 0; i < int(keys.size()); ++i)
            buttons.append({QString::fromLatin1(keys[i]),
                            [browse, i](ThemeDocument &d, Dialogs &g) { return browse(d, g, i); }, filter});
    };
    for (AnimatedElementId i : animatedElementIds) {
        const AnimatedElement &e = animatedElements[i];
        const auto browse = [i](ThemeDocument &d, Dialogs &g) { return browseAnimatedImage(d, g, i); };
        buttons.append({QString::fromLatin1(e.imageField), browse, imageFilter, &e});
    }
    addRows(interfaceRowKeys.rows, browseRowAt<InterfaceRow, browseInterfaceImage>, imageFilter);
    addRows(miscImageKeys.rows, browseRowAt<MiscImageRow, browseMiscImage>, imageFilter);
    buttons.append({QStringLiteral("skinfile"), browseSkinFile, imageFilter});
    addRows(soundRowKeys.rows, browseRowAt<SoundRow, browseSound>, soundFilter);
    buttons.append({QStringLiteral("midi"), browseMusic, musicFilter});
    return buttons;
}

QStringList allValues(const ThemeDocument &doc)
{
    QStringList values;
    for (int i = 0; i < int(themeFields().size()); ++i)
        values.append(doc.value(i));
    return values;
}

enum class Choice {
    InsidePackage, InsideArtFolder, InsideWithoutDot, OutsideNoPackage, OutsidePackage, CancelClean, CancelChanged
};

// One turn of the event loop: "type KEY TEXT" (typed into the field), "set KEY=VALUE[;KEY=VALUE]"
// (one command changing several fields; "swatchI=VALUE" sets swatch I), "undo", "redo",
// "reset", "clean".
void perform(ThemeDocument &doc, ThemeHistory &history, const QString &action)
{
    const QStringList words = action.split(u' ');
    const QString verb = words.first();
    if (verb == u"type") {
        history.markTyped(ThemeDocument::requireIndex(words.at(1)));
        doc.setText(words.at(1), words.mid(2).join(u' '));
    } else if (verb == u"set") {
        for (const QString &pair : words.at(1).split(u';')) {
            const QStringList kv = pair.split(u'=');
            if (kv.at(0).startsWith(u"swatch"))
                doc.setSwatch(kv.at(0).mid(6).toInt(), kv.at(1).toUInt());
            else
                doc.setValue(ThemeDocument::requireIndex(kv.at(0)), kv.at(1));
        }
    } else if (verb == u"undo") {
        history.stack().undo();
    } else if (verb == u"redo") {
        history.stack().redo();
    } else if (verb == u"reset") {
        doc.resetTheme();
    } else if (verb == u"clean") {
        doc.setDirty(false);
    }
    QCoreApplication::processEvents();
}

} // namespace

class FieldEditingTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_temp;
    QString m_packageFolder;
    const QString m_tail = QStringLiteral("stakko/mypack/");

    void unpackedPackage(ThemeDocument &doc) { doc.setPackageFolder(m_packageFolder, m_tail); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_temp.isValid());
        // Packages unpack below the temporary folder: keep them inside this test's own folder.
        qputenv("TMPDIR", QFile::encodeName(m_temp.path()));
        QCOMPARE(QDir::tempPath(), m_temp.path());
        m_packageFolder = m_temp.path() + QStringLiteral("/stakko/mypack/");
    }

    void relativeToPackage_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("tail");
        QTest::addColumn<QString>("expected");

        const QString tail = QStringLiteral("stakko/mypack/");
        QTest::newRow("inside the package") << "/tmp/stakko/mypack/bg1.bmp" << tail << "bg1.bmp";
        QTest::newRow("sub-folder kept") << "/tmp/stakko/mypack/gfx/bg1.bmp" << tail << "gfx/bg1.bmp";
        QTest::newRow("case ignored") << "C:\\TEMP\\STAKKO\\MyPack\\a1.bmp" << "stakko\\mypack\\" << "a1.bmp";
        QTest::newRow("slash tail, backslash path") << "C:\\Temp\\stakko\\mypack\\bg1.bmp" << tail << "bg1.bmp";
        QTest::newRow("backslash tail, slash path") << "/tmp/Stakko/MyPack/bg1.bmp" << "stakko\\mypack\\" << "bg1.bmp";
        QTest::newRow("first occurrence") << "/tmp/stakko/mypack/stakko/mypack/x.bmp" << tail << "stakko/mypack/x.bmp";
        QTest::newRow("other package") << "/tmp/stakko/other/bg1.bmp" << tail << "/tmp/stakko/other/bg1.bmp";
        QTest::newRow("no package unpacked") << "/tmp/stakko/mypack/bg1.bmp" << "" << "/tmp/stakko/mypack/bg1.bmp";
        QTest::newRow("empty path") << "" << tail << "";
    }

    void relativeToPackage()
    {
        QFETCH(QString, path);
        QFETCH(QString, tail);
        QFETCH(QString, expected);
        QCOMPARE(makeThemeRelative(path, tail), expected);
    }

    void frameFileSplit_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("splits");
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("extension");

        QTest::newRow("full path") << "C:\\Art\\blk1.jpg" << true << "C:\\Art\\blk" << "jpg";
        QTest::newRow("one digit dropped") << "bg10.bmp" << true << "bg1" << "bmp";
        QTest::newRow("dot in folder") << "C:\\My.Art\\bg1.bmp" << true << "C:\\M" << "Art\\bg1.bmp";
        QTest::newRow("first dot counts") << "x1.y.bmp" << true << "x" << "y.bmp";
        QTest::newRow("frame number only") << "a.bmp" << true << "" << "bmp";
        QTest::newRow("dot first") << ".bmp" << true << "" << "bmp";
        QTest::newRow("trailing dot") << "bg1." << true << "bg" << "";
        QTest::newRow("no dot") << "bgone" << false << "" << "";
        QTest::newRow("empty") << "" << false << "" << "";
    }

    void frameFileSplit()
    {
        QFETCH(QString, name);
        QFETCH(bool, splits);
        QFETCH(QString, root);
        QFETCH(QString, extension);

        const std::optional<FrameFileName> split = splitFrameFileName(name);
        QCOMPARE(split.has_value(), splits);
        if (split) {
            QCOMPARE(split->root, root);
            QCOMPARE(split->extension, extension);
        }
    }

    void everyButton_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<Choice>("choice");
        const QList<BrowseButton> buttons = packageBrowseButtons();
        for (int i = 0; i < buttons.size(); ++i) {
            const QByteArray name = buttons[i].key.toLatin1();
            QTest::addRow("%s, inside the package", name.data()) << i << Choice::InsidePackage;
            QTest::addRow("%s, inside an art folder", name.data()) << i << Choice::InsideArtFolder;
            QTest::addRow("%s, name without a dot", name.data()) << i << Choice::InsideWithoutDot;
            QTest::addRow("%s, no package", name.data()) << i << Choice::OutsideNoPackage;
            QTest::addRow("%s, outside the package", name.data()) << i << Choice::OutsidePackage;
            QTest::addRow("%s, cancelled, clean", name.data()) << i << Choice::CancelClean;
            QTest::addRow("%s, cancelled, changed", name.data()) << i << Choice::CancelChanged;
        }
    }

    void everyButton()
    {
        QFETCH(int, button);
        QFETCH(Choice, choice);
        const BrowseButton b = packageBrowseButtons().at(button);
        ThemeDocument doc;
        const QString artFolder = m_temp.path() + QStringLiteral("/My Art/");
        if (choice == Choice::InsideArtFolder) {
            ScriptedDialogs folderDialog;
            folderDialog.folders.enqueue(artFolder);
            QVERIFY(browseArtFolder(doc, folderDialog));
        } else if (choice != Choice::OutsideNoPackage) {
            unpackedPackage(doc);
        }
        doc.setText(b.key, QStringLiteral("kept1.bmp"));
        if (b.element) {
            doc.setText(b.element->rootField, QStringLiteral("kept"));
            doc.setText(b.element->extensionField, QStringLiteral("bmp"));
        }
        doc.setMusicFolder(QStringLiteral("/music/"));
        doc.setDirty(choice == Choice::CancelChanged);
        const QStringList before = allValues(doc);
        const bool cancelled = choice == Choice::CancelClean || choice == Choice::CancelChanged;
        const bool art = choice == Choice::InsideArtFolder;
        const bool inside = art || choice == Choice::InsidePackage || choice == Choice::InsideWithoutDot;
        const bool dot = choice != Choice::InsideWithoutDot;
        const QString outside = QStringLiteral("/home/me/art/file1.dat");
        const QString insideName = dot ? QStringLiteral("gfx/file1.dat") : QStringLiteral("background");
        const QString stored = inside ? insideName : outside;
        ScriptedDialogs dialogs; // nothing queued: the dialog is cancelled
        if (!cancelled)
            dialogs.openNames.enqueue(inside ? (art ? artFolder : m_packageFolder) + stored : outside);

        QCOMPARE(b.run(doc, dialogs), !cancelled);

        QCOMPARE(dialogs.openFilters, QStringList{b.filter});
        QCOMPARE(dialogs.openFolders, QStringList{doc.packageFolder()});
        QVERIFY(dialogs.messages.isEmpty());
        // Music plays from the music folder followed by the stored name: the file chosen.
        const QString musicFolder = inside ? doc.packageFolder() : QString();
        const bool musicChosen = b.key == u"midi" && !cancelled;
        QCOMPARE(doc.musicFolder(), musicChosen ? musicFolder : QStringLiteral("/music/"));
        if (cancelled) {
            QCOMPARE(allValues(doc), before);
            QCOMPARE(doc.isDirty(), choice == Choice::CancelChanged);
            return;
        }
        QCOMPARE(doc.value(b.key), stored);
        QVERIFY(doc.isDirty());
        // The stored name, not the chosen path, gives the frame root and extension; without a dot they stay.
        if (b.element) {
            QCOMPARE(doc.value(b.element->rootField), dot ? stored.chopped(5) : QStringLiteral("kept"));
            QCOMPARE(doc.value(b.element->extensionField), QLatin1StringView(dot ? "dat" : "bmp"));
        }
    }

    void rowOutsideTableDoesNothing_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("row");
        const int rows[] = {int(std::size(interfaceRowKeys)), int(std::size(miscImageKeys)), int(std::size(soundRowKeys))};
        for (int kind = 0; kind < int(std::size(rows)); ++kind) {
            QTest::addRow("kind %d, row -1", kind) << kind << -1;
            QTest::addRow("kind %d, past the last row", kind) << kind << rows[kind];
        }
    }

    void rowOutsideTableDoesNothing()
    {
        QFETCH(int, kind);
        QFETCH(int, row);
        const RowBrowse browse[] = {browseRowAt<InterfaceRow, browseInterfaceImage>, browseRowAt<MiscImageRow, browseMiscImage>,
                                    browseRowAt<SoundRow, browseSound>};
        ThemeDocument doc;
        const QStringList before = allValues(doc);
        ScriptedDialogs dialogs;
        dialogs.openNames.enqueue(QStringLiteral("/home/me/x1.bmp"));

        QVERIFY(!browse[kind](doc, dialogs, row));
        QCOMPARE(allValues(doc), before);
        QVERIFY(!doc.isDirty());
        QVERIFY(dialogs.openFilters.isEmpty());
    }

    void artFolderNamesThePackageWhenNoneIsNamed_data()
    {
        QTest::addColumn<QString>("chosen");   // "" cancels
        QTest::addColumn<QString>("resource"); // before
        QTest::addColumn<QString>("resourceAfter");
        QTest::newRow("cancelled") << "" << "" << "";
        QTest::newRow("no package named") << "art" << "" << "art.zip";
        QTest::newRow("the New-theme name") << "art" << "StakkoTheme.zip" << "art.zip";
        QTest::newRow("a package not made yet keeps its name") << "art" << "Ice.zip" << "Ice.zip";
        QTest::newRow("an existing package") << "art" << "Old.zip" << "Old.zip";
    }

    void artFolderNamesThePackageWhenNoneIsNamed()
    {
        QFETCH(QString, chosen);
        QFETCH(QString, resource);
        QFETCH(QString, resourceAfter);
        QVERIFY(writeFile(m_temp.filePath(QStringLiteral("Old.zip")), {}));
        ThemeDocument doc;
        doc.setCurrentThemeFile(m_temp.filePath(QStringLiteral("Theme.skt")));
        doc.setText(u"resourcefile", resource);
        doc.setDirty(false);
        ScriptedDialogs dialogs;
        dialogs.folders.enqueue(chosen.isEmpty() ? QString() : m_temp.filePath(chosen));

        QCOMPARE(browseArtFolder(doc, dialogs), !chosen.isEmpty());
        QCOMPARE(doc.value(u"resourcefile"), resourceAfter);
        QCOMPARE(doc.isDirty(), resource != resourceAfter);
        const QString folder = chosen.isEmpty() ? QString() : m_temp.filePath(chosen) + u'/';
        QCOMPARE(doc.packageFolder(), folder);
        QCOMPARE(doc.packageFolderTail(), folder);
    }

    void resourcePackageIsUnpackedThenStored()
    {
        QTemporaryDir source;
        const QString frame = source.filePath(QStringLiteral("gfx/bg1.bmp"));
        QVERIFY(writeFile(frame, "BM frame"));
        const QString zipPath = source.filePath(QStringLiteral("Ice.zip"));
        const Result<void> packed = writeResourcePackage(zipPath, {frame}, source.path());
        QVERIFY2(packed, qPrintable(packed.errorText()));

        ThemeDocument doc;
        unpackedPackage(doc);
        const QString resource = doc.value(u"resourcefile");
        ScriptedDialogs dialogs;
        Result<bool> browsed = browseResourcePackage(doc, dialogs);
        QVERIFY(!browsed.value()); // cancelled: the old package stays
        QCOMPARE(doc.packageFolder(), m_packageFolder);
        QCOMPARE(doc.packageFolderTail(), m_tail);
        QCOMPARE(doc.value(u"resourcefile"), resource);
        QVERIFY(!doc.isDirty());

        dialogs.openNames.enqueue(zipPath);
        browsed = browseResourcePackage(doc, dialogs);
        QVERIFY(browsed.value());
        QCOMPARE(dialogs.openFilters, (QStringList{zipFilter, zipFilter}));
        QCOMPARE(dialogs.openFolders, (QStringList{QString(), QString()}));
        QCOMPARE(doc.value(u"resourcefile"), zipPath);
        QCOMPARE(doc.packageFolderTail(), QStringLiteral("stakko/Ice/"));
        QCOMPARE(QDir::cleanPath(doc.packageFolder()), m_temp.path() + QStringLiteral("/stakko/Ice"));
        QVERIFY(QFile::exists(doc.packageFolder() + QStringLiteral("gfx/bg1.bmp")));
        QVERIFY(doc.isDirty());
        QVERIFY(browsed.report().isEmpty());
    }

    void chosenColorBecomesSwatchAndText_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<qint64>("color");   // -1: the author cancels
        QTest::addColumn<QString>("text");
        QTest::newRow("blue") << 5 << qint64(0xFF0000) << "0,0,255";
        QTest::newRow("black") << 0 << qint64(0) << "0,0,0";
        QTest::newRow("mixed") << 11 << qint64(0x0A141E) << "30,20,10";
        QTest::newRow("cancelled") << 5 << qint64(-1) << QString();
    }

    void chosenColorBecomesSwatchAndText()
    {
        QFETCH(int, row);
        QFETCH(qint64, color);
        QFETCH(QString, text);
        ThemeDocument doc;
        doc.resetTheme();
        doc.setDirty(false);
        ScriptedDialogs dialogs;
        const ColorRow colorRow = *rowFromIndex<ColorRow>(row);
        const QString key = QString::fromLatin1(colorKeys[colorRow]);
        const QString before = doc.value(key);
        const bool chosen = color >= 0;
        if (chosen)
            dialogs.colors.enqueue(quint32(color));

        chooseThemeColor(doc, dialogs, colorRow);

        QCOMPARE(dialogs.colorRequests, 1);
        QCOMPARE(doc.swatch(row), chosen ? std::optional<quint32>(color) : std::nullopt);
        QCOMPARE(doc.value(key), chosen ? text : before);
        QCOMPARE(doc.isDirty(), chosen);
    }

    void steps_data()
    {
        QTest::addColumn<QStringList>("actions");
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("undoText");
        QTest::addColumn<QStringList>("values"); // KEY=VALUE after the actions
        QTest::addColumn<bool>("dirty");

        QTest::newRow("typing in one field is one step")
            << QStringList{"type name I", "type name Ic", "type name Ice"} << 1 << "Theme Name"
            << QStringList{"name=Ice"} << true;
        QTest::newRow("undo takes all of the typing back")
            << QStringList{"type name I", "type name Ic", "clean", "undo"} << 1 << "" << QStringList{"name="}
            << true;
        QTest::newRow("another field ends the merging")
            << QStringList{"type name I", "type developer A", "type name Ic", "undo"} << 3 << "Theme Author"
            << QStringList{"name=I", "developer=A"} << true;
        QTest::newRow("a command between keystrokes ends it too")
            << QStringList{"type name I", "set name=Ix", "type name Ixe", "undo", "undo"} << 3 << "Theme Name"
            << QStringList{"name=I"} << true;
        QTest::newRow("fields set by one command undo together")
            << QStringList{"set bgimage=art/bg1.bmp;bgfilename=art/bg;bgextension=bmp", "undo"} << 1 << ""
            << QStringList{"bgimage=", "bgfilename=", "bgextension="} << true;
        QTest::newRow("redo brings them back")
            << QStringList{"set bgimage=art/bg1.bmp;bgfilename=art/bg", "undo", "clean", "redo"} << 1
            << "Background Image" << QStringList{"bgimage=art/bg1.bmp", "bgfilename=art/bg"} << true;
        QTest::newRow("a switch")
            << QStringList{"set includebackground=1", "set includebackground=2", "undo"} << 2
            << "Include Game Backgrond" << QStringList{"includebackground=1"} << true;
        QTest::newRow("a colour and its swatch")
            << QStringList{"set colortitle=1,2,3;swatch0=197121", "type colortitle 4,5,6", "undo"} << 2
            << "Title Bar Color" << QStringList{"colortitle=1,2,3"} << true;
        QTest::newRow("a new step drops what was undone")
            << QStringList{"type name A", "undo", "type developer B"} << 1 << "Theme Author"
            << QStringList{"name=", "developer=B"} << true;
        QTest::newRow("a reset starts a fresh history")
            << QStringList{"type name A", "set bgimage=x", "reset", "clean"} << 0 << "" << QStringList{"name=Stakko Theme"}
            << false;
    }

    void steps()
    {
        QFETCH(QStringList, actions);
        QFETCH(int, steps);
        QFETCH(QString, undoText);
        QFETCH(QStringList, values);
        QFETCH(bool, dirty);
        ThemeDocument doc;
        ThemeHistory history(doc);
        for (const QString &action : std::as_const(actions))
            perform(doc, history, action);

        QCOMPARE(history.stack().count(), steps);
        QCOMPARE(history.stack().undoText(), undoText);
        for (const QString &pair : std::as_const(values)) {
            const QString key = pair.section(u'=', 0, 0);
            QCOMPARE(doc.value(key), pair.section(u'=', 1));
        }
        QCOMPARE(doc.isDirty(), dirty);
    }

    void undoRestoresTheSwatch()
    {
        ThemeDocument doc;
        ThemeHistory history(doc);
        perform(doc, history, QStringLiteral("set swatch3=66051"));
        perform(doc, history, QStringLiteral("set colortheme=9,9,9;swatch3=592137"));
        history.stack().undo();
        QCOMPARE(doc.swatch(3), std::optional<quint32>(0x010203));
        QCOMPARE(doc.value(u"colortheme"), QString());
        history.stack().redo();
        QCOMPARE(doc.swatch(3), std::optional<quint32>(0x090909));
    }
};

QTEST_GUILESS_MAIN(FieldEditingTest)
#include "tst_fieldediting.moc"
