#!/usr/bin/env bash
# Runs the headless Neovim session of nvim_session.lua against quorls.
#
# Usage: neovim_test.sh QUORLS NEOVIM_MODULE_DIR WORK_DIR
set -euo pipefail
command -v nvim >/dev/null || { echo "FAILED - nvim is not installed (CI installs neovim)"; exit 1; }
here=$(cd "$(dirname "$0")" && pwd)
work=$3
rm -rf "$work"
mkdir -p "$work/files" "$work/xdg"
# Neovim's own state and the LSP log stay inside the work folder.
export XDG_CONFIG_HOME="$work/xdg/config" XDG_DATA_HOME="$work/xdg/data" \
       XDG_STATE_HOME="$work/xdg/state" XDG_CACHE_HOME="$work/xdg/cache"
QUORLS=$1 QUOR_NVIM_DIR=$2 QUOR_WORKDIR="$work/files" \
  timeout 120 nvim --headless -u NONE -i NONE -n --noplugin -c "luafile $here/nvim_session.lua" </dev/null
