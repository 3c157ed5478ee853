#!/usr/bin/env bash
# Every check of the source tree: formatting, static analysis, then the tests in Release and under
# the address and undefined-behaviour sanitizers. Exits non-zero as soon as one fails.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

usage() {
    cat <<'TEXT'
usage: ./test.sh [--quick]

Checks the source tree, stopping at the first failure with a non-zero exit status. What is missing of
the tools for it is installed first, by apt-get and announced. In order:

  formatting          clang-format has nothing to change
  Release build       in build/, warnings are errors
  Windows build       ovri.dll and ovri.exe by mingw-w64, in build-windows/
  static analysis     clang-tidy finds nothing in src/, formats/, pictures/ and tool/
  tests, Release      every test, also those of the Java host, the Windows build and the archives
  sanitizer build     in build-asan/
  tests, sanitizers   under AddressSanitizer and UndefinedBehaviorSanitizer; the archives and the
                      Windows build, which hold no sanitizers, are left to the Release tests

  --quick   only the Release build and its tests
  --help    this text

Tests that had to be skipped are listed with their reasons. A single test program is started by
itself, for instance build/tests/test_effects --gtest_filter='Paths.*'.
TEXT
}

jobs=$(nproc)
summary=()

# Starts a step and ends the one before it, whose time goes into the summary.
current='' started=0
step() {
    if [ -n "$current" ]; then
        summary+=("$(printf '%5d s  %s' $((SECONDS - started)) "$current")")
    fi
    current=$* started=$SECONDS
    if [ -n "$current" ]; then
        printf '\n== %s\n' "$current"
    fi
}

install_tools() {
    local packages=(
        "${build_packages[@]}"
        /usr/include/gtest/gtest.h=libgtest-dev
        file=file dpkg-shlibdeps=dpkg-dev
        localedef=libc-bin /usr/share/i18n/charmaps/ANSI_X3.4-1968.gz=locales
    )
    # What only the tests of the Java host and of the Windows build need stands behind a "?": where
    # the package lists do not know it, those tests skip themselves and say so.
    packages+=(javac?default-jdk-headless)
    if [ "$1" = all ]; then
        packages+=(
            clang-format=clang-format clang-tidy=clang-tidy
            /usr/include/benchmark/benchmark.h=libbenchmark-dev
            'x86_64-w64-mingw32-g++-posix?g++-mingw-w64-x86-64-posix'
            'x86_64-w64-mingw32-objdump?binutils-mingw-w64-x86-64'
            'wine?wine'
            'valgrind?valgrind'
            'groff?groff-base' 'zsh?zsh' 'xmllint?libxml2-utils'
            'parallel?parallel'
            'chromium?chromium'
            'slurmctld?slurm-wlm' 'munged?munge'
        )
    fi
    install_missing "${packages[@]}"
}

build() {
    cmake --preset "$1" -DBUILD_TESTING=ON
    cmake --build --preset "$1" --parallel "$jobs"
}

# Runs the tests of a preset that was built in the directory, and says which were skipped and why.
run_tests() {
    ctest --preset "$1" --parallel "$jobs"
    local log=$2/Testing/Temporary/LastTest.log
    awk '/^\[  PASSED  \]/ { passed += $4 }
         skipped { reasons[$0]++; skipped = 0 }
         /: Skipped$/ { skipped = 1 }
         END {
             printf "%d test cases passed.\n", passed
             for (reason in reasons) printf "%d skipped: %s\n", reasons[reason], reason
         }' "$log"
}

check_formatting() {
    find src formats pictures tool tests bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
        xargs -0 -n 16 -P "$jobs" clang-format --dry-run --Werror
    echo "Every source file is formatted."
}

quick=false
case ${1:-} in
    '') ;;
    --quick) quick=true ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
esac

if $quick; then
    step "Toolchain"
    install_tools quick
    step "Release build"
    build release
    step "Tests, Release"
    run_tests release build
else
    step "Toolchain"
    install_tools all
    step "Formatting"
    check_formatting
    step "Release build"
    build release
    step "Windows build, for the tests of ovri.dll and ovri.exe"
    tests/platforms.sh --build-only
    step "Static analysis"
    scripts/analyse.sh build
    echo "No findings."
    step "Tests, Release"
    run_tests release build
    step "Sanitizer build"
    build asan
    step "Tests under AddressSanitizer and UndefinedBehaviorSanitizer"
    run_tests asan build-asan
    step "Instructions of a proposal, for information"
    bench/instructions.sh --compare
fi

step ''
printf '\ntest.sh: every step passed.\n'
printf '%s\n' "${summary[@]}"
