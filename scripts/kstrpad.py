"""Drives TouchpadTest on a live touchpad: the virtual touchpad of the tests (tests/vhid),
installed in the prefix with a shared descriptor's touchpad collection and fed its reports.

Shared by the scripted demo (scripts/demo.py), the live bench and the end-to-end tests (tests/e2e).
"""
import contextlib
import sys
from pathlib import Path

from kstrsession import ModuleRun

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "vhid" / "python"))
from vpad import PADS, VirtualPad, remove_all  # noqa: E402,F401

TITLE = "Touchpad Test"
PASS_BUTTON = 1008


@contextlib.contextmanager
def installed(session, *names):
    """The named pads installed (nothing else of ours in the prefix), removed again afterwards
    whatever happens."""
    remove_all(session)
    pads = []
    try:
        for name in names:
            pad = VirtualPad(session, name)
            pad.install()
            pads.append(pad)
        yield pads
    finally:
        for pad in pads:
            pad.close()
        remove_all(session)


@contextlib.contextmanager
def beside(session, name):
    """One more pad installed next to those there, removed again afterwards."""
    pad = VirtualPad(session, name)
    pad.install()
    try:
        yield pad
    finally:
        pad.remove()


class LivePadRun(ModuleRun):
    """One kstrmouse.kmx process running TouchpadTest on the first touchpad it finds."""

    wait_seconds = 20

    def __init__(self, session, folder, *args):
        super().__init__(session, folder, "--test", "TouchpadTest", "--param", "bDisablePassUntilFinished=true", *args)
        if not session.wait_window(TITLE, timeout=60):
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: (self.s.control(TITLE, PASS_BUTTON) or {}).get("visible"), "the dialog's Pass button")

    def pass_enabled(self):
        return self.s.control(TITLE, PASS_BUTTON)["enabled"]

    def press_pass(self):
        self.wait_for(self.pass_enabled, "Pass after the pad's finger and clicks")
        self.s.click_control(TITLE, PASS_BUTTON)


def packets_logged(log):
    """The packets the dialog was given, as session lines, from the padkit logger's trace."""
    lines = Path(log).read_text(encoding="utf-8", errors="replace").splitlines()
    return [line.split(": ", 1)[1] for line in lines if " padkit " in line and " packet " in line]
