// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/testfiles.h"
#include "theme/themedocument.h"
#include "preview/framepreviews.h"
#include "preview/loadingsurface.h"
#include "preview/stillpreviews.h"
#include "previewtesthelpers.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class StillPreviewsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<ThemeDocument> m_doc;
    std::unique_ptr<LoadingSurface> m_loading;
    std::unique_ptr<StillPreviews> m_stills;

    QString path(const QString &name) const { return m_dir->filePath(name); }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_doc = std::make_unique<ThemeDocument>();
        m_doc->resetTheme();
        m_doc->setDirty(false);
        m_loading = std::make_unique<LoadingSurface>();
        m_stills = std::make_unique<StillPreviews>(*m_doc, *m_loading);
    }

    void interfaceScreens_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("inPackage");
        QTest::addColumn<QString>("text");   // below the package folder, or else the test folder
        QTest::addColumn<int>("shown");      // the frame colour then shown; 3, the screen before, on failure;
                                             // -1: the display is emptied
        QTest::newRow("full path") << 2 << "ifacethemes" << false << "t/theme.bmp" << 4;
        QTest::newRow("in the package, any case") << 4 << "ifacechat" << true << "screens\\chat.bmp" << 5;
        QTest::newRow("missing file") << 9 << "ifaceinet" << false << "missing.bmp" << 3;
        QTest::newRow("empty text in a package") << 9 << "ifaceinet" << true << "" << 3;
        QTest::newRow("not an image") << 9 << "ifaceinet" << false << "notes.bmp" << 3;
        QTest::newRow("empty text") << 0 << "ifacemain" << false << "" << -1;
    }

    void interfaceScreens()
    {
        QFETCH(int, row);
        QFETCH(QString, key);
        QFETCH(bool, inPackage);
        QFETCH(QString, text);
        QFETCH(int, shown);
        writeFrame(path("t/theme.bmp"), frameColor(4), {640, 480});
        writeFrame(path("pack/Screens/Chat.bmp"), frameColor(5), {640, 480});
        QVERIFY(writeFile(path("notes.bmp"), "not a picture"));
        writeFrame(path("menu.bmp"), frameColor(3), {640, 480});
        m_doc->setText(u"ifacemenu", path("menu.bmp"));
        QVERIFY(m_stills->showInterfaceScreenPreview(8).isEmpty());

        const QString folder = inPackage ? path("pack") + u'/' : QString();
        m_doc->setPackageFolder(folder, QString());
        m_doc->setText(key, inPackage || text.isEmpty() ? text : path(text));
        QSignalSpy spy(m_stills.get(), &StillPreviews::interfacePictureChanged);
        const Report report = m_stills->showInterfaceScreenPreview(row);

        const bool failed = shown == 3;
        const QString error = "Error: Unable to load image: " + folder + m_doc->value(key);
        QCOMPARE(report.lines(), failed ? QStringList{error} : QStringList());
        QVERIFY(report.isEmpty() || report.problems.first().severity == Problem::Severity::Error);
        QCOMPARE(spy.size(), failed ? 0 : 1);
        if (shown < 0) {
            QVERIFY(m_stills->interfacePicture().isNull());
            QVERIFY(m_loading->picture().isNull());
            return;
        }
        // Handed over unscaled: the display does the scaling.
        QCOMPARE(m_stills->interfacePicture().size(), QSize(640, 480));
        QCOMPARE(frameOfPixel(m_stills->interfacePicture().pixel(639, 479)), shown);
    }

    void failedMiscImageShowsTheLastLoadedPicture()
    {
        m_doc->setText(u"door1", QString());
        m_stills->showMiscImagePreview(0);
        QVERIFY(m_stills->miscPicture().isNull());

        // The frame previews load through the same surface.
        writeFrame(path("bg1.bmp"), frameColor(1), {192, 352});
        writeFrame(path("bg2.bmp"), frameColor(2), {192, 352});
        m_doc->setNumber(u"bganimated", 1);
        m_doc->setText(u"bgimage", path("bg1.bmp"));
        m_doc->setText(u"bgframecount", QStringLiteral("2"));
        FramePreviews frames(*m_doc, *m_loading);
        QVERIFY(frames.startFramePreview(AnimatedElementId::Background).isEmpty());
        frames.finishLoading();
        m_doc->setText(u"warning", path("warning.bmp"));
        QSignalSpy spy(m_stills.get(), &StillPreviews::miscPictureChanged);
        m_stills->showMiscImagePreview(6);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(frameOfPixel(m_stills->miscPicture().pixel(0, 0)), 2);

        writeFrame(path("door.bmp"), frameColor(6), {8, 8});
        m_doc->setText(u"door2", path("door.bmp"));
        m_stills->showMiscImagePreview(1);
        m_stills->showMiscImagePreview(0);
        QCOMPARE(frameOfPixel(m_stills->miscPicture().pixel(0, 0)), 6);
    }
};

QTEST_GUILESS_MAIN(StillPreviewsTest)
#include "tst_stillpreviews.moc"
