// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scratchfolder.h"

#include "fuzzsupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <vector>

ScratchFolder::ScratchFolder(const QString &prefix)
    : m_dir(QDir::tempPath() + u'/' + prefix + QStringLiteral("-XXXXXX"))
{
    require(m_dir.isValid(), QStringLiteral("no scratch folder: ") + m_dir.errorString());
    m_path = QFileInfo(m_dir.path()).canonicalFilePath();
    require(!m_path.isEmpty(), QStringLiteral("the scratch folder vanished: ") + m_dir.path());
    require(setenv("TMPDIR", QFile::encodeName(m_path).constData(), 1) == 0,
            QStringLiteral("TMPDIR could not be set"));
    require(QDir::tempPath() == m_path, QStringLiteral("QDir::tempPath() does not follow TMPDIR"));
}

QString ScratchFolder::write(const QString &name, const QByteArray &bytes) const
{
    const QString file = m_path + u'/' + name;
    QFile out(file);
    const bool written = out.open(QIODevice::WriteOnly | QIODevice::Truncate)
                         && out.write(bytes) == bytes.size() && out.flush();
    require(written, QStringLiteral("could not write %1: %2").arg(file, out.errorString()));
    out.close();
    require(out.error() == QFileDevice::NoError,
            QStringLiteral("could not close %1: %2").arg(file, out.errorString()));
    return file;
}

void ScratchFolder::clear() const
{
    const std::filesystem::path root(QFile::encodeName(m_path).toStdString());
    std::error_code failure;
    std::vector<std::filesystem::path> entries;
    for (std::filesystem::directory_iterator entry(root, failure), end; !failure && entry != end;
         entry.increment(failure))
        entries.push_back(entry->path());
    require(!failure, QStringLiteral("could not list %1: %2")
                          .arg(m_path, QString::fromStdString(failure.message())));
    for (const std::filesystem::path &entry : entries) {
        std::filesystem::remove_all(entry, failure);
        require(!failure, QStringLiteral("could not delete %1: %2")
                              .arg(QString::fromStdString(entry.string()),
                                   QString::fromStdString(failure.message())));
    }
}
