// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/referencedfiles.h"

#include "theme/animatedelement.h"

#include "common/numbertext.h"
#include "theme/themedocument.h"

#include <cmath>

namespace {

// The game counts frames in 16 bits: a larger count names no frame it could load.
QStringList frameFiles(const QString &root, const QString &extension, const QString &count)
{
    const std::optional<double> n = storedNumber(count);
    if (!n || *n < 1 || *n > 32767 || std::floor(*n) != *n)
        return {};
    QStringList files;
    for (int i = 1; i <= int(*n); ++i)
        files.append(root + QString::number(i) + u'.' + extension);
    return files;
}

} // namespace

QList<FileReference> referencedFiles(const ThemeDocument &doc)
{
    QList<FileReference> found;
    auto add = [&](const char *key, FileKind kind) {
        const QString name = doc.value(QLatin1StringView(key));
        const QStringList files = name.isEmpty() ? QStringList() : QStringList{name};
        found.append({QLatin1StringView(key), kind, name, {}, {}, files});
    };
    if (doc.number(FieldKey::themeType) == 1)
        add(FieldKey::resourceFile, FileKind::ResourcePackage);
    else if (!doc.value(FieldKey::skinFile).isEmpty())
        add(FieldKey::skinFile, FileKind::SkinFile);

    for (const ThemeSection &s : themeSections()) {
        if (!s.files || !isWritten(doc, s))
            continue;
        if (const AnimatedElement *e = animationOf(s)) {
            const QString root = doc.value(QLatin1StringView(e->rootField));
            const QString extension = doc.value(QLatin1StringView(e->extensionField));
            const QString count = doc.value(QLatin1StringView(e->frameCountField));
            found.append({QLatin1StringView(e->rootField), FileKind::FrameSequence, root, extension, count,
                          frameFiles(root, extension, count)});
            continue;
        }
        for (const FieldSpec &k : s.keys) {
            const bool empty = doc.value(QLatin1StringView(k.key)).isEmpty();
            if (fieldSpec(k.key).kind == FieldKind::Text && (k.rule != KeyRule::IfNotEmpty || !empty))
                add(k.key, *s.files);
        }
    }
    return found;
}
