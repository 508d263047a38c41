// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "art/artsource.h"
#include "art/framefit.h"
#include "art/parallel.h"
#include "common/report.h"
#include "theme/themesections.h"

#include <QColor>
#include <QList>
#include <QPair>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

class ThemeDocument;
struct AnimatedElement;

/** A row the author's art can fill, found by its theme-file key. */
struct ArtTarget {
    QString key;                               // "bgimage", "ifacemain", "rotate", "midi"
    FileKind kind;                             // FrameSequence, StillImage, WaveSound or Music
    const ThemeSection *section = nullptr;     // whose include switch the import turns on
    const AnimatedElement *element = nullptr;  // frame sequences only
    /** What the row is called in the editor: "Game Background", "Main/Fields Screen". */
    QString label() const;
    /** The size every frame is made: the element's frame rectangle; invalid for other rows. */
    QSize frameSize() const;
    /** The file name the import gives when none is chosen: "bg" for the background's frames. */
    QString defaultName() const;
};

/** The row \a key fills: an animated element's image text, an image, a sound or music; nullopt otherwise. */
std::optional<ArtTarget> artTarget(const QString &key);
/** Every key artTarget() takes, in the theme's order. */
QStringList artTargetKeys();

enum class FrameFormat { Bmp, Jpg };

struct ArtOptions {
    FrameFit fit = FrameFit::Fill;
    QColor background = Qt::black; // what alpha and the margins of Fit are flattened onto
    FrameFormat format = FrameFormat::Bmp;
    int quality = 90;              // JPEG only, 1 to 100
    QSize sheet;                   // columns x rows of a sprite sheet; invalid: not a sheet
    QString name;                  // frame root or file name without extension; "": the row's own
    QSize size;                    // interface screens and miscellaneous images; invalid: their own
    QString folder;                // where the files go; "": where a build looks
};

struct ArtImportReport : Report {
    bool imported = false;
    QString folder;                       // where the files went
    QStringList files;                    // written there, in order
    QList<QPair<QString, QString>> fields; // what changed in the theme, key and value
    qsizetype frames = 0;
    int delay = -1;                       // the delay taken from the source; -1 none
    bool packageBuilt = false;
    QString package;
};

/** The frames \a sources give for \a target, each brought to its size as the import makes them. */
QImage importedFrame(const ArtTarget &target, const QImage &picture, const ArtOptions &options);

/**
 * Takes the author's art in \a sources to the game's form for the row \a key of the saved theme
 * in \a doc: frames (or a picture, a sound, music) written into the folder, the row's fields set,
 * the theme file saved and, for Theme Type 1, its package rebuilt. Whole or nothing: when
 * anything fails or \a progress says stop, the theme file, the package, the folder and \a doc
 * stay as they were and the report says why. Files of other rows the package misses leave the
 * package as it was, with a warning.
 */
ArtImportReport importArt(ThemeDocument &doc, const QString &key, const QStringList &sources,
                          const ArtOptions &options, const ArtProgress &progress = {});
