#!/usr/bin/env bash
# Instructions of one proposal at 200 actors, counted by callgrind: the same on every run of one
# build, whatever else the machine does.
#
#   bench/instructions.sh            prints the counts as baseline.json holds them
#   bench/instructions.sh --compare  shows them beside baseline.json, for information: the counts
#                                    belong to one compiler and one C library
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
program=build/bench/bench_chain
baseline=bench/baseline.json

if ! command -v valgrind >/dev/null || [ ! -x "$program" ]; then
    echo "bench/instructions.sh: valgrind or $program is not there; nothing was counted."
    exit 0
fi

# The whole run of a case with this many proposals.
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" --case "$1" 200 "$2" 2>&1 |
        sed -n 's/.*Collected : //p'
}

# Two runs apart by as many proposals as the shorter one has; what both do otherwise drops out.
per_proposal() {
    local proposals=20000
    echo $((($(count "$1" $((2 * proposals))) - $(count "$1" $proposals)) / proposals))
}

cases=(
    "floor"
    "(i) edge"
    "(ii) edge, 2-star, Triangle"
    "(iii) edge, AS, AT, A2P"
    "(iv) arc, reciprocity, in2star, out2star"
    "(v) arc, reciprocity, AT-T, A2P-T"
    "(iii) at (-3.8, .2, .7, -.1)"
    "(v) at (-3.25, 1.5, .5, -.05)"
    "swap, edge, AS, AT"
    "swap, arc, reciprocity, AT-T"
    "sender swap, arc, reciprocity, AT-T"
    "full model, edge, AS, AT at work"
    "full model, arc, reciprocity, AT-T at work"
    "dense, (iii)"
    "dense, (v)"
)

if [ "${1:-}" = --compare ]; then
    printf '%-46s %10s %10s %8s\n' "instructions of a proposal, n = 200" baseline now change
    for name in "${cases[@]}"; do
        before=$(awk -F'": ' -v name="  \"$name" '$1 == name { print $2 + 0 }' "$baseline")
        now=$(per_proposal "$name")
        awk -v n="$name" -v b="${before:-0}" -v a="$now" \
            'BEGIN { printf "%-46s %10d %10d %7s%%\n", n, b, a, b ? sprintf("%+.1f", 100 * (a - b) / b) : "?" }'
    done
else
    echo "{"
    for at in "${!cases[@]}"; do
        comma=$([ "$at" -lt $((${#cases[@]} - 1)) ] && echo , || true)
        echo "  \"${cases[$at]}\": $(per_proposal "${cases[$at]}")$comma"
    done
    echo "}"
fi
