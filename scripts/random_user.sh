#!/usr/bin/env bash
# random_user.sh [SEEDS]: lets random users loose on the panel, under the sanitizers: so many (10), each for 100 000 events.
# ./test.sh tries one for a fifth of that.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh test
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize -j2 --target test_random
for _ in $(seq "${1:-10}"); do QUILMO_EVENTS=100000 build/sanitize/test_random; done
