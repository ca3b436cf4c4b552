#!/usr/bin/env bash
# Runs a Windows program under Wine, on a virtual display, in a prefix inside the build folder.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="${WINEPREFIX:-$here/build/windows/wineprefix}"
export WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
mkdir -p "$WINEPREFIX"
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)
exec xvfb-run -a -s '-screen 0 1280x1024x24' "$wine" "$@"
