#!/usr/bin/env bash
# Slices a recording, or the bundled one, with the module loaded into the stand-in host; then does the same as a user of
# its panel would. Leaves the results in out/. With --janela it opens the recording in studio instead, under Wine.
set -eu
root=$(cd "$(dirname "$0")" && pwd)
preset=native targets=(fatiar passeio)
if [ "${1:-}" = --janela ]; then
    preset=windows targets=(studio)
    shift
fi

if [ $# -gt 1 ] || [[ "${1:-}" = -* ]]; then
    echo "Uso: ./run.sh [--janela] [gravacao]" >&2
    exit 2
fi
recording=$(realpath -m -- "${1:-$root/data/fala.flac}")

cd "$root"
scripts/setup.sh
mkdir -p build
echo "Compilando..."
if ! { cmake --preset $preset && cmake --build --preset $preset --target "${targets[@]}"; } >build/run.log 2>&1; then
    tail -n 40 build/run.log >&2
    echo "A compilacao falhou; o registro inteiro esta em build/run.log." >&2
    exit 1
fi

if [ $preset = windows ]; then
    form=$(ffprobe -v error -select_streams a:0 -show_entries stream=codec_name:format=format_name -of csv=p=0 \
        "$recording" | tr '\n' ' ')
    if ! [[ $form =~ ^pcm_(u8|s16le|s24le|s32le|f32le)\ wav ]]; then  # what studio reads
        mkdir -p out
        name=$(basename "$recording")
        ffmpeg -v error -y -i "$recording" -c:a pcm_s24le "out/${name%.*}.wav"
        recording=$root/out/${name%.*}.wav
    fi
    [ -n "${DISPLAY:-}" ] || echo "Sem DISPLAY: a janela abre num monitor virtual, onde ninguem a ve." >&2
    echo "Abrindo $recording no studio; a tecla A abre o painel"
    exec scripts/wine.sh --janela build/windows/studio.exe "$recording"
fi
echo "Fatiando $recording"
build/native/fatiar "$recording" -o out --csv --json
build/native/passeio "$recording" out
