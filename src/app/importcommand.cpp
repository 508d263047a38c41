// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "importcommand.h"

#include "consoledialogs.h"

#include "art/artimport.h"
#include "editing/filecommands.h"
#include "theme/themedocument.h"

#include <QDir>
#include <QRegularExpression>

#include <cstdio>

namespace {

struct UsageError {
    QString message;
};

QString takeValue(const QStringList &args, qsizetype &i)
{
    if (i + 1 >= args.size())
        throw UsageError{CommandLine::tr("%1 needs a value").arg(args.at(i))};
    return args.at(++i);
}

/** "COLUMNSxROWS" or "WxH", each at least 1. */
QSize sizeValue(const QString &option, const QString &text)
{
    const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$")).match(text);
    if (!m.hasMatch() || m.captured(1).toInt() < 1 || m.captured(2).toInt() < 1)
        throw UsageError{CommandLine::tr("%1 takes WIDTHxHEIGHT of whole numbers from 1, not \"%2\"").arg(option, text)};
    return QSize(m.captured(1).toInt(), m.captured(2).toInt());
}

QColor colorValue(const QString &text)
{
    const QStringList parts = text.split(u',');
    int rgb[3] = {};
    bool ok = parts.size() == 3;
    for (int i = 0; ok && i < 3; ++i) {
        rgb[i] = parts.at(i).toInt(&ok);
        ok = ok && rgb[i] >= 0 && rgb[i] <= 255 && !parts.at(i).contains(u' ');
    }
    if (!ok)
        throw UsageError{CommandLine::tr("--background takes R,G,B from 0 to 255, not \"%1\"").arg(text)};
    return QColor(rgb[0], rgb[1], rgb[2]);
}

template<typename T, size_t N>
T choice(const QString &option, const QString &text, const std::pair<const char *, T> (&choices)[N])
{
    QStringList names;
    for (const auto &[name, value] : choices) {
        if (text == QLatin1StringView(name))
            return value;
        names << QLatin1StringView(name);
    }
    throw UsageError{CommandLine::tr("%1 takes %2, not \"%3\"").arg(option, names.join(u'|'), text)};
}

constexpr std::pair<const char *, FrameFit> fits[] = {
    {"fill", FrameFit::Fill}, {"fit", FrameFit::Fit}, {"stretch", FrameFit::Stretch}, {"pixel", FrameFit::Pixel}};
constexpr std::pair<const char *, FrameFormat> formats[] = {{"bmp", FrameFormat::Bmp}, {"jpg", FrameFormat::Jpg}};

struct ImportArguments {
    QString theme;
    QString key;
    QStringList sources;
    ArtOptions options;
    ExtractOptions extract;
};

ImportArguments parse(const QStringList &args, ConsoleDialogs &dialogs)
{
    ImportArguments a;
    QStringList positional;
    for (qsizetype i = 2; i < args.size(); ++i) {
        const QString &arg = args.at(i);
        if (arg == u"--from") {
            a.options.folder = takeValue(args, i);
        } else if (arg == u"--fit") {
            a.options.fit = choice(arg, takeValue(args, i), fits);
        } else if (arg == u"--background") {
            a.options.background = colorValue(takeValue(args, i));
        } else if (arg == u"--format") {
            a.options.format = choice(arg, takeValue(args, i), formats);
        } else if (arg == u"--quality") {
            const QString text = takeValue(args, i);
            bool ok = false;
            a.options.quality = text.toInt(&ok);
            if (!ok || a.options.quality < 1 || a.options.quality > 100)
                throw UsageError{CommandLine::tr("--quality takes 1 to 100, not \"%1\"").arg(text)};
        } else if (arg == u"--sheet") {
            a.options.sheet = sizeValue(arg, takeValue(args, i));
        } else if (arg == u"--size") {
            a.options.size = sizeValue(arg, takeValue(args, i));
        } else if (arg == u"--name") {
            a.options.name = takeValue(args, i);
        } else if (arg == u"--password") {
            dialogs.password = takeValue(args, i);
        } else if (arg.startsWith(u'-') && arg.size() > 1) {
            throw UsageError{CommandLine::tr("unknown option %1 for import").arg(arg)};
        } else {
            positional.append(arg);
        }
    }
    if (positional.size() < 3)
        throw UsageError{CommandLine::tr("import needs THEME KEY SOURCE...")};
    a.theme = positional.takeFirst();
    a.key = positional.takeFirst();
    a.sources = positional;
    const std::optional<ArtTarget> target = artTarget(a.key);
    if (!target)
        throw UsageError{CommandLine::tr("import takes no key \"%1\"; it takes %2").arg(a.key, artTargetKeys().join(u' '))};
    if (a.options.size.isValid() && target->kind != FileKind::StillImage)
        throw UsageError{CommandLine::tr("--size is for interface screens and miscellaneous images")};
    return a;
}

} // namespace

int runImportCommand(const QStringList &args, ConsoleDialogs &dialogs)
{
    ImportArguments a;
    try {
        a = parse(args, dialogs);
    } catch (const UsageError &e) {
        ConsoleDialogs::printUsageError(e.message);
        return 2;
    }
    ThemeDocument doc;
    setStartUpState(doc);
    FileCommands commands(doc, dialogs);
    // Files put elsewhere do not need the old package unpacked.
    ExtractOptions extract;
    extract.unpack = a.options.folder.isEmpty();
    commands.setExtractOptions(extract);
    Result<FileCommands::LoadOutcome> outcome = commands.loadPath(a.theme);
    Report loaded = outcome.takeReport();
    if (!outcome) {
        ConsoleDialogs::print(loaded);
        return 1;
    }
    // The package is what is being made: that it is missing is no news.
    loaded.problems.removeIf([](const Problem &p) { return p.code == u"package-missing"; });
    ConsoleDialogs::print(loaded);

    const ArtImportReport imported = importArt(doc, a.key, a.sources, a.options);
    ConsoleDialogs::print(imported);
    if (!imported.imported)
        return 1;
    std::printf("%s\n", qUtf8Printable(CommandLine::tr("%1: %2 files")
                                          .arg(QDir::toNativeSeparators(imported.folder))
                                          .arg(imported.files.size())));
    for (const auto &[key, value] : imported.fields)
        std::printf("%s=%s\n", qUtf8Printable(key), qUtf8Printable(value));
    if (imported.packageBuilt)
        std::printf("%s\n", qUtf8Printable(CommandLine::tr("%1: rebuilt").arg(QDir::toNativeSeparators(imported.package))));
    return 0;
}
