#!/usr/bin/env bash
# Builds quorls and plays a short editor session against it: open an example,
# hover, jump to a definition, complete, rename, type an error, format, shut down.
# Each answer of the server is printed as one line of JSON (long ones cut).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/ensure-packages.sh

build=build/demo
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUOR_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" --target quorls >/dev/null

example=examples/shapes.quor
uri="file:///demo/shapes.quor"

# JSON string body of a file or text: backslashes, quotes, tabs and line ends escaped.
json_text() { sed -e 's/\\/\\\\/g' -e 's/"/\\"/g' -e 's/\t/\\t/g' | awk '{ printf "%s\\n", $0 }'; }
frame() { printf 'Content-Length: %d\r\n\r\n%s' "$(printf '%s' "$1" | wc -c)" "$1"; }
position() { printf '"textDocument":{"uri":"%s"},"position":{"line":%d,"character":%d}' "$uri" "$1" "$2"; }

call_line=$(( $(grep -n 'assert(add' "$example" | cut -d: -f1) - 1 ))
text=$(json_text < "$example")
broken=$(printf 'fn main() {\n    let s = "unterminated;\n}\n' | json_text)
syntax=$(printf 'fn main() {\n    let x = ;\n}\n' | json_text)
messy=$(printf 'fn twice(x:int):int{return x*2;}\nclass Point{int x;int y;}\n' | json_text)

session() {
  frame '{"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}}'
  frame '{"jsonrpc":"2.0","method":"initialized","params":{}}'
  frame "{\"jsonrpc\":\"2.0\",\"method\":\"textDocument/didOpen\",\"params\":{\"textDocument\":{\"uri\":\"$uri\",\"languageId\":\"quor\",\"version\":1,\"text\":\"$text\"}}}"
  frame "{\"jsonrpc\":\"2.0\",\"id\":2,\"method\":\"textDocument/hover\",\"params\":{$(position "$call_line" 12)}}"
  frame "{\"jsonrpc\":\"2.0\",\"id\":3,\"method\":\"textDocument/definition\",\"params\":{$(position "$call_line" 12)}}"
  frame "{\"jsonrpc\":\"2.0\",\"id\":4,\"method\":\"textDocument/completion\",\"params\":{$(position 0 0)}}"
  frame "{\"jsonrpc\":\"2.0\",\"id\":5,\"method\":\"textDocument/rename\",\"params\":{$(position "$call_line" 12),\"newName\":\"plus\"}}"
  frame "{\"jsonrpc\":\"2.0\",\"method\":\"textDocument/didChange\",\"params\":{\"textDocument\":{\"uri\":\"$uri\",\"version\":2},\"contentChanges\":[{\"text\":\"$broken\"}]}}"
  frame "{\"jsonrpc\":\"2.0\",\"method\":\"textDocument/didChange\",\"params\":{\"textDocument\":{\"uri\":\"$uri\",\"version\":3},\"contentChanges\":[{\"text\":\"$syntax\"}]}}"
  frame "{\"jsonrpc\":\"2.0\",\"method\":\"textDocument/didChange\",\"params\":{\"textDocument\":{\"uri\":\"$uri\",\"version\":4},\"contentChanges\":[{\"text\":\"$messy\"}]}}"
  frame "{\"jsonrpc\":\"2.0\",\"id\":6,\"method\":\"textDocument/formatting\",\"params\":{\"textDocument\":{\"uri\":\"$uri\"},\"options\":{\"tabSize\":4,\"insertSpaces\":true}}}"
  frame '{"jsonrpc":"2.0","id":7,"method":"shutdown"}'
}

echo "quorls session on $example (server answers, one per line):"
session | "$build/quorls" | sed 's/Content-Length: [0-9]*/\n/g' | tr -d '\r' | grep -v '^$' |
  awk '{ if (length($0) > 400) print substr($0, 1, 400) " ..."; else print }'
