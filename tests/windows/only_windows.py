#!/usr/bin/env python3
"""What only the real Windows program has, under Wine: the second copy, the frame, keys, access keys, and the printer device.

    only_windows.py --build build/windows [TEST ...]
"""

import argparse
import os
import shutil
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
SAMPLES = os.path.join(HERE, "..", "..", "samples", "export")
sys.path[:0] = [HERE, os.path.join(HERE, "..", "tools")]

import transcripts  # noqa: E402
import wine_desktop  # noqa: E402

TRADE_FILE = "TR010109.B01"
TITLE = "Windows Printing Program for Windows 2000, Version 18.02"
BUTTONS = [20006, 20007, 7020, 20008, 20009, 20010, 20011, 20012, 20013, 20014, 40033, 20015, 20016, 4049, 20018, 40037]
LOAD = ["choose export/" + TRADE_FILE, "press 1199"]
TO_FILE = ["press 1011", "type 1013 REPORT.TXT"]


class Failure(Exception):
    """What was seen and what was wanted."""


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failure("%s: %r, wanted %r" % (what, seen, wanted))


def run(desktop, folder, commands, options=()):
    """The lines that a list of commands brings about; the options are the driver's."""
    script = os.path.join(folder, "script")
    with open(script, "w", encoding="utf-8") as file:
        file.write("\n".join(commands) + "\n")
    transcript, complaint = desktop.run_script(folder, script, options)
    expect("complaint", complaint, "")
    return transcripts.parse(transcript)


def of_kind(lines, kind):
    return [line[kind] for line in lines if kind in line]


def last_of(lines, kind):
    found = of_kind(lines, kind)
    if not found:
        raise Failure("no %s line was written" % kind)
    return found[-1]


def bytes_of(*path):
    with open(os.path.join(*path), "rb") as file:
        return file.read()


def second_copy_ends_with_status_0_and_no_window(desktop, folder):
    first = desktop.start_driver(folder)
    first.stdin.write("tool PRNTRPT\nshow\n")
    first.stdin.flush()
    lines = []
    while len(of_kind(lines, "changed")) < 2:
        lines += transcripts.parse(first.stdout.readline())
    before = last_of(lines, "changed")

    second = desktop.start_driver(folder)
    out, _ = second.communicate("frame\n", timeout=120)  # a copy with a window would tell of it
    expect("lines of the second copy", transcripts.parse(out), [{"exit": 0}])

    out, _ = first.communicate("show\nquit\n", timeout=120)
    lines = transcripts.parse(out)
    expect("the first copy's form", of_kind(lines, "changed")[0], before)
    expect("the first copy's end", lines[-1], {"exit": 0})


def copy_with_more_rights_counts_as_running(desktop, folder):
    # Its mark is there and may not be opened.
    copy = desktop.start_driver(folder, options=["--keep-mutex"])
    out, _ = copy.communicate("frame\n", timeout=120)
    expect("lines of the copy", transcripts.parse(out), [{"exit": 0}])


def frame_is_maximised_with_16_check_buttons_and_no_menu(desktop, folder):
    frame = last_of(run(desktop, folder, ["frame"]), "frame")
    expect("class", frame["class"], "PrntWndClass")
    expect("title", frame["title"], TITLE)
    expect("the icon in the title bar", frame["icon"], True)
    expect("maximised", frame["maximised"], True)
    expect("menu", frame["menu"], False)
    expect("toolbar id", frame["toolbar"], 178)
    expect("toolbar size", frame["size"], [800, 40])
    expect("buttons", frame["buttons"], BUTTONS)


