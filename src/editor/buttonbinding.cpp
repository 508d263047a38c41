// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/buttonbinding.h"

#include "editor/editordialogs.h"

#include "check/themechecker.h"
#include "common/pathlookup.h"
#include "editing/fieldbrowsing.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "editor/controlnames.h"
#include "editor/mainwindow.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QLineEdit>
#include <QMimeData>
#include <QStatusBar>
#include <QWidget>

namespace {

// Whether the music button has started the music; its caption says so in the author's language.
constexpr char musicStarted[] = "musicStarted";

// The one local file dragged, or "".
QString droppedFile(const QMimeData *mime)
{
    if (!mime || !mime->hasUrls() || mime->urls().size() != 1)
        return {};
    const QString path = mime->urls().first().toLocalFile();
    return QFileInfo(path).isFile() ? path : QString();
}

QString droppedTheme(const QMimeData *mime)
{
    const QString path = droppedFile(mime);
    return path.endsWith(QStringLiteral(".skt"), Qt::CaseInsensitive) ? path : QString();
}

/** A row's Browse as a drop runs it: the open dialog answers with the dropped file at once. */
class DroppedFileDialogs : public Dialogs
{
public:
    DroppedFileDialogs(Dialogs &questions, const QString &file) : m_questions(questions), m_file(file) {}

    QString openFileName(const QString &, const QString &) override { return std::exchange(m_file, {}); }
    // A dropped package may still ask for its password.
    Answer askYesNoCancel(const QString &title, const QString &text) override
    {
        return m_questions.askYesNoCancel(title, text);
    }
    std::optional<QString> inputBox(const QString &prompt, const QString &title) override
    {
        return m_questions.inputBox(prompt, title);
    }
    QString saveFileName(const QString &, const QString &) override { return {}; }
    std::optional<quint32> chooseColor() override { return std::nullopt; }

private:
    Dialogs &m_questions;
    QString m_file;
};

/** A Browse whose chosen file may be offered for import first; taken, it is not stored. */
class ImportOfferDialogs : public DroppedFileDialogs
{
public:
    ImportOfferDialogs(Dialogs &questions, std::function<bool(const QString &)> offer)
        : DroppedFileDialogs(questions, {}), m_questions(questions), m_offer(std::move(offer))
    {
    }

    QString openFileName(const QString &filter, const QString &folder) override
    {
        const QString path = m_questions.openFileName(filter, folder);
        return !path.isEmpty() && m_offer && m_offer(path) ? QString() : path;
    }
    QString saveFileName(const QString &filter, const QString &proposedName) override
    {
        return m_questions.saveFileName(filter, proposedName);
    }
    std::optional<quint32> chooseColor() override { return m_questions.chooseColor(); }

private:
    Dialogs &m_questions;
    std::function<bool(const QString &)> m_offer;
};

} // namespace

ButtonBinding::ButtonBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, SoundSystem &sound,
                             FileCommands &commands)
    : QObject(&window), m_window(window), m_doc(doc), m_dialogs(dialogs), m_sound(sound), m_commands(commands)
{
    // Every row with a Browse button, once: the button browses, the row's text box takes drops.
    for (AnimatedElementId element : animatedElementIds) {
        addBrowseRow(animatedElements[element].imageField, imageFilter,
                     [this, element](Dialogs &d) {
                         const QString key = QLatin1StringView(animatedElements[element].imageField);
                         ImportOfferDialogs offering(d, [this, key](const QString &path) {
                             return m_importOffer && m_importOffer(key, path);
                         });
                         browseAnimatedImage(m_doc, offering, element);
                     });
    }
    for (InterfaceRow row : rowValues<InterfaceRow>) {
        addBrowseRow(interfaceRowKeys[row], imageFilter,
                     [this, row](Dialogs &d) { browseInterfaceImage(m_doc, d, row); });
    }
    for (MiscImageRow row : rowValues<MiscImageRow>) {
        addBrowseRow(miscImageKeys[row], imageFilter,
                     [this, row](Dialogs &d) { browseMiscImage(m_doc, d, row); });
    }
    for (SoundRow row : rowValues<SoundRow>) {
        addBrowseRow(soundRowKeys[row], soundFilter,
                     [this, row](Dialogs &d) { browseSound(m_doc, d, row); });
    }
    addBrowseRow(FieldKey::skinFile, imageFilter,
                 [this](Dialogs &d) { browseSkinFile(m_doc, d); });
    addBrowseRow(FieldKey::midi, musicFilter,
                 [this](Dialogs &d) { browseMusic(m_doc, d); });
    addBrowseRow(FieldKey::resourceFile, zipFilter, [this](Dialogs &d) {
        m_dialogs.show(browseResourcePackage(m_doc, d).report());
    });

    m_window.bindPages(this, [this](EditorPage page) { bindPage(page); });
    connect(m_window.findChild<QAction *>(QStringLiteral("mnuArtFolder")), &QAction::triggered, this,
            [this] { browseArtFolder(m_doc, m_dialogs); });

    m_window.setAcceptDrops(true);
    m_window.installEventFilter(this);
}

