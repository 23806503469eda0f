# shellcheck shell=bash
# Sourced after prepare.sh by the checks that need a machine on which nothing is installed: a minimal Debian in a folder,
# with the package sources of this machine.

# use_minimal_root [CODENAME] makes one whose folder is $system, and which is gone when the script ends.
use_minimal_root() {
    install_packages debootstrap
    system=$(mktemp --directory)/system
    trap 'rm -rf --one-file-system "$(dirname -- "$system")"' EXIT
    new_minimal_root "$system" "$@"
}

# new_minimal_root FOLDER [CODENAME] makes one of the release with that codename, this machine's unless told: with apt,
# sudo, and a user called "user" who may use sudo. FOLDER must not exist. Only root can do that.
new_minimal_root() {
    local target=$1 codename=${2-} own mirror setting
    if ((EUID != 0)); then
        echo "Making a root file system takes root" >&2
        return 1
    fi
    # shellcheck source=/dev/null
    own=$(source /etc/os-release && echo "$VERSION_CODENAME")
    codename=${codename:-$own}
    # shellcheck disable=SC2016 # apt's own placeholders
    mirror=$(apt-get indextargets --format '$(RELEASE) $(REPO_URI)' 'Created-By: Packages' |
        awk -v codename="$own" '$1 == codename { print $2; exit }')
    echo "Making a minimal $codename" >&2
    debootstrap --variant=minbase --include=ca-certificates,sudo "$codename" "$target" "$mirror" >"$target.log" ||
        { tail -n 20 "$target.log" >&2; return 1; }

    # Packages come from the mirrors of this machine. Other vendors' sources need not know the other release.
    rm -rf "$target"/etc/apt/sources.list*
    cp -a /etc/apt/sources.list* "$target/etc/apt/"
    cp -a /etc/apt/keyrings /etc/apt/trusted.gpg.d "$target/etc/apt/" 2>/dev/null || true
    # Settings that belong to a package come with that package, which would ask about the copy.
    for setting in /etc/apt/apt.conf.d/*; do
        dpkg-query --search "$setting" >/dev/null 2>&1 || cp -a "$setting" "$target/etc/apt/apt.conf.d/"
    done
    find "$target"/etc/apt/sources.list* -type f -exec sed -i "s/\<$own\>/$codename/g" {} +
    cp -aL /etc/resolv.conf /etc/hosts "$target/etc/"

    chroot "$target" useradd --create-home --home-dir /srv/user --shell /bin/bash user
    echo "user ALL=(ALL) NOPASSWD: ALL" >"$target/etc/sudoers.d/user"
}

# inside FOLDER COMMAND... runs a command in it as the user. What the command leaves running is killed when it ends.
inside() {
    # A plain chroot does not let the user make the user namespaces in which tests mount file systems.
    # shellcheck disable=SC2016
    local enter='
        mount --rbind "$1" "$1"
        mount --rbind /dev "$1/dev"
        mount -t proc proc "$1/proc"
        cd "$1"
        shift
        pivot_root . mnt
        umount --lazy /mnt
        sudo --user user --login -- "$@"
        exit'
    env --ignore-environment PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin TERM=dumb LANG=C.UTF-8 \
        unshare --mount --pid --fork --kill-child bash -e -c "$enter" inside "$@"
}
