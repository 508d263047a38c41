// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// stakko-theme: the theme core on the command line, for scripts, tests and batch work.

#include "consoledialogs.h"
#include "importcommand.h"

#include "editing/packagebuilder.h"
#include "check/themechecker.h"
#include "common/allocator.h"
#include "common/ansitext.h"
#include "common/translations.h"
#include "common/usermanual.h"
#include "theme/description.h"
#include "editing/fieldbrowsing.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"
#include "package/resourcepackage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace {

constexpr int ExitOk = 0;
constexpr int ExitError = 1;
constexpr int ExitUsage = 2;

const char *const usageLine = QT_TRANSLATE_NOOP("CommandLine", "Usage: stakko-theme COMMAND [OPTIONS]\n");

const char *const optionsText = QT_TRANSLATE_NOOP("CommandLine",
    "Options:\n"
    "  -s KEY=VALUE          set a field (KEY as in the theme file: name, bgimage, Bombfilename,\n"
    "                        includebackground, themetype, ...); fields are set in order\n"
    "  --set-file KEY=FILE   set a field to the text of FILE (UTF-8), e.g. the description\n"
    "  -o FILE               where to write\n"
    "  --from DIR            where build looks up the theme's files\n"
    "  --relink              let build store files named absolutely or outside DIR under\n"
    "                        their own names\n"
    "  --password PW         answer a package's password question with PW\n"
    "  --max-unpacked-bytes N\n"
    "                        stop unpacking a package that would write more than N bytes\n"
    "                        (at most and by default 2147483648); what it wrote is removed\n"
    "  --lang CODE           speak the language CODE (de, en, ...) instead of the system's\n"
    "  --help, --version\n"
    "\n"
    "Messages the editor would show in a box are printed to stderr as \"TITLE: TEXT\".\n"
    "Exit status: 0 done, 1 an error message was shown or writing failed, 2 usage error.\n"
    "A theme that does not load is never written over.\n");

struct UsageError {
    QString message;
};

struct Options {
    QString command;
    QStringList positional;
    QList<QPair<QString, QString>> sets; // key, value, in command-line order
    QString output;
    QString root;
    ExtractOptions extract;
    bool json = false;
    QString from;
    bool relink = false;
};

QString takeValue(const QStringList &args, qsizetype &i)
{
    if (i + 1 >= args.size())
        throw UsageError{CommandLine::tr("%1 needs a value").arg(args.at(i))};
    return args.at(++i);
}

QPair<QString, QString> splitAssignment(const QString &text)
{
    const qsizetype eq = text.indexOf(u'=');
    if (eq <= 0)
        throw UsageError{CommandLine::tr("expected KEY=VALUE, got \"%1\"").arg(text)};
    return {text.left(eq), text.mid(eq + 1)};
}

QString readTextFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw UsageError{CommandLine::tr("cannot read %1: %2").arg(path, file.errorString())};
    return QString::fromUtf8(file.readAll());
}

Options parse(const QStringList &args, ConsoleDialogs &dialogs)
{
    Options o;
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &a = args.at(i);
        if (a == u"-s") {
            o.sets.append(splitAssignment(takeValue(args, i)));
        } else if (a == u"--set-file") {
            const auto [key, file] = splitAssignment(takeValue(args, i));
            o.sets.append({key, readTextFile(file)});
        } else if (a == u"-o") {
            o.output = takeValue(args, i);
        } else if (a == u"--root") {
            o.root = takeValue(args, i);
        } else if (a == u"--max-unpacked-bytes") {
            const QString text = takeValue(args, i);
            bool ok = false;
            const qint64 bytes = text.toLongLong(&ok);
            if (!ok || bytes <= 0 || bytes > ExtractOptions().maxBytes)
                throw UsageError{CommandLine::tr("--max-unpacked-bytes takes 1 to %1, not \"%2\"")
                                     .arg(ExtractOptions().maxBytes)
                                     .arg(text)};
            o.extract.maxBytes = bytes;
        } else if (a == u"--json") {
            o.json = true;
        } else if (a == u"--from") {
            o.from = takeValue(args, i);
        } else if (a == u"--relink") {
            o.relink = true;
        } else if (a == u"--password") {
            dialogs.password = takeValue(args, i);
        } else if (a.startsWith(u'-') && a.size() > 1) {
            throw UsageError{CommandLine::tr("unknown option %1").arg(a)};
        } else if (o.command.isEmpty()) {
            o.command = a;
        } else {
            o.positional.append(a);
        }
    }
    return o;
}

