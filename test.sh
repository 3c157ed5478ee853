#!/usr/bin/env bash
# Every check of the source tree: formatting, static analysis, then the tests in Release and under
# the address and undefined-behaviour sanitizers. Exits non-zero as soon as one fails.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

step() { printf '\n== %s\n' "$*"; }
jobs=$(nproc)

step "Toolchain"
install_missing \
    g++=g++ cmake=cmake make=make \
    /usr/include/gtest/gtest.h=libgtest-dev \
    /usr/include/benchmark/benchmark.h=libbenchmark-dev \
    clang-format=clang-format clang-tidy=clang-tidy \
    dpkg-shlibdeps=dpkg-dev \
    javac?default-jdk-headless \
    x86_64-w64-mingw32-g++-posix?g++-mingw-w64-x86-64-posix \
    x86_64-w64-mingw32-objdump?binutils-mingw-w64-x86-64 \
    wine?wine
# What only the tests of the Java host and of the Windows build need stands behind a "?": where the
# package lists do not know it, those tests skip themselves and say so.

step "Formatting"
find src tool tests bench -name '*.h' -o -name '*.cpp' | xargs clang-format --dry-run --Werror
echo "Every source file is formatted."

step "Release build"
cmake --preset release -DBUILD_TESTING=ON
cmake --build --preset release --parallel "$jobs"

step "Windows build, for the tests of ovri.dll and ovri.exe"
tests/platforms.sh --build-only

step "Static analysis"
find src tool -name '*.cpp' | sort | xargs -n 4 -P "$jobs" clang-tidy --quiet -p build
echo "No findings."

step "Tests, Release"
ctest --preset release --parallel "$jobs"

step "Sanitizer build"
cmake --preset asan -DBUILD_TESTING=ON
cmake --build --preset asan --parallel "$jobs"

step "Tests under AddressSanitizer and UndefinedBehaviorSanitizer"
ctest --preset asan --parallel "$jobs"

printf '\ntest.sh: formatting, static analysis and both test runs passed.\n'
