#!/usr/bin/env bash
# Installs what is missing, builds Sonavo and starts it with the given arguments. Without any it opens the window or,
# where there is no display, reports the duplicates in the sample library.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/scripts/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}"
install_svg_plugin_if_missing
install_font_if_missing
build release

if (($# == 0)) && [[ -z ${DISPLAY-}${WAYLAND_DISPLAY-}${QT_QPA_PLATFORM-} ]]; then
    echo "There is no display to open a window on; here is the report of the sample library instead." >&2
    set -- --report "$root/samples"
fi
exec "$root/build/release/bin/sonavo" "$@"