void applySets(ThemeDocument &doc, const Options &o)
{
    for (const auto &[key, value] : o.sets) {
        const int index = fieldIndex(key);
        if (index < 0)
            throw UsageError{CommandLine::tr("unknown field \"%1\"").arg(key)};
        const FieldKind kind = themeFields()[size_t(index)].kind;
        if (kind == FieldKind::Text) {
            // An image text also sets its root and extension, as Browse does.
            if (!setFrameImage(doc, key, value))
                doc.setValue(index, value);
            continue;
        }
        bool ok = false;
        const int n = value.trimmed().toInt(&ok);
        const int highest = kind == FieldKind::Switch ? 2 : 1;
        if (!ok || n < 0 || n > highest)
            throw UsageError{CommandLine::tr("%1 takes 0 to %2, not \"%3\"").arg(key).arg(highest).arg(value)};
        doc.setNumberAt(index, n);
    }
}

void requireArguments(const Options &o, qsizetype least, qsizetype most)
{
    if (o.positional.size() < least || o.positional.size() > most)
        throw UsageError{CommandLine::tr("wrong number of arguments for %1").arg(o.command)};
}

/** The editor's Save (or Save As, answered by -o); what went wrong is printed. */
bool save(FileCommands &commands, bool saveAs)
{
    const Result<void> saved = saveAs ? commands.saveAs() : commands.saveTheme();
    ConsoleDialogs::print(saved.report());
    return saved.ok();
}

QByteArray jsonText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

/** Every field in the document's order, then the editor state; QJsonObject would sort the keys. */
QByteArray dumpJson(const ThemeDocument &doc)
{
    QList<QPair<QString, QJsonValue>> entries;
    const auto fields = themeFields();
    for (int i = 0; i < int(fields.size()); ++i) {
        const QString key = QLatin1StringView(fields[size_t(i)].key);
        if (fields[size_t(i)].kind == FieldKind::Text)
            entries.append({key, doc.value(i)});
        else
            entries.append({key, doc.number(i)});
    }
    QJsonArray swatches;
    for (int i = 0; i < int(std::size(colorKeys)); ++i) {
        const auto value = doc.swatch(i);
        swatches.append(value ? QJsonValue(qint64(*value)) : QJsonValue());
    }
    entries.append({QStringLiteral("CurrentThemeFile"), doc.currentThemeFile()});
    entries.append({QStringLiteral("PackageFolder"), doc.packageFolder()});
    entries.append({QStringLiteral("PackageFolderTail"), doc.packageFolderTail()});
    entries.append({QStringLiteral("MusicFolder"), doc.musicFolder()});
    entries.append({QStringLiteral("DirtyFlag"), doc.isDirty()});
    entries.append({QStringLiteral("colorValues"), swatches});

    QByteArray out("{\n");
    for (qsizetype i = 0; i < entries.size(); ++i) {
        out += "  " + jsonText(entries.at(i).first) + ": " + jsonText(entries.at(i).second)
            + (i + 1 < entries.size() ? ",\n" : "\n");
    }
    return out + "}\n";
}

QByteArray problemsJson(const Report &report)
{
    QByteArray out("[");
    for (qsizetype i = 0; i < report.problems.size(); ++i) {
        const Problem &p = report.problems.at(i);
        const bool error = p.severity == Problem::Severity::Error;
        out += (i == 0 ? "\n  {" : ",\n  {") + QByteArray("\"severity\": ") + jsonText(severityName(error ? Problem::Severity::Error : Problem::Severity::Warning))
            + ", \"code\": " + jsonText(p.code) + ", \"field\": " + jsonText(p.field)
            + ", \"file\": " + jsonText(p.file) + ", \"message\": " + jsonText(p.text)
            + ", \"manual\": " + jsonText(problemCodeUrl(p.code).toString(QUrl::FullyEncoded)) + '}';
    }
    return out + (report.isEmpty() ? "]\n" : "\n]\n");
}

/** One line per problem. */
QByteArray problemLines(const Report &report)
{
    QByteArray out;
    for (const Problem &p : report.problems) {
        const bool error = p.severity == Problem::Severity::Error;
        QString text = p.text;
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\r', u' ').replace(u'\n', u' ');
        out += (error ? "error " : "warning ") + p.code.toUtf8() + (p.field.isEmpty() ? "" : " " + p.field.toUtf8())
            + ": " + text.toUtf8() + '\n';
    }
    return out;
}

