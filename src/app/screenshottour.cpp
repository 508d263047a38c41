// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screenshottour.h"

#include "check/backgroundcheck.h"
#include "common/safefile.h"
#include "common/translations.h"
#include "editing/fieldbrowsing.h"
#include "editor/artimportdialog.h"
#include "editor/controlnames.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/previewwindow.h"
#include "editor/problemspanel.h"
#include "theme/animatedelement.h"
#include "theme/themedocument.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QMenu>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

QString fileSlug(const QString &caption)
{
    QString slug;
    for (const QChar c : caption.toLower()) {
        if (c.isLetterOrNumber())
            slug += c;
        else if (!slug.endsWith(QLatin1Char('-')))
            slug += QLatin1Char('-');
    }
    while (slug.endsWith(QLatin1Char('-')))
        slug.chop(1);
    return slug;
}

/** Lets a moment of playing and painting pass. */
void settle()
{
    QEventLoop loop;
    QTimer::singleShot(400, &loop, &QEventLoop::quit);
    loop.exec();
}

/** Starts every preview the page shows and lets the animations play a moment. */
void playVisiblePreviews(MainWindow &window)
{
    const EditorPages &pages = window.pages();
    QList<QAbstractButton *> buttons;
    for (EditorPage page : editorPages) {
        for (const ElementFrame &frame : pages.elementFrames(page))
            buttons << frame.image.show;
    }
    buttons << pages.iface.screens[InterfaceRow::Main].show << pages.misc.images[MiscImageRow::DoorLeft].show;
    for (QAbstractButton *button : std::as_const(buttons)) {
        if (button && button->isVisibleTo(&window) && button->isEnabled())
            button->click();
    }
    if (auto *previews = window.findChild<PreviewBinding *>())
        previews->frames().finishLoading();
    settle();
}

bool savePicture(QWidget &widget, const QString &path)
{
    QByteArray png;
    QBuffer buffer(&png);
    QString reason = QCoreApplication::translate("ScreenshotTour", "the picture could not be encoded");
    if (!buffer.open(QIODevice::WriteOnly) || !widget.grab().save(&buffer, "PNG")
        || !(reason = writeWholeFile(path, png).errorText()).isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(QCoreApplication::translate("ScreenshotTour", "Could not write %1: %2").arg(path, reason)));
        return false;
    }
    return true;
}

bool saveShot(MainWindow &window, const QString &path)
{
    QApplication::processEvents();
    playVisiblePreviews(window);
    return savePicture(window, path);
}

/** The File and Edit menus open, and the blocks' closer look at 4x. */
bool writeToolShots(MainWindow &window, PreviewBinding &previews, const QString &folder, const QString &suffix)
{
    bool ok = true;
    for (const char *name : {"mnuFile", "mnuEdit"}) {
        auto *menu = window.findChild<QMenu *>(QLatin1StringView(name));
        menu->popup(window.mapToGlobal(QPoint(0, 0)));
        settle();
        ok = savePicture(*menu, QStringLiteral("%1/menu-%2%3.png").arg(folder, QLatin1StringView(name + 3).toString().toLower(), suffix)) && ok;
        menu->hide();
    }
    window.showPage(MainWindow::Page::Blocks);
    const char *blocksPreview = elementControls[AnimatedElementId::Blocks].preview;
    window.findChild<QAbstractButton *>(QLatin1StringView(blocksPreview))->click();
    PreviewWindow *closer = previews.openPreviewWindow(AnimatedElementId::Blocks);
    closer->setZoom(4);
    settle();
    ok = savePicture(*closer, folder + QStringLiteral("/preview-window-4x") + suffix + QStringLiteral(".png")) && ok;
    closer->close();
    window.showPage(MainWindow::Page::General);
    return ok;
}

