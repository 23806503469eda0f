#!/usr/bin/env bash
# Checks the Debian package in minimal systems: it builds in one with nothing but what the build installs, apt alone
# installs it in another with all that it needs, the report works, and so do the window and playback, on a virtual screen
# and a sound server without a device. Tries what is committed. Takes root, and some fifteen minutes.
#
#     scripts/check_package.sh [bookworm|trixie]
#
# Without a codename it is this machine's release.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"
source "$root/scripts/minimal_root.sh"

codename=${1-}
install_packages git
use_minimal_root "$codename"

echo "== building"
checkout=/srv/user/sonavo
mkdir "$system$checkout"
git -C "$root" archive HEAD | tar --extract --directory "$system$checkout"
chroot "$system" chown -R user: /srv/user
package=$(inside "$system" "$checkout/scripts/package.sh" 2>"$system/package.log") ||
    { tail -n 30 "$system/package.log"; exit 1; }
mkdir -p "$root/build"
cp "$system$package" "$root/build/"
package=$root/build/${package##*/}
rm -rf --one-file-system "$system"
new_minimal_root "$system" "$codename"

home=$system/srv/user
cp "$package" "$home/sonavo.deb"
cp -r "$root/samples" "$home/Music"
cp "$root/scripts/use_window.sh" "$home/"
chroot "$system" chown -R user: /srv/user

install_inside() {
    inside "$system" sudo env DEBIAN_FRONTEND=noninteractive apt-get install --yes "$@" >"$system/install.log" 2>&1 ||
        { tail -n 30 "$system/install.log"; return 1; }
}

echo "== installing"
inside "$system" sudo apt-get update >/dev/null
install_inside ./sonavo.deb
inside "$system" bash -c 'sonavo --version && test -e /usr/share/applications/org.sonavo.Sonavo.desktop &&
    grep "^Exec=/usr/bin/sonavo$" /usr/share/dbus-1/services/org.sonavo.Sonavo.service'

echo "== report"
inside "$system" sonavo --report Music | grep '6 groups'

echo "== window and playback"
install_inside --no-install-recommends \
    xvfb openbox xdotool ffmpeg pulseaudio pulseaudio-utils dbus-daemon
inside "$system" bash use_window.sh sonavo Music
cp "$home/window.png" "$root/build/package_window.png"
echo "The package works: $package"
