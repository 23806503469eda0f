#!/usr/bin/env bash
# Checks the Debian package in a minimal system of this distribution: apt alone installs it with all that it needs, the
# report works, and so do the window and playback, on a virtual screen and a sound server without a device. Takes root,
# and some five minutes.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"
# shellcheck source=scripts/minimal_root.sh
source "$root/scripts/minimal_root.sh"

install_packages debootstrap
package=$("$root/scripts/package.sh")
system=$(mktemp --directory)/system
trap 'remove_minimal_root "$system"' EXIT
new_minimal_root "$system"

home=$system/srv/person
cp "$package" "$home/sonavo.deb"
cp -r "$root/samples" "$home/Music"
cp "$root/scripts/use_window.sh" "$home/"
chroot "$system" chown -R person: /srv/person

echo "== installing"
inside "$system" sudo apt-get update >/dev/null
inside "$system" sudo env DEBIAN_FRONTEND=noninteractive apt-get install --yes ./sonavo.deb >"$system/install.log" 2>&1 ||
    { tail -n 30 "$system/install.log"; exit 1; }
inside "$system" bash -c 'sonavo --version && test -e /usr/share/applications/org.sonavo.Sonavo.desktop'

echo "== report"
inside "$system" sonavo --report Music | grep '6 groups'

echo "== window and playback"
inside "$system" sudo env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends \
    xvfb openbox xdotool ffmpeg pulseaudio pulseaudio-utils dbus-daemon >"$system/install.log" 2>&1
inside "$system" bash use_window.sh sonavo Music
cp "$home/window.png" "$root/build/package_window.png"
echo "The package is right: $package"
