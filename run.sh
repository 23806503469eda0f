#!/usr/bin/env bash
# Installs what is missing, builds Sonavo and starts it with the given arguments. Without any it opens the window or,
# where there is no display, reports the duplicates in the sample library.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}"
install_font_if_missing
# In a shell of its own: the program starts in the caller's folder, where its arguments belong.
(build "$root" release)

if (($# == 0)) && [[ -z ${DISPLAY-}${WAYLAND_DISPLAY-}${QT_QPA_PLATFORM-} ]]; then
    echo "There is no display to open a window on; here is the report of the sample library instead." >&2
    set -- --report "$root/samples"
fi
exec "$root/build/release/bin/sonavo" "$@"
