#include "common/scripteddialogs.h"
#include "document/themedocument.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/previewsurface.h"
#include "preview/ticktimer.h"
#include "previewtesthelpers.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

class PreviewWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void previewClickPlaysInTheWindow();
    void pageSwitchStopsTheAnimation();
    void dataSetSwitchStopsTheAnimation();
    void newThemeStopsTheAnimation();
    void interfacePreviewFillsItsDisplay();
    void colorButtonSetsSwatchAndText();

private:
    template<typename T = QWidget>
    T *control(const QString &name)
    {
        m_window->buildAllPages();
        return m_window->findChild<T *>(name);
    }
    void click(const QString &button) { control<QAbstractButton>(button)->click(); }
    int shownFrame(const QString &surface)
    {
        const QImage image = control<PreviewSurface>(surface)->image();
        return image.isNull() ? -2 : frameOfPixel(image.pixel(0, 0));
    }
    void prepareBackground();

    QTemporaryDir m_dir;
    std::unique_ptr<ThemeDocument> m_doc;
    std::unique_ptr<MainWindow> m_window;
    ScriptedDialogs m_dialogs;
};

void PreviewWindowTest::init()
{
    m_doc = std::make_unique<ThemeDocument>();
    m_window = std::make_unique<MainWindow>(*m_doc);
    m_window->startUp();
    new PreviewBinding(*m_window, *m_doc, m_dialogs);
    m_dialogs.messages.clear();
}

void PreviewWindowTest::cleanup()
{
    m_window.reset();
    m_doc.reset();
}

void PreviewWindowTest::prepareBackground()
{
    for (int n = 1; n <= 3; ++n)
        writeFrame(m_dir.filePath(QStringLiteral("bg%1.bmp").arg(n)), frameColor(n), {192, 352});
    m_doc->setNumber(u"includebackground", 1);
    m_doc->setNumber(u"bganimated", 1);
    m_doc->setText(u"bgimage", m_dir.filePath("bg1.bmp"));
    m_doc->setText(u"bgframecount", QStringLiteral("3"));
    m_doc->setText(u"bgdelaybetweenframes", QStringLiteral("0"));
    m_window->showPage(MainWindow::Page::Background);
}

void PreviewWindowTest::previewClickPlaysInTheWindow()
{
    prepareBackground();
    click("cmdPreviewBG");

    QVERIFY(control<TickTimer>("tmrBGPreview")->isActive());
    QVERIFY(m_dialogs.messages.isEmpty());
    QSet<int> seen;
    QTRY_VERIFY_WITH_TIMEOUT((seen << shownFrame("picPreviewBG"), seen.size() == 3), 5000);
    QVERIFY(!seen.contains(0));
}

void PreviewWindowTest::pageSwitchStopsTheAnimation()
{
    prepareBackground();
    click("cmdPreviewBG");
    QTRY_VERIFY(shownFrame("picPreviewBG") > 0);

    m_window->showPage(MainWindow::Page::Blocks);
    QVERIFY(!control<TickTimer>("tmrBGPreview")->isActive());
    const QImage last = control<PreviewSurface>("picPreviewBG")->image();
    QTest::qWait(20);
    QCOMPARE(control<PreviewSurface>("picPreviewBG")->image(), last);
}

void PreviewWindowTest::dataSetSwitchStopsTheAnimation()
{
    prepareBackground();
    click("cmdPreviewBG");
    QVERIFY(control<TickTimer>("tmrBGPreview")->isActive());
    control<QComboBox>("cmbFields")->setCurrentIndex(1);
    QVERIFY(!control<TickTimer>("tmrBGPreview")->isActive());
}

void PreviewWindowTest::newThemeStopsTheAnimation()
{
    prepareBackground();
    click("cmdPreviewBG");
    QVERIFY(control<TickTimer>("tmrBGPreview")->isActive());
    m_doc->resetTheme();
    QVERIFY(!control<TickTimer>("tmrBGPreview")->isActive());
}

void PreviewWindowTest::interfacePreviewFillsItsDisplay()
{
    writeFrame(m_dir.filePath("chat.bmp"), frameColor(7), {640, 480});
    m_doc->setNumber(u"includeinterface", 1);
    m_doc->setText(u"ifacechat", m_dir.filePath("chat.bmp"));
    m_window->showPage(MainWindow::Page::Interface);
    click("cmdPreviewIface(4)");
    QCOMPARE(shownFrame("imgIPreview"), 7);

    m_doc->setText(u"ifacechat", m_dir.filePath("gone.bmp"));
    click("cmdPreviewIface(4)");
    QCOMPARE(m_dialogs.messageLines(),
             QStringList{"Error: Unable to load image: " + m_dir.filePath("gone.bmp")});
    QCOMPARE(shownFrame("imgIPreview"), 7);
}

void PreviewWindowTest::colorButtonSetsSwatchAndText()
{
    m_doc->setNumber(u"includecolors", 1);
    m_window->showPage(MainWindow::Page::Misc);
    m_dialogs.colors.enqueue(quint32(0xFF0000));
    click("cmdBrowseColor(5)");

    QCOMPARE(control<QLineEdit>("txtColor(5)")->text(), QStringLiteral("0,0,255"));
    QCOMPARE(control<PreviewSurface>("picPreviewColor(5)")->fillColor(), QColor(Qt::blue));
}

QTEST_MAIN(PreviewWindowTest)
#include "tst_previewwindow.moc"
