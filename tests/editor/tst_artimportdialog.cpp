// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/testfiles.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "theme/themesections.h"
#include "editor/artimportdialog.h"
#include "editor/controlnames.h"
#include "editor/editorparts.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

class ArtImportDialogTest : public QObject
{
    Q_OBJECT

    using Editor = EditorParts;

    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        qputenv("HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home"))));
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home/.cache"))));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home/.config"))));
        qputenv("TMPDIR", QFile::encodeName(m_dir.filePath(QStringLiteral("tmp"))));
        QDir().mkpath(m_dir.filePath(QStringLiteral("tmp")));
    }

    void everyArtRowHasItsOwnImportButton()
    {
        Editor e;
        QSet<QString> names;
        QSet<QString> accessible;
        for (const QPushButton *b : e.window.findChildren<QPushButton *>()) {
            if (b->objectName().startsWith(QStringLiteral("cmdImport"))) {
                names.insert(b->objectName());
                accessible.insert(b->accessibleName());
            }
        }
        QSet<QString> labels;
        for (const QString &key : artTargetKeys())
            labels.insert(QStringLiteral("Import for ") + artTarget(key)->label());
        QCOMPARE(names.size(), artTargetKeys().size());
        QCOMPARE(accessible, labels);
        QVERIFY(e.window.findChild<QAction *>(QStringLiteral("mnuImportArt")));
    }

    void dropsOfArtTheGameCannotTakeOfferTheImport_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("offered");

        QTest::newRow("a GIF on an animated row") << "bgimage" << "walk.gif" << true;
        QTest::newRow("a bitmap without its frame number") << "bgimage" << "background.bmp" << true;
        QTest::newRow("a numbered first frame goes to Browse") << "bgimage" << "bg1.bmp" << false;
        QTest::newRow("a PNG on an interface row") << "ifacemain" << "main.png" << true;
        QTest::newRow("a bitmap on an interface row goes to Browse") << "ifacemain" << "main.bmp" << false;
        QTest::newRow("a FLAC on a sound row") << "rotate" << "rotate.flac" << true;
        QTest::newRow("a wave on a sound row goes to Browse") << "rotate" << "rotate.wav" << false;
        QTest::newRow("a folder on an animated row") << "blkimage" << "frames/" << true;
    }

    void dropsOfArtTheGameCannotTakeOfferTheImport()
    {
        QFETCH(QString, key);
        QFETCH(QString, file);
        QFETCH(bool, offered);
        const QString path = m_dir.filePath(file);
        if (file.endsWith(u'/'))
            QVERIFY(QDir().mkpath(path));
        else if (file.endsWith(u".flac") || file.endsWith(u".wav"))
            QVERIFY(writeFile(path, waveBytes(QByteArray(8, '\0'), 22050, 16)));
        else
            QVERIFY(writeFile(path, imageBytes(QImage(8, 8, QImage::Format_RGB32), file.endsWith(u".png") ? "PNG" : "BMP")));
        if (file.endsWith(u".gif")) // Qt writes no GIF: a one-frame one by hand
            QVERIFY(writeFile(path, QByteArray("GIF89a\1\0\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 32)));
        QCOMPARE(wantsImport(key, path), offered);

        Editor e;
        for (const ThemeSection &section : themeSections()) // a switched-off row takes no drops
            e.doc.setNumber(section.include, 1);
        e.doc.setNumber(u"themetype", 1);
        const QString edit = fieldControl(key.toLatin1().constData());
        QWidget *target = e.window.findChild<QWidget *>(edit);
        QVERIFY2(target, qPrintable(edit));
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (offered)
            QVERIFY(enter.isAccepted());
    }

    void browseOffersTheImportFirst_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<QString>("root"); // stored after the author said No

        QTest::newRow("a picture without its frame number is offered") << "background.png" << true << "backgroun";
        QTest::newRow("a numbered first frame is not") << "bg1.bmp" << false << "bg";
    }

    void browseOffersTheImportFirst()
    {
        QFETCH(QString, file);
        QFETCH(bool, asked);
        QFETCH(QString, root);
        const QString path = m_dir.filePath(file);
        QVERIFY(writeFile(path, imageBytes(QImage(8, 8, QImage::Format_RGB32), file.endsWith(u".png") ? "PNG" : "BMP")));
        Editor e;
        e.buttons.setImportOffer([&e](const QString &key, const QString &chosen) { return e.importer.offerImport(key, chosen); });
        e.doc.setNumber(u"includebackground", 1);
        e.dialogs.openNames.enqueue(path);
        e.dialogs.answers.enqueue(Dialogs::Answer::No);
        e.window.findChild<QPushButton *>(QStringLiteral("cmdBrowseBG"))->click();
        const bool questioned = std::any_of(e.dialogs.messages.cbegin(), e.dialogs.messages.cend(), [](const auto &m) {
            return m.kind == ScriptedDialogs::Kind::Question && m.text.contains(QStringLiteral("Import it instead"));
        });
        QCOMPARE(questioned, asked);
        QVERIFY2(e.doc.value(u"bgfilename").endsWith(u'/' + root), qPrintable(e.doc.value(u"bgfilename")));
    }

    void dialogShowsWhatItFound()
    {
        const QString folder = m_dir.filePath(QStringLiteral("sheet"));
        QImage sheet(96 * 3, 80, QImage::Format_RGB32);
        sheet.fill(Qt::red);
        QVERIFY(writeFile(folder + QStringLiteral("/sheet.png"), imageBytes(sheet, "PNG")));
        ArtImportDialog dialog(artTargetKeys(), QStringLiteral("blkimage"));
        dialog.setSources({folder + QStringLiteral("/sheet.png")});
        QCOMPARE(dialog.key(), QStringLiteral("blkimage"));
        QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblImportFound"))->text(),
                 QStringLiteral("1 frames of 96 x 80, no delay of its own (the row's stays)"));
        dialog.findChild<QSpinBox *>(QStringLiteral("txtImportColumns"))->setValue(3);
        QCOMPARE(dialog.options().sheet, QSize(3, 1));
        QVERIFY(dialog.findChild<QLabel *>(QStringLiteral("lblImportFound"))->text().startsWith(QStringLiteral("3 frames of 96 x 80")));
    }
};

QTEST_MAIN(ArtImportDialogTest)
#include "tst_artimportdialog.moc"
