// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Start-up time of the editor against the plainest Qt window (a program of its own, linked to Qt
// Widgets alone): each run is a fresh process that reports the moment its window first paints,
// then exits. Teardown is not start-up, so the clock stops at the paint. Prints the medians and
// the median of the round-by-round ratios.

#include "benchstats.h"
#include "firstpaint.h"
#include "theme/themedocument.h"
#include "editor/buttonbinding.h"
#include "editor/editorstyle.h"
#include "editing/filecommands.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/qtdialogs.h"
#include "sound/soundsystem.h"

#include <QApplication>
#include <QProcess>

#include <utility>

namespace {

constexpr int runs = 15;
constexpr double target = 1.35;

int runEditor(int argc, char *argv[])
{
    QApplication app(argc, argv);
    FirstPaint watcher;
    app.installEventFilter(&watcher);
    installEditorStyle();
    ThemeDocument doc;
    SoundSystem sound;
    // What the editor's main() builds before it shows the window.
    MainWindow window(doc);
    QtDialogs dialogs(&window);
    FileCommands commands(doc, dialogs);
    new PreviewBinding(window, doc, dialogs);
    new ButtonBinding(window, doc, dialogs, sound, commands);
    window.startUp();
    window.show();
    return app.exec();
}

// Milliseconds from starting \a program to its first paint, or -1 when the run failed.
double startUpMs(const QString &program, const QStringList &arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const qint64 started = monotonicNs();
    child.start(program, arguments);
    bool painted = false;
    const qint64 paintedAt = child.waitForFinished(60000) && child.exitCode() == 0
        ? child.readAllStandardOutput().trimmed().toLongLong(&painted)
        : 0;
    if (!painted) {
        std::fprintf(stderr, "%s run failed\n", qPrintable((QStringList(program) + arguments).join(u' ')));
        return -1;
    }
    return (paintedAt - started) / 1e6;
}


} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2 && qstrcmp(argv[1], "--editor") == 0)
        return runEditor(argc, argv);

    QCoreApplication app(argc, argv);
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    const QString plain = QStringLiteral(STAKKO_MINIMAL_WINDOW);
    const std::pair<QString, QStringList> children[] = {
        {plain, {}}, {plain, {QStringLiteral("label")}}, {QCoreApplication::applicationFilePath(), {QStringLiteral("--editor")}}};
    for (const auto &[program, arguments] : children)
        startUpMs(program, arguments); // warm the file cache for all three
    // Round robin, so a busy moment of a shared machine falls on all three alike.
    QList<double> times[3];
    for (int run = 0; run < runs; ++run) {
        for (int c = 0; c < 3; ++c) {
            const double ms = startUpMs(children[c].first, children[c].second);
            if (ms < 0)
                return 1;
            times[c].append(ms);
        }
    }
    const auto &[minimal, labelled, editor] = times;
    std::printf("start-up to first paint, median of %d: minimal window %.1f ms, with one label %.1f ms, editor %.1f ms\n",
                runs, median(minimal), median(labelled), median(editor));
    benchRow("start-up to first paint / minimal Qt window", medianRatio(editor, minimal), target, "x");
    // Any window with text first loads the fonts: this one shows what the editor adds to that.
    benchRow("start-up to first paint / window with one label", medianRatio(editor, labelled), target, "x");
    return 0;
}
