"""End-to-end cases for a live touchpad: the virtual touchpad of the tests (tests/vhid), installed
in the prefix with the touchpad collection of a shipping touchpad's descriptor, fed the reports
such a pad sends. Nothing here moves the X pointer but to press Pass.

Run one with: test_live_touchpad.py CASE.
"""
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from kstrpad import PADS, LivePadRun, beside, installed, packets_logged  # noqa: E402
from kstrsession import run_case  # noqa: E402
from vpad import run_tool  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def start(s, tmp, name, *args):
    """TouchpadTest with its packets traced into a log of its own."""
    folder = tmp / name
    folder.mkdir()
    log = folder / "trace.log"
    return LivePadRun(s, folder, "--log-level", "1", "--log-file", str(log), *args), log


def fields(packet):
    """TIME FINGER X Y WIDTH MOTION STICK-X STICK-Y BUTTONS, the numbers as numbers."""
    parts = packet.split()
    return [int(p) for p in parts[:8]] + parts[8:]


# The pads' widths in mm, from their descriptors' physical extents (tests/data/hid-descriptors).
WIDTH_MM = {"dell-xps9360-touchpad": 101.3, "synaptics_06cb_ce08": 106.0, "elan_04f3_300b": 104.9,
            "sipodev_0603_0002": 94.0, "microsoft-surfacebook2-touchpad": 101.0}


def listed(s, pad):
    done = s.run("--list-devices")
    lines = [line for line in done.stdout.splitlines() if f"  {pad.id}  " in line]
    check(done.returncode == 0 and len(lines) == 1, f"{pad.id} not listed once:\n{done.stdout}{done.stderr}")
    vid, pid = pad.id.split(":")
    check(" touchpad  Touchpad " in lines[0] and f"\\\\?\\HID#VID_{vid}&PID_{pid}#" in lines[0] and
          "offered as Mouse+SynapticsMouse+SynapticsTouchPad" in lines[0], lines[0])
    check(f"size {WIDTH_MM[pad.name]:.1f} x " in lines[0] and f"contacts a report {pad.reports.fingers} " in lines[0],
          lines[0])


def live_pass_replays_alike(s, tmp, name):
    recording = tmp / "pad.session"
    with installed(s, name) as (pad,):
        listed(s, pad)
        run, log = start(s, tmp, "live", "--record", str(recording))
        check(not run.pass_enabled(), "Pass enabled before the pad was touched")
        pad.finger_and_clicks()
        run.press_pass()
        result, output = run.result()
        check(result["verdict"] == "PASS" and run.proc.returncode == 0, f"{result}\n{output}")
        vid, pid = pad.id.split(":")
        check(f"VID_{vid}&PID_{pid}" in result["device"]["properties"]["InterfacePath"].upper(), result["device"])
        live = packets_logged(log)
        check(len(live) >= 15, f"too few live packets: {live}")
        check(any(f[8] == "L" for f in map(fields, live)) and any(f[8] == "R" for f in map(fields, live)),
              f"no left and right click among {live}")
    lines = recording.read_text(encoding="utf-8").splitlines()
    frames = [line for line in lines if line[:1].isdigit()]
    check(lines[0] == "padkit-session 2" and len(frames) == len(live),
          f"the recording does not have a frame for each packet:\n{lines}\n{live}")

    replay, log = start(s, tmp, "replay", "--device", f"touchpad:{recording},speed=4")
    replay.wait_for(lambda: len(packets_logged(log)) == len(live), "every recorded packet", 30)
    replay.press_pass()
    result, output = replay.result()
    check(result["verdict"] == "PASS", f"{result}\n{output}")
    check(packets_logged(log) == live, "the replay gave the dialog other packets than the live run")


def live_case(name):
    return lambda s, tmp: live_pass_replays_alike(s, tmp, name)


for _name in PADS:
    globals()["case_live_" + _name.replace("-", "_")] = live_case(_name)


def case_removed_pad_ends_the_run_with_fail(s, tmp):
    with installed(s, "elan_04f3_300b") as (pad,):
        run, log = start(s, tmp, "removed")
        pad.stroke([(0.4, 0.4), (0.45, 0.42)])
        pad.frame([pad.at(0.5, 0.5)])   # a finger still down as it goes
        run.wait_for(lambda: len(packets_logged(log)) >= 4, "the pad's packets")
        removed = pad.remove()
        check(removed.returncode == 0, f"{removed.stdout}{removed.stderr}")
        result, output = run.result()
    check(result["verdict"] == "FAIL" and run.proc.returncode == 1, f"{result}\n{output}")
    check("touchpad under test was removed" in output, output)


