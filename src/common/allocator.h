// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/**
 * Lets the C allocator keep freed memory for reuse instead of handing it back to the system at
 * once. Packing and unpacking create and free compressor state for every entry; memory handed
 * back must be zeroed by the system again each time, which costs more than the compressing.
 */
void keepFreedMemory();
