#!/usr/bin/env bash
# Builds and runs every test twice: once in a warnings-as-errors release
# build, once with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/ensure-packages.sh
jobs=$(nproc 2>/dev/null || echo 2)

run_leg() {
  local dir=$1; shift
  echo "== $dir"
  cmake -S . -B "$dir" -G Ninja -DQUOR_WERROR=ON "$@" >/dev/null
  cmake --build "$dir" -j "$jobs"
  ctest --test-dir "$dir" --output-on-failure -j "$jobs"
}

run_leg build/release -DCMAKE_BUILD_TYPE=Release -DQUOR_BUILD_TESTS=ON
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  run_leg build/sanitize -DCMAKE_BUILD_TYPE=Debug -DQUOR_SANITIZE=ON -DQUOR_BUILD_TESTS=ON
