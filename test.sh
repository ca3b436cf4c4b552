#!/usr/bin/env bash
# Builds and runs every suite: native, under sanitizers, and the same suites on the Windows build under Wine.
# Ends with one line "N passed, M failed".
set -u
case "${1:-}" in -h | --help) sed -n '2,/^set/s/^# //p' "$0" && exit ;; esac
cd "$(dirname "$0")" || exit 2
scripts/setup.sh || exit 1

# The tests of that result in the log, by each program's own sum.
count() { sed -n "s/^[0-9]*: \[  $1  \] \([0-9]*\) tests\?[.,].*$/\1/p" "$log" | awk '{n += $1} END {print n + 0}'; }

passed=0
failed=0
for preset in native sanitize windows; do
    echo "== $preset"
    cmake --preset "$preset" >/dev/null && cmake --build --preset "$preset" -j2 || { failed=$((failed + 1)); continue; }
    log=build/$preset/tests.log
    if ! ctest --preset "$preset" --verbose >"$log" 2>&1; then
        broken=$(grep -cE '^[[:space:]]+[0-9]+ - .+ \(.+\)$' "$log")
        tests=$(count FAILED)
        worst=$((broken > tests ? broken : tests)) # a program that crashes lists no tests
        failed=$((failed + (worst > 0 ? worst : 1)))
        grep -E '(\[  FAILED  \]|Failure$|\*\*\*|ERROR: |runtime error:)' "$log"
        echo "The whole output is in $log."
    fi
    here=$(count PASSED)
    echo "$preset: $here tests passed"
    passed=$((passed + here))
done
echo "Not under Wine: apps and native, which need libsndfile and Lua; the benchmarks' small runs."
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
