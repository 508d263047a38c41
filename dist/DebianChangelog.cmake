# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# cmake -DCHANGELOG=CHANGELOG.md -DOUTPUT=changelog -DMAINTAINER="Name <address>" -P DebianChangelog.cmake
# Writes CHANGELOG.md in the Debian changelog format: each "## VERSION (YYYY-MM-DD)" entry with
# its "- " items, signed by the maintainer at midnight UTC of its date.
file(STRINGS ${CHANGELOG} lines ENCODING UTF-8)
set(out "")
set(version "")

function(close_entry)
    if(version)
        execute_process(COMMAND date -u -R -d ${date} OUTPUT_VARIABLE stamp
                        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        set(out "${out}\n -- ${MAINTAINER}  ${stamp}\n" PARENT_SCOPE)
    endif()
endfunction()

foreach(line IN LISTS lines)
    if(line MATCHES "^## ([^ ]+) \\(([0-9-]+)\\)$")
        close_entry()
        if(out)
            string(APPEND out "\n")
        endif()
        set(version ${CMAKE_MATCH_1})
        set(date ${CMAKE_MATCH_2})
        string(APPEND out "stakko-theme-maker (${version}) unstable; urgency=medium\n\n")
    elseif(version AND line MATCHES "^- (.*)")
        string(APPEND out "  * ${CMAKE_MATCH_1}\n")
    elseif(version AND line MATCHES "^  +(.*)")
        string(APPEND out "    ${CMAKE_MATCH_1}\n")
    endif()
endforeach()
close_entry()
if(NOT version)
    message(FATAL_ERROR "${CHANGELOG} has no \"## VERSION (YYYY-MM-DD)\" entry")
endif()
file(WRITE ${OUTPUT} "${out}")
