"""End-to-end cases for kstrmouse.kmx under Wine; run one with: test_module.py CASE."""
import json
import os
import shutil
import re
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrsession import run_case  # noqa: E402

EXITED_ABNORMALLY = 7
CANNOT_RUN = 4
SESSIONS = Path(__file__).resolve().parents[2] / "resources" / "padkit-sessions"

# The whole registration as --list shows it: tests with their capability, flags, exclusions and
# parameters in order; parameters with their types; events with the severity, source file and
# line they are reported with; every text key. Any change to the module's registration shows here.
REGISTRATION = Path(__file__).with_name("registration.txt")


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def read_report(path):
    return json.loads(Path(path).read_text(encoding="utf-8"))


def case_list_shows_the_whole_registration(s, tmp):
    done = s.run("--list")
    check(done.returncode == 0, f"--list failed: {done.returncode} {done.stderr}")
    expected = REGISTRATION.read_text(encoding="utf-8").splitlines()
    listed = done.stdout.splitlines()
    differences = [f"line {n + 1}: expected {e!r}, listed {g!r}"
                   for n, (e, g) in enumerate(zip(expected, listed)) if e != g]
    check(not differences and len(listed) == len(expected),
          "the registration differs:\n" + "\n".join(differences[:10]) +
          f"\n({len(expected)} lines expected, {len(listed)} listed)")


def case_help_lists_options(s, tmp):
    done = s.run("--help")
    check(done.returncode == 0, f"--help failed: {done.returncode}")
    for option in ("--test", "--param", "--list", "--lang", "--report", "--log-level", "--log-file",
                   "--stop-after", "--stop-file", "--device"):
        check(option in done.stdout, f"{option} not described by --help:\n{done.stdout}")


def case_bad_input_is_refused_clearly(s, tmp):
    cases = [
        (["--test", "MouseTest", "--param", "bNoSuchThing=1"], "bNoSuchThing"),
        (["--test", "MouseTest", "--param", "bRequireAllButtons=perhaps"], "perhaps"),
        (["--test", "MouseTest", "--param", "iForceMouseType=4294967296"], "iForceMouseType"),
        (["--test", "MouseInteractiveTest", "--param", "bRequireAllButtons=true"], "bRequireAllButtons"),
        (["--test", "NoSuchTest"], "NoSuchTest"),
        (["--test", "MouseTest", "--lang", str(tmp / "missing.lang")], "missing.lang"),
        (["--test"], "--test"),
        (["--frobnicate"], "--frobnicate"),
        (["--test", "TouchpadTest", "--device", "NoSuchCapability,SP_Handle=1"], "NoSuchCapability"),
        # A property the touch tests read is checked before the mouse test's dialog could open.
        (["--test", "MouseTest", "--test", "TouchpadTest", "--device",
          f"touchpad:{SESSIONS / 'touchpad-complete.session'},SP_Handle=abc"], "SP_Handle \"abc\" is not a decimal"),
        (["--test", "MouseTest", "--test", "TouchpadTest", "--device",
          f"touchpad:{SESSIONS / 'touchpad-complete.session'},SP_Hanlde=3"], "did you mean SP_Handle"),
    ]
    for args, culprit in cases:
        report = tmp / "refused.json"
        done = s.run(*args, "--report", str(report))
        check(done.returncode == EXITED_ABNORMALLY, f"{args}: exit {done.returncode}, {done.stderr}")
        lines = [line for line in done.stderr.splitlines() if line.strip()]
        check(len(lines) == 1 and lines[0].startswith("HarnException: ") and culprit in lines[0],
              f"{args}: expected one HarnException line naming {culprit}, got:\n{done.stderr}")
        check("Traceback" not in done.stderr and "wine: Unhandled" not in done.stderr, f"{args}: crashed")


def case_report_records_each_run(s, tmp):
    report = tmp / "report.json"
    # A blacklisted touchpad is refused without a dialog; MouseTest ends at the stop request.
    device = ("SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=3,SP_PnPID=LEN0042,SynapticsBlacklistVersion=1,"
              "name=Bench touchpad")
    done = s.run("--test", "MouseTest", "--test", "TouchpadTest", "--device", device, "--report", str(report),
                 "--stop-after", "2")
    data = read_report(report)
    check(data["module"] == "kstrmouse.kmx" and data["version"] == "6.5.000000001", f"header: {data}")
    runs = data["runs"]
    check([r["test"] for r in runs] == ["MouseTest", "TouchpadTest"], f"runs: {runs}")
    check(runs[0]["device"]["name"] == "System mouse", f"MouseTest device: {runs[0]['device']}")
    check(runs[1]["device"]["name"] == "Bench touchpad", f"TouchpadTest device: {runs[1]['device']}")
    check(all(r["state"] == "finished" and r["verdict"] for r in runs), f"verdicts: {runs}")
    first_bad = next((r["verdictValue"] for r in runs if r["verdict"] != "PASS"), 0)
    check(done.returncode == first_bad, f"exit {done.returncode}, first non-PASS verdict {first_bad}")
    for r in runs:
        check(r["test"] in done.stdout and r["verdict"] in done.stdout, f"summary lacks {r['test']}:\n{done.stdout}")


