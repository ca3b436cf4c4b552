#!/usr/bin/env bash
# Whole commands on one core, on the same hour of 48 kHz stereo speech: fatiar, which only analyses here, beside other
# tools that look for silence at the same level. Each figure is the best of five runs, with the file in memory.
set -eu
cd "$(dirname "$0")/.."
fatiar=build/native/fatiar
hour=build/bench/hora.wav

for tool in sox ffmpeg; do
    command -v "$tool" >/dev/null || { echo "$tool is not installed: left out, and nothing to compare with."; exit 0; }
done
mkdir -p build/bench
if [ ! -s "$hour" ]; then
    sox data/fala.flac -r 48000 -c 2 -b 16 "$hour.part.wav" repeat 300 trim 0 3600
    mv "$hour.part.wav" "$hour"
fi

one_core=()
command -v taskset >/dev/null && one_core=(taskset -c 0)

# Seconds of wall time, the best of five.
best_of() {
    local best= took
    for _ in 1 2 3 4 5; do
        took=$( { TIMEFORMAT=%R; time "${one_core[@]}" "$@" >/dev/null 2>&1; } 2>&1) || { echo "failed: $*" >&2; return 1; }
        best=$(awk -v a="${best:-$took}" -v b="$took" 'BEGIN {print a < b ? a : b}')
    done
    echo "$best"
}

ours=$(best_of $fatiar "$hour")
report() { # name, wanted ratio, command
    local seconds
    seconds=$(best_of "${@:3}")
    awk -v name="$1" -v s="$seconds" -v ours="$ours" -v goal="$2" 'BEGIN {
        printf "%-34s %7.3f s   fatiar is %5.1f times as fast (goal %d)\n", name, s, s / ours, goal}'
}
printf '%-34s %7.3f s   %.0f times real time\n' "fatiar" "$ours" "$(awk -v s="$ours" 'BEGIN {print 3600 / s}')"
report "ffmpeg -af silencedetect" 10 ffmpeg -hide_banner -i "$hour" -af silencedetect -f null -
report "sox silence" 25 sox "$hour" -n silence 1 0.01 -37d -1 0.055 -37d
if command -v /usr/bin/time >/dev/null; then
    kilobytes=$( { /usr/bin/time -f %M $fatiar "$hour" >/dev/null; } 2>&1)
    awk -v k="$kilobytes" 'BEGIN {printf "fatiar, memory at its peak           %5.1f MB   (goal: under 40)\n", k / 1024}'
fi
