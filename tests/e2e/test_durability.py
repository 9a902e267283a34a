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


def case_ctrl_c_aborts_the_run(s, tmp):
    t = MouseTestRun(s, tmp)
    t.proc.send_signal(signal.SIGINT)
    run, output = t.result()
    check(run["verdict"] == "USERABORTED", f"{run}\n{output}")
    check(t.proc.returncode == 3, output)


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
