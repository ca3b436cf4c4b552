#!/usr/bin/env bash
# try_fresh.sh SUITE [COMMAND...]: makes a bare Debian of that release (bookworm, trixie), and there, as a user who may sudo,
# clones the last commit and runs the commands, ./run.sh and ./test.sh unless told others. Tells of each how it ended, how
# long it took and by how much the disk grew. Needs root and debootstrap; MIRROR and FOLDER say from where and into which
# folder. A folder that is there already is used as it stands. No other Xvfb should run meanwhile: a chroot shares its
# displays' sockets, but not the locks by which a free one is found.
set -eu
suite=${1:?usage: try_fresh.sh SUITE [COMMAND...]}
shift
[ $# -gt 0 ] || set -- ./run.sh ./test.sh
clone=$(cd "$(dirname "$0")/.." && pwd)
root=${FOLDER:-/var/tmp/quilmo-$suite}

if [ ! -e "$root" ]; then
    debootstrap --variant=minbase "$suite" "$root" ${MIRROR:-}
    apt-config dump Acquire >"$root/etc/apt/apt.conf.d/99machine" # proxies and the like, as here
    chroot "$root" apt-get update -q
    chroot "$root" apt-get install -y -q --no-install-recommends sudo
    chroot "$root" useradd -m -s /bin/bash novato
    echo 'novato ALL=(ALL) NOPASSWD: ALL' >"$root/etc/sudoers.d/novato"
    git clone -q --no-hardlinks "$clone" "$root/home/novato/quilmo"
    chroot "$root" sh -c 'chown -R novato: ~novato'
fi

# What is mounted and started in there ends with the command.
inside() {
    unshare --mount --pid --kill-child bash -c 'mount -t proc proc "$0/proc" && mount -t tmpfs tmpfs "$0/dev/shm" &&
        mount -t devpts devpts "$0/dev/pts" -o newinstance,ptmxmode=666 && mount --bind "$0/dev/pts/ptmx" "$0/dev/ptmx" &&
        exec chroot "$0" su - novato -c "cd quilmo && $1" </dev/null' "$root" "$1"
}
grown() { du -sxm "$root" | cut -f1; }

told=()
before=$(grown)
for command; do
    echo "== $suite: $command"
    status=0
    SECONDS=0
    inside "$command" || status=$?
    took=$SECONDS
    after=$(grown)
    told+=("$(printf '%-10s %-24s exit %d  %3d min %02d s  +%d MB' "$suite" "$command" "$status" $((took / 60)) $((took % 60)) \
        $((after - before)))")
    before=$after
done
printf '%s\n' "${told[@]}"
[[ "${told[*]}" != *"exit "[!0]* ]]
