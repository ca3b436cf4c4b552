#!/usr/bin/env bash
# Slices a recording, or the bundled one, with the module loaded into the stand-in host; then does the same as a user of
# its panel would. Leaves the results in out/.
set -eu
root=$(cd "$(dirname "$0")" && pwd)

if [ $# -gt 1 ] || [[ "${1:-}" = -* ]]; then
    echo "Uso: ./run.sh [gravacao]" >&2
    exit 2
fi
recording=$(realpath -m -- "${1:-$root/data/fala.flac}")

cd "$root"
scripts/setup.sh
mkdir -p build
echo "Compilando..."
if ! { cmake --preset native && cmake --build --preset native --target fatiar passeio; } >build/run.log 2>&1; then
    tail -n 40 build/run.log >&2
    echo "A compilacao falhou; o registro inteiro esta em build/run.log." >&2
    exit 1
fi
echo "Fatiando $recording"
build/native/fatiar "$recording" -o out --csv --json
build/native/passeio "$recording" out
