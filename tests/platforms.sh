#!/usr/bin/env bash
# The other platforms: the library in a Java machine, ovri.dll and ovri.exe under wine, and the
# archives. Builds what their tests look at, then runs them; with --build-only it stops before the
# tests, for a caller that runs the whole suite.
#
# Debian packages: default-jdk-headless (a JDK), g++-mingw-w64-x86-64-posix (with binutils for
# Windows), wine and wine64 (the program that starts 64-bit programs), dpkg-dev (what the .deb
# depends on). What is missing is not installed here; its tests skip themselves and say so.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=$(nproc)

if command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    cmake --preset windows
    cmake --build --preset windows --parallel "$jobs"
else
    echo "mingw-w64 is not installed: nothing is built for Windows, its tests will be skipped."
fi
if [[ ${1:-} == --build-only ]]; then
    exit 0
fi
cmake --preset release -DBUILD_TESTING=ON
cmake --build --preset release --parallel "$jobs"
ctest --preset release --parallel "$jobs" --tests-regex '^(java|windows|packaging)'