def case_pad_arriving_mid_test_is_left_alone(s, tmp):
    """A second pad installed while the test runs on the first: its reports are not the test's,
    and the test goes on to PASS on the first."""
    with installed(s, "synaptics_06cb_ce08") as (first,):
        run, log = start(s, tmp, "arrival")
        first.stroke([(0.2, 0.2), (0.25, 0.22), (0.3, 0.24)])
        run.wait_for(lambda: len(packets_logged(log)) >= 4, "the first pad's packets")
        before = packets_logged(log)
        with beside(s, "elan_04f3_300b") as second:
            second.finger_and_clicks()
            time.sleep(0.5)
            check(packets_logged(log) == before, f"the second pad reached the test: {packets_logged(log)}")
            check(not run.pass_enabled(), "Pass opened by the second pad's clicks")
        first.click(0.3, 0.4)
        first.click(0.85, 0.92)
        run.press_pass()
        result, output = run.result()
    check(result["verdict"] == "PASS" and "CE08" in result["device"]["properties"]["InterfacePath"].upper(),
          f"{result}\n{output}")


def case_two_fingers_on_a_hybrid_pad_keep_the_first_shown(s, tmp):
    """Two fingers on a pad that sends one contact a report: the first stays still while the
    second moves, and the dialog shows the first throughout; both press the pad: a right click."""
    with installed(s, "elan_04f3_300b") as (pad,):
        run, log = start(s, tmp, "two")
        first = pad.at(0.3, 0.5, id=0)
        pad.frame([first])
        for step in range(6):
            pad.frame([first, pad.at(0.6 + 0.04 * step, 0.5, id=1)])
        second = pad.at(0.8, 0.5, id=1)
        pad.frame([first, second], buttons=1)
        pad.frame([first, second])
        run.wait_for(lambda: len(packets_logged(log)) == 9, "a packet a frame")
        shown = [fields(p) for p in packets_logged(log)]
        check(all(f[1] == 1 and f[2] == first.x for f in shown), f"not the first finger throughout: {shown}")
        check([f[8] for f in shown] == ["-"] * 7 + ["R", "-"], f"not a right click: {shown}")
        pad.frame([])
        pad.click(0.4, 0.4)
        run.press_pass()
        result, output = run.result()
    check(result["verdict"] == "PASS", f"{result}\n{output}")


def case_the_earliest_finger_down_stays_shown_as_fingers_come_and_go(s, tmp):
    """On a hybrid pad: the first finger lifts while a second stays (the second is shown), then
    three, four and five fingers at once, each scan one packet showing the earliest finger."""
    with installed(s, "sipodev_0603_0002") as (pad,):
        run, log = start(s, tmp, "fingers")
        first, second = pad.at(0.2, 0.3, id=0), pad.at(0.5, 0.3, id=1)
        pad.frame([first])
        pad.frame([first, second])
        pad.frame([second])
        others = [pad.at(0.3 + 0.1 * i, 0.6, id=2 + i) for i in range(4)]
        for n in (2, 3, 4):
            pad.frame([second] + others[:n])
        pad.frame([])
        run.wait_for(lambda: len(packets_logged(log)) == 7, "a packet a frame")
        shown = [fields(p)[2] if fields(p)[1] else None for p in packets_logged(log)]
        check(shown == [first.x, first.x] + [second.x] * 4 + [None], f"not the earliest finger down: {shown}")
        pad.finger_and_clicks()
        run.press_pass()
        result, output = run.result()
    check(result["verdict"] == "PASS", f"{result}\n{output}")


def case_a_palm_is_never_the_finger(s, tmp):
    """A palm (a contact without confidence) alone shows no finger; beside a finger, the finger."""
    with installed(s, "synaptics_06cb_ce08") as (pad,):
        run, log = start(s, tmp, "palm")
        for step in range(4):
            pad.frame([pad.at(0.2 + 0.05 * step, 0.7, confidence=False, id=0)])
        finger = pad.at(0.7, 0.3, id=1)
        for _ in range(4):
            pad.frame([pad.at(0.4, 0.7, confidence=False, id=0), finger])
        pad.frame([])
        run.wait_for(lambda: len(packets_logged(log)) == 9, "a packet a frame")
        shown = [fields(p) for p in packets_logged(log)]
        check([f[1] for f in shown] == [0] * 4 + [1] * 4 + [0], f"a palm shown as a finger: {shown}")
        check(all(f[2] == finger.x for f in shown[4:8]), f"not the finger beside the palm: {shown}")
        pad.finger_and_clicks()
        run.press_pass()
        result, output = run.result()
    check(result["verdict"] == "PASS", f"{result}\n{output}")


