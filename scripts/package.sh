#!/usr/bin/env bash
# Installs what is missing, builds Sonavo and makes its Debian package; prints where it is.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" dpkg-dev file
build release
cd "$root/build/release"
rm -f sonavo_*.deb
quietly package.log cpack
ls "$PWD"/sonavo_*.deb
