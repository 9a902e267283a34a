"""End-to-end cases for MouseTest: the classic dialog driven with xdotool as a technician would.

Run one with: test_mouse_test.py CASE. Screenshots go to $KSTR_SHOTS (default: a temporary folder).
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrdrive import (ALL_CHECKS, CONTROL_MARKS, FAIL_BUTTON, MISSING_CHECKS,  # noqa: E402
                       PASS_BUTTON, TITLE, MouseTestRun)
from kstrsession import run_case  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def case_all_checks_gate_pass(s, tmp):
    t = MouseTestRun(s, tmp, *ALL_CHECKS)
    t.shot("start")
    for what in t.all_checks():
        check(not t.pass_enabled(), f"Pass enabled before the {what}")
    t.wait_for(t.pass_enabled, "Pass to be enabled after every check")
    s.click_control(TITLE, PASS_BUTTON)
    run, output = t.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


def case_fail_reports_test_failed(s, tmp):
    t = MouseTestRun(s, tmp)
    s.click_control(TITLE, FAIL_BUTTON)
    run, output = t.result()
    events = [(e["name"], e["severity"], e["sourceFile"], e["line"]) for e in run["events"]]
    check(run["verdict"] == "FAIL" and events == [("TestFailed", "error", "KstrMouseDlg", 425)], f"{run}\n{output}")
    check(t.proc.returncode == 1, output)


def case_stop_request_aborts(s, tmp):
    t = MouseTestRun(s, tmp, "--stop-after", "3")
    run, output = t.result()
    check(run["verdict"] == "USERABORTED" and not run["events"], f"{run}\n{output}")
    check(t.proc.returncode == 3, output)


def case_emulated_middle_is_reported(s, tmp):
    t = MouseTestRun(s, tmp, "--param", "bDisablePassUntilFinished=true", "--param", "bRequireAllButtons=true")
    t.click_status(1)
    t.click_status(3)
    t.chord()
    t.click_status(5)
    t.wait_for(t.pass_enabled, "Pass after left, right, the chord and a wheel turn")
    s.click_control(TITLE, PASS_BUTTON)
    run, output = t.result()
    events = [(e["name"], e["severity"], e["sourceFile"], e["line"]) for e in run["events"]]
    check(run["verdict"] == "PASS" and events == [("UserMimicMiddleButton", "warning", "KstrMouseDlg", 410)],
          f"{run}\n{output}")


def case_side_buttons_demanded_by_name(s, tmp):
    t = MouseTestRun(s, tmp, "--param", "bDisablePassUntilFinished=true", "--param", "bRequireSideButtons=true")
    check("back button" in t.control(MISSING_CHECKS)["text"], t.control(MISSING_CHECKS))
    t.click_status(8)
    check(not t.pass_enabled(), "Pass enabled after the back button alone")
    check(t.control(MISSING_CHECKS)["text"] == "Still to do: forward button", t.control(MISSING_CHECKS))
    t.click_status(9)
    t.wait_for(t.pass_enabled, "Pass after both side buttons (X buttons 8 and 9)")
    check("(done)" in t.control(CONTROL_MARKS)["text"], t.control(CONTROL_MARKS))
    t.shot("side-buttons")
    s.click_control(TITLE, PASS_BUTTON)
    run, output = t.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
