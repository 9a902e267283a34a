"""A virtual touchpad of the test prefix, driven from Python: installed from a shared descriptor
with kstrvhid.exe, fed reports through `kstrvhid serve`, removed. Used by the end-to-end tests,
the scripted demo and the live bench (tests/vhid/README.md).
"""
import os
import subprocess
import time
from pathlib import Path

from hidfields import Contact, TouchpadReports

ROOT = Path(__file__).resolve().parents[3]
DESCRIPTORS = ROOT / "tests" / "data" / "hid-descriptors"

# The shared descriptors and the ids their pads are installed with: the device's own where the
# source gives it, else one of the test ids (1209:000x).
PADS = {
    "dell-xps9360-touchpad": "1209:0001",
    "synaptics_06cb_ce08": "06CB:CE08",
    "elan_04f3_300b": "04F3:300B",
    "sipodev_0603_0002": "0603:0002",
    "microsoft-surfacebook2-touchpad": "1209:0002",
}


def tool(session):
    return Path(os.environ.get("KSTR_VHID", session.build_root / "win" / "vhid")) / "kstrvhid.exe"


def run_tool(session, *args, timeout=60):
    return session.run(*map(str, args), exe=tool(session), timeout=timeout)


def remove_all(session):
    done = run_tool(session, "remove", "--all")
    if done.returncode != 0:
        raise RuntimeError(f"virtual touchpads not removed: {done.stdout}{done.stderr}")


class VirtualPad:
    """One installed virtual touchpad and the `kstrvhid serve` process that feeds it."""

    def __init__(self, session, name):
        self.s, self.name, self.id = session, name, PADS[name]
        self.descriptor = DESCRIPTORS / f"{name}.rdesc"
        self.reports = TouchpadReports(bytes.fromhex(self.descriptor.read_text()))
        self._server = None
        self.scan_time = 0
        self.down = {}   # contacts touching after the last frame, by id
        self._sink = None   # while a recording is made: where reports go instead of the pad

    def install(self):
        done = run_tool(self.s, "install", self.descriptor, "--id", self.id)
        if done.returncode != 0:
            raise RuntimeError(f"{self.name} not installed: {done.stdout}{done.stderr}")
        return done.stdout

    def remove(self):
        self.close()
        return run_tool(self.s, "remove", self.id)

    def close(self):
        if self._server is not None:
            self._server.stdin.close()
            self._server.wait(timeout=20)
            self._server = None

    def command(self, line):
        """One line to `kstrvhid serve`; its answer ("ok", or the error raised)."""
        if self._server is None:
            self._server = subprocess.Popen(["wine", str(tool(self.s)), "serve", self.id], env=self.s.env,
                                            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                            text=True, bufsize=1)
        self._server.stdin.write(line + "\n")
        self._server.stdin.flush()
        answer = self._server.stdout.readline().strip()
        if answer != "ok":
            raise RuntimeError(f"{line!r}: {answer or self._server.stderr.read()}")
        return answer

    def send(self, report):
        if self._sink is not None:
            return self._sink.append(report)
        return self.command("input " + report.hex(" "))

    def recording(self, gesture, interval_us=12000):
        """The reports `gesture(pad)` makes, as lines of a HID recording as the Linux HID tools
        write one (the whole descriptor, the ids, a report every interval), sent nowhere."""
        self._sink = []
        try:
            gesture(self)
            reports = self._sink
        finally:
            self._sink = None
        descriptor = bytes.fromhex(self.descriptor.read_text())
        vid, pid = self.id.lower().split(":")
        lines = [f"# {self.name}, made by the tests", f"R: {len(descriptor)} {descriptor.hex(' ')}",
                 f"N: {self.name}", f"I: 18 {vid} {pid}"]
        for index, report in enumerate(reports):
            at = index * interval_us
            lines.append(f"E: {at // 1000000:06d}.{at % 1000000:06d} {len(report)} {report.hex(' ')}")
        return lines

    def frame(self, contacts=(), buttons=0, pause=0.012):
        """One scan of the pad with these contacts touching; one that touched in the last scan and
        is not among them is reported lifted (tip clear) where it was, as a pad reports a lift.
        A parallel pad sends the scan in one report, a hybrid pad one contact a report (the first
        with the contact count, the others with 0). Scans at about 80 Hz."""
        lifted = [Contact(c.x, c.y, tip=False, confidence=c.confidence, id=c.id)
                  for c in self.down.values() if c.id not in {touching.id for touching in contacts}]
        reported = list(contacts) + lifted
        self.down = {c.id: c for c in contacts if c.tip}
        self.scan_time = (self.scan_time + 120) & 0xFFFF
        per_report = self.reports.fingers
        batches = [reported[i:i + per_report] for i in range(0, len(reported), per_report)] or [[]]
        for index, batch in enumerate(batches):
            count = len(reported) if index == 0 else 0
            self.send(self.reports.report(batch, count=count, buttons=buttons, scan_time=self.scan_time))
            if self._sink is None:
                time.sleep(pause)

    # -- where a finger goes, as fractions of the pad (0,0 top left) -------------------------
    def at(self, fx, fy, **contact):
        (x_low, x_high), (y_low, y_high) = self.reports.x_range, self.reports.y_range
        return Contact(round(x_low + fx * (x_high - x_low)), round(y_low + fy * (y_high - y_low)), **contact)

    def stroke(self, points, buttons=0):
        """A finger down through the points (fractions of the pad), then lifted."""
        for fx, fy in points:
            self.frame([self.at(fx, fy)], buttons)
        self.frame([])

    def click(self, fx, fy):
        """A finger resting at the point presses the pad's button and lets go: left in most of the
        pad, right in its bottom right corner."""
        finger = [self.at(fx, fy)]
        self.frame(finger)
        self.frame(finger, buttons=1)
        self.frame(finger)
        self.frame([])

    def finger_and_clicks(self):
        """What TouchpadTest asks for: a finger moved across the pad, a left and a right click."""
        self.stroke([(0.3 + 0.05 * i, 0.4 + 0.02 * i) for i in range(8)])
        self.click(0.3, 0.4)
        self.click(0.85, 0.92)
