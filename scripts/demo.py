"""Scripted demo of kstrmouse.kmx in a virtual display: what a technician would see and get.

Usage: demo.py BIN_DIR OUT_DIR. Leaves in OUT_DIR the transcript, the report, the log and
screenshots, and prints where they are.
"""
import os
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from kstrclick import ClickTestRun  # noqa: E402
from kstrdrive import ALL_CHECKS, PASS_BUTTON, TITLE, MouseTestRun  # noqa: E402
from kstrpad import LivePadRun, installed  # noqa: E402
from kstrsession import Session  # noqa: E402
from kstrstick import LiveStickRun  # noqa: E402


def main(bin_dir, out_dir):
    out = Path(out_dir)
    out.mkdir(parents=True, exist_ok=True)
    for old in sorted(out.rglob("*"), reverse=True):
        old.rmdir() if old.is_dir() else old.unlink()
    log = out / "kstrmouse.log"
    transcript = []

    def record(args, output):
        transcript.append(f"$ wine kstrmouse.kmx {' '.join(args)}\n{output}\n")

    os.environ.setdefault("KSTR_PROBE", str(Path(bin_dir).parent / "e2e-tools" / "kstrprobe.exe"))
    with Session(build_root=Path(bin_dir).parent.parent) as session:
        done = session.run("--list")
        record(["--list"], f"{done.stdout}{done.stderr}[exit status {done.returncode}]")

        # MouseTest with every check demanded: Pass opens only after all of them.
        args = [*ALL_CHECKS, "--log-file", str(log), "--log-level", "3"]
        run = MouseTestRun(session, out, *args, shots=out)
        run.shot("0-start")
        for what in run.all_checks():
            transcript.append(f"  [{what}] Pass enabled: {run.pass_enabled()}")
        transcript.append(f"  [all checks done] Pass enabled: {run.pass_enabled()}")
        session.click_control(TITLE, PASS_BUTTON)
        verdict, output = run.result()
        record(["--test", "MouseTest", "--report", str(run.report), *args],
               f"{output}\nreport verdict: {verdict['verdict']}, events: {verdict['events']}")

        # The click test, one action at a time, in the gaming layout with side buttons.
        click_dir = out / "click-test"
        click_dir.mkdir()
        click = ClickTestRun(session, click_dir, gaming=True, shots=out)
        for step in click.steps():
            transcript.append(f"  [click test] {step}")
        verdict, output = click.result()
        record(["--test", "MouseInteractiveTest", "--param", "TestGamingButtons=true", "--report",
                str(click.report)], f"{output}\nreport verdict: {verdict['verdict']}, events: {verdict['events']}")

        # The pointer tested as a pointing stick through Raw Input, recorded, and replayed.
        stick_dir = out / "live-stick"
        stick_dir.mkdir()
        recording = stick_dir / "stick.session"
        stick = LiveStickRun(session, stick_dir, "--record", str(recording), shots=out)
        transcript.append(f"  [live stick] Pass enabled after pushes and clicks: {stick.push_and_click()}")
        verdict, output = stick.result()
        record(["--test", "TrackPointTest", "--device", "stick:0", "--record", str(recording), "--report",
                str(stick.report)], f"{output}\nreport verdict: {verdict['verdict']}, device: {verdict['device']['name']}")
        transcript.append(f"  [replay] {recording} holds "
                          f"{sum(1 for line in recording.read_text().splitlines() if line[:1].isdigit())} packets")

        # A live touchpad: the virtual touchpad of the tests serving a shipping pad's touchpad
        # collection, fed the reports a finger and two clicks make; recorded as it runs.
        pad_dir = out / "live-touchpad"
        pad_dir.mkdir()
        recording = pad_dir / "pad.session"
        with installed(session, "synaptics_06cb_ce08") as (pad,):
            listing = session.run("--list-devices")
            record(["--list-devices"], f"{listing.stdout}{listing.stderr}[exit status {listing.returncode}]")
            run = LivePadRun(session, pad_dir, "--record", str(recording))
            for step in range(12):   # a finger sliding right and down, still touching for the picture
                pad.frame([pad.at(0.25 + 0.04 * step, 0.3 + 0.02 * step)])
            time.sleep(0.5)   # the status rows paint when the dialog's thread is idle
            session.screenshot(out / "live-touchpad.png")
            pad.frame([])
            pad.click(0.3, 0.4)
            pad.click(0.85, 0.92)
            run.wait_for(run.pass_enabled, "Pass after the pad's finger and clicks")
            transcript.append(f"  [live touchpad {pad.id}] Pass enabled after a finger and two clicks: "
                              f"{run.pass_enabled()}")
            run.press_pass()
            verdict, output = run.result()
        record(["--test", "TouchpadTest", "--record", str(recording), "--report", str(run.report)],
               f"{output}\nreport verdict: {verdict['verdict']}, device: {verdict['device']['name']}")

        done = session.run("--test", "MouseTest", "--param", "bRequireAllButtons=perhaps")
        record(["--test", "MouseTest", "--param", "bRequireAllButtons=perhaps"],
               f"{done.stdout}{done.stderr}[exit status {done.returncode}]")

    (out / "transcript.txt").write_text("\n".join(transcript), encoding="utf-8")
    print("\n".join(transcript))
    print(f"Demo output in {out}: transcript.txt, report.json, kstrmouse.log, mouse-test-*.png, "
          "click-test/report.json, click-gaming-*.png, live-stick/ (report and recording), live-stick.png, "
          "live-touchpad/ (report and recording), live-touchpad.png")


if __name__ == "__main__":
    main(*sys.argv[1:3])
