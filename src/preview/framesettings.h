// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

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
 * button's rules. Each number that breaks them adds an error to \a report, in that order, with
 * its field and the button's message, and keeps its default here.
 */
FrameSettings readFrameSettings(const ThemeDocument &doc, const AnimatedElement &element, Report &report);
