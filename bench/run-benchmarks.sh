#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every benchmark program of a build and closes with one table of measures against targets.
# Usage: run-benchmarks.sh BUILD [NAME...]
# A benchmark's own diagnostics (Qt's and SDL's warnings) go to a log shown only when it fails
# to run; a missed target is SLOW in the table, not a failure.
set -u
build=$1
shift
logs=$(mktemp -d) || exit 1
trap 'rm -rf "$logs"' EXIT
rows=$logs/rows
: >"$rows"
status=0
# The editor measured from outside comes first: its rows head the table.
ran=
for program in "$build"/bench/bench_outside "$build"/bench/bench_*; do
    [ -f "$program" ] && [ -x "$program" ] || continue
    name=$(basename "$program")
    case " $ran " in *" $name "*) continue ;; esac
    ran="$ran $name"
    if [ $# -gt 0 ]; then
        case " $* " in *" $name "*) ;; *) continue ;; esac
    fi
    echo "== $name"
    QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*.warning=false' SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-disk} \
        "$program" 2>"$logs/$name.err" >"$logs/$name.out"
    code=$?
    grep -v '^@row	' "$logs/$name.out"
    grep '^@row	' "$logs/$name.out" | cut -f2- >>"$rows"
    if [ $code -ne 0 ] || ! grep -q '^@row	' "$logs/$name.out"; then
        echo "*** $name did not run to the end (exit status $code); its diagnostics:"
        cat "$logs/$name.err"
        echo "$name	did not run	-	FAILED" >>"$rows"
        status=1
    fi
done
echo
printf '%-52s %-12s %-12s %s\n' MEASURE FIGURE TARGET RESULT
while IFS='	' read -r measure figure target result; do
    printf '%-52s %-12s %-12s %s\n' "$measure" "$figure" "$target" "$result"
done <"$rows"
exit $status
