# The widget-free core's sources, listed once for the main build and the sanitizer build in fuzz/.
file(GLOB STAKKO_CORE_SOURCES CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_LIST_DIR}/common/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/document/*.cpp ${CMAKE_CURRENT_LIST_DIR}/package/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preview/*.cpp ${CMAKE_CURRENT_LIST_DIR}/sound/*.cpp
    ${CMAKE_CURRENT_LIST_DIR}/check/*.cpp)

# Where an installed copy of the programs lives: such a copy keeps no settings beside itself.
include(GNUInstallDirs)
set(STAKKO_CORE_DEFINITIONS STAKKO_INSTALL_BINDIR="${CMAKE_INSTALL_FULL_BINDIR}")
