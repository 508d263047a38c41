#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every fuzz target in BUILD for SECONDS seconds, JOBS at a time, and prints how many
# inputs each one ran. Exits non-zero when any target found a crash, a leak, undefined
# behaviour, a broken property or a slow input; the finding is saved in BUILD/findings/.
#
#   run-fuzzers.sh BUILD SECONDS JOBS
#
# Each target grows its corpus in BUILD/corpus/<target> (kept between runs) from the seeds in
# BUILD/seeds/<target>, which make-corpus.py writes.
set -u

build=$1
seconds=$2
jobs=$3

# Leak checking stays on: Qt's one-time allocations are reachable from globals, so only what
# our code loses per input is reported. Undefined behaviour is compiled to stop at once.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen
export SDL_AUDIODRIVER=dummy

mkdir -p "$build/logs" "$build/findings" || exit 1

targets=()
for binary in "$build"/fuzz_*; do
	[ -f "$binary" ] && [ -x "$binary" ] && targets+=("$(basename "$binary")")
done
if [ ${#targets[@]} -eq 0 ]; then
	echo "No fuzz targets in $build." >&2
	exit 1
fi

run_target() {
	local name=$1
	local corpus="$build/corpus/$name" seeds="$build/seeds/$name" dict="$build/seeds/$name.dict"
	local options=(-max_total_time="$seconds" -timeout=25 -rss_limit_mb=3072 -print_final_stats=1
		-artifact_prefix="$build/findings/$name-")
	[ -f "$dict" ] && options+=(-dict="$dict")
	rm -f "$build/logs/$name.status"
	mkdir -p "$corpus" || return 1
	"$build/$name" "${options[@]}" "$corpus" "$seeds" >"$build/logs/$name.log" 2>&1
	echo $? >"$build/logs/$name.status"
}

echo "Fuzzing ${targets[*]} for $seconds s each, $jobs at a time."
running=0
for name in "${targets[@]}"; do
	if [ "$running" -ge "$jobs" ]; then
		wait -n
		running=$((running - 1))
	fi
	run_target "$name" &
	running=$((running + 1))
done

wait

failed=0
for name in "${targets[@]}"; do
	log="$build/logs/$name.log"
	status=$(cat "$build/logs/$name.status" 2>/dev/null || echo "not run")
	runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
	if [ "$status" = 0 ]; then
		printf '%-20s %10s executions in %s s: OK\n' "$name" "${runs:-?}" "$seconds"
	else
		failed=1
		printf '%-20s %10s executions: FAILED (exit %s), log %s\n' "$name" "${runs:-?}" "$status" "$log"
		grep -E -A 30 'ERROR: |Property broken|runtime error|ALARM|SUMMARY' "$log" | head -n 60
		ls "$build/findings/$name-"* 2>/dev/null | sed 's/^/    finding: /'
	fi
done
exit "$failed"
