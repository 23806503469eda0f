#!/usr/bin/env bash
# Checks that ./run.sh and ./test.sh do all that they promise on a fresh machine: as a user with sudo in a minimal Debian.
# Tries what is committed. Takes root, and 20 minutes.
#
#     scripts/check_fresh_machine.sh [bookworm|trixie] [SCRIPT...]
#
# Without a codename it is this machine's release, without scripts both.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"
source "$root/scripts/minimal_root.sh"

codename=
if [[ ${1-} == bookworm || ${1-} == trixie ]]; then
    codename=$1
    shift
fi
scripts=("$@")
(($# > 0)) || scripts=(run.sh test.sh)

install_packages git
use_minimal_root "$codename"

# With a blank in the path.
checkout="/srv/user/my projects/sonavo"
mkdir -p "$system$checkout"
git -C "$root" archive HEAD | tar --extract --directory "$system$checkout"
chroot "$system" chown -R user: /srv/user

for script in "${scripts[@]}"; do
    echo "== $script"
    time inside "$system" bash -c "cd '$checkout' && ./$script"
done

if [[ " ${scripts[*]} " == *" run.sh "* ]]; then
    echo "== run.sh once more, which installs and builds nothing"
    output=$(inside "$system" bash -c "cd '$checkout' && ./run.sh 2>&1 >report.txt")
    if grep -E 'Installing|Building' <<<"$output"; then
        exit 1
    fi
    inside "$system" grep 'groups' "$checkout/report.txt"
fi
echo "All is well on a fresh machine"
