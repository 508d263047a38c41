// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/pathlookup.h"

#include <QDir>
#include <QFileInfo>

qsizetype afterLastSeparator(const QString &path)
{
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1;
}

QString themeFilePath(const QString &folder, const QString &name)
{
#ifdef Q_OS_WIN
    const bool full = QDir::isAbsolutePath(name);
#else
    // Not QDir's test: a name starting with ":" is no Qt resource here.
    const bool full = name.startsWith(u'/');
#endif
    return full ? name : folder + name;
}

bool isAbsoluteThemePath(const QString &name)
{
    const auto separator = [](QChar c) { return c == u'/' || c == u'\\'; };
    if (!name.isEmpty() && separator(name.front()))
        return true;
    return name.size() >= 3 && name.at(0).isLetter() && name.at(0).unicode() < 128 && name.at(1) == u':'
        && separator(name.at(2));
}

QString resolveThemePath(const QString &path)
{
    QString normal = path;
#ifndef Q_OS_WIN
    normal.replace(u'\\', u'/');
#endif
    if (normal.isEmpty() || QFileInfo::exists(normal))
        return normal;

    const bool absolute = normal.startsWith(u'/');
    const QStringList parts = normal.split(u'/', Qt::KeepEmptyParts);
    QString found = absolute ? QStringLiteral("/") : QString();
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        if (part.isEmpty() || part == u"." || part == u"..") {
            if (!part.isEmpty())
                found += part + u'/';
            continue;
        }
        const QString candidate = found + part;
        if (QFileInfo::exists(candidate)) {
            found = candidate;
        } else {
            const QDir dir(found.isEmpty() ? QStringLiteral(".") : found);
            const QStringList entries = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                                      | QDir::NoDotAndDotDot);
            const auto match = std::find_if(entries.begin(), entries.end(), [&](const QString &e) {
                return e.compare(part, Qt::CaseInsensitive) == 0;
            });
            if (match == entries.end())
                return normal;
            found += *match;
        }
        if (i + 1 < parts.size())
            found += u'/';
    }
    return found;
}

bool leadsOutOfFolder(const QString &folder, const QString &name)
{
    if (isAbsoluteThemePath(name))
        return false;
    if (name.size() >= 2 && name.at(1) == u':' && name.at(0).isLetter() && name.at(0).unicode() < 128)
        return true;
    int depth = 0;
    for (const QString &part : QString(name).replace(u'\\', u'/').split(u'/', Qt::SkipEmptyParts)) {
        if (part == u".." && --depth < 0)
            return true;
        if (part != u"." && part != u"..")
            ++depth;
    }
    if (folder.isEmpty())
        return false;
    // Links: where the file really is must still lie below where the folder really is.
    const QString real = QFileInfo(resolveThemePath(folder + u'/' + name)).canonicalFilePath();
    const QString root = QFileInfo(folder).canonicalFilePath();
    if (real.isEmpty() || root.isEmpty())
        return false;
    return real != root && !real.startsWith(root.endsWith(u'/') ? root : root + u'/');
}
