#pragma once

// Files as tests lay them out and read them back, and the bytes of hand-made file formats.

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <initializer_list>
#include <utility>

/** Writes \a bytes at \a path, making the folders in front; false when any step failed. */
inline bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

/** The bytes at \a path; "<missing>" when it cannot be read, so an empty file still differs. */
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/**
 * Everything below \a folder, sorted, with paths relative to it: a file as "path=content", a link
 * as "path@" (never followed) and an empty folder as "path/". Leftovers and stray writes show too.
 */
inline QStringList contentsBelow(const QString &folder)
{
    QStringList found;
    const auto all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    QDirIterator it(folder, all, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo entry = it.nextFileInfo();
        const QString name = QDir(folder).relativeFilePath(entry.filePath());
        if (entry.isSymLink())
            found.append(name + u'@');
        else if (!entry.isDir())
            found.append(name + u'=' + QString::fromUtf8(readFile(entry.filePath())));
        else if (QDir(entry.filePath()).isEmpty(all))
            found.append(name + u'/');
    }
    found.sort();
    return found;
}

/** Appends each (value, byte count) pair little-endian, as zip, wave and bitmap headers hold them. */
inline void putLittleEndian(QByteArray &out, std::initializer_list<std::pair<quint32, int>> fields)
{
    for (const auto &[value, size] : fields) {
        for (int i = 0; i < size; ++i)
            out.append(char((value >> (8 * i)) & 0xFF));
    }
}
