# shellcheck shell=bash
# Sourced by the checks that need a machine on which nothing is installed: a minimal system of the distribution that
# this one is, in a folder, with the package sources of this one.

# new_minimal_root FOLDER makes one, with bash, apt and sudo and a person called "person" who may use sudo; FOLDER must
# not exist. Only root can do that.
new_minimal_root() {
    local target=$1 codename mirror
    if ((EUID != 0)); then
        echo "A system in a folder takes root" >&2
        return 1
    fi
    # shellcheck source=/dev/null
    codename=$(source /etc/os-release && echo "$VERSION_CODENAME")
    # shellcheck disable=SC2016 # apt's own placeholders
    mirror=$(apt-get indextargets --format '$(RELEASE) $(REPO_URI)' 'Created-By: Packages' |
        awk -v codename="$codename" '$1 == codename { print $2; exit }')
    echo "Making a minimal $codename" >&2
    debootstrap --variant=minbase --include=ca-certificates,sudo "$codename" "$target" "$mirror" >"$target.log" ||
        { tail -n 20 "$target.log" >&2; return 1; }

    # Packages come from where this machine has them, by the same way.
    rm -rf "$target"/etc/apt/sources.list*
    cp -a /etc/apt/sources.list* /etc/apt/apt.conf.d "$target/etc/apt/"
    cp -a /etc/apt/keyrings /etc/apt/trusted.gpg.d "$target/etc/apt/" 2>/dev/null || true
    cp -aL /etc/resolv.conf /etc/hosts "$target/etc/"

    chroot "$target" useradd --create-home --home-dir /srv/person --shell /bin/bash person
    echo "person ALL=(ALL) NOPASSWD: ALL" >"$target/etc/sudoers.d/person"
    mount -t proc proc "$target/proc"
    mount --rbind --make-rslave /dev "$target/dev"
}

# remove_minimal_root FOLDER takes it away, whatever still runs in it.
remove_minimal_root() {
    local target=$1 process
    for process in /proc/[0-9]*; do
        [[ $(readlink "$process/root") != "$target"* ]] || kill -9 "${process#/proc/}" 2>/dev/null || true
    done
    umount --lazy "$target/proc" "$target/dev" 2>/dev/null || true
    if mountpoint -q "$target/dev" || mountpoint -q "$target/proc"; then
        echo "Something is still mounted in $target" >&2
        return 1
    fi
    rm -rf --one-file-system "$target" "$target.log"
}

# inside FOLDER COMMAND... runs a command in it as the person.
inside() {
    local target=$1
    shift
    env --ignore-environment PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin TERM=dumb LANG=C.UTF-8 \
        chroot "$target" sudo --user person --login -- "$@"
}
