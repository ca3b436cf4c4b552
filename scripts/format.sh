#!/usr/bin/env bash
# format.sh [--check]: lays our C++ out as .clang-format says; with --check it only tells what would change. Each major
# version lays out a little differently, so it is 14 or none: without it this ends with 77, which means skipped.
set -eu
cd "$(dirname "$0")/.."
for tool in clang-format-14 clang-format none; do
    [[ $tool != none ]] || { echo "format: skipped, for clang-format 14 is not installed"; exit 77; }
    [[ $($tool --version 2>/dev/null) != *version\ 14.* ]] || break
done
how=-i
[ "${1:-}" != --check ] || how="--dry-run -Werror"
find . -path ./build -prune -o '(' -name '*.cpp' -o -name '*.h' ')' -print0 | xargs -0 $tool $how
