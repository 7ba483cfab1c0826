#!/usr/bin/env bash
# Makes the pictures of the documentation: that of the viewer in docs/images, those of the examples beside them.
# Look at them before you commit them.
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# The same picture wherever it is made.
export QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C.UTF-8

picture_example() {
    "$root/build/release/examples/zrqtplot-example-$1" --screenshot "$root/examples/$1/screenshot.png"
}

need_packages "${release_packages[@]}"
cd "$root/examples"
examples=()
for program in */main.cpp; do
    [ "${program%/*}" = gallery ] || examples+=("${program%/*}")
done
build_preset release zrqtplot-viewer "${examples[@]/#/zrqtplot-example-}"

mkdir -p "$root/docs/images"
"$root/build/release/viewer/zrqtplot-viewer" --screenshot "$root/docs/images/viewer.png" "${demo[@]}"
for name in "${examples[@]}"; do
    picture_example "$name"
done

# The gallery holds the pictures of the others.
build_preset release zrqtplot-example-gallery
picture_example gallery

# The test that drives Qt Designer leaves a picture of it.
need_packages "${test_packages[@]}"
build_preset release designerdriver
(cd "$root/build/release" && ctest -R '^designer_itself$' >/dev/null)
cp "$root/build/release/tests/designer/designer.png" "$root/docs/images/designer.png"
