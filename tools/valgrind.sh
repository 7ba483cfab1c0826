#!/usr/bin/env bash
# Runs test programs of the release build under valgrind's memcheck and stops at the first error.
#
#   tools/valgrind.sh [NAME_PATTERN]      for example: tools/valgrind.sh timeformat; all unit tests by default
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${release_packages[@]}" valgrind
programs=()
for source in "$root"/tests/unit/tst_*"${1:-}"*.cpp; do
    programs+=("$(basename "$source" .cpp)")
done
build_preset release "${programs[@]}"
for program in "${programs[@]}"; do
    say "$program"
    # Qt Test prints much; what matters are the errors, which come on the other stream.
    QT_QPA_PLATFORM=offscreen valgrind --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite \
        --suppressions="$root/tools/valgrind.supp" --quiet "$root/build/release/tests/$program" -silent >/dev/null
done
