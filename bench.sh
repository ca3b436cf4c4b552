#!/usr/bin/env bash
# Measures: every benchmark program, then whole commands beside other programs that do the same work. What is given goes
# to every benchmark program: ./bench.sh --benchmark_filter=icon
set -u
case "${1:-}" in -h | --help) sed -n '2,/^set/s/^# //p' "$0" && exit ;; esac
cd "$(dirname "$0")" || exit 2
scripts/setup.sh bench || exit 1
cmake --preset native >/dev/null && cmake --build --preset native -j2 --target benchmarks fatiar reaper_quilmo || exit 1

echo "Debian builds the benchmark library with its checks on, and so it warns of DEBUG: what it measures is not touched."
for program in build/native/bench_*; do
    echo "== ${program##*/}"
    "$program" "$@" || exit 1
done
scripts/bench_commands.sh
