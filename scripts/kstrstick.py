"""Drives TrackPointTest on a live pointing stick (--device stick:0) with xdotool.

Under Wine the X pointer is a raw HID mouse that stands in for the stick; Wine hands raw input
only to the process whose window is under the pointer, so the pointer goes onto the dialog first.
Shared by the scripted demo (scripts/demo.py) and the end-to-end tests (tests/e2e).
"""
import os
import time
from pathlib import Path

from kstrsession import ModuleRun

TITLE = "TrackPoint Test"
PASS_BUTTON = 1008


class LiveStickRun(ModuleRun):
    """One kstrmouse.kmx process running TrackPointTest on a live device, its report and dialog."""

    wait_seconds = 20

    def __init__(self, session, folder, *args, device="stick:0", shots=None):
        super().__init__(session, folder, "--test", "TrackPointTest", "--device", device,
                         "--param", "bDisablePassUntilFinished=true", *args)
        self.shots = Path(shots or os.environ.get("KSTR_SHOTS", folder))
        if not session.wait_window(TITLE, timeout=60):
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: (self.s.control(TITLE, PASS_BUTTON) or {}).get("visible"), "the dialog's Pass button")

    def pass_enabled(self):
        return self.s.control(TITLE, PASS_BUTTON)["enabled"]

    def push_and_click(self):
        """The stick pushed four ways, then left, middle and right pressed, all over the dialog;
        presses Pass once it opens. Answers whether it opened."""
        dialog = self.s.control(TITLE, 0)
        self.s.move_pointer(dialog["x"] + 150, dialog["y"] + 260)   # over the stick's picture
        for dx, dy in ((6, 0), (-6, 0), (0, 6), (0, -6)):
            for _ in range(3):
                self.s.xdotool("mousemove_relative", "--", dx, dy)
                time.sleep(0.02)
        time.sleep(0.2)
        for button in (1, 2, 3):
            self.s.xdotool("click", button)
            time.sleep(0.15)
        self.wait_for(self.pass_enabled, "Pass after the stick and its buttons")
        self.s.screenshot(self.shots / "live-stick.png")
        self.s.click_control(TITLE, PASS_BUTTON)
        return True
