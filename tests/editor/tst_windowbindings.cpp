#include "common/scripteddialogs.h"
#include "document/themesections.h"
#include "document/themedocument.h"
#include "editor/buttonbinding.h"
#include "document/filecommands.h"
#include "editor/mainwindow.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

class ButtonBindingTest : public QObject
{
    Q_OBJECT

    struct Editor {
        ThemeDocument doc;
        ScriptedDialogs dialogs;
        SoundSystem sound; // never opened: music calls do nothing, as when sound is unavailable
        MainWindow window{doc};
        FileCommands commands{doc, dialogs};
        ButtonBinding binding{window, doc, dialogs, sound, commands};

        Editor() { window.startUp(); }
        // The binding came first, so this also checks that pages built later get connected.
        QAbstractButton *button(const QString &name)
        {
            window.buildAllPages();
            return window.findChild<QAbstractButton *>(name);
        }
        void click(const QString &name)
        {
            QAbstractButton *found = button(name);
            QVERIFY2(found, qPrintable(name));
            found->click();
        }
    };

private slots:
    void browseButtonsFillTheirFields_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("background splits root") << "cmdBrowseBG" << "/art/bg1.bmp" << "bgfilename" << "/art/bg";
        QTest::newRow("bomb image") << "cmdBrowseBomb" << "/art/bomb1.jpg" << "bombimage" << "/art/bomb1.jpg";
        QTest::newRow("interface row 2") << "cmdBrowseIface(2)" << "/art/t.bmp" << "ifacethemes" << "/art/t.bmp";
        QTest::newRow("misc row 7") << "cmdBrowseMisc(7)" << "/art/f.bmp" << "teamfont" << "/art/f.bmp";
        QTest::newRow("shield sound") << "cmdBrowseSound(10)" << "/snd/s.wav" << "holyshield" << "/snd/s.wav";
        QTest::newRow("skin") << "cmdBrowseSkin" << "/art/skin.bmp" << "skinfile" << "/art/skin.bmp";
        QTest::newRow("music") << "cmdBrowseMusic" << "/snd/m.ogg" << "midi" << "/snd/m.ogg";
    }

    void browseButtonsFillTheirFields()
    {
        QFETCH(QString, button);
        QFETCH(QString, chosen);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        Editor e;
        for (const ThemeSection &section : themeSections())
            e.doc.setNumber(section.include, 1);
        e.doc.setNumber(u"themetype", 0); // the skin group is enabled for Type 0 only
        e.doc.setDirty(false);
        e.dialogs.openNames.enqueue(chosen);
        e.click(button);
        QCOMPARE(e.doc.value(key), expected);
        QVERIFY(e.doc.isDirty());
    }

    void musicButtonTogglesOnItsCaption()
    {
        Editor e;
        e.doc.setNumber(u"includemusic", 1);
        QAbstractButton *button = e.button(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(button->text(), QStringLiteral("Play Music"));
        e.click(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(button->text(), QStringLiteral("Stop Music"));
        e.click(QStringLiteral("cmdPlayMusic"));
        QCOMPARE(button->text(), QStringLiteral("Play Music"));
        QVERIFY(e.dialogs.messages.isEmpty()); // without sound, music does nothing and says nothing
    }

    void playButtonsAreSilentAboutMissingFiles()
    {
        Editor e;
        e.doc.setNumber(u"includesounds", 1);
        e.doc.setText(u"rotate", QStringLiteral("/nowhere/r.wav"));
        e.click(QStringLiteral("cmdPlaySound(0)"));
        QVERIFY(e.dialogs.messages.isEmpty());
    }
};

QTEST_MAIN(ButtonBindingTest)
#include "tst_buttonbinding.moc"
