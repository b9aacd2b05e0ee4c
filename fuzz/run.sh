#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each one for a bounded
# time on its seed corpus. A sanitizer report, a crash, an input that runs
# past 2 seconds or a process past 2 GB fails the run; the reproducer is left
# in the artifact directory.
#
#   fuzz/run.sh [seconds per target] [build dir]
#
# Defaults: 15 seconds, build/fuzz-ci. FUZZ_JOBS targets run side by side
# (default 2). Seeds are read from fuzz/corpus/<target> and, for targets that
# read Quor text, from examples/; what the run adds goes to a scratch
# directory, so the tree's corpora stay small. Set FUZZ_KEEP to a directory
# to keep each target's log and grown corpus there (for the long runs that
# docs/reliability.md records), and FUZZ_TARGETS to run only some targets.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-15}
build=${2:-build/fuzz-ci}
jobs=${FUZZ_JOBS:-2}
read -r -a targets <<<"${FUZZ_TARGETS:-json server lexer parser frontend analyzer formatter doc features}"

have_toolchain() {
  command -v clang++ >/dev/null 2>&1 &&
    echo 'extern "C" int LLVMFuzzerTestOneInput(const char*, unsigned long) { return 0; }' |
      clang++ -x c++ -fsanitize=fuzzer,address,undefined -o /dev/null - >/dev/null 2>&1
}
if ! have_toolchain; then
  if [ "$(id -u)" -eq 0 ] && command -v apt-get >/dev/null 2>&1; then
    echo "fuzz: installing clang and its runtime libraries" >&2
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -q >/dev/null
    apt-get install -y -q --no-install-recommends clang libclang-rt-14-dev >/dev/null
  fi
  have_toolchain || { echo "fuzz: clang with libFuzzer is needed (apt-get install clang libclang-rt-14-dev)" >&2; exit 1; }
fi

echo "== fuzz: build ($build)"
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=None \
  -DCMAKE_CXX_FLAGS="-O1 -gline-tables-only" -DQUOR_BUILD_FUZZERS=ON -DQUOR_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j "$(nproc 2>/dev/null || echo 2)" --target fuzzers

if [ -n "${FUZZ_KEEP:-}" ]; then
  scratch=$FUZZ_KEEP
  mkdir -p "$scratch"
else
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
fi
artifacts="$build/artifacts"
mkdir -p "$artifacts"

# The sanitizer keeps 256 MiB of freed blocks and a 30-frame stack for every
# allocation by default; over millions of inputs with deep recursion that
# alone passes the 2 GB limit, so both are kept smaller.
run_target() {
  local target=$1
  local seeds=("fuzz/corpus/$target")
  case $target in
    lexer | parser | frontend | formatter | doc | features) seeds+=(examples) ;;
  esac
  mkdir -p "$scratch/$target"
  if ASAN_OPTIONS=detect_leaks=1:quarantine_size_mb=64:malloc_context_size=8 UBSAN_OPTIONS=print_stacktrace=1 \
    "$build/fuzz/fuzz_$target" "$scratch/$target" "${seeds[@]}" \
    -max_total_time="$seconds" -timeout=2 -rss_limit_mb=2048 -malloc_limit_mb=2048 \
    -artifact_prefix="$artifacts/$target-" -print_final_stats=1 >"$scratch/$target.log" 2>&1; then
    echo "fuzz: $target passed ($(grep -m1 -o 'stat::number_of_executed_units: *[0-9]*' "$scratch/$target.log" |
      grep -o '[0-9]*$') runs in ${seconds}s)"
  else
    echo "fuzz: $target FAILED"
    tail -n 60 "$scratch/$target.log"
    return 1
  fi
}

echo "== fuzz: ${seconds}s per target, $jobs at a time"
failures=0
pids=()
for target in "${targets[@]}"; do
  run_target "$target" &
  pids+=($!)
  if [ ${#pids[@]} -ge "$jobs" ]; then
    wait "${pids[0]}" || failures=$((failures + 1))
    pids=("${pids[@]:1}")
  fi
done
for pid in "${pids[@]}"; do wait "$pid" || failures=$((failures + 1)); done
echo "fuzz: $((${#targets[@]} - failures)) passed, $failures failed"
if [ "$failures" -ne 0 ]; then
  echo "fuzz: reproducers in $artifacts" >&2
  exit 1
fi