def toolbar_grows_on_a_finer_screen(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT", "frame", "dpi 144", "frame", "dpi 192", "frame", "tool PRNTRPT"])
    frames = of_kind(lines, "frame")
    expect("toolbar sizes", [frame["size"] for frame in frames], [[800, 40], [1200, 60], [1600, 80]])
    expect("buttons", [frame["buttons"] for frame in frames], [BUTTONS] * 3)
    expect("pictures", [frame["picture"] for frame in frames], [25, 38, 50])
    # The button of the form that is open stays pressed on the new bars, until it is pressed again.
    expect("check states", of_kind(lines, "tools"), [{"PRNTRPT": True}, {"PRNTRPT": False}])


def button_follows_f1_twice_and_the_title_bar(desktop, folder):
    lines = run(desktop, folder, ["key F1", "key F1", "key F1", "close"])
    on, off = {"PRNTRPT": True}, {"PRNTRPT": False}
    expect("check states", of_kind(lines, "tools"), [on, off, on, off])
    expect("openings", of_kind(lines, "opened"), ["PRNTRPT", "PRNTRPT"])
    expect("closings", of_kind(lines, "closed"), ["PRNTRPT", "PRNTRPT"])


KEYS = {"F1": "PRNTRPT", "F2": "PRNTNP", "Ctrl+F2": "PRNTNPRET", "F3": "AUCRPT", "F4": "PRNTTLINE", "F5": "PRNTTRDLM",
        "F6": "PRNTSIXASEVENA", "F7": "PRNTBRKUP", "F8": "PRNTBRKREP", "F9": "CONVERT", "F10": "PRNTVQLS", "F11": "PRNTNETPOS",
        "Shift+F12": "PRNTQUOTELOG", "Ctrl+F1": "PRNTADMINLOG"}


def every_key_reaches_its_tool(desktop, folder):
    lines = run(desktop, folder, ["key " + key for key in KEYS])
    expect("check states", of_kind(lines, "tools"), [{form: True} for form in KEYS.values()])


def every_button_has_its_tooltip(desktop, folder):
    tips = {"PRNTRPT": "Trades Printing", "PRNTNP": "NetPosition Printing", "PRNTNPRET": "SLB Position Printing",
            "AUCRPT": "Auction Report Printing", "PRNTTLINE": "TouchLines Printing", "PRNTTRDLM": "Trader Limits Printing",
            "PRNTSIXASEVENA": "6A 7A Report Printing", "PRNTBRKUP": "BreakUp Data Printing",
            "PRNTBRKREP": "Broker Query Printing", "CONVERT": "Convert", "DELV": "Auc.Delv Statement Printing",
            "PRNTVQLS": "Kesto Printing", "PRNTNETPOS": "Kesto Net Position Printing", "PRNTORDLOG": "Order Log Printing",
            "PRNTQUOTELOG": "Quote Log Printing", "PRNTADMINLOG": "Admin Log Printing"}
    lines = run(desktop, folder, ["hover " + form for form in tips])
    expect("tooltips", of_kind(lines, "tooltip"), list(tips.values()))


def tooltip_shows_while_a_form_is_the_active_window(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT", "hover PRNTNP"])
    expect("tooltips", of_kind(lines, "tooltip"), ["NetPosition Printing"])


def button_of_a_form_that_cannot_be_made_stays_checked(desktop, folder):
    # In a copy of the program the resources of two forms have other names.
    def named(name):
        return bytes([len(name), 0]) + name.encode("utf-16-le")

    program = desktop.program
    desktop.program = os.path.join(folder, "quillon.exe")
    with open(desktop.program, "wb") as file:
        file.write(bytes_of(program).replace(named("AUCRPT"), named("AUCRPU")).replace(named("DELV"), named("DELW")))
    try:
        lines = run(desktop, folder, ["tool AUCRPT", "tool AUCRPT", "tool DELV"])
    finally:
        desktop.program = program
    # "Error" is the word of Windows for a box without a title.
    expect("boxes", [(box["title"], box["text"]) for box in of_kind(lines, "box")],
           [("Error", "Dialog Creation Failed")] * 2 + [("ERROR", "Error Creating Delivery Box")])
    expect("check states", of_kind(lines, "tools"), [{"AUCRPT": True}, {"DELV": True}])


def tab_order_is_reading_order(desktop, folder):
    # Radio groups are one stop each, at the checked button; the hidden output name is none.
    lines = run(desktop, folder, ["tool PRNTRPT"] + ["tab"] * 9)
    expect("focus", of_kind(lines, "focus"), [1030, 1016, 1012, 1020, 1057, 1015, 1200, 1027, 1199])


def escape_does_nothing(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT"] + LOAD + ["escape", "show"])
    expect("title", last_of(lines, "changed")["title"], "TRADES PRINTING - " + TRADE_FILE)
    expect("closings", of_kind(lines, "closed"), ["PRNTRPT"])  # at the end of the program


def enter_presses_the_focused_button_or_the_default_one(desktop, folder):
    # Load File is the default button of Touchlines, and after a load, when it is disabled, the focus is on Print.
    lines = run(desktop, folder, ["printer off", "tool PRNTTLINE", "press 1067", "choose export/TL010109.SAV", "enter", "enter"])
    expect("title of the dialog", last_of(lines, "files")["title"], "LOAD TOUCHLINE FILE")
    expect("boxes", [box["text"] for box in of_kind(lines, "box")], ["Error In Opening Output File"])
    # With the focus on an option, a default button that is disabled is not pressed.
    lines = run(desktop, folder, ["tool PRNTTLINE", "choose export/TL010109.SAV", "press 1204", "press 1067", "enter"])
    expect("open-file dialogs", len(of_kind(lines, "files")), 1)
    expect("boxes", of_kind(lines, "box"), [])
    # Trades has no default button. A click gives the focus, and Enter then presses the same button again.
    lines = run(desktop, folder, ["tool PRNTRPT", "press 1016", "enter", "press 1015", "enter"])
    expect("boxes", [box["text"] for box in of_kind(lines, "box")], ["The input file is required for processing."] * 2)


def box_gives_the_focus_back_to_the_button_that_brought_it(desktop, folder):
    # Without a file the form stays as it stands: what Tab then moves from is the Print button.
    lines = run(desktop, folder, ["tool PRNTRPT", "press 1015", "tab"])
    expect("boxes", [box["text"] for box in of_kind(lines, "box")], ["The input file is required for processing."])
    expect("focus", of_kind(lines, "focus"), [1200])


def refused_character_leaves_the_caret_where_it_was(desktop, folder):
    # The output name takes 12 characters. What comes after a refused 13th stands at the end of them, not at their front.
    lines = run(desktop, folder, ["tool PRNTRPT", "press 1011", "type 1013", "keys ABCDEFGHIJKLM<X", "show"])
    expect("output name", last_of(lines, "changed")["controls"]["1013"]["text"], "ABCDEFGHIJKX")


def edit_of_digits_refuses_all_else_typed_or_pasted(desktop, folder):
    lines = run(desktop, folder, ["tool AUCRPT", "type 1172", "keys 1a-2", "paste  3 x\u0663.4", "show", "paste none", "show"])
    expect("lines per page", [changed["controls"]["1172"]["text"] for changed in of_kind(lines, "changed")
                              if "1172" in changed.get("controls", {})][-2:], ["1234", "1234"])


def access_keys_press_load_and_print(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT", "choose export/" + TRADE_FILE, "mnemonic l", "show"])
    expect("title of the dialog", last_of(lines, "files")["title"], "LOAD TRADE FILE")
    expect("title", last_of(lines, "changed")["title"], "TRADES PRINTING - " + TRADE_FILE)
    lines = run(desktop, folder, ["tool PRNTRPT", "mnemonic p"])
    expect("box", last_of(lines, "box")["text"], "The input file is required for processing.")


def close_messages_leave_a_run_alone_and_the_session_waits(desktop, folder):
    # They come while the run waits for an answer. The form, the main window and the report are as if they had not come.
    run(desktop, folder, ["tool PRNTRPT"] + LOAD + TO_FILE + ["answer yes", "press 1015"])
    report = bytes_of(folder, "REPORT.TXT")
    os.remove(os.path.join(folder, "REPORT.TXT"))
    lines = run(desktop, folder, ["tool PRNTRPT"] + LOAD + TO_FILE + ["interrupt", "answer yes", "press 1015", "show"])
    expect("windows and session", of_kind(lines, "interrupted"), [{"windows": 2, "mayEnd": False}])
    expect("last box", last_of(lines, "box")["text"], "PRINTING COMPLETE")
    expect("the report is the same", bytes_of(folder, "REPORT.TXT") == report and len(report) > 0, True)
    expect("title afterwards", last_of(lines, "changed")["title"], "TRADES PRINTING")


def close_messages_leave_a_load_alone(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT", "interrupt"] + LOAD + ["show"])
    expect("windows and session", of_kind(lines, "interrupted"), [{"windows": 2, "mayEnd": False}])
    expect("title afterwards", last_of(lines, "changed")["title"], "TRADES PRINTING - " + TRADE_FILE)


def session_may_end_between_runs(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTRPT"] + LOAD + ["press 1200", "session"])
    expect("session", of_kind(lines, "session"), [True])


def open_file_dialog_begins_in_the_told_folder_wherever_the_user_was(desktop, folder):
    os.mkdir(os.path.join(folder, "other"))
    shutil.copy(os.path.join(folder, "export", TRADE_FILE), os.path.join(folder, "other", TRADE_FILE))
    lines = run(desktop, folder, ["tool PRNTRPT"] + ["choose other/" + TRADE_FILE, "press 1199", "press 1200"] * 2 + LOAD)
    expect("folders", [files["folder"] for files in of_kind(lines, "files")], ["export"] * 3)
    expect("names that it begins with", [files.get("name") for files in of_kind(lines, "files")], [None] * 3)


def dialogs_belong_to_the_form_that_brought_them(desktop, folder):
    lines = run(desktop, folder, ["tool PRNTNP", "tool PRNTRPT"] + LOAD + ["press 1015"])
    expect("owner of the open-file dialog", last_of(lines, "files")["owner"], "PRNTRPT")
    expect("owners of the boxes", {box["owner"] for box in of_kind(lines, "box")}, {"PRNTRPT"})


def letters_outside_windows_1252_are_refused_in_an_output_name(desktop, folder):
    # None of them is taken for the letter that looks like it.
    for name in ("\u0100B\u03a9.TXT", "\u0410.TXT", "\U0001f4c4.TXT", "\uff21.TXT"):
        lines = run(desktop, folder, ["tool PRNTRPT"] + LOAD + ["press 1011", "type 1013 " + name, "press 1015"])
        expect("box for " + name, last_of(lines, "box")["text"], "Invalid Characters in OutFile Name")
        expect("files left", sorted(os.listdir(folder)), ["export", "script"])


def printer_receives_the_report(desktop, folder):
    run(desktop, folder, ["tool PRNTRPT"] + LOAD + TO_FILE + ["press 1015"])
    lines = run(desktop, folder, ["printer PRINTED", "tool PRNTRPT"] + LOAD + ["press 1015"])
    expect("last box", last_of(lines, "box")["text"], "PRINTING COMPLETE")
    report = bytes_of(folder, "REPORT.TXT")
    expect("pages of the report", report.count(b"\x0c") > 0, True)
    expect("what was printed is what stands in the file", bytes_of(folder, "PRINTED") == report, True)


def make_large(folder):
    """The trade file with its records often enough for a report of several buffers, which a thread writes beside the work."""
    whole = bytes_of(folder, "export", TRADE_FILE)
    with open(os.path.join(folder, "export", TRADE_FILE), "wb") as file:
        file.write(whole[:24] + whole[24:] * (6000 * 132 // (len(whole) - 24) + 1))


def printer_receives_a_large_report(desktop, folder):
    make_large(folder)
    run(desktop, folder, ["tool PRNTRPT"] + LOAD + TO_FILE + ["press 1015"])
    lines = run(desktop, folder, ["printer PRINTED", "tool PRNTRPT"] + LOAD + ["press 1015"])
    expect("last box", last_of(lines, "box")["text"], "PRINTING COMPLETE")
    report = bytes_of(folder, "REPORT.TXT")
    expect("several buffers of it", len(report) > 3 * 256 * 1024, True)
    expect("what was printed is what stands in the file", bytes_of(folder, "PRINTED") == report, True)


def printer_receives_delivery_slips(desktop, folder):
    whole = bytes_of(folder, "export", "DELY0101.215")
    records = [whole[at:at + 256] for at in range(62, len(whole), 256)]
    lines = run(desktop, folder, ["printer PRINTED", "tool DELV", "choose export/DELY0101.215", "press 1211", "press 1212", "show"])
    expect("last box", [last_of(lines, "box")[key] for key in ("title", "text")], ["SUCCESS", "PRINTING COMPLETE"])
    expect("file still loaded", last_of(lines, "changed")["controls"]["1214"]["text"], "DELY0101.215")
    printed = bytes_of(folder, "PRINTED")
    expect("slips", printed.count(b"Auction Notice No.: 215"), sum(record[17:18] == b"B" for record in records))
    expect("lines", printed.count(b"\r\n"), 18 * ((len(records) + 1) // 2))


def nothing_to_deliver_goes_to_the_standard_output_where_there_is_one(desktop, folder):
    whole = bytes_of(folder, "export", "DELY0101.215")
    records = [whole[at:at + 256] for at in range(62, len(whole), 256)]
    with open(os.path.join(folder, "DELY0102.216"), "wb") as file:
        file.write(whole[:62] + b"".join(record for record in records if record[17:18] == b"O"))
    commands = ["printer PRINTED", "tool DELV", "choose DELY0102.216", "press 1211", "press 1212"]
    for options in ((), ("--stdout", "TOLD")):
        lines = run(desktop, folder, commands, options)
        expect("last box", [last_of(lines, "box")[key] for key in ("title", "text")], ["SUCCESS", "PRINTING COMPLETE"])
        expect("end", lines[-1], {"exit": 0})
    expect("standard output", bytes_of(folder, "TOLD"), b"No deliveries to be made for this auction \n")


def missing_printer_says_check_your_printer(desktop, folder):
    lines = run(desktop, folder, ["printer off", "tool PRNTRPT"] + LOAD + ["press 1015", "show"])
    box = last_of(lines, "box")
    expect("box", (box["text"], box["icon"]), ("Check Your Printer", "exclamation"))
    expect("nothing else was shown", len(of_kind(lines, "box")), 1)
    expect("files left", sorted(os.listdir(folder)), ["export", "script"])


def full_printer_says_that_the_report_was_not_written(desktop, folder):
    lines = run(desktop, folder, ["printer /dev/full", "tool PRNTRPT"] + LOAD + ["press 1015", "show"])
    box = last_of(lines, "box")
    expect("box", (box["title"], box["text"], box["icon"]), ("TRADES PRINTING", "Error In Writing Output File", "error"))
    replies = [changed["controls"]["1027"]["text"] for changed in of_kind(lines, "changed")
               if "1027" in changed.get("controls", {}) and "text" in changed["controls"]["1027"]]
    expect("on the Reply line", "Error In Writing Output File" in replies, True)
    expect("completion", "PRINTING COMPLETE" in [box["text"] for box in of_kind(lines, "box")], False)
    expect("title afterwards", last_of(lines, "changed")["title"], "TRADES PRINTING")


def full_printer_says_so_of_a_large_report(desktop, folder):
    make_large(folder)
    lines = run(desktop, folder, ["printer /dev/full", "tool PRNTRPT"] + LOAD + ["press 1015"])
    expect("box", [last_of(lines, "box")[key] for key in ("title", "text", "icon")],
           ["TRADES PRINTING", "Error In Writing Output File", "error"])
    expect("end", lines[-1], {"exit": 0})


def wide_names_reach_the_title(desktop, folder):
    name = "TR\u20ac\u0416\u4e2d.B01"  # in no single code page
    shutil.copy(os.path.join(folder, "export", TRADE_FILE), os.path.join(folder, "export", name))
    lines = run(desktop, folder, ["tool PRNTRPT", "choose export/" + name, "press 1199"] + TO_FILE + ["press 1015"])
    expect("title", [c["title"] for c in of_kind(lines, "changed") if "title" in c][1], "TRADES PRINTING - " + name)
    expect("last box", last_of(lines, "box")["text"], "PRINTING COMPLETE")


TESTS = [
    second_copy_ends_with_status_0_and_no_window,
    copy_with_more_rights_counts_as_running,
    frame_is_maximised_with_16_check_buttons_and_no_menu,
    toolbar_grows_on_a_finer_screen,
    button_follows_f1_twice_and_the_title_bar,
    every_key_reaches_its_tool,
    every_button_has_its_tooltip,
    tooltip_shows_while_a_form_is_the_active_window,
    button_of_a_form_that_cannot_be_made_stays_checked,
    tab_order_is_reading_order,
    escape_does_nothing,
    enter_presses_the_focused_button_or_the_default_one,
    box_gives_the_focus_back_to_the_button_that_brought_it,
    refused_character_leaves_the_caret_where_it_was,
    edit_of_digits_refuses_all_else_typed_or_pasted,
    access_keys_press_load_and_print,
    close_messages_leave_a_run_alone_and_the_session_waits,
    close_messages_leave_a_load_alone,
    session_may_end_between_runs,
    open_file_dialog_begins_in_the_told_folder_wherever_the_user_was,
    dialogs_belong_to_the_form_that_brought_them,
    letters_outside_windows_1252_are_refused_in_an_output_name,
    printer_receives_the_report,
    printer_receives_a_large_report,
    printer_receives_delivery_slips,
    nothing_to_deliver_goes_to_the_standard_output_where_there_is_one,
    missing_printer_says_check_your_printer,
    full_printer_says_that_the_report_was_not_written,
    full_printer_says_so_of_a_large_report,
    wide_names_reach_the_title,
]


def run_test(desktop, test):
    """What went wrong; empty where nothing did."""
    folder = wine_desktop.new_folder()
    try:
        shutil.copytree(SAMPLES, os.path.join(folder, "export"))
        test(desktop, folder)
    except (Failure, transcripts.NotATranscript, subprocess.TimeoutExpired, OSError) as error:
        return str(error)
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    return ""


def main():
    parser = argparse.ArgumentParser(description="Tests of what only the Windows program has.")
    parser.add_argument("--build", required=True, help="the build folder with quillon.exe and quillon-driver.exe")
    parser.add_argument("tests", nargs="*", metavar="TEST")
    options = parser.parse_args()
    chosen = [test for test in TESTS if not options.tests or test.__name__ in options.tests]
    failed = 0
    try:
        with wine_desktop.Desktop(options.build, prefix=wine_desktop.SECOND_PREFIX) as desktop:
            for test in chosen:
                problem = run_test(desktop, test)
                failed += bool(problem)
                print("%s %s%s" % ("FAILED" if problem else "passed", test.__name__, "\n  " + problem if problem else ""), flush=True)
    except wine_desktop.DesktopError as error:
        print(error)
        return 1
    print("%d of %d passed" % (len(chosen) - failed, len(chosen)))
    return 1 if failed or not chosen else 0


if __name__ == "__main__":
    sys.exit(main())
