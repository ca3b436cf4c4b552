#!/usr/bin/env bash
# Measures: every benchmark program, then whole commands beside other programs that do the same work.
set -u
cd "$(dirname "$0")" || exit 2
scripts/setup.sh || exit 1
cmake --preset native >/dev/null && cmake --build --preset native -j2 || exit 1

for program in build/native/bench_*; do
    [ -x "$program" ] || continue
    echo "== ${program##*/}"
    "$program" "$@" || exit 1
done
if [ -x scripts/bench_commands.sh ]; then scripts/bench_commands.sh; fi
