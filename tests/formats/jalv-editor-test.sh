#!/usr/bin/env bash
# The LV2 edition's editor in Debian's jalv (jalv.gtk3, on a private JACK server with the dummy driver),
# under an X server of its own (run it through tests/gui/run-with-xvfb.sh with a screen of 1280x1024):
#   a. jalv opens the effect's own editor inside its window; a screenshot of it is kept;
#   b. a port change made by the host (a preset from jalv's menu) moves the editor's depth slider to where
#      the host's depth port then is (read from the state jalv saves: File, Save);
#   c. a drag of the depth slider changes the host's depth port: the state jalv saves then holds a depth
#      port of about 50 %, the value the bank's current preset holds;
#   d. two steps on in the editor's own preset panel ("enhanced mix 2"), the host's ports follow: the state
#      jalv saves holds a depth port of 35 %, the value of that preset.
# Usage: jalv-editor-test.sh PATH/Spatara.lv2 OUTPUT-FOLDER
# Exits 0 when all holds, 1 on the first failure, 77 when jalv.gtk3 or jackd is not installed.
set -euo pipefail

readonly URI="https://zev-sound.example/plugins/spatara"
readonly TIMEOUT=20
# Where jalv's window puts things, with no window manager: its menu bar on top, the editor below it.
readonly PRESETS_MENU=(70 12)
readonly FILE_MENU=(18 12)
readonly FILE_SAVE=(46 37)
# The presets in jalv's menu, 25 pixels a row below its two commands; their order is lilv's, which varies.
readonly FIRST_PRESET=(100 84)
readonly PRESET_ROW=25
# The depth slider's row in the editor, and its handle's left edge at 0 and the travel to 1.
readonly DEPTH_ROW_Y=59
readonly DEPTH_LEFT=63
readonly DEPTH_TRAVEL=162
# The preset panel's "next preset" arrow in the editor.
readonly NEXT_PRESET=(242 228)

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

