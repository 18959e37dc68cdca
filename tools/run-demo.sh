#!/usr/bin/env bash
# Runs the demo: a window when a display is available, otherwise its pages rendered to PNG
# files under the output folder.
set -euo pipefail
demo="$1"
out="$2"
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$demo"
fi
mkdir -p "$out"
"$demo" --screenshot "$out"
echo "No display here: the demo's pages were rendered to $(cd "$out" && pwd)/"
