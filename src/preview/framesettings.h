// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

class ThemeDocument;
struct AnimatedElement;

/** An animated element's numbers as its Preview button reads them. */
struct FrameSettings {
    double frameCount = 1;
    qint64 startingFrame = 1; // rounded half to even
    double delay = 0;         // milliseconds
};

/**
 * Reads \a element's number of frames, starting frame and delay from \a doc with the Preview
 * button's rules. The settings always come back: each number that breaks the rules keeps its
 * default and adds an error to the report, in that order, with its field and the button's message.
 */
Result<FrameSettings> readFrameSettings(const ThemeDocument &doc, const AnimatedElement &element);
