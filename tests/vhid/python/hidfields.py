"""The fields of a HID report descriptor's input reports, read on their own (not by the platform's
parser, which the module under test uses), and touchpad reports built from them: each finger's
tip, confidence, id, X and Y, the contact count, the scan time and the buttons.
"""
from dataclasses import dataclass, field

DIGITIZER, TOUCH_PAD, FINGER = 0x0D, 0x05, 0x22
GENERIC_DESKTOP, BUTTONS = 0x01, 0x09
TIP, CONFIDENCE, CONTACT_ID, CONTACT_COUNT, SCAN_TIME = 0x42, 0x47, 0x51, 0x54, 0x56
X, Y = 0x30, 0x31


@dataclass
class Field:
    report_id: int
    offset: int            # bits after the report id
    size: int              # bits of each element
    usages: list           # (page, usage) of each element; [] for padding
    logical_min: int
    logical_max: int
    finger: int            # the finger collection it sits in, counted from 0; -1 outside them


@dataclass
class Collection:
    page: int
    usage: int
    fields: list = field(default_factory=list)   # its input fields
    fingers: int = 0


def _items(descriptor):
    i = 0
    while i < len(descriptor):
        prefix = descriptor[i]
        if prefix == 0xFE:   # long item
            i += 3 + descriptor[i + 1]
            continue
        size = (0, 1, 2, 4)[prefix & 3]
        yield (prefix >> 2) & 3, prefix >> 4, size, int.from_bytes(bytes(descriptor[i + 1:i + 1 + size]), "little")
        i += 1 + size


def _signed(value, size):
    bits = size * 8
    return value - (1 << bits) if size and value >> (bits - 1) else value


def top_level_collections(descriptor):
    """Each top-level collection, with the input fields inside it."""
    state, pushed, usages, usage_min = {}, [], [], None
    collections, path, offsets = [], [], {}
    for kind, tag, size, data in _items(descriptor):
        if kind == 1:   # global: 0 page, 1/2 logical range, 7 size, 8 id, 9 count, A push, B pop
            if tag == 0xA:
                pushed.append(dict(state))
            elif tag == 0xB:
                state = pushed.pop()
            else:
                state[tag] = _signed(data, size) if tag in (1, 3) else data
            continue
        if kind == 2:   # local: 0 usage, 1/2 usage range
            page = data >> 16 if size == 4 else state.get(0, 0)
            if tag == 0:
                usages.append((page, data & 0xFFFF))
            elif tag == 1:
                usage_min = (page, data & 0xFFFF)
            elif tag == 2 and usage_min:
                usages.extend((usage_min[0], u) for u in range(usage_min[1], (data & 0xFFFF) + 1))
            continue
        if tag == 0xA:   # collection
            named = usages[0] if usages else (state.get(0, 0), 0)
            if not path:
                collections.append(Collection(*named))
            finger = -1
            if named == (DIGITIZER, FINGER):
                finger, collections[-1].fingers = collections[-1].fingers, collections[-1].fingers + 1
            path.append(finger)
        elif tag == 0xC:
            path.pop()
        elif tag == 0x8:   # input
            report_id, count, bits = state.get(8, 0), state.get(9, 0), state.get(7, 0)
            elements = [] if data & 1 or not usages else [usages[min(i, len(usages) - 1)] for i in range(count)]
            inside = [finger for finger in path if finger >= 0]
            collections[-1].fields.append(Field(report_id, offsets.get(report_id, 0), bits, elements,
                                                state.get(1, 0), state.get(2, 0), inside[-1] if inside else -1))
            offsets[report_id] = offsets.get(report_id, 0) + bits * count
        usages, usage_min = [], None
    return collections


@dataclass
class Contact:
    x: int
    y: int
    tip: bool = True
    confidence: bool = True
    id: int = 0


class TouchpadReports:
    """Input reports of a descriptor's touchpad collection, built from contacts and buttons."""

    def __init__(self, descriptor):
        pads = [c for c in top_level_collections(descriptor) if (c.page, c.usage) == (DIGITIZER, TOUCH_PAD)]
        if not pads:
            raise ValueError("the descriptor has no touchpad collection")
        self.collection = pads[0]
        self.report_id = next(f.report_id for f in self.collection.fields if (GENERIC_DESKTOP, X) in f.usages)
        self.fields = [f for f in self.collection.fields if f.report_id == self.report_id]
        bits = max(f.offset + f.size * max(1, len(f.usages)) for f in self.fields)
        self.length = 1 + (bits + 7) // 8
        self.fingers = self.collection.fingers
        self.x_range = self.range(X)
        self.y_range = self.range(Y)

    def range(self, usage, page=GENERIC_DESKTOP):
        found = next(f for f in self.fields if (page, usage) in f.usages and f.finger == 0)
        return found.logical_min, found.logical_max

    def report(self, contacts=(), count=None, buttons=0, scan_time=0):
        """One report: the contacts in the finger collections in order (the rest lifted), the
        contact count (the number of contacts unless given; a hybrid pad's later reports of a scan
        give 0), the buttons as bits (bit 0 the first), the scan time in its own units."""
        if len(contacts) > self.fingers:
            raise ValueError(f"{len(contacts)} contacts in a report of {self.fingers} finger collections")
        values = {(-1, DIGITIZER, CONTACT_COUNT): len(contacts) if count is None else count,
                  (-1, DIGITIZER, SCAN_TIME): scan_time}
        for index, contact in enumerate(contacts):
            values.update({(index, DIGITIZER, TIP): int(contact.tip),
                           (index, DIGITIZER, CONFIDENCE): int(contact.confidence),
                           (index, DIGITIZER, CONTACT_ID): contact.id,
                           (index, GENERIC_DESKTOP, X): contact.x, (index, GENERIC_DESKTOP, Y): contact.y})
        for button in range(1, 4):
            values[(-1, BUTTONS, button)] = (buttons >> (button - 1)) & 1
        data = 0
        for f in self.fields:
            for element, (page, usage) in enumerate(f.usages):
                value = values.get((f.finger, page, usage), 0)
                data |= (value & ((1 << f.size) - 1)) << (f.offset + element * f.size)
        return bytes([self.report_id]) + data.to_bytes(self.length - 1, "little")
