#!/usr/bin/env bash
# The full test command, as CI runs it: everything built with warnings as errors and
# the tests run, then the tests again under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs="$(nproc)"
start=$SECONDS

bash scripts/install-deps.sh

echo "== build-ci: library, host, tests and benchmarks, -Werror"
cmake -S . -B build-ci -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZORVO_WERROR=ON \
  -DZORVO_SANITIZE=OFF -DZORVO_BUILD_TESTS=ON -DZORVO_BUILD_BENCH=ON
cmake --build build-ci --parallel "$jobs"
ctest --test-dir build-ci --output-on-failure --parallel "$jobs"
# The benchmarks are not timed here; a short run of the per-point one shows they work.
build-ci/zorvo_bench --benchmark_filter=tun21 --benchmark_min_time=0.01 >/dev/null

echo "== build-asan: tests under AddressSanitizer and UndefinedBehaviorSanitizer, -Werror"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZORVO_WERROR=ON \
  -DZORVO_SANITIZE=ON -DZORVO_BUILD_TESTS=ON -DZORVO_BUILD_BENCH=OFF
cmake --build build-asan --parallel "$jobs"
ctest --test-dir build-asan --output-on-failure --parallel "$jobs"

echo "== all tests passed in $((SECONDS - start)) s"
