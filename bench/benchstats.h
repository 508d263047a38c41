// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themedocument.h"
#include "theme/themefilewriter.h"

#include <QColor>
#include <QElapsedTimer>
#include <QImage>
#include <QList>
#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

/** The middle of \a values; of an even count, the upper of the two middle ones. */
inline double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/** The median of the round-by-round ratios \a numerators[i] / \a denominators[i]. */
inline double medianRatio(const QList<double> &numerators, const QList<double> &denominators)
{
    QList<double> ratios;
    for (qsizetype i = 0; i < std::min(numerators.size(), denominators.size()); ++i)
        ratios.append(numerators.at(i) / denominators.at(i));
    return ratios.isEmpty() ? 0 : median(ratios);
}

/**
 * One row of the table make bench prints at the end: \a figure against its ceiling \a target,
 * both to two decimals, and judged as printed: a median a microsecond beyond 1.00 ms is 1.00 ms.
 * Returns whether the target is met; a missed one is slow, not a failure to run.
 */
inline bool benchRow(const char *measure, double figure, double target, const char *unit = "")
{
    const bool met = std::round(figure * 100) <= std::round(target * 100);
    std::printf("@row\t%s\t%.2f%s\t<= %.2f%s\t%s\n", measure, figure, unit, target, unit, met ? "OK" : "SLOW");
    std::fflush(stdout);
    return met;
}

/** Frames 192x352 that compress like drawn art: one colour each, with a band of noise that moves down. */
inline QStringList drawFrames(const QString &folder, int count)
{
    QRandomGenerator random(7);
    QStringList files;
    for (int n = 1; n <= count; ++n) {
        QImage frame(192, 352, QImage::Format_RGB888);
        frame.fill(QColor::fromHsv(n * 7 % 360, 150, 210));
        const int top = n * 3 % (frame.height() - 40);
        for (int y = top; y < top + 40; ++y)
            random.fillRange(reinterpret_cast<quint32 *>(frame.scanLine(y)), frame.width() * 3 / 4);
        files.append(folder + QStringLiteral("/bg%1.bmp").arg(n));
        frame.save(files.last(), "BMP");
    }
    return files;
}

/** Milliseconds one run of \a program took (its output in \a out); negative when it failed. */
inline double timedRun(const QString &program, const QStringList &args, const QProcessEnvironment &env,
                       QByteArray *out, const QString &folder = QString())
{
    QProcess process;
    process.setProcessEnvironment(env);
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    QElapsedTimer timer;
    timer.start();
    process.start(program, args);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return -1;
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    *out = process.readAllStandardOutput() + process.readAllStandardError();
    return ms;
}

/** Frames.skt in \a folder: a Type 1 theme whose background names \a count frames of Frames.zip. */
inline Result<QString> writeFramesTheme(const QString &folder, int count)
{
    ThemeDocument doc;
    doc.resetTheme();
    const QString frames = QString::number(count);
    for (const auto &[key, value] : {std::pair<const char *, QString>{"resourcefile", QStringLiteral("Frames.zip")},
                                     {"includebackground", QStringLiteral("1")}, {"bganimated", QStringLiteral("1")},
                                     {"bgfilename", QStringLiteral("bg")}, {"bgextension", QStringLiteral("bmp")},
                                     {"bgframecount", frames}})
        doc.setValue(ThemeDocument::requireIndex(QLatin1StringView(key)), value);
    const QString theme = folder + QStringLiteral("/Frames.skt");
    if (Result<void> written = writeThemeFile(doc, theme); !written)
        return written.takeReport();
    return theme;
}
