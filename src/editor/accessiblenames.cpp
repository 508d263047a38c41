// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/accessiblenames.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QLabel>

namespace {

QString plain(const QString &caption)
{
    // Drops each accelerator mark; "&&" stands for one ampersand.
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] != u'&' || (i + 1 < caption.size() && caption[i + 1] == u'&'))
            text.append(caption[i]);
    }
    while (text.endsWith(u':') || text.endsWith(u'.') || text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString captionOf(const QAbstractButton *button)
{
    return plain(button->text().isEmpty() ? button->toolTip() : button->text());
}

/** The label nearest to the left of \a button in its grid row, or the frame around it. */
QString rowOf(QAbstractButton *button)
{
    for (QGridLayout *grid : button->parentWidget()->findChildren<QGridLayout *>()) {
        const int index = grid->indexOf(button);
        if (index < 0)
            continue;
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(index, &row, &column, &rows, &columns);
        for (int c = column - 1; c >= 0; --c) {
            QLayoutItem *item = grid->itemAtPosition(row, c);
            auto *label = item ? qobject_cast<QLabel *>(item->widget()) : nullptr;
            if (label && label->buddy())
                return plain(label->text());
        }
    }
    for (QWidget *w = button->parentWidget(); w; w = w->parentWidget()) {
        if (auto *frame = qobject_cast<QGroupBox *>(w))
            return plain(frame->title());
    }
    return {};
}

} // namespace

void nameRowButtons(QWidget *scope)
{
    const QList<QAbstractButton *> buttons = scope->findChildren<QAbstractButton *>();
    QHash<QString, int> seen;
    for (const QAbstractButton *button : buttons)
        ++seen[captionOf(button)];
    for (QAbstractButton *button : buttons) {
        const QString caption = captionOf(button);
        if (seen.value(caption) < 2 || !button->accessibleName().isEmpty())
            continue;
        const QString row = rowOf(button);
        if (row.isEmpty())
            continue;
        // The caption's verb carries the row: "Browse for Shield", "Play Shield", "Import Shield".
        // A Browse button is told by its name: its caption is in the author's language.
        const QString verb = caption.section(u' ', 0, 0);
        const bool browse = button->objectName().startsWith(QLatin1String("cmdBrowse")) && !button->text().isEmpty();
        button->setAccessibleName(browse ? QCoreApplication::translate("AccessibleNames", "Browse for %1").arg(row)
                                         : QCoreApplication::translate("AccessibleNames", "%1 %2", "a button's verb, then its row").arg(verb, row));
        if (button->toolTip().isEmpty())
            button->setToolTip(button->accessibleName());
    }
}
