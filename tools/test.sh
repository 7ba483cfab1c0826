#!/usr/bin/env bash
# Installs what is missing (Debian, Ubuntu), builds the project in build/release and runs all tests.
#
#   tools/test.sh [CTEST_OPTION...]      for example: tools/test.sh -R axis
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${release_packages[@]}" "${test_packages[@]}"
build_preset release
test_preset release "$@"
