#!/usr/bin/env bash
# Leaves in dist/ what users get: the zip, the .ReaperPkg, the package manager's index.xml and the module that it points
# to, with their SHA-256 sums; and the module's debug file, which stays with us. All of it is checked before this ends well.
#     ./package.sh               says what docs/enderecos.txt leaves open
#     ./package.sh --publicar    fails while it leaves anything open
#     ./package.sh --conferir    builds the commit twice, in two folders: the bytes must be the same
set -eu
cd "$(dirname "$0")"
usage() { sed -n '2,/^set/s/^# //p' package.sh; }
case "${1:-}" in
    '' | --publicar) ;;
    --conferir) exec scripts/check_reproducible.sh ;;
    -h | --help) usage && exit ;;
    *) usage >&2 && exit 2 ;;
esac
open=$(sed '/^#/d' docs/enderecos.txt | grep -oE 'PREENCHER-[A-Z]+' | xargs)
tell_open() { echo "docs/enderecos.txt: falta preencher $open" >&2; }
[ -z "$open" ] || [ "${1:-}" != --publicar ] || { tell_open && exit 1; }
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
fill=$(sed -nE 's/[&|]/\\&/g; s/^([A-Z]+) (.+)/s|@\1@|\2|g/p' docs/enderecos.txt && echo "s/@VERSAO@/$version/g")
for_windows() { { printf '\xef\xbb\xbf' && sed "$fill; s/\$/\r/" "$1"; } >"$stage/$2"; }
for_windows docs/LEIA-ME.txt LEIA-ME.txt
for_windows docs/NOVIDADES.txt NOVIDADES.txt
for_windows docs/licencas.txt licencas/LEIA-ME.txt
for_windows LICENSE licencas/quilmo.txt
# What the compiler links statically into the module: its own runtime, and that of mingw-w64 with its threads.
for_windows /usr/share/doc/gcc-mingw-w64-base/copyright licencas/gcc-runtime.txt
for_windows /usr/share/doc/mingw-w64-common/copyright licencas/mingw-w64-winpthreads.txt
for_windows /usr/share/common-licenses/GPL-3 licencas/GPL-3.txt

sed "$fill" docs/manual.md >$stage/manual.md
addresses=$(echo '@SITE@ @DOWNLOAD@' | sed "$fill")
python3 scripts/make_package.py $stage dist "$version" "$epoch" $addresses
rm -r $stage
python3 scripts/check_package.py dist "$version"
cat dist/SHA256SUMS.txt
[ -z "$open" ] || tell_open