/** One line per problem, then the count of each severity and where the manual explains the codes. */
QByteArray problemsText(const Report &report)
{
    QByteArray out = problemLines(report) + report.summary().toUtf8() + '\n';
    if (const QUrl manual = userManualUrl(checkingPage); !report.isEmpty() && !manual.isEmpty())
        out += CommandLine::tr("What each code means and what to do: %1").arg(QString::fromLatin1(manual.toEncoded())).toUtf8() + '\n';
    return out;
}

/** What every command works on: its options, one document and the File commands over it. */
struct Session {
    Session(const QStringList &arguments, ConsoleDialogs &console, Options options)
        : args(arguments), dialogs(console), o(std::move(options)), commands(doc, console)
    {
        setStartUpState(doc);
        commands.setExtractOptions(o.extract);
        dialogs.saveName = o.output;
        // What a failed load read stays for dump to show; nothing is written over all the same.
        commands.setFailedLoadsShown(true);
    }

    /**
     * Loads \a path as the editor does and prints what the load found. Every load problem counts,
     * a package that did not unpack included, except where set writes a theme whose package is
     * not built yet.
     */
    bool load(const QString &path, bool packageMayBeMissing = false)
    {
        Result<FileCommands::LoadOutcome> outcome = commands.loadPath(path);
        Report report = outcome.takeReport();
        for (Problem &p : report.problems) {
            if (packageMayBeMissing && p.code == u"package-missing")
                p.severity = Problem::Severity::Warning;
        }
        ConsoleDialogs::print(report);
        clean = !report.hasErrors();
        return outcome && *outcome == FileCommands::LoadOutcome::Loaded;
    }
    int status() const { return clean ? ExitOk : ExitError; }

    const QStringList &args; // as the program got them
    ConsoleDialogs &dialogs;
    const Options o;
    ThemeDocument doc;
    FileCommands commands;
    bool clean = true;
};

int newCommand(Session &s)
{
    requireArguments(s.o, 0, 0);
    if (s.o.output.isEmpty())
        throw UsageError{CommandLine::tr("new needs -o OUT")};
    applySets(s.doc, s.o);
    return save(s.commands, true) ? ExitOk : ExitError;
}

int setCommand(Session &s)
{
    requireArguments(s.o, 1, 1);
    if (!s.load(s.o.positional.at(0), true)) {
        std::fprintf(stderr, "%s\n",
                     qUtf8Printable(CommandLine::tr("Error: %1 did not load as a theme, so it was not written.").arg(s.o.positional.at(0))));
        return ExitError;
    }
    applySets(s.doc, s.o);
    return save(s.commands, !s.o.output.isEmpty()) ? s.status() : ExitError;
}

int dumpCommand(Session &s)
{
    requireArguments(s.o, 1, 1);
    s.load(s.o.positional.at(0));
    const QByteArray json = dumpJson(s.doc);
    std::fwrite(json.constData(), 1, size_t(json.size()), stdout);
    return s.status();
}

int describeCommand(Session &s)
{
    requireArguments(s.o, 0, 1);
    if (!s.o.positional.isEmpty())
        s.load(s.o.positional.at(0));
    QByteArray bytes;
    if (!AnsiText::encode(generateDescription(s.doc), &bytes)) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(CommandLine::tr("Error: the description holds characters a theme file cannot store")));
        return ExitError;
    }
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    return s.status();
}

int unpackCommand(Session &s)
{
    requireArguments(s.o, 1, 1);
    const UnpackReport unpacked = extractResourcePackage(s.o.positional.at(0), s.dialogs, s.o.extract);
    ConsoleDialogs::print(unpacked);
    std::printf("%s\n", qUtf8Printable(unpacked.location.folder));
    return unpacked.hasErrors() ? ExitError : ExitOk;
}

int packCommand(Session &s)
{
    if (s.o.output.isEmpty() || s.o.positional.isEmpty())
        throw UsageError{CommandLine::tr("pack needs -o PACKAGE.zip and at least one file")};
    const Result<void> written =
        writeResourcePackage(s.o.output, s.o.positional, s.o.root.isEmpty() ? QDir::currentPath() : s.o.root);
    if (!written) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(CommandLine::tr("Error: %1").arg(written.errorText())));
        return ExitError;
    }
    return ExitOk;
}

