#!/usr/bin/env python3
"""Latency to the screen: from a mouse event sent to the X server until the pixels it changes show.

For the classic dialog (MouseTest) a left press, a wheel notch and a double click on the face; for
the click test (MouseInteractiveTest) a step completed by a button's release. The yardstick is
bare Win32 windows (bench/BareScreenChange.cpp) that change as many pixels for the same input.
The dialog's samples and the bare windows' take turns in one run. Prints the median and the 99th
percentile of each and their ratios.

    screen_latency.py [--samples N]

Uses the display and Wine prefix of the environment (as bench/run.sh sets them up) or starts its
own; the build is $KSTR_BUILD (default build/).
"""
import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "scripts"))
sys.path.insert(0, str(Path(__file__).resolve().parent))
import kstrclick  # noqa: E402
from kstrdrive import ALL_CHECKS, FACE, FAIL_BUTTON, STATUS_GROUP, TITLE, MouseTestRun  # noqa: E402
from kstrsession import ModuleRun, Session  # noqa: E402
from xscreen import Region, XScreen  # noqa: E402

FRAME_MS = 1000 / 60
RATIO_AIM = 1.5
POLL_SECONDS = 0.0005   # between reads: fine enough next to a frame, and leaves Wine its cores
SETTLE_SECONDS = 0.1    # from the pointer's arrival to the input: the move is handled by then
QUIET_SECONDS = 0.04    # a picture unchanged this long is taken as drawn
TIMEOUT_SECONDS = 1.0   # a change not seen by then is a miss, counted as endless
DOUBLE_CLICK_GAP = 0.08 # between the two clicks of a double click, as the end-to-end tests click
WARM_UP = 2             # samples of each kind not counted: first paints load pictures and fonts

# The classic dialog's status pictures (every picture set; they share one place), wheel arrows, faces.
STATUS_PICTURES = list(range(1035, 1050))
WHEEL_ARROWS = [1026, 1027]
FACES = [1006, FACE]
# The click test's mouse pictures (one place) and its close picture.
CLICK_PICTURES = [kstrclick.MOUSE_AREA] + list(range(1069, 1075))
CLICK_CLOSE = 1088


