#!/usr/bin/env bash
# Builds with AddressSanitizer and UndefinedBehaviorSanitizer (clang), runs the whole unit suite under them,
# then runs each fuzz target for a bounded time. Usage: scripts/robustness.sh [seconds per fuzz target]
set -euo pipefail
cd "$(dirname "$0")/.."
fuzz_seconds="${1:-30}"
scripts/install-deps.sh
for p in clang libclang-rt-14-dev; do
    dpkg -s "$p" >/dev/null 2>&1 || { sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"; $sudo apt-get install -y -qq "$p"; }
done
CC=clang CXX=clang++ cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBELLWICK_TESTS=ON \
    -DBELLWICK_SANITIZE=ON -DBELLWICK_FUZZ=ON -DCMAKE_UNITY_BUILD=ON
cmake --build build-asan -j"$(nproc)"

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export LSAN_OPTIONS=suppressions=$PWD/tests/fuzz/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# Of the desktop runs, the one that drives the program into its faults runs under the sanitizers.
(cd build-asan && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)" -E '^desktop_' &&
    ctest --output-on-failure -R '^desktop_sound_server$')

for target in fuzz_schedule_file fuzz_data_file fuzz_settings_record; do
    corpus=$(mktemp -d)
    cp tests/fuzz/seeds/* "$corpus"/
    echo "== $target for ${fuzz_seconds} s"
    build-asan/"$target" -max_total_time="$fuzz_seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        "$corpus" 2>&1 | tail -4
    rm -rf "$corpus"
done
echo "robustness: sanitizer suite and fuzzing passed"
