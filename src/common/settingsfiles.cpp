// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/settingsfiles.h"

#include "common/platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

struct SettingsRow {
    const char *name;
    bool portable; // may live beside the program
};

// Indexed by SettingsFile.
constexpr SettingsRow settingsRows[] = {
    {"skm.ini", true},
    {"editor.ini", false},
};

const SettingsRow &rowOf(SettingsFile file)
{
    return settingsRows[int(file)];
}

QString pathIn(const QString &folder, SettingsFile file)
{
    return folder + u'/' + QLatin1StringView(rowOf(file).name);
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

bool besideProgram(SettingsFile file)
{
    if (!rowOf(file).portable)
        return false;
#ifdef STAKKO_INSTALLED_MARKER
    const QString installedMarker = QStringLiteral(STAKKO_INSTALLED_MARKER);
#else
    const QString installedMarker;
#endif
    return settingsBesideProgram(QCoreApplication::applicationDirPath(), installedMarker);
}

} // namespace

bool settingsBesideProgram(const QString &programFolder, const QString &installedMarker)
{
    const QFileInfo folder(programFolder);
    if (programFolder.isEmpty() || folder.isSymLink() || !folder.isDir() || !folder.isWritable())
        return false;
    // In a folder others may write to, they could plant a file or a link where ours goes.
    if (!Platform::ownedByCurrentUser(folder) || folder.permissions() & (QFile::WriteGroup | QFile::WriteOther))
        return false;
    return installedMarker.isEmpty() || !QFileInfo::exists(programFolder + u'/' + installedMarker);
}

QString settingsWritePath(SettingsFile file)
{
    if (besideProgram(file))
        return pathIn(QCoreApplication::applicationDirPath(), file);
    QDir().mkpath(userFolder());
    return pathIn(userFolder(), file);
}

QString settingsReadPath(SettingsFile file)
{
    const QString beside = pathIn(QCoreApplication::applicationDirPath(), file);
    if (besideProgram(file) && QFileInfo::exists(beside))
        return beside;
    const QString user = pathIn(userFolder(), file);
    if (QFileInfo::exists(user))
        return user;
    return settingsWritePath(file);
}
