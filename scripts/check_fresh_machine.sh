#!/usr/bin/env bash
# Checks that ./run.sh and ./test.sh do all that they promise on a fresh machine: as a person with sudo in a minimal
# system of this distribution. Takes root, and 20 minutes. Arguments: the scripts to run, both without any.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"
# shellcheck source=scripts/minimal_root.sh
source "$root/scripts/minimal_root.sh"

install_packages debootstrap git
system=$(mktemp --directory)/system
trap 'remove_minimal_root "$system"' EXIT
new_minimal_root "$system"

# What is committed, with a blank in the path.
checkout="/srv/person/my projects/sonavo"
mkdir -p "$system$checkout"
git -C "$root" archive HEAD | tar --extract --directory "$system$checkout"
chroot "$system" chown -R person: /srv/person

scripts=("${@:-run.sh}")
(($# > 0)) || scripts+=(test.sh)
for script in "${scripts[@]}"; do
    echo "== $script"
    time inside "$system" bash -c "cd '$checkout' && CI=true ./$script"
done

if [[ " ${scripts[*]} " == *" run.sh "* ]]; then
    echo "== run.sh once more, which installs and builds nothing"
    said=$(inside "$system" bash -c "cd '$checkout' && ./run.sh 2>&1 >report.txt")
    if grep -E 'Installing|Building' <<<"$said"; then
        exit 1
    fi
    inside "$system" grep 'groups' "$checkout/report.txt"
fi
echo "All is well on a fresh machine"
