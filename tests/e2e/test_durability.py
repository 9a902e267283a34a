"""End-to-end cases for what survives an interrupted run: the report of a killed process, Ctrl+C.

Run one with: test_durability.py CASE.
"""
import json
import random
import signal
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrclick import SKIP, ClickTestRun  # noqa: E402
from kstrdrive import MouseTestRun  # noqa: E402
from kstrsession import run_case  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def case_killed_run_keeps_reported_events(s, tmp):
    t = ClickTestRun(s, tmp)
    steps = t.steps()
    for name in steps:
        if name == "middle-click":
            break
    s.click_control("Mouse Click Test", SKIP)
    t.wait_for(lambda: "SCROLL_WHEEL_TESTING_SKIPPED" in t.report.read_text(encoding="utf-8"), "the skip event")
    time.sleep(random.uniform(0.0, 1.5))
    t.proc.kill()  # no chance to clean up, as TerminateProcess would leave it
    t.proc.wait(timeout=30)
    report = json.loads(t.report.read_text(encoding="utf-8"))
    run = report["runs"][0]
    events = [e["name"] for e in run["events"]]
    check(events == ["SCROLL_WHEEL_TESTING_SKIPPED"], f"events after the kill: {run}")
    check(run["state"] == "running" and run["verdict"] is None, f"a killed run has no verdict: {run}")


SESSIONS = Path(__file__).resolve().parents[2] / "resources" / "padkit-sessions"
PASS_BUTTON = 1008
PAD = ("TouchpadTest", "Touchpad Test", f"touchpad:{SESSIONS / 'touchpad-complete.session'},speed=4")
STICK = ("TrackPointTest", "TrackPoint Test", f"trackpoint:{SESSIONS / 'trackpoint-buttons.session'},speed=4")


def ctrl_c_then_next_passes(s, tmp, first, first_title, device, nxt):
    """Ctrl+C ends the first test with USERABORTED; the replayed touch test after it runs as if
    nothing had been asked."""
    report = tmp / "report.json"
    test, title, next_device = nxt
    proc = s.spawn("--test", first, "--test", test, "--device", next_device, *device, "--param",
                   "bDisablePassUntilFinished=true", "--report", str(report))
    try:
        check(s.wait_window(first_title, timeout=60), f"no {first_title!r} dialog")
        time.sleep(1)
        proc.send_signal(signal.SIGINT)
        check(s.wait_window(title, timeout=30), "the next test did not start")
        deadline = time.monotonic() + 30
        while not (s.control(title, PASS_BUTTON) or {}).get("enabled"):
            check(time.monotonic() < deadline, "Pass never opened in the next test")
            time.sleep(0.3)
        s.click_control(title, PASS_BUTTON)
        out, err = proc.communicate(timeout=60)
    finally:
        if proc.poll() is None:
            proc.kill()
    runs = json.loads(report.read_text(encoding="utf-8"))["runs"]
    check([(r["test"], r["verdict"]) for r in runs] == [(first, "USERABORTED"), (test, "PASS")], f"{runs}\n{out}{err}")
    check(proc.returncode == 3, f"exit {proc.returncode}")


def case_ctrl_c_aborts_the_click_test_and_not_the_next(s, tmp):
    ctrl_c_then_next_passes(s, tmp, "MouseInteractiveTest", "Mouse Click Test", [], PAD)


def case_ctrl_c_aborts_the_touchpad_test_and_not_the_next(s, tmp):
    ctrl_c_then_next_passes(s, tmp, PAD[0], PAD[1], ["--device", PAD[2]], STICK)


def case_ctrl_c_aborts_the_run(s, tmp):
    t = MouseTestRun(s, tmp)
    t.proc.send_signal(signal.SIGINT)
    run, output = t.result()
    check(run["verdict"] == "USERABORTED", f"{run}\n{output}")
    check(t.proc.returncode == 3, output)


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
