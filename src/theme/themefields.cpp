// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themefields.h"

#include <QCoreApplication>

namespace {

constexpr std::span<const FieldSpec> fields = fieldtable::rows;

} // namespace

std::span<const FieldSpec> themeFields()
{
    return fields;
}

int fieldIndex(QAnyStringView key)
{
    for (int i = 0; i < int(fields.size()); ++i) {
        if (QAnyStringView::equal(key, QLatin1StringView(fields[i].key)))
            return i;
    }
    return -1;
}

const FieldSpec &fieldSpec(QAnyStringView key)
{
    const int index = fieldIndex(key);
    if (index < 0)
        qFatal("unknown field key %s", qPrintable(key.toString()));
    return fields[index];
}


QString fieldCaptionText(QAnyStringView key)
{
    const char *caption = fieldSpec(key).caption;
    return caption ? QCoreApplication::translate("FieldCaption", caption) : QString();
}

QString fieldLabel(int index)
{
    QString caption = fields[index].caption ? QCoreApplication::translate("FieldCaption", fields[index].caption) : QString();
    while (caption.endsWith(u':') || caption.endsWith(u' '))
        caption.chop(1);
    return caption.isEmpty() ? QString::fromLatin1(fields[index].key) : caption;
}
