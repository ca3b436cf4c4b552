#!/usr/bin/env bash
# many_recordings.sh [COUNT]: lets fatiar loose on so many recordings at once (2000), with 24 files open at most; memory
# must stay flat. ./test.sh tries fewer of them.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh test
cmake --preset native >/dev/null
cmake --build --preset native -j2 --target test_apps
MANY_RECORDINGS=${1:-2000} build/native/test_apps --gtest_filter='*MilGravacoes*'
