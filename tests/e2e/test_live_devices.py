"""End-to-end cases for the machine's own pointing devices, read through Raw Input.

Under Wine the X pointer is a raw HID mouse (\\\\?\\HID#VID_845E&PID_0001...): it stands in for a
pointing stick named with --device stick:0. Wine hands raw input to the process whose window is
under the pointer, so the pointer is moved onto the dialog first.
Run one with: test_live_devices.py CASE.
"""
import os
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from kstrsession import run_case  # noqa: E402
from kstrstick import PASS_BUTTON, TITLE, LiveStickRun  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def packets_logged(log):
    """The packets the dialog was given, as session lines, from the padkit logger's trace."""
    lines = Path(log).read_text(encoding="utf-8", errors="replace").splitlines()
    return [line.split(": ", 1)[1] for line in lines if " padkit " in line and " packet " in line]


def packets_recorded(session):
    return [" ".join(line.split()) for line in Path(session).read_text(encoding="utf-8").splitlines()
            if line[:1].isdigit()]


def start(s, tmp, name, device, *args):
    """A TrackPointTest run whose packets are traced into its log."""
    log = tmp / f"{name}.log"
    (tmp / name).mkdir()
    return LiveStickRun(s, tmp / name, "--log-level", "1", "--log-file", str(log), *args, device=device), log


def case_live_stick_passes_and_its_recording_replays_alike(s, tmp):
    recording = tmp / "stick.session"
    live_run, log = start(s, tmp, "live", "stick:0", "--record", str(recording))
    check(not live_run.pass_enabled(), "Pass enabled before the stick was tried")
    live_run.push_and_click()
    run, output = live_run.result()
    check(run["verdict"] == "PASS" and live_run.proc.returncode == 0, f"{run}\n{output}")
    check(run["device"]["name"].startswith("Pointing stick 0") and
          run["device"]["properties"]["InterfacePath"].upper().startswith("\\\\?\\HID#VID_"), run["device"])

    live = packets_logged(log)
    check(len(live) >= 10, f"too few live packets: {live}")
    check(packets_recorded(recording) == live, "the recording is not what the dialog was given")

    replay, log = start(s, tmp, "replay", f"trackpoint:{recording},speed=4")
    replay.wait_for(replay.pass_enabled, "Pass from the replayed recording", 30)
    replay.wait_for(lambda: len(packets_logged(log)) == len(live), "every recorded packet", 30)
    s.click_control(TITLE, PASS_BUTTON)
    run, output = replay.result()
    check(run["verdict"] == "PASS", f"{run}\n{output}")
    check(packets_logged(log) == live, "the replay gave the dialog other packets than the live run")


def case_unplugged_stick_ends_the_run_with_fail(s, tmp):
    live_run, _ = start(s, tmp, "unplug", "stick:0")
    unplug = s.run("--unplug-pointer", exe=os.environ["KSTR_PROBE"])
    check(unplug.returncode == 0, f"no receiver heard the removal: {unplug.stdout}{unplug.stderr}")
    run, output = live_run.result()
    check(run["verdict"] == "FAIL" and live_run.proc.returncode == 1, f"{run}\n{output}")
    # Named apart from a technician's Fail.
    check([e["name"] for e in run["events"]] == ["TOUCH_DEVICE_REMOVED"], run)
    check("pointing stick under test was removed" in output, output)


def case_list_devices_shows_the_pointer(s, tmp):
    done = s.run("--list-devices")
    lines = done.stdout.splitlines()
    check(done.returncode == 0 and lines[0].startswith("Devices"), f"exit {done.returncode}\n{done.stdout}{done.stderr}")
    pointer = [line for line in lines if line.startswith("  0  mouse  Mouse 0 (845E:0001)  845E:0001  \\\\?\\HID#VID_845E")]
    check(len(pointer) == 1 and "buttons 5" in pointer[0] and "offered as Mouse" in pointer[0], done.stdout)
    understood = lines[lines.index(pointer[0]) + 1]
    check("VID=845E (hex16)" in understood and "HorizontalWheel=" in understood, understood)
    check(any("System mouse" in line for line in lines), done.stdout)


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