int checkCommand(Session &s)
{
    requireArguments(s.o, 1, 1);
    const Report report = checkThemeFile(s.doc, s.o.positional.at(0), s.dialogs, s.o.extract);
    const QByteArray text = s.o.json ? problemsJson(report) : problemsText(report);
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    return report.hasErrors() ? ExitError : ExitOk;
}

int buildCommand(Session &s)
{
    const Options &o = s.o;
    ThemeDocument &doc = s.doc;
    FileCommands &commands = s.commands;
    requireArguments(o, 1, 1);
    const QString theme = o.positional.at(0);
    // Files looked up elsewhere do not need the old package unpacked.
    if (!o.from.isEmpty()) {
        ExtractOptions nameOnly = o.extract;
        nameOnly.unpack = false;
        commands.setExtractOptions(nameOnly);
    }
    Result<FileCommands::LoadOutcome> outcome = commands.loadPath(theme);
    Report loaded = outcome.takeReport();
    if (!outcome || *outcome != FileCommands::LoadOutcome::Loaded) {
        ConsoleDialogs::print(loaded);
        return ExitError;
    }
    // The package is what is being made: that it is missing is no news.
    loaded.problems.removeIf([](const Problem &p) { return p.code == u"package-missing"; });
    ConsoleDialogs::print(loaded);

    // Judged before relinking changes the names: the files as they go into the package. Where a
    // file lies is the build's own question, answered in its report.
    Report packedErrors = checkBuildFiles(doc, o.from.isEmpty() ? defaultBuildSource(doc) : o.from);
    packedErrors.problems.removeIf(
        [](const Problem &p) { return p.code == u"path-absolute" || p.code == u"path-outside"; });
    const ThemeBuild result = buildThemePackage(doc, commands, s.dialogs, {o.from, o.output, o.relink});
    const BuildReport &built = result.built;
    const QByteArray problems = problemLines(built) + (built.written ? problemLines(packedErrors) : QByteArray());
    std::fwrite(problems.constData(), 1, size_t(problems.size()), stderr);
    if (!built.written)
        return ExitError;
    std::printf("%s\n", qUtf8Printable(CommandLine::tr("%1: %2 files").arg(QDir::toNativeSeparators(built.package)).arg(built.entries)));
    for (const QString &key : built.relinked)
        std::printf("%s\n", qUtf8Printable(CommandLine::tr("relinked %1: %2").arg(key, doc.value(key))));
    ConsoleDialogs::print(result.told);
    return !result.told.hasErrors() && packedErrors.isEmpty() ? ExitOk : ExitError;
}

int importCommand(Session &s)
{
    return runImportCommand(s.args, s.dialogs);
}

int fieldsCommand(Session &s)
{
    requireArguments(s.o, 0, 0);
    for (const auto &field : themeFields())
        std::printf("%s\n", field.key);
    return ExitOk;
}

struct Command {
    const char *name;
    const char *usage;  // the arguments after the name
    const char *help;   // what it does, one line or more; translated where shown
    int (*run)(Session &);
    bool ownOptions = false; // reads its arguments itself: the common options are not parsed
};

