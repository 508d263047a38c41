# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The widget-free core's sources, listed once for the main build and the sanitizer build in fuzz/.
file(GLOB STAKKO_CORE_SOURCES CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_LIST_DIR}/common/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/package/*.cpp ${CMAKE_CURRENT_LIST_DIR}/theme/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/editing/*.cpp ${CMAKE_CURRENT_LIST_DIR}/art/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preview/*.cpp ${CMAKE_CURRENT_LIST_DIR}/sound/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/check/*.cpp)

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

# The libraries loaded when first wanted (common/loadedlibrary.h), as NAME|file|version: the
# core compiles against their headers and names each by the soname it was built against; the
# Debian package depends on them, as no link shows them. Packages are read and written with
# libarchive, imported sounds converted with libsndfile and libsamplerate, sound played with the
# mixer.
find_package(LibArchive REQUIRED)
pkg_check_modules(STAKKO_ART_AUDIO REQUIRED sndfile samplerate)
pkg_check_modules(SDL2_MIXER REQUIRED SDL2_mixer)
find_library(STAKKO_SNDFILE_PATH NAMES sndfile HINTS ${STAKKO_ART_AUDIO_LIBRARY_DIRS} REQUIRED)
find_library(STAKKO_SAMPLERATE_PATH NAMES samplerate HINTS ${STAKKO_ART_AUDIO_LIBRARY_DIRS} REQUIRED)
find_library(STAKKO_MIXER_PATH NAMES SDL2_mixer HINTS ${SDL2_MIXER_LIBRARY_DIRS} REQUIRED)
set(STAKKO_LOADED_LIBRARIES
    "ARCHIVE|${LibArchive_LIBRARIES}|${LibArchive_VERSION}"
    "SNDFILE|${STAKKO_SNDFILE_PATH}|${STAKKO_ART_AUDIO_sndfile_VERSION}"
    "SAMPLERATE|${STAKKO_SAMPLERATE_PATH}|${STAKKO_ART_AUDIO_samplerate_VERSION}"
    "MIXER|${STAKKO_MIXER_PATH}|${SDL2_MIXER_VERSION}"
    CACHE INTERNAL "")
set(STAKKO_CORE_INCLUDE_DIRS ${LibArchive_INCLUDE_DIRS} ${STAKKO_ART_AUDIO_INCLUDE_DIRS} ${SDL2_MIXER_INCLUDE_DIRS})
foreach(loaded IN LISTS STAKKO_LOADED_LIBRARIES)
    string(REPLACE "|" ";" loaded "${loaded}")
    list(GET loaded 0 name)
    list(GET loaded 1 file)
    execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${file} OUTPUT_VARIABLE headers ERROR_QUIET)
    if(NOT headers MATCHES "SONAME +([^\n]+)")
        message(FATAL_ERROR "No soname found in ${file}")
    endif()
    string(STRIP "${CMAKE_MATCH_1}" soname)
    list(APPEND STAKKO_CORE_DEFINITIONS STAKKO_${name}_LIBRARY="${soname}")
endforeach()
