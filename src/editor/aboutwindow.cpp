// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/aboutwindow.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

const QString applicationTitle = QStringLiteral("Stakko Theme Maker");
const char *const credits[] = {
    QT_TRANSLATE_NOOP("AboutWindow", "Program code: the Stakko Theme Maker developers"),
    QT_TRANSLATE_NOOP("AboutWindow", "Splash art: the Stakko artists"),
};

QLabel *namedLabel(const char *name, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(QLatin1StringView(name));
    return label;
}

QFrame *rule(int index)
{
    auto *line = new QFrame;
    line->setObjectName(QStringLiteral("Line1(%1)").arg(index));
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

QString AboutWindow::versionLine()
{
    return tr("Version %1.%2.%3").arg(STAKKO_VERSION_MAJOR).arg(STAKKO_VERSION_MINOR).arg(STAKKO_VERSION_PATCH);
}

AboutWindow::AboutWindow(const QIcon &icon, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    setWindowTitle(tr("About %1").arg(applicationTitle));
    setWindowIcon(icon);

    auto *picture = namedLabel("picIcon", QString());
    picture->setPixmap(icon.pixmap(48, 48));
    picture->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    QLabel *title = namedLabel("lblTitle", applicationTitle);
    QFont titleFont = title->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    titleFont.setBold(true);
    title->setFont(titleFont);

    QStringList creditLines;
    for (const char *line : credits)
        creditLines << tr(line);
    QLabel *description = namedLabel("lblDescription", creditLines.join(QLatin1Char('\n')));

    const QString address = QStringLiteral(STAKKO_WEB_ADDRESS);
    QLabel *link = namedLabel("lblLink", QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()));
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    link->setCursor(Qt::PointingHandCursor);
    // A missing browser is not the author's problem: the result is ignored on purpose.
    connect(link, &QLabel::linkActivated, this, [](const QString &url) { QDesktopServices::openUrl(QUrl(url)); });

    auto *ok = new QPushButton(tr("OK"));
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);

    auto *text = new QVBoxLayout;
    text->addWidget(title);
    text->addWidget(namedLabel("lblVersion", versionLine()));
    text->addWidget(rule(0));
    text->addWidget(description);
    text->addWidget(rule(1));
    QLabel *latest = namedLabel("lblLatest",
                                tr("For the latest version of Stakko and Stakko Theme Maker, visit:"));
    text->addWidget(latest);
    text->addWidget(link);
    // A build that names no web page leads nowhere rather than to an address nobody holds.
    latest->setVisible(!address.isEmpty());
    link->setVisible(!address.isEmpty());
    text->addSpacing(8);
    text->addWidget(ok, 0, Qt::AlignRight);

    auto *layout = new QGridLayout(this);
    layout->addWidget(picture, 0, 0);
    layout->addLayout(text, 0, 1);
    layout->setColumnMinimumWidth(0, 56);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
