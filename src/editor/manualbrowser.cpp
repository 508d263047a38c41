// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/manualbrowser.h"

#include "common/usermanual.h"
#include "editor/qtdialogs.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>

void openUserManual(const QUrl &address, QWidget *parent)
{
    Report report;
    if (address.isEmpty()) {
        const QString folder = installedManualFolder(QCoreApplication::applicationDirPath());
        report.error(QCoreApplication::translate("ManualBrowser", "The Stakko Theme Maker Manual is not installed: %1 holds no manual.")
                         .arg(QDir::toNativeSeparators(folder)));
    } else if (!QDesktopServices::openUrl(address)) {
        report.error(QCoreApplication::translate("ManualBrowser", "No browser could open the Stakko Theme Maker Manual at %1.")
                         .arg(address.toDisplayString()));
    }
    QtDialogs(parent).show(report);
}
