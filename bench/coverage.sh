#!/usr/bin/env bash
# How often does the 95% interval of a network's estimate hold the value that the network was drawn
# with? Networks are drawn at estimates of the examples, and each is estimated anew.
#
#   bench/coverage.sh [NETWORKS]     500 of each model; some minutes
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
ovri=${OVRI:-build/ovri}
networks=${1:-500}
command -v jq >/dev/null || { echo "bench/coverage.sh: jq is not there" >&2; exit 1; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# Title, then the words of `ovri estimate`.
study() {
    local title=$1
    shift
    echo "== $title"
    "$ovri" estimate "$@" --seed 1 --bootstrap "$networks" --quiet --json -o "$folder/results" --overwrite |
        jq -r '(.effects | map({key: .name, value: .}) | from_entries) as $by | .bootstrap |
            "  \(.converged) of \(.replicates) converged, \(.proposals) proposals",
            (.effects[] | "  \(.name): coverage \(.coverage * 1000 | round / 10)%, " +
                "std. error \($by[.name].standard_error), over networks \(.standard_error)")'
}

karate=(--network examples/karate/karate.csv --undirected)
managers=(--network examples/managers/friendship.csv --directed)
study "karate: edge, AT(2)" "${karate[@]}" --effects 'edge,AT(2)'
study "managers: arc, reciprocity" "${managers[@]}" --effects arc,reciprocity
study "managers: arc, reciprocity, AT-T(2)" "${managers[@]}" --effects 'arc,reciprocity,AT-T(2)'
