#!/usr/bin/env python3
"""messages_page.py on a small source and page made here, and on the real page with a row removed or misspelt."""

import os
import unittest

import messages_page as tested

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")

SOURCE = r'''
static constexpr char boxTitle[] = "A BOX";
static constexpr char inProgress[] = "Printing in Progress...";
static constexpr char complete[] = " PRINTING COMPLETED !!";
static constexpr char lost[] = "The list was not printed.";
static constexpr char blank[] = " ";
static constexpr char listType[] = "Trade File";
static constexpr StreamTexts texts = {.title = "ANOTHER BOX", .noInput = {"No file! \nLoad it", nullptr}};
static void onPrint(FormHandle form) {
  const std::string text = formatText<"%d rows\n%s">(3, "Go on?");
  boxShow(form, boxTitle, lines > 3 ? "Too many " : "Too few", BoxIcon::error);
}
'''

MESSAGES = {"No file": {"Trades", "Auction"}, "No trades.": {"Trades"}, "No window": {"main window"}}
HEAD = "| message | shows on | what to do |\n|---|---|---|\n"
ROWS = ["| `No file` | every form | Load one. |\n", "| `No trades.` | Trades | Load another. |\n",
        "| `No window` | main window | Start anew. |\n"]


class MessagesOf(unittest.TestCase):
    def test_failures_and_questions_are_found_and_nothing_else(self):
        found, _ = tested.messages_of("src/a/a_form.cpp", SOURCE)
        self.assertEqual([text for _, text in found],
                         ["The list was not printed.", "No file! \nLoad it", "Too many ", "Too few", "Go on?"])

    def test_shared_text_is_a_form_s_where_the_form_can_show_it(self):
        self.assertTrue(tested.shows_shared("sameFileText", ".sameFile = {sameFileText}"))
        self.assertFalse(tested.shows_shared("sameFileText", ".sameFile = {}"))
        self.assertTrue(tested.shows_shared("writeFailedText", "showEndOfRun(form);"))
        self.assertFalse(tested.shows_shared("checkPrinterText", "PrinterTest::never, {checkPrinterText}"))
        self.assertTrue(tested.shows_shared("checkPrinterText", "PrinterTest::anyCase, {checkPrinterText}"))

    def test_text_on_the_page_has_a_sign_for_its_line_feeds(self):
        self.assertEqual(tested.on_page(" No file! \nLoad  it "), "No file! ⏎ Load  it")


class IsTold(unittest.TestCase):
    def expect(self, told, text, icon, title=None):
        self.assertEqual(tested.is_told({"text": text, "icon": icon, "title": title}, MESSAGES), told)

    def test_box_of_a_failure_or_a_question_must_be_a_message(self):
        self.expect(True, "No file", "error")
        self.expect(False, "No files", "error")
        self.expect(False, "No files", "exclamation")
        self.expect(True, "Records: 3\n\nNo file\n", "question")
        self.expect(True, "Records: 3", "question", "No file")
        self.expect(False, "Records: 3", "question", "A BOX")

    def test_other_boxes_need_be_none(self):
        self.expect(True, "Records: 3", "information")
        self.expect(True, " PRINTING COMPLETED", "exclamation")


class ProblemsOf(unittest.TestCase):
    def expect(self, page, *problems):
        self.assertEqual(tested.problems_of(HEAD + page, MESSAGES), list(problems))

    def test_whole_page_has_none(self):
        self.expect("".join(ROWS))
        self.expect("| `No file` | Auction, Trades | Load one. |\n" + ROWS[1] + ROWS[2])

    def test_missing_row_is_told(self):
        self.expect(ROWS[0] + ROWS[2], "`No trades.` (Trades) is not on the page")

    def test_text_that_no_source_has_is_told(self):
        self.expect(ROWS[0] + "| `No trade`, `No trades.` | Trades | Load another. |\n" + ROWS[2],
                    "`No trade` stands on the page and is no message of any source")

    def test_wrong_forms_are_told(self):
        self.expect("| `No file` | every form but Auction | Load one. |\n" + ROWS[1] + ROWS[2],
                    "`No file` shows on Auction, Trades; the page says: every form but Auction")

    def test_wrong_order_is_told(self):
        self.expect(ROWS[1] + ROWS[0] + ROWS[2], "`No file` stands behind `No trades.`")

    def test_text_that_stands_twice_is_told(self):
        self.expect(ROWS[0] + ROWS[0] + ROWS[1] + ROWS[2], "`No file` stands on the page twice")

    def test_row_without_advice_is_told(self):
        self.expect(ROWS[0] + "| `No trades.` | Trades | |\n" + ROWS[2], "`No trades.` has no advice")


class RealPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.messages, problems = tested.read_messages(FOLDER)
        assert not problems, problems
        with open(os.path.join(FOLDER, tested.PAGE), encoding="utf-8") as file:
            cls.lines = file.read().splitlines()
        cls.rows = [number for number, line in enumerate(cls.lines) if tested.rows_of(line)]
        assert cls.rows

    def problems_with(self, number, line):
        return tested.problems_of("\n".join(self.lines[:number] + [line] + self.lines[number + 1:]), self.messages)

    def test_every_row_is_missed_when_it_is_gone(self):
        for number in self.rows:
            self.assertTrue(self.problems_with(number, ""), self.lines[number])

    def test_every_text_is_missed_when_it_is_misspelt(self):
        for number in self.rows:
            for text in tested.rows_of(self.lines[number])[0][0]:
                misspelt = self.lines[number].replace("`%s`" % text, "`%sx`" % text)
                self.assertTrue(self.problems_with(number, misspelt), text)


if __name__ == "__main__":
    unittest.main()
