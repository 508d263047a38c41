// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/framesettings.h"

#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "preview/framesequence.h"

#include <QCoreApplication>

Result<FrameSettings> readFrameSettings(const ThemeDocument &doc, const AnimatedElement &element)
{
    FrameSettings settings;
    Report report;
    // The field's number, or nothing after reporting it.
    const auto number = [&](const char *key, bool zeroAllowed, const char *message) {
        const auto value = parseAuthorNumber(doc.value(QLatin1StringView(key)));
        if (value && (zeroAllowed ? *value >= 0 : *value > 0))
            return value;
        report.error(QCoreApplication::translate("FrameSettings", message), QLatin1StringView(key));
        return std::optional<double>();
    };
    if (const auto count = number(element.frameCountField, false,
                                  QT_TRANSLATE_NOOP("FrameSettings", "Number of frames needs to be 1 or greater!")))
        settings.frameCount = *count;
    if (element.startingFrameField) {
        if (const auto start = number(element.startingFrameField, false,
                                      QT_TRANSLATE_NOOP("FrameSettings", "Starting frame needs to be 1 or greater!")))
            settings.startingFrame = frameNumber(*start);
    }
    if (const auto delay = number(element.delayField, true,
                                  QT_TRANSLATE_NOOP("FrameSettings", "Delay between frames needs to be 0 or greater!")))
        settings.delay = *delay;
    return Result<FrameSettings>(settings, std::move(report));
}
