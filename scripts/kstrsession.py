"""A Wine prefix in a virtual X display, with kstrmouse.kmx started and driven as a user would.

Shared by the scripted demo (scripts/demo.py) and the end-to-end tests (tests/e2e).
"""
import json
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


class Session:
    """One X display and one ready Wine prefix; stop() ends both if this session started them."""

    def __init__(self, build_root=None, display_num=None):
        self.build_root = Path(build_root or os.environ.get("KSTR_BUILD", ROOT / "build"))
        self.bin = Path(os.environ.get("KSTR_BIN", self.build_root / "win" / "bin"))
        self.env = dict(os.environ)
        self.env.setdefault("WINEPREFIX", str(self.build_root / "wineprefix"))
        self.env.setdefault("WINEDEBUG", "-all")
        self.env.setdefault("WINEDLLOVERRIDES", "mscoree,mshtml=")
        self.env["WINEARCH"] = "win64"
        self.display_num = display_num or os.environ.get("KSTR_DISPLAY_NUM", "99")
        self._xvfb = None
        self._probe = None

    # -- set-up -------------------------------------------------------------------------------
    def start(self):
        if not self._display_works(self.env.get("DISPLAY")):
            self.env["DISPLAY"] = f":{self.display_num}"
            if not self._display_works(self.env["DISPLAY"]):
                self._xvfb = subprocess.Popen(
                    ["Xvfb", self.env["DISPLAY"], "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                deadline = time.monotonic() + 10
                while not self._display_works(self.env["DISPLAY"]):
                    if time.monotonic() > deadline:
                        raise RuntimeError("Xvfb did not start on " + self.env["DISPLAY"])
                    time.sleep(0.1)
        prefix = Path(self.env["WINEPREFIX"])
        if not (prefix / ".kstr-ready-2").exists():
            prefix.mkdir(parents=True, exist_ok=True)
            self._quiet(["wineserver", "-k"])  # "wineserver -w" below must not wait on a kept-up server
            self._quiet(["wineboot", "-i"])
            self._quiet(["wineserver", "-w"])
            # A crashing program must fail, not wait on a crash dialog.
            self._quiet(["wine", "reg", "add",
                         r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug",
                         "/v", "Debugger", "/t", "REG_SZ", "/d", "false", "/f"])
            # Without a window manager, hiding a managed window waits 2 s for one to answer.
            self._quiet(["wine", "reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed",
                         "/t", "REG_SZ", "/d", "N", "/f"])
            self._quiet(["wineserver", "-w"])
            (prefix / ".kstr-ready-2").touch()
        self._quiet(["wineserver", "-p", "300"])
        self._quiet(["wine", "cmd", "/c", "exit"])
        return self

    def stop(self):
        if self._probe is not None:
            self._probe.stdin.close()
            self._probe.wait(timeout=10)
            self._probe = None
        self._quiet(["wineserver", "-k"])
        if self._xvfb:
            self._xvfb.terminate()
            self._xvfb.wait(timeout=10)
            self._xvfb = None

    def __enter__(self):
        return self.start()

    def __exit__(self, *exc):
        self.stop()

    # -- the module -----------------------------------------------------------------------------
    def run(self, *args, timeout=60, cwd=None, exe="./kstrmouse.kmx", env=None):
        """Runs kstrmouse.kmx (or exe) to its end; returns the CompletedProcess (text output)."""
        return subprocess.run(["wine", str(exe), *args], cwd=cwd or self.bin, env=dict(self.env, **(env or {})),
                              capture_output=True, text=True, encoding="utf-8", errors="replace",
                              timeout=timeout)

    def spawn(self, *args, cwd=None):
        """Starts kstrmouse.kmx and returns at once; the caller drives it and waits.

        From another working directory (where the module looks for its pictures) the executable
        is still the build's."""
        return subprocess.Popen(["wine", str(self.bin / "kstrmouse.kmx"), *args], cwd=cwd or self.bin, env=self.env,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                encoding="utf-8", errors="replace")

    # -- the user's side ----------------------------------------------------------------------
    def xdotool(self, *args, timeout=20):
        out = subprocess.run(["xdotool", *map(str, args)], env=self.env, capture_output=True,
                             text=True, timeout=timeout)
        return out.stdout.strip()

    def move_pointer(self, x, y):
        """Moves the pointer and waits until it is there. (xdotool's --sync alone waits 15 s for a
        move to the place the pointer already is.)"""
        here = dict(line.split("=", 1) for line in self.xdotool("getmouselocation", "--shell").splitlines()
                    if "=" in line)
        if (int(here.get("X", -1)), int(here.get("Y", -1))) != (int(x), int(y)):
            self.xdotool("mousemove", "--sync", int(x), int(y))

    def wait_window(self, title, timeout=20):
        """Window id of the first visible window whose title matches, or None after timeout."""
        deadline = time.monotonic() + timeout
        while time.monotonic() < deadline:
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], env=self.env,
                                   capture_output=True, text=True).stdout.split()
            if found:
                return found[0]
            time.sleep(0.2)
        return None

    def control(self, title, control_id, probe=None):
        """Where a dialog's control is on the screen and how it looks, or None when it is not there.

        `probe` is kstrprobe.exe (tests/e2e/probe), which asks the dialog itself."""
        return self.controls(title, [control_id], probe).get(control_id)

    def controls(self, title, control_ids, probe=None):
        """control() for several controls of one dialog in one go: {id: description or None}."""
        server = self._probe_server(probe)
        server.stdin.write(title + "\t" + " ".join(map(str, control_ids)) + "\n")
        server.stdin.flush()
        lines = []
        for line in server.stdout:
            line = line.rstrip("\r\n")
            if line == ".":
                break
            lines.append(line)
        found = {}
        for control_id, line in zip(control_ids, lines):
            if line in ("-", "!"):
                continue
            x, y, w, h, enabled, visible, *text = line.split(" ")
            found[control_id] = {"x": int(x), "y": int(y), "w": int(w), "h": int(h), "enabled": enabled == "1",
                                 "visible": visible == "1", "text": " ".join(text)}
        return found

    def _probe_server(self, probe):
        """kstrprobe.exe --serve (tests/e2e/probe), started once: it asks the dialogs themselves."""
        if self._probe is None or self._probe.poll() is not None:
            probe = probe or os.environ.get("KSTR_PROBE")
            self._probe = subprocess.Popen(["wine", str(probe), "--serve"], env=self.env, stdin=subprocess.PIPE,
                                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                           encoding="utf-8", errors="replace", bufsize=1)
        return self._probe

    def click_control(self, title, control_id, button=1, repeat=1, dx=None, dy=None):
        """Moves the pointer onto the control (its centre, or dx/dy inside it) and clicks."""
        c = self.control(title, control_id)
        if c is None:
            raise RuntimeError(f"control {control_id} of {title!r} not found")
        x = c["x"] + (c["w"] // 2 if dx is None else dx)
        y = c["y"] + (c["h"] // 2 if dy is None else dy)
        self.move_pointer(x, y)
        self.xdotool("click", "--repeat", repeat, "--delay", 80, button)
        return c

    def screenshot(self, path, window="root"):
        """The whole screen, or one window (an X window id)."""
        path = Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", str(window), str(path)], env=self.env, check=True,
                       capture_output=True, timeout=30)
        return path

    # -- helpers ------------------------------------------------------------------------------
    def _display_works(self, display):
        if not display or not shutil.which("xdpyinfo"):
            return False
        env = dict(self.env, DISPLAY=display)
        return subprocess.run(["xdpyinfo"], env=env, capture_output=True).returncode == 0

    def _quiet(self, cmd):
        subprocess.run(cmd, env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=300)


class ModuleRun:
    """One kstrmouse.kmx process started with a report file; the test drivers build on it."""

    def __init__(self, session, folder, *args, cwd=None):
        self.s, self.report = session, Path(folder) / "report.json"
        self.proc = session.spawn(*args, "--report", str(self.report), cwd=cwd)

    wait_seconds, poll_seconds = 10, 0.2   # a driver's own pace of waiting

    def wait_for(self, condition, what, timeout=None):
        """Until condition() holds; AssertionError naming `what` (and describe()) after timeout."""
        deadline = time.monotonic() + (timeout or self.wait_seconds)
        while time.monotonic() < deadline:
            if condition():
                return
            time.sleep(self.poll_seconds)
        raise AssertionError(f"timed out waiting for {what}{self.describe()}")

    def describe(self):
        """What a driver adds to a time-out: the dialog's own account, where it has one."""
        return ""

    def finish_output(self, timeout=60):
        try:
            out, err = self.proc.communicate(timeout=timeout)
        except Exception:  # noqa: BLE001 - a hung module is killed and reported
            self.proc.kill()
            out, err = self.proc.communicate()
        return f"exit {self.proc.returncode}\n{out}{err}"

    def result(self):
        output = self.finish_output()
        run = json.loads(self.report.read_text(encoding="utf-8"))["runs"][0]
        return run, output


def run_case(cases, name):
    """Runs the end-to-end case `case_<name>` of a test script (its globals()) in a fresh session
    with a temporary folder of its own."""
    with tempfile.TemporaryDirectory() as tmp, Session() as session:
        cases["case_" + name](session, Path(tmp))
    print(f"{name}: ok")