bool writeScreenshots(MainWindow &window, const QString &folder, const QString &suffix)
{
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "%s\n", qPrintable(QCoreApplication::translate("ScreenshotTour", "Could not create %1").arg(folder)));
        return false;
    }
    window.show();
    bool ok = true;
    for (EditorPage page : editorPages) {
        window.showPage(page);
        const QString base = folder + QLatin1Char('/') + MainWindow::pageSlug(page);
        QComboBox *selector = window.pages().selector(page);
        if (!selector) {
            ok = saveShot(window, base + suffix + QStringLiteral(".png")) && ok;
            continue;
        }
        for (int choice = 0; choice < selector->count(); ++choice) {
            selector->setCurrentIndex(choice);
            const QString name = base + QLatin1Char('-') + fileSlug(selector->itemData(choice).toString());
            ok = saveShot(window, name + suffix + QStringLiteral(".png")) && ok;
        }
        selector->setCurrentIndex(0);
    }
    window.showPage(MainWindow::Page::General);

    // Last, as the panel and the count take room below the pages.
    QEventLoop loop;
    QObject::connect(&window.themeCheck(), &BackgroundCheck::finished, &loop, &QEventLoop::quit);
    window.checkTheme();
    loop.exec();
    window.problemsPanel().show();
    return saveShot(window, folder + QStringLiteral("/problems") + suffix + QStringLiteral(".png")) && ok;
}

/** The import dialog over the Background page, with the theme's own background frames as its source. */
bool writeImportShot(MainWindow &window, ArtImportCommand &importer, const ThemeDocument &doc, const QString &folder,
                     const QString &suffix)
{
    window.showPage(MainWindow::Page::Background);
    QStringList frames;
    const QLatin1StringView backgroundImage(animatedElements[AnimatedElementId::Background].imageField);
    const std::optional<FrameFileName> split = splitFrameFileName(doc.value(backgroundImage));
    for (int n = 1; split && n <= 8; ++n) {
        const QString file = doc.packageFolder() + split->root + QString::number(n) + u'.' + split->extension;
        if (QFileInfo::exists(file))
            frames << file;
    }
    std::unique_ptr<ArtImportDialog> dialog(importer.dialogFor(backgroundImage, frames));
    dialog->show();
    settle();
    const bool ok = savePicture(*dialog, folder + QStringLiteral("/import-dialog") + suffix + QStringLiteral(".png"));
    window.showPage(MainWindow::Page::General);
    return ok;
}

/** The 144 DPI pass needs a fresh process: the scale factor is fixed when the application starts. */
int runScaledPass(const QStringList &arguments)
{
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.5"));
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit)
        return 1;
    return child.exitCode();
}

} // namespace

int takeScreenshots(const ScreenshotTour &tour, MainWindow &window, PreviewBinding &previews,
                    ArtImportCommand &importer, const ThemeDocument &doc)
{
    // Pictures of one moment: the previews' clock stands still, so every run (and every
    // rebuild of the manual) shows the same frames.
    previews.frames().setClock([] { return quint32(0); });
    const QString suffix = tour.scaledPass ? QStringLiteral("-144dpi") : QString();
    bool ok = writeScreenshots(window, tour.folder, suffix);
    ok = ok && writeToolShots(window, previews, tour.folder, suffix);
    ok = ok && writeImportShot(window, importer, doc, tour.folder, suffix);
    if (!tour.scaledPass) {
        QStringList childArgs{QStringLiteral("--screenshot"), tour.folder, QStringLiteral("--scaled-pass")};
        // The second pass speaks the language the first one was asked for.
        QStringList given = QCoreApplication::arguments();
        if (const std::optional<QString> language = takeLanguageOption(given); language && !language->isEmpty())
            childArgs = QStringList{QStringLiteral("--lang"), *language} + childArgs;
        if (!tour.themePath.isEmpty())
            childArgs << tour.themePath;
        ok = runScaledPass(childArgs) == 0 && ok;
    }
    return ok ? 0 : 1;
}
