// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/stillpreviews.h"

#include "common/pathlookup.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "theme/themeloader.h"
#include "preview/loadingsurface.h"

#include <QCoreApplication>

StillPreviews::StillPreviews(ThemeDocument &doc, LoadingSurface &loading, QObject *parent)
    : QObject(parent)
    , m_doc(doc)
    , m_loading(loading)
{
}

Report StillPreviews::showInterfaceScreenPreview(InterfaceRow row)
{
    Report report;
    const QString path = themeFilePath(m_doc.packageFolder(), m_doc.value(QString::fromLatin1(interfaceRowKeys[row])));
    m_loading.clear();
    if (!path.isEmpty() && !m_loading.load(path)) {
        report.error(QCoreApplication::translate("StillPreviews", "Unable to load image: %1").arg(path), QString::fromLatin1(interfaceRowKeys[row]), path);
        return report;
    }
    m_interfacePicture = m_loading.picture();
    emit interfacePictureChanged(m_interfacePicture);
    return report;
}

void StillPreviews::showMiscImagePreview(MiscImageRow row)
{
    m_loading.load(themeFilePath(m_doc.packageFolder(), m_doc.value(QString::fromLatin1(miscImageKeys[row]))));
    m_miscPicture = m_loading.picture();
    emit miscPictureChanged(m_miscPicture);
}

void StillPreviews::clear()
{
    m_interfacePicture = QImage();
    m_miscPicture = QImage();
    emit interfacePictureChanged(m_interfacePicture);
    emit miscPictureChanged(m_miscPicture);
}
