// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

class ScratchFolder;

/*
 * Every target gets its LLVMFuzzerInitialize() from here: a core application (image plugins,
 * application name), a message handler that drops Qt's warnings, which broken inputs cause
 * by the thousand, and the scratch folder. Fatal messages still abort, so libFuzzer reports
 * them as crashes.
 */

/** The process's private folder, which is also the temporary folder the code under test sees. */
const ScratchFolder &scratch();

/** Empties the scratch folder and writes the input in it as \a name; returns the file's path. */
QString freshInput(const QString &name, const uint8_t *data, size_t size);

/** Stops the run with \a broken on stderr unless \a holds: a broken property is a finding. */
void require(bool holds, const QString &broken);

/** The fuzzer's input as bytes. */
QByteArray inputBytes(const uint8_t *data, size_t size);