const Command commandTable[] = {
    {"new", "[-s KEY=VALUE]... [--set-file KEY=FILE]... -o OUT",
     QT_TRANSLATE_NOOP("CommandLine", "Write a new theme with the editor's defaults and the given fields."), newCommand},
    {"set", "THEME [-s KEY=VALUE]... [--set-file KEY=FILE]... [-o OUT]",
     QT_TRANSLATE_NOOP("CommandLine", "Load THEME as the editor does, set fields, write it (back to THEME by default)."), setCommand},
    {"dump", "THEME", QT_TRANSLATE_NOOP("CommandLine", "Load THEME as the editor does and print every field as one JSON object."), dumpCommand},
    {"describe", "[THEME]", QT_TRANSLATE_NOOP("CommandLine", "Print the generated description (Windows-1252, CRLF) of THEME or of a new theme."),
     describeCommand},
    {"unpack", "PACKAGE", QT_TRANSLATE_NOOP("CommandLine", "Unpack a resource package and print the folder it went to."), unpackCommand},
    {"pack", "-o PACKAGE.zip [--root DIR] FILE...",
     QT_TRANSLATE_NOOP("CommandLine", "Write a resource package; names are stored relative to DIR (default: here)."), packCommand},
    {"check", "THEME [--json]",
     QT_TRANSLATE_NOOP("CommandLine",
     "Load THEME as the editor does and list every problem the game would meet, errors\n"
     "first, as lines or (--json) one JSON array; exit status 1 when any is an error."),
     checkCommand},
    {"build", "THEME [--from DIR] [-o PACKAGE] [--relink]",
     QT_TRANSLATE_NOOP("CommandLine",
     "Write the resource package of a Type 1 theme from the files it names, looked up\n"
     "in DIR (default: its unpacked package, else its folder), to its resource file\n"
     "(or PACKAGE). Files named by absolute paths or outside DIR (\"..\", links\n"
     "leading out) are refused; --relink stores them under their own names and\n"
     "saves the theme with the new names. Nothing is written when a file is missing\n"
     "or refused; exit status 1 then."),
     buildCommand},
    {"import",
     "THEME KEY SOURCE... [--from DIR] [--fit fill|fit|stretch|pixel]\n"
     "         [--background R,G,B] [--format bmp|jpg] [--quality 1-100]\n"
     "         [--sheet COLUMNSxROWS] [--name ROOT] [--size WxH]",
     QT_TRANSLATE_NOOP("CommandLine",
     "Take art (an animated GIF or WebP, a sprite sheet, pictures, a folder of them, a\n"
     "sound, music) to the game's form for the row KEY (bgimage, ifacemain, door1,\n"
     "rotate, midi, ...): files written into DIR (default: where build looks), the\n"
     "row's fields set, THEME saved and a Type 1 package rebuilt; whole or nothing."),
     importCommand, true},
    {"fields", "", QT_TRANSLATE_NOOP("CommandLine", "Print every field key that -s takes, one per line, in the order dump prints them."),
     fieldsCommand},
};

const Command *findCommand(const QString &name)
{
    for (const Command &command : commandTable) {
        if (name == QLatin1StringView(command.name))
            return &command;
    }
    return nullptr;
}

/** The whole --help text: the usage line, each command of the table with its help, the options. */
QByteArray helpText()
{
    QString text = CommandLine::tr(usageLine) + u'\n' + CommandLine::tr("Commands:") + u'\n';
    for (const Command &command : commandTable) {
        text += QStringLiteral("  ") + QLatin1StringView(command.name);
        if (*command.usage)
            text += u' ' + QLatin1StringView(command.usage);
        text += u'\n';
        for (const QString &line : CommandLine::tr(command.help).split(u'\n'))
            text += QStringLiteral("        ") + line + u'\n';
    }
    return (text + u'\n' + CommandLine::tr(optionsText)).toUtf8();
}

int run(const QStringList &args, ConsoleDialogs &dialogs)
{
    // A command with options of its own is named first, before any option.
    if (const Command *command = findCommand(args.value(1)); command && command->ownOptions) {
        Session session(args, dialogs, Options());
        return command->run(session);
    }
    Options options = parse(args, dialogs);
    const Command *command = findCommand(options.command);
    if (!command || command->ownOptions)
        throw UsageError{options.command.isEmpty() ? CommandLine::tr("no command given")
                                                   : CommandLine::tr("unknown command %1").arg(options.command)};
    Session session(args, dialogs, std::move(options));
    return command->run(session);
}

} // namespace

int main(int argc, char *argv[])
{
    keepFreedMemory();
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("stakko-theme"));
    QCoreApplication::setApplicationVersion(QStringLiteral(STAKKO_VERSION_STRING));
    QStringList args = QCoreApplication::arguments();
    const std::optional<QString> language = takeLanguageOption(args);
    if (!language) {
        useLanguage(QString(), {Catalog::core, Catalog::commandLine});
        ConsoleDialogs::printUsageError(CommandLine::tr("%1 needs a value").arg(QStringLiteral("--lang")));
        return ExitUsage;
    }
    // Said in English: no catalog speaks the language asked for.
    if (!useLanguage(*language, {Catalog::core, Catalog::commandLine}))
        std::fprintf(stderr, "stakko-theme: no translation for '%s'; texts stay in English\n", qUtf8Printable(*language));

    if (args.contains(u"--help") || args.contains(u"-h")) {
        const QByteArray help = helpText();
        std::fwrite(help.constData(), 1, size_t(help.size()), stdout);
        return ExitOk;
    }
    if (args.contains(u"--version")) {
        std::printf("stakko-theme %s\n", STAKKO_VERSION_STRING);
        return ExitOk;
    }

    ConsoleDialogs dialogs;
    try {
        return run(args, dialogs);
    } catch (const UsageError &e) {
        ConsoleDialogs::printUsageError(e.message);
        return ExitUsage;
    }
}
