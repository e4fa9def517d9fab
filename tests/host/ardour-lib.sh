# Shared by the Ardour proofs (sourced, with $here set to this folder): failing, steps, Ardour's presence,
# the isolated work folder, headless Ardour runs and the PROOF lines they print.

readonly SKIP=77
readonly ARDOUR_TIMEOUT=120

fail() {
    echo "FAIL: $*" >&2
    exit 1
}
step() { echo "== $*"; }
tool() { python3 "$here/ardour_proof.py" "$@"; }

# require_ardour: exits 77 (skipped) when Ardour is not installed at all, fails when a part is missing.
require_ardour() {
    local ardour_package
    ardour_package="$(dpkg-query -W -f='${Status}' ardour 2> /dev/null || true)"
    if ! command -v ardour7-lua > /dev/null && [[ "$ardour_package" != *"ok installed"* ]]; then
        echo "SKIP: Ardour 7 is not installed (apt-get install ardour)"
        exit $SKIP
    fi
    command -v ardour7-lua > /dev/null || fail "Ardour is installed but ardour7-lua is missing"
    command -v python3 > /dev/null || fail "python3 is needed to read Ardour's files"
}

# make_work_folder: a fresh $work, removed after a pass unless ARDOUR_PROOF_KEEP=1. Ardour reads and writes
# its configuration, caches and plug-in list under HOME and the XDG folders: all inside $work, so the
# user's own Ardour set-up is never read or touched, and no plug-in path of the user's is searched.
make_work_folder() {
    work="$(mktemp -d "${TMPDIR:-/tmp}/ardour-proof.XXXXXX")"
    trap finish EXIT
    export HOME="$work/home"
    export XDG_CONFIG_HOME="$HOME/.config" XDG_CACHE_HOME="$HOME/.cache" XDG_DATA_HOME="$HOME/.local/share"
    unset VST_PATH VST3_PATH LADSPA_PATH LV2_PATH LXVST_PATH
    mkdir -p "$HOME"
}
finish() {
    local status=$?
    if [ $status -eq 0 ] && [ "${ARDOUR_PROOF_KEEP:-0}" != 1 ]; then
        rm -rf "$work"
    else
        echo "kept for inspection: $work" >&2
    fi
}

# run_ardour LOG SCRIPT ARGS...: one headless Ardour run; its PROOF lines are then read from LOG.
run_ardour() {
    local log="$1"
    shift
    if ! timeout "$ARDOUR_TIMEOUT" ardour7-lua "$@" > "$log" 2>&1; then
        sed 's/^/    | /' "$log" >&2
        fail "ardour7-lua $(basename "$1") failed"
    fi
}
proof_line() { grep "^PROOF $2" "$1" || fail "Ardour did not report '$2' (see $1)"; }
# stereo LOG KIND OUT: the stereo file of the KIND ("bounced", "printed") that Ardour reported in LOG;
# Ardour writes one mono file a channel.
stereo() {
    local left right
    left="$(proof_line "$1" "$2 0" | cut -d' ' -f4-)"
    right="$(proof_line "$1" "$2 1" | cut -d' ' -f4-)"
    tool interleave "$left" "$right" "$3" --label "$2"
}
# values LOG KIND: the values of the parameters in Ardour's PROOF lines of that KIND ("set", "reopened"),
# comma separated.
values() { proof_line "$1" "$2" | awk '{printf "%s%s", sep, $5; sep=","}'; }
# check_names LOG EXPECTED: the names of the parameters Ardour lists, in order.
check_names() {
    local names
    names="$(proof_line "$1" parameter | awk '{print $4}' | xargs)"
    [ "$names" = "$2" ] || fail "Ardour lists the parameters '$names', expected '$2'"
    echo "  ok: Ardour lists the parameters $names"
}
# check_values LOG KIND WHEN EXPECTED: the values Ardour reported in its KIND lines, WHEN describing them.
check_values() {
    local found
    found="$(values "$1" "$2")"
    echo "  parameters Ardour holds $3: $found"
    [ "$found" = "$4" ] || fail "Ardour holds $found $3, expected $4"
}
# render_take LOG PLUGIN RENDER NAME=VALUE...: $work/take.wav, the take Ardour reported in LOG, and
# $work/reference.wav, spatara-render's rendering of it through the VST 2.4 PLUGIN with those parameters,
# whose --param arguments it leaves in render_args.
render_take() {
    local log="$1" plugin="$2" render="$3" left right p
    shift 3
    left="$(proof_line "$log" "take 0" | cut -d' ' -f4-)"
    right="$(proof_line "$log" "take 1" | cut -d' ' -f4-)"
    tool interleave "$left" "$right" "$work/take.wav" --label "recorded take"
    render_args=()
    for p in "$@"; do render_args+=(--param "$p"); done
    "$render" "$plugin" "$work/take.wav" "$work/reference.wav" "${render_args[@]}" > /dev/null ||
        fail "spatara-render could not render the take"
}
# check_instance LOG PATTERN WHAT: Ardour's list entry and instance; the instance line must match the glob
# PATTERN, WHAT says what it should be.
check_instance() {
    local instance
    proof_line "$1" listed | sed 's/^PROOF /  Ardour /'
    instance="$(proof_line "$1" instance)"
    echo "  Ardour ${instance#PROOF }"
    [[ "$instance" == $2 ]] || fail "Ardour's instance differs from $3"
}

