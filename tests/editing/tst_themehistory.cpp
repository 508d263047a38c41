// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themedocument.h"
#include "editing/themehistory.h"

#include <QCoreApplication>
#include <QTest>

namespace {

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

class ThemeHistoryTest : public QObject
{
    Q_OBJECT

private slots:
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

QTEST_GUILESS_MAIN(ThemeHistoryTest)
#include "tst_themehistory.moc"
