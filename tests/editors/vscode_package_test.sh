#!/usr/bin/env bash
# Packages the VS Code extension with the README's command and checks what the
# .vsix carries: the manifest, the client, the grammar, the language
# configuration and the runtime dependency, and none of the tests or tools.
#
# Usage: vscode_package_test.sh EXTENSION_DIR (a copy with node_modules installed)
set -uo pipefail
cd "$1"
passed=0
failed=0
check() { local name=$1; shift; if "$@"; then passed=$((passed + 1)); echo "ok - $name"; else failed=$((failed + 1)); echo "FAILED - $name"; fi; }

rm -f quor-*.vsix
if npm run package --loglevel=error >package.log 2>&1; then
  check "npm run package succeeds" true
else
  cat package.log
  check "npm run package succeeds" false
fi
vsix=quor-1.0.0.vsix
check "the package is $vsix" test -f "$vsix"
listing=$(unzip -Z1 "$vsix" 2>/dev/null)
for file in extension/package.json extension/extension.js extension/server.js \
            extension/syntaxes/quor.tmLanguage.json extension/language-configuration.json \
            extension/node_modules/vscode-languageclient/package.json \
            extension/node_modules/vscode-jsonrpc/package.json; do
  check "the package holds $file" grep -qxF "$file" <<<"$listing"
done
check "the package holds no tests" bash -c '! grep -q "^extension/test/" <<<"$1"' _ "$listing"
check "the package holds no build tools" bash -c '! grep -qE "node_modules/(@vscode/vsce|vscode-tmgrammar-test)/" <<<"$1"' _ "$listing"
check "the packaged manifest is the extension's own" \
  cmp -s package.json <(unzip -p "$vsix" extension/package.json)

# The packed extension must load from the .vsix alone: its client module and
# everything that requires, with the editor API (which VS Code provides) faked
# by a stand-in whose every member is an empty class.
unpacked=$(mktemp -d)
unzip -q "$vsix" -d "$unpacked"
check "the packed extension and its language client load from the package alone" node -e '
  const Module = require("module");
  const load = Module._load;
  const anything = () => new Proxy(class {}, { get: (target, key) => (key in target ? target[key] : anything()) });
  const vscode = new Proxy({}, { get: (target, key) => (key === "__esModule" ? false : anything()) });
  Module._load = function (request, ...rest) { return request === "vscode" ? vscode : load.call(this, request, ...rest); };
  const root = process.argv[1] + "/extension/";
  if (typeof require(root + "node_modules/vscode-languageclient/node").LanguageClient !== "function") process.exit(1);
  if (typeof require(root + "extension.js").activate !== "function") process.exit(1);
' "$unpacked"
rm -rf "$unpacked"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
