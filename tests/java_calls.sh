#!/usr/bin/env bash
# Many short calls in one Java machine: tests/java_calls.sh [CALLS], 10,000 unless told otherwise.
# Works on the Release build (cmake --preset release && cmake --build --preset release).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
OVRI_JAVA_CALLS=${1:-10000} build/tests/test_java --gtest_filter='ManyCalls*'
