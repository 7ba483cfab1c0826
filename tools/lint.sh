#!/usr/bin/env bash
# Looks for mistakes that compile: clang-tidy (.clang-tidy) and clazy (.clazy) on the library, shellcheck on the
# scripts.
#
#   tools/lint.sh [FILE.cpp...]          only these sources of the library
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${release_packages[@]}" clang-tidy-14 clazy shellcheck
if [ $# -gt 0 ]; then
    mapfile -t sources < <(realpath -- "$@")
else
    mapfile -t sources < <(find "$root/ZrQtPlotWidgets" "$root/designer" -name '*.cpp' | sort)
fi
build_dir=$root/build/tidy
status=0

# The sources include what moc makes of the headers.
build_preset tidy ZrQtPlotWidgets_autogen

say "clang-tidy"
run-clang-tidy-14 -p "$build_dir" -quiet "${sources[@]/%/\$}" 2>/dev/null |
    sed -e 's/\x1b\[[0-9;]*m//g' -e '/^clang-tidy-14 /d; /^$/d' || status=1

say "clazy"
checks=$(sed -e 's/ *#.*//' -e '/^$/d' "$root/.clazy" | paste -sd,)
complaints=$(printf '%s\0' "${sources[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clazy-standalone -p "$build_dir" --checks="$checks" --extra-arg=-Wno-error 2>&1) || status=1
# A header complains once for each source that includes it.
if grep -E 'warning:|error:' <<<"$complaints" | sort -u; then
    status=1
fi

say "shellcheck"
cd "$root"
shellcheck -x .ci/run tools/*.sh examples/data/*.sh || status=1
exit $status
