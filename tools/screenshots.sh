#!/usr/bin/env bash
# Makes the pictures of the documentation, in docs/images. Look at them before you commit them.
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${release_packages[@]}"
build_preset release zrqtplot-viewer
mkdir -p "$root/docs/images"
QT_QPA_PLATFORM=offscreen "$root/build/release/viewer/zrqtplot-viewer" \
    --screenshot "$root/docs/images/viewer.png" "${demo[@]}"

# The test that drives Qt Designer leaves a picture of it.
need_packages "${test_packages[@]}"
build_preset release designerdriver
(cd "$root/build/release" && ctest -R '^designer_itself$' >/dev/null)
cp "$root/build/release/tests/designer/designer.png" "$root/docs/images/designer.png"