def percentile(values, percent):
    """Nearest rank: the smallest value with at least `percent` of the values at or below it."""
    ordered = sorted(values)
    rank = max(1, (percent * len(ordered) + 99) // 100)
    return ordered[rank - 1]


class Latencies:
    """Milliseconds from the input to the first changed read, one per sample; a miss is endless."""

    def __init__(self):
        self.ms = []

    def add(self, ms):
        self.ms.append(float("inf") if ms is None else ms)

    def misses(self):
        return sum(1 for ms in self.ms if ms == float("inf"))

    def median(self):
        return statistics.median(self.ms)

    def p99(self):
        return percentile(self.ms, 99)


def verdict(name, dialog, bare):
    """One line: the dialog's figures, the bare windows', their ratios, and the aims."""
    median_ratio, p99_ratio = dialog.median() / bare.median(), dialog.p99() / bare.p99()
    aims = [f"p99 <= {FRAME_MS:.1f} ms: {'met' if dialog.p99() <= FRAME_MS else 'MISSED'}",
            f"ratios <= {RATIO_AIM}: {'met' if max(median_ratio, p99_ratio) <= RATIO_AIM else 'MISSED'}"]
    misses = [f"{who} missed {n} of {len(of.ms)}" for who, of in (("dialog", dialog), ("bare", bare))
              if (n := of.misses())]
    return (f"{name:<34} {dialog.median():6.2f} {dialog.p99():7.2f}   {bare.median():6.2f} {bare.p99():7.2f}"
            f"   {median_ratio:6.2f} {p99_ratio:6.2f}   " + "; ".join(aims + misses))


class Watch:
    """The pixels of one region of the screen, read until they change."""

    def __init__(self, screen, region):
        self.screen, self.region = screen, region

    def read(self):
        return self.screen.read(self.region)

    def time_change(self, send):
        """Sends input (send() returns the moment it was sent); milliseconds from then to the first
        read that differs from the pixels before, or None when none does within the timeout."""
        before = self.read()
        sent = send()
        while True:
            at = time.perf_counter()
            if self.read() != before:
                return (at - sent) * 1000
            if at - sent > TIMEOUT_SECONDS:
                return None
            time.sleep(POLL_SECONDS)

    def settled(self):
        """Reads until the pixels stay the same for a while (or the timeout); returns them."""
        last, since, start = self.read(), time.perf_counter(), time.perf_counter()
        while time.perf_counter() - since < QUIET_SECONDS and time.perf_counter() - start < TIMEOUT_SECONDS:
            time.sleep(POLL_SECONDS * 4)
            now = self.read()
            if now != last:
                last, since = now, time.perf_counter()
        return last

    def wait_for(self, pixels):
        """Until the region shows `pixels` again (or the timeout)."""
        deadline = time.perf_counter() + TIMEOUT_SECONDS
        while self.read() != pixels and time.perf_counter() < deadline:
            time.sleep(POLL_SECONDS * 4)


class Target:
    """Where the pointer goes for one kind of input, and the pixels that input changes."""

    def __init__(self, screen, point, region):
        self.screen, self.point, self.watch = screen, point, Watch(screen, region)

    def arrive(self):
        self.screen.move(*self.point)
        time.sleep(SETTLE_SECONDS)

    def press(self):
        """A left press, timed; then its release, and the picture back as it was."""
        self.arrive()
        before = self.watch.read()
        ms = self.watch.time_change(lambda: self.screen.button(XScreen.BUTTON_LEFT, True))
        self.screen.button(XScreen.BUTTON_LEFT, False)
        self.watch.wait_for(before)
        return ms

    def wheel(self, up):
        self.arrive()
        return self.watch.time_change(lambda: self.screen.click(XScreen.WHEEL_UP if up else XScreen.WHEEL_DOWN))

    def double_click(self):
        """The second press of a double click, timed from that press."""
        self.arrive()
        self.screen.click(XScreen.BUTTON_LEFT)
        time.sleep(DOUBLE_CLICK_GAP)
        ms = self.watch.time_change(lambda: self.screen.button(XScreen.BUTTON_LEFT, True))
        self.screen.button(XScreen.BUTTON_LEFT, False)
        return ms

    def release(self, button):
        """A press, shown and settled; then its release, timed."""
        self.arrive()
        self.watch.time_change(lambda: self.screen.button(button, True))
        self.watch.settled()
        return self.watch.time_change(lambda: self.screen.button(button, False))


class BareWindows:
    """bare_screen_change.exe with one window per (kind, region), in a column right of `beside`."""

    def __init__(self, session, exe, beside, kinds):
        self.places, args = [], []
        x, y = beside.x + beside.w + 20, beside.y
        for kind, region in kinds:
            self.places.append(Region(x, y, region.w, region.h))
            args += [kind, str(x), str(y), str(region.w), str(region.h)]
            y += region.h + 20
        self.proc = subprocess.Popen(["wine", str(exe), *args], env=session.env, stdout=subprocess.DEVNULL,
                                     stderr=subprocess.PIPE, text=True)
        for kind, _ in kinds:
            if not session.wait_window(f"^{kind}$", timeout=30):
                self.close()
                raise RuntimeError(f"the bare {kind} window did not appear: {self.proc.stderr.read()}")

    def target(self, screen, index):
        place = self.places[index]
        return Target(screen, place.centre(), place)

    def close(self):
        self.proc.terminate()
        self.proc.wait(timeout=20)


def take_turns(rounds, dialog_sample, bare_sample, dialog, bare):
    """Samples of the dialog and the bare window alternately, who goes first changing each round."""
    for n in range(WARM_UP + rounds):
        pair = [(dialog_sample, dialog), (bare_sample, bare)]
        for sample, into in pair if n % 2 == 0 else reversed(pair):
            ms = sample(n)
            if n >= WARM_UP:
                into.add(ms)


def classic(session, screen, folder, bare_exe, rounds):
    """The classic dialog with every check demanded (so Pass and the missing-checks line follow too)."""
    run = MouseTestRun(session, folder, *ALL_CHECKS)
    ids = [0, STATUS_GROUP, FAIL_BUTTON] + STATUS_PICTURES + WHEEL_ARROWS + FACES
    places = session.controls(TITLE, ids)
    frame = places[STATUS_GROUP]
    on_status = (frame["x"] + 20, frame["y"] + frame["h"] - 15)
    status = Region.union([places[i] for i in STATUS_PICTURES if i in places])
    arrows = Region.union([places[i] for i in WHEEL_ARROWS])
    face = Region.union([places[i] for i in FACES])
    dialog = Region.union([places[0]])
    bare = BareWindows(session, bare_exe, dialog, [("press", status), ("wheel", arrows), ("face", face)])
    results = {}
    try:
        kinds = [("classic: left press", Target(screen, on_status, status), lambda t, n: t.press()),
                 ("classic: wheel notch", Target(screen, on_status, arrows), lambda t, n: t.wheel(n % 2 == 0)),
                 ("classic: double click on the face", Target(screen, face.centre(), face),
                  lambda t, n: t.double_click())]
        for index, (name, target, action) in enumerate(kinds):
            mine, theirs, bare_target = Latencies(), Latencies(), bare.target(screen, index)
            take_turns(rounds, lambda n, t=target, a=action: a(t, n),
                       lambda n, t=bare_target, a=action: a(t, n), mine, theirs)
            results[name] = (mine, theirs)
    finally:
        bare.close()
        screen.move(*Region.union([places[FAIL_BUTTON]]).centre())
        screen.click(XScreen.BUTTON_LEFT)
        run.finish_output()
    return results


def click_test(session, screen, folder, bare_exe, rounds):
    """The click test run as often as it takes, in one process: its first three steps each time."""
    buttons = [XScreen.BUTTON_LEFT, XScreen.BUTTON_RIGHT, XScreen.BUTTON_MIDDLE]
    runs = (WARM_UP + rounds + len(buttons) - 1) // len(buttons)
    module = ModuleRun(session, folder, *["--test", "MouseInteractiveTest"] * runs,
                       "--param", "TestGamingButtons=false")
    title = kstrclick.TITLE

    def step_one_begun():
        now = session.controls(title, [kstrclick.MOUSE_AREA, kstrclick.FAIL])
        return all(now.get(c) for c in now) and len(now) == 2 and now[kstrclick.MOUSE_AREA]["visible"] \
            and now[kstrclick.FAIL]["enabled"]

    module.wait_seconds = 60
    module.wait_for(step_one_begun, "the click test's first step")
    places = session.controls(title, [0, CLICK_CLOSE] + CLICK_PICTURES)
    pictures = Region.union([places[i] for i in CLICK_PICTURES])
    close = Region.union([places[CLICK_CLOSE]])
    bare = BareWindows(session, bare_exe, Region.union([places[0]]), [("step", pictures)])
    mine, theirs = Latencies(), Latencies()
    target, bare_target = Target(screen, pictures.centre(), pictures), bare.target(screen, 0)
    try:
        n = 0
        for _ in range(runs):
            module.wait_for(step_one_begun, "the click test's first step")
            for button in buttons[:WARM_UP + rounds - n]:
                take_one = [(target, mine), (bare_target, theirs)]
                for who, into in take_one if n % 2 == 0 else reversed(take_one):
                    ms = who.release(button)
                    if n >= WARM_UP:
                        into.add(ms)
                n += 1
            if n % len(buttons) == 0:
                # The middle step pauses on its success picture before the next step shows.
                module.wait_for(lambda: (session.control(title, kstrclick.DOUBLE_CLICK_TARGET) or {}).get("visible"),
                                "the step after the middle button")
            # The close picture ends the run; the next one starts at step 1, where the mouse shows.
            screen.move(*close.centre())
            screen.click(XScreen.BUTTON_LEFT)
    finally:
        bare.close()
        module.finish_output()
    return {"click test: step completed": (mine, theirs)}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--samples", type=int, default=100, help="samples of each kind for each side (100)")
    args = parser.parse_args()
    if args.samples < 1:
        parser.error("--samples takes a positive number")
    build = Path(os.environ.get("KSTR_BUILD", ROOT / "build"))
    os.environ.setdefault("KSTR_PROBE", str(build / "win" / "e2e-tools" / "kstrprobe.exe"))
    bare_exe = build / "win" / "bench" / "bare_screen_change.exe"
    for needed in (bare_exe, Path(os.environ["KSTR_PROBE"])):
        if not needed.exists():
            sys.exit(f"screen_latency: {needed} is missing; build the benchmarks first (bench/run.sh)")
    with tempfile.TemporaryDirectory() as tmp, Session() as session:
        screen = XScreen(session.env["DISPLAY"])
        try:
            results = classic(session, screen, Path(tmp), bare_exe, args.samples)
            results.update(click_test(session, screen, Path(tmp), bare_exe, args.samples))
        finally:
            screen.close()
    print(f"Latency to the screen: from the XTest event to the first read showing the changed pixels "
          f"(read every {POLL_SECONDS * 1000:.1f} ms), {args.samples} samples each, taking turns with bare "
          f"Win32 windows that change as many pixels")
    print(f"{'':<34} {'dialog ms':>14}   {'bare ms':>14}   {'ratio':>13}")
    print(f"{'':<34} {'median':>6} {'p99':>7}   {'median':>6} {'p99':>7}   {'median':>6} {'p99':>6}")
    for name, (dialog, bare) in results.items():
        print(verdict(name, dialog, bare))


if __name__ == "__main__":
    main()
