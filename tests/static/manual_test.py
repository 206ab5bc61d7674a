#!/usr/bin/env python3
"""manual.py on the real tree with one thing spoilt: each slip is found, and by the words that tell it."""

import os
import shutil
import tempfile
import unittest

import manual as tested

VERSION = "18.2"


class Pages(unittest.TestCase):
    """The pages of the tree, of which one is changed."""

    def setUp(self):
        self.pages = tested.read_pages(tested.ROOT)
        self.forms = tested.read_forms(tested.ROOT)
        self.pictures = tested.read_pictures(tested.ROOT)

    def change(self, name, old, new):
        self.assertIn(old, self.pages[name])
        self.pages[name] = self.pages[name].replace(old, new, 1)

    def expect(self, *problems):
        found = tested.problems_of_pages(tested.ROOT, self.pages)
        found += tested.problems_of_form_pages(self.pages, self.forms, self.pictures)
        found += tested.problems_of_which_form(tested.ROOT, self.pages, self.forms)
        for problem in problems:
            self.assertTrue(any(problem in text for text in found), "%s is not among %s" % (problem, found))
        self.assertEqual(len(found), len(problems), found)

    def test_tree_has_none(self):
        self.expect()

    def test_link_to_no_page_and_to_no_heading(self):
        self.change("auction", "](delivery-slips.md)", "](slips.md)")
        self.change("kesto", "](messages.md)", "](messages.md#nowhere)")
        self.expect("auction.md: the link to slips.md leads nowhere", "kesto.md: the link to messages.md#nowhere leads nowhere",
                    "kesto.md: no link to the messages")

    def test_link_in_code_is_none(self):
        self.pages["kesto"] += "\n    [a](b.md)\n\n`[a](b.md)`\n"
        self.expect()

    def test_link_that_names_a_file_to_its_reader(self):
        self.change("kesto", "[What does this message mean?](", "[messages.md](")
        self.expect("kesto.md: the link to messages.md has no words for a reader")

    def test_page_without_a_link(self):
        self.pages["another"] = "# Another\n"
        self.expect("another.md: docs/README.md has no link to it")

    def test_picture_that_is_not_there_that_nobody_shows_and_that_says_nothing(self):
        self.change("auction", "images/auction.png", "images/auctions.png")
        self.change("kesto", "![The Kesto form, set to broker queries]", "![]")
        self.expect("there is no picture images/auctions.png", "images/auction.png: no page shows it",
                    "auction.md: no picture of the form AUCRPT", "kesto.md: the picture images/kesto.png has no words")

    def test_key_of_a_form(self):
        self.change("README", "| [Auction](auction.md) | F3 |", "| [Auction](auction.md) | F4 |")
        self.expect("README.md: the forms with their keys are not those of the toolbar")

    def test_line_of_keys(self):
        self.change("auction", "**Alt+C** *CANCEL*", "**Alt+A** *CANCEL*")
        self.change("breakup-data", "**Enter** presses *Load File*", "**Enter** presses *Print*")
        self.change("trades", "**F1**", "**F2**")
        self.change("position", "**Ctrl+F2**", "**Ctrl+F3**")
        self.expect("auction.md: its line of keys", "breakup-data.md: its line of keys", "trades.md: its line of keys",
                    "position.md: its line of keys")

    def test_word_that_is_on_no_form(self):
        self.change("trades", "5. **Print Net Position**", "5. **Net Position**")
        self.expect("trades.md: \"Net Position\" is on no form of this page")

    def test_form_without_a_picture(self):
        del self.pictures["CONVERT"]
        self.expect("convert.md: no picture of the form CONVERT")


    def test_file_that_which_form_misses_leads_astray_or_makes_up(self):
        self.change("which-form", "| `MONY*.*` |", "| `MANY*.*` |")
        self.change("which-form", "[Touchlines](touchlines.md) (F4)", "[Trader Limits](trader-limits.md) (F4)")
        self.expect("nothing for mony*.* of auction", "MANY*.* is shown by no form of its row", "nothing for *.SAV of touchlines",
                    "nothing for *.SSAV of touchlines", "*.SAV is shown by no form", "*.SSAV is shown by no form",
                    "the key of trader-limits is not F4")


class WithoutCode(unittest.TestCase):
    def test_blocks_go_and_list_items_stay(self):
        self.assertEqual(tested.without_code("a\n\n    b\n\n- c\n\n    d `e`\n\n        f\ng"), "a\n\n\n- c\n\n    d \n\ng")


