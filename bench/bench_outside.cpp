// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor as the author sees it: the built stakko-theme-maker on a private X server, driven
// from outside with XTest clicks, its processor time read from /proc and the screen read back
// through Xlib, each figure beside a bare Qt program (bare-window) doing the same job in the
// same run. Where the editor's controls lie is learnt from the same window built here, on the
// same server, so the clicks follow the layout wherever it moves.

#include "benchstats.h"
#include "previewframes.h"
#include "theme/themefilewriter.h"
#include "editing/filecommands.h"
#include "editor/artimportdialog.h"
#include "editor/editorstyle.h"
#include "editor/mainwindow.h"
#include "editor/qtdialogs.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QTabBar>
#include <QTemporaryDir>
#include <QThread>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int stripFrames = 400;
constexpr int frameDelay = 40;
constexpr int measureSeconds = 10;

qint64 nowNs()
{
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return qint64(t.tv_sec) * 1000000000 + t.tv_nsec;
}

void sleepMs(int ms)
{
    QThread::msleep(ulong(ms));
}

/** A child process, started with \a env added to ours in \a folder; ended with SIGTERM. */
class Child
{
public:
    Child(const QStringList &command, const QStringList &env, const QString &folder)
    {
        m_pid = fork();
        if (m_pid != 0)
            return;
        if (!folder.isEmpty() && chdir(QFile::encodeName(folder).constData()) != 0)
            _exit(127);
        for (const QString &setting : env)
            putenv(strdup(setting.toLocal8Bit().constData()));
        const int null = open("/dev/null", O_RDWR);
        dup2(null, 1);
        if (!qEnvironmentVariableIsSet("STAKKO_BENCH_CHILD_ERRORS"))
            dup2(null, 2);
        std::vector<QByteArray> bytes;
        for (const QString &part : command)
            bytes.push_back(QFile::encodeName(part));
        std::vector<char *> argv;
        for (QByteArray &part : bytes)
            argv.push_back(part.data());
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    ~Child()
    {
        if (m_pid <= 0)
            return;
        kill(m_pid, SIGTERM);
        for (int i = 0; i < 500 && waitpid(m_pid, nullptr, WNOHANG) == 0; ++i)
            sleepMs(10);
        if (waitpid(m_pid, nullptr, WNOHANG) == 0) {
            kill(m_pid, SIGKILL);
            waitpid(m_pid, nullptr, 0);
        }
    }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    pid_t pid() const { return m_pid; }
    bool running() const { return m_pid > 0 && waitpid(m_pid, nullptr, WNOHANG) == 0; }

private:
    pid_t m_pid = -1;
};

/** Processor time of every thread of \a pid in nanoseconds, from the scheduler's count. */
qint64 cpuNs(pid_t pid)
{
    qint64 total = 0;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile stat(tasks.filePath(task) + QStringLiteral("/schedstat"));
        if (stat.open(QIODevice::ReadOnly))
            total += stat.readAll().split(' ').value(0).toLongLong();
    }
    return total;
}

/** The fields of /proc/PID/stat after the command's closing parenthesis: state, ppid, ... */
QList<QByteArray> statFields(pid_t pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = stat.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

/** Processor time of \a pid in nanoseconds, threads that ended included; counted in clock ticks. */
qint64 processCpuNs(pid_t pid)
{
    const QList<QByteArray> fields = statFields(pid);
    return (fields.value(11).toLongLong() + fields.value(12).toLongLong()) * 1000000000 / sysconf(_SC_CLK_TCK);
}

/** Page faults \a pid has taken that needed no disk: fresh memory touched for the first time. */
qint64 minorFaults(pid_t pid)
{
    return statFields(pid).value(7).toLongLong();
}

/** Context switches of every thread of \a pid: how often it woke. */
qint64 wakeUps(pid_t pid)
{
    qint64 total = 0;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(tasks.filePath(task) + QStringLiteral("/status"));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("voluntary_ctxt_switches:") || line.startsWith("nonvoluntary_ctxt_switches:"))
                total += line.split('\t').last().trimmed().toLongLong();
        }
    }
    return total;
}

