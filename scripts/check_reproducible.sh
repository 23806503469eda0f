#!/usr/bin/env bash
# Builds the Debian package of what is committed twice, in different folders and without a compiler cache, and checks that
# both are the same byte by byte. Takes ten minutes.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

install_packages git
work=$(mktemp --directory)
trap 'rm -rf "$work"' EXIT
export CCACHE_DISABLE=1
commit=$(git -C "$root" rev-parse HEAD)

packages=()
for folder in "$work/one" "$work/another one with a longer name"; do
    mkdir "$folder"
    git -C "$root" archive "$commit" | tar --extract --directory "$folder"
    packages+=("$("$folder/scripts/package.sh")")
done
if ! cmp "${packages[@]}"; then
    for package in "${packages[@]}"; do
        dpkg-deb --extract "$package" "$package.d"
    done
    diff --recursive --brief "${packages[@]/%/.d}" || true
    exit 1
fi
echo "Both builds gave the same package: $(sha256sum <"${packages[0]}" | cut --delimiter ' ' --fields 1)"
