#!/usr/bin/env python3
"""Slips in formats that must not compile, each with a twin that must.

A slip has to be refused with the words that tell its writer what is wrong; a fragment that fails for another reason is
caught by its twin. With --list the names are printed, one a line.
"""
import argparse
import subprocess
import sys

# name, the slip, its twin, what the compiler must say
FRAGMENTS = [
    ("print_tooFewArguments", 'print<"%s%7ld\\n">(out, "Broker Id. :");', 'print<"%s%7ld\\n">(out, "Broker Id. :", 7);',
     "the format has more conversions than there are arguments"),
    ("print_noArguments", 'print<"%d">(out);', 'print<"no conversion">(out);',
     "the format has more conversions than there are arguments"),
    ("print_tooManyArguments", 'print<"%s\\n">(out, "a", 7);', 'print<"%s%d\\n">(out, "a", 7);',
     "there are more arguments than the format has conversions"),
    ("print_argumentForAVanishingPercent", 'print<"%1c%\\n">(out, \'|\', \'|\');', 'print<"%1c%\\n">(out, \'|\');',
     "there are more arguments than the format has conversions"),
    ("print_textForANumber", 'print<"%ld">(out, "7");', 'print<"%ld">(out, 7);',
     "%d, %ld and %hd take a whole number of at most 32 bits"),
    ("print_fieldForANumber", 'print<"%ld">(out, record.text);', 'print<"%s">(out, record.text);',
     "%d, %ld and %hd take a whole number of at most 32 bits"),
    ("print_doubleForANumber", 'print<"%9ld">(out, record.real);', 'print<"%9.2f">(out, record.real);',
     "%d, %ld and %hd take a whole number of at most 32 bits"),
    ("print_64BitsForA32BitNumber", 'print<"%ld">(out, record.wide);', 'print<"%I64d">(out, record.wide);',
     "%d, %ld and %hd take a whole number of at most 32 bits"),
    ("print_numberForADouble", 'print<"%.2f">(out, record.number);', 'print<"%.2f">(out, record.number / 100.0);',
     "%f and %lf take a double"),
    ("print_doubleFor64Bits", 'print<"%I64d">(out, record.real);', 'print<"%I64d">(out, record.number);',
     "%I64d takes a whole number"),
    ("print_numberForAText", 'print<"%11s">(out, record.number);', 'print<"%11s">(out, record.text);', "%s takes a text"),
    ("print_characterForAText", 'print<"%1s">(out, record.letter);', 'print<"%1c">(out, record.letter);', "%s takes a text"),
    ("print_textForACharacter", 'print<"%1c">(out, "|");', 'print<"%1c">(out, \'|\');', "%c and %lc take a character"),
    ("print_doubleForACharacter", 'print<"%c">(out, 1.0);', 'print<"%c">(out, 124);', "%c and %lc take a character"),
    ("print_truthForANumber", 'print<"%d">(out, true);', 'print<"%d">(out, true ? 1 : 0);',
     "%d, %ld and %hd take a whole number of at most 32 bits"),
    ("print_unknownLetter", 'print<"%x">(out, 7);', 'print<"%%x">(out);', "the format has a conversion that the reports do not use"),
    ("print_widthByArgument", 'print<"%*d">(out, 5, 7);', 'print<"%5d">(out, 7);',
     "the format has a conversion that the reports do not use"),
    ("print_zerosBeforeAText", 'print<"%05s">(out, "a");', 'print<"%5s">(out, "a");',
     "the format has a flag that means nothing for %c or %s"),
    ("print_widthOutOfReason", 'print<"%1000d">(out, 7);', 'print<"%100d">(out, 7);',
     "the format has a width or precision above 512"),
    ("formatText_tooFewArguments", 'formatText<"%d">();', 'formatText<"%d">(1);',
     "the format has more conversions than there are arguments"),
    ("formatCell_textOfUnknownLength", 'formatCell<"%s">("a");', 'formatCell<"%s">(record.text);',
     "formatCell takes no text of unknown length"),
    ("scan_tooFewFields", 'scan<"%ld|%ld">("1|2", number);', 'scan<"%ld|%ld">("1|2", number, number);',
     "the format has more conversions than there are fields"),
    ("scan_tooManyFields", 'scan<"%ld">("1|2", number, number);', 'scan<"%ld|%ld">("1|2", number, number);',
     "there are more fields than the format has conversions"),
    ("scan_numberIntoAText", 'scan<"%ld">("1", text);', 'scan<"%[^|]">("1", text);', "%d and %ld fill a std::int32_t"),
    ("scan_textIntoANumber", 'scan<"%[^|]">("1", number);', 'scan<"%ld">("1", number);', "%[ fills a TextField"),
    ("scan_textIntoPlainCharacters", 'scan<"%[^|]">("1", plain);', 'scan<"%[^|]">("1", text);', "%[ fills a TextField"),
    ("scan_32BitsInto64", 'scan<"%ld">("1", wide);', 'scan<"%I64d">("1", wide);', "%d and %ld fill a std::int32_t"),
    ("scan_characterIntoANumber", 'scan<"%c">("1", number);', 'scan<"%c">("1", letter);', "%c fills a char"),
    ("scan_unknownConversion", 'scan<"%s">("1", text);', 'scan<"%F[^|]">("1", text);',
     "the format has a conversion that the reports do not use"),
    ("scan_openSet", 'scan<"%[^|">("1", text);', 'scan<"%[^|]">("1", text);', "the format has a %[ without its ]"),
]

AROUND = """
#include "text/print.h"
#include "text/scan.h"
using namespace quillon;
struct Record {{ TextField<12> text; std::int32_t number; std::int64_t wide; double real; char letter; }};
void fragment(Output& out, const Record& record) {{
  static_cast<void>(out), static_cast<void>(record);
  [[maybe_unused]] TextField<12> text;
  [[maybe_unused]] std::int32_t number;
  [[maybe_unused]] std::int64_t wide;
  [[maybe_unused]] char letter;
  [[maybe_unused]] char plain[12];
  {fragment}
}}
"""


def compiled(options, fragment):
    command = [options.compiler, "-std=c++20", "-fsyntax-only", "-I", options.include, "-x", "c++", "-"]
    done = subprocess.run(command, input=AROUND.format(fragment=fragment), capture_output=True, text=True, check=False)
    return done.returncode == 0, done.stderr


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--compiler", default="c++")
    parser.add_argument("--include", default="src")
    parser.add_argument("name", nargs="?")
    options = parser.parse_args()
    if options.list:
        print("\n".join(name for name, *_ in FRAGMENTS))
        return 0
    found = [row for row in FRAGMENTS if row[0] == options.name]
    if len(found) != 1:
        print(f"{options.name}: no such fragment")
        return 1
    _, slip, twin, words = found[0]
    good, said = compiled(options, twin)
    if not good:
        print(f"must compile and does not: {twin}\n{said}")
        return 1
    good, said = compiled(options, slip)
    if good:
        print(f"must not compile and does: {slip}")
        return 1
    if words not in said:
        print(f"is refused with other words than \"{words}\": {slip}\n{said}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
