#!/usr/bin/env bash
# Slices a recording, or the bundled one, with the module loaded into the stand-in host; then does the same as a user of
# its panel would. Leaves the results in out/. With --janela it opens the recording in studio instead, under Wine.
set -eu
root=$(cd "$(dirname "$0")" && pwd)
usage() {
    echo "Uso: ./run.sh [gravacao]            fatia a gravacao, ou a que vem junto, e passeia pelo painel; tudo fica em out/"
    echo "     ./run.sh --janela [gravacao]   abre a gravacao numa janela, sob o Wine; a tecla A abre o painel"
}
preset=run targets=(fatiar passeio)
case "${1:-}" in
    -h | --help | --ajuda) usage && exit ;;
    --janela) preset=window targets=(studio) && shift ;;
esac
if [ $# -gt 1 ] || [[ "${1:-}" = -* ]]; then
    usage >&2
    exit 2
fi
recording=$(realpath -m -- "${1:-$root/data/fala.flac}")
out=out
[ "$PWD" -ef "$root" ] || out=$root/out  # so that what is told of it is true where the user stands

cd "$root"
scripts/setup.sh $preset
[ -e build/$preset ] && echo "Compilando..." || echo "Compilando; a primeira vez leva alguns minutos..."
mkdir -p build
if ! { cmake --preset $preset && cmake --build --preset $preset --target "${targets[@]}"; } >build/run.log 2>&1; then
    tail -n 40 build/run.log >&2
    echo "A compilacao falhou; o registro inteiro esta em build/run.log." >&2
    exit 1
fi

if [ $preset = window ]; then
    refuse() {
        echo "'$recording' nao existe, ou nao e audio que se possa ler" >&2
        exit 2
    }
    form=$(ffprobe -v quiet -select_streams a:0 -show_entries stream=codec_name:format=format_name -of csv=p=0 \
        "$recording") || refuse
    if ! [[ $form =~ ^pcm_(u8|s16le|s24le|s32le|f32le)[[:space:]]wav ]]; then  # what studio reads
        mkdir -p out
        name=$(basename "$recording")
        ffmpeg -v quiet -y -i "$recording" -c:a pcm_s24le "out/${name%.*}.wav" || refuse
        recording=$root/out/${name%.*}.wav
    fi
    [ -n "${DISPLAY:-}" ] || echo "Sem DISPLAY: a janela abre num monitor virtual, onde ninguem a ve. Para ve-la, rode" \
        "numa sessao grafica ou por ssh -X. Ctrl+C termina." >&2
    echo "Abrindo $recording no studio; a tecla A abre o painel"
    exec scripts/wine.sh --janela build/window/studio.exe "$recording"
fi
echo "Fatiando $recording"
build/run/fatiar "$recording" -o "$out" --csv --json --sobrescrever
build/run/passeio "$recording" "$out"
