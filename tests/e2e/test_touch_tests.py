"""End-to-end cases for TouchpadTest and TrackPointTest on recorded sessions replayed by padkit.

Run one with: test_touch_tests.py CASE. Screenshots go to $KSTR_SHOTS (default: a temporary folder).
"""
import json
import os
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from kstrsession import run_case  # noqa: E402

SESSIONS = ROOT / "resources" / "padkit-sessions"
PASS_BUTTON = 1008
# The status rows of the buttons that a TrackPoint shows only when its PnP id is not excluded.
BUTTON_ROWS = (1059, 1060, 1061, 1062)


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


def run_until_pass(s, tmp, title, test, device, *args, inspect=None):
    """Starts the test, waits until the replay has enabled Pass, presses it and returns the run.

    A screenshot is taken mid-session; `inspect(session)` runs then, while the dialog is up."""
    report = tmp / "report.json"
    proc = s.spawn("--test", test, "--device", device, "--report", str(report),
                   "--param", "bDisablePassUntilFinished=true", *args)
    try:
        check(s.wait_window(title, timeout=60), f"no {title!r} dialog")
        wait_for(lambda: (s.control(title, PASS_BUTTON) or {}).get("visible"), "the dialog's Pass button", 20)
        check(not s.control(title, PASS_BUTTON)["enabled"], "Pass enabled before the replay finished its checks")
        shots = Path(os.environ.get("KSTR_SHOTS", tmp))
        time.sleep(1.5)
        s.screenshot(shots / f"{test}-mid.png")
        if inspect:
            inspect(s)
        wait_for(lambda: s.control(title, PASS_BUTTON)["enabled"], "Pass after the replayed checks", 60)
        s.screenshot(shots / f"{test}-done.png")
        s.click_control(title, PASS_BUTTON)
        out, err = proc.communicate(timeout=60)
    finally:
        if proc.poll() is None:
            proc.kill()
    run = json.loads(report.read_text(encoding="utf-8"))["runs"][0]
    return run, f"exit {proc.returncode}\n{out}{err}"


def case_touchpad_replay_enables_pass(s, tmp):
    run, output = run_until_pass(s, tmp, "Touchpad Test", "TouchpadTest",
                                 f"touchpad:{SESSIONS / 'touchpad-complete.session'},speed=0.5")
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


def button_rows_shown(s):
    return [(s.control("TrackPoint Test", row) or {}).get("visible") for row in BUTTON_ROWS]


def case_trackpoint_without_buttons_needs_only_movement(s, tmp):
    def rows_hidden(session):
        check(button_rows_shown(session) == [False] * 4, f"button rows of an excluded device: {button_rows_shown(session)}")

    run, output = run_until_pass(s, tmp, "TrackPoint Test", "TrackPointTest",
                                 f"trackpoint:{SESSIONS / 'trackpoint-stick-only.session'},speed=0.02",
                                 "--param", "ExcludedThreeButtonDisplayByPnPID= len0043 ", inspect=rows_hidden)
    check(run["verdict"] == "PASS", f"{run}\n{output}")


def case_trackpoint_with_buttons_shows_their_rows(s, tmp):
    def rows_shown(session):
        check(button_rows_shown(session) == [True] * 4, f"button rows: {button_rows_shown(session)}")
        labels = [session.control("TrackPoint Test", row)["text"] for row in BUTTON_ROWS[:2]]
        check(labels == ["Middle button pressed:", "Right button pressed:"], labels)

    run, output = run_until_pass(s, tmp, "TrackPoint Test", "TrackPointTest",
                                 f"trackpoint:{SESSIONS / 'trackpoint-buttons.session'},speed=0.5",
                                 "--param", "ExcludedThreeButtonDisplayByPnPID=LEN9999", inspect=rows_shown)
    check(run["verdict"] == "PASS", f"{run}\n{output}")


def case_blacklisted_driver_is_refused(s, tmp):
    report = tmp / "report.json"
    done = s.run("--test", "TouchpadTest", "--device", f"touchpad:{SESSIONS / 'touchpad-blacklisted.session'}",
                 "--report", str(report))
    run = json.loads(report.read_text(encoding="utf-8"))["runs"][0]
    events = [(e["name"], e["severity"], e["sourceFile"], e["line"]) for e in run["events"]]
    check(run["verdict"] == "WARN" and events == [("SynapticsBlacklistVersion", "warning", "synaptics", 71)],
          f"{run}\n{done.stdout}{done.stderr}")
    check(done.returncode == 2, f"exit {done.returncode}")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
