#!/usr/bin/env bash
# Leaves in dist/ what users get: the zip, the .ReaperPkg, the package manager's index.xml and the module that it points
# to, with their SHA-256 sums; and the module's debug file, which stays with us. All of it is checked before this ends well.
#     ./package.sh [--endereco URL]    URL: where reaper_quilmo.dll will be downloaded from
#     ./package.sh --conferir          builds the commit twice, in two folders: the bytes must be the same
set -eu
cd "$(dirname "$0")"
usage() { sed -n '2,/^set/s/^# //p' package.sh; }
address=ENDERECO-DE-DOWNLOAD/reaper_quilmo.dll
case "${1:-}" in
    '') ;;
    --endereco) address=${2:?falta o endereco} ;;
    --conferir) exec scripts/check_reproducible.sh ;;
    -h | --help) usage && exit ;;
    *) usage >&2 && exit 2 ;;
esac
scripts/setup.sh package

# Without the compiler cache, whose entries may come from another folder.
echo "Compilando; leva uns dois minutos..."
mkdir -p build
if ! { cmake --preset package && CCACHE_DISABLE=1 cmake --build --preset package -j2; } >build/package.log 2>&1; then
    tail -n 40 build/package.log >&2
    exit 1
fi
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/package/CMakeCache.txt)
epoch=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
name=reaper_quilmo-$version-win64

rm -rf dist
stage=dist/stage
mkdir -p $stage/licencas
# -p keeps the linker's time stamp, which is none, where these tools would put their own.
x86_64-w64-mingw32-objcopy -p --only-keep-debug build/package/reaper_quilmo.dll "dist/$name.debug"
x86_64-w64-mingw32-strip -p -o $stage/reaper_quilmo.dll build/package/reaper_quilmo.dll
# Texts as every Windows editor reads them: UTF-8 that says so, lines that end in CRLF.
for_windows() { { printf '\xef\xbb\xbf' && sed "s/@VERSAO@/$version/; s/\$/\r/" "$1"; } >"$stage/$2"; }
for_windows docs/LEIA-ME.txt LEIA-ME.txt
for_windows docs/NOVIDADES.txt NOVIDADES.txt
for_windows docs/licencas.txt licencas/LEIA-ME.txt
for_windows LICENSE licencas/quilmo.txt
# What the compiler links statically into the module: its own runtime, and that of mingw-w64 with its threads.
for_windows /usr/share/doc/gcc-mingw-w64-base/copyright licencas/gcc-runtime.txt
for_windows /usr/share/doc/mingw-w64-common/copyright licencas/mingw-w64-winpthreads.txt
for_windows /usr/share/common-licenses/GPL-3 licencas/GPL-3.txt

python3 scripts/make_package.py $stage dist "$version" "$epoch" "$address"
rm -r $stage
python3 scripts/check_package.py dist "$version"
cat dist/SHA256SUMS.txt
[ $# -gt 0 ] || echo "index.xml traz um endereco provisorio; --endereco URL poe o verdadeiro." >&2
