# shellcheck shell=bash disable=SC2034
# What the project needs from the system, by purpose; the names are Debian 12's. Read by the other scripts, which
# call need_packages with the groups that they use. An installed system is left alone and needs no network.

packages_build=(
    g++ cmake ninja-build pkgconf                # compiler and build tools
    libturbojpeg0-dev libjpeg62-turbo-dev        # JPEG
    libpng-dev libtiff-dev libgif-dev libwebp-dev
    libhwy-dev                                   # vector arithmetic, chosen at run time
    libpango1.0-dev libfontconfig-dev            # text
    fonts-liberation                             # stands in for Arial, which captions are written in
    libgtk-4-dev libglib2.0-dev-bin              # the widget and the Studio
    librsvg2-common                              # what its icons are read with
    gobject-introspection libgirepository1.0-dev # the widget in other languages
)
packages_test=(
    libgtest-dev libgmock-dev
    libcairo2-dev                                # what shapes are held against
    xvfb xauth xdotool openbox imagemagick       # a desktop in memory
    python3-gi gir1.2-gtk-4.0 gjs                # the widget from Python and JavaScript
    dbus at-spi2-core gir1.2-atspi-2.0 x11-utils # what the Studio tells a screen reader, and its windows
    fonts-dejavu-core fonts-lohit-deva fonts-wqy-microhei  # Hebrew and Arabic, Devanagari, Chinese
)
packages_package=(dpkg-dev file binutils lintian)  # what scripts/package makes packages with
packages_chroot=(debootstrap)                      # where scripts/check-packages tries them
packages_bench=(libbenchmark-dev libopencv-dev libspng-dev libcairo2-dev)  # the peers that speed is compared with
packages_ci=(clang libclang-rt-14-dev clang-format clang-tidy ccache shellcheck git)

say() { printf '\n== %s\n' "$*"; }

# need_packages GROUP...: installs what is missing of the groups, as root or through sudo.
need_packages() {
    local group package wanted=() missing=()
    for group in "$@"; do
        local -n names="packages_$group"
        wanted+=("${names[@]}")
    done
    if ! command -v dpkg-query > /dev/null || ! command -v apt-get > /dev/null; then
        say "This is not a Debian system: packages are not installed here"
        echo "Please install what answers to these Debian packages, if it is not there yet:"
        printf '  %s\n' "${wanted[@]}"
        return 0
    fi
    for package in "${wanted[@]}"; do
        dpkg-query -W -f '${Status}' "$package" 2> /dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ "${#missing[@]}" -gt 0 ] || return 0

    say "Installing packages: ${missing[*]}"
    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo > /dev/null; then
            echo "These packages are missing, and only root can install them (there is no sudo here):" >&2
            echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo "${as_root[@]}")
    fi
    local wait_for_lock=(-o DPkg::Lock::Timeout=600)
    "${as_root[@]}" apt-get update -q "${wait_for_lock[@]}"
    "${as_root[@]}" apt-get install -q -y --no-install-recommends "${wait_for_lock[@]}" "${missing[@]}"
}

# build_release TARGET...: configures and builds targets ("all" for everything) in build/release.
build_release() {
    say "Building (release, in build/release)"
    local configured
    configured=$(cmake --preset release 2>&1) || { echo "$configured" >&2; return 1; }
    cmake --build build/release -j "$(nproc)" --target "$@"
}
