#!/bin/bash
# Qtractor's own plug-in scanner lists the CLAP edition: its name, 2 audio inputs and 2 outputs, no MIDI,
# seven automatable controls (the six parameters and the host's bypass) and the meter as an output, with
# an editor (GUI) and real-time safe (RT). Skipped (77) when Qtractor is not installed.
set -euo pipefail
clap="$(realpath "$1")"
scanner=/usr/lib/x86_64-linux-gnu/qtractor/qtractor_plugin_scan
if [ ! -x "$scanner" ]; then
    echo "SKIP: Qtractor is not installed (apt-get install qtractor)"
    exit 77
fi
# The scanner reads "TYPE:PATH" lines and answers one line a plug-in: TYPE|name|ins:outs|MIDI ins:outs|
# control ins:outs|flags|path|index|id.
line="$(echo "CLAP:$clap" | timeout 60 "$scanner" 2> /dev/null | grep '^CLAP|' || true)"
echo "qtractor_plugin_scan: $line"
IFS='|' read -r type name audio midi controls flags path _ <<< "$line"
[ "$type" = CLAP ] || { echo "FAIL: Qtractor's scanner does not list the plug-in"; exit 1; }
[ "$name" = "ZEV Spatara" ] || { echo "FAIL: listed as '$name'"; exit 1; }
[ "$audio" = "2:2" ] || { echo "FAIL: audio $audio, expected 2:2"; exit 1; }
[ "$midi" = "0:0" ] || { echo "FAIL: MIDI $midi, expected 0:0"; exit 1; }
# Six parameters and the host's bypass in; the balance and the correlation meters out.
[ "$controls" = "7:2" ] || { echo "FAIL: controls $controls, expected 7:2"; exit 1; }
[[ ",$flags," == *",GUI,"* ]] || { echo "FAIL: flags $flags: no editor"; exit 1; }
[[ ",$flags," == *",RT,"* ]] || { echo "FAIL: flags $flags: not real-time safe"; exit 1; }
[ "$path" = "$clap" ] || { echo "FAIL: path $path"; exit 1; }
echo "ok: ZEV Spatara, 2 in / 2 out, 7 controls and the meter, with its editor"