int threadCount(pid_t pid)
{
    return int(QDir(QStringLiteral("/proc/%1/task").arg(pid)).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

/** Waits (up to 20 s) until \a pid has used under 2 ms of processor time in 300 ms. */
void waitQuiet(pid_t pid)
{
    for (int i = 0; i < 66; ++i) {
        const qint64 before = cpuNs(pid);
        sleepMs(300);
        if (cpuNs(pid) - before < 2000000)
            return;
    }
}

/** The private X server and the client connection to it. */
class Server
{
public:
    /** Starts Xvfb on the first free display from \a first on (engineers' own lie below). */
    bool start(int first)
    {
        for (int number = first; number < first + 40; ++number) {
            if (startOn(number))
                return true;
        }
        return false;
    }
    /** Starts Xvfb on display \a number only. */
    bool startAlone(int number) { return startOn(number); }
    ~Server()
    {
        if (m_display)
            XCloseDisplay(m_display);
        if (m_pid > 0) {
            kill(m_pid, SIGTERM);
            waitpid(m_pid, nullptr, 0);
        }
    }
    QByteArray name() const { return m_name; }
    Display *display() const { return m_display; }

    /** Calls \a found with each viewable top-level window of process \a pid. */
    template<typename Found>
    void forEachWindow(pid_t pid, Found found) const
    {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        const Atom pidAtom = XInternAtom(m_display, "_NET_WM_PID", True);
        if (!pidAtom || !XQueryTree(m_display, DefaultRootWindow(m_display), &root, &parent, &children, &count))
            return;
        for (unsigned i = 0; i < count; ++i) {
            Atom type = 0;
            int format = 0;
            unsigned long items = 0, after = 0;
            unsigned char *data = nullptr;
            if (XGetWindowProperty(m_display, children[i], pidAtom, 0, 1, False, XA_CARDINAL, &type, &format, &items,
                                   &after, &data) != Success || !data)
                continue;
            const bool ours = items == 1 && pid_t(*reinterpret_cast<unsigned long *>(data)) == pid;
            XFree(data);
            XWindowAttributes attributes;
            if (ours && XGetWindowAttributes(m_display, children[i], &attributes)
                && attributes.map_state == IsViewable)
                found(children[i], attributes);
        }
        XFree(children);
    }

    /** The largest viewable top-level window of process \a pid; 0 while there is none. */
    Window windowOf(pid_t pid) const
    {
        Window best = 0;
        int bestArea = 0;
        forEachWindow(pid, [&](Window window, const XWindowAttributes &attributes) {
            if (attributes.width * attributes.height > bestArea) {
                best = window;
                bestArea = attributes.width * attributes.height;
            }
        });
        return best;
    }

    /** How many viewable top-level windows \a pid shows. */
    int windowCount(pid_t pid) const
    {
        int count = 0;
        forEachWindow(pid, [&count](Window, const XWindowAttributes &) { ++count; });
        return count;
    }

    /** Where (0, 0) of \a window lies on the screen. */
    QPoint origin(Window window) const
    {
        int x = 0, y = 0;
        Window child = 0;
        XTranslateCoordinates(m_display, window, DefaultRootWindow(m_display), 0, 0, &x, &y, &child);
        return {x, y};
    }

    /** The screen's pixels in \a area, as 0xRRGGBB values row by row. */
    QList<quint32> pixels(QRect area) const
    {
        QList<quint32> values;
        XImage *image = XGetImage(m_display, DefaultRootWindow(m_display), area.x(), area.y(), unsigned(area.width()),
                                  unsigned(area.height()), AllPlanes, ZPixmap);
        if (!image)
            return values;
        for (int y = 0; y < area.height(); ++y) {
            for (int x = 0; x < area.width(); ++x)
                values.append(quint32(XGetPixel(image, x, y)));
        }
        XDestroyImage(image);
        return values;
    }

    /** A click of the first button at \a at on the screen; returns when the server has it. */
    void click(QPoint at) const
    {
        XTestFakeMotionEvent(m_display, -1, at.x(), at.y(), 0);
        XTestFakeButtonEvent(m_display, 1, True, 0);
        XTestFakeButtonEvent(m_display, 1, False, 0);
        XSync(m_display, False);
    }

    void doubleClick(QPoint at) const
    {
        click(at);
        usleep(50000);
        click(at);
    }

    /**
     * Waits up to \a timeoutMs for a viewable window of \a pid whose middle is painted (the
     * root is black); returns the moment it was seen, or -1.
     */
    qint64 waitVisible(pid_t pid, int timeoutMs, Window *found = nullptr) const
    {
        const qint64 end = nowNs() + qint64(timeoutMs) * 1000000;
        while (nowNs() < end) {
            if (const Window window = windowOf(pid)) {
                XWindowAttributes attributes;
                XGetWindowAttributes(m_display, window, &attributes);
                const QPoint at = origin(window) + QPoint(attributes.width / 2, attributes.height / 2);
                if (pixels(QRect(at, QSize(1, 1))).value(0) != 0) {
                    if (found)
                        *found = window;
                    return nowNs();
                }
            }
            usleep(500);
        }
        return -1;
    }

private:
    // Xvfb on display \a number; false when that number is taken (the server ends at once).
    bool startOn(int number)
    {
        int pipeFds[2];
        if (pipe(pipeFds) != 0)
            return false;
        m_pid = fork();
        if (m_pid == 0) {
            close(pipeFds[0]);
            const int null = open("/dev/null", O_RDWR);
            dup2(null, 1);
            dup2(null, 2);
            const QByteArray fd = QByteArray::number(pipeFds[1]);
            const QByteArray name = ":" + QByteArray::number(number);
            execlp("Xvfb", "Xvfb", name.constData(), "-displayfd", fd.constData(), "-screen", "0", "1280x1024x24",
                   "-nolisten", "tcp", "-br", static_cast<char *>(nullptr));
            _exit(127);
        }
        close(pipeFds[1]);
        // The server writes the number and a new line apart, and ends if it cannot write both.
        QByteArray written;
        char c = 0;
        while (read(pipeFds[0], &c, 1) == 1 && c != '\n')
            written += c;
        close(pipeFds[0]);
        if (written.isEmpty()) {
            waitpid(m_pid, nullptr, 0);
            m_pid = -1;
            return false;
        }
        m_name = ":" + written;
        // The number comes a moment before the server takes connections.
        for (int tries = 0; tries < 500 && !m_display; ++tries, usleep(10000))
            m_display = XOpenDisplay(m_name.constData());
        return m_display && XTestQueryExtension(m_display, &m_unused, &m_unused, &m_unused, &m_unused);
    }

    pid_t m_pid = -1;
    QByteArray m_name;
    Display *m_display = nullptr;
    int m_unused = 0;
};

/** Where the clicks go, in window coordinates, learnt from the editor's window built here. */
struct Layout {
    QPoint backgroundTab;
    QPoint previewButton;
    QRect previewSurface;
};

std::optional<Layout> probeLayout()
{
    ThemeDocument doc;
    MainWindow window(doc);
    // What the editor's start adds to the pages: the import buttons beside Browse.
    QtDialogs dialogs(&window);
    FileCommands commands(doc, dialogs);
    new ArtImportCommand(window, doc, dialogs, commands);
    window.startUp();
    window.show();
    QApplication::processEvents();
    Layout layout;
    auto *tabs = window.findChild<QTabBar *>();
    for (int i = 0; tabs && i < tabs->count(); ++i) {
        if (tabs->tabText(i).remove(u'&') == u"Background")
            layout.backgroundTab = tabs->mapTo(&window, tabs->tabRect(i).center());
    }
    window.showPage(EditorPage::Background);
    QApplication::processEvents();
    auto *button = window.findChild<QWidget *>(QStringLiteral("cmdPreviewBG"));
    auto *surface = window.findChild<QWidget *>(QStringLiteral("picPreviewBG"));
    if (!tabs || layout.backgroundTab.isNull() || !button || !surface)
        return std::nullopt;
    layout.previewButton = button->mapTo(&window, button->rect().center());
    layout.previewSurface = QRect(surface->mapTo(&window, QPoint(0, 0)), QSize(192, 352));
    return layout;
}

struct Bench {
    Server &server;
    Layout layout;
    QString editor;
    QString bare;
    QString folder; // the frames and the theme
    QString homes;  // a fresh home for every child: what one run leaves, the next would show
    QByteArray display;

    QStringList env() const
    {
        static int children = 0;
        const QString home = QStringLiteral("%1/%2").arg(homes).arg(++children);
        QDir().mkpath(home);
        return {QStringLiteral("DISPLAY=") + QString::fromLatin1(display), QStringLiteral("QT_QPA_PLATFORM=xcb"),
                QStringLiteral("HOME=") + home, QStringLiteral("XDG_CONFIG_HOME=") + home + QStringLiteral("/config"),
                QStringLiteral("XDG_DATA_HOME=") + home + QStringLiteral("/data"),
                QStringLiteral("XDG_CACHE_HOME=") + home + QStringLiteral("/cache"),
                QStringLiteral("XDG_RUNTIME_DIR=") + home, QStringLiteral("SDL_DISKAUDIOFILE=/dev/null")};
    }

    QStringList editorCommand(bool withTheme) const
    {
        QStringList command{editor};
        if (withTheme)
            command << folder + QStringLiteral("/Frames.skt");
        return command;
    }

    // Milliseconds from starting \a command to its window on screen; -1 when it never showed.
    double startUpMs(const QStringList &command) const
    {
        const qint64 started = nowNs();
        Child child(command, env(), folder);
        const qint64 seen = server.waitVisible(child.pid(), 20000);
        return seen < 0 ? -1 : double(seen - started) / 1e6;
    }

    // An editor with the theme, its Background page showing, ready for the Preview click.
    bool openBackground(Child &child, Window *window) const
    {
        if (server.waitVisible(child.pid(), 20000, window) < 0)
            return false;
        waitQuiet(child.pid()); // the theme loads after the window shows, and the check runs
        server.click(server.origin(*window) + layout.backgroundTab);
        // A busy machine may take longer than any fixed wait to show the page.
        sleepMs(100);
        waitQuiet(child.pid());
        return true;
    }

    QRect surfaceOnScreen(Window window) const
    {
        return layout.previewSurface.translated(server.origin(window));
    }

    // Click on Preview to the first frame on screen, and to the whole strip built (the
    // loader's threads gone), in milliseconds.
    bool firstFrame(double *firstMs, double *wholeMs, double *cpuMs, double *faults) const
    {
        Child child(editorCommand(true), env(), folder);
        Window window = 0;
        if (!openBackground(child, &window))
            return false;
        const QRect probe(surfaceOnScreen(window).topLeft() + QPoint(90, 170), QSize(8, 8));
        const QList<quint32> before = server.pixels(probe);
        const int threads = threadCount(child.pid());
        const qint64 cpuBefore = processCpuNs(child.pid());
        const qint64 faultsBefore = minorFaults(child.pid());
        const qint64 clicked = nowNs();
        server.click(server.origin(window) + layout.previewButton);
        qint64 shown = -1;
        while (nowNs() - clicked < 20000000000LL) {
            if (server.pixels(probe) != before) {
                shown = nowNs();
                break;
            }
            usleep(200);
        }
        qint64 built = -1;
        if (shown >= 0) {
            waitThreadsBack(child.pid(), threads);
            if (threadCount(child.pid()) <= threads)
                built = nowNs();
        }
        // The loader's threads are gone: the process's total holds what they used.
        *cpuMs = double(processCpuNs(child.pid()) - cpuBefore) / 1e6;
        *faults = double(minorFaults(child.pid()) - faultsBefore);
        *firstMs = double(shown - clicked) / 1e6;
        *wholeMs = double(built - clicked) / 1e6;
        return shown >= 0 && built >= 0;
    }

    // Waits (up to a minute) until \a pid runs no more than \a threads threads: its loader is done.
    void waitThreadsBack(pid_t pid, int threads) const
    {
        const qint64 started = nowNs();
        // Every millisecond: looking more often would take the processor the loader is using.
        while (threadCount(pid) > threads && nowNs() - started < 60000000000LL)
            usleep(1000);
    }

    // The serial decode's wall time in milliseconds; \a cpuMs gets its processor time.
    double serialDecodeMs(double *cpuMs = nullptr) const
    {
        QElapsedTimer timer;
        timer.start();
        const auto threadCpuNs = [] {
            timespec t{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
            return qint64(t.tv_sec) * 1000000000 + t.tv_nsec;
        };
        const qint64 cpuBefore = threadCpuNs();
        QImage image;
        for (int n = 1; n <= stripFrames; ++n)
            QImageReader(QStringLiteral("%1/bg%2.bmp").arg(folder).arg(n)).read(&image);
        if (cpuMs)
            *cpuMs = double(threadCpuNs() - cpuBefore) / 1e6;
        return double(timer.nsecsElapsed()) / 1e6;
    }
};

// Shares of one core that \a a and \a b take over the same seconds, and their wake-ups a second.
void measureSide(pid_t a, pid_t b, double share[2], double wakes[2])
{
    const qint64 cpu[2] = {cpuNs(a), cpuNs(b)};
    const qint64 woke[2] = {wakeUps(a), wakeUps(b)};
    const qint64 started = nowNs();
    sleepMs(measureSeconds * 1000);
    const double wall = double(nowNs() - started);
    share[0] = double(cpuNs(a) - cpu[0]) / wall;
    share[1] = double(cpuNs(b) - cpu[1]) / wall;
    wakes[0] = double(wakeUps(a) - woke[0]) / (wall / 1e9);
    wakes[1] = double(wakeUps(b) - woke[1]) / (wall / 1e9);
}

// The machine's load average: figures taken while others compile say so beside them.
void printLoad(const char *when)
{
    QFile load(QStringLiteral("/proc/loadavg"));
    if (load.open(QIODevice::ReadOnly))
        std::printf("load average %s: %s\n", when, load.readAll().trimmed().constData());
}

} // namespace

int main(int argc, char **argv)
{
    printLoad("before");
    Server server;
    // STAKKO_BENCH_DISPLAY=N starts the server on display N alone, for a machine others share.
    const int display = qEnvironmentVariableIntValue("STAKKO_BENCH_DISPLAY");
    if (display > 0 ? !server.startAlone(display) : !server.start(55)) {
        std::fprintf(stderr, "no private X server (Xvfb with XTest) could be started\n");
        return 1;
    }
    qputenv("DISPLAY", server.name());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication app(argc, argv);
    // Measures named on the command line (start idle play closer click) run alone; none, all.
    const QStringList chosen = QApplication::arguments().mid(1);
    const auto wanted = [&chosen](const char *measure) {
        return chosen.isEmpty() || chosen.contains(QLatin1StringView(measure))
               || (QLatin1StringView(measure) == "play" && chosen.contains(QStringLiteral("closer")));
    };
    installEditorStyle();
    QTemporaryDir dir;
    dir.setAutoRemove(!qEnvironmentVariableIsSet("STAKKO_BENCH_KEEP"));
    const std::optional<Layout> layout = probeLayout();
    if (!dir.isValid() || !layout) {
        std::fprintf(stderr, "the editor's window could not be measured\n");
        return 1;
    }
    const QString home = dir.path() + QStringLiteral("/home");
    const QString frames = dir.path() + QStringLiteral("/frames");
    QDir().mkpath(home);
    QDir().mkpath(frames);
    writeFrames(frames, "bmp", stripFrames);
    // A theme as authors ship them: the frames in its resource package.
    QStringList packed{QStringLiteral("pack"), QStringLiteral("-o"), frames + QStringLiteral("/Frames.zip"),
                       QStringLiteral("--root"), frames};
    for (int n = 1; n <= stripFrames; ++n)
        packed << QStringLiteral("%1/bg%2.bmp").arg(frames).arg(n);
    QByteArray output;
    QString error;
    if (timedRun(QStringLiteral(STAKKO_CLI_PATH), packed, QProcessEnvironment::systemEnvironment(), &output) < 0
        || !(error = writeFramesTheme(frames, stripFrames).errorText()).isEmpty()
        || timedRun(QStringLiteral(STAKKO_CLI_PATH),
                    {QStringLiteral("set"), frames + QStringLiteral("/Frames.skt"), QStringLiteral("-s"),
                     QStringLiteral("bgdelaybetweenframes=%1").arg(frameDelay)},
                    QProcessEnvironment::systemEnvironment(), &output) < 0) {
        std::fprintf(stderr, "the theme could not be made: %s%s\n", output.constData(), qPrintable(error));
        return 1;
    }
    // Another build of the editor (one piece taken out) can stand in, to measure what the piece gains.
    const QString editorPath = qEnvironmentVariable("STAKKO_BENCH_EDITOR", QStringLiteral(STAKKO_EDITOR_PATH));
    Bench bench{server, *layout, editorPath, QStringLiteral(STAKKO_BARE_WINDOW), frames, home,
                server.name()};
    const QStringList bareLabel{bench.bare, QStringLiteral("label")};

    // Start-up, round by round so that a busy moment falls on both.
    constexpr int startRounds = 7;
    QList<double> editorStart, bareStart;
    for (int round = 0; wanted("start") && round <= startRounds; ++round) {
        const double editorMs = bench.startUpMs(bench.editorCommand(false));
        const double bareMs = bench.startUpMs(bareLabel);
        if (editorMs < 0 || bareMs < 0) {
            std::fprintf(stderr, "a window never showed\n");
            return 1;
        }
        if (round > 0) { // the first fills the file cache, for both
            editorStart.append(editorMs);
            bareStart.append(bareMs);
        }
    }
    if (wanted("start"))
        std::printf("start-up to a visible window, median of %d: editor %.1f ms, a QLabel window %.1f ms\n",
                    startRounds, median(editorStart), median(bareStart));
    // Idle: the editor with a theme loaded beside the label window, over the same seconds.
    double idle[2] = {}, idleWakes[2] = {};
    if (wanted("idle")) {
        Child editor(bench.editorCommand(true), bench.env(), frames);
        Child label(bareLabel, bench.env(), frames);
        if (server.waitVisible(editor.pid(), 20000) < 0 || server.waitVisible(label.pid(), 20000) < 0)
            return 1;
        waitQuiet(editor.pid()); // the theme's load and check, and the sound's opening, settle
        waitQuiet(label.pid());
        measureSide(editor.pid(), label.pid(), idle, idleWakes);
    }
    if (wanted("idle"))
        std::printf("idle %d s: editor %.3f%% of a core (%.1f wake-ups/s), a QLabel window %.3f%% (%.1f wake-ups/s)\n",
                measureSeconds, idle[0] * 100, idleWakes[0], idle[1] * 100, idleWakes[1]);

    // Playing: the background at its delay (a frame every delay + 1 ms) beside a QWidget
    // painting the same decoded frames from a QTimer at that period; then with the closer look
    // open beside the page's preview, against two such programs.
    double play[2] = {}, playWakes[2] = {}, closer[2] = {}, closerWakes[2] = {};
    bool changing = false, closerShown = false, editorEnded = false;
    if (wanted("play")) {
        const QStringList playerCommand{bench.bare, QStringLiteral("play"), frames, QString::number(stripFrames),
                                        QString::number(frameDelay + 1)};
        Child editor(bench.editorCommand(true), bench.env(), frames);
        Child player(playerCommand, bench.env(), frames);
        Window window = 0;
        if (!bench.openBackground(editor, &window))
            return 1;
        const int threads = threadCount(editor.pid());
        const QRect probe(bench.surfaceOnScreen(window).topLeft() + QPoint(90, 170), QSize(8, 8));
        const QList<quint32> still = server.pixels(probe);
        server.click(server.origin(window) + layout->previewButton);
        // The click lands when the editor gets to it: the first frame shows, then the strip is built.
        for (int i = 0; i < 20000 && server.pixels(probe) == still; ++i)
            usleep(1000);
        bench.waitThreadsBack(editor.pid(), threads);
        waitQuiet(player.pid()); // the bare player has decoded
        const QList<quint32> seen = server.pixels(probe);
        measureSide(editor.pid(), player.pid(), play, playWakes);
        editorEnded = !editor.running();
        changing = server.pixels(probe) != seen && !editorEnded;
        if (wanted("closer")) {
            Child second(playerCommand, bench.env(), frames);
            server.doubleClick(bench.surfaceOnScreen(window).center());
            for (int i = 0; i < 400 && !closerShown; ++i, sleepMs(10))
                closerShown = server.windowCount(editor.pid()) > 1;
            waitQuiet(second.pid());
            double bare[2] = {}, bareWakes[2] = {};
            const qint64 cpu = cpuNs(editor.pid());
            const qint64 woke = wakeUps(editor.pid());
            const qint64 started = nowNs();
            measureSide(player.pid(), second.pid(), bare, bareWakes);
            const double wall = double(nowNs() - started);
            closer[0] = double(cpuNs(editor.pid()) - cpu) / wall;
            closerWakes[0] = double(wakeUps(editor.pid()) - woke) / (wall / 1e9);
            closer[1] = bare[0] + bare[1];
            editorEnded = !editor.running();
            closerShown = closerShown && !editorEnded;
            closerWakes[1] = bareWakes[0] + bareWakes[1];
        }
    }
    if (wanted("play"))
        std::printf("playing %d frames at %d ms for %d s: editor %.2f%% of a core (%.1f wake-ups/s), bare Qt %.2f%% "
                    "(%.1f wake-ups/s)%s\n",
                    stripFrames, frameDelay, measureSeconds, play[0] * 100, playWakes[0], play[1] * 100, playWakes[1],
                    changing       ? ""
                    : editorEnded ? "; the editor ENDED"
                                  : "; the editor's preview did NOT change");
    if (wanted("closer"))
        std::printf("  with the closer look open: editor %.2f%% (%.1f wake-ups/s), two bare Qt players %.2f%% "
                    "(%.1f wake-ups/s)%s\n",
                    closer[0] * 100, closerWakes[0], closer[1] * 100, closerWakes[1],
                    closerShown ? "" : "; the closer look did NOT open");

    // Click to first frame, and to the whole strip, beside the serial decode of its files.
    constexpr int clickRounds = 5;
    QList<double> decode, decodeCpu, first, whole, clickCpu, clickFaults;
    if (wanted("click"))
        bench.serialDecodeMs();
    for (int round = 0; wanted("click") && round < clickRounds; ++round) {
        double firstMs = 0, wholeMs = 0, cpuMs = 0, faults = 0, decodeCpuMs = 0;
        decode.append(bench.serialDecodeMs(&decodeCpuMs));
        decodeCpu.append(decodeCpuMs);
        if (!bench.firstFrame(&firstMs, &wholeMs, &cpuMs, &faults)) {
            std::fprintf(stderr, "the preview never showed a frame\n");
            return 1;
        }
        first.append(firstMs);
        whole.append(wholeMs);
        clickCpu.append(cpuMs);
        clickFaults.append(faults);
    }
    if (wanted("click"))
        std::printf("Preview click of %d BMP frames, median of %d: first frame %.1f ms, whole strip %.1f ms, "
                    "serial QImageReader decode %.1f ms\n  the editor's processor time for it %.0f ms (the serial "
                    "decode's %.0f ms), %.0f page faults (counts a busy machine moves less than times)\n",
                    stripFrames, clickRounds, median(first), median(whole), median(decode), median(clickCpu),
                    median(decodeCpu), median(clickFaults));

    printLoad("after");
    if (wanted("idle"))
        benchRow("outside: idle editor, CPU of one core", idle[0] * 100, 0.1, "%");
    if (wanted("play"))
        benchRow("outside: playing at 40 ms / bare Qt painting", changing ? play[0] / play[1] : 99, 1.25, "x");
    if (wanted("closer"))
        benchRow("outside: page and closer look / two bare Qt", closerShown && changing ? closer[0] / closer[1] : 99, 1.25, "x");
    if (wanted("click")) {
        benchRow("outside: Preview click to first frame / serial decode", medianRatio(first, decode), 0.25, "x");
        benchRow("outside: Preview click to whole strip / serial decode", medianRatio(whole, decode), 0.65, "x");
    }
    if (wanted("start"))
        benchRow("outside: start-up to visible window / QLabel window", medianRatio(editorStart, bareStart), 1.25,
                 "x");
    return 0;
}
