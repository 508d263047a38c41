// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/fieldbrowsing.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "editor/qtdialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

/** Runs \a act on the next file dialog once it is open, then closes it unless \a act did. */
void onNextFileDialog(std::function<void(QFileDialog *)> act)
{
    auto *poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, act] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        poll->stop();
        poll->deleteLater();
        act(dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    poll->start();
}

/** Types \a name into the dialog's file name box and presses its accept button. */
void typeAndAccept(QFileDialog *dialog, const QString &name)
{
    if (auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
        edit->setText(name);
    static_cast<QDialog *>(dialog)->accept();
}

} // namespace

class QtDialogsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_temp;
    QDir m_dir{m_temp.path()};

    QString path(const QString &name) const { return m_dir.filePath(name); }

private slots:
    void fileDialogsShareOneFolder()
    {
        QVERIFY(m_dir.mkpath(QStringLiteral("data")));
        QVERIFY(m_dir.mkpath(QStringLiteral("art")));
        const QString data = QDir::cleanPath(path(QStringLiteral("data")));
        const QString art = QDir::cleanPath(path(QStringLiteral("art")));
        ThemeDocument doc;
        QtDialogs dialogs;
        FileCommands commands(doc, dialogs);
        commands.setProgramFolder(m_dir.path());
        QStringList shownIn;
        const auto record = [&](QFileDialog *d) { shownIn.append(QDir::cleanPath(d->directory().path())); };

        onNextFileDialog(record);
        QCOMPARE(commands.chooseThemeToLoad(), QString());
        onNextFileDialog(record);
        QCOMPARE(commands.saveThemeAs().valueOr(true), false);
        QCOMPARE(shownIn, (QStringList{data, data}));

        // A dialog given a folder moves the shared one; a dialog given none opens where the
        // author last chose a file.
        onNextFileDialog([&](QFileDialog *d) {
            record(d);
            typeAndAccept(d, art + QStringLiteral("/bg1.bmp"));
        });
        QCOMPARE(dialogs.openFileName(QStringLiteral("Bitmap|*.bmp|"), art), art + QStringLiteral("/bg1.bmp"));
        onNextFileDialog(record);
        QCOMPARE(dialogs.openFileName(QStringLiteral("Zip|*.zip|"), QString()), QString());
        QCOMPARE(shownIn, (QStringList{data, data, art, art}));
    }

    void saveDialogProposesAndCompletesTheName_data()
    {
        QTest::addColumn<QString>("typed"); // "": the proposal is taken as it stands
        QTest::addColumn<bool>("exists");
        QTest::addColumn<QString>("saved");
        QTest::newRow("proposal taken") << "" << false << "Ice Age.skt";
        QTest::newRow("typed without extension") << "mytheme" << false << "mytheme.skt";
        QTest::newRow("typed with another extension") << "mytheme.txt" << false << "mytheme.txt";
        QTest::newRow("existing file, no overwrite question") << "existing.skt" << true << "existing.skt";
    }

    void saveDialogProposesAndCompletesTheName()
    {
        QFETCH(QString, typed);
        QFETCH(bool, exists);
        QFETCH(QString, saved);
        if (exists)
            QVERIFY(QFile(path(typed)).open(QIODevice::WriteOnly));
        QtDialogs dialogs;
        onNextFileDialog([](QFileDialog *) {});
        QCOMPARE(dialogs.openFileName(QStringLiteral("Zip|*.zip|"), m_dir.path()), QString());

        // An overwrite question would block the dialog: close it so the test fails instead.
        QTimer::singleShot(3000, [] {
            for (QWidget *w : QApplication::topLevelWidgets()) {
                if (auto *dialog = qobject_cast<QDialog *>(w); dialog && dialog->isVisible())
                    dialog->reject();
            }
        });
        QString proposed;
        onNextFileDialog([&](QFileDialog *d) {
            if (auto *edit = d->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
                proposed = edit->text();
            if (typed.isEmpty())
                static_cast<QDialog *>(d)->accept();
            else
                typeAndAccept(d, typed);
        });
        QCOMPARE(dialogs.saveFileName(QString(themeFileFilter), QStringLiteral("Ice Age.skt")), path(saved));
        QCOMPARE(proposed, QStringLiteral("Ice Age.skt"));
    }

    void qtFilterTranslation_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("image") << QString(imageFilter)
                               << QStringList{"Bitmap Graphic (*.bmp) (*.bmp)", "JPEG Graphic (*.jpg) (*.jpg)",
                                              "All Files(*.*) (*.*)"};
        QTest::newRow("sound") << QString(soundFilter) << QStringList{"Wave Sound (*.wav) (*.WAV)"};
        QTest::newRow("zip") << QString(zipFilter) << QStringList{"Zip File (*.zip) (*.ZIP)"};
        QTest::newRow("music")
            << QString(musicFilter)
            << QStringList{"All Supported Sound Files (*.MP3 *.MP2 *.XM *.IT *.WAV *.S3M *.MOD *.OGG *.WMA "
                           "*.ASF *.MID *.MIDI)",
                           "MPEG Audio File (*.MP3, *.MP2) (*.MP3 *.MP2)",
                           "Midi File(*.MID, *.MIDI) (*.MID *.MIDI)",
                           "Mod Files (*.XM, *.MOD, *.S3M, *.IT) (*.XM *.MOD *.S3M *.IT)",
                           "Windows Media Audio(*.WMA, *.ASF) (*.WMA *.ASF)",
                           "Ogg Vorbis(*.OGG) (*.OGG)",
                           "Wave File(*.WAV) (*.WAV)",
                           "All Files(*.*) (*.*)"};
        QTest::newRow("no closing bar") << "Theme|*.skt" << QStringList{"Theme (*.skt)"};
        QTest::newRow("description without pattern") << "Theme|" << QStringList{};
        QTest::newRow("empty") << "" << QStringList{};
    }

    void qtFilterTranslation()
    {
        QFETCH(QString, filter);
        QFETCH(QStringList, expected);
        QCOMPARE(QtDialogs::qtNameFilters(filter), expected);
    }
};

QTEST_MAIN(QtDialogsTest)
#include "tst_qtdialogs.moc"
