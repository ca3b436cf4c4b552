#!/usr/bin/env bash
# lint.sh [FILE.cpp...]: looks at the sources of the native build, or at those only, by the checks of .clang-tidy. All of
# them take some ten minutes on two cores.
set -eu -o pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh develop
# Never built, for clang cannot read the headers that GCC compiles; and file by file, as the checks' places are told.
cmake --preset native -B build/lint -DCMAKE_UNITY_BUILD=OFF >/dev/null
files() {
    if [ $# -gt 0 ]; then printf '%s\n' "$@"; else
        sed -n 's/^ *"file": "\(.*\)".*/\1/p' build/lint/compile_commands.json | sort -u
    fi
}
files "$@" | xargs -d '\n' -n1 -P"$(nproc)" clang-tidy -p build/lint --quiet
