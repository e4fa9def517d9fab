#!/bin/bash
# Runs lv2_validate on a bundle and fails on any error except those about the moddevices.com vocabulary
# (mod:brand, mod:label), which the framework writes and Debian does not ship.
set -euo pipefail
bundle="$1"
# It exits non-zero on any error, the tolerated ones included: the report decides.
report="$(lv2_validate "$bundle"/*.ttl 2>&1 || true)"
echo "$report" | tail -n 1
# Each error is one "error:" line followed by the subject, the property and the value.
others="$(echo "$report" | awk '/^error:/ {e=$0; getline s; getline p; if (p !~ /moddevices\.com\/ns\/mod#/) print e " " p}')"
total="$(echo "$report" | grep -c '^error:' || true)"
warnings="$(echo "$report" | grep -c '^warning:' || true)"
echo "errors: $total, of them not about the mod: vocabulary: $(echo -n "$others" | grep -c . || true); warnings: $warnings"
if [ -n "$others" ]; then
    echo "$others"
    exit 1
fi
echo "$report" | grep -q "^Found [0-9]* errors" || { echo "no report from lv2_validate"; exit 1; }
