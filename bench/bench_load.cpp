// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Loading a theme: the whole `stakko-theme dump` of a Type 1 theme whose package holds 400
// background frames, against `unzip -o -q` of the same package; and the theme file alone.

#include "benchstats.h"

#include "common/scripteddialogs.h"
#include "theme/themedocument.h"
#include "theme/themesections.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"
#include "package/packagewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace {

double runMs(const QString &program, const QStringList &args, const QString &tmp)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TMPDIR"), tmp);
    p.setProcessEnvironment(env);
    p.setStandardOutputFile(QProcess::nullDevice());
    QElapsedTimer t;
    t.start();
    p.start(program, args);
    p.waitForFinished(-1);
    if (p.exitCode() != 0)
        std::fprintf(stderr, "%s failed: %s\n", qPrintable(program), p.readAllStandardError().constData());
    return t.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString art = dir.filePath(QStringLiteral("art"));
    QDir().mkpath(art);

    QStringList frames;
    for (int n = 1; n <= 400; ++n) {
        QImage image(192, 352, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(n % 360, 160, 200));
        QPainter painter(&image);
        painter.fillRect(n % 150, n % 300, 40, 40, Qt::black);
        painter.drawLine(0, n % 352, 191, 351 - n % 352);
        painter.end();
        frames.append(QStringLiteral("%1/bg%2.bmp").arg(art).arg(n));
        image.save(frames.last(), "BMP");
    }
    if (const Result<void> packed = writeResourcePackage(dir.filePath(QStringLiteral("Bench.zip")), frames, art); !packed) {
        std::fprintf(stderr, "%s\n", qPrintable(packed.errorText()));
        return 1;
    }

    ThemeDocument doc;
    doc.resetTheme();
    for (const ThemeSection &section : themeSections())
        doc.setNumber(section.include, 1);
    doc.setText(u"resourcefile", QStringLiteral("Bench.zip"));
    doc.setText(u"bgfilename", QStringLiteral("bg"));
    doc.setText(u"bgextension", QStringLiteral("bmp"));
    doc.setText(u"bgframecount", QStringLiteral("400"));
    for (const char *key : soundRowKeys)
        doc.setText(key, QStringLiteral("%1.wav").arg(QLatin1StringView(key)));
    const QString theme = dir.filePath(QStringLiteral("bench.skt"));
    if (!writeThemeFile(doc, theme))
        return 1;

    const QString cli = QStringLiteral(STAKKO_CLI_PATH);
    const QString tmp = dir.filePath(QStringLiteral("tmp"));
    QDir().mkpath(tmp);
    QList<double> dump, unzip;
    for (int i = 0; i < 15; ++i) { // a shared disk makes single rounds noisy
        dump.append(runMs(cli, {QStringLiteral("dump"), theme}, tmp));
        unzip.append(runMs(QStringLiteral("unzip"),
                           {QStringLiteral("-o"), QStringLiteral("-q"), dir.filePath(QStringLiteral("Bench.zip")),
                            QStringLiteral("-d"), dir.filePath(QStringLiteral("unzipped"))},
                           tmp));
    }
    std::printf("dump of a 400-frame Type 1 theme: %.1f ms; unzip -o -q: %.1f ms\n", median(dump), median(unzip));
    benchRow("theme load with its package / unzip -o -q", medianRatio(dump, unzip), 0.85, "x");

    // The theme file alone: a Type 0 file holding every section it can, no package to unpack.
    doc.setNumber(u"themetype", 0);
    doc.setText(u"skinfile", QStringLiteral("skin.bmp"));
    const QString plain = dir.filePath(QStringLiteral("plain.skt"));
    if (!writeThemeFile(doc, plain))
        return 1;
    QList<double> load;
    for (int i = 0; i < 200; ++i) {
        ThemeDocument target;
        ScriptedDialogs dialogs;
        QElapsedTimer t;
        t.start();
        loadThemeFile(target, plain, dialogs);
        load.append(t.nsecsElapsed() / 1e6);
    }
    benchRow("theme file alone: parse and load", median(load), 1.0, " ms");
    return 0;
}
