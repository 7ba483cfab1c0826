#!/usr/bin/env bash
# Fuzzes a target with clang's libFuzzer, under both sanitizers, from the seeds in tests/fuzz/corpus and from what
# earlier runs found (kept in build/fuzz/corpus).
#
#   tools/fuzz.sh timeformat|tickengine|plot [SECONDS]     1800 seconds by default
#   tools/fuzz.sh --coverage timeformat|tickengine|plot    lines that the inputs found so far execute
set -euo pipefail
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages clang-14 libclang-rt-14-dev llvm-14

coverage() {
    local dir=$root/build/fuzz-coverage
    cmake --preset fuzz -S "$root" -B "$dir" -DZRQTPLOTWIDGETS_SANITIZE= -DZRQTPLOTWIDGETS_BUILD_FUZZERS=OFF \
        -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping"
    cmake --build "$dir" --target "tst_fuzz_$1"
    LLVM_PROFILE_FILE=$dir/$1.profraw "$dir/tests/fuzz/tst_fuzz_$1" "$root/build/fuzz/corpus/$1" >/dev/null
    llvm-profdata-14 merge -sparse "$dir/$1.profraw" -o "$dir/$1.profdata"
    llvm-cov-14 report "$dir/tests/fuzz/tst_fuzz_$1" -instr-profile="$dir/$1.profdata" "$root"/ZrQtPlotWidgets
}

if [ "${1:-}" = --coverage ]; then
    coverage "${2:?the name of a target}"
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
# Leaks are looked for by the same target as a test, with the preset asan: here each input would cost seconds.
exec "$root/build/fuzz/tests/fuzz/fuzz_$target" "${options[@]}" -detect_leaks=0 \
    "$corpus" "$root/tests/fuzz/corpus/$target"