def case_recording_played_to_the_pad_passes_and_sets_its_feature(s, tmp):
    """A HID recording of the whole device (a mouse report among the touchpad's, and a feature
    line of our own) installs the pad by its R: and I: lines and plays to PASS."""
    from vpad import VirtualPad
    pad = VirtualPad(s, "elan_04f3_300b")
    lines = pad.recording(lambda p: p.finger_and_clicks())
    after_ids = lines.index(next(line for line in lines if line.startswith("I: "))) + 1
    lines[after_ids:after_ids] = ["F: 000000.000000 3 07 05 00", "E: 000000.000000 9 01 00 00 00 00 00 00 00 00"]
    recording = tmp / "elan.hid"
    recording.write_text("\n".join(lines) + "\n")
    with installed(s):   # none of ours before; the one the recording installs removed after
        done = run_tool(s, "install", recording)
        check(done.returncode == 0 and done.stdout.startswith("installed 04F3:300B: page 0x0D usage 0x05"),
              f"{done.stdout}{done.stderr}")
        run, _ = start(s, tmp, "played")
        done = run_tool(s, "play", "04F3:300B", recording, "--speed", "2")
        check(done.returncode == 0 and "skipped 1 reports of ids the collection does not have (1)" in done.stdout,
              f"{done.stdout}{done.stderr}")
        run.press_pass()
        result, output = run.result()
        check(result["verdict"] == "PASS", f"{result}\n{output}")
        feature = run_tool(s, "get-feature", "04F3:300B", "7")
        check(feature.returncode == 0 and feature.stdout.strip() == "07 05 00", f"{feature.stdout}{feature.stderr}")


def case_tool_refuses_bad_input_and_leaves_the_prefix_as_it_was(s, tmp):
    broken = tmp / "broken.rdesc"
    broken.write_text("05 0d 09 05 a1 01 85 03 75 08 95 01 81 02")   # never closed
    refused = [
        (["install", broken, "--id", "1209:00ff"], "the descriptor does not parse: the collection at byte 4 is not closed"),
        (["install", tmp / "missing.rdesc", "--id", "1209:00ff"], "cannot be read"),
        (["install", ROOT / "tests/data/hid-descriptors/elan_04f3_300b.rdesc"], "names no VID:PID"),
    ]
    with installed(s, "elan_04f3_300b") as (pad,):
        refused += [
            (["install", pad.descriptor, "--id", pad.id], "a virtual touchpad 04F3:300B is already installed"),
            (["input", pad.id, "04" + " 00" * 10], "the input report 4 is 11 bytes, longer than the collection's 10"),
            (["input", pad.id, "03 00"], "the collection has no input report with id 3 (its ids: 4)"),
            (["feature", pad.id, "04 01"], "the collection has no feature report with id 4"),
            (["input", "1209:00ff", "04 00"], "no virtual touchpad 1209:00FF is installed"),
        ]
        for args, message in refused:
            done = run_tool(s, *args)
            lines = done.stderr.strip().splitlines()
            check(done.returncode == 1 and len(lines) == 1 and message in lines[0],
                  f"{args}: exit {done.returncode}\n{done.stdout}{done.stderr}")
        listing = run_tool(s, "list")
        check(listing.stdout.split() == [pad.id, "running"], f"the prefix changed: {listing.stdout}")
        # A failure once the device is registered (no INF beside the tool) takes it away again.
        alone = tmp / "alone"
        alone.mkdir()
        (alone / "kstrvhid.exe").write_bytes(Path(s.env.get("KSTR_VHID", s.build_root / "win" / "vhid"),
                                                   "kstrvhid.exe").read_bytes())
        done = s.run("install", str(pad.descriptor), "--id", "1209:00fe", exe=alone / "kstrvhid.exe")
        check(done.returncode == 1 and "the driver cannot be installed" in done.stderr, f"{done.stdout}{done.stderr}")
        listing = run_tool(s, "list")
        check(listing.stdout.split() == [pad.id, "running"], f"a half-installed pad was left: {listing.stdout}")
        check(run_tool(s, "input", pad.id, "04 03").returncode == 0, "the pad stopped taking reports")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
