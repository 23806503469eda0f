#!/usr/bin/env bash
# Installs what is missing and takes pictures of every screen, in both themes, at two sizes, and with high contrast at
# the smaller one, once and twice as fine.
#
#     scripts/screenshots.sh [FOLDER [LANGUAGE]]
#
# Without a folder they go into build/screenshots. The language is a code such as "de"; English unless given. Those that
# docs/ has for the README and for software centres get a shadow, on a transparent ground.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

folder=${1:-$root/build/screenshots}
install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" imagemagick
install_svg_plugin_if_missing
build test
mkdir -p "$folder"
for scale in 1 2; do
    QT_SCALE_FACTOR=$scale "$root/build/test/bin/sonavo_screenshots" "$folder" "$root/samples" "${2-en}"
done
for picture in results-light playing-dark welcome-light; do
    convert "$folder/$picture-900.png" '(' +clone -background black -shadow 45x12+0+6 ')' +swap \
        -background none -layers merge +repage "$folder/${picture%-*}.png"
done
