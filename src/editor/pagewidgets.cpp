#include "editor/pagewidgets.h"

#include "document/themefields.h"
#include "editor/previewsurface.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QResource>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace PageWidgets {

namespace {

int boxHeight()
{
    static const int height = QLineEdit().sizeHint().height();
    return height;
}

} // namespace

QIcon editorIcon(const char *name)
{
    // Rows share their icon. The pixels are stored raw, so no image reader runs at start-up.
    static QHash<QByteArray, QIcon> made;
    QIcon &icon = made[QByteArray(name)];
    if (!icon.isNull())
        return icon;
    for (const char *suffix : {".rgba", "@2x.rgba"}) {
        const QResource resource(QStringLiteral(":/icons/") + QLatin1StringView(name) + QLatin1StringView(suffix));
        const QByteArray pixels = resource.uncompressedData();
        const int side = int(std::sqrt(double(pixels.size() / 4)));
        if (side == 0 || qsizetype(side) * side * 4 != pixels.size())
            continue;
        const QImage stored(reinterpret_cast<const uchar *>(pixels.constData()), side, side, side * 4,
                            QImage::Format_RGBA8888);
        // The conversion copies, so the pixmap does not point into the buffer that goes away here.
        icon.addPixmap(QPixmap::fromImage(stored.convertToFormat(QImage::Format_ARGB32_Premultiplied)));
    }
    Q_ASSERT_X(!icon.isNull(), "editorIcon", name);
    return icon;
}

QString fieldCaption(const char *control)
{
    const int index = fieldIndexOfControl(QLatin1StringView(control));
    Q_ASSERT_X(index >= 0, "fieldCaption", control);
    return QString::fromLatin1(themeFields()[size_t(index)].caption);
}

QLineEdit *lineEdit(const char *name)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(QLatin1StringView(name));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 16);
    return edit;
}

QLineEdit *derivedBox(const char *name)
{
    QLineEdit *edit = lineEdit(name);
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::NoFocus);
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    edit->setPalette(palette);
    return edit;
}

QLineEdit *numberBox(const char *name)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(QLatin1StringView(name));
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 6 + 12);
    return edit;
}

QCheckBox *fieldCheckBox(const char *name)
{
    auto *box = new QCheckBox(fieldCaption(name));
    box->setObjectName(QLatin1StringView(name));
    return box;
}

QPushButton *button(const QString &name, const QString &caption)
{
    auto *push = new QPushButton(caption);
    push->setObjectName(name);
    push->setAutoDefault(false);
    // As tall as a text box, so a row of box and buttons lines up and rows stay tight.
    push->setMaximumHeight(boxHeight());
    return push;
}

QToolButton *iconButton(const QString &name, const char *icon, const QString &toolTip)
{
    auto *tool = new QToolButton;
    tool->setObjectName(name);
    tool->setIcon(editorIcon(icon));
    tool->setToolTip(toolTip);
    tool->setAutoRaise(false);
    tool->setMaximumHeight(boxHeight());
    return tool;
}

QGroupBox *frame(const char *name, const QString &caption)
{
    auto *box = new QGroupBox(caption);
    box->setObjectName(QLatin1StringView(name));
    return box;
}

QLabel *label(const QString &text, QWidget *buddy)
{
    auto *caption = new QLabel(text);
    if (buddy)
        caption->setBuddy(buddy);
    return caption;
}

QWidget *stillImageBox(const char *boxName, const char *displayName, QSize area)
{
    auto *box = new QFrame;
    box->setObjectName(QLatin1StringView(boxName));
    box->setFrameShape(QFrame::StyledPanel);
    box->setFrameShadow(QFrame::Sunken);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(new PreviewSurface(QLatin1StringView(displayName), area, PreviewSurface::Mode::Stretch));
    return box;
}

QWidget *dataSetRow(const char *selectorName)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *selector = new QComboBox;
    selector->setObjectName(QLatin1StringView(selectorName));
    layout->addWidget(label(QStringLiteral("Data Set to Edit:"), selector));
    layout->addWidget(selector);
    layout->addStretch(1);
    return row;
}

QWidget *dataSetPage(const char *panel, const char *selector, std::initializer_list<QWidget *> includeBoxes,
                     std::initializer_list<QWidget *> frames, QWidget *side)
{
    auto *page = new QWidget;
    page->setObjectName(QLatin1StringView(panel));
    auto *grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->addWidget(dataSetRow(selector), 0, 0);
    for (QWidget *box : includeBoxes)
        grid->addWidget(box, 0, 1);
    for (QWidget *f : frames)
        grid->addWidget(f, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    if (side)
        grid->addWidget(side, 0, 2, 2, 1, Qt::AlignTop);
    return page;
}

void compact(QGridLayout *grid)
{
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(6);
}

namespace {

void addFormRow(QGridLayout *grid, QWidget *field, const char *control)
{
    const int row = grid->rowCount();
    grid->addWidget(label(fieldCaption(control), field), row, 0);
    grid->addWidget(field, row, 1, Qt::AlignLeft);
}

QGroupBox *animationSettings(const AnimatedFrameSpec &row)
{
    QGroupBox *settings = frame(row.aniFrame, QStringLiteral("Animation Configuration"));
    auto *grid = new QGridLayout(settings);
    compact(grid);
    for (const char *control : {row.number, row.start, row.still, row.delay}) {
        if (control)
            addFormRow(grid, numberBox(control), control);
    }
    if (row.reverse)
        grid->addWidget(fieldCheckBox(row.reverse), grid->rowCount(), 0, 1, 2);
    grid->setColumnStretch(2, 1);
    return settings;
}

QGroupBox *previewFrame(const AnimatedFrameSpec &row)
{
    QGroupBox *box = frame(row.previewFrame, QStringLiteral("Preview"));
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->addWidget(new PreviewSurface(QLatin1StringView(row.surface), row.surfaceArea,
                                         PreviewSurface::Mode::Natural),
                      0, Qt::AlignCenter);
    return box;
}

} // namespace

QGroupBox *animatedFrame(const AnimatedFrameSpec &row)
{
    QGroupBox *box = frame(row.frame, QString::fromLatin1(row.caption));

    auto *fields = new QGridLayout;
    compact(fields);
    QLineEdit *image = lineEdit(row.image);
    fields->addWidget(label(fieldCaption(row.image), image), 0, 0, 1, 2);
    fields->addWidget(image, 1, 0, 1, 2);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(button(QLatin1StringView(row.browse), QStringLiteral("Browse")));
    buttons->addWidget(button(QLatin1StringView(row.preview), QStringLiteral("Preview")));
    buttons->addStretch(1);
    fields->addLayout(buttons, 2, 0, 1, 2);
    addFormRow(fields, derivedBox(row.root), row.root);
    addFormRow(fields, derivedBox(row.extension), row.extension);
    for (const char *control : row.switches) {
        if (control)
            fields->addWidget(fieldCheckBox(control), fields->rowCount(), 0, 1, 2);
    }
    if (row.transparency)
        fields->addWidget(fieldCheckBox(row.transparency), fields->rowCount(), 0, 1, 2);
    fields->setColumnStretch(1, 1);
    fields->setRowStretch(fields->rowCount(), 1);

    // Side by side: a frame is only as tall as its longest column.
    auto *columns = new QHBoxLayout(box);
    columns->addLayout(fields, 1);
    columns->addWidget(animationSettings(row), 0, Qt::AlignTop);
    if (row.previewFrame)
        columns->addWidget(previewFrame(row), 0, Qt::AlignTop);
    return box;
}

} // namespace PageWidgets
