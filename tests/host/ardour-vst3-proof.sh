#!/usr/bin/env bash
# Proves the VST3 edition in Debian's Ardour 7, headless, against the VST 2.4 plug-in:
#   a. Ardour's VST3 scanner, given the bundle's absolute path, indexes it with 2 in / 2 out, and Ardour
#      lists it by its name and instantiates it (the six parameters in order and in real units, then the
#      host's bypass);
#   b. with the values of a factory preset set through Ardour in real units, Ardour's bounce of a take it
#      recorded equals spatara-render's rendering of the take through the VST 2.4 plug-in with the same
#      normalised values;
#   c. the saved session holds the bank, byte for byte the VST 2.4 plug-in's chunk for the same state, and
#      a second Ardour run reopens the session with the same parameters, the same audio and the same bank;
#   d. with the host's bypass on, the take passes untouched and the balance meter still moves.
# Usage: ardour-vst3-proof.sh PATH/Spatara.vst3 PATH/Spatara.so PATH/spatara-render
# Exits 0 when everything holds, 1 with a message on the first failure, 77 when Ardour is not installed.
set -euo pipefail

readonly NAME="ZEV Spatara"
readonly PARAMETER_NAMES="depth baseFreq wdth/emph process phase mode Bypass"
readonly RECORD_SECONDS=3
# The factory preset "room space 3" in the units the VST3 parameters show (depth %, Hz, %, on, off, Mode3),
# not bypassed, and as the VST 2.4 plug-in's normalised values.
readonly units=(depth=75 baseFreq=81.25 wdth/emph=25 process=1 phase=0 mode=2 Bypass=0)
readonly unit_values="75,81.25,25,1,0,2,0"
readonly normalised=(depth=0.75 baseFreq=0.25 wdth/emph=0.25 process=1 phase=0 mode=1.0)
# Ardour finds a VST3 plug-in by its name.
readonly edition_id="$NAME"

here="$(cd "$(dirname "$0")" && pwd)"
source "$here/ardour-lib.sh"
edition_arguments vst3 "$@"
[ -d "$bundle/Contents" ] || fail "no VST3 bundle at $bundle"
require_ardour
scanner=/usr/lib/ardour7/ardour-vst3-scanner
[ -x "$scanner" ] || fail "Ardour is installed but its ardour-vst3-scanner is missing"

make_work_folder
# Only our copy of the bundle is on the VST3 path.
export VST3_PATH="$work/vst3"
mkdir -p "$VST3_PATH"
cp -r "$bundle" "$VST3_PATH/Spatara.vst3"
# Ardour trusts its scan cache only if it is not older than the plug-in (see ardour-proof.sh).
touch -m -d "@$(($(date +%s) - 60))" "$VST3_PATH/Spatara.vst3/Contents/"*/Spatara.so
echo "Ardour: $(ardour7-lua --version 2>&1 | head -n 1); VST3 bundle: $bundle"

edition_bank() { tool vst3-state-bank "$1" "$2" --name "$NAME"; }

step "a. Ardour's VST3 scanner reads the bundle"
# An absolute path: with a relative one the scanner writes a cache entry Ardour does not find.
scan "$scanner" "$VST3_PATH/Spatara.vst3" v3i
tool check-vst3-scan "$cache" --name "$NAME"

# Ardour starts a VST3 plug-in anew before a bounce, as it does a VST 2.4 plug-in (setting up its
# processing switches it off and on): both bounces must match the VST 2.4 rendering to within 1e-6.
step "b. Ardour plays a take through the VST3 plug-in, parameters set through the host"
prove_edition_playback 1e-6

step "c. the session holds the bank, and a reopened session has the same state"
prove_edition_state 1e-6

step "d. the host's bypass turns the effect's process off: the audio passes untouched, the meter moves"
run_ardour "$work/bypassed.log" "$here/record-and-bounce.lua" "$work/bypassed" "$edition_id" "$RECORD_SECONDS" \
    "${units[@]/Bypass=0/Bypass=1}"
stereo "$work/bypassed.log" take "$work/bypassed-take.wav"
stereo "$work/bypassed.log" bounced "$work/bypassed.wav"
tool compare "$work/bypassed-take.wav" "$work/bypassed.wav" --label "bounce with the host's bypass on" \
    --expect-offset 0 --max-abs 0 --max-relative 0
meter="$(proof_line "$work/bypassed.log" "output meter" | awk '{print $4}')"
echo "  the balance meter after the bounce: $meter"
# Independent pink noise on the two channels balances the meter near 0, on either side by chance: what
# shows that the effect kept metering is that the meter left its resting value, exactly 0.
awk -v m="$meter" 'BEGIN { exit !(m + 0 != 0) }' || fail "the balance meter stood still while bypassed"
echo "  ok: the plug-in ran while bypassed, its meter moved"

version="$(ardour7-lua --version 2>&1 | head -n 1 | awk '{print $NF}')"
echo "PASS: Ardour $version scans, runs, saves and reopens the VST3 edition of $NAME as the VST 2.4 plug-in"
