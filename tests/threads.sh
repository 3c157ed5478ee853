#!/usr/bin/env bash
# Runs side by side in one process, and the chains of one study in several threads, under
# ThreadSanitizer: tests/threads.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=$PWD/build-threads
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=ON \
    -DCMAKE_CXX_FLAGS="-fsanitize=thread" >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target test_run test_study >/dev/null
export TSAN_OPTIONS=halt_on_error=1
"$build/tests/test_run" --gtest_filter='ConcurrentRuns*'
"$build/tests/test_study" --gtest_filter='StudyChains*'
