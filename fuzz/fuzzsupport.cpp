// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzzsupport.h"

#include "scratchfolder.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace {

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // libFuzzer's own arguments are not the application's: it gets a plain name.
    static int argc = 1;
    static char name[] = "stakko-fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    qInstallMessageHandler(dropMessage);
    scratch();
    return 0;
}

const ScratchFolder &scratch()
{
    static const ScratchFolder folder(QStringLiteral("stakko-fuzz"));
    return folder;
}

QString freshInput(const QString &name, const uint8_t *data, size_t size)
{
    scratch().clear();
    return scratch().write(name, inputBytes(data, size));
}

void require(bool holds, const QString &broken)
{
    if (holds)
        return;
    std::fprintf(stderr, "\n*** Property broken: %s\n", qPrintable(broken));
    std::abort();
}

QByteArray inputBytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}
