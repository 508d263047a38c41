// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>

class QFileInfo;

/** The system's own words for error number \a error ("No space left on device"). */
QString systemReason(int error);

/**
 * What the program asks of the operating system beyond Qt, in one place: this unit is the
 * only one a port to another system replaces (POSIX here).
 */
namespace Platform {

/** An open file or folder of the system's, closed when it goes. */
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int fd) : m_fd(fd) {}
    Descriptor(Descriptor &&other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~Descriptor();
    int fd() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }

private:
    int m_fd = -1;
};

/** The folder at \a path, opened for the calls below that work inside a folder. */
Result<Descriptor> openFolder(const QString &path);

struct OwnFolder {
    Descriptor folder;
    bool created = false; // made by this call
};
/**
 * The folder \a name inside \a parent, created owner-only when missing. Anyone may create
 * names in a shared temporary folder, so a link, a file, or a folder of another user there
 * is refused (the report says which) rather than followed or written into.
 */
Result<OwnFolder> openOwnFolder(int parent, const QByteArray &name);
/** Removes the empty folder \a name inside \a parent; nothing when it cannot. */
void removeEmptyFolder(int parent, const QByteArray &name);

struct OwnFile {
    Descriptor file;
    qint64 size = 0;
};
/** The file \a name in \a folder, when it is a plain file of ours, owner-only (0600), with one name. */
std::optional<OwnFile> openOwnPlainFile(int folder, const QByteArray &name);
/** Fills \a size bytes of \a buffer from \a file at \a offset; fails at the file's end too. */
Result<void> readAt(int file, char *buffer, qint64 size, qint64 offset);

// Replacing a file inside an open folder (SafeFile). Each returns 0 or the system's error number.
int openFolderAt(const QByteArray &path, int &fd);
struct FileAt {
    bool folder = false;
    bool plain = false;  // a plain file (not a link, not a folder)
    unsigned mode = 0;   // its permission bits
};
/** What is at \a name inside \a folder, links not followed. */
FileAt fileAt(int folder, const QByteArray &name);
/** Creates \a name in \a folder, failing if anything (a link included) is there already. */
int createNewFile(int folder, const QByteArray &name, unsigned mode, int &fd);
bool isExistsError(int error);
int isAFolderError();
int setFileMode(int fd, unsigned mode);
int writeAll(int fd, const char *data, qint64 size);
int syncFile(int fd);
int closeFile(int fd);
int renameInFolder(int folder, const QByteArray &from, const QByteArray &to);
void removeFileIn(int folder, const QByteArray &name);

/** Whether the file or folder \a info belongs to the user running the program. */
bool ownedByCurrentUser(const QFileInfo &info);

/**
 * A line typed at the terminal without showing it (a password), after \a prompt on standard
 * error; nothing when standard input is no terminal or ends.
 */
std::optional<QString> readHiddenLine(const QString &prompt);

/**
 * Puts the calling thread below every other (in the idle class where there is one), so the
 * window's thread goes first.
 */
void yieldToOtherThreads();

/**
 * A kernel timer on the monotonic clock whose expiries wake the event loop on time: a
 * descriptor that becomes readable at each expiry, or -1 where the system has none.
 */
int openTickTimer();
void closeTickTimer(int timer);
/** First expiry at \a dueNanoseconds of monotonicNanoseconds(), then every \a periodMs. */
bool armTickTimer(int timer, qint64 dueNanoseconds, int periodMs);
void disarmTickTimer(int timer);
/** The expiries since the last call (clearing them), or 0 when none. */
quint64 takeTickTimerExpiries(int timer);
/** Nanoseconds to the next expiry, or -1 when disarmed. */
qint64 tickTimerNanosecondsLeft(int timer);
qint64 monotonicNanoseconds();

/**
 * Catches the signals that ask the program to end (SIGTERM, SIGINT, SIGHUP), apart from
 * those it was started with ignored (nohup). Returns a descriptor that becomes readable when
 * one arrives, or -1 (with a warning) when they cannot be caught and keep their usual effect.
 * One catcher at a time.
 */
int catchShutdownSignals();
/** The number of the next caught signal, or 0 when none is waiting. */
int takeShutdownSignal();
/** Puts back the handlers catchShutdownSignals() replaced and closes its descriptor. */
void releaseShutdownSignals();

} // namespace Platform
