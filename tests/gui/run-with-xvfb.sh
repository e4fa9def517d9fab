#!/bin/sh
# Runs a program under a private Xvfb server (DISPLAY set for it). Exits 77, which ctest counts as
# skipped, only when Xvfb is not installed.
command -v Xvfb >/dev/null 2>&1 || { echo "Xvfb is not installed: skipping"; exit 77; }
numberfile=$(mktemp)
# -displayfd lets the server pick a free display, so parallel tests never collide; -noreset keeps it
# accepting clients while the last one reconnects (a reset refuses connections for a moment).
# SPATARA_XVFB_SCREEN sets another screen, for hosts whose own dialogs need room.
Xvfb -displayfd 3 -screen 0 "${SPATARA_XVFB_SCREEN:-640x480x24}" -nolisten tcp -noreset 3>"$numberfile" >/dev/null 2>&1 &
server=$!
trap 'kill $server 2>/dev/null; wait $server 2>/dev/null; rm -f "$numberfile"' EXIT
i=0
while [ ! -s "$numberfile" ] && [ $i -lt 100 ]; do sleep 0.05; i=$((i + 1)); done
[ -s "$numberfile" ] || { echo "Xvfb did not start"; exit 1; }
DISPLAY=":$(cat "$numberfile")" "$@"
