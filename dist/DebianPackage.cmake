# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# make package: a Debian package of everything cmake --install puts in place, below /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME stakko-theme-maker)
set(CPACK_PACKAGE_VENDOR "The Stakko Theme Maker developers")
set(CPACK_PACKAGE_CONTACT "${STAKKO_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for themes of the falling-blocks game Stakko")
set(CPACK_PACKAGE_DESCRIPTION
    "Stakko Theme Maker is the desktop editor in which theme authors build themes
for the falling-blocks game Stakko: animated backgrounds and blocks, interface
screens, colours, sounds and music, saved as a .skt theme file and a zip
resource package. Previews play every animation as the game does; a check
finds missing frames and broken sounds.
.
The package also holds stakko-theme, the same theme core on the command line
for scripts and batch work: create, set, dump, check and package themes.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
if(STAKKO_WEB_ADDRESS)
    set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${STAKKO_WEB_ADDRESS}")
endif()
# Folders in the package are 0755 whatever the builder's umask; its time stamps are those of
# SOURCE_DATE_EPOCH, taken from the last commit when the caller gives none.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
configure_file(${CMAKE_CURRENT_LIST_DIR}/CPackDates.cmake.in ${PROJECT_BINARY_DIR}/CPackDates.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/CPackDates.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/CPackStrip.cmake)
# The libraries the binaries link come from dpkg-shlibdeps; the soundfont is data MIDI playback
# opens by name, which no link shows.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries loaded when first wanted, which no link shows either.
foreach(loaded IN LISTS STAKKO_LOADED_LIBRARIES)
    string(REPLACE "|" ";" loaded "${loaded}")
    list(GET loaded 1 file)
    list(GET loaded 2 version)
    get_filename_component(file ${file} REALPATH)
    execute_process(COMMAND dpkg-query -S ${file} OUTPUT_VARIABLE owner ERROR_QUIET)
    if(owner MATCHES "^([^:, ]+)")
        set(package ${CMAKE_MATCH_1})
        string(REGEX MATCH "^[0-9]+\\.[0-9]+" version "${version}")
        list(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS "${package} (>= ${version})")
    endif()
endforeach()
# The manual's search and navigation scripts are links into Debian's libjs-sphinxdoc.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_DEPENDS ${CPACK_DEBIAN_PACKAGE_DEPENDS} ${STAKKO_MANUAL_DEPENDS})
# Qt's own catalogs translate the buttons of its dialogs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "timgm6mb-soundfont, qt6-translations-l10n")
string(JOIN ", " CPACK_DEBIAN_PACKAGE_DEPENDS ${CPACK_DEBIAN_PACKAGE_DEPENDS} qt6-image-formats-plugins) # import reads WebP, TIFF
include(CPack)
