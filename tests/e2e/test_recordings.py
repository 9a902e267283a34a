"""End-to-end cases for HID recordings (the Linux HID tools' hid-recorder text) replayed and converted.

The recordings are made here from a shipped touchpad's descriptor (tests/data/hid-descriptors) and
reports this file encodes at the places the descriptor gives them. Run one with:
test_recordings.py CASE.
"""
import json
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from kstrsession import run_case  # noqa: E402

PASS_BUTTON = 1008
TITLE = "Touchpad Test"
DESCRIPTOR = (ROOT / "tests" / "data" / "hid-descriptors" / "elan_04f3_300b.rdesc").read_text().split()
NAME = "ELAN0412:00 04F3:300B Touchpad"
Y_HIGH = 2347   # the pad's logical Y maximum; Y grows downwards


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def wait_for(condition, what, timeout):
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        if condition():
            return
        time.sleep(0.3)
    raise AssertionError(f"timed out waiting for {what}")


def elan(t_us, tip, x, y, button=False):
    """The Elan pad's report 4: confidence and tip, contact id 0, X, Y, scan time, a count of 1, the
    pad's button."""
    scan = (t_us // 100) & 0xFFFF
    return [4, 1 | (tip << 1), x & 255, x >> 8, y & 255, y >> 8, scan & 255, scan >> 8, 1, int(button)]


def e_line(t_us, data):
    return f"E: {t_us // 1000000:06d}.{t_us % 1000000:06d} {len(data)} " + " ".join(f"{b:02x}" for b in data)


def recording(events):
    """A recording of the pad as hid-recorder writes it, with a decoded line before each report."""
    lines = [f"# {NAME}", "# 0x05, 0x01,  // Usage Page (Generic Desktop)  0",
             f"R: {len(DESCRIPTOR)} {' '.join(DESCRIPTOR)}", f"N: {NAME}", "P: i2c-ELAN0412:00", "I: 18 04f3 300b"]
    for t_us, data in events:
        lines += [f"# ReportID: {data[0]} / Tip Switch: {(data[1] >> 1) & 1}", e_line(t_us, data)]
    return "\n".join(lines) + "\n"


def sweep_then_clicks():
    """A finger sweeping the pad left to right, a click in its left half, then one in its bottom right."""
    events, t = [], 0
    for i in range(30):
        events.append((t, elan(t, 1, 200 + 95 * i, 1200)))
        t += 8000
    for button in (True, False):
        events.append((t, elan(t, 1, 800, 1200, button)))
        t += 8000
    for button in (False, True, False):
        events.append((t, elan(t, 1, 3000, 2200, button)))
        t += 8000
    events.append((t, elan(t, 0, 3000, 2200)))
    return events


def packets_logged(log):
    """The packets the dialog was given, as session lines, from the padkit logger's trace."""
    lines = Path(log).read_text(encoding="utf-8", errors="replace").splitlines()
    return [line.split(": ", 1)[1] for line in lines if " padkit " in line and " packet " in line]


def replay_to_pass(s, tmp, name, device, *args):
    """TouchpadTest on the device until the replay enables Pass, which is pressed; the run, the
    module's output and the packets it traced."""
    report, log = tmp / f"{name}.json", tmp / f"{name}.log"
    proc = s.spawn("--test", "TouchpadTest", "--device", device, "--report", str(report), "--log-level", "1",
                   "--log-file", str(log), "--param", "bDisablePassUntilFinished=true", *args)
    try:
        check(s.wait_window(TITLE, timeout=60), f"no {TITLE!r} dialog")
        wait_for(lambda: (s.control(TITLE, PASS_BUTTON) or {}).get("enabled"), "Pass after the replayed checks", 60)
        s.screenshot(tmp / f"{name}.png")
        s.click_control(TITLE, PASS_BUTTON)
        out, err = proc.communicate(timeout=60)
    finally:
        if proc.poll() is None:
            proc.kill()
    run = json.loads(report.read_text(encoding="utf-8"))["runs"][0]
    return run, f"exit {proc.returncode}\n{out}{err}", packets_logged(log)


def session_lines(path):
    return [line for line in Path(path).read_text(encoding="utf-8").splitlines() if not line.startswith("#")]


def case_recording_replays_to_pass_and_converts_to_the_same_packets(s, tmp):
    hid = tmp / "pad.hid"
    hid.write_text(recording(sweep_then_clicks()))
    recorded = tmp / "replayed.session"
    run, output, packets = replay_to_pass(s, tmp, "recording", f"touchpad:{hid}", "--record", str(recorded))
    check(run["verdict"] == "PASS", f"{run}\n{output}")
    device = run["device"]
    check(device["name"] == f"Touchpad 1 (pad.hid: {NAME})", device)
    check(device["properties"]["VID"] == "04F3" and device["properties"]["PID"] == "300B", device)
    width = [m for m in run.get("measurements", []) if m["name"] == "PadWidth"]
    check(width and abs(width[0]["value"] - 104.902) < 0.01, run.get("measurements"))
    check(len(packets) == 36, f"a packet a frame: {packets}")
    check(packets[0].split()[1:4] == ["1", "200", str(Y_HIGH - 1200)], packets[0])

    converted = tmp / "converted.session"
    done = s.run("--convert", str(hid), str(converted))
    check(done.returncode == 0 and "36 frames over 0.280 s, 0 malformed frames" in done.stdout,
          f"exit {done.returncode}\n{done.stdout}{done.stderr}")
    check(session_lines(converted) == session_lines(recorded), "--convert and --record during the replay differ")

    run, output, again = replay_to_pass(s, tmp, "converted", f"touchpad:{converted}")
    check(run["verdict"] == "PASS", f"{run}\n{output}")
    check(again == packets, f"the converted session gave other packets:\n{again}\n{packets}")


def case_bad_recordings_are_refused_naming_file_and_line(s, tmp):
    good = recording(sweep_then_clicks()).splitlines()
    mouse = "05 01 09 02 a1 01 09 01 a1 00 09 30 09 31 15 81 25 7f 75 08 95 02 81 06 c0 c0".split()
    cases = {
        "no-descriptor.hid": ("\n".join(good[:1] + good[3:]), "no-descriptor.hid:6: no R: line"),
        "mouse.hid": (f"# a mouse\nR: {len(mouse)} {' '.join(mouse)}\nE: 0.000000 2 05 05\n",
                      "mouse.hid:2: no descriptor of the recording has a touchpad collection"),
        "cut.hid": ("R: 6 05 0d 09 05 26 ff\nE: 0.000000 1 00\n", "cut.hid:1: R: the report descriptor does not parse: "
                    "byte 4: the descriptor is cut inside an item"),
        "count.hid": ("\n".join(good[:7] + ["E: 000000.000000 10 04 03"]), "count.hid:8: E: says 10 bytes and gives 2"),
        "hex.hid": ("\n".join(good[:7] + [good[7][:-2] + "xx"]), "hex.hid:8: E: \"xx\" is not a byte"),
        "binary.hid": (bytes([0x7F, 0x45, 0x4C, 0x46, 2, 1, 1, 0]) * 64, "binary.hid:1: binary data"),
        "long.hid": ("R: " + "05 " * 1000000, "long.hid:1: a line longer than 1048576 bytes"),
    }
    for name, (text, expected) in cases.items():
        path = tmp / name
        if isinstance(text, bytes):
            path.write_bytes(text)
        else:
            path.write_text(text)
        done = s.run("--test", "TouchpadTest", "--device", f"touchpad:{path}", timeout=60)
        lines = [line for line in done.stderr.splitlines() if line.strip()]
        check(done.returncode == 7 and len(lines) == 1 and expected in lines[0],
              f"{name}: exit {done.returncode}\n{done.stdout}{done.stderr}")
        check("TouchpadTest" not in done.stdout, f"{name}: a run was reported: {done.stdout}")
    # Time going backwards, after the header: the replay stops where the file does, as a device that stops.
    events = sweep_then_clicks()
    events[10] = (events[3][0], events[10][1])
    path = tmp / "backwards.hid"
    path.write_text(recording(events))
    report = tmp / "backwards.json"
    proc = s.spawn("--test", "TouchpadTest", "--device", f"touchpad:{path}", "--report", str(report))
    try:
        out, err = proc.communicate(timeout=60)
    finally:
        if proc.poll() is None:
            proc.kill()
    run = json.loads(report.read_text(encoding="utf-8"))["runs"][0]
    check(proc.returncode == 1 and run["verdict"] == "FAIL", f"exit {proc.returncode}\n{run}\n{out}{err}")
    check("backwards.hid:28: E: time 0.024000 is before the previous report's 0.072000; times never go back" in err
          and "The touchpad under test was removed or stopped answering" in err, err)


def case_list_devices_shows_a_recorded_touchpad_like_a_live_one(s, tmp):
    hid = tmp / "pad.hid"
    hid.write_text(recording(sweep_then_clicks()))
    done = s.run("--list-devices", "--no-system-devices", "--device", f"touchpad:{hid},device=0")
    line = next((line for line in done.stdout.splitlines() if "pad.hid" in line), "")
    for expected in ("  touchpad  ", f"Touchpad 1 (pad.hid: {NAME})", "  04F3:300B  ",
                     "size 104.9 x 74.4 mm, contacts a report 1"):
        check(expected in line, f"{expected!r} not in:\n{done.stdout}{done.stderr}")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
