#!/usr/bin/env bash
# A first look at quorls and quor: builds both, checks and documents the
# examples with quor, then plays a short editor session against the server
# and prints what the editor would show.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/ensure-packages.sh

build=build/demo
echo "Building quor and quorls in $build (the first build takes a few minutes) ..."
mkdir -p "$build"
log="$build/demo-build.log"
if ! { cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUOR_BUILD_TESTS=OFF &&
       cmake --build "$build" --target quor quorls quor_demo; } >"$log" 2>&1; then
  tail -n 30 "$log"
  echo "The build failed; the whole log is in $log." >&2
  exit 1
fi
quor="$build/quor"
scratch=$(mktemp -d "${TMPDIR:-/tmp}/quor-demo.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

colour=--color=never
[ -t 1 ] && colour=--color=always

section() { printf '\n== %s\n' "$*"; }
# Prints the command, then the first $1 lines of what it writes (both
# streams), a marker for what was left out, and its last line.
clipped() {
  local keep=$1; shift
  printf '$ %s\n' "$*"
  local output
  output=$("$@" 2>&1) || true
  local total
  total=$(printf '%s\n' "$output" | wc -l)
  if [ "$total" -le $((keep + 1)) ]; then
    printf '%s\n' "$output"
  else
    printf '%s\n' "$output" | head -n "$keep"
    printf '   ... (%d more lines)\n' $((total - keep - 1))
    printf '%s\n' "$output" | tail -n 1
  fi
}

section "quor check: the example programs are clean"
clipped 5 "$quor" check "$colour" examples/*.quor

section "quor check on the whole folder: examples/mistakes/ holds programs with deliberate errors"
clipped 9 "$quor" check "$colour" examples

section "The same errors for programs: JSON lines (or --format github for CI annotations)"
clipped 2 "$quor" check --format json examples/mistakes

section "quor doc: Markdown and HTML pages for every module of the examples"
clipped 3 "$quor" doc examples "$scratch/docs"
if [ -d "$scratch/docs" ]; then
  (cd "$scratch/docs" && find . -type f -name '*.html' | sort | sed 's|^\./||' | tr '\n' ' ' | fold -s -w 100 | sed 's/^/    /')
  echo
fi

section "An editor session with the language server (quorls over stdin/stdout)"
"$build/tools/quor_demo" "$build/quorls" examples/shapes.quor
