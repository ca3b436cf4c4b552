#!/usr/bin/env bash
# test.sh [PRESET...]: looks at the sources (format, includes), then builds and runs every suite: native, under sanitizers,
# and the same suites on the Windows build under Wine; or those presets only. Ends with one line "N passed, M failed".
set -u
case "${1:-}" in -h | --help) sed -n '2,/^set/s/^# //p' "$0" && exit ;; esac
cd "$(dirname "$0")" || exit 2
[ $# -gt 0 ] || set -- native sanitize windows
for preset; do
    [[ $preset =~ ^(native|sanitize|windows)$ ]] || { echo "test.sh: no preset '$preset' with tests" >&2; exit 2; }
done
scripts/setup.sh test || exit 1

# The tests of that result in the log, by each program's own sum.
count() { sed -n "s/^[0-9]*: \[  $1  \] \([0-9]*\) tests\?[.,].*$/\1/p" "$log" | awk '{n += $1} END {print n + 0}'; }

passed=0
failed=0
echo "== sources"
for look in "scripts/format.sh --check" "python3 scripts/check_includes.py"; do # each counts as a test
    $look
    case $? in
        0) passed=$((passed + 1)) ;;
        77) ;; # skipped, and it has said so
        *) failed=$((failed + 1)) ;;
    esac
done
for preset; do
    echo "== $preset"
    cmake --preset "$preset" >/dev/null && cmake --build --preset "$preset" -j2 || { failed=$((failed + 1)); continue; }
    log=build/$preset/tests.log
    [ "$preset" = windows ] && jobs=1 || jobs=2 # under Wine all programs share one desktop
    if ! ctest --preset "$preset" -j$jobs --verbose >"$log" 2>&1; then
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
