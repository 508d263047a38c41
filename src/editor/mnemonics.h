// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

class QMenu;
class QWidget;

/**
 * Accelerator letters: each caption of a group gets a letter no other caption of the group
 * uses, so Alt+letter reaches exactly one thing. A caption's own "&" is kept when its letter is
 * free; otherwise the letters of the caption are tried, the first letters of its words first.
 */
namespace Mnemonics {

/** The accelerator letter of \a caption, upper case, or a null character for none. */
QChar letterOf(const QString &caption);

/**
 * \a captions with one "&" each where a letter can be found: never one of \a taken, and one
 * of \a avoided only where no other letter is left. A caption left without a letter has none.
 */
QStringList assign(const QStringList &captions, const QString &taken, const QString &avoided = {});

/** Gives the items of \a menu letters of their own, keeping those they have where they can. */
void assignMenu(QMenu *menu);

/**
 * The labelled controls of \a scope that an accelerator reaches: check boxes and the labels of
 * controls that take the focus. Buttons keep their captions as they are (some captions are the
 * button's state, and repeated ones could not share a letter): Tab reaches them. Widgets inside
 * \a left (and \a left themselves) are not part of it.
 */
QList<QWidget *> captionedControls(QWidget *scope, const QList<QWidget *> &left = {});

/** The caption of a label or button, "&" marks and all. */
QString captionOf(const QWidget *control);

/** Gives \a controls (labels and buttons) letters of their own, as assign() gives them. */
void assignControls(const QList<QWidget *> &controls, const QString &taken, const QString &avoided = {});

} // namespace Mnemonics
