#!/usr/bin/env python3
"""texts_in_transcripts.py on small sources and transcripts made here: what it finds, and what it misses on purpose."""

import json
import unittest

import texts_in_transcripts as tested

SOURCE = r'''
#include "a header's name"
namespace quillon {
// "a comment"
/* "another" */
static constexpr char title[] = "One";
static constexpr char joined[] = "Two\n"
                                 "parts \"x\"";
static constexpr const char* list[] = {"Three", "Four"};
static constexpr StreamTexts texts = {.title = title, .noInput = {"Five", nullptr}};
const Tool tool = {.title = "Six", .words = {.end = "a page's text", .other = {"nested"}}, .last = "Seven"};
static bool refuse(FormHandle form, const char* text, int icon = 5);
static int number = 3;
static void onPrint(FormHandle form) {
  static constexpr char inside[] = "Eight";
  const int size = sizeof("neither");
  if (size) boxShow(form, nullptr, size > 3 ? "Nine" : "Ten", BoxIcon::error);
  boxShow(form, title, formatText<"%d rows">(3), BoxIcon::none);
  open("not shown");
}
}  // namespace quillon
'''


class TextsOfFile(unittest.TestCase):
    def test_tables_constants_and_calls_are_found(self):
        self.assertEqual(tested.texts_of_file(SOURCE), [
            ("title", "One"), ("joined", 'Two\nparts "x"'), ("list", "Three"), ("list", "Four"), ("texts", "Five"),
            ("tool", "Six"), ("tool", "Seven"), ("", "Nine"), ("", "Ten"), ("inside", "Eight")])


class IsShown(unittest.TestCase):
    def test_text_is_shown_whole_or_goes_on(self):
        shown = {"PRINTING - TR.B01", "Error in Reading File"}
        self.assertTrue(tested.is_shown("Error in Reading File", shown))
        self.assertFalse(tested.is_shown("Error", shown))
        self.assertTrue(tested.is_shown("PRINTING - ", shown))
        self.assertTrue(tested.is_shown("PRINTING -", shown))
        self.assertFalse(tested.is_shown("PRINTING", shown))
        self.assertFalse(tested.is_shown("LOADING - ", shown))

    def test_text_is_shown_as_a_line_of_a_longer_one_or_behind_a_colon(self):
        shown = {"File Name : QO.B01\n\nFile Type : Quote Log File\n\nIs it Correct?\n"}
        self.assertTrue(tested.is_shown("Quote Log File", shown))
        self.assertTrue(tested.is_shown("Is it Correct?", shown))
        self.assertFalse(tested.is_shown("Log File", shown))
        self.assertFalse(tested.is_shown("Quote Log", shown))

    def test_strings_of_a_line_are_taken_wherever_they_stand(self):
        line = json.loads('{"changed":{"form":"F","controls":{"1":{"text":"a","items":["b"]}}}}')
        self.assertEqual(set(tested.strings_in(line)), {"F", "a", "b"})


if __name__ == "__main__":
    unittest.main()
