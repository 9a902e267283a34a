"""Drives TouchpadQualityTest on a replayed version 2 session, as a technician would: waits for
what the replay has done, presses Hands off, Pass or Fail, and reads the report and the coverage
map's picture beside it.
Shared by the end-to-end tests (tests/e2e) and the scripted demo.
"""
import os
import struct
import zlib
from pathlib import Path

from kstrsession import ModuleRun

TITLE = "Touchpad Quality"
MAP, CELLS, FINGERS, REST, RATE_ONE, RATE_SEVERAL = 1205, 1206, 1208, 1209, 1210, 1211
HANDS_OFF, IDLE, STATUS, PASS_BUTTON, FAIL_BUTTON = 1216, 1217, 1218, 1219, 1220
HANDS_OFF_TO_DO = "press Hands off and let go of the device"


class TouchQualityRun(ModuleRun):
    """One kstrmouse.kmx process running TouchpadQualityTest on a session file."""

    wait_seconds = 30

    def __init__(self, session, folder, *args, shots=None):
        """args: the device (a session: --device touchpad:FILE,speed=4; none: the live touchpads)
        and parameters."""
        super().__init__(session, folder, "--test", "TouchpadQualityTest", *args)
        self.shots = Path(shots or os.environ.get("KSTR_SHOTS", folder))
        if not session.wait_window(TITLE, timeout=60):
            raise AssertionError(f"the {TITLE!r} dialog did not appear: {self.finish_output()}")
        self.wait_for(lambda: (self.s.control(TITLE, PASS_BUTTON) or {}).get("visible"), "the dialog's buttons")

    def describe(self):
        return f": {self.text(STATUS)!r}"

    def text(self, control):
        return (self.s.control(TITLE, control) or {}).get("text", "")

    def enabled(self, control):
        return (self.s.control(TITLE, control) or {}).get("enabled", False)

    def press(self, control):
        self.s.click_control(TITLE, control)

    def still_to_do(self, *checks):
        """The status line lists these checks as still to do, and nothing else."""
        # The probe gives a text's lines joined by blanks.
        return self.text(STATUS) == "  - ".join(("Still to do:",) + checks)

    def hands_off(self, *left):
        """Waits until the replay has done all but these checks and the hands-off one, then starts it."""
        self.wait_for(lambda: self.still_to_do(*left, HANDS_OFF_TO_DO), "the replay's checks")
        self.press(HANDS_OFF)

    def shot(self, name):
        return self.s.screenshot(self.shots / f"touchpad-quality-{name}.png")

    def picture(self):
        """The coverage map's picture beside the report: (width, height, rows of palette indices)."""
        return read_png(self.report.with_name("report-run1-coverage.png"))


def read_png(path):
    """An 8-bit indexed PNG, unfiltered (as the module writes it): width, height, rows of indices."""
    data = Path(path).read_bytes()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise AssertionError(f"{path} is no PNG")
    at, idat, width, height = 8, b"", 0, 0
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if zlib.crc32(kind + body) != struct.unpack(">I", data[at + 8 + length:at + 12 + length])[0]:
            raise AssertionError(f"{path}: chunk {kind} has a wrong CRC")
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            if (depth, colour) != (8, 3):
                raise AssertionError(f"{path}: not 8-bit indexed")
        elif kind == b"IDAT":
            idat += body
        at += 12 + length
    raw = zlib.decompress(idat)
    rows = [raw[r * (width + 1) + 1:(r + 1) * (width + 1)] for r in range(height)]
    return width, height, rows


def cell_colours(picture, columns, rows):
    """The palette index at the middle of each cell of the map's picture, row by row."""
    width, height, pixels = picture
    return [[pixels[int((r + 0.5) * (height - 1) / rows)][int((c + 0.5) * (width - 1) / columns)]
             for c in range(columns)] for r in range(rows)]


COVERED, NEVER_COVERED = 2, 3   # touchq::CoverageRaster's palette


def everything_live(pad, rows):
    """What the test asks for, done on a virtual pad (tests/vhid/python/vpad.py): a finger over
    every row of cells, three, four and five fingers moving, a resting finger, a click in each half."""
    for row in range(rows):
        pad.stroke([(i / 40, (row + 0.5) / rows) for i in range(41)])
    for count in (3, 4, 5):
        for n in range(40):
            pad.frame([pad.at(0.1 + 0.1 * f, 0.3 + n / 400, id=f) for f in range(count)])
        pad.frame([])
    for n in range(340):   # over 2 s of rest at up to 170 Hz
        pad.frame([pad.at(0.5, 0.5)])
    pad.frame([])
    pad.click(0.25, 0.85)
    pad.click(0.75, 0.85)
