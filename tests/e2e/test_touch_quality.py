"""End-to-end cases for TouchpadQualityTest on version 2 sessions made here from the shipped
touchpads' descriptors, replayed by padkit.

Run one with: test_touch_quality.py CASE. Screenshots go to $KSTR_SHOTS (default: a temporary folder).
"""
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from kstrsession import run_case  # noqa: E402
from kstrtouchq import (CELLS, COVERED, FAIL_BUTTON, NEVER_COVERED, PASS_BUTTON, STATUS,  # noqa: E402
                        TouchQualityRun, cell_colours)
from kstrpad import installed  # noqa: E402
from kstrtouchq import everything_live  # noqa: E402
from touchsession import Pad, everything  # noqa: E402
from vpad import run_tool  # noqa: E402


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def figures(run):
    return {m["name"]: m["value"] for m in run.get("measurements", [])}


def replayed(tmp, session):
    """The --device option of the session written to a file, replayed four times as fast."""
    path = tmp / "pad.session"
    path.write_text(session.text(), encoding="utf-8")
    return ["--device", f"touchpad:{path},speed=4"]


def case_a_pad_that_does_everything_passes(s, tmp):
    pad = Pad("dell-xps9360-touchpad.rdesc")
    q = TouchQualityRun(s, tmp, *replayed(tmp, everything(pad)), "--param", "uIdleSeconds=2")
    time.sleep(0.8)
    q.shot("mid-test")
    q.hands_off()
    q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after the quiet hands-off period")
    q.press(PASS_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    f = figures(run)
    check(f["CellsCovered"] == f["CellsTotal"] == 91 and f["MaxContacts"] == 5 and f["GhostContacts"] == 0, f)
    check(abs(f["ReportRateOneContact"] - 125) < 1 and abs(f["ReportRateSeveralContacts"] - 125) < 1, f)
    check(f["JitterMicrons"] < 100 and round(f["ResolutionX"]) == 305 and f["PadWidth"] == 101.3, f)
    check(all(c == COVERED for row in cell_colours(q.picture(), 13, 7) for c in row), "a cell of the picture not covered")


def case_a_band_that_never_reports_is_a_dead_zone(s, tmp):
    # The Elan pad (sizes in inches): 13 x 9 cells of 8.1 x 8.3 mm; columns 5 and 6 never report.
    pad = Pad("elan_04f3_300b.rdesc")
    band = (4 * (pad.x_max + 1) / 13, 6 * (pad.x_max + 1) / 13)
    q = TouchQualityRun(s, tmp, *replayed(tmp, everything(pad, lambda x, y: band[0] <= x < band[1])),
                        "--param", "uIdleSeconds=1")
    q.hands_off("sweep a finger over every cell of the map")
    q.wait_for(lambda: q.still_to_do("sweep a finger over every cell of the map"), "only the cells left to do")
    check(q.text(CELLS) == "Cells still to do: 18 / 117", q.text(CELLS))
    q.shot("dead-zone")
    check(not q.enabled(PASS_BUTTON), "Pass open with cells never touched")
    q.press(FAIL_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "FAIL" and [e["name"] for e in run["events"]] == ["TOUCHPAD_DEAD_ZONE"], f"{run}\n{output}")
    detail = run["events"][0]["detail"]
    check(detail.startswith("18 of 117 cells never touched (cells of 8.1 x 8.3 mm")
          and "row 1 column 5, 32.3 x 0.0 mm; row 1 column 6, 40.3 x 0.0 mm; row 2 column 5" in detail
          and detail.endswith("row 9 column 6, 40.3 x 66.2 mm"), detail)
    check(figures(run)["CellsCovered"] == 99, figures(run))
    colours = cell_colours(q.picture(), 13, 9)
    check(all(colours[r][c] == (NEVER_COVERED if c in (4, 5) else COVERED) for r in range(9) for c in range(13)),
          f"the picture's cells: {colours}")


def case_a_contact_while_hands_off_is_a_ghost(s, tmp):
    pad = Pad("dell-xps9360-touchpad.rdesc")
    session = everything(pad)
    session.touches(session.t + 2000, session.t + 30000, 500)
    q = TouchQualityRun(s, tmp, *replayed(tmp, session), "--param", "uIdleSeconds=2")
    q.hands_off()
    q.wait_for(lambda: "contact(s) while hands off" in q.text(STATUS), "the ghost to be shown")
    check(not q.enabled(PASS_BUTTON), "Pass open despite a ghost")
    q.shot("ghost")
    q.press(FAIL_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "FAIL" and [e["name"] for e in run["events"]] == ["TOUCHPAD_GHOST_CONTACT"],
          f"{run}\n{output}")
    detail = run["events"][0]["detail"]
    # Where it was: 0.7 and 0.3 of the pad, 70.9 x 17.0 mm, row 3 column 10; when: within the period.
    check(" at row 3 column 10, 70.9 x 17.0 mm, " in detail and " s into the period" in detail, detail)
    check(figures(run)["GhostContacts"] >= 1, figures(run))


def case_a_live_virtual_pad_that_does_everything_passes(s, tmp):
    """The virtual touchpad of the tests (tests/vhid) with the Dell pad's collection, its reports
    played at about 154 Hz by the tool (at 125 Hz a loaded machine's late reports read below it)."""
    recording = tmp / "pad.hid"
    with installed(s, "dell-xps9360-touchpad") as (pad,):
        q = TouchQualityRun(s, tmp, "--param", "uIdleSeconds=2")
        recording.write_text("\n".join(pad.recording(lambda p: everything_live(p, 7), interval_us=6500)) + "\n")
        played = run_tool(s, "play", pad.id, recording, timeout=120)
        check(played.returncode == 0, f"{played.stdout}{played.stderr}")
        q.hands_off()
        q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after the quiet hands-off period")
        q.shot("live")
        q.press(PASS_BUTTON)
        run, output = q.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    check("VID_1209&PID_0001" in run["device"]["properties"]["InterfacePath"].upper(), run["device"])
    f = figures(run)
    check(f["CellsCovered"] == f["CellsTotal"] == 91 and f["MaxContacts"] == 5 and f["MalformedFrames"] == 0, f)
    check(125 <= f["ReportRateOneContact"] <= 250, f"played at 154 Hz: {f}")


def case_a_hid_recording_replayed_passes(s, tmp):
    """A HID recording of the Dell pad, as the Linux HID tools write one (the whole descriptor, a
    report a line), replayed four times as fast."""
    from vpad import VirtualPad
    recording = tmp / "pad.hid"
    pad = VirtualPad(s, "dell-xps9360-touchpad")
    recording.write_text("\n".join(pad.recording(lambda p: everything_live(p, 7), interval_us=6500)) + "\n")
    q = TouchQualityRun(s, tmp, "--device", f"touchpad:{recording},speed=4", "--param", "uIdleSeconds=2")
    q.hands_off()
    q.wait_for(lambda: q.enabled(PASS_BUTTON), "Pass after the quiet hands-off period")
    q.press(PASS_BUTTON)
    run, output = q.result()
    check(run["verdict"] == "PASS" and not run["events"], f"{run}\n{output}")
    f = figures(run)
    check(f["CellsCovered"] == f["CellsTotal"] == 91 and f["MaxContacts"] == 5 and f["PadWidth"] == 101.3, f)
    check(abs(f["ReportRateOneContact"] - 1e6 / 6500) < 1 and f["MalformedFrames"] == 0, f)


def case_a_live_pad_removed_mid_test_ends_with_fail(s, tmp):
    with installed(s, "elan_04f3_300b") as (pad,):
        q = TouchQualityRun(s, tmp)
        pad.stroke([(0.1, 0.5), (0.2, 0.5), (0.3, 0.5)])
        q.wait_for(lambda: q.text(CELLS).startswith("Cells still to do: ") and not q.text(CELLS).endswith(" 117 / 117"),
                   "the pad's first cells")
        removed = pad.remove()
        check(removed.returncode == 0, f"{removed.stdout}{removed.stderr}")
        run, output = q.result()
    check(run["verdict"] == "FAIL" and q.proc.returncode == 1, f"{run}\n{output}")
    check("touchpad under test was removed" in output, output)
    check([e["name"] for e in run["events"]] == ["TOUCHPAD_QUALITY_TEST_FAILED"], run["events"])
    check(0 < figures(run)["CellsCovered"] < 117, figures(run))


if __name__ == "__main__":
    run_case(globals(), sys.argv[1])
