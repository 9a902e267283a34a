"""End-to-end cases for the machine's own pointing devices, read through Raw Input.

Under Wine the X pointer is a raw HID mouse (\\\\?\\HID#VID_845E&PID_0001...): it stands in for a
pointing stick named with --device stick:0. Wine hands raw input to the process whose window is
under the pointer, so the pointer is moved onto the dialog first.
Run one with: test_live_devices.py CASE.
"""
import json
import os
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from kstrsession import run_case  # noqa: E402

TITLE = "TrackPoint Test"
PASS_BUTTON = 1008


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def wait_for(condition, what, timeout):
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        if condition():
            return
        time.sleep(0.2)
    raise AssertionError(f"timed out waiting for {what}")


def packets_logged(log):
    """The packets the dialog was given, as session lines, from the padkit logger's trace."""
    lines = Path(log).read_text(encoding="utf-8", errors="replace").splitlines()
    return [line.split(": ", 1)[1] for line in lines if " padkit " in line and " packet " in line]


def packets_recorded(session):
    return [" ".join(line.split()) for line in Path(session).read_text(encoding="utf-8").splitlines()
            if line[:1].isdigit()]


def start(s, tmp, name, device, *args):
    report, log = tmp / f"{name}.json", tmp / f"{name}.log"
    proc = s.spawn("--test", "TrackPointTest", "--device", device, "--report", str(report),
                   "--param", "bDisablePassUntilFinished=true", "--log-level", "1",
                   "--log-file", str(log), *args)
    check(s.wait_window(TITLE, timeout=60), f"no {TITLE!r} dialog")
    wait_for(lambda: (s.control(TITLE, PASS_BUTTON) or {}).get("visible"), "the dialog's Pass button", 20)
    return proc, report, log


def finish(proc, report):
    try:
        out, err = proc.communicate(timeout=60)
    finally:
        if proc.poll() is None:
            proc.kill()
    return json.loads(report.read_text(encoding="utf-8"))["runs"][0], proc.returncode, out + err


def push_stick_and_press_buttons(s):
    """The stick pushed four ways, then left, middle and right pressed, all over the dialog."""
    dialog = s.control(TITLE, 0)
    s.move_pointer(dialog["x"] + 150, dialog["y"] + 260)   # over the stick's picture
    for dx, dy in ((6, 0), (-6, 0), (0, 6), (0, -6)):
        for _ in range(3):
            s.xdotool("mousemove_relative", "--", dx, dy)
            time.sleep(0.02)
    time.sleep(0.2)
    for button in (1, 2, 3):
        s.xdotool("click", button)
        time.sleep(0.15)


def case_live_stick_passes_and_its_recording_replays_alike(s, tmp):
    recording = tmp / "stick.session"
    proc, report, log = start(s, tmp, "live", "stick:0", "--record", str(recording))
    check(not s.control(TITLE, PASS_BUTTON)["enabled"], "Pass enabled before the stick was tried")
    push_stick_and_press_buttons(s)
    wait_for(lambda: s.control(TITLE, PASS_BUTTON)["enabled"], "Pass after the stick and its buttons", 20)
    s.screenshot(Path(os.environ.get("KSTR_SHOTS", tmp)) / "TrackPointTest-live.png")
    s.click_control(TITLE, PASS_BUTTON)
    run, status, output = finish(proc, report)
    check(run["verdict"] == "PASS" and status == 0, f"{run}\n{output}")
    check(run["device"]["name"].startswith("Pointing stick 0") and
          run["device"]["properties"]["InterfacePath"].upper().startswith("\\\\?\\HID#VID_"), run["device"])

    live = packets_logged(log)
    check(len(live) >= 10, f"too few live packets: {live}")
    check(packets_recorded(recording) == live, "the recording is not what the dialog was given")

    proc, report, log = start(s, tmp, "replay", f"trackpoint:{recording},speed=4")
    wait_for(lambda: s.control(TITLE, PASS_BUTTON)["enabled"], "Pass from the replayed recording", 30)
    wait_for(lambda: len(packets_logged(log)) == len(live), "every recorded packet", 30)
    s.click_control(TITLE, PASS_BUTTON)
    run, status, output = finish(proc, report)
    check(run["verdict"] == "PASS", f"{run}\n{output}")
    check(packets_logged(log) == live, "the replay gave the dialog other packets than the live run")


def case_unplugged_stick_ends_the_run_with_fail(s, tmp):
    proc, report, _ = start(s, tmp, "unplug", "stick:0")
    unplug = s.run("--unplug-pointer", exe=os.environ["KSTR_PROBE"])
    check(unplug.returncode == 0, f"no receiver heard the removal: {unplug.stdout}{unplug.stderr}")
    run, status, output = finish(proc, report)
    check(run["verdict"] == "FAIL" and status == 1, f"{run}\n{output}")
    check("pointing stick under test was removed" in output, output)


def case_bad_live_devices_are_refused_before_any_dialog(s, tmp):
    missing = tmp / "no" / "such" / "folder" / "x.session"
    cases = [
        (["--device", "stick:99"], "there is no device 99"),
        (["--device", "stick:NO-SUCH-DEVICE"], "contains \"NO-SUCH-DEVICE\""),
        (["--device", "stick:0", "--record", str(missing)], "its folder does not exist"),
        (["--device", "stick:0", "--record", str(tmp)], "is a folder"),
    ]
    for args, fragment in cases:
        done = s.run("--test", "TrackPointTest", *args, timeout=60)
        lines = [line for line in done.stderr.splitlines() if line.strip()]
        check(done.returncode == 7 and len(lines) == 1 and lines[0].startswith("HarnException: ") and
              fragment in lines[0], f"{args}: exit {done.returncode}\n{done.stdout}{done.stderr}")
        check(not s.wait_window(TITLE, timeout=0.5), f"{args}: a dialog opened")
    check(not missing.parent.exists(), "the refused recording left something behind")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
