# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The widget-free core's sources, listed once for the main build and the sanitizer build in fuzz/.
file(GLOB STAKKO_CORE_SOURCES CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_LIST_DIR}/common/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/package/*.cpp ${CMAKE_CURRENT_LIST_DIR}/theme/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/editing/*.cpp ${CMAKE_CURRENT_LIST_DIR}/art/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preview/*.cpp ${CMAKE_CURRENT_LIST_DIR}/sound/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/check/*.cpp)
# Import reads and writes sounds with these; only src/art/ includes them.
pkg_check_modules(STAKKO_ART_AUDIO REQUIRED IMPORTED_TARGET sndfile samplerate)
set(STAKKO_CORE_PRIVATE_LIBRARIES PkgConfig::STAKKO_ART_AUDIO)

# An installed copy of the programs finds its metainfo here, relative to its own folder, and
# keeps no settings beside itself; whatever the prefix, the unpacked Debian package included.
if(STAKKO_APP_ID)
    include(GNUInstallDirs)
    file(RELATIVE_PATH STAKKO_INSTALLED_MARKER ${CMAKE_INSTALL_FULL_BINDIR}
         ${CMAKE_INSTALL_FULL_DATADIR}/metainfo/${STAKKO_APP_ID}.metainfo.xml)
    set(STAKKO_CORE_DEFINITIONS STAKKO_INSTALLED_MARKER="${STAKKO_INSTALLED_MARKER}")
    # The manual likewise, relative to the program; a program run from its build reads the build's.
    file(RELATIVE_PATH manualInstalled ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DOCDIR}/manual)
    set_property(SOURCE ${CMAKE_CURRENT_LIST_DIR}/common/usermanual.cpp APPEND PROPERTY COMPILE_DEFINITIONS
                 STAKKO_MANUAL_INSTALLED="${manualInstalled}")
    # And the translations' catalogs.
    file(RELATIVE_PATH translationsInstalled ${CMAKE_INSTALL_FULL_BINDIR}
         ${CMAKE_INSTALL_FULL_DATADIR}/stakko-theme-maker/translations)
    set_property(SOURCE ${CMAKE_CURRENT_LIST_DIR}/common/translations.cpp APPEND PROPERTY COMPILE_DEFINITIONS
                 STAKKO_TRANSLATIONS_INSTALLED="${translationsInstalled}")
    # A packaged program never looks into the folder it was built in (nor carries its path).
    if(STAKKO_BUILD_TREE_MANUAL)
        set_property(SOURCE ${CMAKE_CURRENT_LIST_DIR}/common/usermanual.cpp APPEND PROPERTY COMPILE_DEFINITIONS
                     STAKKO_MANUAL_BUILT="${STAKKO_MANUAL_HTML}")
        set_property(SOURCE ${CMAKE_CURRENT_LIST_DIR}/common/translations.cpp APPEND PROPERTY COMPILE_DEFINITIONS
                     STAKKO_TRANSLATIONS_BUILT="${STAKKO_TRANSLATIONS_BUILT}")
    endif()
endif()

# The mixer is loaded when sound is first wanted: the core compiles against its headers and
# names the library by the soname it was built against.
find_library(STAKKO_MIXER_PATH NAMES SDL2_mixer HINTS ${SDL2_MIXER_LIBRARY_DIRS} REQUIRED)
execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${STAKKO_MIXER_PATH} OUTPUT_VARIABLE mixerHeaders ERROR_QUIET)
if(NOT mixerHeaders MATCHES "SONAME +([^\n]+)")
    message(FATAL_ERROR "No soname found in ${STAKKO_MIXER_PATH}")
endif()
string(STRIP "${CMAKE_MATCH_1}" STAKKO_MIXER_SONAME)
list(APPEND STAKKO_CORE_DEFINITIONS STAKKO_MIXER_LIBRARY="${STAKKO_MIXER_SONAME}")
