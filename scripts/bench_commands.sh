#!/usr/bin/env bash
# Whole commands on one core, on the same hour of 48 kHz stereo speech: fatiar, which only analyses here, beside others that
# look for silence of the same level and length, or only read. Each figure is the best of five, with the file in memory.
set -eu
cd "$(dirname "$0")/.."
fatiar=build/native/fatiar
folder=build/bench
hour=$folder/hora.wav

for tool in sox ffmpeg; do
    command -v "$tool" >/dev/null || { echo "$tool is not installed: left out, and nothing to compare with."; exit 0; }
done
mkdir -p $folder
if [ ! -s $folder/hora.mp3 ]; then
    sox data/fala.flac -r 48000 -c 2 -b 16 $folder/fala.wav
    python3 scripts/make_hour.py $folder/fala.wav $hour
    for coded in flac mp3; do ffmpeg -hide_banner -loglevel error -y -i $hour $folder/hora.$coded; done
fi

one_core=()
command -v taskset >/dev/null && one_core=(taskset -c 0)

# Seconds of wall time.
best_of_five() {
    local best= took
    for _ in 1 2 3 4 5; do
        took=$( { TIMEFORMAT=%R; time "${one_core[@]}" "$@" >/dev/null 2>&1; } 2>&1) || { echo "failed: $*" >&2; return 1; }
        best=$(awk -v a="${best:-$took}" -v b="$took" 'BEGIN {print a < b ? a : b}')
    done
    echo "$best"
}

measure_ours() { # file
    ours=$(best_of_five $fatiar "$1")
    printf '%-36s %7.3f s   %.0f times real time\n' "fatiar, ${1##*.}" "$ours" "$(awk -v s="$ours" 'BEGIN {print 3600 / s}')"
}
# The goal: how many times as fast fatiar is at least.
beside() { # name, goal, command
    command -v "$3" >/dev/null || { echo "$1: not installed, left out"; return; }
    local seconds
    seconds=$(best_of_five "${@:3}")
    awk -v name="$1" -v s="$seconds" -v ours="$ours" -v goal="$2" 'BEGIN {
        printf "%-36s %7.3f s   fatiar is %5.2f times as fast  (goal: at least %s%s)\n", name, s, s / ours, goal,
            s / ours < goal ? ", MISSED" : ""}'
}

measure_ours $hour
beside "ffmpeg silencedetect" 20 ffmpeg -hide_banner -i $hour -af silencedetect=noise=-37dB:d=0.055 -f null -
beside "sox silence" 35 sox $hour -n silence 1 0.01 -37d -1 0.055 -37d
beside "aubioquiet" 1 aubioquiet -i $hour -s -37
beside "GStreamer cutter" 3.5 gst-launch-1.0 -q filesrc location=$hour ! wavparse ! audioconvert ! \
    cutter threshold-dB=-37 run-length=55000000 ! fakesink
beside "cat, 1/1.9 of it" 0.526 cat $hour
for coded in flac mp3; do
    measure_ours $folder/hora.$coded
    beside "ffmpeg, decoding alone" 1 ffmpeg -hide_banner -i $folder/hora.$coded -f null -
done
if command -v /usr/bin/time >/dev/null; then
    kilobytes=$( { /usr/bin/time -f %M $fatiar $hour >/dev/null; } 2>&1)
    awk -v k="$kilobytes" 'BEGIN {
        printf "fatiar, memory at its peak             %5.1f MB   (goal: at most 40%s)\n", k / 1024, (k > 40960 ? ", MISSED" : "")}'
fi
