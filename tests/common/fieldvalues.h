// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themedocument.h"

#include <QList>
#include <QPair>
#include <QString>

/** Field keys and the texts a test gives them, in the order they are set. */
using Fields = QList<QPair<QString, QString>>;

/** Sets each field as an edit would; "%DIR%" in a text stands for \a folder. */
inline void setFields(ThemeDocument &doc, const Fields &fields, const QString &folder = {})
{
    for (auto [key, value] : fields)
        doc.setValue(ThemeDocument::requireIndex(key), value.replace(QStringLiteral("%DIR%"), folder));
}
