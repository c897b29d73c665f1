#!/usr/bin/env bash
# Installs what is missing, builds Bellwick and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBELLWICK_TESTS=OFF
cmake --build build -j"$(nproc)" --target bellwick
exec build/bellwick
