# shellcheck shell=bash
# Sourced by the other scripts: installs what is missing and builds. What is printed here goes to standard error, because
# standard output belongs to the program that is started.

# The project's folder.
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# The time that resources and packages carry instead of that of the build, so that the same source gives the same bytes.
SOURCE_DATE_EPOCH=$(date --utc --date "$(grep -oP 'SONAVO_RELEASE_DATE \K[0-9-]+' "$root/packaging/CMakeLists.txt")" +%s)
export SOURCE_DATE_EPOCH

BUILD_PACKAGES=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qcoro-qt6-dev
    qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev qt6-qpa-plugins qt6-wayland libxcb1-dev
    qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-layouts
    qml6-module-qtquick-templates qml6-module-qtquick-window qml6-module-qtqml qml6-module-qtqml-models
    qml6-module-qtqml-workerscript qml6-module-qt-labs-qmlmodels
    # The compiler of the catalogues of translations, and those of Qt itself.
    qt6-l10n-tools qt6-translations-l10n
    libavformat-dev libavcodec-dev libavutil-dev
    # Playback: the pipeline, the sound outputs and most decoders, and the decoder of AAC.
    libgstreamer1.0-dev gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
    gstreamer1.0-alsa
    fontconfig
    # Opens a folder where no file manager answers on the message bus.
    xdg-utils
)
TEST_PACKAGES=(
    libgtest-dev libgmock-dev librapidcheck-dev
    clang-format clang-tidy ffmpeg
    # The compiler, the runtime and the symbolizer of the sanitizers. The other build uses g++.
    clang libclang-rt-dev llvm
    # A desktop for the program's window: screen, window manager, and mouse.
    xvfb openbox xdotool dbus-daemon weston
    # Turns accessibility on in windows without a desktop.
    qt6-base-private-dev
    desktop-file-utils appstream
    # A private sound server, and its recorder.
    pulseaudio pulseaudio-utils
    # A disk with subvolumes.
    btrfs-progs
)
BENCH_PACKAGES=(libbenchmark-dev ffmpeg)

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
    # A package source that cannot be reached may not be needed.
    "${as_root[@]}" apt-get update >&2 || true
    # A desktop may be installing its own updates just now.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get --option DPkg::Lock::Timeout=300 install --yes --no-install-recommends "${missing[@]}" >&2
}

# install_svg_plugin_if_missing sees to the image plug-in that draws the logo: a package of its own in Debian 13, part of
# the library in Debian 12.
install_svg_plugin_if_missing() {
    if [[ ! -e $(qtpaths6 --query QT_INSTALL_PLUGINS)/imageformats/libqsvg.so ]]; then
        install_packages qt6-svg-plugins
    fi
}

# install_font_if_missing sees to a sans-serif font that has most alphabets. Without one, text is drawn as boxes.
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

# configure PRESET makes or updates the build folder of a preset.
configure() (
    tree=$root/build/$1
    mkdir -p "$tree"
    cd "$root" || exit
    # A cache that older presets have filled keeps values that the new ones no longer set.
    if [[ ! -e $tree/build.ninja || CMakePresets.json -nt $tree/build.ninja ]]; then
        quietly "$tree/configure.log" cmake --fresh --preset "$1"
    fi
)

# build PRESET [TARGET...] configures where that is needed and builds what has changed.
build() (
    preset=$1 tree=$root/build/$1
    shift
    configure "$preset"
    cd "$root" || exit
    if ! ninja -C "$tree" -n "$@" 2>/dev/null | grep 'no work to do' >/dev/null; then
        echo "Building ($preset)" >&2
    fi
    quietly "$tree/build.log" cmake --build --preset "$preset" --target "${@:-all}"
)
