#!/usr/bin/env bash
# Does OPERATIONS (10000) random clean-ups, deletions and undos on real files, with other programs at work, and compares
# each with what must hold: no content is lost, and what is said and shown is so. Takes some minutes. SEED repeats the
# choices of another run, though not the moments at which they fall.
#
#     scripts/random_clean_ups.sh [OPERATIONS [SEED]]
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
build test test_session
SONAVO_RANDOM_OPERATIONS=${1:-10000} SONAVO_RANDOM_SEED=${2:-} "$root/build/test/tests/session/test_session" \
    --gtest_filter='*RandomCleanUps*' --gtest_brief=1
