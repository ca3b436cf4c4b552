#!/usr/bin/env bash
# Installs what scripts/packages.txt lists and this machine lacks. Where that cannot be done it names what is missing;
# with CI=true that is a failure.
set -u
cd "$(dirname "$0")/.." || exit 2

missing=()
while read -r package; do
    case "$package" in '' | '#'*) continue ;; esac
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done <scripts/packages.txt
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=; [ "$(id -u)" -eq 0 ] || sudo=sudo
export DEBIAN_FRONTEND=noninteractive
if $sudo apt-get update -q && $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"; then exit 0; fi

echo "Could not install: ${missing[*]}. What needs them is left out or will fail." >&2
[ "${CI:-}" = true ] && exit 1
exit 0
