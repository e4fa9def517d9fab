#!/bin/bash
# A format's module (LV2, VST3, CLAP) shows the world only the format's entry points, and holds one copy of
# the window layer: the editor's, in its private namespace, none of the framework's own.
# Usage: check-binary.sh MODULE "ENTRY POINTS" (sorted, separated by spaces)
set -euo pipefail
module="$1"
expected="$2"
exported="$(nm -D --defined-only "$module" | awk '{print $3}' | sort | xargs)"
echo "exported: $exported"
[ "$exported" = "$expected" ] || { echo "FAIL: unexpected exports, expected $expected"; exit 1; }
ours="$(nm -C "$module" | grep -c ' SpataraDGL::' || true)"
theirs="$(nm -C "$module" | grep -c ' DGL::' || true)"
echo "window layer symbols: $ours in SpataraDGL, $theirs in the framework's DGL"
[ "$ours" -gt 0 ] || { echo "FAIL: the editor's window layer is missing"; exit 1; }
[ "$theirs" -eq 0 ] || { echo "FAIL: a second copy of the window layer is compiled in"; exit 1; }
