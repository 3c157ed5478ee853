#!/usr/bin/env bash
# From a fresh clone to an estimated model: installs the toolchain if it is missing, builds the tool
# and the library in build/, estimates a model of the Florentine marriage network and shows the
# result.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

step() { printf '\n== %s\n' "$*"; }

step "Toolchain"
install_missing "${build_packages[@]}"
echo "$(g++ --version | head -n 1); $(cmake --version | head -n 1)"

step "Build (Release, in build/)"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build --parallel "$(nproc)" --target ovri_tool ovri_library

output=results/demo-$(date +%Y%m%d-%H%M%S)
mkdir -p "$output"
step "Estimation: who married whom in Renaissance Florence (16 families, 20 ties)"
command=(build/ovri run examples/florentine/florentine.setup --seed 2 --output "$output")
echo "${command[*]}"
"${command[@]}" --quiet

step "Result (from $output/estimation_florentine.txt)"
# Each run of the estimation that ended wrote one table; the last one counts.
awk '/^Estimation Result/ { table = ""; inside = 1 } inside && /^$/ { inside = 0 }
     inside { table = table $0 "\n" } END { printf "%s", table }' "$output/estimation_florentine.txt"
echo
cat <<TEXT
An effect whose t-ratio is below 0.1 in size has converged; the star marks a converged effect that is
more than two standard errors from zero. A negative "edge" says that marriages were rare, a
"Triangle" near zero that closing a triangle made one neither more nor less likely.
TEXT

step "Files"
describe() {
    case $1 in
        estimation_*) echo "log of the estimation, with the result table" ;;
        covariance_*) echo "covariance matrix of the estimates" ;;
        start_statistics_*) echo "description of the observed network" ;;
        change_statistics_*) echo "change statistics of every dyad" ;;
        logodds_*) echo "odds of a tie for every dyad at the estimates" ;;
        *update.ovri) echo "estimates for the host program (empty where a section is off)" ;;
        *) echo "" ;;
    esac
}
echo "In $output:"
for file in "$output"/*; do
    name=$(basename "$file")
    printf '  %-36s %s\n' "$name" "$(describe "$name")"
done
printf '\nThe tool is build/ovri (try "build/ovri help"), the library build/libovri.so.\n'