[ $# -eq 2 ] || { echo "usage: $0 PATH/Spatara.lv2 OUTPUT-FOLDER" >&2; exit 2; }
for tool in jalv.gtk3 jackd; do
    command -v "$tool" > /dev/null || { echo "SKIP: $tool is not installed"; exit 77; }
done
bundle="$(realpath "$1")"
out="$(realpath -m "$2")"
here="$(cd "$(dirname "$0")" && pwd)"
rm -rf "$out"
mkdir -p "$out/lv2" "$out/home"
cp -r "$bundle" "$out/lv2/Spatara.lv2"
export LV2_PATH="$out/lv2" HOME="$out/home" XDG_CONFIG_HOME="$out/home/.config"
export JACK_DEFAULT_SERVER="spatara-jalv-$$" JACK_NO_AUDIO_RESERVATION=1

pids=()
finish() {
    local pid
    for pid in "${pids[@]}"; do kill "$pid" 2> /dev/null || true; done
    for pid in "${pids[@]}"; do wait "$pid" 2> /dev/null || true; done
    # The semaphores of our server's clients outlive them; they carry the server's name.
    rm -f /dev/shm/jack_sem.*"_${JACK_DEFAULT_SERVER}_"*
}
trap finish EXIT

jackd --no-realtime -n "$JACK_DEFAULT_SERVER" -d dummy -r 48000 -p 256 > "$out/jackd.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do jack_lsp > /dev/null 2>&1 && break; sleep 0.1; done
jack_lsp > /dev/null 2>&1 || fail "the JACK server did not start (see $out/jackd.log)"

# jalv saves its state into the folder it runs in.
cd "$out"
jalv.gtk3 "$URI" > "$out/jalv.log" 2>&1 &
pids+=($!)
window="$(timeout "$TIMEOUT" xdotool search --sync --name "^ZEV Spatara$" | head -n 1)" ||
    fail "jalv opened no window (see $out/jalv.log)"
# The editor: the window of the editor's size inside jalv's, at its absolute place.
editor=""
for _ in $(seq 50); do
    editor="$(xwininfo -root -tree | awk '/ 302x250\+/ {print $NF; exit}')"
    [ -n "$editor" ] && break
    sleep 0.1
done
[ -n "$editor" ] || fail "jalv shows no editor of 302x250 pixels"
ex="$(echo "$editor" | cut -d+ -f2)"
ey="$(echo "$editor" | cut -d+ -f3)"
echo "  the editor is open in jalv's window at +$ex+$ey"
sleep 1

shot() { import -window root -crop "302x250+$ex+$ey" +repage "$out/$1.png"; }
# handle_x NAME: where the depth slider's handle is in screenshot NAME, from its picture in "opened".
handle_x() {
    convert "$out/opened.png" -crop "15x17+$DEPTH_LEFT+$((DEPTH_ROW_Y - 8))" +repage "$out/handle.png"
    convert "$out/$1.png" -crop "200x17+50+$((DEPTH_ROW_Y - 8))" +repage "$out/$1-row.png"
    # compare exits 1 whenever the pictures differ at all, which they do a little: its answer is the place.
    { compare -metric RMSE -dissimilarity-threshold 1 -subimage-search "$out/$1-row.png" "$out/handle.png" \
        null: 2>&1 || true; } | sed -n 's/.*@ \([0-9]*\),.*/\1/p' | awk '{print $1 + 50}'
}
click() {
    xdotool mousemove "$1" "$2"
    sleep 0.3
    xdotool mousedown 1
    sleep 0.1
    xdotool mouseup 1
    sleep 0.5
}

shot opened
[ "$(handle_x opened)" = "$DEPTH_LEFT" ] || fail "the depth slider does not start at 0 %"
eval "$(xdotool getwindowgeometry --shell "$window")"
import -window root -crop "${WIDTH}x${HEIGHT}+$X+$Y" +repage "$out/jalv.png"
echo "  a. screenshots: $out/jalv.png (jalv's window), $out/opened.png (the editor)"

# saved_depth NAME: saves jalv's state as NAME and prints its depth port (%) and the depth the bank's
# current preset holds (normalised), after checking that the two agree.
saved_depth() {
    local dialog X Y WIDTH HEIGHT SCREEN WINDOW
    click "${FILE_MENU[@]}"
    click "${FILE_SAVE[@]}"
    dialog="$(timeout "$TIMEOUT" xdotool search --sync --name "^Save State$" | head -n 1)" ||
        fail "jalv's Save State dialog did not open"
    eval "$(xdotool getwindowgeometry --shell "$dialog")"
    # The name field has the focus; the Save button sits in the dialog's lower right corner.
    xdotool type --delay 30 "$1"
    click "$((X + WIDTH - 50))" "$((Y + HEIGHT - 25))"
    for _ in $(seq 50); do [ -s "$out/$1/state.ttl" ] && break; sleep 0.1; done
    [ -s "$out/$1/state.ttl" ] || fail "jalv saved no state"
    python3 - "$out/$1/state.ttl" "$URI" "$here/../host" << 'PY'
import base64, re, struct, sys
sys.path.insert(0, sys.argv[3])
import ardour_proof
text = open(sys.argv[1], encoding="utf-8").read()
port = re.search(r'lv2:symbol "depth" ;\s*pset:value ([0-9.eE+-]+)', text)
bank = re.search("<" + re.escape(sys.argv[2] + "#bank") + r'>\s+"([A-Za-z0-9+/=]+)"', text)
if not port or not bank:
    sys.exit("FAIL: the saved state has no depth port or no bank")
depth = struct.unpack("=f", struct.pack("=f", float(port.group(1))))[0]
_, _, _, current, presets = ardour_proof.decode_bank(base64.b64decode(bank.group(1)))
stored = presets[current][1][0]
if struct.unpack("=f", struct.pack("=f", 100.0 * stored))[0] != depth:
    sys.exit(f"FAIL: the depth port ({depth}) and the current preset's depth ({stored}) disagree")
print(f"{depth:.9g} {stored:.9g}")
PY
}
# slider_value NAME: the depth the slider shows in screenshot NAME, 0..1.
slider_value() { awk -v x="$(handle_x "$1")" "BEGIN {print (x - $DEPTH_LEFT) / $DEPTH_TRAVEL}"; }

# A preset of jalv's menu whose depth is not 0 (two of them have none): the host sets its ports.
port=0
for row in 0 1 2; do
    click "${PRESETS_MENU[@]}"
    click "${FIRST_PRESET[0]}" "$((FIRST_PRESET[1] + row * PRESET_ROW))"
    saved="$(saved_depth "preset-$row")" || fail "the state jalv saved does not hold up"
    read -r port _ <<< "$saved"
    awk "BEGIN {exit !($port > 0)}" && break
done
awk "BEGIN {exit !($port > 0)}" || fail "no preset of jalv's menu set a depth"
sleep 1
shot preset
shown="$(slider_value preset)"
echo "  b. jalv's preset set the depth port to $port %; the editor's slider shows $shown"
awk "BEGIN {d = $shown - $port / 100; exit !(d < 0.01 && d > -0.01)}" ||
    fail "the host's port change did not move the depth slider to it"

x="$(handle_x preset)"
grab=$((ex + x + 7))
target=$((DEPTH_LEFT + DEPTH_TRAVEL / 2 + 7))
xdotool mousemove "$grab" "$((ey + DEPTH_ROW_Y))" mousedown 1
for step in 1 2 3 4; do
    xdotool mousemove "$((grab + (ex + target - grab) * step / 4))" "$((ey + DEPTH_ROW_Y))"
done
xdotool mouseup 1
sleep 1
shot dragged
saved="$(saved_depth dragged-state)" || fail "the state jalv saved after the drag does not hold up"
read -r port stored <<< "$saved"
echo "  c. dragged to $(slider_value dragged): jalv's depth port is $port %, the preset's depth $stored"
awk "BEGIN {exit !($port >= 45 && $port <= 55)}" || fail "the drag did not bring the depth port to about 50 %"
click "$((ex + NEXT_PRESET[0]))" "$((ey + NEXT_PRESET[1]))"
click "$((ex + NEXT_PRESET[0]))" "$((ey + NEXT_PRESET[1]))"
shot panel
saved="$(saved_depth panel-state)" || fail "the host's ports did not follow the preset chosen in the editor's panel"
read -r port stored <<< "$saved"
echo "  d. two presets on in the editor's panel: jalv's depth port is $port %, the preset's depth $stored"
awk "BEGIN {exit !($stored > 0.3499 && $stored < 0.3501)}" || fail "the panel did not step to \"enhanced mix 2\""
echo "PASS: jalv shows the editor, moves its slider with the port, takes the port from the slider and follows its preset panel"
