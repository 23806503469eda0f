#!/usr/bin/env bash
# Lets every system call of moves, trashings and undos meet every fault, and then pairs of faults at random, for SECONDS
# (20) in each of some twenty cases: about a quarter of an hour.
#
#     scripts/inject_faults.sh [SECONDS]
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
build test test_actions
SONAVO_FAULT_SECONDS=${1:-20} "$root/build/test/tests/actions/test_actions" --gtest_filter='*FaultInjection*' \
    --gtest_brief=1
