#!/usr/bin/env bash
# Makes data/fala.flac, the recording that ./run.sh slices when it is given none: a synthetic voice with pauses of
# several lengths, over the faint noise that any room has. The same tools give the same file.
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
sox -R "$work/voice.wav" -r 48000 "$work/padded.wav" gain -3 pad 0.6 0.4
sox -R "$work/padded.wav" -b 16 "$work/noise.wav" synth pinknoise gain -58
sox -R -m -v 1 "$work/padded.wav" -v 1 "$work/noise.wav" -b 16 "$work/fala.flac"
mkdir -p data
mv "$work/fala.flac" data/fala.flac
