#include "editor/buttonbinding.h"

#include "editor/editordialogs.h"

#include "document/themedocument.h"
#include "editor/controlnames.h"
#include "document/fieldbrowsing.h"
#include "document/filecommands.h"
#include "editor/mainwindow.h"
#include "sound/soundsystem.h"

#include <QAbstractButton>
#include <QAction>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace {

const QString playMusicCaption = QStringLiteral("Play Music");
const QString stopMusicCaption = QStringLiteral("Stop Music");

QString droppedTheme(const QMimeData *mime)
{
    if (!mime || !mime->hasUrls() || mime->urls().size() != 1)
        return {};
    const QString path = mime->urls().first().toLocalFile();
    return path.endsWith(QStringLiteral(".skt"), Qt::CaseInsensitive) ? path : QString();
}

} // namespace

ButtonBinding::ButtonBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, SoundSystem &sound,
                             FileCommands &commands)
    : QObject(&window), m_window(window), m_doc(doc), m_dialogs(dialogs), m_sound(sound), m_commands(commands)
{
    for (int element = 0; element < AnimatedElementCount; ++element) {
        m_window.onClick(QLatin1StringView(elementControls[element].browse), this,
                         [this, element] { browseAnimatedImage(m_doc, m_dialogs, element); });
    }
    m_window.onRowClick(interfaceRows.browse, interfaceRows.keys, this,
                        [this](int row) { browseInterfaceImage(m_doc, m_dialogs, row); });
    m_window.onRowClick(miscImageRows.browse, miscImageRows.keys, this,
                        [this](int row) { browseMiscImage(m_doc, m_dialogs, row); });
    m_window.onRowClick(soundRows.browse, soundRows.keys, this,
                        [this](int row) { browseSound(m_doc, m_dialogs, row); });
    m_window.onRowClick(soundRows.show, soundRows.keys, this, [this](int row) {
        m_sound.playWaveFile(m_doc.packageFolder() + m_doc.value(QLatin1StringView(soundRows.keys[row])));
    });
    m_window.onClick(QStringLiteral("cmdBrowseSkin"), this, [this] { browseSkinFile(m_doc, m_dialogs); });
    m_window.onClick(QStringLiteral("cmdBrowseMusic"), this, [this] { browseMusic(m_doc, m_dialogs); });
    m_window.onClick(QStringLiteral("cmdBrowseResource"), this, [this] {
        Report report;
        browseResourcePackage(m_doc, m_dialogs, report);
        m_dialogs.show(report);
    });
    m_window.onClick(QStringLiteral("cmdPlayMusic"), this, [this] { toggleMusic(); });
    connect(m_window.findChild<QAction *>(QStringLiteral("mnuArtFolder")), &QAction::triggered, this,
            [this] { browseArtFolder(m_doc, m_dialogs); });

    m_window.setAcceptDrops(true);
    m_window.installEventFilter(this);
}

void ButtonBinding::toggleMusic()
{
    auto *button = m_window.findChild<QAbstractButton *>(QStringLiteral("cmdPlayMusic"));
    // The caption is the state: it changes before opening, so a failed open still reads
    // "Stop Music" and the next click merely resets it.
    if (button->text() == playMusicCaption) {
        button->setText(stopMusicCaption);
        m_dialogs.show(m_sound.openMusic(m_doc.musicFolder() + m_doc.value(u"midi")));
        m_sound.playMusic();
    } else {
        button->setText(playMusicCaption);
        m_sound.stopMusic();
        m_sound.freeMusic();
    }
}

bool ButtonBinding::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::DragEnter) {
        auto *drag = static_cast<QDragEnterEvent *>(event);
        if (!droppedTheme(drag->mimeData()).isEmpty())
            drag->acceptProposedAction();
        return true;
    }
    if (watched == &m_window && event->type() == QEvent::Drop) {
        auto *drop = static_cast<QDropEvent *>(event);
        const QString path = droppedTheme(drop->mimeData());
        if (!path.isEmpty()) {
            drop->acceptProposedAction();
            m_commands.loadPath(path);
            m_dialogs.show(m_commands.takeReport());
        }
        return true;
    }
    return QObject::eventFilter(watched, event);
}
