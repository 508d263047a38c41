#pragma once

#include <QString>

class ThemeDocument;

/** The summary that "Generate Description" puts into the description: "//" lines, CRLF after each. */
QString generateDescription(const ThemeDocument &doc);
