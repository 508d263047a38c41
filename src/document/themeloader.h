#pragma once

#include <QString>

class Dialogs;
class ThemeDocument;

/**
 * Fills \a doc from the theme file at \a path through ordinary field writes, unpacking the
 * theme's resource package when it names one. Problems are reported through \a dialogs; the
 * caller sets the current file and handles the dirty flag.
 */
void loadThemeFile(ThemeDocument &doc, const QString &path, Dialogs &dialogs);

/** A colour text "R,G,B" as red + 256 green + 65536 blue; white (0xFFFFFF) when unreadable. */
quint32 textToColor(const QString &text);

/** The colour text "R,G,B" of a colour value. */
QString colorToText(quint32 colorValue);
