#!/usr/bin/env bash
# Runs side by side in one process under ThreadSanitizer: tests/threads.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=$PWD/build-threads
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=ON \
    -DCMAKE_CXX_FLAGS="-fsanitize=thread" >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target test_run >/dev/null
TSAN_OPTIONS=halt_on_error=1 "$build/tests/test_run" --gtest_filter='ConcurrentRuns*'
