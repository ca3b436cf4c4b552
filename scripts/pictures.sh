#!/usr/bin/env bash
# Takes the manual's pictures of the panel anew, into docs/pictures.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh run
mkdir -p build
if ! { cmake --preset run && cmake --build --preset run --target retratos; } >build/pictures.log 2>&1; then
    tail -n 40 build/pictures.log >&2
    exit 1
fi
rm -f docs/pictures/*.png
mkdir -p docs/pictures
build/run/retratos data/fala.flac docs/pictures
ls docs/pictures
