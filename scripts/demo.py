"""Scripted demo of kstrmouse.kmx in a virtual display: what a technician would see and get.

Usage: demo.py BIN_DIR OUT_DIR. Leaves in OUT_DIR the transcript, the report, the log and
screenshots, and prints where they are.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from kstrsession import Session  # noqa: E402


def main(bin_dir, out_dir):
    out = Path(out_dir)
    out.mkdir(parents=True, exist_ok=True)
    for old in out.glob("*"):
        old.unlink()
    report, log = out / "report.json", out / "kstrmouse.log"
    transcript = []

    def run(session, *args):
        done = session.run(*args)
        transcript.append(f"$ wine kstrmouse.kmx {' '.join(args)}\n{done.stdout}{done.stderr}"
                          f"[exit status {done.returncode}]\n")
        return done

    with Session(build_root=Path(bin_dir).parent.parent) as session:
        run(session, "--list")
        proc = session.spawn("--test", "MouseTest", "--report", str(report),
                             "--log-file", str(log), "--log-level", "3")
        session.screenshot(out / "mouse-test.png")
        stdout, stderr = proc.communicate(timeout=120)
        transcript.append(f"$ wine kstrmouse.kmx --test MouseTest --report {report} --log-file {log}\n"
                          f"{stdout}{stderr}[exit status {proc.returncode}]\n")
        run(session, "--test", "MouseTest", "--param", "bRequireAllButtons=perhaps")

    (out / "transcript.txt").write_text("\n".join(transcript), encoding="utf-8")
    print("\n".join(transcript))
    print(f"Demo output in {out}: transcript.txt, report.json, kstrmouse.log, *.png")


if __name__ == "__main__":
    main(*sys.argv[1:3])
