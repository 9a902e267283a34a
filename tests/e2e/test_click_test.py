"""End-to-end cases for MouseInteractiveTest: the click test done with real input from xdotool.

Run one with: test_click_test.py CASE. Screenshots go to $KSTR_SHOTS (default: a temporary folder).
"""
import shutil
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrclick import FAIL, TITLE, WHEEL_BAR, ClickTestRun  # noqa: E402
from kstrsession import run_case  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def events_of(run):
    return [(e["name"], e["severity"], e["sourceFile"], e["line"]) for e in run["events"]]


def walk_passes(s, tmp, gaming):
    t = ClickTestRun(s, tmp, gaming=gaming)
    done = list(t.steps())
    check(len(done) == (9 if gaming else 7), done)
    run, output = t.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    check(t.proc.returncode == 0, output)


def case_default_layout_passes(s, tmp):
    walk_passes(s, tmp, gaming=False)


def case_gaming_layout_passes(s, tmp):
    walk_passes(s, tmp, gaming=True)


def case_fail_at_wheel_up_is_reported(s, tmp):
    t = ClickTestRun(s, tmp, prefix="click-fail")
    for name in t.steps():
        if name == "wheel-up":
            break
    check(t.visible(WHEEL_BAR), "the wheel bar at the wheel-up step")
    s.click_control(TITLE, FAIL)
    run, output = t.result()
    check(run["verdict"] == "FAIL" and events_of(run) == [("SCROLL_WHEEL_UP_NOT_RECEIVED", "error",
                                                             "MouseClickTestDlg", 812)], f"{run}\n{output}")
    check(t.proc.returncode == 1, output)


def case_broken_pictures_leave_the_test_working(s, tmp):
    """Pictures come from the working directory: there, one is garbage and one is missing."""
    pictures = tmp / "work" / "resources" / "kstrmouse"
    shutil.copytree(s.bin / "resources" / "kstrmouse", pictures)
    (pictures / "mouse_default.png").write_bytes(b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 4)
    (pictures / "double_click_drag_target.png").unlink()
    t = ClickTestRun(s, tmp, cwd=tmp / "work", prefix="click-broken")
    done = list(t.steps())
    run, output = t.result()
    check(len(done) == 7 and run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
