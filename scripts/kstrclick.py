"""Drives the MouseInteractiveTest (click test) dialog of kstrmouse.kmx with xdotool, as a user would.

Shared by the scripted demo (scripts/demo.py) and the end-to-end tests (tests/e2e).
"""
import os
import time
from pathlib import Path

from kstrsession import ModuleRun

TITLE = "Mouse Click Test"
CANCEL, FAIL, SKIP = 2, 1077, 1080
MOUSE_AREA, LEFT_SUCCESS, RIGHT_SUCCESS, MIDDLE_SUCCESS = 1067, 1070, 1072, 1074
SIDE1_SUCCESS = 1083
DOUBLE_CLICK_TARGET, DRAG_ITEM, DROP_AREA = 1075, 1079, 1081
WHEEL_BAR, WHEEL_UP, WHEEL_DOWN = 1094, 1096, 1097
# X buttons as Wine maps them: 8 is the first extended button (side button 2), 9 the second.
XBUTTON1, XBUTTON2 = 8, 9


class ClickTestRun(ModuleRun):
    """One kstrmouse.kmx process running MouseInteractiveTest, its report and its dialog."""

    wait_seconds, poll_seconds = 15, 0.1

    def __init__(self, session, folder, *args, gaming=False, shots=None, prefix=None, cwd=None):
        layout = ["--param", f"TestGamingButtons={'true' if gaming else 'false'}"]
        super().__init__(session, folder, "--test", "MouseInteractiveTest", *layout, *args, cwd=cwd)
        self.gaming = gaming
        self.shots = Path(shots or os.environ.get("KSTR_SHOTS", folder))
        self.prefix = prefix or ("click-gaming" if gaming else "click-default")
        self.window = session.wait_window(TITLE, timeout=60)
        if not self.window:
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: self.visible(CANCEL), "the dialog's controls")
        # The dialog does not move while it is driven: where the controls are is asked once.
        self.places = session.controls(TITLE, [MOUSE_AREA, DOUBLE_CLICK_TARGET, DRAG_ITEM, DROP_AREA])

    def control(self, control_id):
        return self.s.control(TITLE, control_id)

    def visible(self, control_id):
        c = self.control(control_id)
        return c is not None and c["visible"]


    def step_begun(self, sign):
        """The next step's sign shows and Fail is back, which happens after any pause."""
        now = self.s.controls(TITLE, [sign, FAIL])
        return all(now.get(c) for c in (sign, FAIL)) and now[sign]["visible"] and now[FAIL]["enabled"]

    def centre(self, control_id):
        c = self.places[control_id]
        return c["x"] + c["w"] // 2, c["y"] + c["h"] // 2

    def point_at(self, control_id):
        self.s.move_pointer(*self.centre(control_id))

    def click(self, button, repeat=1):
        """A click over the mouse picture: pictures let clicks through to the dialog."""
        self.point_at(MOUSE_AREA)
        self.s.xdotool("click", "--repeat", repeat, "--delay", 80, button)

    def drag(self, to_control):
        (x0, y0), (x1, y1) = self.centre(DRAG_ITEM), self.centre(to_control)
        self.s.move_pointer(x0, y0)
        self.s.xdotool("mousedown", 1)
        for fraction in (0.05, 0.2, 0.4, 0.6, 0.8, 1.0):
            self.s.move_pointer(int(x0 + (x1 - x0) * fraction), int(y0 + (y1 - y0) * fraction))
            time.sleep(0.1)
        self.s.xdotool("mouseup", 1)

    def wheel(self, button, notches):
        self.point_at(MOUSE_AREA)
        self.s.xdotool("click", "--repeat", notches, "--delay", 50, button)

    def shot(self, name):
        return self.s.screenshot(self.shots / f"{self.prefix}-{name}.png", window=self.window)

    def steps(self):
        """Every step done with real input, in order; yields each step's name before doing it and
        screenshots the dialog at each step's start."""
        plan = [("left-click", lambda: self.click(1), LEFT_SUCCESS),
                ("right-click", lambda: self.click(3), RIGHT_SUCCESS),
                ("middle-click", lambda: self.click(2), MIDDLE_SUCCESS if self.gaming else DOUBLE_CLICK_TARGET)]
        if self.gaming:
            plan += [("side-button-1", lambda: self.click(XBUTTON2), SIDE1_SUCCESS),
                     ("side-button-2", lambda: self.click(XBUTTON1), DOUBLE_CLICK_TARGET)]
        plan += [("double-click", self.double_click, DRAG_ITEM),
                 ("drag-and-drop", lambda: self.drag(DROP_AREA), WHEEL_UP),
                 ("wheel-up", lambda: self.wheel(4, 8), WHEEL_DOWN),
                 ("wheel-down", lambda: self.wheel(5, 9), None)]
        for number, (name, action, next_sign) in enumerate(plan, start=1):
            time.sleep(0.2)  # the step's pictures and text are painted
            self.shot(f"{number}-{name}")
            yield name
            action()
            if next_sign is not None:
                self.wait_for(lambda: self.step_begun(next_sign), f"the step after {name}")

    def double_click(self):
        self.point_at(DOUBLE_CLICK_TARGET)
        self.s.xdotool("click", "--repeat", 2, "--delay", 80, 1)
