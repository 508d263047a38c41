// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor as the author sees it: the built stakko-theme-maker on a private X server, driven
// from outside with XTest clicks, its processor time read from /proc and the screen read back
// through Xlib, each figure beside a bare Qt program (bare-window) doing the same job in the
// same run. Where the editor's controls lie is learnt from the same window built here, on the
// same server, so the clicks follow the layout wherever it moves.

#include "benchstats.h"
#include "previewframes.h"
#include "preview/framestrip.h"
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
#include <QHash>
#include <QImageReader>
#include <QPainter>
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
#include <numeric>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int stripFrames = 400;
constexpr int frameDelay = 40;
constexpr int idleSeconds = 10;
constexpr int playSeconds = 20;

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

// A virtual machine may hand freed memory back to its host (free page reporting, here about two
// seconds after it is freed); fresh memory then costs several times more (an 81 MB strip took
// 20 ms to clear while the host still backed it, 190 ms after). Each side builds its strip
// after this wait, so neither builds in pages the other has just let go.
void letFreedMemoryGo()
{
    sleepMs(3000);
}

/** In a child just forked: becomes \a command, found on the path; ends the child if it cannot. */
[[noreturn]] void become(QList<QByteArray> command)
{
    std::vector<char *> argv;
    for (QByteArray &part : command)
        argv.push_back(part.data());
    argv.push_back(nullptr);
    execvp(argv[0], argv.data());
    _exit(127);
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
        QList<QByteArray> bytes;
        for (const QString &part : command)
            bytes.append(QFile::encodeName(part));
        become(bytes);
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

/** What a thread has taken so far: processor time, and context switches (how often it woke). */
struct Taken {
    qint64 cpuNs = 0;
    qint64 wakes = 0;
};
using ThreadCounts = QHash<int, Taken>;

/** What each thread of \a pid has taken so far, by thread id. */
ThreadCounts threadCounts(pid_t pid)
{
    ThreadCounts counts;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile stat(tasks.filePath(task) + QStringLiteral("/schedstat"));
        QFile status(tasks.filePath(task) + QStringLiteral("/status"));
        if (!stat.open(QIODevice::ReadOnly) || !status.open(QIODevice::ReadOnly))
            continue;
        Taken &count = counts[task.toInt()];
        count.cpuNs = stat.readAll().split(' ').value(0).toLongLong();
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("voluntary_ctxt_switches:") || line.startsWith("nonvoluntary_ctxt_switches:"))
                count.wakes += line.split('\t').last().trimmed().toLongLong();
        }
    }
    return counts;
}

