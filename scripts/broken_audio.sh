#!/usr/bin/env bash
# broken_audio.sh [SEEDS]: lets fatiar loose on broken recordings, under the sanitizers: of each format so many (100), cut
# short and with bytes flipped. ./test.sh tries a few of them.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh test
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize -j2 --target test_apps
BROKEN_SEEDS=${1:-100} build/sanitize/test_apps --gtest_filter='*Quebrados*'
