#!/usr/bin/env bash
# Fuzzes a target with clang's libFuzzer, under both sanitizers, from the seeds in tests/fuzz/corpus and from what
# earlier runs found (kept in build/fuzz/corpus).
#
#   tools/fuzz.sh timeformat|tickengine|plot [SECONDS]     1800 seconds by default
#   tools/fuzz.sh --coverage timeformat|tickengine|plot|all
#                                                          lines that the seeds and the inputs found so far execute
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages clang-14 libclang-rt-14-dev llvm-14

targets=(timeformat tickengine plot)

# coverage TARGET...: lines of the library that the seeds and the inputs found so far execute, together.
coverage() {
    local dir=$root/build/fuzz-coverage target corpus profiles=() programs=()
    cmake --preset fuzz -S "$root" -B "$dir" -DZRQTPLOTWIDGETS_SANITIZE= -DZRQTPLOTWIDGETS_BUILD_FUZZERS=OFF \
        -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping" >/dev/null
    cmake --build "$dir" --target "${@/#/tst_fuzz_}"
    for target in "$@"; do
        # All but the first program need an option of their own.
        programs+=(${programs:+-object} "$dir/tests/fuzz/tst_fuzz_$target")
        for corpus in "$root/tests/fuzz/corpus/$target" "$root/build/fuzz/corpus/$target"; do
            [ -e "$corpus" ] || continue
            profiles+=("$dir/$target-${#profiles[@]}.profraw")
            LLVM_PROFILE_FILE=${profiles[-1]} "$dir/tests/fuzz/tst_fuzz_$target" "$corpus" >/dev/null
        done
    done
    llvm-profdata-14 merge -sparse "${profiles[@]}" -o "$dir/merged.profdata"
    # The compiler wrote relative paths, which the directory of the library does not choose: the rest is left out.
    llvm-cov-14 report "${programs[@]}" -instr-profile="$dir/merged.profdata" -show-region-summary=false \
        -show-branch-summary=false -ignore-filename-regex='_autogen/|tests/'
}

if [ "${1:-}" = --coverage ]; then
    case "${2:?the name of a target, or all}" in
    all) coverage "${targets[@]}" ;;
    *) coverage "$2" ;;
    esac
    exit
fi

target=${1:?the name of a target}
build_preset fuzz "fuzz_$target"
corpus=$root/build/fuzz/corpus/$target
mkdir -p "$corpus"
options=(-max_total_time="${2:-1800}" -max_len=600 -timeout=300 -print_final_stats=1 -artifact_prefix="$corpus/../")
if [ -e "$root/tests/fuzz/$target.dict" ]; then
    options+=(-dict="$root/tests/fuzz/$target.dict")
fi
# Leaks are looked for by the same target as a test, with the preset asan: here each input would cost seconds, and what
# the font library keeps until the end would fail every run.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0
exec "$root/build/fuzz/tests/fuzz/fuzz_$target" "${options[@]}" "$corpus" "$root/tests/fuzz/corpus/$target"
