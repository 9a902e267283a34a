"""End-to-end cases for MouseInteractiveTest: the click test done with real input from xdotool.

Run one with: test_click_test.py CASE. Screenshots go to $KSTR_SHOTS (default: a temporary folder).
"""
import shutil
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrclick import (DOUBLE_CLICK_TARGET, DRAG_ITEM, DROP_AREA, FAIL, LEFT_SUCCESS, RIGHT_SUCCESS,  # noqa: E402
                       TITLE, WHEEL_BAR, ClickTestRun)
from kstrsession import run_case  # noqa: E402
from xscreen import Region, XScreen  # noqa: E402


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
    """In the working directory one picture is garbage and one is missing: the garbage shows
    nothing, the missing one is taken from beside the executable."""
    pictures = tmp / "work" / "resources" / "kstrmouse"
    shutil.copytree(s.bin / "resources" / "kstrmouse", pictures)
    (pictures / "mouse_default.png").write_bytes(b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 4)
    (pictures / "double_click_drag_target.png").unlink()
    t = ClickTestRun(s, tmp, cwd=tmp / "work", prefix="click-broken")
    done = list(t.steps())
    run, output = t.result()
    check(len(done) == 7 and run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


def drawn_share(s, control):
    """The share of a control's pixels on the screen that are not the dialog's white."""
    screen = XScreen(s.env["DISPLAY"])
    try:
        pixels = screen.read(Region(control["x"], control["y"], control["w"], control["h"]))
    finally:
        screen.close()
    drawn = sum(1 for i in range(0, len(pixels), 4) if pixels[i:i + 3] != b"\xff\xff\xff")
    return drawn / (len(pixels) // 4)


def case_started_elsewhere_finds_its_pictures(s, tmp):
    """Started from a folder without pictures (as a host may), the test finds them beside the
    executable: its targets show, and it passes with real input."""
    (tmp / "elsewhere").mkdir()
    log = tmp / "log.txt"
    t = ClickTestRun(s, tmp, "--log-file", str(log), cwd=tmp / "elsewhere", prefix="click-elsewhere")
    targets = {"double-click": [DOUBLE_CLICK_TARGET], "drag-and-drop": [DRAG_ITEM, DROP_AREA]}
    for name in t.steps():
        for target in targets.get(name, []):
            check(drawn_share(s, s.control(TITLE, target)) > 0.2, f"control {target} is blank at {name}")
    run, output = t.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    check("is missing" not in log.read_text(encoding="utf-8", errors="replace"), "a picture was not found")


def case_enter_does_not_pass_the_test(s, tmp):
    """One left click, then Enter: the dialog stays at step 2, and only every step done passes."""
    t = ClickTestRun(s, tmp, prefix="click-enter")
    for name in t.steps():
        if name == "right-click":
            s.xdotool("key", "Return")
            time.sleep(0.5)
            if t.proc.poll() is not None:
                raise AssertionError(f"Enter ended the test: {t.finish_output()}")
            check(t.visible(LEFT_SUCCESS) and not t.visible(RIGHT_SUCCESS), "not at step 2 any more")
    run, output = t.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


def case_fail_clicked_during_a_pause_touches_no_step(s, tmp):
    t = ClickTestRun(s, tmp, prefix="click-pause")
    for name in t.steps():
        if name == "middle-click":
            break
    started = time.monotonic()
    t.click(2)
    s.click_control(TITLE, FAIL)
    # Otherwise the click came after the pause and this case proves nothing.
    check(time.monotonic() - started < 0.9, "Fail was not clicked within the step's pause")
    t.wait_for(lambda: t.step_begun(DOUBLE_CLICK_TARGET), "the double-click step")
    time.sleep(0.5)
    if t.proc.poll() is not None:
        raise AssertionError(f"the click on Fail ended the test: {t.finish_output()}")
    s.xdotool("key", "Escape")
    run, output = t.result()
    check(run["verdict"] == "USERABORTED" and not run["events"], f"{run}\n{output}")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
