# Functions for the scripts beside this file and for .ci/run, which source it. Needs bash.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck disable=SC2034 # for those who source this
release_packages=(cmake fonts-dejavu-core g++ libcsv-dev ninja-build qtbase5-dev qttools5-dev tzdata)
# What the tests use besides: other ways of building, of packing, and Qt Designer with a display.
# shellcheck disable=SC2034 # likewise
test_packages=(dpkg-dev file make pkg-config qttools5-dev-tools xauth xvfb)
# What the viewer shows in the demo and in the README.
# shellcheck disable=SC2034,SC2054 # likewise; the commas are meant
demo=(--title "The machine that built this" --grid ticks --legend
    --y load,processes,memory_mib --axis processes=right "$root/examples/data/machine.csv")

say() {
    printf '== %s\n' "$*"
}

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# need_packages NAME...: installs those Debian or Ubuntu packages that are missing. When none is, it asks neither
# the network nor for a password. On other systems the packages are the user's business.
need_packages() {
    command -v dpkg-query >/dev/null || return 0
    local name missing=() as_root=()
    for name in "$@"; do
        # shellcheck disable=SC2016 # the braces are for dpkg-query
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" != installed ]; then
            missing+=("$name")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    say "Installing ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "needs root or sudo to install: ${missing[*]}"
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset NAME [TARGET...]: configures the preset of that name and builds the targets (default: all of them).
build_preset() {
    local preset=$1 target targets=()
    shift
    for target in "$@"; do
        targets+=(--target "$target")
    done
    configure_preset "$preset"
    say "Building $preset"
    cmake --build "$root/build/$preset" "${targets[@]}"
}

configure_preset() {
    local version
    version=$(cmake --version | sed -n 's/^cmake version //p')
    say "Configuring $1"
    if [ "$(printf '3.21\n%s\n' "$version" | sort -V | head -n 1)" = 3.21 ]; then
        (cd "$root" && cmake --preset "$1")
    elif [ "$1" = release ]; then
        cmake -S "$root" -B "$root/build/release" -G Ninja -DCMAKE_BUILD_TYPE=Release
    else
        die "the preset $1 needs CMake 3.21 or newer, and this is $version"
    fi
}

# test_preset NAME [CTEST_OPTION...]: runs the tests of a preset that is built, ends with the closing line, and
# fails if a test fails.
test_preset() {
    local build_dir=$root/build/$1 status=0
    shift
    say "Testing ${build_dir##*/}"
    (cd "$build_dir" && ctest --output-on-failure --no-tests=error -j "$(nproc)" "$@") || status=$?
    closing_line "$build_dir"
    return "$status"
}

# closing_line BUILD_DIR: "N passed, N failed" (and ", N skipped" if any was) for the last run of ctest there. Rows
# and functions of Qt Test programs count one by one, other tests as one, a crash or a time-out as one failure.
closing_line() {
    awk '
        /^[0-9]+\/[0-9]+ Testing: /           { failures_before = failed; results = 0 }
        /^PASS   : .*::(init|cleanup)TestCase\(\)$/ { ++results; next }
        /^PASS   : /                          { ++results; ++passed }
        /^(FAIL!|XPASS)  : /                  { ++results; ++failed }
        /^SKIP   : /                          { ++results; ++skipped }
        /^Test Passed\.$/                     { if (!results) ++passed }
        /^Test Failed\.$/                     { if (failed == failures_before) ++failed }
        END {
            printf "%d passed, %d failed", passed, failed
            if (skipped) printf ", %d skipped", skipped
            printf "\n"
        }' "$1/Testing/Temporary/LastTest.log"
}
