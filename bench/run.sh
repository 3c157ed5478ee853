#!/usr/bin/env bash
# What a proposal, a sample and a fit cost, in one go. Build first:
#
#   cmake --preset release && cmake --build --preset release
#   bench/run.sh             proposals at 50 to 3000 actors, samples, fits; some minutes
#   bench/run.sh --large     and at 10,000 actors
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

large=no
for argument in "$@"; do
    case $argument in
        --large) large=yes ;;
        *) echo "bench/run.sh: unknown argument $argument" >&2; exit 1 ;;
    esac
done

echo "== Proposals: nanoseconds of processor time, best of three"
build/bench/bench_chain
if [ $large = yes ]; then
    for model in "(i) edge" "(iii)" "(v)"; do
        build/bench/bench_chain --sizes 10000 --only "$model"
    done
fi

echo "== Samples: refreshing the measures, without and with their rows"
build/bench/bench_samples --benchmark_min_time=0.2

echo "== Whole fits at 100 actors"
build/bench/bench_fits
