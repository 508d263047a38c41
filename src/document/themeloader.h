#pragma once

#include "package/resourcepackage.h"

#include <QString>

class Dialogs;
class ThemeDocument;

/**
 * Fills \a doc from the theme file at \a path through ordinary field writes, unpacking the
 * theme's resource package when it names one (within \a extract's limits). Problems are
 * reported through \a dialogs; the caller sets the current file and handles the dirty flag.
 *
 * Returns false when the file is no theme that can be loaded (no readable theme type, or
 * Theme Type 1 without a resource file): the document then holds only part of it, and nothing
 * may be saved over \a path on its strength.
 */
bool loadThemeFile(ThemeDocument &doc, const QString &path, Dialogs &dialogs,
                   const ExtractOptions &extract = {});

/** A colour text "R,G,B" as red + 256 green + 65536 blue; white (0xFFFFFF) when unreadable. */
quint32 textToColor(const QString &text);

/** The colour text "R,G,B" of a colour value. */
QString colorToText(quint32 colorValue);
