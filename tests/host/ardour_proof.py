#!/usr/bin/env python3
"""Helpers of ardour-proof.sh: read what Ardour wrote (scan cache, session file, float WAV exports),
decode the plug-in's chunk and compare audio. Standard library only, so a bare Debian python3 runs it.

Every command prints what it found and exits non-zero with a message on the first mismatch."""

import argparse
import array
import base64
import math
import os
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree

CHUNK_HEAD = 8  # chunk version and unique id, ahead of the bank image
BANK_HEADER = 41
CURRENT_PRESET_AT = CHUNK_HEAD + 17
PRESET_COUNT = 38
NAME_CHUNK, VALUE_CHUNK = 0, 1


def fail(message):
    print("FAIL: " + message, file=sys.stderr)
    sys.exit(1)


def four_cc(code):
    """The VST convention: the integer whose big-endian bytes are the four characters."""
    return struct.unpack(">i", code.encode("ascii"))[0]


# ---- scan cache -------------------------------------------------------------------------------------------


def check_scan(args):
    info = ElementTree.parse(args.cache).getroot().find("VST2Info")
    if info is None:
        fail(f"{args.cache} holds no VST2Info: Ardour's scanner did not index the plug-in")
    found = {key: info.get(key) for key in ("name", "id", "n_inputs", "n_outputs", "is_instrument",
                                             "can_process_replace", "has_editor", "creator", "category")}
    print("  Ardour's scan cache: " + " ".join(f'{k}="{v}"' for k, v in found.items()))
    expected = {"name": args.name, "id": str(four_cc(args.unique_id)), "n_inputs": "2", "n_outputs": "2",
                "is_instrument": "0", "can_process_replace": "1",
                "has_editor": "1" if args.has_editor else "0"}
    for key, want in expected.items():
        if found[key] != want:
            fail(f"Ardour's scan reports {key}={found[key]!r}, expected {want!r}")
    print(f"  ok: name {args.name!r}, unique id {found['id']} = '{args.unique_id}', 2 in / 2 out, effect "
          f"(not instrument), processReplacing, editor flag {found['has_editor']} as the plug-in reports")


def check_vst3_scan(args):
    info = ElementTree.parse(args.cache).getroot().find("VST3Info")
    if info is None:
        fail(f"{args.cache} holds no VST3Info: Ardour's VST3 scanner did not index the plug-in")
    found = {key: info.get(key) for key in ("name", "vendor", "version", "category", "n_inputs", "n_outputs",
                                             "n_aux_inputs", "n_aux_outputs", "n_midi_inputs")}
    print("  Ardour's VST3 scan cache: " + " ".join(f'{k}="{v}"' for k, v in found.items()))
    expected = {"name": args.name, "n_inputs": "2", "n_outputs": "2", "n_aux_inputs": "0",
                "n_aux_outputs": "0", "n_midi_inputs": "0"}
    for key, want in expected.items():
        if found[key] != want:
            fail(f"Ardour's VST3 scan reports {key}={found[key]!r}, expected {want!r}")
    print(f"  ok: name {args.name!r}, 2 in / 2 out, no side chain, no MIDI")


# ---- WAV (32-bit float) -----------------------------------------------------------------------------------


