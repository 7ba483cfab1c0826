#!/usr/bin/env bash
# Makes the Debian packages of the library, its development files and the viewer, in build/deb/packages.
#
#   tools/deb.sh             makes them
#   tools/deb.sh --try       also installs them, as root, uses them, and removes them again
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

[ $# -eq 0 ] || [ "$*" = --try ] || die "unknown option: $*"
need_packages "${release_packages[@]}" "${test_packages[@]}"

# A clean folder: packages of another version would be installed with the new ones.
rm -rf "$root/build/deb/packages"
build_preset deb
say "Packing"
(cd "$root/build/deb" && cpack)
packages=("$root"/build/deb/packages/*.deb)

if [ "${1:-}" = --try ]; then
    as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    names=()
    for package in "${packages[@]}"; do
        names+=("$(dpkg-deb -f "$package" Package)")
    done
    work=$(mktemp -d)
    clean_up() {
        rm -rf "$work"
        "${as_root[@]}" apt-get purge -y -qq "${names[@]}" >/dev/null
    }
    trap clean_up EXIT

    say "Installing ${names[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${packages[@]}" >/dev/null

    # No prefix, no path: all is where everybody looks.
    say "Building a program with CMake, with pkg-config and with qmake"
    export QT_QPA_PLATFORM=offscreen
    consumer=$root/tests/package/consumer
    version=$(dpkg-deb -f "${packages[0]}" Version)
    cmake -S "$consumer" -B "$work/cmake" -G Ninja -DEXPECTED_VERSION="$version" -DEXPECTED_PREFIX=/usr >/dev/null
    cmake --build "$work/cmake" --target consumer run >/dev/null
    read -ra flags <<<"$(pkg-config --cflags --libs ZrQtPlotWidgets)"
    g++ -std=c++17 -fPIC "$consumer/main.cpp" -o "$work/consumer" "${flags[@]}"
    "$work/consumer"
    printf 'TARGET = consumer\nSOURCES += %s\nCONFIG += zrqtplotwidgets\n' "$consumer/main.cpp" >"$work/consumer.pro"
    (mkdir "$work/qmake" && cd "$work/qmake" && qmake ../consumer.pro >/dev/null && make >/dev/null && ./consumer)
    zrqtplot-viewer --screenshot "$work/viewer.png" "$root/examples/data/machine.csv"

    say "Looking for the plug-in where Qt Designer does"
    [ -e "$(qmake -query QT_INSTALL_PLUGINS)/designer/libZrQtPlotWidgets.so" ] || die "it is not there"
fi
say "The packages are"
printf '%s\n' "${packages[@]}"
