#!/usr/bin/env bash
# Slices a recording, or the bundled one, with the module loaded into the stand-in host, and leaves the result in out/.
set -eu
root=$(cd "$(dirname "$0")" && pwd)

if [ "${1:-}" = --janela ]; then
    echo "A janela ainda nao existe; por enquanto ./run.sh [gravacao] fatia pela linha de comando." >&2
    exit 2
fi
if [ $# -gt 1 ] || [[ "${1:-}" = -* ]]; then
    echo "Uso: ./run.sh [gravacao]" >&2
    exit 2
fi
recording=$(realpath -m -- "${1:-$root/data/fala.flac}")

cd "$root"
scripts/setup.sh
mkdir -p build
echo "Compilando..."
if ! { cmake --preset native && cmake --build --preset native --target fatiar; } >build/run.log 2>&1; then
    tail -n 40 build/run.log >&2
    echo "A compilacao falhou; o registro inteiro esta em build/run.log." >&2
    exit 1
fi
echo "Fatiando $recording"
build/native/fatiar "$recording" -o out --csv --json
