#!/usr/bin/env bash
# Install and package: `cmake --install` into a prefix, then the Debian package
# built by CPack, unpacked into a clean tree with dpkg-deb -x. From each the
# installed quorls and quor are run.
#
# Usage: package_test.sh BUILD_DIR WORK_DIR VERSION
set -uo pipefail
build=$1
work=$2
version=$3

passed=0
failed=0
pass() { passed=$((passed + 1)); echo "ok - $1"; }
fail() { failed=$((failed + 1)); echo "FAILED - $1"; }
check() { local name=$1; shift; if "$@"; then pass "$name"; else fail "$name"; fi; }
finish() { echo "$passed passed, $failed failed"; [ "$failed" -eq 0 ]; exit $?; }

for tool in cmake cpack dpkg-deb; do
  if ! command -v "$tool" >/dev/null; then
    fail "$tool is installed"
    finish
  fi
done

rm -rf "$work"
mkdir -p "$work"

version_line="quorls (Quor Language Server) version $version"
good_source=$'/// Adds two numbers.\nfn add(a: int, b: int): int {\n    return a + b;\n}\n'
bad_source=$'fn f(): int { return "x"; }\n'

# Runs the installed pair found in the bin folder $1, labelled $2.
check_installed_pair() {
  local bin=$1 label=$2
  check "$label: quorls is installed as an executable" test -x "$bin/quorls"
  check "$label: quor is installed as an executable" test -x "$bin/quor"
  check "$label: quorls --version names the version" \
    test "$("$bin/quorls" --version 2>&1 | head -n 1)" = "$version_line"
  check "$label: quorls --help starts with its usage line" \
    test "$("$bin/quorls" --help 2>&1 | head -n 1)" = "Usage: quorls [options]"

  local sources="$work/$label-sources"
  mkdir -p "$sources"
  printf '%s' "$good_source" > "$sources/good.quor"
  printf '%s' "$bad_source" > "$sources/bad.quor"
  local output status
  output=$(cd "$sources" && "$bin/quor" check good.quor 2>&1)
  status=$?
  check "$label: quor check passes a correct file" test "$status" -eq 0
  check "$label: quor check reports no error in a correct file" bash -c '! grep -q "E1" <<<"$1"' _ "$output"
  output=$(cd "$sources" && "$bin/quor" check bad.quor 2>&1)
  status=$?
  check "$label: quor check fails a file with a type error" test "$status" -eq 1
  check "$label: quor check prints the error code" grep -qF 'E1005' <<<"$output"
  check "$label: quor check prints the message" \
    grep -qF "Return type mismatch: expected 'int', got 'string'" <<<"$output"
  check "$label: quor check prints the place as file:line:column" grep -qF 'bad.quor:1:15' <<<"$output"

  # One request and the shutdown over the installed server's standard streams.
  local init='{"jsonrpc":"2.0","id":1,"method":"initialize","params":{}}'
  local shutdown='{"jsonrpc":"2.0","id":2,"method":"shutdown"}'
  output=$(printf 'Content-Length: %d\r\n\r\n%sContent-Length: %d\r\n\r\n%s' \
    "${#init}" "$init" "${#shutdown}" "$shutdown" | "$bin/quorls")
  status=$?
  check "$label: quorls answers initialize with its name and version" \
    grep -qF '"serverInfo":{"name":"quorls","version":"'"$version"'"}' <<<"$output"
  local last='{"id":2,"jsonrpc":"2.0","result":null}'
  check "$label: quorls answers shutdown last and leaves with status 0" \
    test "$status" -eq 0 -a "${output: -${#last}}" = "$last"
}

# 1. cmake --install into a prefix.
prefix="$work/prefix"
if cmake --install "$build" --prefix "$prefix" >"$work/install.log" 2>&1; then
  pass "cmake --install succeeds"
  check_installed_pair "$prefix/bin" prefix
  check "prefix: the Neovim module lands on Neovim's site path" \
    test -f "$prefix/share/nvim/site/lua/quorls.lua"
else
  cat "$work/install.log"
  fail "cmake --install succeeds"
fi

# 2. The Debian package.
if cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/package" >"$work/cpack.log" 2>&1; then
  pass "cpack builds a Debian package"
else
  cat "$work/cpack.log"
  fail "cpack builds a Debian package"
  finish
fi
deb="$work/package/quorls_${version}_amd64.deb"
check "the package is named quorls_${version}_amd64.deb" test -f "$deb"
if [ ! -f "$deb" ]; then
  ls -l "$work/package"
  finish
fi
check "the package is called quorls" test "$(dpkg-deb -f "$deb" Package)" = quorls
check "the package version is $version" test "$(dpkg-deb -f "$deb" Version)" = "$version"
check "the package is built for amd64" test "$(dpkg-deb -f "$deb" Architecture)" = amd64
check "the package depends on the C++ runtime" grep -q 'libstdc++6' <<<"$(dpkg-deb -f "$deb" Depends)"
contents=$(dpkg-deb -c "$deb")
check "the package holds /usr/bin/quorls" grep -qE ' \./usr/bin/quorls$' <<<"$contents"
check "the package holds /usr/bin/quor" grep -qE ' \./usr/bin/quor$' <<<"$contents"
check "the package holds the Neovim module" grep -qE ' \./usr/share/nvim/site/lua/quorls\.lua$' <<<"$contents"

root="$work/root"
mkdir -p "$root"
if dpkg-deb -x "$deb" "$root"; then
  pass "dpkg-deb -x unpacks the package into a clean tree"
  check_installed_pair "$root/usr/bin" package
else
  fail "dpkg-deb -x unpacks the package into a clean tree"
fi
finish
