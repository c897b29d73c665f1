#!/usr/bin/env bash
# Installs what is missing, builds Bellwick with its tests and runs them all.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# One translation unit for each few sources: a fresh build takes less than half the time.
cmake -S . -B build-test -DCMAKE_BUILD_TYPE=Release -DBELLWICK_TESTS=ON -DCMAKE_UNITY_BUILD=ON
cmake --build build-test -j"$(nproc)"
cd build-test
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)"