def read_float_wav(path):
    """Returns (rate, channels, samples interleaved); only IEEE float 32-bit, which both hosts write here."""
    with open(path, "rb") as f:
        data = f.read()
    if data[0:4] != b"RIFF" or data[8:12] != b"WAVE":
        fail(f"{path} is not a WAV file")
    pos, fmt, samples = 12, None, None
    while pos + 8 <= len(data):
        tag, size = data[pos:pos + 4], struct.unpack("<I", data[pos + 4:pos + 8])[0]
        body = data[pos + 8:pos + 8 + size]
        if tag == b"fmt ":
            fmt = struct.unpack("<HHIIHH", body[:16])
            if fmt[0] == 0xFFFE:  # WAVE_FORMAT_EXTENSIBLE: the real tag opens the sub-format GUID
                fmt = (struct.unpack("<H", body[24:26])[0],) + fmt[1:]
        elif tag == b"data":
            samples = array.array("f")
            samples.frombytes(body[: len(body) // 4 * 4])
        pos += 8 + size + (size & 1)
    if fmt is None or samples is None:
        fail(f"{path} lacks a fmt or data chunk")
    tag, channels, rate, _, _, bits = fmt
    if tag != 3 or bits != 32:
        fail(f"{path} is not 32-bit float (format {tag}, {bits} bits)")
    if sys.byteorder != "little":
        samples.byteswap()
    return rate, channels, samples


def write_float_wav(path, rate, channels, samples):
    body = samples.tobytes() if sys.byteorder == "little" else _swapped(samples).tobytes()
    fmt = struct.pack("<HHIIHH", 3, channels, rate, rate * channels * 4, channels * 4, 32)
    with open(path, "wb") as f:
        f.write(b"RIFF" + struct.pack("<I", 4 + 8 + len(fmt) + 8 + len(body)) + b"WAVE")
        f.write(b"fmt " + struct.pack("<I", len(fmt)) + fmt)
        f.write(b"data" + struct.pack("<I", len(body)) + body)


def _swapped(samples):
    copy = array.array("f", samples)
    copy.byteswap()
    return copy


def interleave(args):
    """Ardour records a stereo track as one mono file a channel; spatara-render wants one stereo file."""
    rate_l, ch_l, left = read_float_wav(args.left)
    rate_r, ch_r, right = read_float_wav(args.right)
    if ch_l != 1 or ch_r != 1 or rate_l != rate_r or len(left) != len(right):
        fail("the recorded takes are not two mono files of one rate and length")
    stereo = array.array("f", bytes(8 * len(left)))
    stereo[0::2] = left
    stereo[1::2] = right
    write_float_wav(args.out, rate_l, 2, stereo)
    print(f"  {args.label}: {len(left)} frames at {rate_l} Hz, 32-bit float, "
          f"peak {max(map(abs, stereo)):.3f}, rms {rms(stereo):.4f}")


def rms(samples):
    return math.sqrt(sum(x * x for x in samples) / max(1, len(samples)))


# ---- audio comparison -------------------------------------------------------------------------------------


def difference(reference, host, offset, frames, skip=0):
    """Largest and rms difference of host[i + offset] against reference[i] for i in skip..frames, stereo."""
    largest, square, count = 0.0, 0.0, 0
    for i in range(max(skip, -offset), min(frames, len(host) // 2 - offset)):
        for c in (0, 1):
            d = abs(reference[2 * i + c] - host[2 * (i + offset) + c])
            largest = max(largest, d)
            square += d * d
            count += 1
    return largest, math.sqrt(square / max(1, count))


def best_offset(reference, host, frames, search):
    """The alignment with the smallest squared difference on 512 frames spread over the signal: noise
    matches itself at one offset only, so a sparse look is enough and stays quick."""
    lo, hi = search, frames - search
    points = [lo + k * (hi - lo) // 512 for k in range(512)]
    host_frames = len(host) // 2

    def score(off):
        total = 0.0
        for i in points:
            j = i + off
            if 0 <= j < host_frames:
                total += (reference[2 * i] - host[2 * j]) ** 2 + (reference[2 * i + 1] - host[2 * j + 1]) ** 2
            else:
                total += math.inf
        return total

    return min(range(-search, search + 1), key=score)


def compare(args):
    rate_r, ch_r, reference = read_float_wav(args.reference)
    rate_h, ch_h, host = read_float_wav(args.host)
    if (rate_r, ch_r) != (rate_h, ch_h) or ch_r != 2:
        fail(f"formats differ: reference {rate_r} Hz {ch_r} ch, Ardour {rate_h} Hz {ch_h} ch")
    frames = len(reference) // 2
    if len(host) != len(reference) and not args.allow_longer:
        fail(f"lengths differ: reference {frames} frames, Ardour {len(host) // 2} frames")
    offset = best_offset(reference, host, frames, args.search)
    if len(host) // 2 < frames + offset:
        fail(f"{args.label}: Ardour's {len(host) // 2} frames at offset {offset} do not cover the reference")
    largest, rms_diff = difference(reference, host, offset, frames, args.skip)
    level = rms(reference)
    relative = rms_diff / level if level > 0 else math.inf
    skipped = f" after the first {args.skip}" if args.skip else ""
    print(f"  {args.label}: {frames} frames{skipped}, Ardour's at offset {offset:+d} samples, "
          f"max |difference| {largest:.3g}, rms difference {rms_diff:.3g} "
          f"({relative:.3g} of the signal rms {level:.4f})")
    if level < 1e-3:
        fail(f"{args.label}: the reference is (nearly) silent, the comparison would prove nothing")
    if args.expect_offset is not None and offset != args.expect_offset:
        fail(f"{args.label}: Ardour's output is shifted by {offset} samples, expected {args.expect_offset}")
    if largest > args.max_abs or relative > args.max_relative:
        fail(f"{args.label}: difference above the tolerance (max {args.max_abs}, relative rms "
             f"{args.max_relative})")
    if args.max_abs == 0:
        print("  ok: sample for sample identical")
    else:
        print(f"  ok: within max {args.max_abs:g} and relative rms {args.max_relative:g}")


def check_changed(args):
    """Guards the comparisons: a host that skipped the plug-in must not pass for one that ran it."""
    _, _, take = read_float_wav(args.take)
    _, _, processed = read_float_wav(args.processed)
    frames = min(len(take), len(processed)) // 2
    _, rms_diff = difference(take, processed, 0, frames)
    relative = rms_diff / rms(take)
    print(f"  the plug-in changed the take by {relative:.3g} of its rms")
    if relative < args.min_relative:
        fail(f"the processed take differs from the take by only {relative:.3g} of its rms")


# ---- chunk and bank ---------------------------------------------------------------------------------------


def plugin_chunk_element(tree, session, unique_id):
    """The <lxvst><chunk> element of the plug-in's one processor; Ardour keeps the chunk there in base64."""
    found = [p for p in tree.getroot().iter("Processor") if p.get("type") == "lxvst" and
             p.get("unique-id") == str(four_cc(unique_id))]
    if len(found) != 1:
        fail(f"{session}: expected one processor of the plug-in, found {len(found)}")
    chunk = found[0].find("lxvst/chunk")
    if chunk is None or not (chunk.text or "").strip():
        fail(f"{session}: the plug-in's processor carries no chunk")
    return found[0], chunk


def session_chunk(args):
    processor, chunk = plugin_chunk_element(ElementTree.parse(args.session), args.session, args.unique_id)
    data = base64.b64decode(chunk.text)
    with open(args.out, "wb") as f:
        f.write(data)
    controls = {c.get("name"): c.get("value") for c in processor.findall("Controllable")}
    print(f"  session file: chunk of {len(data)} bytes (base64 in <lxvst><chunk>), parameter values "
          + ", ".join(f"{k}={v}" for k, v in controls.items()))


def put_chunk(args):
    """Replaces the plug-in's chunk in a session file, leaving the rest of Ardour's state as it was."""
    tree = ElementTree.parse(args.session)
    _, chunk = plugin_chunk_element(tree, args.session, args.unique_id)
    with open(args.chunk, "rb") as f:
        chunk.text = base64.b64encode(f.read()).decode("ascii")
    tree.write(args.session, encoding="UTF-8", xml_declaration=True)
    print(f"  {args.chunk} put into {args.session} in place of Ardour's chunk")


def lv2_state_bank(args):
    """The bank an LV2 edition left in a session: Ardour keeps the plug-in's state in a state.ttl of the
    processor's own folder (plugins/ID/STATE-DIR), the bank as base64 text under the key URI#bank."""
    tree = ElementTree.parse(args.session)
    found = [p for p in tree.getroot().iter("Processor") if p.get("type") == "lv2" and
             p.get("unique-id") == args.uri]
    if len(found) != 1:
        fail(f"{args.session}: expected one processor of {args.uri}, found {len(found)}")
    lv2 = found[0].find("lv2")
    if lv2 is None or not lv2.get("state-dir"):
        fail(f"{args.session}: the LV2 processor names no state folder")
    state = os.path.join(os.path.dirname(args.session), "plugins", found[0].get("id"), lv2.get("state-dir"),
                         "state.ttl")
    try:
        with open(state, encoding="utf-8") as f:
            text = f.read()
    except OSError as e:
        fail(f"cannot read the plug-in's state: {e}")
    match = re.search(r"<" + re.escape(args.uri + "#bank") + r'>\s+"([A-Za-z0-9+/=]+)"', text)
    if not match:
        fail(f"{state} holds no bank")
    data = base64.b64decode(match.group(1))
    with open(args.out, "wb") as f:
        f.write(data)
    ports = {p.get("symbol"): p.get("value") for p in lv2.findall("Port")}
    print(f"  session: bank of {len(data)} bytes in {os.path.relpath(state, os.path.dirname(args.session))}, "
          "port values " + ", ".join(f"{k}={v}" for k, v in ports.items()))


def vst3_state_bank(args):
    """The bank a VST3 edition left in a session: Ardour keeps the plug-in's state in base64 in
    <vst3><chunk>; inside it, the framework's text state holds the key "bank", each key and value ended by a
    zero byte, and the bank as base64 text."""
    found = [p for p in ElementTree.parse(args.session).getroot().iter("Processor")
             if p.get("type") == "vst3" and p.get("name") == args.name]
    if len(found) != 1:
        fail(f"{args.session}: expected one VST3 processor named {args.name!r}, found {len(found)}")
    chunk = found[0].find("vst3/chunk")
    if chunk is None or not (chunk.text or "").strip():
        fail(f"{args.session}: the VST3 processor carries no state")
    state = base64.b64decode(chunk.text)
    match = re.search(rb"\0bank\0([A-Za-z0-9+/=]+)\0", state)
    if not match:
        fail(f"{args.session}: the plug-in's state holds no bank")
    data = base64.b64decode(match.group(1))
    with open(args.out, "wb") as f:
        f.write(data)
    ports = {p.get("id"): p.get("value") for p in found[0].findall("vst3/Port")}
    print(f"  session: state of {len(state)} bytes in <vst3><chunk>, a bank of {len(data)} bytes in it, "
          "parameter values " + ", ".join(f"{k}={v}" for k, v in ports.items()))


def decode_bank(data):
    """Returns (current preset, [(name, [six values])]) from a chunk in this machine's byte order."""
    version, unique = struct.unpack_from("=Ii", data, 0)
    header = struct.unpack_from("=iBiiiii", data, CHUNK_HEAD)
    chunks, current, size = header[4], header[5], header[6]
    if len(data) != CHUNK_HEAD + BANK_HEADER + size:
        fail(f"chunk of {len(data)} bytes, its header announces {CHUNK_HEAD + BANK_HEADER + size}")
    presets = [["", [None] * 6] for _ in range(PRESET_COUNT)]
    pos = CHUNK_HEAD + BANK_HEADER
    for _ in range(chunks):
        kind, payload, index = struct.unpack_from("=iii", data, pos)
        if kind == NAME_CHUNK:
            presets[index][0] = data[pos + 12:pos + 36].split(b"\0")[0].decode("latin-1")
        elif kind == VALUE_CHUNK:
            number = struct.unpack_from("=I", data, pos + 12)[0]
            presets[index][1][number] = struct.unpack_from("=f", data, pos + 24)[0]
        pos += 12 + payload
    return version, unique, header[1], current, presets


def as_float32(value):
    return struct.unpack("=f", struct.pack("=f", value))[0]


def check_chunk(args):
    with open(args.chunk, "rb") as f:
        data = f.read()
    if len(data) != args.size:
        fail(f"chunk is {len(data)} bytes, expected {args.size}")
    version, unique, kind, current, presets = decode_bank(data)
    if version != 0x02000000 or unique != four_cc(args.unique_id) or kind != 0x38:
        fail(f"chunk head: version {version:#x}, id {unique}, image type {kind:#x}")
    if current != args.current:
        fail(f"current preset in the chunk is {current}, expected {args.current}")
    values = presets[current][1]
    want = [as_float32(float(v)) for v in args.values.split(",")]
    if values != want:
        fail(f"preset {current} holds {values}, expected {want}")
    names = [p[0] for p in presets]
    if args.names:
        with open(args.names) as f:
            expected_names = [line.rstrip("\n") for line in f]
        if names != expected_names:
            fail(f"preset names differ from the plug-in's own list: {names} vs {expected_names}")
    print(f"  chunk: {len(data)} bytes, version 0x02000000, id '{args.unique_id}', bank of {len(presets)} "
          f"presets, current preset {current} \"{presets[current][0]}\" = {values}")
    print(f"  ok: the {len(names)} preset names match the plug-in's own list "
          f"(\"{names[1]}\" .. \"{names[29]}\")" if args.names else "  ok")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    commands = parser.add_subparsers(dest="command", required=True)

    p = commands.add_parser("check-scan", help="check Ardour's VST2 scan cache file")
    p.add_argument("cache")
    p.add_argument("--name", required=True)
    p.add_argument("--unique-id", required=True)
    p.add_argument("--has-editor", action="store_true")
    p.set_defaults(run=check_scan)

    p = commands.add_parser("check-vst3-scan", help="check Ardour's VST3 scan cache file")
    p.add_argument("cache")
    p.add_argument("--name", required=True)
    p.set_defaults(run=check_vst3_scan)

    p = commands.add_parser("interleave", help="two mono float WAV takes to one stereo float WAV")
    p.add_argument("left")
    p.add_argument("right")
    p.add_argument("out")
    p.add_argument("--label", required=True)
    p.set_defaults(run=interleave)

    p = commands.add_parser("compare", help="compare Ardour's export with the reference rendering")
    p.add_argument("reference")
    p.add_argument("host")
    p.add_argument("--label", required=True)
    p.add_argument("--max-abs", type=float, required=True)
    p.add_argument("--max-relative", type=float, required=True)
    p.add_argument("--expect-offset", type=int, help="the alignment Ardour must keep (default: any)")
    p.add_argument("--search", type=int, default=64, help="alignments tried: -N..N samples")
    p.add_argument("--skip", type=int, default=0, help="frames left out at the start")
    p.add_argument("--allow-longer", action="store_true", help="Ardour's file may run past the reference")
    p.set_defaults(run=compare)

    p = commands.add_parser("check-changed", help="check that processing changed the take")
    p.add_argument("take")
    p.add_argument("processed")
    p.add_argument("--min-relative", type=float, required=True)
    p.set_defaults(run=check_changed)

    p = commands.add_parser("session-chunk", help="extract the plug-in's chunk from an .ardour file")
    p.add_argument("session")
    p.add_argument("out")
    p.add_argument("--unique-id", required=True)
    p.set_defaults(run=session_chunk)

    p = commands.add_parser("put-chunk", help="replace the plug-in's chunk in an .ardour file")
    p.add_argument("session")
    p.add_argument("chunk")
    p.add_argument("--unique-id", required=True)
    p.set_defaults(run=put_chunk)

    p = commands.add_parser("lv2-state-bank", help="extract the LV2 edition's bank from a session")
    p.add_argument("session")
    p.add_argument("out")
    p.add_argument("--uri", required=True)
    p.set_defaults(run=lv2_state_bank)

    p = commands.add_parser("vst3-state-bank", help="extract the VST3 edition's bank from a session")
    p.add_argument("session")
    p.add_argument("out")
    p.add_argument("--name", required=True)
    p.set_defaults(run=vst3_state_bank)

    p = commands.add_parser("check-chunk", help="decode a chunk and check its bank")
    p.add_argument("chunk")
    p.add_argument("--unique-id", required=True)
    p.add_argument("--size", type=int, required=True)
    p.add_argument("--current", type=int, required=True)
    p.add_argument("--values", required=True, help="the current preset's six values, comma separated")
    p.add_argument("--names", help="file with the 38 preset names, one a line")
    p.set_defaults(run=check_chunk)

    args = parser.parse_args()
    args.run(args)


if __name__ == "__main__":
    main()
