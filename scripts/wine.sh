#!/usr/bin/env bash
# Runs a Windows program under Wine, on a virtual display, in a prefix inside the build folder. With --janela in front it
# is for a person: on the display that there is, in a prefix of its own, whose windows have frames.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
prefix=wineprefix seen=
if [ "${1:?usage: wine.sh [--janela] PROGRAM [ARGUMENT...]}" = --janela ]; then
    shift
    [ -z "${DISPLAY:-}" ] || prefix=wineprefix-janela seen=yes
fi
export WINEPREFIX="${WINEPREFIX:-$here/build/windows/$prefix}"
[ "$(locale charmap)" = UTF-8 ] || export LC_ALL=C.UTF-8 # else Wine makes no file with an accent in its name
export WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
# Without a sound card ALSA would say so in a stream of lines.
if ! [ -n "${PULSE_SERVER:-}" -o -S "${XDG_RUNTIME_DIR:-}/pulse/native" ] && ! grep -qs '^ *[0-9]' /proc/asound/cards; then
    WINEDLLOVERRIDES+=';winealsa.drv='
    [ -z "$seen" ] || echo "Sem placa de som: nada se ouve." >&2
fi
mkdir -p "$WINEPREFIX"
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine) || { echo "Wine is not installed." >&2; exit 127; }
if [ -n "$seen" ]; then
    if [ ! -e "$WINEPREFIX/system.reg" ]; then
        echo "Preparando o Wine, so desta vez..." >&2
        "$wine" wineboot -i >/dev/null 2>&1
    fi
    exec "$wine" "$@"
fi
settings=$here/scripts/wine_tests.reg kept=$WINEPREFIX/wine_tests.reg
export settings kept
settle='cmp -s "$settings" "$kept" || { "$0" reg import "Z:$settings" >/dev/null 2>&1 && cp "$settings" "$kept"; }'
exec xvfb-run -a -s '-screen 0 1280x1024x24' bash -c "$settle"'; exec "$0" "$@"' "$wine" "$@"
