// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/artimportdialog.h"

#include "editing/fieldbrowsing.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "editor/controlnames.h"
#include "editor/editordialogs.h"
#include "editor/mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>

namespace {

const char *const caption = QT_TRANSLATE_NOOP("ArtImportDialog", "Import Art");

/** Every row with an Import button: its key, its Browse button and the text box that takes drops. */
// The rows whose art can be imported: every file row but the skin and the resource package.
bool importsArt(const FileRow &row)
{
    return qstrcmp(row.key, FieldKey::skinFile) != 0 && qstrcmp(row.key, FieldKey::resourceFile) != 0;
}

QLayout *layoutHolding(QLayout *layout, QWidget *widget)
{
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget() == widget)
            return layout;
        if (QLayout *inner = layoutHolding(item->layout(), widget))
            return inner;
    }
    return nullptr;
}

/** A label whose accelerator moves to \a buddy: rows holding a layout get none from the form. */
QLabel *buddyLabel(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QPixmap shownAt(const QImage &image, int scale)
{
    return QPixmap::fromImage(image.scaled(image.size() * scale, Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

/** A picture at most \a box big, for the "before" view. */
QPixmap fitted(const QImage &image, QSize box)
{
    const QImage shown = image.width() > box.width() || image.height() > box.height()
                             ? image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                             : image;
    return QPixmap::fromImage(shown);
}

} // namespace

bool wantsImport(const QString &key, const QString &path)
{
    const std::optional<ArtTarget> target = artTarget(key);
    const QFileInfo info(path);
    if (!target || !info.exists())
        return false;
    const QString suffix = info.suffix().toLower();
    switch (target->kind) {
    case FileKind::FrameSequence:
        if (info.isDir())
            return true;
        if (QImageReader::imageFormat(path).isEmpty())
            return false;
        // A first frame is numbered: the character before the first "." is its 1.
        return !filterExtensions(imageFilter).contains(suffix) || !info.fileName().section(u'.', 0, 0).endsWith(u'1');
    case FileKind::StillImage:
        return info.isFile() && !QImageReader::imageFormat(path).isEmpty() && !filterExtensions(imageFilter).contains(suffix);
    case FileKind::WaveSound:
        return info.isFile() && !filterExtensions(soundFilter).contains(suffix);
    case FileKind::Music:
        return info.isFile() && !filterExtensions(musicFilter).contains(suffix);
    default:
        return false;
    }
}

ArtImportDialog::ArtImportDialog(const QStringList &keys, const QString &key, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmImportArt"));
    setWindowTitle(tr(caption));
    auto *form = new QFormLayout;
    m_row = new QComboBox;
    m_row->setObjectName(QStringLiteral("cmbImportRow"));
    for (const QString &k : keys)
        m_row->addItem(artTarget(k)->label(), k);
    m_row->setCurrentIndex(std::max(0, int(keys.indexOf(key))));
    form->addRow(tr("&Row:"), m_row);

    m_source = new QLineEdit;
    m_source->setObjectName(QStringLiteral("txtImportSource"));
    m_source->setReadOnly(true);
    auto *files = new QPushButton(tr("&Files..."));
    files->setObjectName(QStringLiteral("cmdImportFiles"));
    auto *folder = new QPushButton(tr("F&older..."));
    folder->setObjectName(QStringLiteral("cmdImportFolder"));
    auto *sourceRow = new QHBoxLayout;
    sourceRow->addWidget(m_source, 1);
    sourceRow->addWidget(files);
    sourceRow->addWidget(folder);
    form->addRow(buddyLabel(tr("&Source:"), m_source), sourceRow);

    m_fit = new QComboBox;
    m_fit->setObjectName(QStringLiteral("cmbImportFit"));
    m_fit->addItem(tr("Fill: cover, centre cut out"), int(FrameFit::Fill));
    m_fit->addItem(tr("Fit: inside, background around"), int(FrameFit::Fit));
    m_fit->addItem(tr("Stretch"), int(FrameFit::Stretch));
    m_fit->addItem(tr("Pixel: whole factor, hard edges"), int(FrameFit::Pixel));
    form->addRow(tr("F&it:"), m_fit);

    m_background = new QPushButton;
    m_background->setObjectName(QStringLiteral("cmdImportBackground"));
    m_background->setAccessibleName(tr("Background colour"));
    form->addRow(tr("&Background:"), m_background);

    m_format = new QComboBox;
    m_format->setObjectName(QStringLiteral("cmbImportFormat"));
    m_format->addItem(tr("Bitmap (.bmp, 24-bit)"), int(FrameFormat::Bmp));
    m_format->addItem(tr("JPEG (.jpg)"), int(FrameFormat::Jpg));
    m_quality = new QSpinBox;
    m_quality->setObjectName(QStringLiteral("txtImportQuality"));
    m_quality->setRange(1, 100);
    m_quality->setValue(90);
    m_quality->setAccessibleName(tr("JPEG quality"));
    auto *formatRow = new QHBoxLayout;
    formatRow->addWidget(m_format, 1);
    formatRow->addWidget(new QLabel(tr("Quality:")));
    formatRow->addWidget(m_quality);
    form->addRow(buddyLabel(tr("Fo&rmat:"), m_format), formatRow);

    m_columns = new QSpinBox;
    m_columns->setObjectName(QStringLiteral("txtImportColumns"));
    m_rows = new QSpinBox;
    m_rows->setObjectName(QStringLiteral("txtImportRows"));
    for (QSpinBox *box : {m_columns, m_rows}) {
        box->setRange(1, 999);
        box->setValue(1);
    }
    m_columns->setAccessibleName(tr("Sheet columns"));
    m_rows->setAccessibleName(tr("Sheet rows"));
    auto *sheetRow = new QHBoxLayout;
    sheetRow->addWidget(m_columns);
    sheetRow->addWidget(new QLabel(tr("columns x")));
    sheetRow->addWidget(m_rows);
    sheetRow->addWidget(new QLabel(tr("rows (1 x 1: not a sheet)")));
    sheetRow->addStretch();
    form->addRow(buddyLabel(tr("S&heet:"), m_columns), sheetRow);

    m_before = new QLabel;
    m_after = new QLabel;
    m_after2x = new QLabel;
    auto *views = new QHBoxLayout;
    for (auto [label, title] : {std::pair{m_before, QT_TR_NOOP("Before")}, std::pair{m_after, QT_TR_NOOP("After (1x)")},
                                std::pair{m_after2x, QT_TR_NOOP("After (2x)")}}) {
        auto *column = new QVBoxLayout;
        column->addWidget(new QLabel(tr(title)));
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setMinimumSize(96, 96);
        column->addWidget(label, 1);
        views->addLayout(column);
    }
    m_found = new QLabel;
    m_found->setObjectName(QStringLiteral("lblImportFound"));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setText(tr("Import"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *top = new QVBoxLayout(this);
    top->addLayout(form);
    top->addLayout(views, 1);
    top->addWidget(m_found);
    top->addWidget(buttons);

    connect(files, &QPushButton::clicked, this, &ArtImportDialog::chooseFiles);
    connect(folder, &QPushButton::clicked, this, &ArtImportDialog::chooseFolder);
    connect(m_background, &QPushButton::clicked, this, &ArtImportDialog::chooseBackground);
    const auto again = [this] { refresh(); };
    connect(m_row, &QComboBox::currentIndexChanged, this, again);
    connect(m_fit, &QComboBox::currentIndexChanged, this, again);
    connect(m_format, &QComboBox::currentIndexChanged, this, again);
    connect(m_columns, &QSpinBox::valueChanged, this, [this] { setSources(m_sources); });
    connect(m_rows, &QSpinBox::valueChanged, this, [this] { setSources(m_sources); });
    refresh();
}

QString ArtImportDialog::key() const
{
    return m_row->currentData().toString();
}

ArtOptions ArtImportDialog::options() const
{
    ArtOptions o;
    o.fit = FrameFit(m_fit->currentData().toInt());
    o.background = m_backgroundColor;
    o.format = FrameFormat(m_format->currentData().toInt());
    o.quality = m_quality->value();
    if (m_columns->value() * m_rows->value() > 1)
        o.sheet = QSize(m_columns->value(), m_rows->value());
    return o;
}

void ArtImportDialog::setSources(const QStringList &sources)
{
    m_sources = sources;
    QStringList shown;
    for (const QString &s : sources)
        shown << QDir::toNativeSeparators(s);
    m_source->setText(shown.join(QStringLiteral("; ")));
    const std::optional<ArtTarget> target = artTarget(key());
    const bool pictures = target && (target->kind == FileKind::FrameSequence || target->kind == FileKind::StillImage);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_art = pictures && !sources.isEmpty() ? readArtFrames(sources, options().sheet) : ArtFrames();
    QApplication::restoreOverrideCursor();
    refresh();
}

void ArtImportDialog::chooseFiles()
{
    const QStringList chosen = QFileDialog::getOpenFileNames(this, tr(caption), QFileInfo(m_sources.value(0)).absolutePath());
    if (!chosen.isEmpty())
        setSources(chosen);
}

void ArtImportDialog::chooseFolder()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, tr(caption), QFileInfo(m_sources.value(0)).absolutePath());
    if (!chosen.isEmpty())
        setSources({chosen});
}

void ArtImportDialog::chooseBackground()
{
    const QColor chosen = QColorDialog::getColor(m_backgroundColor, this, tr("Background"));
    if (chosen.isValid()) {
        m_backgroundColor = chosen;
        refresh();
    }
}

void ArtImportDialog::refresh()
{
    m_background->setText(QStringLiteral("%1,%2,%3").arg(m_backgroundColor.red()).arg(m_backgroundColor.green()).arg(m_backgroundColor.blue()));
    m_quality->setEnabled(m_format->currentData().toInt() == int(FrameFormat::Jpg));
    const std::optional<ArtTarget> target = artTarget(key());
    const bool sound = target && (target->kind == FileKind::WaveSound || target->kind == FileKind::Music);
    for (QWidget *w : std::initializer_list<QWidget *>{m_fit, m_background, m_format, m_quality, m_columns, m_rows})
        w->setEnabled(!sound && (w != m_quality || m_format->currentData().toInt() == int(FrameFormat::Jpg)));
    m_before->clear();
    m_after->clear();
    m_after2x->clear();
    m_ok->setEnabled(!m_sources.isEmpty() && !m_art.hasErrors());
    if (m_sources.isEmpty()) {
        m_found->setText(tr("Choose the art: files or a folder."));
        return;
    }
    if (sound) {
        m_found->setText(target->kind == FileKind::Music ? tr("Music the game plays is copied; other music becomes OGG Vorbis.")
                                                         : tr("Becomes a 16-bit PCM wave at 11025, 22050 or 44100 Hz."));
        return;
    }
    if (m_art.hasErrors() || m_art.frames.isEmpty()) {
        m_found->setText(m_art.lines().join(u'\n'));
        return;
    }
    const QImage after = importedFrame(*target, m_art.frames.constFirst(), options());
    const QSize box = target->element ? target->frameSize() * 2 : QSize(320, 240);
    m_before->setPixmap(fitted(m_art.frames.constFirst(), box));
    m_after->setPixmap(target->element ? shownAt(after, 1) : fitted(after, box));
    if (target->element)
        m_after2x->setPixmap(shownAt(after, 2));
    const int delay = medianDelay(m_art.delays);
    QString found = target->element
                        ? tr("%1 frames of %2 x %3").arg(m_art.frames.size()).arg(after.width()).arg(after.height())
                        : tr("1 picture of %1 x %2").arg(after.width()).arg(after.height());
    if (target->element)
        found += delay >= 0 ? tr(", delay %1 ms").arg(delay) : tr(", no delay of its own (the row's stays)");
    m_found->setText(found);
}

ArtImportCommand::ArtImportCommand(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, FileCommands &commands)
    : QObject(&window), m_window(window), m_doc(doc), m_dialogs(dialogs), m_commands(commands)
{
    m_window.bindPages(this, [this](EditorPage page) {
        for (const FileRow &row : m_window.pages().fileRows(page)) {
            if (!importsArt(row))
                continue;
            const QString key = QLatin1StringView(row.key);
            addImportButton(row.browse, key);
            m_dropRows.insert(row.edit, key);
            row.edit->installEventFilter(this); // after the Browse's own: this one sees the drag first
        }
    });
    QMenu *tools = m_window.findChild<QMenu *>(QStringLiteral("mnuTools"));
    auto *item = new QAction(tr("&Import Art..."), tools);
    item->setObjectName(QStringLiteral("mnuImportArt"));
    QAction *before = m_window.findChild<QAction *>(QStringLiteral("mnuBuildPackage"));
    tools->insertAction(before, item);
    connect(item, &QAction::triggered, this, [this] {
        const QStringList keys = keysOnCurrentPage();
        importInto(keys.value(0));
    });
}

void ArtImportCommand::addImportButton(QWidget *browse, const QString &key)
{
    QLayout *layout = layoutHolding(browse->parentWidget() ? browse->parentWidget()->layout() : nullptr, browse);
    if (!layout)
        return;
    auto *button = new QPushButton(tr("Import..."));
    button->setObjectName(browse->objectName().replace(QStringLiteral("cmdBrowse"), QStringLiteral("cmdImport")));
    button->setAccessibleName(tr("Import for %1").arg(artTarget(key)->label()));
    button->setToolTip(tr("Import art into %1: pictures, animations, sprite sheets, sounds").arg(artTarget(key)->label()));
    if (auto *box = qobject_cast<QBoxLayout *>(layout)) {
        box->insertWidget(box->indexOf(browse) + 1, button);
    } else {
        auto *pair = new QWidget;
        auto *row = new QHBoxLayout(pair);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(2);
        delete layout->replaceWidget(browse, pair);
        row->addWidget(browse);
        row->addWidget(button);
    }
    m_buttons.insert(key, button);
    connect(button, &QPushButton::clicked, this, [this, key] { importInto(key); });
}

QStringList ArtImportCommand::keysOnCurrentPage() const
{
    QStringList keys;
    for (const QString &key : artTargetKeys()) {
        const QWidget *button = m_buttons.value(key);
        if (button && button->isVisibleTo(&m_window))
            keys << key;
    }
    return keys.isEmpty() ? artTargetKeys() : keys;
}

ArtImportDialog *ArtImportCommand::dialogFor(const QString &key, const QStringList &sources)
{
    auto *dialog = new ArtImportDialog(keysOnCurrentPage().contains(key) ? keysOnCurrentPage() : artTargetKeys(), key, &m_window);
    if (!sources.isEmpty())
        dialog->setSources(sources);
    return dialog;
}

bool ArtImportCommand::importInto(const QString &key, const QStringList &sources)
{
    std::unique_ptr<ArtImportDialog> dialog(dialogFor(key, sources));
    if (dialog->exec() != QDialog::Accepted)
        return false;
    if (m_doc.currentThemeFile().isEmpty()) {
        const Result<bool> saved = m_commands.saveThemeAs();
        m_dialogs.show(saved.report());
        if (!saved || !*saved)
            return false;
    }
    QProgressDialog progress(tr("Importing the art..."), tr("Cancel"), 0, 1, &m_window);
    progress.setWindowTitle(ArtImportDialog::tr(caption));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    const ArtImportReport imported = importArt(m_doc, dialog->key(), dialog->sources(), dialog->options(),
                                               [&](qsizetype done, qsizetype total) {
        progress.setMaximum(int(total));
        progress.setValue(int(done));
        QApplication::processEvents();
        return !progress.wasCanceled();
    });
    progress.reset();
    m_dialogs.show(imported);
    if (!imported.imported)
        return false;
    m_window.statusBar()->showMessage(tr("Imported %1 files into %2")
                                          .arg(imported.files.size())
                                          .arg(QDir::toNativeSeparators(imported.folder)), 10000);
    m_window.checkTheme();
    return true;
}

bool ArtImportCommand::offerImport(const QString &key, const QString &path)
{
    if (!wantsImport(key, path))
        return false;
    const QString name = QFileInfo(path).fileName();
    const QString question =
        tr("The game reads %1 as numbered bitmap or JPEG frames (%2 is not the first of them: "
                       "its root would be cut from its name).\n\nImport it instead, as frames of the game's "
                       "size?").arg(artTarget(key)->label(), name);
    if (m_dialogs.askYesNo(ArtImportDialog::tr(caption), question) != Dialogs::Answer::Yes)
        return false;
    importInto(key, {path});
    return true;
}

bool ArtImportCommand::eventFilter(QObject *watched, QEvent *event)
{
    const auto row = m_dropRows.constFind(watched);
    if (row == m_dropRows.cend() || (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove
                                     && event->type() != QEvent::Drop))
        return QObject::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const QMimeData *mime = drop->mimeData();
    QStringList paths;
    for (const QUrl &url : mime ? mime->urls() : QList<QUrl>())
        paths << url.toLocalFile();
    const bool offered = !paths.isEmpty()
                         && std::all_of(paths.cbegin(), paths.cend(), [&](const QString &p) { return wantsImport(*row, p); })
                         && (paths.size() == 1 || artTarget(*row)->kind == FileKind::FrameSequence);
    if (!offered)
        return QObject::eventFilter(watched, event); // the row's own Browse takes it, or refuses it
    drop->acceptProposedAction();
    if (event->type() == QEvent::Drop) {
        const QString key = *row;
        // After the drop has ended: the dialog is modal.
        QMetaObject::invokeMethod(this, [this, key, paths] { importInto(key, paths); }, Qt::QueuedConnection);
    }
    return true;
}
