#pragma once

/**
 * Reading the system's font configuration takes milliseconds before the first text can be
 * measured. Started first thing, it runs on another core while the program loads and builds
 * its window; finishFontWarmUp() waits for it where text is first measured.
 */
void startFontWarmUp();
void finishFontWarmUp();
