#!/usr/bin/env bash
# How long `quor check` takes over a whole repository: a generated tree of
# FILES sources of LINES lines each (1000 x 1000 by default), checked
#   1. one file at a time, one quor process per file, as a naive CI loop would;
#   2. in one process on one worker (-j 1);
#   3. in one process on every core (the default).
# Prints the three wall-clock times. Not a test: nothing is asserted.
# Usage: bench/check_tree.sh [FILES [LINES]]
set -euo pipefail
cd "$(dirname "$0")/.."
files=${1:-1000}
lines=${2:-1000}

scripts/ensure-packages.sh
build=build/bench-check
mkdir -p "$build"
if ! { cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUOR_BUILD_TESTS=OFF &&
       cmake --build "$build" --target quor; } >"$build/bench-build.log" 2>&1; then
  tail -n 30 "$build/bench-build.log"
  exit 1
fi
quor="$build/quor"

tree=$(mktemp -d "${TMPDIR:-/tmp}/quor-check-tree.XXXXXX")
trap 'rm -rf "$tree"' EXIT

# One file: functions of five lines each, with names unique in the file, so
# that the whole front end runs (the tree is free of errors) on every line.
awk -v lines="$lines" 'BEGIN {
  for (i = 0; i * 5 < lines; i++) {
    printf "fn step%d(a: int, b: int): int {\n    let c = a + b * %d;\n    return c - a;\n}\n\n", i, i
  }
}' | head -n "$lines" > "$tree/unit.quor"
for ((i = 0; i < files; i++)); do
  dir="$tree/src/pkg$((i / 100))"
  mkdir -p "$dir"
  cp "$tree/unit.quor" "$dir/file$i.quor"
done
rm "$tree/unit.quor"
echo "tree: $files files of $lines lines in $tree/src ($(nproc) cores)"

seconds() { local start end; start=$(date +%s.%N); "$@" >/dev/null 2>&1 || true; end=$(date +%s.%N); awk -v s="$start" -v e="$end" 'BEGIN { print e - s }'; }
one_by_one() { find "$tree/src" -name '*.quor' | sort | while read -r f; do "$quor" check "$f"; done; }

status=0
"$quor" check "$tree/src" >/dev/null 2>&1 || status=$?
[ "$status" -eq 0 ] || echo "note: the generated tree has errors (quor check exit status $status)"

printf '%-44s %8.2f s\n' "one process per file, one after another:" "$(seconds one_by_one)"
printf '%-44s %8.2f s\n' "quor check -j 1 (one process, one worker):" "$(seconds "$quor" check -j 1 "$tree/src")"
printf '%-44s %8.2f s\n' "quor check (one process, every core):" "$(seconds "$quor" check "$tree/src")"
