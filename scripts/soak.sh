#!/usr/bin/env bash
# Installs what is missing, builds the soak test and runs it: SCANS scans (200) of a changing folder in one window, with
# cancelled scans, previews and deletions in between. Fails when memory, open files or threads keep growing, when the
# window shows what is no longer so, or when anything warns. SEED repeats the choices of another run, though not the
# moments at which they fall.
#
#     scripts/soak.sh [SCANS [SEED]]
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" libgtest-dev qt6-base-private-dev pulseaudio pulseaudio-utils
install_svg_plugin_if_missing
build soak
"$root/build/soak/bin/sonavo_soak" "$@"
