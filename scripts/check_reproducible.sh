#!/usr/bin/env bash
# Packages the last commit twice, from clones in two folders of unequal length, and compares all that came out.
set -eu
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for clone in um outra-pasta/dois; do
    git clone -q . "$work/$clone"
    "$work/$clone/package.sh"
done
if diff -r "$work/um/dist" "$work/outra-pasta/dois/dist"; then
    echo "Os dois pacotes sao iguais."
else
    echo "Os dois pacotes diferem." >&2
    exit 1
fi
