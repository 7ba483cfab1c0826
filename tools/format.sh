#!/usr/bin/env bash
# Keeps the files of the repository in shape: C++ as .clang-format says, no blanks at the end of a line, a line
# break at the end of a file, and nothing huge.
#
#   tools/format.sh           says what is wrong and fails
#   tools/format.sh --fix     repairs what can be repaired
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

largest=$((1024 * 1024))

[ $# -eq 0 ] || [ "$*" = --fix ] || die "unknown option: $*"
need_packages clang-format-14 git
cd "$root"
mapfile -t sources < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp')
mapfile -t texts < <(git grep --untracked -Il '')

if [ "${1:-}" = --fix ]; then
    clang-format-14 -i "${sources[@]}"
    sed -i -e 's/[[:blank:]]*$//' "${texts[@]}"
    for text in "${texts[@]}"; do
        [ -z "$(tail -c 1 "$text")" ] || printf '\n' >>"$text"
    done
    exit
fi

status=0
clang-format-14 --dry-run -Werror "${sources[@]}" || status=1
if git grep --untracked -InE '[[:blank:]]+$'; then
    printf 'Blanks at the end of these lines.\n' >&2
    status=1
fi
for text in "${texts[@]}"; do
    if [ -n "$(tail -c 1 "$text")" ]; then
        printf '%s: no line break at the end\n' "$text" >&2
        status=1
    fi
done
while read -r file; do
    if [ -f "$file" ] && [ "$(stat -c %s "$file")" -gt $largest ]; then
        printf '%s: larger than %d bytes\n' "$file" $largest >&2
        status=1
    fi
done < <(git ls-files --cached --others --exclude-standard)
exit $status
