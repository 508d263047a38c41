# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Optimised builds carry the distribution's hardening (dpkg-buildflags: PIE, stack protector,
# fortify, relro, bindnow); Release builds also leave out the folders they were built in, so
# the same source gives the same programs wherever it is built.
set(STAKKO_HARDENED_CONFIGS Release RelWithDebInfo MinSizeRel)
# Optimised as the distribution optimises its packages.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
find_program(DPKG_BUILDFLAGS dpkg-buildflags)
if(DPKG_BUILDFLAGS)
    # Only the hardening: the build type chooses optimisation and debug information, and the
    # folders are mapped below.
    foreach(kind CPPFLAGS CXXFLAGS LDFLAGS)
        execute_process(
            COMMAND ${CMAKE_COMMAND} -E env
                "DEB_BUILD_MAINT_OPTIONS=hardening=+all reproducible=-fixfilepath,-fixdebugpath"
                "DEB_CXXFLAGS_MAINT_STRIP=-g -O2" ${DPKG_BUILDFLAGS} --get ${kind}
            OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        separate_arguments(flags UNIX_COMMAND "${flags}")
        set(HARDENING_${kind} ${flags})
    endforeach()
    # What newer dpkg-buildflags add on this architecture: stack clash and control flow protection.
    include(CheckCXXCompilerFlag)
    foreach(flag -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "HAS${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            list(APPEND HARDENING_CXXFLAGS ${flag})
        endif()
    endforeach()
    list(JOIN STAKKO_HARDENED_CONFIGS "," configs)
    set(hardened "$<CONFIG:${configs}>")
    add_compile_options("$<${hardened}:${HARDENING_CPPFLAGS};${HARDENING_CXXFLAGS}>")
    add_link_options("$<${hardened}:${HARDENING_LDFLAGS}>")
else()
    message(WARNING "dpkg-buildflags is not installed: the programs are built without hardening (make deps installs dpkg-dev)")
endif()

# The build folder is mapped after the source folder, so that it wins when it lies inside.
add_compile_options(
    "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.;-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>")
