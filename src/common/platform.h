// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class QFileInfo;

/**
 * What the program asks of the operating system beyond Qt, in one place: this unit is the
 * only one a port to another system replaces (POSIX here).
 */
namespace Platform {

/** Whether the file or folder \a info belongs to the user running the program. */
bool ownedByCurrentUser(const QFileInfo &info);

/**
 * A line typed at the terminal without showing it (a password), after \a prompt on standard
 * error; nothing when standard input is no terminal or ends.
 */
std::optional<QString> readHiddenLine(const QString &prompt);

/** Lowers the calling thread's priority, so the window's thread goes first. */
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
