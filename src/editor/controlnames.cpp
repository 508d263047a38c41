// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/controlnames.h"

namespace {

// A field without a control name of its own sits on a row list that names its edits.
QString controlOf(const FieldSpec &field)
{
    if (field.control)
        return QString::fromLatin1(field.control);
    for (const RowControls &rows : {miscImageRows, colorRows}) {
        for (size_t row = 0; row < rows.keys.size(); ++row) {
            if (qstrcmp(rows.keys[row], field.key) == 0)
                return rowControl(rows.edit, int(row));
        }
    }
    qFatal("no control edits field %s", field.key);
}

} // namespace

const QStringList &fieldControls()
{
    static const QStringList controls = [] {
        QStringList names;
        for (const FieldSpec &field : themeFields())
            names.append(controlOf(field));
        return names;
    }();
    return controls;
}

QString fieldControl(QAnyStringView key)
{
    const FieldSpec &field = fieldSpec(key); // a misspelt key stops here
    return fieldControls().at(&field - themeFields().data());
}

QString rowControl(const char *name, int row)
{
    return QStringLiteral("%1(%2)").arg(QLatin1StringView(name)).arg(row);
}
