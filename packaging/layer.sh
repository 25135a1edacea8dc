#!/bin/bash
# A root of one's own: this system under a layer that is thrown away. To be sourced, as root, in a name space of mounts of
# its own. Sets $root, with the repository at /mnt and a fresh /tmp in it; `inside COMMAND...` runs a command there.

repository=$PWD
layer=$(mktemp -d)
mount -t tmpfs tmpfs "$layer"
mkdir "$layer"/{upper,work,root}
root=$layer/root
mount -t overlay overlay -o "lowerdir=/,upperdir=$layer/upper,workdir=$layer/work" "$root"
mount -t proc proc "$root/proc"
mount --rbind /sys "$root/sys"
mount --rbind /dev "$root/dev"
mount -t tmpfs tmpfs "$root/tmp"
mount --bind "$repository" "$root/mnt"

inside() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"
}
