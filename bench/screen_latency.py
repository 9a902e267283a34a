#!/usr/bin/env python3
"""Latency to the screen: from a mouse event sent to the X server until the pixels it changes show.

For the classic dialog (MouseTest) a left press, a wheel notch and a double click on the face; for
the click test (MouseInteractiveTest) a step completed by a button's release. The yardstick is
bare Win32 windows (bench/BareScreenChange.cpp) that change as many pixels for the same input.
The dialog's samples and the bare windows' take turns in one run. Prints, for the first read that
shows a change and for the read from which the whole change shows, the median and the 99th
percentile of each side and their ratios, against the aims (p99 within a 60 Hz frame, at most 1.5
times the bare window).

    screen_latency.py [--samples N]

Uses the display and Wine prefix of the environment (as bench/run.sh sets them up) or starts its
own; the build is $KSTR_BUILD (default build/), the bare program in $KSTR_BENCH (default the build's
bench/), the probe $KSTR_PROBE (default the build's).
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
from xscreen import Region, XScreen, changed_bands  # noqa: E402

FRAME_MS = 1000 / 60
RATIO_AIM = 1.5
POLL_SECONDS = 0.0005   # between reads: fine enough next to a frame, and leaves Wine its cores
SETTLE_SECONDS = 0.1    # from the pointer's arrival to the input: the move is handled by then
QUIET_SECONDS = 0.06    # pixels unchanged this long after a change are taken as the whole picture
TIMEOUT_SECONDS = 1.0   # a change not seen by then is a miss, counted as endless
DOUBLE_CLICK_GAP = 0.08  # between the two clicks of a double click, as the end-to-end tests click
WARM_UP = 2             # samples of each kind not counted: first paints load pictures and fonts

CLICK_CLOSE = 1088      # the click test's close picture


def percentile(values, percent):
    """Nearest rank: the smallest value with at least `percent` of the values at or below it."""
    ordered = sorted(values)
    rank = max(1, (percent * len(ordered) + 99) // 100)
    return ordered[rank - 1]


class Latencies:
    """For each sample, in milliseconds from the input: the first read that showed a change, and the
    read from which on the pixels stayed as they ended (the whole new picture). A miss is endless."""

    MISS = (float("inf"), float("inf"))

    def __init__(self):
        self.samples = []
        self.watched = []   # the regions read

    def add(self, change):
        self.samples.append(change or self.MISS)

    def misses(self):
        return sum(1 for change in self.samples if change == self.MISS)

    def median(self, which):
        return statistics.median(change[which] for change in self.samples)

    def p99(self, which):
        return percentile([change[which] for change in self.samples], 99)


FIRST, COMPLETE = 0, 1


def verdict(name, which, dialog, bare):
    """One line: the dialog's figures, the bare windows', their ratios, and the aims."""
    median_ratio = dialog.median(which) / bare.median(which)
    p99_ratio = dialog.p99(which) / bare.p99(which)
    aims = [f"p99 <= {FRAME_MS:.1f} ms: {'met' if dialog.p99(which) <= FRAME_MS else 'MISSED'}",
            f"ratios <= {RATIO_AIM}: {'met' if max(median_ratio, p99_ratio) <= RATIO_AIM else 'MISSED'}"]
    misses = [f"{who} missed {n} of {len(of.samples)}" for who, of in (("dialog", dialog), ("bare", bare))
              if (n := of.misses())]
    name += ", first change" if which == FIRST else ", complete"
    return (f"{name:<48} {dialog.median(which):6.2f} {dialog.p99(which):7.2f}   {bare.median(which):6.2f} "
            f"{bare.p99(which):7.2f}   {median_ratio:6.2f} {p99_ratio:6.2f}   " + "; ".join(aims + misses))


class Watch:
    """Some regions of the screen, read together until they change and settle."""

    def __init__(self, screen, regions):
        self.screen, self.regions = screen, list(regions)
        self.before = self.after = None   # the pixels around the last change timed

    def read(self):
        return b"".join(self.screen.read(region) for region in self.regions)

    def time_change(self, send):
        """Sends input (send() returns the moment it was sent) and reads until the pixels have changed
        and then stayed for a while. Returns (first, complete): milliseconds from the input to the
        first read that differed, and to the read from which on they stayed; None when nothing
        changed within the timeout."""
        self.before = last = self.read()
        sent = send()
        changes = []
        while True:
            at = time.perf_counter()
            now = self.read()
            if now != last:
                last = now
                changes.append((at - sent) * 1000)
            since = (at - sent) * 1000 - (changes[-1] if changes else 0)
            if (changes and since >= QUIET_SECONDS * 1000) or at - sent > TIMEOUT_SECONDS:
                self.after = last
                return (changes[0], changes[-1]) if changes else None
            time.sleep(POLL_SECONDS)

    def wait_for(self, pixels):
        """Until the regions show `pixels` again (or the timeout)."""
        deadline = time.perf_counter() + TIMEOUT_SECONDS
        while self.read() != pixels and time.perf_counter() < deadline:
            time.sleep(POLL_SECONDS * 4)


class Target:
    """Where the pointer goes for one kind of input, and the pixels that input changes."""

    def __init__(self, screen, point, regions, settle=SETTLE_SECONDS):
        self.screen, self.point, self.watch, self.settle = screen, point, Watch(screen, regions), settle

    def arrive(self):
        self.screen.move(*self.point)
        time.sleep(self.settle)

    def press(self):
        """A left press, timed; then its release, and the picture back as it was."""
        self.arrive()
        change = self.watch.time_change(lambda: self.screen.button(XScreen.BUTTON_LEFT, True))
        self.screen.button(XScreen.BUTTON_LEFT, False)
        self.watch.wait_for(self.watch.before)
        return change

    def wheel(self, up):
        self.arrive()
        return self.watch.time_change(lambda: self.screen.click(XScreen.WHEEL_UP if up else XScreen.WHEEL_DOWN))

    def double_click(self):
        """The second press of a double click, timed from that press."""
        self.arrive()
        self.screen.click(XScreen.BUTTON_LEFT)
        time.sleep(DOUBLE_CLICK_GAP)
        change = self.watch.time_change(lambda: self.screen.button(XScreen.BUTTON_LEFT, True))
        self.screen.button(XScreen.BUTTON_LEFT, False)
        return change

    def release(self, button):
        """A press, shown and settled; then its release, timed."""
        self.arrive()
        self.watch.time_change(lambda: self.screen.button(button, True))
        return self.watch.time_change(lambda: self.screen.button(button, False))


class BareWindow:
    """bare_screen_change.exe with one window of `kind` as large as `bands` together, under the
    dialog (`beside`) or right of it; its target watches the same bands moved into it."""

    def __init__(self, session, screen, exe, kind, bands, beside):
        whole = Region.union([vars(band) for band in bands])
        below = beside.y + beside.h + 20
        x, y = (beside.x, below) if below + whole.h <= screen.size[1] else (beside.x + beside.w + 20, beside.y)
        self.proc = subprocess.Popen(["wine", str(exe), kind, str(x), str(y), str(whole.w), str(whole.h)],
                                     env=session.env, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        if not session.wait_window(f"^{kind}$", timeout=30):
            self.close()
            raise RuntimeError(f"the bare {kind} window did not appear: {self.proc.stderr.read()}")
        self.target = Target(screen, Region(x, y, whole.w, whole.h).centre(),
                             [band.moved(x - whole.x, y - whole.y) for band in bands])

    def close(self):
        self.proc.terminate()
        self.proc.wait(timeout=20)


def compare(session, screen, bare_exe, kind, dialog, point, sample, rounds, bare_sample=None):
    """One kind of input on the dialog (its window's place `dialog`) against a bare window.

    sample(target, n) does the n-th sample of the kind on the dialog's target and returns its (first,
    complete) times; bare_sample (default: sample) the same on the bare window's. The last warm-up
    sample on the dialog finds the pixels the input changes, reading the whole window before and
    after, with time for the dialog's timers to settle first; the bare window is then made as large,
    and the two take turns, who goes first changing each round."""
    whole = Target(screen, point, [dialog], settle=0.3)
    for n in range(WARM_UP):
        sample(whole, n)
    bands = changed_bands(whole.watch.before, whole.watch.after, dialog)
    if not bands:
        raise RuntimeError(f"{kind}: the dialog showed no change")
    mine, theirs = Latencies(), Latencies()
    mine.watched = bands
    bare = BareWindow(session, screen, bare_exe, kind, bands, dialog)
    try:
        bare_sample = bare_sample or sample
        pair = [(sample, Target(screen, point, bands), mine), (bare_sample, bare.target, theirs)]
        for n in range(WARM_UP):
            bare_sample(bare.target, n)
        for n in range(WARM_UP, WARM_UP + rounds):
            for take, target, into in pair if n % 2 == 0 else reversed(pair):
                into.add(take(target, n))
    finally:
        bare.close()
    return mine, theirs


def classic(session, screen, folder, bare_exe, rounds):
    """The classic dialog with every check demanded (so Pass and the missing-checks line follow too)."""
    run = MouseTestRun(session, folder, *ALL_CHECKS)
    places = session.controls(TITLE, [0, STATUS_GROUP, FAIL_BUTTON, FACE])
    dialog = Region.of(places[0])
    frame = places[STATUS_GROUP]
    on_status = (frame["x"] + 20, frame["y"] + frame["h"] - 15)
    kinds = [("press", "classic: left press", on_status, lambda t, n: t.press()),
             ("wheel", "classic: wheel notch", on_status, lambda t, n: t.wheel(n % 2 == 0)),
             ("face", "classic: double click on the face", Region.of(places[FACE]).centre(),
              lambda t, n: t.double_click())]
    try:
        return {name: compare(session, screen, bare_exe, kind, dialog, point, sample, rounds)
                for kind, name, point, sample in kinds}
    finally:
        screen.move(*Region.of(places[FAIL_BUTTON]).centre())
        screen.click(XScreen.BUTTON_LEFT)
        run.finish_output()


class ClickTestSteps:
    """The click test's side: each sample completes the next of steps 1 to 3 of a run (left, right,
    middle button); after step 3, or when the samples end, the close picture ends the run and the
    next begins."""

    BUTTONS = [XScreen.BUTTON_LEFT, XScreen.BUTTON_RIGHT, XScreen.BUTTON_MIDDLE]

    def __init__(self, session, screen, module):
        self.s, self.screen, self.module, self.done = session, screen, module, 0
        module.wait_seconds = 60
        self.module.wait_for(self.step_one_begun, "the click test's first step")
        places = session.controls(kstrclick.TITLE, [0, CLICK_CLOSE, kstrclick.MOUSE_AREA])
        self.dialog = Region.of(places[0])
        self.close_at = Region.of(places[CLICK_CLOSE]).centre()
        self.point = Region.of(places[kstrclick.MOUSE_AREA]).centre()

    def step_one_begun(self):
        now = self.s.controls(kstrclick.TITLE, [kstrclick.MOUSE_AREA, kstrclick.FAIL])
        return len(now) == 2 and now[kstrclick.MOUSE_AREA]["visible"] and now[kstrclick.FAIL]["enabled"]

    def __call__(self, target, _n):
        """The next step on the dialog's `target`, timed from the release that completes it."""
        if self.done % len(self.BUTTONS) == 0:
            self.module.wait_for(self.step_one_begun, "the click test's first step")
        change = target.release(self.BUTTONS[self.done % len(self.BUTTONS)])
        self.done += 1
        if self.done % len(self.BUTTONS) == 0:
            # The middle step pauses on its success picture before the next step shows.
            self.module.wait_for(lambda: (self.s.control(kstrclick.TITLE, kstrclick.DOUBLE_CLICK_TARGET)
                                          or {}).get("visible"), "the step after the middle button")
            self.close_run()
        return change

    def close_run(self):
        self.screen.move(*self.close_at)
        self.screen.click(XScreen.BUTTON_LEFT)


