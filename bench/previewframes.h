// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Shared by the preview benchmarks: frames that look like backgrounds and a background set up to play them.

#include "theme/themedocument.h"

#include <QImage>
#include <QList>
#include <QPainter>
#include <QString>

#include <algorithm>

inline double percentile(QList<double> values, double p)
{
    std::sort(values.begin(), values.end());
    const qsizetype at = std::min(values.size() - 1, qsizetype(p * double(values.size())));
    return values.at(at);
}

// Frames that look like backgrounds: a gradient with the frame number on it, so that JPEG
// and BMP decoding do realistic work.
inline void writeFrames(const QString &folder, const char *format, int count)
{
    for (int n = 1; n <= count; ++n) {
        QImage image(192, 352, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x)
                line[x] = qRgb((x + n) & 255, (y + 2 * n) & 255, (x * y / 64 + n) & 255);
        }
        QPainter(&image).drawText(20, 40, QString::number(n));
        image.save(QStringLiteral("%1/bg%2.%3").arg(folder).arg(n).arg(QLatin1StringView(format)),
                   format, 90);
    }
}

inline void configureBackground(ThemeDocument &doc, const QString &firstFrame, int count, int delay)
{
    doc.setNumber(u"bganimated", 1);
    doc.setText(u"bgimage", firstFrame);
    doc.setText(u"bgframecount", QString::number(count));
    doc.setText(u"bgstartingframe", QStringLiteral("1"));
    doc.setText(u"bgdelaybetweenframes", QString::number(delay));
}
