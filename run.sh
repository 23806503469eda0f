#!/usr/bin/env bash
# Installs what is missing, builds Sonavo and starts it with the given arguments; without any it reports the
# duplicates in the sample library.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}"
# In a shell of its own: the program starts in the caller's folder, where its arguments belong.
(build "$root" release)

if (($# == 0)); then
    set -- --report "$root/samples"
fi
exec "$root/build/release/bin/sonavo" "$@"
