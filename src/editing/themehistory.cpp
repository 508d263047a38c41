// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/themehistory.h"

#include "theme/themedocument.h"

#include <QTimer>

/** One step: field and swatch changes in the order made, undone in reverse. */
class ThemeStep : public QUndoCommand
{
public:
    struct Change {
        int field = -1;  // -1: a swatch
        int swatch = -1;
        QString before, after;
        std::optional<quint32> swatchBefore, swatchAfter;
    };

    ThemeStep(ThemeHistory &history) : m_history(history) {}

    QList<Change> changes;
    int typedField = -1; // the one field typed into, or -1

    int id() const override { return typedField < 0 ? -1 : 1; }
    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *next = static_cast<const ThemeStep *>(other);
        if (next->typedField != typedField)
            return false;
        changes.last().after = next->changes.last().after;
        return true;
    }
    void undo() override { apply(true); }
    void redo() override
    {
        // Pushed after the change was made: the first redo has nothing to do.
        if (std::exchange(m_done, true))
            apply(false);
    }

private:
    void apply(bool back)
    {
        ThemeDocument &doc = m_history.m_doc;
        m_history.m_applying = true;
        for (qsizetype i = 0; i < changes.size(); ++i) {
            const Change &c = changes.at(back ? changes.size() - 1 - i : i);
            if (c.field >= 0) {
                doc.setValue(c.field, back ? c.before : c.after);
                m_history.m_values[c.field] = doc.value(c.field);
            } else {
                const auto value = back ? c.swatchBefore : c.swatchAfter;
                // A swatch never chosen has no value to go back to: white is what it shows.
                doc.setSwatch(c.swatch, value.value_or(0xFFFFFF));
                m_history.m_swatches[size_t(c.swatch)] = value;
            }
        }
        // Undo and Redo are edits of their own, even where a value ends as it was.
        doc.setDirty(true);
        m_history.m_applying = false;
    }

    ThemeHistory &m_history;
    bool m_done = false;
};

ThemeHistory::ThemeHistory(ThemeDocument &doc, QObject *parent)
    : QObject(parent)
    , m_doc(doc)
{
    resync();
    connect(&doc, &ThemeDocument::fieldChanged, this, &ThemeHistory::recordField);
    connect(&doc, &ThemeDocument::swatchChanged, this, &ThemeHistory::recordSwatch);
    connect(&doc, &ThemeDocument::themeReset, this, &ThemeHistory::restart);
}

ThemeHistory::~ThemeHistory()
{
    delete m_open;
}

void ThemeHistory::restart()
{
    delete std::exchange(m_open, nullptr);
    m_stack.clear();
    m_typed = -1;
    resync();
}

void ThemeHistory::resync()
{
    m_values.clear();
    for (int i = 0; i < int(themeFields().size()); ++i)
        m_values.append(m_doc.value(i));
    for (size_t i = 0; i < m_swatches.size(); ++i)
        m_swatches[i] = m_doc.swatch(int(i));
}

ThemeStep &ThemeHistory::openStep()
{
    if (!m_open) {
        m_open = new ThemeStep(*this);
        QTimer::singleShot(0, this, &ThemeHistory::closeStep);
    }
    return *m_open;
}

void ThemeHistory::recordField(int index)
{
    const QString now = m_doc.value(index);
    if (m_applying || m_values.at(index) == now)
        return;
    ThemeStep &step = openStep();
    const bool typed = std::exchange(m_typed, -1) == index;
    step.typedField = typed && step.changes.isEmpty() ? index : -1;
    step.changes.append({index, -1, m_values.at(index), now, {}, {}});
    if (step.text().isEmpty())
        step.setText(fieldLabel(index));
    m_values[index] = now;
}

void ThemeHistory::recordSwatch(int index)
{
    const auto now = m_doc.swatch(index);
    if (m_applying || m_swatches[size_t(index)] == now)
        return;
    ThemeStep &step = openStep();
    step.typedField = -1;
    step.changes.append({-1, index, {}, {}, m_swatches[size_t(index)], now});
    m_swatches[size_t(index)] = now;
}

void ThemeHistory::closeStep()
{
    if (!m_open)
        return;
    m_typed = -1;
    ThemeStep *step = std::exchange(m_open, nullptr);
    const std::optional<ColorRow> color = rowFromIndex<ColorRow>(step->changes.first().swatch);
    if (step->text().isEmpty() && color)
        step->setText(fieldLabel(fieldIndex(colorKeys[*color])));
    m_stack.push(step);
}
