# shellcheck shell=bash
# Sourced by the scripts in the root: installs what is missing and builds. What is printed here goes to standard
# error: standard output belongs to the program that is started.

BUILD_PACKAGES=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qcoro-qt6-dev
    qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev qt6-qpa-plugins
    qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-layouts
    qml6-module-qtquick-templates qml6-module-qtquick-window qml6-module-qtqml qml6-module-qtqml-models
    qml6-module-qtqml-workerscript qml6-module-qt-labs-qmlmodels
    libavformat-dev libavcodec-dev libavutil-dev
    # Playback: the pipeline, the way to the sound server and most decoders, and the one of AAC.
    libgstreamer1.0-dev gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
    gstreamer1.0-alsa
    fontconfig
    # Opens a folder where no file manager answers on the message bus.
    xdg-utils
)
# One version of the clang tools everywhere: versions differ in what they call formatted.
TEST_PACKAGES=(
    libgtest-dev libgmock-dev librapidcheck-dev
    clang-format-14 clang-tidy-14 ffmpeg
    # The compiler of the sanitizers' build, and what gives their reports names; the tests' other build has the
    # distribution's compiler.
    clang-14 libclang-rt-14-dev llvm-14
    # A desktop for the program's window: screen, window manager, mouse, and a screen reader's way in.
    xvfb openbox xdotool dbus-daemon at-spi2-core
    # Switches the accessibility of windows on that no desktop shows.
    qt6-base-private-dev
    desktop-file-utils appstream
    # A sound server of the tests' own, and what records it.
    pulseaudio pulseaudio-utils
)
BENCH_PACKAGES=(libbenchmark-dev)

# install_packages NAME... installs the distribution's packages that are not there yet.
install_packages() {
    local package missing=()
    for package in "$@"; do
        if [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
            missing+=("$package")
        fi
    done
    if ((${#missing[@]} == 0)); then
        return
    fi

    local as_root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and installing them takes root or sudo: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    # A source that cannot be reached need not be the one that is needed.
    "${as_root[@]}" apt-get update >&2 || true
    # A desktop may be installing its own updates just now.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get --option DPkg::Lock::Timeout=300 install --yes --no-install-recommends "${missing[@]}" >&2
}

# install_font_if_missing sees to a sans-serif font that has most alphabets. A system without one draws little boxes.
install_font_if_missing() {
    if ! fc-list ':lang=en:lang=el:lang=ru' family | grep -i sans | grep -vi mono >/dev/null; then
        install_packages fonts-noto-core
    fi
}

# quietly LOG COMMAND... shows what a command prints only when it fails.
quietly() {
    local log=$1
    shift
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
}

# build ROOT PRESET [TARGET...] configures where that is needed and builds what has changed.
build() {
    local root=$1 preset=$2
    shift 2
    local tree=$root/build/$preset
    mkdir -p "$tree"
    cd "$root"
    if [[ ! -e $tree/build.ninja || CMakePresets.json -nt $tree/build.ninja ]]; then
        quietly "$tree/configure.log" cmake --preset "$preset"
    fi
    if [[ -z $(ninja -C "$tree" -n "$@" 2>/dev/null | grep 'no work to do') ]]; then
        echo "Building ($preset)" >&2
    fi
    quietly "$tree/build.log" cmake --build --preset "$preset" --target "${@:-all}"
}
