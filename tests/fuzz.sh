#!/usr/bin/env bash
# Fuzzes every reader and a run of every mode under the address and undefined-behaviour sanitizers:
#
#   tests/fuzz.sh MINUTES [TARGET...]
#
# spends so many minutes on each target and prints how many inputs each has executed. Needs Clang
# with its runtime (clang, libclang-rt-14-dev). Ends with status 1 when a target has failed; the
# input is then in build-fuzz/findings. Put it into tests/fuzz/corpus/TARGET once it is mended:
# test_fuzz replays what is there.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

minutes=${1:?usage: tests/fuzz.sh MINUTES [TARGET...]}
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(setup attributes covariates matrix covariance
                                     simulation estimation fit bayesian_fit)

build=$PWD/build-fuzz
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DOVRI_FUZZ=ON -DOVRI_SANITIZE=ON -DBUILD_TESTING=ON >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target ovri_fuzz write_seeds >/dev/null
# The directory of a run is best held in memory.
[ -d /dev/shm ] && export TMPDIR=${TMPDIR:-/dev/shm}
"$build/tests/write_seeds" "$build/seeds"
mkdir -p "$build/findings"

# Most of the time of a small input goes into the stacks that the address sanitizer keeps of each piece
# of memory and into pieces that it holds back for long.
export ASAN_OPTIONS=malloc_context_size=2:quarantine_size_mb=8

fuzz() {
    local target=$1 log=$build/$1.log status=0 longest=1000
    [ "$target" != setup ] || longest=6000
    mkdir -p "$build/corpus/$target"
    OVRI_FUZZ_TARGET=$target UBSAN_OPTIONS=print_stacktrace=1 \
        "$build/tests/ovri_fuzz" -max_total_time="$seconds" -timeout=60 -rss_limit_mb=4096 \
        -max_len="$longest" -reload=0 -print_final_stats=1 -artifact_prefix="$build/findings/$target-" \
        "$build/corpus/$target" "$build/seeds/$target" >"$log" 2>&1 || status=$?
    printf '%-14s %12s executions, %s\n' "$target" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" \
        "$([ $status -eq 0 ] && echo "no finding" || echo "FAILED: see $log")"
    return $status
}
export -f fuzz
export build
seconds=$(awk "BEGIN { print int($minutes * 60) }")
export seconds
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
