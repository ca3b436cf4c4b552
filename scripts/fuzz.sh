#!/usr/bin/env bash
# fuzz.sh SECONDS [TARGET...]: builds the fuzz targets with clang and lets libFuzzer run each for that long, under the
# sanitizers. What it has found worth keeping lies in build/fuzz/corpus; an input that fails is written to build/fuzz.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:?usage: fuzz.sh SECONDS [draw|glyph|text|files ...]}
shift
[ $# -gt 0 ] || set -- draw glyph text files
scripts/setup.sh develop
cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1 -fsanitize=fuzzer-no-link" -DQUILMO_SANITIZE=ON -DQUILMO_FUZZ=ON >/dev/null
cmake --build build/fuzz -j2 --target "${@/#/fuzz_}"
export LSAN_OPTIONS=print_suppressions=0
cd build/fuzz
for target in "$@"; do
    mkdir -p "corpus/$target"
    echo "== $target"
    "./fuzz_$target" -max_total_time="$seconds" -max_len=512 -timeout=10 -verbosity=0 -print_funcs=0 "corpus/$target"
done
