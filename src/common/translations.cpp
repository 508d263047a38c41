// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

const QString languageOption = QStringLiteral("--lang");

// Unused where neither an installed nor a built folder is known (the fuzz build).
[[maybe_unused]] bool holdsCatalogs(const QString &folder)
{
    return !folder.isEmpty() && !QDir(folder).entryList({QStringLiteral("stakko-core_*.qm")}, QDir::Files).isEmpty();
}

bool isEnglish(const QLocale &locale)
{
    return locale.language() == QLocale::English || locale.language() == QLocale::C;
}

/** A code QLocale does not know ("xx") reads as the C locale: that is no language at all. */
bool isUnknown(const QString &language, const QLocale &locale)
{
    return !language.isEmpty() && locale.language() == QLocale::C && language != QLatin1String("C")
        && language != QLatin1String("POSIX");
}

} // namespace

std::optional<QString> takeLanguageOption(QStringList &args)
{
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &arg = args.at(i);
        if (arg == QLatin1String("--"))
            break;
        if (arg.startsWith(languageOption + u'=')) {
            const QString code = arg.mid(languageOption.size() + 1);
            args.removeAt(i);
            return code.isEmpty() ? std::nullopt : std::optional<QString>(code);
        }
        if (arg == languageOption) {
            if (i + 1 >= args.size())
                return std::nullopt;
            const QString code = args.at(i + 1);
            args.remove(i, 2);
            return code;
        }
    }
    return QString();
}

QString translationsFolder(const QString &programFolder)
{
#ifdef STAKKO_TRANSLATIONS_INSTALLED
    if (const QString installed = QDir::cleanPath(programFolder + u'/' + QStringLiteral(STAKKO_TRANSLATIONS_INSTALLED));
        holdsCatalogs(installed))
        return installed;
#else
    Q_UNUSED(programFolder);
#endif
#ifdef STAKKO_TRANSLATIONS_BUILT
    if (const QString built = QStringLiteral(STAKKO_TRANSLATIONS_BUILT); holdsCatalogs(built))
        return built;
#endif
    return {};
}

bool useLanguage(const QString &language, const QStringList &catalogs)
{
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    if (isUnknown(language, locale))
        return false;
    if (isEnglish(locale))
        return true;
    const QString ours = translationsFolder(QCoreApplication::applicationDirPath());
    const QString qts = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    bool found = false;
    for (const QString &catalog : catalogs) {
        auto translator = new QTranslator(QCoreApplication::instance());
        const bool isQts = catalog == QLatin1String(Catalog::qt);
        if (translator->load(locale, catalog, QStringLiteral("_"), isQts ? qts : ours)) {
            QCoreApplication::installTranslator(translator);
            found = found || !isQts;
        } else {
            delete translator;
        }
    }
    return found;
}
