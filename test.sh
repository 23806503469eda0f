#!/usr/bin/env bash
# Installs what is missing and runs all checks: formatting, and the tests twice, optimised and under sanitizers.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

cd "$root"
echo "Checking the formatting"
find src tests bench tools -name '*.cpp' -o -name '*.h' | sort | xargs clang-format-14 --dry-run -Werror

for preset in test sanitize; do
    (build "$root" "$preset")
    if [[ $preset == test ]]; then
        echo "Checking the views"
        quietly "$root/build/test/qmllint.log" cmake --build --preset test --target all_qmllint
    fi
    echo "Testing ($preset)"
    ctest --preset "$preset" --parallel "$(nproc)" --progress
done
