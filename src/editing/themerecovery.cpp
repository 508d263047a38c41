// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/themerecovery.h"

#include "common/safefile.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// The names of the copies already shown to the author, one a line.
const QString announcedList = QStringLiteral(".announced");

QString cannotWrite(const QString &path, const QString &reason)
{
    return QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), reason);
}

} // namespace

QString ThemeRecovery::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovered");
}

ThemeRecovery::ThemeRecovery(const QString &folder)
    : m_folder(folder)
{
}

QString ThemeRecovery::keep(const ThemeDocument &doc, QString *error) const
{
    const auto fail = [error](const QString &why) {
        if (error)
            *error = why;
        return QString();
    };
    const QFileInfo folder(m_folder);
    if (!folder.isDir()
        && !(QDir().mkpath(folder.absolutePath())
             && QDir().mkdir(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)))
        return fail(QStringLiteral("Cannot create %1").arg(QDir::toNativeSeparators(m_folder)));

    QString base = QFileInfo(doc.currentThemeFile()).completeBaseName();
    if (base.isEmpty())
        base = QStringLiteral("Untitled");
    const QString stem = m_folder + u'/' + base + u' '
                         + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HHmmss"));

    // The name is claimed first, so a copy another editor kept in the same second stays whole.
    QString path;
    for (int n = 1; path.isEmpty(); ++n) {
        const QString candidate = n == 1 ? stem + QStringLiteral(".skt")
                                         : QStringLiteral("%1 (%2).skt").arg(stem).arg(n);
        QFile claim(candidate);
        if (claim.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
            path = candidate;
        else if (!claim.exists())
            return fail(cannotWrite(candidate, claim.errorString()));
    }
    if (const Result<void> written = writeThemeFile(doc, path); !written) {
        QFile::remove(path); // only the empty claim
        return fail(written.errorText());
    }
    return path;
}

Report ThemeRecovery::announce() const
{
    Report report;
    const QString listPath = m_folder + u'/' + announcedList;
    QStringList announced;
    QFile list(listPath);
    if (list.open(QIODevice::ReadOnly))
        announced = QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts);

    const QStringList copies =
        QDir(m_folder).entryList({QStringLiteral("*.skt")}, QDir::Files, QDir::Name);
    QStringList fresh;
    for (const QString &name : copies) {
        if (!announced.contains(name))
            fresh << QDir::toNativeSeparators(m_folder + u'/' + name);
    }
    if (fresh.isEmpty())
        return report;
    const QString text = QStringLiteral("Stakko Theme Maker was closed by the system with unsaved changes. "
                                        "They were kept in:\n%1\nLoad %2 to get them back.")
                             .arg(fresh.join(u'\n'), fresh.size() == 1 ? QStringLiteral("that file")
                                                                        : QStringLiteral("those files"));
    report.add({Problem::Severity::Information, text, {}, m_folder, {}, QStringLiteral("Unsaved Changes Kept")});

    // Only copies still there are remembered, so the list never outgrows the folder.
    const QByteArray bytes = copies.join(u'\n').toUtf8() + '\n';
    if (const Result<void> written = writeWholeFile(listPath, bytes); !written)
        report.error(cannotWrite(listPath, written.errorText()), {}, listPath);
    return report;
}
