// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/platform.h"


#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/syscall.h>
#include <sys/timerfd.h>
#endif

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

namespace Platform {

int openFolderAt(const QByteArray &path, int &fd)
{
    fd = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return fd < 0 ? errno : 0;
}

FileAt fileAt(int folder, const QByteArray &name)
{
    struct stat info {};
    if (fstatat(folder, name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0)
        return {};
    return {S_ISDIR(info.st_mode), S_ISREG(info.st_mode), unsigned(info.st_mode & 07777)};
}

int createNewFile(int folder, const QByteArray &name, unsigned mode, int &fd)
{
    fd = ::openat(folder, name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode_t(mode));
    return fd < 0 ? errno : 0;
}

bool isExistsError(int error)
{
    return error == EEXIST;
}

int isAFolderError()
{
    return EISDIR;
}

int setFileMode(int fd, unsigned mode)
{
    return fchmod(fd, mode_t(mode)) == 0 ? 0 : errno;
}

int writeAll(int fd, const char *data, qint64 size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size_t(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        data += written;
        size -= written;
    }
    return 0;
}

int syncFile(int fd)
{
    return fsync(fd) == 0 ? 0 : errno;
}

int closeFile(int fd)
{
    return ::close(fd) == 0 ? 0 : errno;
}

int renameInFolder(int folder, const QByteArray &from, const QByteArray &to)
{
    return renameat(folder, from.constData(), folder, to.constData()) == 0 ? 0 : errno;
}

void removeFileIn(int folder, const QByteArray &name)
{
    unlinkat(folder, name.constData(), 0);
}

Descriptor::~Descriptor()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

Result<Descriptor> openFolder(const QString &path)
{
    Descriptor folder(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return Result<Descriptor>::fail(systemReason(errno));
    return folder;
}

Result<OwnFolder> openOwnFolder(int parent, const QByteArray &name)
{
    using Answer = Result<OwnFolder>;
    const bool created = mkdirat(parent, name.constData(), 0700) == 0;
    if (!created && errno != EEXIST)
        return Answer::fail(systemReason(errno));
    Descriptor folder(openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat info {};
    if (!folder.isOpen()) {
        const int error = errno;
        if (fstatat(parent, name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(info.st_mode))
            return Answer::fail(QCoreApplication::translate("Platform", "it is a link"));
        return Answer::fail(error == ENOTDIR ? QCoreApplication::translate("Platform", "it is not a folder") : systemReason(error));
    }
    if (fstat(folder.fd(), &info) != 0)
        return Answer::fail(systemReason(errno));
    if (info.st_uid != geteuid())
        return Answer::fail(QCoreApplication::translate("Platform", "it belongs to another user"));
    if ((info.st_mode & 077) != 0 && fchmod(folder.fd(), 0700) != 0)
        return Answer::fail(systemReason(errno));
    return OwnFolder{std::move(folder), created};
}

void removeEmptyFolder(int parent, const QByteArray &name)
{
    unlinkat(parent, name.constData(), AT_REMOVEDIR);
}

std::optional<OwnFile> openOwnPlainFile(int folder, const QByteArray &name)
{
    Descriptor file(openat(folder, name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat info {};
    if (!file.isOpen() || fstat(file.fd(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_uid != geteuid()
        || (info.st_mode & 07777) != 0600 || info.st_nlink != 1)
        return std::nullopt;
    return OwnFile{std::move(file), qint64(info.st_size)};
}

Result<void> readAt(int file, char *buffer, qint64 size, qint64 offset)
{
    for (qint64 done = 0; done < size;) {
        const ssize_t got = pread(file, buffer + done, size_t(size - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return Result<void>::fail(systemReason(got < 0 ? errno : EIO));
        done += got;
    }
    return {};
}

bool ownedByCurrentUser(const QFileInfo &info)
{
    return info.ownerId() == ::geteuid();
}

std::optional<QString> readHiddenLine(const QString &prompt)
{
    if (!::isatty(STDIN_FILENO))
        return std::nullopt;
    std::fprintf(stderr, "%s ", qUtf8Printable(prompt));
    std::fflush(stderr);
    termios saved {};
    const bool quiet = tcgetattr(STDIN_FILENO, &saved) == 0;
    if (quiet) {
        termios silent = saved;
        silent.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSANOW, &silent);
    }
    std::string line;
    const bool got = bool(std::getline(std::cin, line));
    if (quiet)
        tcsetattr(STDIN_FILENO, TCSANOW, &saved);
    std::fprintf(stderr, "\n");
    if (!got)
        return std::nullopt;
    return QString::fromStdString(line);
}

void yieldToOtherThreads()
{
#ifdef Q_OS_LINUX
    // An idle-class thread gives way the moment any other one wakes; a merely lower priority
    // still lets it finish its time slice first, which held the first frame tens of ms.
    const sched_param none{};
    if (sched_setscheduler(0, SCHED_IDLE, &none) != 0)
        setpriority(PRIO_PROCESS, id_t(syscall(SYS_gettid)), 10);
#endif
}

#ifdef Q_OS_LINUX

int openTickTimer()
{
    return timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
}

bool armTickTimer(int timer, qint64 dueNanoseconds, int periodMs)
{
    constexpr qint64 second = 1000000000;
    const timespec interval{periodMs / 1000, long(periodMs % 1000) * 1000000};
    const itimerspec schedule{interval, {time_t(dueNanoseconds / second), long(dueNanoseconds % second)}};
    return timerfd_settime(timer, TFD_TIMER_ABSTIME, &schedule, nullptr) == 0;
}

void disarmTickTimer(int timer)
{
    const itimerspec disarmed{};
    timerfd_settime(timer, 0, &disarmed, nullptr);
}

quint64 takeTickTimerExpiries(int timer)
{
    quint64 expiries = 0;
    return ::read(timer, &expiries, sizeof expiries) == qint64(sizeof expiries) ? expiries : 0;
}

qint64 tickTimerNanosecondsLeft(int timer)
{
    itimerspec left{};
    if (timerfd_gettime(timer, &left) != 0)
        return -1;
    const qint64 ns = qint64(left.it_value.tv_sec) * 1000000000 + left.it_value.tv_nsec;
    return ns > 0 ? ns : -1;
}

#else

int openTickTimer()
{
    return -1;
}

bool armTickTimer(int, qint64, int)
{
    return false;
}

void disarmTickTimer(int) {}

quint64 takeTickTimerExpiries(int)
{
    return 0;
}

qint64 tickTimerNanosecondsLeft(int)
{
    return -1;
}

#endif

void closeTickTimer(int timer)
{
    if (timer >= 0)
        ::close(timer);
}

qint64 monotonicNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

namespace {

constexpr int shutdownSignals[] = {SIGTERM, SIGINT, SIGHUP};
struct sigaction previousHandlers[std::size(shutdownSignals)] = {};
int signalPipe[2] = {-1, -1};

// A handler may reach nothing but globals. Async-signal-safe: one byte into a non-blocking
// pipe; a full pipe already holds a byte to act on.
void onShutdownSignal(int number)
{
    const int savedErrno = errno;
    const unsigned char byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = savedErrno;
}

} // namespace

int catchShutdownSignals()
{
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("Cannot catch SIGTERM, SIGINT and SIGHUP: %s", std::strerror(errno));
        signalPipe[0] = signalPipe[1] = -1;
        return -1;
    }
    struct sigaction action = {};
    action.sa_handler = onShutdownSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < std::size(shutdownSignals); ++i) {
        sigaction(shutdownSignals[i], nullptr, &previousHandlers[i]);
        if (previousHandlers[i].sa_handler != SIG_IGN)
            sigaction(shutdownSignals[i], &action, nullptr);
    }
    return signalPipe[0];
}

int takeShutdownSignal()
{
    unsigned char byte = 0;
    return signalPipe[0] >= 0 && ::read(signalPipe[0], &byte, 1) == 1 ? byte : 0;
}

void releaseShutdownSignals()
{
    if (signalPipe[0] < 0)
        return;
    for (size_t i = 0; i < std::size(shutdownSignals); ++i)
        sigaction(shutdownSignals[i], &previousHandlers[i], nullptr);
    ::close(signalPipe[0]);
    ::close(signalPipe[1]);
    signalPipe[0] = signalPipe[1] = -1;
}

} // namespace Platform
