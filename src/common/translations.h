// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/**
 * The catalogs of translated texts, named as their files are ("stakko-core_de.qm"): the core's
 * messages, which both programs show, and each program's own texts.
 */
namespace Catalog {
inline constexpr char core[] = "stakko-core";
inline constexpr char editor[] = "stakko-theme-maker";
inline constexpr char commandLine[] = "stakko-theme";
/** Qt's own texts: the standard buttons of message boxes and file dialogs. */
inline constexpr char qt[] = "qtbase";
} // namespace Catalog

/**
 * Takes "--lang CODE" or "--lang=CODE" out of \a args (the program's name first) and gives CODE:
 * "" when the option is absent, nullopt when it has no value.
 */
std::optional<QString> takeLanguageOption(QStringList &args);

/**
 * Makes the running application speak \a language ("de", "de_DE"; "" for the system's): installs
 * the translators of \a catalogs. English, the language the texts are written in, needs none.
 * False when a language other than English has no catalog of ours: the texts then stay English.
 */
bool useLanguage(const QString &language, const QStringList &catalogs);

/** The folder the catalogs of a program in \a programFolder are read from; "" when there is none. */
QString translationsFolder(const QString &programFolder);
