#!/usr/bin/env bash
# Installs what is missing and runs all checks: formatting, clang-tidy, the views' lint, the installation, the tests
# twice, optimised and under sanitizers, and the fuzzers for ten seconds.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/scripts/prepare.sh"

# The version that .clang-format and .clang-tidy are written for. Others format and warn differently.
CLANG_VERSION=14

check_formatting() {
    echo "Checking the formatting"
    find src tests testing generators bench tools fuzz soak -name '*.cpp' -print0 -o -name '*.h' -print0 |
        xargs --null clang-format --dry-run -Werror
}

# Each module is one source here, see the preset.
check_code() {
    echo "Checking the code"
    local tree=$root/build/tidy
    # Anew each time: nothing is built there that would notice a file that was added or removed.
    rm -f "$tree/build.ninja"
    configure tidy
    grep -oP '"file": "\K.*/Unity/unity_(?!generated)[^"]*' "$tree/compile_commands.json" | grep -v 'qmlcache\|plugin' |
        quietly "$tree/tidy.log" xargs --delimiter '\n' --max-args 1 --max-procs "$(nproc)" \
            clang-tidy -p "$tree" --quiet
}

check_installation() {
    echo "Checking what is installed"
    local tree=$root/build/test
    rm -rf "$tree/installed"
    quietly "$tree/install.log" cmake --install "$tree" --prefix "$tree/installed/usr"
    desktop-file-validate "$tree"/installed/usr/share/applications/*.desktop
    # Without network: the pictures' addresses are not checked.
    quietly "$tree/appstream.log" appstreamcli validate --pedantic --no-net \
        "$tree"/installed/usr/share/metainfo/*.xml
    quietly "$tree/appstream.log" appstreamcli validate-tree --no-net "$tree/installed"
}

check_views() {
    echo "Checking the views"
    quietly "$root/build/test/qmllint.log" cmake --build --preset test --target all_qmllint
}

# Windows, sound and disks that hang are real here, and a busy machine can delay them. So a test may fail once, but its
# name is kept for the end: somebody should find out why.
run_tests() {
    echo "Testing ($1)"
    local log=$root/build/$1/tests.log
    ctest --preset "$1" --parallel "$(($(nproc) + 1))" --repeat until-pass:2 --progress | tee "$log"
    mapfile -t -O "${#unsteady[@]}" unsteady \
        < <(sed -nE "s/.*Test +#[0-9]+: ([^ ]+) .*\*\*\*.*/\1 ($1)/p" "$log" | sort --unique)
}
unsteady=()

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
install_svg_plugin_if_missing
cd "$root"

installed=$(clang-format --version | grep -oP 'version \K[0-9]+')
if ((installed == CLANG_VERSION)); then
    check_formatting
    check_code
else
    echo "Not checking the formatting and the code: that takes the clang tools $CLANG_VERSION, and these are $installed"
fi

build test
check_views
check_installation
run_tests test

build sanitize
run_tests sanitize
"$root/scripts/fuzz.sh" 10
if ((${#unsteady[@]})); then
    echo "Passed only when they were tried again:"
    printf '  %s\n' "${unsteady[@]}"
fi