# scan SCANNER PLUGIN KIND: Ardour's scanner run on PLUGIN (an absolute path); its one cache file of KIND
# ("v2i", "v3i") is left in $cache.
scan() {
    LD_LIBRARY_PATH="$(dirname "$1")" timeout "$ARDOUR_TIMEOUT" "$1" -f -v "$2" > "$work/scan.log" 2>&1 || {
        cat "$work/scan.log" >&2
        fail "$(basename "$1") failed"
    }
    grep "Found Plugin" "$work/scan.log" | sed 's/^/  scanner: /' || fail "the scanner found no plug-in"
    local caches=("$XDG_CACHE_HOME"/ardour7/vst/*."$3")
    if [ ${#caches[@]} -ne 1 ] || [ ! -f "${caches[0]}" ]; then
        fail "expected one scan cache file, found: ${caches[*]}"
    fi
    cache="${caches[0]}"
}

# edition_arguments KIND ARGS...: the editions' proofs take the edition's bundle (Spatara.KIND), the
# VST 2.4 plug-in and spatara-render; sets bundle, vst and render to their absolute paths, or stops.
edition_arguments() {
    local kind="$1"
    shift
    if [ $# -ne 3 ]; then
        echo "usage: $0 PATH/Spatara.$kind PATH/Spatara.so PATH/spatara-render" >&2
        exit 2
    fi
    bundle="$(realpath "$1")"
    vst="$(realpath "$2")"
    render="$(realpath "$3")"
    [ -d "$bundle" ] || fail "no bundle at $1"
    [ -f "$vst" ] || fail "no VST 2.4 plug-in at $2"
    [ -x "$render" ] || fail "no spatara-render at $3"
}

# The LV2 and VST3 editions against the VST 2.4 plug-in ($vst, rendered by $render). The proof sets NAME,
# PARAMETER_NAMES and
#   edition_id   what the Lua scripts find the edition by (an LV2 URI, a VST3 plug-in's name);
#   units        NAME=VALUE, the settings in the units the edition shows, as Ardour sets them;
#   unit_values  the same values as Ardour reports them, comma separated;
#   normalised   NAME=VALUE, the same settings as the VST 2.4 plug-in's normalised values;
# and defines edition_bank SESSION-FILE OUT, which writes the bank the edition left in a saved session.

# prove_edition_playback MAX-DIFFERENCE: Ardour plays a take through the edition, its parameters set through
# Ardour; its bounce must match the VST 2.4 plug-in's rendering of the take within MAX-DIFFERENCE.
prove_edition_playback() {
    run_ardour "$work/session1.log" "$here/record-and-bounce.lua" "$work/session" "$edition_id" \
        "$RECORD_SECONDS" "${units[@]}"
    check_instance "$work/session1.log" "*name=$NAME *inputs=2 outputs=2 latency=0" \
        "name=$NAME, 2 in / 2 out, latency 0"
    check_names "$work/session1.log" "$PARAMETER_NAMES"
    proof_line "$work/session1.log" parameter | grep -q "baseFreq range=20..1000 default=265" ||
        fail "Ardour does not show baseFreq as 20..1000 Hz"
    echo "  ok: in real units"
    check_values "$work/session1.log" set "after setting them" "$unit_values"

    render_take "$work/session1.log" "$vst" "$render" "${normalised[@]}"
    stereo "$work/session1.log" bounced "$work/bounced.wav"
    tool check-changed "$work/take.wav" "$work/bounced.wav" --min-relative 0.1
    tool compare "$work/reference.wav" "$work/bounced.wav" --label "Ardour's bounce through the edition" \
        --expect-offset 0 --max-abs "$1" --max-relative "$1"
}

# prove_edition_state MAX-DIFFERENCE: the bank in the saved session is the VST 2.4 plug-in's chunk for the
# same state, byte for byte; the reopened session holds the same values and bank, and its bounce matches the
# VST 2.4 rendering within MAX-DIFFERENCE.
prove_edition_state() {
    edition_bank "$work/session/proof.ardour" "$work/ardour.bank"
    "$render" --info "$vst" "${render_args[@]}" --chunk-out "$work/reference.chunk" > /dev/null ||
        fail "spatara-render could not write the VST 2.4 plug-in's chunk"
    cmp "$work/ardour.bank" "$work/reference.chunk" ||
        fail "the bank in Ardour's session differs from the VST 2.4 plug-in's chunk for the same state"
    echo "  ok: identical to the VST 2.4 plug-in's chunk for the same parameters"

    run_ardour "$work/session2.log" "$here/reopen-and-bounce.lua" "$work/session" "$edition_id" reopened
    check_values "$work/session2.log" reopened "after reopening" "$unit_values"
    stereo "$work/session2.log" bounced "$work/reopened.wav"
    tool compare "$work/reference.wav" "$work/reopened.wav" --label "bounce in the reopened session" \
        --expect-offset 0 --max-abs "$1" --max-relative "$1"
    edition_bank "$work/session/reopened.ardour" "$work/reopened.bank"
    cmp "$work/ardour.bank" "$work/reopened.bank" || fail "the bank changed on its way through reopening"
    echo "  ok: saved again after reopening, the bank is byte for byte the one saved before"
}
