#!/usr/bin/env bash
# Copies an npm project (without node_modules or built packages) into the build
# tree and installs its dependencies exactly as its lock file pins them.
#
# Usage: npm_setup.sh SOURCE_DIR DEST_DIR
set -euo pipefail
source_dir=$1
dest=$2
for tool in node npm; do
  command -v "$tool" >/dev/null || { echo "FAILED - $tool is not installed (CI installs nodejs and npm)"; exit 1; }
done
rm -rf "$dest"
mkdir -p "$dest"
(cd "$source_dir" && tar --exclude=./node_modules --exclude='*.vsix' -cf - .) | (cd "$dest" && tar -xf -)
cd "$dest"
npm ci --no-audit --no-fund --loglevel=error
