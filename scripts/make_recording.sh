#!/usr/bin/env bash
# Makes data/fala.flac, the recording that ./run.sh slices when it is given none: a synthetic voice with pauses of
# several lengths, on which the floor matters: -30 dB eats the ends of words, -40 is right, -55 keeps everything. The
# same tools give the same file.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh recording
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

espeak-ng -m -v pt-br -s 150 -w "$work/voice.wav" '<speak>
Bom dia a todos. <break time="900ms"/> Esta gravação tem pausas longas, <break time="700ms"/>
e o fatiador vai tirar cada uma delas. <break time="1100ms"/>
Um, <break time="400ms"/> dois, <break time="400ms"/> três. <break time="800ms"/> Até logo!
</speak>'
# As recordings mostly are: a room whose echo lets each word die away, a hum and a hiss near -50 dB, breaths in the pauses.
# Nothing is dithered, and the hiss is dull, so that the file stays small.
sox -R "$work/voice.wav" -b 24 -r 48000 "$work/room.wav" gain -10 pad 0.6 0.4 reverb 12 60 20
sox -R "$work/room.wav" -b 24 "$work/hum.wav" synth sine 60 gain -58
sox -R "$work/room.wav" -b 24 "$work/hiss.wav" synth whitenoise lowpass 1500 lowpass 1500 gain -41.5
sox -R -n -b 24 -r 48000 "$work/breath.wav" synth 0.35 pinknoise band -n 1200 1500 fade h 0.15 0.35 0.15 norm -45
sounds=(room hum hiss)
for at in 2.1 5.2 8.75 11.65; do
    sox -R "$work/breath.wav" "$work/breath$at.wav" pad $at
    sounds+=("breath$at")
done
sox -R -D -m $(printf " -v 1 $work/%s.wav" "${sounds[@]}") -b 16 -C 8 "$work/fala.flac"
mkdir -p data
mv "$work/fala.flac" data/fala.flac
