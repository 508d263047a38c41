#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Runs one test with a home, configuration, cache and data folder of its own, removed afterwards,
# so that no test reads or writes the settings and caches of the person running the tests.
home=$(mktemp -d "${TMPDIR:-/tmp}/stakko-test-home.XXXXXX") || exit 1
trap 'rm -rf "$home"' EXIT
HOME=$home
XDG_CONFIG_HOME=$home/.config
XDG_CACHE_HOME=$home/.cache
XDG_DATA_HOME=$home/.local/share
XDG_STATE_HOME=$home/.local/state
export HOME XDG_CONFIG_HOME XDG_CACHE_HOME XDG_DATA_HOME XDG_STATE_HOME
# The tests compare English texts, whatever language the person running them speaks; a test of
# another language asks for it.
LC_ALL=C.UTF-8
LANGUAGE=
export LC_ALL LANGUAGE
"$@"
status=$?
exit $status
