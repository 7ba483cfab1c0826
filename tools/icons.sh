#!/usr/bin/env bash
# Draws the images of the widgets, in designer/images. Look at them, also at 22 pixels, before you commit them.
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${release_packages[@]}"
build_preset release zrqtplot-icons
"$root/build/release/designer/zrqtplot-icons" "$root/designer/images"
