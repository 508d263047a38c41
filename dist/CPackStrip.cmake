# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Read by cpack after the install is staged: the programs lose the compiler's notes as well,
# as the distribution's own packages do (CPack's strip leaves .comment and .note).
file(GLOB programs "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*")
foreach(program ${programs})
    execute_process(COMMAND objcopy --remove-section=.comment --remove-section=.note ${program}
                    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
