// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themefields.h"

#include <QObject>
#include <QStringList>
#include <QUndoStack>

#include <array>
#include <optional>

class ThemeDocument;
class ThemeStep;

/**
 * The document's undo history. Every change made in one turn of the event loop is one step
 * (a Browse sets image, root and extension at once; a colour choice sets text and swatch), so
 * commands need not announce themselves. Typing in one field merges into one step until
 * another field or command intervenes. Undo and Redo write through the document like any
 * edit, so views follow and the dirty flag is set.
 */
class ThemeHistory : public QObject
{
    Q_OBJECT

public:
    explicit ThemeHistory(ThemeDocument &doc, QObject *parent = nullptr);
    ~ThemeHistory() override;

    QUndoStack &stack() { return m_stack; }

    /** The next change of field \a index is typed: it merges with typing just before in it. */
    void markTyped(int index) { m_typed = index; }
    /** Forgets every step, changes of this turn included: a theme just loaded or made anew. */
    void restart();

private:
    friend class ThemeStep;
    using Swatches = std::array<std::optional<quint32>, std::size(colorKeys)>;

    void recordField(int index);
    void recordSwatch(int index);
    ThemeStep &openStep();
    void closeStep();
    void resync();

    ThemeDocument &m_doc;
    QUndoStack m_stack;
    QStringList m_values;      // the document as the history last saw it
    Swatches m_swatches;
    ThemeStep *m_open = nullptr; // the changes of this turn, pushed when it ends
    int m_typed = -1;
    bool m_applying = false;
};