void ButtonBinding::addBrowseRow(const char *key, QLatin1StringView filter, std::function<void(Dialogs &)> browse)
{
    m_browseRows.insert(QLatin1StringView(key), {filter, std::move(browse)});
}

void ButtonBinding::bindPage(EditorPage page)
{
    for (const FileRow &row : m_window.pages().fileRows(page)) {
        const auto found = m_browseRows.constFind(QLatin1StringView(row.key));
        if (found == m_browseRows.cend())
            continue;
        const DropRow browsing = *found;
        connect(row.browse, &QAbstractButton::clicked, this, [this, browsing] { browsing.browse(m_dialogs); });
        row.edit->setAcceptDrops(true);
        row.edit->installEventFilter(this);
        m_dropRows.insert(row.edit, browsing);
    }
    if (page != EditorPage::Sounds)
        return;
    const SoundPage &sounds = m_window.pages().sounds;
    for (SoundRow row : rowValues<SoundRow>) {
        connect(sounds.sounds[row].show, &QAbstractButton::clicked, this, [this, row] {
            const QString key = QLatin1StringView(soundRowKeys[row]);
            // The sound itself is silent about a file it cannot play: the status bar says it.
            const QString trouble = playProblem(m_doc, key);
            if (trouble.isEmpty())
                m_window.statusBar()->clearMessage();
            else
                m_window.statusBar()->showMessage(trouble);
            m_sound.playWaveFile(themeFilePath(m_doc.packageFolder(), m_doc.value(key)));
        });
    }
    connect(sounds.music.show, &QAbstractButton::clicked, this, [this] { toggleMusic(); });
}

void ButtonBinding::toggleMusic()
{
    QAbstractButton *button = m_window.pages().sounds.music.show;
    // The state changes before opening, so a failed open still reads "Stop Music" and the
    // next click merely resets it.
    const bool starting = !button->property(musicStarted).toBool();
    button->setProperty(musicStarted, starting);
    if (starting) {
        button->setText(QCoreApplication::translate("PageWidgets", "Stop Music"));
        m_dialogs.show(m_sound.openMusic(themeFilePath(m_doc.musicFolder(), m_doc.value(FieldKey::midi)),
                                         QLatin1StringView(FieldKey::midi)));
        m_sound.playMusic();
    } else {
        button->setText(QCoreApplication::translate("PageWidgets", "Play Music"));
        m_sound.stopMusic();
        m_sound.freeMusic();
    }
}

bool ButtonBinding::fits(const QString &path, QLatin1StringView filter)
{
    // Authors rename pictures freely: an image row takes whatever decodes as one.
    if (filter == imageFilter)
        return !QImageReader::imageFormat(path).isEmpty();
    const QString suffix = QFileInfo(path).suffix();
    return filterExtensions(filter).contains(suffix, Qt::CaseInsensitive);
}

bool ButtonBinding::eventFilter(QObject *watched, QEvent *event)
{
    const auto row = m_dropRows.constFind(watched);
    const bool onRow = row != m_dropRows.cend();
    if (onRow && (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove)) {
        auto *drag = static_cast<QDragMoveEvent *>(event);
        const QString file = droppedFile(drag->mimeData());
        // The text box's own drop would paste the file's address as text: never let it.
        if (!droppedTheme(drag->mimeData()).isEmpty() || (!file.isEmpty() && fits(file, row->filter)))
            drag->acceptProposedAction();
        else
            drag->ignore();
        return true;
    }
    if (onRow && event->type() == QEvent::Drop) {
        auto *drop = static_cast<QDropEvent *>(event);
        const QString file = droppedFile(drop->mimeData());
        if (!droppedTheme(drop->mimeData()).isEmpty()) {
            loadDroppedTheme(drop);
        } else if (!file.isEmpty() && fits(file, row->filter)) {
            drop->acceptProposedAction();
            DroppedFileDialogs answer(m_dialogs, QDir::toNativeSeparators(file));
            row->browse(answer);
        }
        return true;
    }
    if (watched == &m_window && event->type() == QEvent::DragEnter) {
        auto *drag = static_cast<QDragEnterEvent *>(event);
        if (!droppedTheme(drag->mimeData()).isEmpty())
            drag->acceptProposedAction();
        return true;
    }
    if (watched == &m_window && event->type() == QEvent::Drop) {
        loadDroppedTheme(static_cast<QDropEvent *>(event));
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void ButtonBinding::loadDroppedTheme(QDropEvent *drop)
{
    const QString path = droppedTheme(drop->mimeData());
    if (path.isEmpty())
        return;
    drop->acceptProposedAction();
    m_dialogs.show(m_commands.loadPath(path).report());
}
