#!/usr/bin/env bash
# Checks the Debian package in a minimal system of this machine's release: apt alone installs it with all that it needs,
# the report works, and so do the window and playback, on a virtual screen and a sound server without a device. Takes
# root, and some five minutes.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"
source "$root/scripts/minimal_root.sh"

package=$("$root/scripts/package.sh")
use_minimal_root ""

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
inside "$system" bash -c 'sonavo --version && test -e /usr/share/applications/org.sonavo.Sonavo.desktop'

echo "== report"
inside "$system" sonavo --report Music | grep '6 groups'

echo "== window and playback"
install_inside --no-install-recommends \
    xvfb openbox xdotool ffmpeg pulseaudio pulseaudio-utils dbus-daemon
inside "$system" bash use_window.sh sonavo Music
cp "$home/window.png" "$root/build/package_window.png"
echo "The package works: $package"
