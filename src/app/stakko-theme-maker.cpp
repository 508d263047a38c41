// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The editor: stakko-theme-maker [THEME.skt], or --screenshot DIR [THEME.skt] (see usageText).

#include "editorapplication.h"
#include "screenshottour.h"

#include "common/allocator.h"
#include "common/translations.h"
#include "editor/editorstyle.h"

#include <QApplication>

#include <cstdio>
#include <optional>

namespace {

const char *const usageLines = QT_TRANSLATE_NOOP("main",
    "Usage: stakko-theme-maker [THEME.skt]\n"
    "       stakko-theme-maker --screenshot DIR [THEME.skt]\n");

const char *const usageText = QT_TRANSLATE_NOOP("main",
    "\n"
    "Opens THEME, a .skt theme file (as a file manager passes it), or a new theme.\n"
    "\n"
    "Options:\n"
    "  --screenshot DIR   write every page and data set of THEME, with its previews playing,\n"
    "                     as PNG files in DIR (at the screen's resolution and again at\n"
    "                     144 DPI), then the Problems panel, the File and Edit menus and the\n"
    "                     closer look at 4x, and exit; nothing else is written\n"
    "  --lang CODE        speak the language CODE (de, en, ...) instead of the system's\n"
    "  --help, --version\n"
    "\n"
    "Exit status: 0 done, 1 a screenshot could not be written, 2 usage error.\n");

/** Usage errors end here, before any window: exit status 2. */
int usageError()
{
    std::fprintf(stderr, "%s%s\n", qPrintable(QCoreApplication::translate("main", usageLines)),
                 qPrintable(QCoreApplication::translate("main", "Try 'stakko-theme-maker --help'.")));
    return 2;
}

/**
 * --help and --version are answered before the window system is reached, so they need no display;
 * the answer is in the author's language.
 */
std::optional<int> answerWithoutWindow(int argc, char *argv[])
{
    std::optional<QByteArrayView> asked;
    for (int i = 1; i < argc && !asked; ++i) {
        const QByteArrayView arg(argv[i]);
        if (arg == "--help" || arg == "-h" || arg == "--version")
            asked = arg;
    }
    if (!asked)
        return std::nullopt;
    if (*asked == "--version") {
        std::printf("stakko-theme-maker %s\n", STAKKO_VERSION_STRING);
        return 0;
    }
    const QCoreApplication app(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const std::optional<QString> language = takeLanguageOption(arguments);
    if (!language)
        return usageError();
    useLanguage(*language, {Catalog::editor});
    std::printf("%s%s", qPrintable(QCoreApplication::translate("main", usageLines)),
                qPrintable(QCoreApplication::translate("main", usageText)));
    return 0;
}

struct Arguments {
    QString themePath;
    std::optional<ScreenshotTour> tour;
};

/** The arguments after the program's name; nullopt for a usage error. */
std::optional<Arguments> parseArguments(QStringList args)
{
    Arguments parsed;
    if (args.value(0) == QLatin1String("--screenshot")) {
        if (args.size() < 2)
            return std::nullopt;
        ScreenshotTour tour;
        tour.folder = args.value(1);
        args = args.mid(2);
        if (args.value(0) == QLatin1String("--scaled-pass")) {
            tour.scaledPass = true;
            args.removeFirst();
        }
        parsed.tour = tour;
    }
    if (args.size() > 1 || args.value(0).startsWith(QLatin1String("--")))
        return std::nullopt;
    parsed.themePath = args.value(0);
    if (parsed.tour)
        parsed.tour->themePath = parsed.themePath;
    return parsed;
}

} // namespace

int main(int argc, char *argv[])
{
    keepFreedMemory();
    if (const std::optional<int> answered = answerWithoutWindow(argc, argv))
        return *answered;
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Stakko Theme Maker"));
    QApplication::setApplicationVersion(QStringLiteral(STAKKO_VERSION_STRING));
    installEditorStyle();
    // Ties the windows to the desktop entry, for its icon and name in docks and task bars.
    QGuiApplication::setDesktopFileName(QStringLiteral(STAKKO_APP_ID));

    QStringList arguments = QApplication::arguments();
    const std::optional<QString> language = takeLanguageOption(arguments);
    if (!language)
        return usageError();
    if (!useLanguage(*language, {Catalog::core, Catalog::editor, Catalog::qt}))
        std::fprintf(stderr, "%s\n",
                     qPrintable(QCoreApplication::translate("main", "stakko-theme-maker: no translation for '%1'; texts stay in English").arg(*language)));
    const std::optional<Arguments> args = parseArguments(arguments.mid(1));
    if (!args)
        return usageError();
    EditorApplication editor(args->tour.has_value());
    return args->tour ? editor.takeScreenshots(*args->tour) : editor.run(args->themePath);
}
