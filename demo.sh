#!/usr/bin/env bash
# From a fresh clone to an estimated model: installs the toolchain if it is missing, builds the tool
# and the library in build/, performs a host's run, then goes from an edge list to a table.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

step() { printf '\n== %s\n' "$*"; }

# Shows a command and performs it.
show() {
    printf '$ %s\n' "$*"
    "$@"
}

step "Toolchain"
install_missing "${build_packages[@]}"
echo "$(g++ --version | head -n 1); $(cmake --version | head -n 1)"

step "Build (Release, in build/)"
# A first build is of all files, so many are compiled as one source; one that is there is gone on with.
joined=()
[ -f build/CMakeCache.txt ] || joined=(-DOVRI_JOIN=ON)
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release "${joined[@]}"
cmake --build build --parallel "$(nproc)" --target ovri_tool ovri_library

output=results/demo-$(date +%Y%m%d-%H%M%S)
mkdir -p "$output/host"
step "A host's run, described by a setup file"
show build/ovri run examples/florentine/florentine.setup --seed 2 --output "$output/host" --quiet
echo "$(find "$output/host" -type f | wc -l) files in $output/host, as docs/output_files.md tells them."

step "From an edge list to a model: who married whom in Renaissance Florence"
show build/ovri new examples/florentine/marriage.csv \
    --nodes examples/florentine/families.csv -o "$output/marriage.toml" --quiet
grep -v '^#' "$output/marriage.toml"

step "Estimation"
cat <<'TEXT'
A negative edge says that marriages were rare, an AT(2) near zero that closing triangles made one
neither more nor less likely. An effect whose t-ratio is below 0.1 in size has converged.

TEXT
show build/ovri estimate "$output/marriage.toml" --seed 2 -o "$output/marriage.results" --quiet

step "Does the model fit, and one page to keep"
show build/ovri gof "$output/marriage.results" --quiet
show build/ovri report "$output/marriage.results"
