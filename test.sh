#!/usr/bin/env bash
# Installs what is missing and runs all checks: formatting, clang-tidy, the views' lint, the tests twice, optimised and
# under sanitizers, and for a moment the fuzzers.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/prepare.sh
source "$root/scripts/prepare.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
cd "$root"

# Each room is one source here, see the preset.
check_code() {
    local tree=$root/build/tidy
    mkdir -p "$tree"
    quietly "$tree/configure.log" cmake --preset tidy
    grep -oP '"file": "\K.*/Unity/unity_(?!generated)[^"]*' "$tree/compile_commands.json" | grep -v 'qmlcache\|plugin' |
        quietly "$tree/tidy.log" xargs --delimiter '\n' --max-args 1 --max-procs "$(nproc)" \
            clang-tidy-14 -p "$tree" --quiet
}

check_installation() {
    local tree=$1
    rm -rf "$tree/installed"
    quietly "$tree/install.log" cmake --install "$tree" --prefix "$tree/installed/usr"
    desktop-file-validate "$tree"/installed/usr/share/applications/*.desktop
    # The pages with the pictures need not be reachable from here.
    quietly "$tree/appstream.log" appstreamcli validate-tree --no-net "$tree/installed"
}

echo "Checking the formatting"
find src tests testing generators bench tools fuzz soak -name '*.cpp' -print0 -o -name '*.h' -print0 |
    xargs --null clang-format-14 --dry-run -Werror
echo "Checking the code"
check_code

for preset in test sanitize; do
    (build "$root" "$preset")
    if [[ $preset == test ]]; then
        echo "Checking the views"
        quietly "$root/build/test/qmllint.log" cmake --build --preset test --target all_qmllint
        echo "Checking what is installed"
        check_installation "$root/build/test"
    fi
    echo "Testing ($preset)"
    ctest --preset "$preset" --parallel "$(nproc)" --progress
done

"$root/scripts/fuzz.sh" 10