def case_no_fitting_device_is_reported(s, tmp):
    report = tmp / "report.json"
    done = s.run("--no-system-devices", "--test", "MouseTest", "--report", str(report))
    check(done.returncode == CANNOT_RUN, f"exit {done.returncode}: {done.stderr}")
    check("MouseTest" in done.stderr and "device" in done.stderr, f"no clear message: {done.stderr}")
    run = read_report(report)["runs"][0]
    check(run["verdict"] == "CANNOTRUN" and run.get("reason"), f"report: {run}")
    # A touchpad wrapper device carries SP_Handle: the mouse tests never run on it.
    done = s.run("--no-system-devices", "--device", "Mouse+SynapticsMouse+SynapticsTouchPad,SP_Handle=1",
                 "--test", "MouseTest", "--report", str(report))
    check(done.returncode == CANNOT_RUN, f"excluded device was used: {done.returncode} {done.stdout}")


def case_language_files_translate_names(s, tmp):
    report = tmp / "report.json"
    s.run("--lang", "de", "--test", "MouseTest", "--report", str(report), "--stop-after", "1")
    german = read_report(report)["runs"][0]["displayName"]
    s.run("--lang", "en", "--test", "MouseTest", "--report", str(report), "--stop-after", "1")
    english = read_report(report)["runs"][0]["displayName"]
    check(german and english and german != english, f"display names: de={german!r} en={english!r}")
    bad = tmp / "bad.lang"
    bad.write_text("@language xx\n[Strings]\nYes = Ja\nthis line has no equals sign\n", encoding="utf-8")
    done = s.run("--lang", str(bad), "--test", "MouseTest")
    check(done.returncode == EXITED_ABNORMALLY and "bad.lang" in done.stderr and ":4" in done.stderr,
          f"bad language file not refused with its line: {done.stderr}")


def case_log_file_gets_trace_lines(s, tmp):
    log = tmp / "kstrmouse.log"
    s.run("--test", "MouseTest", "--log-level", "1", "--log-file", str(log), "--stop-after", "1")
    text = log.read_text(encoding="utf-8")
    check(re.search(r"kstrmouse\s+1\s+137 KSTRMouse Run", text), f"no Run trace in log:\n{text}")
    check(re.search(r"168 Enter MouseTest", text), f"no MouseTest trace in log:\n{text}")
    log.unlink()
    s.run("--test", "MouseTest", "--log-level", "2", "--log-file", str(log), "--stop-after", "1")
    text = log.read_text(encoding="utf-8") if log.exists() else ""
    check("KSTRMouse Run" not in text, f"trace written above threshold:\n{text}")


def case_executable_is_self_contained(s, tmp):
    exe = s.bin / "kstrmouse.kmx"
    dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(exe)], capture_output=True, text=True).stdout
    dlls = {d.lower() for d in re.findall(r"DLL Name: (\S+)", dump)}
    check(not any(d.startswith(("libstdc++", "libgcc", "libwinpthread")) for d in dlls), f"imports: {dlls}")
    check("subsystem" in dump.lower() and re.search(r"Subsystem\s+0+3\b", dump), "not a console program")
    data = exe.read_bytes()
    for needle in (b'name="kstrmouse.kmx"', b'level="requireAdministrator"', b'uiAccess="false"',
                   b'name="Microsoft.Windows.Common-Controls" version="6.0.0.0"',
                   "6.5.000000001".encode("utf-16-le")):
        check(needle in data, f"{needle!r} not embedded")


def faults_copy(tmp):
    """The fault-injecting build of the module in a folder of its own, with the language files."""
    faults = Path(os.environ["KSTR_FAULTS"])
    folder = tmp / "faults"
    shutil.copytree(Path(os.environ["KSTR_BIN"]) / "lang", folder / "lang")
    shutil.copy2(faults / "kstrmouse_faults.kmx", folder)
    return folder