class OfGuide(unittest.TestCase):
    """A small guide of two pages, of which something is changed."""

    PAGES = {"README": "# Start\n\nSee [one](one.md).\n", "one": "# One\n\n1. Press `A|B`.\n\n![A picture of it](images/one.png)\n"}
    GUIDE = """<!DOCTYPE html><html lang="en"><head><meta http-equiv="Content-Security-Policy" content="default-src 'none'">
<title>Quillon 18.2: Guide</title><style>a {}</style></head><body><nav><a href="#start">Start</a><a href="#one">One</a></nav><main>
<section id="start"><h2>Start</h2><p class="on-page">On this page: <a href="#one.x">X</a></p><p>See <a href="#one">one</a>.</p></section>
<section id="one"><h2>One</h2><ol><li id="one.x">Press <code>A|B</code>.</li></ol>
<p><img src="data:image/png;base64,AA==" alt="A picture of it" /></p><div class="table"><table></table></div></section>
</main></body></html>"""

    def expect(self, old, new, *problems):
        self.assertIn(old, self.GUIDE)
        found = tested.problems_of_guide(self.GUIDE.replace(old, new), self.PAGES, VERSION)
        for problem in problems:
            self.assertTrue(any(problem in text for text in found), "%s is not among %s" % (problem, found))
        self.assertEqual(len(found), len(problems), found)

    def test_whole_guide_has_none(self):
        self.expect("", "")

    def test_link_that_leads_nowhere(self):
        self.expect('See <a href="#one">', 'See <a href="#two">', "the link to #two leads nowhere")
        self.expect('See <a href="#one">', 'See <a href="one.md">', "the link to one.md leads nowhere")

    def test_page_that_is_left_out_or_not_whole(self):
        self.expect('<section id="one">', "<section>", "#one leads nowhere", "#one leads nowhere", "one.md is not in the guide word for word")
        self.expect("<code>A|B</code>", "<code>A</code>", "one.md is not in the guide word for word")
        self.expect('<a href="#one">One</a></nav>', "</nav>")  # the text has a link to it still
        self.expect('<a href="#start">Start</a>', "", "README.md is not in the contents")

    def test_picture_from_outside_without_words_or_left_out(self):
        self.expect("data:image/png;base64,AA==", "https://example.org/a.png", "a picture is not inside the guide")
        self.expect("data:image/png;base64,AA==", "images/one.png", "a picture is not inside the guide")
        self.expect('alt="A picture of it"', 'alt=""', "a picture is not inside the guide, or has no words")
        self.expect('<img src="data:image/png;base64,AA==" alt="A picture of it" />', "", "shows 0 pictures, the pages 1")

    def test_what_would_run_or_load_something(self):
        self.expect("</main>", "<script></script></main>", "more than text, pictures and style")
        self.expect("<title>", '<link rel="stylesheet" href="a.css"><title>', "more than text, pictures and style")
        self.expect("a {}", "a { background: url(a.png) }", "style may load something")
        self.expect("default-src 'none'", "default-src *", "style may load something")

    def test_language_title_wide_table_and_folder_of_a_machine(self):
        self.expect('lang="en"', "", "the guide's language is None")
        self.expect("18.2", "18.1", "its title Quillon 18.1: Guide")
        self.expect('<div class="table">', "<div>", "1 tables can be wider than the page")
        self.expect("<!DOCTYPE html>", "<!-- /home/me/docs -->", "names a folder of a machine: /home/")

    def test_id_that_stands_there_twice(self):
        self.expect("<h2>One</h2>", '<h2 id="one.x">One</h2>', "the id one.x stands there twice")


class Maker(unittest.TestCase):
    """tools/manual itself on a copy of the pages with one slip: it tells the slip, and leaves nothing."""

    def refuse(self, name, text, *words):
        with tempfile.TemporaryDirectory() as folder:
            for path in ("docs", "tools"):
                shutil.copytree(os.path.join(tested.ROOT, path), os.path.join(folder, path))
            shutil.copy(os.path.join(tested.ROOT, "CMakeLists.txt"), folder)
            with open(os.path.join(folder, "docs", name), "a", encoding="utf-8") as file:
                file.write(text)
            guide, told = tested.make_guide(folder)
            self.assertIsNone(guide)
            self.assertEqual(len(told), len(words), told)
            for word, line in zip(words, told):
                self.assertIn(word, line)

    def test_links_and_pictures_that_lead_nowhere(self):
        self.refuse("kesto.md", "\n[a](b.md) [a](messages.md#nowhere) [a](../README.md)\n\n![](images/none.png)\n", "b.md leads nowhere",
                    "messages.md#nowhere leads nowhere", "../README.md leads nowhere", "no words for who cannot see it",
                    "there is no picture images/none.png")

    def test_page_without_a_link(self):
        self.refuse("another.md", "# Another\n", "docs/another.md: docs/README.md has no link to it")

    def test_page_with_two_titles(self):
        self.refuse("kesto.md", "\n# Another\n", "more than one heading of the first level")


if __name__ == "__main__":
    unittest.main()
