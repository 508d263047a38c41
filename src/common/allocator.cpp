// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/allocator.h"

#include <cstdlib> // defines __GLIBC__ where it applies

#if defined(__GLIBC__)
#include <malloc.h>
#endif

void keepFreedMemory()
{
#if defined(__GLIBC__)
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    mallopt(M_TOP_PAD, 16 << 20);
#endif
}
