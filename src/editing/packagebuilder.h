// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"
#include "theme/referencedfiles.h"
#include "package/packagewriter.h"

#include <QString>
#include <QStringList>

class Dialogs;
class FileCommands;
class ThemeDocument;

struct BuildOptions {
    QString from;   // the folder the files are looked up in; "": the package folder, else the theme's
    QString output; // the package to write; "": beside the theme, as its resource file names it
    bool relink = false; // files named by absolute paths or outside `from` go in under their own names
};

struct BuildReport : Report {
    bool written = false;
    QString package;        // the archive written (or that would have been)
    QStringList relinked;   // the fields changed to the names the package stores
    qsizetype entries = 0;
};

/**
 * Writes the resource package of the Type 1 theme in \a doc: every file its included sections
 * name, each under the name the theme uses for it. A missing file, or without \a options.relink
 * one named by an absolute path or lying outside the folder it is looked up in (a ".." climb, a
 * link leading out), is reported with the checker's code and words, all at once, and nothing is
 * written. With relink, such a file goes in under its own file name (made unique) and its field
 * is changed in \a doc. The archive is replaced whole or not at all; no file from outside the
 * folder goes in under a name that leads out of the package.
 */
BuildReport buildResourcePackage(ThemeDocument &doc, const BuildOptions &options,
                                 const PackageProgress &progress = {});

/**
 * The files of \a doc a build stores under their own names (with relinking) or refuses: those
 * named by absolute paths and those that lead out of \a from.
 */
QList<FileReference> referencesToRelink(const ThemeDocument &doc, const QString &from);

/** The folder a build looks its files up in when none is given. */
QString defaultBuildSource(const ThemeDocument &doc);

/** What building a theme's package told besides the build itself. */
struct ThemeBuild {
    BuildReport built;
    Report told; // the save after the build and the unpacking after it; an error: not all done
};

/**
 * Build Resource Package as the editor and the command line run it: the package is built, and a
 * theme whose fields were relinked is saved at once through \a commands with the names the
 * package stores. With \a followPackage the new package is then unpacked as a load would (its
 * password asked through \a dialogs), so what the previews show is what the game gets; an art
 * folder stays the package folder.
 */
ThemeBuild buildThemePackage(ThemeDocument &doc, FileCommands &commands, Dialogs &dialogs,
                             const BuildOptions &options, const PackageProgress &progress = {},
                             bool followPackage = false);