def click_test(session, screen, folder, bare_exe, rounds):
    """The click test run as often as it takes, in one process."""
    buttons = ClickTestSteps.BUTTONS
    runs = (WARM_UP + rounds + len(buttons) - 1) // len(buttons)
    module = ModuleRun(session, folder, *["--test", "MouseInteractiveTest"] * runs,
                       "--param", "TestGamingButtons=false")
    steps = ClickTestSteps(session, screen, module)
    try:
        return {"click test: step completed": compare(
            session, screen, bare_exe, "step", steps.dialog, steps.point, steps, rounds,
            bare_sample=lambda t, n: t.release(buttons[n % len(buttons)]))}
    finally:
        if steps.done % len(buttons) != 0:
            steps.close_run()
        module.finish_output()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--samples", type=int, default=100, help="samples of each kind for each side (100)")
    args = parser.parse_args()
    if args.samples < 1:
        parser.error("--samples takes a positive number")
    build = Path(os.environ.get("KSTR_BUILD", ROOT / "build"))
    os.environ.setdefault("KSTR_PROBE", str(build / "win" / "e2e-tools" / "kstrprobe.exe"))
    bare_exe = Path(os.environ.get("KSTR_BENCH", build / "win" / "bench")) / "bare_screen_change.exe"
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
    print(f"Latency to the screen: from the XTest event to the first read showing a change and to the read "
          f"from which the whole change showed (reads every {POLL_SECONDS * 1000:.1f} ms of the pixels the "
          f"input changes), {args.samples} samples each, taking turns with a bare Win32 window that changes "
          f"as many pixels for the same input")
    print(f"{'':<48} {'dialog ms':>14}   {'bare ms':>14}   {'ratio':>13}")
    print(f"{'':<48} {'median':>6} {'p99':>7}   {'median':>6} {'p99':>7}   {'median':>6} {'p99':>6}")
    for name, (dialog, bare) in results.items():
        for which in (FIRST, COMPLETE):
            print(verdict(name, which, dialog, bare))
    print("Pixels read (width x height + left + top on the screen): " + "; ".join(
        f"{name}: {' '.join(map(repr, dialog.watched))}" for name, (dialog, _) in results.items()))


if __name__ == "__main__":
    main()
