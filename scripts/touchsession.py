"""Version 2 touchpad sessions (platform/padkit/FORMAT.md) of what a technician does on a pad,
for the pads of the shipped descriptors (tests/data/hid-descriptors): their X and Y ranges and
physical size are read from each descriptor's own items.

Shared by the end-to-end tests of the touchpad quality test and the scripted demo.
"""
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DESCRIPTORS = ROOT / "tests" / "data" / "hid-descriptors"
FRAME_MS = 8.0   # 125 Hz


class Pad:
    """A shipped touchpad's X and Y: logical maximum and physical extent in mm."""

    def __init__(self, descriptor):
        self.name = descriptor
        data = bytes.fromhex((DESCRIPTORS / descriptor).read_text().strip())
        self.x_max, self.width_mm = _axis(data, 0x30)
        self.y_max, self.height_mm = _axis(data, 0x31)

    def at(self, fx, fy):
        """The units of a place given as fractions of the width and height."""
        return round(fx * self.x_max), round(fy * self.y_max)

    def cells(self):
        """Columns and rows of the quality test's coverage map: cells of about 8 mm."""
        return max(1, round(self.width_mm / 8)), max(1, round(self.height_mm / 8))


def _items(data):
    at = 0
    while at < len(data):
        prefix = data[at]
        if prefix == 0xFE:  # a long item
            at += 3 + data[at + 1]
            continue
        size = (0, 1, 2, 4)[prefix & 3]
        raw = data[at + 1:at + 1 + size]
        yield (prefix >> 2) & 3, prefix >> 4, int.from_bytes(raw, "little"), int.from_bytes(raw, "little", signed=True)
        at += 1 + size


def _axis(data, usage):
    """(logical maximum, physical extent in mm) of the first input of Generic Desktop `usage` in a
    touchpad collection (Digitizer page, Touch Pad usage)."""
    state, stack, usages, collections = {}, [], [], []
    for kind, tag, value, signed in _items(data):
        if kind == 1:  # global
            if tag == 10:
                stack.append(dict(state))
            elif tag == 11:
                state = stack.pop()
            else:
                state[tag] = value if tag in (0, 6) else signed
        elif kind == 2 and tag == 0:  # usage
            usages.append((state.get(0), value))
        elif kind == 0:
            if tag == 10:
                collections.append(usages[0] if usages else None)
            elif tag == 12:
                collections.pop()
            elif tag == 8 and collections and collections[0] == (0x0D, 0x05) and (1, usage) in usages:
                exponent = state.get(5, 0)
                exponent = exponent - 16 if exponent >= 8 else exponent
                per_unit = {0x11: 10.0, 0x13: 25.4}[state[6] & 0xFF]  # cm or inch
                return state[2], (state[4] - state.get(3, 0)) * 10 ** exponent * per_unit
            usages = []
    raise ValueError(f"no touchpad input of usage {usage:#x}")


class Session:
    """Frames of one session, in time order: each (ms, buttons, contacts); a contact is
    (id, x, y) for a finger or (id, x, y, False) for a palm."""

    def __init__(self, pad, dead=lambda x, y: False):
        """dead(x, y): where the pad reports nothing, whatever touches it."""
        self.pad, self.dead, self.frames, self.t, self.next_id = pad, dead, [], 0.0, 0

    def frame(self, contacts=(), buttons=""):
        self.frames.append((self.t, buttons, [c for c in contacts if not self.dead(c[1], c[2])]))
        self.t += FRAME_MS

    def pause(self, ms):
        self.frame()  # every contact lifts
        self.t += ms

    def new_id(self):
        self.next_id += 1
        return self.next_id

    def sweep(self):
        """One finger over every row of cells, left to right, about a mm a frame; where the pad is
        dead it reports nothing, and the finger comes back with a new id."""
        columns, rows = self.pad.cells()
        step = max(1, round(self.pad.x_max / self.pad.width_mm))
        for row in range(rows):
            y = round((row + 0.5) * self.pad.y_max / rows)
            finger = self.new_id()
            for x in range(0, self.pad.x_max + 1, step):
                if self.dead(x, y):
                    self.frame()
                    finger = self.new_id()
                else:
                    self.frame([(finger, x, y)])
            self.pause(100)

    def fingers(self, counts=(3, 4, 5), ms=1200):
        """Fingers put down together in the left third and moving down: three, then four, then five."""
        for count in counts:
            ids = [self.new_id() for _ in range(count)]
            for n in range(round(ms / FRAME_MS)):
                self.frame([(f, self.pad.at(0.04 + 0.06 * i, 0.2)[0], self.pad.at(0, 0.2)[1] + n)
                            for i, f in enumerate(ids)])
            self.pause(100)

    def rest(self, ms=2500):
        """One finger resting, its position trembling by a unit."""
        finger = self.new_id()
        x, y = self.pad.at(0.5, 0.5)
        for n in range(round(ms / FRAME_MS)):
            self.frame([(finger, x + (n % 3) - 1, y)])
        self.pause(100)

    def click(self, fx):
        """A click of the pad's button with a finger at fx across, near the bottom."""
        finger = self.new_id()
        x, y = self.pad.at(fx, 0.85)
        self.frame([(finger, x, y)])
        self.frame([(finger, x, y)], "1")
        self.frame([(finger, x, y)], "1")
        self.frame([(finger, x, y)])
        self.pause(100)

    def touches(self, start_ms, end_ms, every_ms, place=(0.7, 0.3)):
        """A contact touching for a frame every every_ms from start_ms to end_ms: nobody's."""
        self.t = max(self.t, start_ms)
        while self.t <= end_ms:
            self.frame([(self.new_id(), *self.pad.at(*place))])
            self.t += every_ms - FRAME_MS
            self.frame()

    def quiet_until(self, ms):
        """No frame until then: the pad left alone."""
        self.t = max(self.t, ms)

    def text(self):
        lines = ["padkit-session 2", "device touchpad", f"x-range 0 {self.pad.x_max}", f"y-range 0 {self.pad.y_max}",
                 f"size-mm {self.pad.width_mm:.6g} {self.pad.height_mm:.6g}", f'name "{self.pad.name}"', ""]
        for t, buttons, contacts in self.frames:
            fields = [f"{t:.3f}".rstrip("0").rstrip("."), buttons or "-"]
            for contact in contacts:
                confident = 0 if len(contact) > 3 and contact[3] is False else 1
                fields.append(f"{contact[0]},1,{confident},{contact[1]},{contact[2]},-,-,-")
            lines.append(" ".join(fields))
        return "\n".join(lines) + "\n"


def everything(pad, dead=lambda x, y: False):
    """A sweep that covers the pad, three to five fingers, a resting finger, a click in each half."""
    session = Session(pad, dead)
    session.sweep()
    session.fingers()
    session.rest()
    session.click(0.25)
    session.click(0.75)
    return session
