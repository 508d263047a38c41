// Start-up time of the editor against the plainest Qt window: each run is a fresh process that
// reports the moment its window first paints, then exits. Teardown is not start-up, so the clock
// stops at the paint. Prints the medians and the median of the round-by-round ratios.

#include "benchstats.h"
#include "document/themedocument.h"
#include "editor/buttonbinding.h"
#include "document/filecommands.h"
#include "editor/mainwindow.h"
#include "editor/previewbinding.h"
#include "editor/qtdialogs.h"
#include "sound/soundsystem.h"

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace {

// One system-wide clock, so parent and child readings compare.
qint64 monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

constexpr int runs = 15;
constexpr double target = 1.35;

/** Ends the application at the first paint event any widget receives. */
class FirstPaint : public QObject
{
protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            std::printf("%lld\n", static_cast<long long>(monotonicNs()));
            std::fflush(stdout);
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_seen = false;
};

int runChild(int argc, char *argv[], const QByteArray &mode)
{
    QApplication app(argc, argv);
    FirstPaint watcher;
    app.installEventFilter(&watcher);
    ThemeDocument doc;
    SoundSystem sound;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<QtDialogs> dialogs;
    std::unique_ptr<FileCommands> commands;
    if (mode == "editor") {
        // What the editor's main() builds before it shows the window.
        auto main = std::make_unique<MainWindow>(doc);
        dialogs = std::make_unique<QtDialogs>(main.get());
        commands = std::make_unique<FileCommands>(doc, *dialogs);
        new PreviewBinding(*main, doc, *dialogs);
        new ButtonBinding(*main, doc, *dialogs, sound, *commands);
        main->startUp();
        window = std::move(main);
    } else {
        window = std::make_unique<QWidget>();
        window->resize(500, 430);
        // The labelled baseline pays the first font load that any window with text pays.
        if (mode == "label")
            new QLabel(QStringLiteral("Stakko Theme Maker"), window.get());
    }
    window->show();
    return app.exec();
}

// Milliseconds from starting the child to its first paint, or -1 when the run failed.
double startUpMs(const QString &program, const QString &mode)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const qint64 started = monotonicNs();
    child.start(program, {QStringLiteral("--child"), mode});
    bool painted = false;
    const qint64 paintedAt = child.waitForFinished(60000) && child.exitCode() == 0
        ? child.readAllStandardOutput().trimmed().toLongLong(&painted)
        : 0;
    if (!painted) {
        std::fprintf(stderr, "%s run failed\n", qPrintable(mode));
        return -1;
    }
    return (paintedAt - started) / 1e6;
}


} // namespace

int main(int argc, char *argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--child") == 0)
        return runChild(argc, argv, QByteArray(argv[2]));

    QCoreApplication app(argc, argv);
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    const QString self = QCoreApplication::applicationFilePath();
    const QStringList modes{QStringLiteral("minimal"), QStringLiteral("label"), QStringLiteral("editor")};
    for (const QString &mode : modes)
        startUpMs(self, mode); // warm the file cache for all three
    // Round robin, so a busy moment of a shared machine falls on all three alike.
    std::vector<double> times[3];
    for (int run = 0; run < runs; ++run) {
        for (int m = 0; m < 3; ++m) {
            const double ms = startUpMs(self, modes[m]);
            if (ms < 0)
                return 1;
            times[m].push_back(ms);
        }
    }
    const double minimal = median(QList<double>(times[0].begin(), times[0].end()));
    const double labelled = median(QList<double>(times[1].begin(), times[1].end()));
    const double editor = median(QList<double>(times[2].begin(), times[2].end()));
    const double ratio = medianRatio(QList<double>(times[2].begin(), times[2].end()),
                                     QList<double>(times[0].begin(), times[0].end()));
    std::printf("start-up to first paint, median of %d: minimal window %.1f ms, editor %.1f ms\n", runs, minimal,
                editor);
    benchRow("start-up to first paint / minimal Qt window", ratio, target, "x");
    std::printf("ratio editor/window with one label: %.2f (%.1f ms)\n", editor / labelled, labelled);
    return 0;
}
