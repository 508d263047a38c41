#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the last commit's Debian package twice, in two clones at different paths and at
# different times, and compares the two files byte for byte. On a difference it names each
# member of the package that differs. Usage: check-reproducible.sh [JOBS] [FIRST.deb SECOND.deb]
# (with two packages given, it only compares them).
set -eu

jobs=${1:-2}

# Prints the members of two packages that differ; fails when there is one.
compare() {
    if cmp -s "$1" "$2"; then
        echo "Reproducible: both packages are the same $(wc -c <"$1") bytes ($(sha256sum "$1" | cut -c1-16)...)."
        return 0
    fi
    echo "NOT reproducible: $1 and $2 differ."
    unpacked=$(mktemp -d)
    for side in first second; do
        mkdir -p "$unpacked/$side/members" "$unpacked/$side/files"
    done
    (cd "$unpacked/first/members" && ar x "$1")
    (cd "$unpacked/second/members" && ar x "$2")
    ar tv "$1" >"$unpacked/first/list"
    ar tv "$2" >"$unpacked/second/list"
    if ! cmp -s "$unpacked/first/list" "$unpacked/second/list"; then
        echo "  the archive's member list or headers (times, owners, modes) differ:"
        diff "$unpacked/first/list" "$unpacked/second/list" | sed 's/^/    /' || true
    fi
    for member in $(ls "$unpacked/first/members"); do
        if cmp -s "$unpacked/first/members/$member" "$unpacked/second/members/$member"; then
            continue
        fi
        echo "  member $member differs"
        case $member in
        *.tar*)
            for side in first second; do
                mkdir -p "$unpacked/$side/files/$member"
                tar -xf "$unpacked/$side/members/$member" -C "$unpacked/$side/files/$member"
                tar -tvf "$unpacked/$side/members/$member" --full-time >"$unpacked/$side/$member.list"
            done
            diff "$unpacked/first/$member.list" "$unpacked/second/$member.list" | sed 's/^/    /' || true
            (cd "$unpacked/first/files/$member" && find . -type f) | sort | while read -r file; do
                cmp -s "$unpacked/first/files/$member/$file" "$unpacked/second/files/$member/$file" ||
                    echo "    file $file differs"
            done
            ;;
        esac
    done
    rm -rf "$unpacked"
    return 1
}

if [ $# -eq 3 ]; then
    compare "$(realpath "$2")" "$(realpath "$3")"
    exit
fi

source=$(git -C "$(dirname "$0")" rev-parse --show-toplevel)
commit=$(git -C "$source" rev-parse HEAD)
if [ -n "$(git -C "$source" status --porcelain --untracked-files=no)" ]; then
    echo "Note: uncommitted changes are not part of the check; it builds commit $commit."
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/stakko-reproducible.XXXXXX")
trap 'rm -rf "$work"' EXIT INT TERM

# ccache's base folder makes the clones' paths relative, so the second build costs little.
CCACHE_BASEDIR=$work
export CCACHE_BASEDIR

first=$work/first
second=$work/second/at/another/depth
build=1
for clone in "$first" "$second"; do
    git clone --quiet --no-checkout "$source" "$clone"
    git -C "$clone" checkout --quiet --detach "$commit"
    echo "Building the package, build $build, in $clone"
    # TZ and umask differ too: neither may reach the package.
    if [ $build -eq 1 ]; then zone=UTC; mask=022; else zone=Pacific/Kiritimati; mask=002; fi
    if ! (cd "$clone" && umask $mask && TZ=$zone MAKEFLAGS= make --no-print-directory package \
            JOBS="$jobs" PACKAGE_BUILD=build-package >"$work/build-$build.log" 2>&1); then
        tail -n 40 "$work/build-$build.log"
        echo "The package did not build in $clone"
        exit 1
    fi
    build=$((build + 1))
done

compare "$(ls "$first"/build-package/*.deb)" "$(ls "$second"/build-package/*.deb)"
