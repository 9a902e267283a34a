"""End-to-end cases for PointerQualityTest on the X pointer, which Wine offers as a live raw mouse.

Run one with: test_quality.py CASE.
"""
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrquality import FAIL_BUTTON, HANDS_OFF, PASS_BUTTON, QualityRun, SteadyMover  # noqa: E402
from kstrsession import run_case  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def figures(run):
    return {m["name"]: m["value"] for m in run.get("measurements", [])}


def events(run):
    return [e["name"] for e in run["events"]]


def case_chatter_fails_naming_the_button(s, tmp):
    q = QualityRun(s, tmp, "--param", "RequiredChecks=buttons")
    q.s.xdotool("click", "--repeat", "2", "--delay", "8", "1")
    q.s.xdotool("click", "3")
    q.wait_for(lambda: "left button" in q.status(), "the chatter to be shown")
    check(not q.enabled(PASS_BUTTON), "Pass open despite chatter")
    q.shot("chatter")
    q.press(FAIL_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "FAIL" and events(run) == ["BUTTON_CHATTER_DETECTED"], f"{run}\n{output}")
    check(figures(run)["LeftChatter"] == 1 and figures(run)["RightChatter"] == 0, figures(run))


def case_double_click_at_human_pace_passes(s, tmp):
    q = QualityRun(s, tmp, "--param", "RequiredChecks=buttons")
    q.s.xdotool("click", "--repeat", "2", "--delay", "150", "1")
    q.s.xdotool("click", "3")
    q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after both buttons")
    q.press(PASS_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    check(figures(run)["LeftPresses"] >= 2 and figures(run)["LeftChatter"] == 0, figures(run))


def case_wheel_reversal_is_found(s, tmp):
    q = QualityRun(s, tmp, "--param", "RequiredChecks=wheel")
    for button in (4, 4, 4, 5, 4, 4):
        q.s.xdotool("click", button)
    q.wait_for(lambda: "wheel" in q.status() and "against the turn" in q.status(), "the reversal")
    q.press(FAIL_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "FAIL" and events(run) == ["WHEEL_DIRECTION_REVERSAL"], f"{run}\n{output}")
    check(figures(run)["WheelReversals"] == 1, figures(run))


def steady_rate(s, tmp, hz):
    q = QualityRun(s, tmp, "--param", "RequiredChecks=rate")
    mover = SteadyMover(s.env["DISPLAY"])
    try:
        mover.move(hz, 3.0)
    finally:
        mover.close()
    q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after the moves")
    q.shot(f"rate-{hz}")
    q.press(PASS_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "PASS", f"{run}\n{output}")
    measured = figures(run)["ReportRate"]
    check(abs(measured - hz) <= 0.15 * hz, f"driven at {hz} Hz, measured {measured:.1f} Hz: {figures(run)}")


def case_rate_of_a_steady_100_hz(s, tmp):
    steady_rate(s, tmp, 100)


def case_rate_of_a_steady_250_hz(s, tmp):
    steady_rate(s, tmp, 250)


def hands_off(s, tmp, moving):
    q = QualityRun(s, tmp, "--param", "RequiredChecks=idle", "--param", "uIdleSeconds=2")
    q.press(HANDS_OFF)
    time.sleep(1.5)   # the lead-in, then the period itself
    if moving:
        q.circles(1)
    q.wait_for(lambda: q.enabled(HANDS_OFF), "the end of the hands-off period", timeout=10)
    return q


def case_hands_off_without_input_passes(s, tmp):
    q = hands_off(s, tmp, moving=False)
    q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after the quiet period")
    q.shot("hands-off")
    q.press(PASS_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "PASS" and figures(run)["IdleMovementReports"] == 0, f"{run}\n{output}")


def case_moves_while_hands_off_fail(s, tmp):
    q = hands_off(s, tmp, moving=True)
    q.wait_for(lambda: "hands off" in q.status(), "the drift to be shown")
    q.press(FAIL_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "FAIL" and events(run) == ["POINTER_DRIFT_WHILE_IDLE"], f"{run}\n{output}")
    check(figures(run)["IdleMovementReports"] > 0, figures(run))


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