/** Processor time of every thread of \a pid in nanoseconds, from the scheduler's count. */
qint64 cpuNs(pid_t pid)
{
    qint64 total = 0;
    for (const Taken &count : threadCounts(pid))
        total += count.cpuNs;
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

/**
 * Keeps the X server and the programs drawing on it on one processor while it lives, then gives
 * the server back the processors it had. On a virtual machine, waking a process on another
 * virtual processor exits to the hypervisor, and that time is counted to the waker: whichever
 * player the scheduler happened to place away from the server paid 3 to 20 times its own cost.
 * On one processor the players are measured, not their placement.
 */
class OneProcessor
{
public:
    explicit OneProcessor(pid_t server)
        : m_server(server)
    {
        cpu_set_t own;
        CPU_ZERO(&m_serverSet);
        if (sched_getaffinity(0, sizeof own, &own) != 0 || sched_getaffinity(server, sizeof m_serverSet, &m_serverSet) != 0)
            return;
        for (int cpu = 0; cpu < CPU_SETSIZE && m_cpu < 0; ++cpu) {
            if (CPU_ISSET(cpu, &own))
                m_cpu = cpu;
        }
        add(server);
    }
    ~OneProcessor()
    {
        if (m_cpu >= 0)
            setEveryThread(m_server, m_serverSet);
    }
    OneProcessor(const OneProcessor &) = delete;
    OneProcessor &operator=(const OneProcessor &) = delete;
    /** Puts every thread of \a pid on the processor; threads it starts later inherit it. */
    void add(pid_t pid)
    {
        if (m_cpu < 0)
            return;
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(m_cpu, &one);
        setEveryThread(pid, one);
    }

private:
    static void setEveryThread(pid_t pid, const cpu_set_t &set)
    {
        const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
        for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            sched_setaffinity(task.toInt(), sizeof set, &set);
    }
    pid_t m_server;
    cpu_set_t m_serverSet;
    int m_cpu = -1;
};

/**
 * Starts \a command, with nothing to read and its output thrown away, "{fd}" in its arguments
 * standing for a pipe it writes one line to: that line goes to \a line. Returns the process,
 * or -1 when none started.
 */
pid_t startTelling(QList<QByteArray> command, QByteArray *line)
{
    int pipeFds[2];
    if (pipe(pipeFds) != 0)
        return -1;
    for (QByteArray &part : command)
        part.replace("{fd}", QByteArray::number(pipeFds[1]));
    const pid_t pid = fork();
    if (pid == 0) {
        close(pipeFds[0]);
        const int null = open("/dev/null", O_RDWR);
        for (int fd : {0, 1, 2})
            dup2(null, fd);
        become(command);
    }
    close(pipeFds[1]);
    char c = 0;
    while (pid > 0 && read(pipeFds[0], &c, 1) == 1 && c != '\n')
        *line += c;
    close(pipeFds[0]);
    return pid;
}

/**
 * A private session bus, as every author's desktop has: without one, a Qt program's first look
 * for it (the editor's menu bar asks for a global menu) forks the process to launch one, which
 * no author's start-up pays.
 */
class SessionBus
{
public:
    SessionBus()
        : m_pid(startTelling({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address={fd}"},
                             &m_address))
    {
    }
    ~SessionBus()
    {
        if (m_pid > 0) {
            kill(m_pid, SIGTERM);
            waitpid(m_pid, nullptr, 0);
        }
    }
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;
    /** Empty when dbus-daemon could not start. */
    QByteArray address() const { return m_address; }

private:
    QByteArray m_address; // before the process: its line is read as the process starts
    pid_t m_pid = -1;
};

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
    pid_t pid() const { return m_pid; }
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

    /** The process that put \a window up, as it says; 0 when it does not say. */
    pid_t pidOf(Window window) const
    {
        const Atom pidAtom = XInternAtom(m_display, "_NET_WM_PID", True);
        Atom type = 0;
        int format = 0;
        unsigned long items = 0, after = 0;
        unsigned char *data = nullptr;
        if (!pidAtom || XGetWindowProperty(m_display, window, pidAtom, 0, 1, False, XA_CARDINAL, &type, &format, &items,
                                           &after, &data) != Success || !data)
            return 0;
        const pid_t pid = items == 1 ? pid_t(*reinterpret_cast<unsigned long *>(data)) : 0;
        XFree(data);
        return pid;
    }

    /** Calls \a found with each viewable top-level window of process \a pid. */
    template<typename Found>
    void forEachWindow(pid_t pid, Found found) const
    {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        if (!XQueryTree(m_display, DefaultRootWindow(m_display), &root, &parent, &children, &count))
            return;
        for (unsigned i = 0; i < count; ++i) {
            XWindowAttributes attributes;
            if (pidOf(children[i]) == pid && XGetWindowAttributes(m_display, children[i], &attributes)
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

    /** The size of \a window; invalid when the server does not know it. */
    QSize size(Window window) const
    {
        XWindowAttributes attributes;
        return XGetWindowAttributes(m_display, window, &attributes) ? QSize(attributes.width, attributes.height) : QSize();
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
     * root is black); returns the moment it was seen, or -1. The window is learnt from the
     * server's notices of windows mapped: asking for every window's owner every half
     * millisecond kept the server answering while the program starting waited on it.
     */
    qint64 waitVisible(pid_t pid, int timeoutMs, Window *found = nullptr) const
    {
        const qint64 end = nowNs() + qint64(timeoutMs) * 1000000;
        Window window = windowOf(pid); // one already up
        while (nowNs() < end) {
            bool mapped = false;
            while (XPending(m_display)) {
                XEvent event;
                XNextEvent(m_display, &event);
                mapped = mapped || (event.type == MapNotify && pidOf(event.xmap.window) == pid);
            }
            if (mapped)
                window = windowOf(pid);
            XWindowAttributes attributes;
            if (window && XGetWindowAttributes(m_display, window, &attributes)) {
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
        // The server writes the number and a new line apart, and ends if it cannot write both.
        QByteArray written;
        m_pid = startTelling({"Xvfb", ":" + QByteArray::number(number), "-displayfd", "{fd}", "-screen", "0",
                              "1280x1024x24", "-nolisten", "tcp", "-br"},
                             &written);
        if (written.isEmpty()) {
            if (m_pid > 0)
                waitpid(m_pid, nullptr, 0);
            m_pid = -1;
            return false;
        }
        m_name = ":" + written;
        // The number comes a moment before the server takes connections.
        for (int tries = 0; tries < 500 && !m_display; ++tries, usleep(10000))
            m_display = XOpenDisplay(m_name.constData());
        if (!m_display || !XTestQueryExtension(m_display, &m_unused, &m_unused, &m_unused, &m_unused))
            return false;
        XSelectInput(m_display, DefaultRootWindow(m_display), SubstructureNotifyMask); // for waitVisible()
        return true;
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
    QByteArray bus;

    QStringList env() const
    {
        static int children = 0;
        const QString home = QStringLiteral("%1/%2").arg(homes).arg(++children);
        QDir().mkpath(home);
        return {QStringLiteral("DISPLAY=") + QString::fromLatin1(display), QStringLiteral("QT_QPA_PLATFORM=xcb"),
                QStringLiteral("HOME=") + home, QStringLiteral("XDG_CONFIG_HOME=") + home + QStringLiteral("/config"),
                QStringLiteral("XDG_DATA_HOME=") + home + QStringLiteral("/data"),
                QStringLiteral("XDG_CACHE_HOME=") + home + QStringLiteral("/cache"),
                QStringLiteral("XDG_RUNTIME_DIR=") + home, QStringLiteral("SDL_DISKAUDIOFILE=/dev/null"),
                QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + QString::fromLatin1(bus)};
    }

    QStringList editorCommand(bool withTheme) const
    {
        QStringList command{editor};
        if (withTheme)
            command << folder + QStringLiteral("/Frames.skt");
        return command;
    }

    // Milliseconds from starting \a command to its window on screen; -1 when it never showed.
    double startUpMs(const QStringList &command, QSize *windowSize = nullptr) const
    {
        sleepMs(300); // the program before has gone, and the server has cleaned up after it
        const qint64 started = nowNs();
        Child child(command, env(), folder);
        Window window = 0;
        const qint64 seen = server.waitVisible(child.pid(), 20000, &window);
        if (windowSize && seen >= 0)
            *windowSize = server.size(window);
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
        letFreedMemoryGo();
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

    /**
     * The serial decode's wall time in milliseconds; \a cpuMs gets its processor time. Into a
     * strip: each frame's rows placed in a strip allocated as the editor allocates its own;
     * otherwise into one reused picture, the decoding alone.
     */
    double serialDecodeMs(bool intoStrip, double *cpuMs = nullptr) const
    {
        QElapsedTimer timer;
        timer.start();
        const auto threadCpuNs = [] {
            timespec t{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
            return qint64(t.tv_sec) * 1000000000 + t.tv_nsec;
        };
        const qint64 cpuBefore = threadCpuNs();
        QImage image, strip;
        for (int n = 1; n <= stripFrames; ++n) {
            QImageReader(QStringLiteral("%1/bg%2.bmp").arg(folder).arg(n)).read(&image);
            if (!intoStrip)
                continue;
            if (strip.isNull())
                strip = FrameStrip::allocate(animatedElements[AnimatedElementId::Background], stripFrames);
            QImage slot(strip.scanLine((n - 1) * image.height()), image.width(), image.height(),
                        strip.bytesPerLine(), strip.format());
            QPainter(&slot).drawImage(0, 0, image);
        }
        if (cpuMs)
            *cpuMs = double(threadCpuNs() - cpuBefore) / 1e6;
        return double(timer.nsecsElapsed()) / 1e6;
    }
};

/** What a process took in each second of a measure: its share of one core, and its wake-ups. */
struct Seconds
{
    QList<double> share, wakes;

    double meanShare() const { return std::accumulate(share.begin(), share.end(), 0.0) / double(share.size()); }
    double medianShare() const { return median(share); }
    double meanWakes() const { return std::accumulate(wakes.begin(), wakes.end(), 0.0) / double(wakes.size()); }
    /** One more second: \a taken over \a wallNs nanoseconds. */
    void append(const Taken &taken, double wallNs)
    {
        share.append(double(taken.cpuNs) / wallNs);
        wakes.append(double(taken.wakes) / (wallNs / 1e9));
    }
};

/**
 * \a sum and what the threads in \a now took since \a before, thread by thread:
 * a thread that ended takes only its last part of a second with it, instead of making the
 * difference of two sums negative.
 */
Taken gained(const ThreadCounts &before, const ThreadCounts &now, Taken sum = {})
{
    for (auto it = now.begin(); it != now.end(); ++it) {
        const Taken then = before.value(it.key());
        sum.cpuNs += it->cpuNs - then.cpuNs;
        sum.wakes += it->wakes - then.wakes;
    }
    return sum;
}

/** \a pids over the same \a seconds, second by second. */
QList<Seconds> measureTogether(const QList<pid_t> &pids, int seconds)
{
    QList<ThreadCounts> last;
    for (pid_t pid : pids)
        last.append(threadCounts(pid));
    QList<Seconds> measured(pids.size());
    qint64 then = nowNs();
    for (int second = 0; second < seconds; ++second) {
        sleepMs(1000);
        const qint64 now = nowNs();
        const double wall = double(now - then);
        for (qsizetype i = 0; i < pids.size(); ++i) {
            const ThreadCounts counts = threadCounts(pids.at(i));
            measured[i].append(gained(last.at(i), counts), wall);
            last[i] = counts;
        }
        then = now;
    }
    return measured;
}

/**
 * \a sides (each one or more processes) taking \a turns seconds each, one side at a time while
 * the others are stopped; each side's figure sums its processes. Two programs playing at once
 * keep one phase against each other for the whole measure, and with it one share of the other's
 * interruptions; in turns, each runs alone and starts every turn at a new phase.
 */
QList<Seconds> measureInTurns(const QList<QList<pid_t>> &sides, int turns)
{
    const auto run = [&sides](qsizetype running) {
        for (qsizetype side = 0; side < sides.size(); ++side) {
            for (pid_t pid : sides.at(side))
                kill(pid, side == running || running < 0 ? SIGCONT : SIGSTOP);
        }
    };
    QList<Seconds> measured(sides.size());
    for (int turn = 0; turn < turns; ++turn) {
        for (qsizetype side = 0; side < sides.size(); ++side) {
            run(side);
            sleepMs(250); // a player stopped mid-frame catches up first
            QList<ThreadCounts> before;
            for (pid_t pid : sides.at(side))
                before.append(threadCounts(pid));
            const qint64 then = nowNs();
            sleepMs(1000);
            const double wall = double(nowNs() - then);
            Taken taken;
            for (qsizetype i = 0; i < before.size(); ++i)
                taken = gained(before.at(i), threadCounts(sides.at(side).at(i)), taken);
            measured[side].append(taken, wall);
        }
    }
    run(-1);
    return measured;
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
    const SessionBus bus;
    if (bus.address().isEmpty())
        std::printf("no session bus (dbus-daemon): start-up includes Qt's attempt to launch one\n");
    Bench bench{server, *layout, editorPath, QStringLiteral(STAKKO_BARE_WINDOW), frames, home,
                server.name(), bus.address()};
    QStringList bareLabel{bench.bare, QStringLiteral("label")};

    // Start-up, round by round so that a busy moment falls on both. The label window takes the
    // editor's size, learnt in the first round: the server's pixels are the same job for both.
    constexpr int startRounds = 15;
    QList<double> editorStart, bareStart;
    for (int round = 0; wanted("start") && round <= startRounds; ++round) {
        QSize editorSize;
        const double editorMs = bench.startUpMs(bench.editorCommand(false), &editorSize);
        if (round == 0 && editorSize.isValid())
            bareLabel << QString::number(editorSize.width()) << QString::number(editorSize.height());
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
    QList<Seconds> idle(2);
    if (wanted("idle")) {
        Child editor(bench.editorCommand(true), bench.env(), frames);
        Child label(bareLabel, bench.env(), frames);
        if (server.waitVisible(editor.pid(), 20000) < 0 || server.waitVisible(label.pid(), 20000) < 0)
            return 1;
        waitQuiet(editor.pid()); // the theme's load and check, and the sound's opening, settle
        waitQuiet(label.pid());
        idle = measureTogether({editor.pid(), label.pid()}, idleSeconds);
        std::printf("idle %d s: editor %.3f%% of a core (%.1f wake-ups/s), a QLabel window %.3f%% (%.1f wake-ups/s)\n",
                    idleSeconds, idle[0].meanShare() * 100, idle[0].meanWakes(), idle[1].meanShare() * 100,
                    idle[1].meanWakes());
    }

    // Playing: the background at its delay (a frame every delay + 1 ms) beside a QWidget
    // painting the same decoded frames from a QTimer at that period; then with the closer look
    // open beside the page's preview, against two such programs. Each side's figure is its
    // median second: the work is the same every second, and a second the machine's host took
    // away lands on one side only. Anything that wakes between frames shows in the idle row.
    QList<Seconds> play(2), closer(2);
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
        OneProcessor together(server.pid()); // only now: the strip's build wants every processor
        together.add(editor.pid());
        together.add(player.pid());
        const QList<quint32> seen = server.pixels(probe);
        play = measureInTurns({{editor.pid()}, {player.pid()}}, playSeconds);
        editorEnded = !editor.running();
        changing = server.pixels(probe) != seen && !editorEnded;
        std::printf("playing %d frames at %d ms, median of %d s: editor %.2f%% of a core (mean %.2f%%, %.1f "
                    "wake-ups/s), bare Qt %.2f%% (mean %.2f%%, %.1f wake-ups/s)%s\n",
                    stripFrames, frameDelay, playSeconds, play[0].medianShare() * 100, play[0].meanShare() * 100,
                    play[0].meanWakes(), play[1].medianShare() * 100, play[1].meanShare() * 100, play[1].meanWakes(),
                    changing       ? ""
                    : editorEnded ? "; the editor ENDED"
                                  : "; the editor's preview did NOT change");
        if (wanted("closer")) {
            Child second(playerCommand, bench.env(), frames);
            server.doubleClick(bench.surfaceOnScreen(window).center());
            for (int i = 0; i < 400 && !closerShown; ++i, sleepMs(10))
                closerShown = server.windowCount(editor.pid()) > 1;
            waitQuiet(second.pid());
            together.add(second.pid());
            closer = measureInTurns({{editor.pid()}, {player.pid(), second.pid()}}, playSeconds);
            editorEnded = !editor.running();
            closerShown = closerShown && !editorEnded;
            std::printf("  with the closer look open: editor %.2f%% (mean %.2f%%, %.1f wake-ups/s), two bare Qt "
                        "players %.2f%% (mean %.2f%%, %.1f wake-ups/s)%s\n",
                        closer[0].medianShare() * 100, closer[0].meanShare() * 100, closer[0].meanWakes(),
                        closer[1].medianShare() * 100, closer[1].meanShare() * 100, closer[1].meanWakes(),
                        closerShown ? "" : "; the closer look did NOT open");
        }
    }

    // Click to first frame, and to the whole strip, beside the serial decode of the strip.
    constexpr int clickRounds = 5;
    QList<double> decode, decodeAlone, decodeCpu, first, whole, clickCpu, clickFaults;
    if (wanted("click"))
        bench.serialDecodeMs(false);
    for (int round = 0; wanted("click") && round < clickRounds; ++round) {
        double firstMs = 0, wholeMs = 0, cpuMs = 0, faults = 0, decodeCpuMs = 0;
        decodeAlone.append(bench.serialDecodeMs(false));
        letFreedMemoryGo();
        decode.append(bench.serialDecodeMs(true, &decodeCpuMs));
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
                    "serial QImageReader decode into a strip %.1f ms\n  the decode alone, into one reused picture, "
                    "%.1f ms (the whole strip %.2fx that)\n  the editor's processor time for it %.0f ms (the serial "
                    "decode's %.0f ms), %.0f page faults (counts a busy machine moves less than times)\n",
                    stripFrames, clickRounds, median(first), median(whole), median(decode), median(decodeAlone),
                    medianRatio(whole, decodeAlone), median(clickCpu), median(decodeCpu), median(clickFaults));

    printLoad("after");
    if (wanted("idle"))
        benchRow("outside: idle editor, CPU of one core", idle[0].meanShare() * 100, 0.1, "%");
    if (wanted("play"))
        benchRow("outside: playing at 40 ms / bare Qt painting", changing ? play[0].medianShare() / play[1].medianShare() : 99, 1.25, "x");
    if (wanted("closer"))
        benchRow("outside: page and closer look / two bare Qt", closerShown && changing ? closer[0].medianShare() / closer[1].medianShare() : 99,
                 1.25, "x");
    if (wanted("click")) {
        benchRow("outside: Preview click to first frame / serial decode", medianRatio(first, decode), 0.25, "x");
        benchRow("outside: Preview click to whole strip / serial decode", medianRatio(whole, decode), 0.65, "x");
    }
    if (wanted("start"))
        benchRow("outside: start-up to visible window / QLabel window", medianRatio(editorStart, bareStart), 1.25,
                 "x");
    return 0;
}
