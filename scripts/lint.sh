#!/usr/bin/env bash
# lint.sh [FILE.cpp...]: looks at the sources of the native build, or at those only, by the checks of .clang-tidy. All of
# them take some ten minutes on two cores.
set -eu -o pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh develop
cmake --preset native >/dev/null
files() {
    if [ $# -gt 0 ]; then printf '%s\n' "$@"; else
        sed -n 's/^ *"file": "\(.*\)".*/\1/p' build/native/compile_commands.json | sort -u
    fi
}
files "$@" | xargs -d '\n' -n1 -P"$(nproc)" clang-tidy -p build/native --quiet
