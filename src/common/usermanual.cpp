// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/usermanual.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

bool holdsManual(const QString &folder)
{
    return QFileInfo(folder + QStringLiteral("/index.html")).isFile();
}

} // namespace

QString installedManualFolder(const QString &programFolder)
{
#ifdef STAKKO_MANUAL_INSTALLED
    return QDir::cleanPath(programFolder + u'/' + QStringLiteral(STAKKO_MANUAL_INSTALLED));
#else
    Q_UNUSED(programFolder);
    return {};
#endif
}

QString userManualFolder(const QString &programFolder)
{
    const QString installed = installedManualFolder(programFolder);
    if (!installed.isEmpty() && holdsManual(installed))
        return installed;
#ifdef STAKKO_MANUAL_BUILT
    if (const QString built = QStringLiteral(STAKKO_MANUAL_BUILT); holdsManual(built))
        return built;
#endif
    return {};
}

QUrl userManualUrl(const QString &page, const QString &section)
{
    const QString folder = userManualFolder(QCoreApplication::applicationDirPath());
    if (folder.isEmpty())
        return {};
    QUrl address = QUrl::fromLocalFile(folder + u'/' + page);
    if (!section.isEmpty())
        address.setFragment(section);
    return address;
}

QString problemCodeSection(const QString &code)
{
    return QStringLiteral("code-") + code;
}

QUrl problemCodeUrl(const QString &code)
{
    if (code.isEmpty())
        return {};
    return userManualUrl(checkingPage, problemCodeSection(code));
}
