"""Drives PointerQualityTest on the X pointer with xdotool and XTest, as a technician would.

Wine hands raw input only to the process whose window is under the pointer, and a leap of the
pointer is a report that leaps: so the pointer waits where the dialog opens, and every move to a
button glides there in small steps.
Shared by the end-to-end tests (tests/e2e) and the scripted demo.
"""
import os
import time
from pathlib import Path

from kstrsession import ModuleRun
from xscreen import XScreen

TITLE = "Pointer Quality"
HANDS_OFF, STATUS, PASS_BUTTON, FAIL_BUTTON, RATE = 1112, 1114, 1115, 1116, 1106
# Inside the dialog, which opens at the top left of the screen, and near the corner: Wine sends the
# pointer's position as the first relative report a process gets.
START = (40, 40)
STEP = 6             # pixels a glide moves per report


class QualityRun(ModuleRun):
    """One kstrmouse.kmx process running PointerQualityTest, its report and its dialog."""

    wait_seconds = 20

    def __init__(self, session, folder, *args, shots=None):
        session.move_pointer(*START)
        super().__init__(session, folder, "--test", "PointerQualityTest", *args)
        self.shots = Path(shots or os.environ.get("KSTR_SHOTS", folder))
        if not session.wait_window(TITLE, timeout=60):
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: (self.s.control(TITLE, PASS_BUTTON) or {}).get("visible"), "the dialog's buttons")
        self.at = START

    def describe(self):
        return f": {self.status()}"

    def status(self):
        return (self.s.control(TITLE, STATUS) or {}).get("text", "")

    def enabled(self, control):
        return (self.s.control(TITLE, control) or {}).get("enabled", False)

    def glide(self, x, y):
        """To (x, y) in steps of a few pixels, each its own report."""
        while (x, y) != self.at:
            dx = max(-STEP, min(STEP, x - self.at[0]))
            dy = max(-STEP, min(STEP, y - self.at[1]))
            self.s.xdotool("mousemove_relative", "--", dx, dy)
            self.at = (self.at[0] + dx, self.at[1] + dy)

    def press(self, control, *click):
        """Glides onto a control and clicks it (xdotool click arguments, default a left click)."""
        c = self.s.control(TITLE, control)
        self.glide(c["x"] + c["w"] // 2, c["y"] + c["h"] // 2)
        self.s.xdotool("click", *(click or (1,)))

    def circles(self, rounds=4):
        """Small circles around where the pointer is: movement without leaps."""
        for _ in range(rounds):
            for dx, dy in ((4, 0), (3, 3), (0, 4), (-3, 3), (-4, 0), (-3, -3), (0, -4), (3, -3)) * 2:
                self.s.xdotool("mousemove_relative", "--", dx, dy)

    def shot(self, name):
        return self.s.screenshot(self.shots / f"pointer-quality-{name}.png")


class SteadyMover:
    """Relative moves at a steady pace through XTest, as a device reporting at `hz` would."""

    def __init__(self, display):
        self.screen = XScreen(display)

    def move(self, hz, seconds, step=2):
        period = 1.0 / hz
        due = time.perf_counter()
        for n in range(int(hz * seconds)):
            # Back and forth: the pointer stays where it is, on the dialog.
            self.screen.nudge(step if n % 2 == 0 else -step, 0)
            due += period
            while time.perf_counter() < due:
                pass

    def close(self):
        self.screen.close()
