// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themesections.h"

#include <QList>
#include <QStringList>

class ThemeDocument;

struct FileReference {
    QString key;       // the field that names it: "bgfilename", "rotate", "resourcefile"
    FileKind kind;
    QString name;      // as stored; a frame sequence's root
    QString extension; // frame sequences only
    QString count;     // frame sequences only, as stored
    QStringList files; // frames 1 to a whole count from 1, else the name itself unless empty
    bool operator==(const FileReference &) const = default;
};

/**
 * Every file name the theme file written for \a doc holds, in the order it holds them. A name
 * written empty is listed too, with no files, so that a checker can say it names nothing.
 */
QList<FileReference> referencedFiles(const ThemeDocument &doc);
