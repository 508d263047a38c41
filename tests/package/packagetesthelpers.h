#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace PackageTest {

/**
 * A scratch folder whose "tmp" sub-folder stands in for the system temporary folder while
 * the object lives, so package folders never land in the real one.
 */
class ScratchFolder
{
public:
    ScratchFolder() : m_realTemp(qgetenv("TMPDIR"))
    {
        QDir().mkpath(temp());
        qputenv("TMPDIR", QFile::encodeName(temp()));
    }
    ~ScratchFolder() { qputenv("TMPDIR", m_realTemp); }

    bool isValid() const { return m_dir.isValid() && QDir::tempPath() == temp(); }
    QString path() const { return m_dir.path(); }
    QString file(const QString &relative) const { return m_dir.filePath(relative); }
    QString temp() const { return m_dir.filePath(QStringLiteral("tmp")); }

private:
    QTemporaryDir m_dir;
    QByteArray m_realTemp;
};

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/** Every file and link below \a folder, relative and sorted; leftovers show up here too. */
inline QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        found.append(QDir(folder).relativeFilePath(it.next()));
    found.sort();
    return found;
}

} // namespace PackageTest
