#!/usr/bin/env bash
# setup.sh GROUP: installs what scripts/packages.txt lists for that group and this machine lacks. Where that cannot be done
# it fails, names what is missing and says what to type.
set -u
cd "$(dirname "$0")/.." || exit 2
group=${1:?usage: setup.sh GROUP}

lacking() { # those of the packages named that are not installed
    for package; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

mapfile -t wanted < <(awk -v group="$group" '!/^#/ {for (i = 2; i <= NF; ++i) if ($i == group) print $1}' scripts/packages.txt)
[ ${#wanted[@]} -gt 0 ] || { echo "setup.sh: no group '$group' in scripts/packages.txt" >&2; exit 2; }
mapfile -t missing < <(lacking "${wanted[@]}")
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Instalando: ${missing[*]}"
sudo=; [ "$(id -u)" -eq 0 ] || sudo=sudo
export DEBIAN_FRONTEND=noninteractive
install() { $sudo apt-get install -y -q --no-install-recommends "$@"; }
$sudo apt-get update -q
install "${missing[@]}" && exit 0

# One name that cannot be had keeps all of them out; so each by itself, to tell which.
for package in "${missing[@]}"; do install "$package" >/dev/null 2>&1; done
mapfile -t missing < <(lacking "${missing[@]}")
[ ${#missing[@]} -gt 0 ] || exit 0
echo "Falta, e nao se pode instalar: ${missing[*]}" >&2
echo "Instale e rode de novo:  sudo apt-get update && sudo apt-get install ${missing[*]}" >&2
exit 1
