"""Drives the MouseTest dialog of kstrmouse.kmx with xdotool, as a technician would.

Shared by the scripted demo (scripts/demo.py) and the end-to-end tests (tests/e2e).
"""
import os
import time
from pathlib import Path

from kstrsession import ModuleRun

TITLE = "Mouse Test"
PASS_BUTTON, FAIL_BUTTON, MORE_INFO = 1008, 1005, 1004
STATUS_GROUP, FACE, DRAG_SOURCE, DROP_TARGET = 1001, 1007, 1023, 1024
MISSING_CHECKS, CONTROL_MARKS = 1117, 1118
ALL_CHECKS = ["--param", "bDisablePassUntilFinished=true", "--param", "bRequireAllButtons=true",
              "--param", "bRequireDoubleClick=true", "--param", "bRequireDragAndDrop=true"]


class MouseTestRun(ModuleRun):
    """One kstrmouse.kmx process running MouseTest, its report and its dialog."""

    def __init__(self, session, folder, *args, shots=None):
        super().__init__(session, folder, "--test", "MouseTest", *args)
        self.shots = Path(shots or os.environ.get("KSTR_SHOTS", folder))
        self.window = session.wait_window(TITLE, timeout=60)
        if not self.window:
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: self.control(PASS_BUTTON) is not None, "the dialog's controls")

    def control(self, control_id):
        return self.s.control(TITLE, control_id)

    def pass_enabled(self):
        return self.control(PASS_BUTTON)["enabled"]

    def click_status(self, button):
        """A click on the dialog itself, inside the mouse status frame."""
        frame = self.control(STATUS_GROUP)
        self.s.move_pointer(frame["x"] + 20, frame["y"] + frame["h"] - 15)
        self.s.xdotool("click", button)
        time.sleep(0.3)

    def chord(self):
        """Left and right held together: the middle button emulated."""
        frame = self.control(STATUS_GROUP)
        self.s.move_pointer(frame["x"] + 20, frame["y"] + frame["h"] - 15)
        for step in (("mousedown", 1), ("mousedown", 3), ("mouseup", 3), ("mouseup", 1)):
            self.s.xdotool(*step)
            time.sleep(0.15)
        time.sleep(0.3)

    def drag_source_to_target(self):
        source, target = self.control(DRAG_SOURCE), self.control(DROP_TARGET)
        self.s.move_pointer(source["x"] + source["w"] // 2, source["y"] + source["h"] // 2)
        self.s.xdotool("mousedown", 1)
        for fraction in (0.1, 0.3, 0.6, 0.9, 1.0):
            x = source["x"] + (target["x"] + 10 - source["x"]) * fraction
            y = source["y"] + (target["y"] + 10 - source["y"]) * fraction
            self.s.move_pointer(int(x), int(y))
            time.sleep(0.15)
        self.s.xdotool("mouseup", 1)
        time.sleep(0.5)

    def shot(self, name):
        return self.s.screenshot(self.shots / f"mouse-test-{name}.png")

    def all_checks(self):
        """Every check the strictest parameters demand, in a technician's order, with a screenshot after each."""
        steps = [("left click", lambda: self.click_status(1)), ("right click", lambda: self.click_status(3)),
                 ("middle click", lambda: self.click_status(2)), ("wheel turn", lambda: self.click_status(4)),
                 ("double click on the face", lambda: self.s.click_control(TITLE, FACE, repeat=2)),
                 ("drag and drop", self.drag_source_to_target)]
        for number, (what, action) in enumerate(steps):
            yield what
            action()
            self.shot(f"{number + 1}-{what.replace(' ', '-')}")