def case_run_survives_each_failure(s, tmp):
    folder = faults_copy(tmp)
    report = tmp / "report.json"
    expectations = [
        ("ThrowCoreException", EXITED_ABNORMALLY, "Exception: ksx::Exception: core failure for the test"),
        ("ThrowHostException", EXITED_ABNORMALLY, "HarnException: host failure for the test"),
        ("ThrowOtherException", EXITED_ABNORMALLY, "ThrowOtherException ended abnormally: exception: neither"),
        ("FailAssertion", EXITED_ABNORMALLY, "FaultTests:42"),
    ]
    for test, status, text in expectations:
        done = s.run("--test", test, "--report", str(report), cwd=folder, exe="./kstrmouse_faults.kmx")
        check(done.returncode == status, f"{test}: exit {done.returncode}, wanted {status}: {done.stderr}")
        check(text in done.stderr, f"{test}: {text!r} not on the error stream:\n{done.stderr}")
        run = read_report(report)["runs"][0]
        check(run["test"] == test, f"{test}: report lost the run: {run}")
    crashed = read_report(report)["runs"][0]
    check(crashed["verdict"] == "EXITEDABNORMALLY" and "0x00000007" in crashed.get("exception", ""),
          f"assertion not recorded: {crashed}")


def case_unexpected_exception_leaves_the_next_test_running(s, tmp):
    folder = faults_copy(tmp)
    report = tmp / "report.json"
    done = s.run("--test", "ThrowOtherException", "--test", "TouchpadTest", "--device",
                 f"touchpad:{SESSIONS / 'touchpad-blacklisted.session'}", "--report", str(report),
                 cwd=folder, exe="./kstrmouse_faults.kmx")
    runs = read_report(report)["runs"]
    check([(r["test"], r["verdict"]) for r in runs] == [("ThrowOtherException", "EXITEDABNORMALLY"),
                                                        ("TouchpadTest", "WARN")], f"{runs}\n{done.stderr}")
    check(done.returncode == EXITED_ABNORMALLY, f"exit {done.returncode}")
    check("TouchpadTest" in done.stdout and "WARN" in done.stdout, f"no summary line:\n{done.stdout}")


def case_ole_refused_is_reported_without_a_message_box(s, tmp):
    folder = faults_copy(tmp)
    touchpad = f"touchpad:{SESSIONS / 'touchpad-blacklisted.session'}"
    for unattended in (["--unattended"], []):   # no console on standard input implies it
        report = tmp / "report.json"
        done = s.run(*unattended, "--test", "MouseTest", "--test", "TouchpadTest", "--device", touchpad,
                     "--report", str(report), cwd=folder, exe="./kstrmouse_faults.kmx", env={"KSTR_FAULT": "ole"},
                     timeout=60)
        check(done.returncode == CANNOT_RUN, f"{unattended}: exit {done.returncode}\n{done.stdout}{done.stderr}")
        check("Ole Initialization Failed" in done.stderr, f"{unattended}: no line on stderr:\n{done.stderr}")
        # Only the test that drags and drops needs OLE: the other one runs.
        runs = [(r["test"], r["verdict"], r.get("reason")) for r in read_report(report)["runs"]]
        check(runs == [("MouseTest", "CANNOTRUN", "OLE could not be initialised"), ("TouchpadTest", "WARN", None)],
              runs)
        check(read_report(report)["exitStatus"] == CANNOT_RUN, "the report's exit status differs")


def case_failed_graphics_startup_goes_on(s, tmp):
    folder = faults_copy(tmp)
    log, report = tmp / "kstrmouse.log", tmp / "report.json"
    # GDI+ is started only for a run with the click test in it; its failure is logged and the run goes on.
    for tests, started in ((["ThrowOtherException"], False), (["ThrowOtherException", "MouseInteractiveTest"], True)):
        args = [a for test in tests for a in ("--test", test)]
        done = s.run(*args, "--stop-after", "0", "--log-level", "1", "--log-file", str(log), "--report", str(report),
                     cwd=folder, exe="./kstrmouse_faults.kmx", env={"KSTR_FAULT": "gdiplus"})
        text = log.read_text(encoding="utf-8")
        check(("114 moduleInit()::GdiplusStartup() call failed" in text) == started, f"{tests}: log:\n{text}")
        check([r["test"] for r in read_report(report)["runs"]] == tests, f"{tests}: start was not reached")
        check(done.returncode == EXITED_ABNORMALLY, f"{tests}: exit {done.returncode}")
        log.unlink()


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
