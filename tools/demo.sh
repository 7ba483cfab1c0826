#!/usr/bin/env bash
# Installs what is missing (Debian, Ubuntu), builds the viewer in build/release and shows the sample data. Without a
# display the same window is rendered into a PNG.
#
#   tools/demo.sh                        the sample data in examples/data
#   tools/demo.sh [OPTION...] FILE.csv   other data, with options of the viewer
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

if [ $# -eq 0 ]; then
    set -- "${demo[@]}"
fi

need_packages "${release_packages[@]}"
build_preset release zrqtplot-viewer
viewer=$root/build/release/viewer/zrqtplot-viewer

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$viewer" "$@"
fi
picture=$root/build/demo.png
"$viewer" --screenshot "$picture" "$@"
say "No display: the window is in"
printf '%s\n' "$picture"
