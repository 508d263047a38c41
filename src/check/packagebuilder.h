// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"
#include "package/packagewriter.h"

#include <QString>
#include <QStringList>

class ThemeDocument;

struct BuildOptions {
    QString from;   // the folder the files are looked up in; "": the package folder, else the theme's
    QString output; // the package to write; "": beside the theme, as its resource file names it
    bool relink = false; // files named by absolute paths go in under their own names
};

struct BuildReport : Report {
    bool written = false;
    QString package;        // the archive written (or that would have been)
    QStringList relinked;   // the fields changed to the names the package stores
    qsizetype entries = 0;
};

/**
 * Writes the resource package of the Type 1 theme in \a doc: every file its included sections
 * name, each under the name the theme uses for it. A missing file, or one named by an absolute
 * path without \a options.relink, is reported with the checker's code and words, all at once,
 * and nothing is written. With relink, such a file goes in under its own file name (made
 * unique) and its field is changed in \a doc. The archive is replaced whole or not at all.
 */
BuildReport buildResourcePackage(ThemeDocument &doc, const BuildOptions &options,
                                 const PackageProgress &progress = {});

/** The folder a build looks its files up in when none is given. */
QString defaultBuildSource(const ThemeDocument &doc);
