#!/usr/bin/env bash
# Installs what is missing and takes pictures of every screen, in both themes, at three sizes, into a folder.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"

folder=${1:-$root/build/screenshots}
install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
(build "$root" test)
mkdir -p "$folder"
for scale in 1 2; do
    QT_SCALE_FACTOR=$scale "$root/build/test/bin/sonavo_screenshots" "$folder" "$root/samples"
done
