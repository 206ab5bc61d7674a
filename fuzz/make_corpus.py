#!/usr/bin/env python3
"""Makes the seeds in fuzz/corpus from the samples: a file's bytes with a few bytes of choices behind them."""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "samples" / "export"
KEPT = 4096  # bytes of a sample; the whole of a small one

# target -> patterns of the samples that its form can load
FORMS = {
    "trades": ["TR*", "STR*", "TO*", "CT*"],
    "net_position": ["TR*", "CT*"],
    "slb_position": ["STR*"],
    "kesto_net_position": ["CT*"],
    "broker_query": ["B[Rrb]*", "BB*", "CB*"],
    "touchlines": ["*.SAV", "*.SSAV"],
    "auction": ["MONY*", "DELY*", "OFFS*", "CLBD*", "ENTL*"],
    "delivery": ["DELY*"],
    "admin_log": ["Ad[0-9]*.adl", "SAd*.adl"],
    "convert": ["TR*", "STR250509.B01", "BR*", "CT010109.B01", "BB*", "AD*", "OR*.LOG", "SOR*.LOG", "QO*.LOG", "BO250509.BIN",
                "SBO*", "Adel*", "TrdRect*"],
    "trader_limits": ["*.TRD", "*.TSL", "*.STRD", "*.STSL"],
    "sixa_sevena": ["*.UPD", "*.SUPD", "*.NUP", "*.SNUP"],
    "breakup": ["*.DAT"],
    "order_log": ["OR*.LOG", "SOR*.LOG", "BO*.BIN", "SBO*.BIN"],
    "quote_log": ["QO*.LOG"],
}
# The Kesto form has a list of kinds: the item by its place in the list, and the samples that it can load
KESTO = {0: ["CT*", "SCT*"], 1: ["*.VQT"], 2: ["CT250509.B01", "CB*"], 3: ["CB*", "SBB*"], 4: ["K*.DAT", "SK*.DAT"],
         5: ["K*.TRD", "K*.TSL", "K*.STRD"]}
# What stands at the end of an input, last byte first: name, pressed (4 bytes), answers, lines, fault kind and number, moves.
CHOICES = [
    bytes(10),
    bytes([4, 0, 0, 0, 0, 0, 255, 255, 255, 0]),
    bytes([6, 1, 0, 20, 1, 0x55, 0x55, 0x55, 0x55, 1]),
]

for target, patterns in FORMS.items():
    folder = ROOT / "fuzz" / "corpus" / target
    folder.mkdir(parents=True, exist_ok=True)
    for sample in sorted({p for pattern in patterns for p in SAMPLES.glob(pattern)}):
        for number, choices in enumerate(CHOICES):
            (folder / f"{sample.name}.{number}").write_bytes(sample.read_bytes()[:KEPT] + choices)

folder = ROOT / "fuzz" / "corpus" / "kesto"
folder.mkdir(parents=True, exist_ok=True)
for kind, patterns in KESTO.items():
    for sample in sorted({p for pattern in patterns for p in SAMPLES.glob(pattern)}):
        for number, choices in enumerate(CHOICES):
            (folder / f"{sample.name}.{kind}.{number}").write_bytes(sample.read_bytes()[:KEPT] + bytes([kind]) + choices)

commands = ROOT / "fuzz" / "corpus" / "commands"
commands.mkdir(parents=True, exist_ok=True)
for script in sorted((ROOT / "tests" / "scripts").glob("*/*/script")):
    (commands / f"{script.parent.parent.name}.{script.parent.name}").write_bytes(script.read_bytes()[:KEPT])

lines = ROOT / "fuzz" / "corpus" / "scan"
lines.mkdir(parents=True, exist_ok=True)
for sample in sorted(p for pattern in FORMS["touchlines"] + FORMS["trader_limits"] for p in SAMPLES.glob(pattern)):
    for number, line in enumerate(sample.read_bytes().splitlines()[:3]):
        (lines / f"{sample.name}.{number}").write_bytes(line)
values = ROOT / "fuzz" / "corpus" / "print"
values.mkdir(parents=True, exist_ok=True)
for number, text in enumerate([bytes(13), b"AMBARTEX" + bytes([0x40, 0x59, 0, 0, 0, 0, 0, 0, 0, 0x7B, 0, 0, 0]), bytes([255]) * 24]):
    (values / str(number)).write_bytes(text)

# Reports: the shortest approved ones of each folder, as they are written, with the bytes of choices ahead of them.
for target, ahead in (("pages", bytes([66, 200, 128])), ("pdf", bytes([10]))):
    folder = ROOT / "fuzz" / "corpus" / target
    folder.mkdir(parents=True, exist_ok=True)
    for reports in sorted(path for path in (ROOT / "tests" / "reports").iterdir() if path.is_dir()):
        for report in sorted(reports.glob("*.txt"), key=lambda path: (path.stat().st_size, path.name))[:3]:
            (folder / f"{reports.name}.{report.stem}").write_bytes(ahead + report.read_bytes().replace(b"\n", b"\r\n")[:KEPT])
    ends = b"a\r\r\nb\rc\r\n\x0c\x0c\ttab\n" + b"x" * 600 + b"\n" * 260 + b"\x0cend (1) \\ \xe9\x1a"
    (folder / "ends").write_bytes(ahead + ends)
