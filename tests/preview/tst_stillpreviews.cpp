#include "common/scripteddialogs.h"
#include "document/themedocument.h"
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

private slots:
    void init();

    void interfaceScreenIsShown();
    void interfaceScreenFoundInPackage();
    void emptyInterfaceTextEmptiesTheDisplay();
    void unloadableInterfaceScreenIsReported_data();
    void unloadableInterfaceScreenIsReported();
    void missingMiscImageShowsLastLoadedFrame();
    void miscImageDoesNotClearTheLoadingSurface();
    void chosenColorBecomesSwatchAndText_data();
    void chosenColorBecomesSwatchAndText();
    void cancelledColorChangesNothing();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<ThemeDocument> m_doc;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<LoadingSurface> m_loading;
    std::unique_ptr<StillPreviews> m_stills;
};

void StillPreviewsTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_doc = std::make_unique<ThemeDocument>();
    m_doc->resetTheme();
    m_doc->setDirty(false);
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_loading = std::make_unique<LoadingSurface>();
    m_stills = std::make_unique<StillPreviews>(*m_doc, *m_dialogs, *m_loading);
}

void StillPreviewsTest::interfaceScreenIsShown()
{
    writeFrame(path("t/theme.bmp"), frameColor(4), {640, 480});
    m_doc->setText(u"ifacethemes", path("t/theme.bmp"));
    QSignalSpy spy(m_stills.get(), &StillPreviews::interfacePictureChanged);
    QVERIFY(m_stills->showInterfaceScreenPreview(2).isEmpty());

    QCOMPARE(spy.size(), 1);
    QCOMPARE(m_stills->interfacePicture().size(), QSize(640, 480));
    QCOMPARE(frameOfPixel(m_stills->interfacePicture().pixel(639, 479)), 4);
}

void StillPreviewsTest::interfaceScreenFoundInPackage()
{
    writeFrame(path("pack/Screens/Chat.bmp"), frameColor(5), {10, 10});
    m_doc->setPackageFolder(path("pack") + u'/', QStringLiteral("pack\\"));
    m_doc->setText(u"ifacechat", QStringLiteral("screens\\chat.bmp"));
    QVERIFY(m_stills->showInterfaceScreenPreview(4).isEmpty());
    QCOMPARE(frameOfPixel(m_stills->interfacePicture().pixel(0, 0)), 5);
}

void StillPreviewsTest::emptyInterfaceTextEmptiesTheDisplay()
{
    writeFrame(path("main.bmp"), frameColor(1), {8, 8});
    m_doc->setText(u"ifacemain", path("main.bmp"));
    m_stills->showInterfaceScreenPreview(0);
    QVERIFY(!m_stills->interfacePicture().isNull());

    m_doc->setText(u"ifacemain", QString());
    QSignalSpy spy(m_stills.get(), &StillPreviews::interfacePictureChanged);
    QVERIFY(m_stills->showInterfaceScreenPreview(0).isEmpty());
    QCOMPARE(spy.size(), 1);
    QVERIFY(m_stills->interfacePicture().isNull());
    QVERIFY(m_loading->picture().isNull());
}

void StillPreviewsTest::unloadableInterfaceScreenIsReported_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("text");

    QTest::newRow("missing file") << "" << "C:\\t\\missing.bmp";
    QTest::newRow("empty text in a package") << "PACK" << "";
    QTest::newRow("not an image") << "" << "NOTIMAGE";
}

void StillPreviewsTest::unloadableInterfaceScreenIsReported()
{
    QFETCH(QString, folder);
    QFETCH(QString, text);
    if (folder == u"PACK") {
        QDir().mkpath(path("pack"));
        folder = path("pack") + u'/';
    }
    if (text == u"NOTIMAGE") {
        QFile file(path("notes.bmp"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a picture");
        text = file.fileName();
    }
    writeFrame(path("menu.bmp"), frameColor(3), {8, 8});
    m_doc->setText(u"ifacemenu", path("menu.bmp"));
    QVERIFY(m_stills->showInterfaceScreenPreview(8).isEmpty());

    m_doc->setPackageFolder(folder, QString());
    m_doc->setText(u"ifaceinet", text);
    const Report report = m_stills->showInterfaceScreenPreview(9);

    QCOMPARE(report.lines(), QStringList{QStringLiteral("Error: Unable to load image: ") + folder + text});
    QCOMPARE(report.problems.first().severity, Problem::Severity::Error);
    QCOMPARE(frameOfPixel(m_stills->interfacePicture().pixel(0, 0)), 3);
}

void StillPreviewsTest::missingMiscImageShowsLastLoadedFrame()
{
    writeFrame(path("bg1.bmp"), frameColor(1), {192, 352});
    writeFrame(path("bg2.bmp"), frameColor(2), {192, 352});
    m_doc->setNumber(u"bganimated", 1);
    m_doc->setText(u"bgimage", path("bg1.bmp"));
    m_doc->setText(u"bgframecount", QStringLiteral("2"));
    FramePreviews frames(*m_doc, *m_loading);
    QVERIFY(frames.startFramePreview(ElementBackground).isEmpty());

    m_doc->setText(u"warning", path("warning.bmp"));
    QSignalSpy spy(m_stills.get(), &StillPreviews::miscPictureChanged);
    m_stills->showMiscImagePreview(6);

    QCOMPARE(spy.size(), 1);
    QCOMPARE(frameOfPixel(m_stills->miscPicture().pixel(0, 0)), 2);
}

void StillPreviewsTest::miscImageDoesNotClearTheLoadingSurface()
{
    m_doc->setText(u"door1", QString());
    m_stills->showMiscImagePreview(0);
    QVERIFY(m_stills->miscPicture().isNull());

    writeFrame(path("door.bmp"), frameColor(6), {8, 8});
    m_doc->setText(u"door2", path("door.bmp"));
    m_stills->showMiscImagePreview(1);
    m_stills->showMiscImagePreview(0);
    QCOMPARE(frameOfPixel(m_stills->miscPicture().pixel(0, 0)), 6);
}

void StillPreviewsTest::chosenColorBecomesSwatchAndText_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<quint32>("color");
    QTest::addColumn<QString>("text");

    QTest::newRow("blue") << 5 << quint32(0xFF0000) << "0,0,255";
    QTest::newRow("black") << 0 << quint32(0) << "0,0,0";
    QTest::newRow("mixed") << 11 << quint32(0x0A141E) << "30,20,10";
}

void StillPreviewsTest::chosenColorBecomesSwatchAndText()
{
    QFETCH(int, row);
    QFETCH(quint32, color);
    QFETCH(QString, text);

    m_dialogs->colors.enqueue(color);
    m_stills->chooseThemeColor(row);

    QCOMPARE(m_doc->swatch(row), std::optional<quint32>(color));
    QCOMPARE(m_doc->value(QString::fromLatin1(colorKeys[row])), text);
    QVERIFY(m_doc->isDirty());
}

void StillPreviewsTest::cancelledColorChangesNothing()
{
    const QString before = m_doc->value(u"colorconnect");
    m_stills->chooseThemeColor(5);

    QCOMPARE(m_dialogs->colorRequests, 1);
    QCOMPARE(m_doc->value(u"colorconnect"), before);
    QVERIFY(!m_doc->swatch(5));
    QVERIFY(!m_doc->isDirty());
}

QTEST_GUILESS_MAIN(StillPreviewsTest)
#include "tst_stillpreviews.moc"
