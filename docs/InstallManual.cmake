# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Installs the built manual (MANUAL_HTML) below MANUAL_DOCDIR. Sphinx's scripts that the system's
# libjs-sphinxdoc holds byte for byte (SYSTEM_SCRIPTS) become relative links to it, as Debian
# wants them: no second copy of jQuery and Underscore.
if(IS_ABSOLUTE "${MANUAL_DOCDIR}")
    set(destination "${MANUAL_DOCDIR}/manual")
else()
    set(destination "${CMAKE_INSTALL_PREFIX}/${MANUAL_DOCDIR}/manual")
endif()
file(INSTALL "${MANUAL_HTML}/" DESTINATION "${destination}" PATTERN ".buildinfo" EXCLUDE)

file(GLOB scripts RELATIVE "${MANUAL_HTML}/_static" "${MANUAL_HTML}/_static/*.js")
foreach(script ${scripts})
    set(system "${SYSTEM_SCRIPTS}/${script}")
    if(NOT EXISTS "${system}")
        continue()
    endif()
    file(SHA256 "${MANUAL_HTML}/_static/${script}" ours)
    file(SHA256 "${system}" theirs)
    if(ours STREQUAL theirs)
        file(RELATIVE_PATH target "${destination}/_static" "${system}")
        set(installed "$ENV{DESTDIR}${destination}/_static/${script}")
        file(REMOVE "${installed}")
        file(CREATE_LINK "${target}" "${installed}" SYMBOLIC)
        message(STATUS "Linking: ${installed} -> ${target}")
    endif()
endforeach()
