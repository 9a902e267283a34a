"""One connection to the X display: input sent through XTest and pixels read back, in order.

Input and reads share the connection, so the server handles a read only after the input sent
before it; the screen-latency bench times one against the other on that basis.
"""
import ctypes
import time

ZPIXMAP = 2
ALL_PLANES = ctypes.c_ulong(~0 & 0xFFFFFFFFFFFFFFFF)


class _XImage(ctypes.Structure):
    # Only the head of Xlib's XImage: what a read needs to copy its bytes and free it.
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int),
                ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int),
                ("bits_per_pixel", ctypes.c_int)]


class Region:
    """A rectangle of the screen, in screen pixels."""

    def __init__(self, x, y, w, h):
        self.x, self.y, self.w, self.h = int(x), int(y), int(w), int(h)
        if self.w <= 0 or self.h <= 0:
            raise ValueError(f"an empty region: {self}")

    @classmethod
    def of(cls, rect):
        """The region of a dict with x, y, w, h, as the probe describes a control."""
        return cls(rect["x"], rect["y"], rect["w"], rect["h"])

    @classmethod
    def union(cls, rects):
        """The smallest region holding every rectangle (dicts with x, y, w, h, as the probe gives)."""
        left = min(r["x"] for r in rects)
        top = min(r["y"] for r in rects)
        right = max(r["x"] + r["w"] for r in rects)
        bottom = max(r["y"] + r["h"] for r in rects)
        return cls(left, top, right - left, bottom - top)

    def centre(self):
        return self.x + self.w // 2, self.y + self.h // 2

    def moved(self, dx, dy):
        return Region(self.x + dx, self.y + dy, self.w, self.h)

    def __repr__(self):
        return f"{self.w}x{self.h}+{self.x}+{self.y}"


class XScreen:
    """XTest input and XGetImage reads on one connection to `display` (":117")."""

    BUTTON_LEFT, BUTTON_MIDDLE, BUTTON_RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 2, 3, 4, 5

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtst = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XGetImage.restype = ctypes.POINTER(_XImage)
        self.x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                       ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.x11.XFree.argtypes = [ctypes.c_void_p]
        self.x11.XFlush.argtypes = [ctypes.c_void_p]
        self.x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        self.x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.xtst.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
        self.xtst.XTestFakeMotionEvent.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int,
                                                   ctypes.c_ulong]
        self.xtst.XTestFakeRelativeMotionEvent.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int,
                                                           ctypes.c_ulong]
        self.display = self.x11.XOpenDisplay(display.encode())
        if not self.display:
            raise RuntimeError(f"cannot open display {display}")
        self.root = self.x11.XDefaultRootWindow(self.display)
        self.x11.XDisplayWidth.argtypes = self.x11.XDisplayHeight.argtypes = [ctypes.c_void_p, ctypes.c_int]
        self.size = (self.x11.XDisplayWidth(self.display, 0), self.x11.XDisplayHeight(self.display, 0))

    def close(self):
        if self.display:
            self.x11.XCloseDisplay(self.display)
            self.display = None

    # -- input --------------------------------------------------------------------------------
    def move(self, x, y):
        """The pointer to (x, y); returns once the server has moved it."""
        self.xtst.XTestFakeMotionEvent(self.display, -1, int(x), int(y), 0)
        self.x11.XSync(self.display, 0)

    def nudge(self, dx, dy):
        """A relative move, handed to the server at once, as a device's report would come."""
        self.xtst.XTestFakeRelativeMotionEvent(self.display, int(dx), int(dy), 0)
        self.x11.XFlush(self.display)

    def button(self, number, press):
        """Sends one press or release and hands it to the server at once; returns the monotonic
        time taken just before it was sent."""
        sent = time.perf_counter()
        self.xtst.XTestFakeButtonEvent(self.display, number, 1 if press else 0, 0)
        self.x11.XFlush(self.display)
        return sent

    def click(self, number):
        """A press and its release; returns when the press was sent."""
        sent = self.button(number, True)
        self.button(number, False)
        return sent

    # -- pixels -------------------------------------------------------------------------------
    def read(self, region):
        """The region's pixels as the screen shows them now (bytes, one server round trip)."""
        # Xlib would end the process on the server's BadMatch; say which region it was instead.
        if region.x < 0 or region.y < 0 or region.x + region.w > self.size[0] or region.y + region.h > self.size[1]:
            raise RuntimeError(f"{region} lies outside the {self.size[0]}x{self.size[1]} screen")
        image = self.x11.XGetImage(self.display, self.root, region.x, region.y, region.w, region.h,
                                   ALL_PLANES, ZPIXMAP)
        if not image:
            raise RuntimeError(f"cannot read {region} of the screen")
        head = image.contents
        pixels = ctypes.string_at(head.data, head.bytes_per_line * head.height)
        self.x11.XFree(head.data)
        self.x11.XFree(image)
        return pixels


def _runs(indices, gap):
    """Sorted indices grouped into [first, last] runs, neighbours at most `gap` apart joined."""
    runs = []
    for i in indices:
        if runs and i - runs[-1][1] <= gap:
            runs[-1][1] = i
        else:
            runs.append([i, i])
    return runs


def changed_bands(before, after, area, gap=8):
    """Where two reads of `area` (32-bit pixels) differ, as a few rectangles: runs of changed rows,
    split into runs of changed columns, each shrunk to its changes (neighbours fewer than `gap`
    pixels apart joined). Reading these instead of the whole area keeps a watch cheap."""
    line = area.w * 4

    def changed(y, x):
        at = y * line + x * 4
        return before[at:at + 4] != after[at:at + 4]

    rows = [y for y in range(area.h) if before[y * line:(y + 1) * line] != after[y * line:(y + 1) * line]]
    bands = []
    for top, bottom in _runs(rows, gap):
        columns = [x for x in range(area.w) if any(changed(y, x) for y in range(top, bottom + 1))]
        for left, right in _runs(columns, gap):
            inside = [y for y in range(top, bottom + 1) if any(changed(y, x) for x in range(left, right + 1))]
            bands.append(Region(area.x + left, area.y + inside[0], right - left + 1, inside[-1] - inside[0] + 1))
    return bands
