// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QSet>

#include <functional>

namespace Mnemonics {

namespace {

bool isLetter(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

/** The caption without its accelerator marks ("&&" stays a literal "&"). */
QString plain(const QString &caption)
{
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption.at(i) == u'&' && i + 1 < caption.size())
            ++i;
        text += caption.at(i);
    }
    return text;
}

/** Positions in \a text of the letters to try, best first: the own mark, word starts, the rest. */
QList<qsizetype> candidates(const QString &caption, const QString &text)
{
    QList<qsizetype> order;
    const QChar own = letterOf(caption);
    const auto add = [&](qsizetype at) {
        for (qsizetype known : std::as_const(order)) {
            if (text.at(known).toUpper() == text.at(at).toUpper())
                return;
        }
        order.append(at);
    };
    if (!own.isNull()) {
        // The mark's place in the plain text: letters before it keep their count.
        qsizetype plainAt = 0;
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (caption.at(i) == u'&' && i + 1 < caption.size()) {
                if (caption.at(i + 1) != u'&') {
                    add(plainAt);
                    break;
                }
                ++i;
            }
            ++plainAt;
        }
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isLetter(text.at(i)) && (i == 0 || !text.at(i - 1).isLetterOrNumber()))
            add(i);
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isLetter(text.at(i)))
            add(i);
    }
    return order;
}

QString escaped(QString text)
{
    return text.replace(QStringLiteral("&"), QStringLiteral("&&"));
}

} // namespace

QChar letterOf(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) == u'&') {
            ++i;
            continue;
        }
        return isLetter(caption.at(i + 1)) ? caption.at(i + 1).toUpper() : QChar();
    }
    return {};
}

QStringList assign(const QStringList &captions, const QString &taken, const QString &avoided)
{
    QStringList texts;
    QList<QList<qsizetype>> options;
    for (const QString &caption : captions) {
        texts.append(plain(caption));
        options.append(candidates(caption, texts.last()));
    }
    // A matching of captions to letters (Kuhn's augmenting paths), so that one caption's
    // choice never leaves another without a letter it could have had.
    QList<qsizetype> chosen(captions.size(), -1); // position in the caption's text
    QHash<QChar, int> owner;
    const auto letter = [&](int item, qsizetype at) { return texts.at(item).at(at).toUpper(); };
    const auto allowed = [&](QChar c, bool avoidedToo) {
        return !taken.contains(c, Qt::CaseInsensitive) && (avoidedToo || !avoided.contains(c, Qt::CaseInsensitive));
    };
    std::function<bool(int, bool, QSet<QChar> &)> place = [&](int item, bool avoidedToo, QSet<QChar> &seen) {
        // A free letter in the caption's own order first; only then one moved from another caption.
        for (const qsizetype at : options.at(item)) {
            const QChar c = letter(item, at);
            if (allowed(c, avoidedToo) && !owner.contains(c)) {
                owner.insert(c, item);
                chosen[item] = at;
                return true;
            }
        }
        for (const qsizetype at : options.at(item)) {
            const QChar c = letter(item, at);
            if (!allowed(c, avoidedToo) || seen.contains(c))
                continue;
            seen.insert(c);
            if (place(owner.value(c), avoidedToo, seen)) {
                owner.insert(c, item);
                chosen[item] = at;
                return true;
            }
        }
        return false;
    };
    for (const bool avoidedToo : {false, true}) {
        for (int item = 0; item < captions.size(); ++item) {
            QSet<QChar> seen;
            if (chosen.at(item) < 0)
                place(item, avoidedToo, seen);
        }
    }

    QStringList result;
    for (int item = 0; item < captions.size(); ++item) {
        const QString &text = texts.at(item);
        const qsizetype at = chosen.at(item);
        result.append(at < 0 ? escaped(text) : escaped(text.left(at)) + u'&' + escaped(text.mid(at)));
    }
    return result;
}

void assignMenu(QMenu *menu)
{
    QList<QAction *> items;
    QStringList captions;
    for (QAction *action : menu->actions()) {
        if (action->isSeparator() || action->text().isEmpty())
            continue;
        items.append(action);
        captions.append(action->text());
    }
    const QStringList given = assign(captions, {});
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i)->text() != given.at(i))
            items.at(i)->setText(given.at(i));
    }
}

QList<QWidget *> captionedControls(QWidget *scope, const QList<QWidget *> &left)
{
    const auto inLeft = [&left](const QWidget *w) {
        for (const QWidget *out : left) {
            if (out == w || out->isAncestorOf(w))
                return true;
        }
        return false;
    };
    QList<QWidget *> controls;
    for (QWidget *w : scope->findChildren<QWidget *>()) {
        if (inLeft(w))
            continue;
        if (auto *label = qobject_cast<QLabel *>(w)) {
            if (label->buddy() && label->buddy()->focusPolicy() != Qt::NoFocus)
                controls.append(label);
        } else if (auto *box = qobject_cast<QCheckBox *>(w)) {
            controls.append(box);
        }
    }
    return controls;
}

QString captionOf(const QWidget *control)
{
    if (const auto *label = qobject_cast<const QLabel *>(control))
        return label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        return button->text();
    return {};
}

void assignControls(const QList<QWidget *> &controls, const QString &taken, const QString &avoided)
{
    QStringList captions;
    for (const QWidget *w : controls)
        captions.append(captionOf(w));
    const QStringList given = assign(captions, taken, avoided);
    for (qsizetype i = 0; i < controls.size(); ++i) {
        if (auto *label = qobject_cast<QLabel *>(controls.at(i)))
            label->setText(given.at(i));
        else if (auto *button = qobject_cast<QAbstractButton *>(controls.at(i)))
            button->setText(given.at(i));
    }
}

} // namespace Mnemonics
