#!/usr/bin/env bash
# Single runs of `ovri estimate` with its defaults, seed by seed, against the values of long runs.
#
#   bench/long_runs.sh [SEEDS] [MODEL]...   20 seeds of every model; some minutes
#
# SEEDS is a number, the seeds being 1, 2, 3 and so on. MODEL is a number of the list below. One line
# an effect: how many seeds converged; the largest deviation of an estimate and how many are within
# 0.05 and 0.1, in standard errors of the long run; the largest deviation of a standard error; of the
# log-likelihood; seconds of processor time, the mean and the greatest. Then models that have no
# usable estimate: how each run ended.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
ovri=${OVRI:-build/ovri}
command -v jq >/dev/null || { echo "bench/long_runs.sh: jq is not there" >&2; exit 1; }

marriage="--network examples/florentine/marriage.csv --nodes examples/florentine/families.csv --undirected"
karate="--network examples/karate/karate.csv --undirected"
managers="--network examples/managers/friendship.csv --directed"

# Title; options; effects; then of each effect the estimate and its standard error; at the end the
# log-likelihood. A model without values is one whose networks fall apart.
models=(
    "marriages;$marriage;edge,triangle;-1.6738 .350 0.1545 .589;-"
    "marriages;$marriage;edge,2-star,triangle;-1.5645 .896 -0.0296 .221 0.2257 .785;-"
    "marriages;$marriage;edge,AT(2);-1.7072 .364 0.0909 .250;-"
    "marriages;$marriage;edge,sum(wealth);-2.594929 .536056 0.010546 .004674;-51.554286"
    "karate;$karate;edge,AT(2);-3.0155 .252 0.6813 .131;-210.84"
    "karate;$karate;edge,AS(2),AT(2);-1.343 1.19 -0.573 .375 0.8745 .184;-"
    "karate;$karate;edge,AT(2),A2P(2);-3.583 .209 0.4705 .148 0.148 .018;-"
    "managers;$managers;arc,reciprocity;closed;-"
    "karate;$karate;edge,triangle;;-"
    "karate;$karate;edge,2-star;;-"
    "karate;$karate;edge,2-star,triangle;;-"
    "managers;$managers;arc,reciprocity,transitive-triad;;-"
)

seeds=20
if [ $# -gt 0 ]; then
    seeds=$1
    shift
fi
chosen=("$@")
[ ${#chosen[@]} -gt 0 ] || mapfile -t chosen < <(seq 1 ${#models[@]})

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TIMEFORMAT='%U %S %R'

# One run: its document in $folder/json, the processor seconds in $folder/time.
estimate() {
    local options=$1 effects=$2 seed=$3
    # shellcheck disable=SC2086
    { time "$ovri" estimate $options --effects "$effects" --seed "$seed" --quiet --json \
        -o "$folder/results" --overwrite >"$folder/json" 2>/dev/null || true; } 2>"$folder/time"
}

# Of arc and reciprocity: pairs of the managers with both arcs, with one and with none are shares of
# a multinomial distribution.
closed_form() {
    awk -F, 'NR > 1 { tied[$1 "," $2]; seen[$1]; seen[$2] }
        END {
            for (dyad in tied) {
                split(dyad, end, ",")
                if ((end[2] "," end[1]) in tied) both += .5; else ++one
            }
            n = length(seen)
            pairs = n * (n - 1) / 2
            none = pairs - both - one
            arcs = (one + 2 * both) / pairs
            variance = (one + 4 * both) / pairs - arcs * arcs
            mutual = both / pairs
            mutuals = mutual * (1 - mutual)
            covariance = (2 - arcs) * mutual
            determinant = pairs * (variance * mutuals - covariance * covariance)
            printf "%.9g %.9g %.9g %.9g", log(one / 2 / none), sqrt(mutuals / determinant),
                log(both * none * 4 / one / one), sqrt(variance / determinant)
        }' examples/managers/friendship.csv
}

for number in "${chosen[@]}"; do
    IFS=';' read -r title options effects values likelihood <<<"${models[number - 1]}"
    : >"$folder/runs"
    for ((seed = 1; seed <= seeds; ++seed)); do
        estimate "$options" "$effects" "$seed"
        jq -r --arg time "$(cat "$folder/time")" \
            '[.exit_status, .verdict, ($time | split(" ") | (.[0] | tonumber) + (.[1] | tonumber)),
              ($time | split(" ") | .[2]), .likelihood.value,
              (.effects[] | .estimate, .standard_error)] | map(. // "-") | join(" ")' \
            "$folder/json" >>"$folder/runs"
    done
    echo "== $title: $effects"
    [ "$values" = closed ] && values=$(closed_form)
    [ -z "${KEEP:-}" ] || cp "$folder/runs" "$KEEP.$number"
    awk -v effects="$effects" -v values="$values" -v likelihood="$likelihood" '
        function size(x) { return x < 0 ? -x : x }
        BEGIN { p = split(effects, name, ","); known = split(values, value, " ") }
        { ++ended[$2 " " $1]; time += $3; if ($3 > slowest) slowest = $3; if ($4 > longest) longest = $4
          if ($5 != "-") { ++likelihoods; sum += $5; squares += $5 * $5; off = size($5 - likelihood)
                           if (off > furthest) furthest = off; if (off <= .1) ++close_by }
          for (k = 1; known && k <= p; ++k) {
              d = size($(4 + 2 * k) - value[2 * k - 1]) / value[2 * k]; s = size($(5 + 2 * k) / value[2 * k] - 1)
              if (d > far[k]) far[k] = d; if (s > wide[k]) wide[k] = s
              if (d <= .05) ++within[k]; if (d <= .1) ++around[k]; if (s <= .05) ++sharp[k]
              mean[k] += $(4 + 2 * k); means[k] += $(5 + 2 * k) } }
        END {
            for (e in ended) printf "  %d of %d: %s\n", ended[e], NR, e
            for (k = 1; known && k <= p; ++k)
                printf "  %-12s furthest %.3f, within .05: %d, within .1: %d; mean %.4f; std. error off by %.1f%% at most, within 5%%: %d; mean %.4f\n",
                    name[k], far[k], within[k], around[k], mean[k] / NR, 100 * wide[k], sharp[k], means[k] / NR
            if (likelihoods) { m = sum / likelihoods
                printf "  log-likelihood mean %.4f, deviation %.4f", m, sqrt(size(squares / likelihoods - m * m))
                if (likelihood != "-") printf ", furthest %.3f, within .1: %d", furthest, close_by
                print "" }
            printf "  processor time %.2f s, at most %.2f s; %.2f s to the end at most\n", time / NR, slowest, longest }' "$folder/runs"
done
