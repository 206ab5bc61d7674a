#!/usr/bin/env python3
"""Holds the pages of docs/ together, against the program's forms, and the guide that tools/manual makes of them against the pages.

    manual.py [FOLDER]

Of the pages: every link and picture leads somewhere, every picture is shown and has words for who cannot see it, README.md has a
link to every page. Of a form's page: it stands in README.md's table where the toolbar has the form, with its key; it shows the
picture that tools/pictures takes of it; its line of keys is what the resources say; the words in bold under "Working the form" are
words of the form; it has a link to the messages. Of which-form.md: it has every file that an open-file dialog shows, with its form
and the form's key, and no other. Of the guide: it has every page, word for word, and all that the pages show; its
links lead somewhere, it needs nothing from outside, names no folder of a machine, and comes out the same twice.
"""

import fnmatch
import html.parser
import importlib.machinery
import importlib.util
import os
import re
import subprocess
import sys
import tempfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")

MACHINE = re.compile(r"/(?:home|root|work|tmp|Users)/|\bfile://|\b[A-Z]:\\(?:Users|Documents)")
# Words in bold that are answers and names, and not on the form.
NO_LABELS = {"Yes", "No"}


def read(folder, path):
    with open(os.path.join(folder, path), encoding="utf-8") as file:
        return file.read()


def read_pages(folder):
    """{name: text} of docs/."""
    names = sorted(name for name in os.listdir(os.path.join(folder, "docs")) if name.endswith(".md"))
    return {name[:-3]: read(folder, "docs/" + name) for name in names}


# ---- The pages ---------------------------------------------------------------------------------------------------------

def without_code(text):
    """The page without what is shown as it stands: blocks of code, and code within a line."""
    lines, in_list, fenced = [], False, False
    for line in text.split("\n"):
        if line.lstrip().startswith("```"):
            fenced = not fenced
            continue
        indent = len(line) - len(line.lstrip())
        if re.match(r"(?:[-*]|\d+\.) ", line.lstrip()):
            in_list = True
        elif line and indent == 0:
            in_list = False
        if not fenced and (indent < 4 or (in_list and indent < 8)):
            lines.append(line)
    return re.sub(r"`[^`]*`", "", "\n".join(lines))


def headings(text):
    """The anchors of a page, as a page's reader makes them of its headings."""
    anchors = []
    for line in re.findall(r"(?m)^#+ (.*)$", text):
        anchor = re.sub(r"[^\w\- ]", "", line.strip().lower()).replace(" ", "-")
        number = sum(1 for known in anchors if re.fullmatch(re.escape(anchor) + r"(-\d+)?", known))
        anchors.append(anchor + ("-%d" % number if number else ""))
    return anchors


def links_of(text):
    """[(words, target)] of the links of a page, and the same of its pictures."""
    found = re.findall(r"(!?)\[([^\]]*)\]\(([^)\s]*)\)", without_code(text))
    return ([(shown, target) for sign, shown, target in found if not sign],
            [(shown, target) for sign, shown, target in found if sign])


def problems_of_pages(folder, pages):
    problems, shown, linked = [], set(), {"README"}
    for name, text in pages.items():
        links, pictures = links_of(text)
        for words, target in links:
            if re.match(r"https?://", target):
                continue
            path, _, anchor = target.partition("#")
            page = path[:-3] if path.endswith(".md") else name if not path else None
            if page not in pages or (anchor and anchor not in headings(pages[page])):
                problems.append("docs/%s.md: the link to %s leads nowhere" % (name, target))
            if name == "README":
                linked.add(page)
            if not words.strip() or words.endswith(".md"):  # the guide has no such files
                problems.append("docs/%s.md: the link to %s has no words for a reader" % (name, target))
        for words, target in pictures:
            shown.add(target)
            if not os.path.isfile(os.path.join(folder, "docs", target)):
                problems.append("docs/%s.md: there is no picture %s" % (name, target))
            if len(words.split()) < 3:
                problems.append("docs/%s.md: the picture %s has no words for who cannot see it" % (name, target))
    problems += ["docs/%s.md: docs/README.md has no link to it" % name for name in pages if name not in linked]
    problems += ["docs/images/%s: no page shows it" % name for name in sorted(os.listdir(os.path.join(folder, "docs", "images")))
                 if "images/" + name not in shown]
    return problems


# ---- The forms ---------------------------------------------------------------------------------------------------------

def plain(label):
    return re.sub(r"\s+", " ", label.replace("&", "")).strip().rstrip(":. ")


def read_forms(folder):
    """[form] in the order of the toolbar: its resource, key, labels, access keys and the button that Enter presses."""
    resources = read(folder, "resources/quillon.rc")
    keys = {}
    for key, number, more in re.findall(r"VK_(F\d+),\s*(\d+),\s*VIRTKEY((?:, *\w+)*)", resources):
        names = {"CONTROL": "Ctrl", "SHIFT": "Shift", "ALT": "Alt"}
        keys[number] = "+".join([names[word] for word in re.findall(r"\w+", more)] + [key])
    numbers = dict(re.findall(r"\b(tool\w+) = (\d+)", read(folder, "src/frame/tools.h")))
    dialogs = {}
    for path in re.findall(r'#include "(forms/\w+\.rc)"', resources):
        text = read(folder, "resources/" + path)
        dialogs[re.search(r"(?m)^(\w+) DIALOGEX", text)[1]] = text
    forms = []
    for tool, form in re.findall(r'\{(tool\w+),\s*\d+, "[^"]*",\s*"(\w+)"\}', read(folder, "src/frame/tools.cpp")):
        labels = re.findall(r'CONTROL "([^"]+)"', dialogs[form])
        entered = re.search(r'CONTROL "([^"]+)", \w+, "BUTTON", BS_DEFPUSHBUTTON', dialogs[form])
        forms.append({
            "form": form, "key": keys.get(numbers[tool], ""), "labels": {plain(label) for label in labels},
            "access": {"Alt+" + re.search("&(.)", label)[1].upper(): plain(label) for label in labels if "&" in label},
            "enter": plain(entered[1]) if entered else None})
    return forms


def read_pictures(folder):
    """{form: [pictures]} as tools/pictures takes them."""
    loader = importlib.machinery.SourceFileLoader("pictures", os.path.join(folder, "tools", "pictures"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("pictures", loader))
    loader.exec_module(module)
    pictures = {}
    for name, (form, _) in module.PICTURES.items():
        pictures.setdefault(form, []).append("images/%s.png" % name)
    return pictures


def rows_of_forms(readme):
    """[(page, key)] of the table of forms."""
    return re.findall(r"(?m)^\| \[[^\]]+\]\(([\w-]+)\.md\) \| *([\w+]*) *\|", readme)


def keys_told(page):
    """What the line of keys says: the keys that open, the access keys with their buttons, the button that Enter presses."""
    line = re.search(r"(?ms)^\*\*Keys\*\*: (.*?)\n\n", page + "\n\n")
    text = re.sub(r"\s+", " ", line[1]) if line else ""
    opening = set(re.findall(r"\*\*((?:\w+\+)?F\d+)\*\*", text))
    access = dict(re.findall(r"\*\*(Alt\+\w)\*\* (?:presses )?\*([^*]+)\*", text))
    enter = re.search(r"\*\*Enter\*\* presses \*([^*]+)\*", text)
    return opening, access, enter[1] if enter else None


def section_of(page, heading):
    match = re.search(r"(?ms)^## %s\n(.*?)(?=^## |\Z)" % re.escape(heading), page)
    return match[1] if match else None


def problems_of_form_pages(pages, forms, pictures):
    problems = []
    rows = rows_of_forms(pages["README"])
    if [key for _, key in rows] != [form["key"] for form in forms]:
        problems.append("docs/README.md: the forms with their keys are not those of the toolbar: %s" %
                        [form["key"] or form["form"] for form in forms])
        return problems
    for name in dict(rows):
        text = pages.get(name)
        if text is None:
            continue  # told as a link
        own = [form for form, (page, _) in zip(forms, rows) if page == name]
        at = "docs/%s.md: " % name
        shown = {target for _, target in links_of(text)[1]}
        for form in own:
            if not shown & set(pictures.get(form["form"], [])):
                problems.append(at + "no picture of the form %s that tools/pictures takes" % form["form"])
        opening, access, enter = keys_told(text)
        if opening != {form["key"] for form in own} - {""} or any(access != form["access"] or enter != form["enter"] for form in own):
            problems.append(at + "its line of keys is not %s, Enter %s" % (
                {form["key"]: form["access"] for form in own}, own[0]["enter"]))
        steps = section_of(text, "Working the form")
        if not steps:
            problems.append(at + "nothing under \"Working the form\"")
        labels = set().union(*(form["labels"] for form in own)) | NO_LABELS
        for word in re.findall(r"\*\*([^*]+)\*\*", steps or ""):
            if plain(word) not in labels:
                problems.append(at + "\"%s\" is on no form of this page" % re.sub(r"\s+", " ", word))
        if "](messages.md)" not in (section_of(text, "When something is wrong") or ""):
            problems.append(at + "no link to the messages under \"When something is wrong\"")
    return problems


# ---- Which form prints my file? ----------------------------------------------------------------------------------------

# Whose page a choice of a file belongs to. What Convert takes is told below the table.
PAGES_OF_LOADS = {
    "loadTrades": "trades", "loadNetPosition": "position", "loadSlbPosition": "position", "loadTouchlines": "touchlines",
    "loadTraderLimits": "trader-limits", "load6A7A": "6a7a", "loadBreakup": "breakup-data", "loadBrokerQuery": "broker-query",
    "loadAuction": "auction", "loadDelivery": "delivery-slips", "loadOrderLog": "order-log", "loadQuoteLog": "quote-log",
    "loadAdminLog": "admin-log", "loadConvert": "convert", "loadKestoConvert": "convert", "loadKestoTrades": "kesto",
    "loadKestoTouchlines": "kesto", "loadKestoBrokerQuery": "kesto", "loadKestoBreakup": "kesto", "loadKestoTraderLimits": "kesto",
    "loadKestoNetPosition": "kesto-net-position",
}


def read_masks(folder):
    """{page: masks} that the open-file dialogs of its forms show, without "All Files"."""
    strings = dict(re.findall(r'(?m)^  (\d+) "([^"]*)"', read(folder, "resources/quillon.rc")))
    masks = {}
    for load, number in re.findall(r'\{(load\w+),\s*LoadVariant::\w+,\s*"[^"]*",\s*(\d+),', read(folder, "src/frame/file_selection.cpp")):
        masks.setdefault(PAGES_OF_LOADS[load], set()).update(set(strings[number].split("|")[1::2]) - {"*.*"})
    return masks


def problems_of_which_form(folder, pages, forms):
    """Every mask has a row with its form, and every name in a row is shown by one of the row's forms."""
    def fits(name, mask):
        return fnmatch.fnmatchcase(name.upper().replace("NN", "01"), mask.upper())

    problems, masks = [], read_masks(folder)
    rows = [(re.findall(r"`([^`]+)`", cells[1]), set(re.findall(r"\]\(([\w-]+)\.md\)", cells[3])))
            for cells in (line.split("|") for line in pages["which-form"].split("\n")) if len(cells) == 5]
    for page in masks:
        for mask in sorted(masks[page]):
            if not any(fits(name, mask) and (page in linked or page == "convert") for names, linked in rows for name in names):
                problems.append("docs/which-form.md: nothing for %s of %s" % (mask, page))
    for names, linked in rows:
        for name in names:
            if not any(fits(name, mask) for page in linked for mask in masks.get(page, ())):
                problems.append("docs/which-form.md: %s is shown by no form of its row" % name)
    keys = {}
    for form, (page, _) in zip(forms, rows_of_forms(pages["README"])):
        keys.setdefault(page, set()).add(form["key"])
    for page, key in re.findall(r"\]\(([\w-]+)\.md\) \(([\w+]*F\d+)\)", pages["which-form"]):
        if key not in keys.get(page, ()):
            problems.append("docs/which-form.md: the key of %s is not %s" % (page, key))
    return problems


# ---- The guide ---------------------------------------------------------------------------------------------------------

class Guide(html.parser.HTMLParser):
    """What the guide holds: ids, links, pictures, the words of each page."""

    EMPTY = {"meta", "img", "br", "hr", "col", "link"}
    WITHIN_A_LINE = {"a", "code", "em", "strong"}

    def __init__(self):
        super().__init__()
        self.ids, self.links, self.pictures, self.tags, self.language, self.style = [], [], [], set(), None, ""
        self.open, self.pages, self.title, self.wide, self.policy = [], {}, "", 0, ""

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.tags.add(tag)
        if tag not in self.WITHIN_A_LINE:
            self.handle_data(" ")
        if "id" in values:
            self.ids.append(values["id"])
        if tag == "html":
            self.language = values.get("lang")
        if tag == "meta" and "http-equiv" in values:
            self.policy = values.get("content", "")
        if tag == "a" and "href" in values:
            self.links.append(values["href"])
        if tag == "img":
            self.pictures.append(values)
        if tag == "table" and not any(values.get("class") == "table" for _, values in self.open):
            self.wide += 1
        if tag not in self.EMPTY:
            self.open.append((tag, values))

    def handle_endtag(self, tag):
        if tag in self.EMPTY:
            return
        while self.open and self.open.pop()[0] != tag:
            pass

    def handle_data(self, data):
        inside = [tag for tag, _ in self.open]
        if inside[-1:] == ["title"]:
            self.title += data
        if inside[-1:] == ["style"]:
            self.style += data
        page = next((values.get("id") for tag, values in self.open if tag == "section"), None)
        if page and not any(values.get("class") == "on-page" for _, values in self.open):
            self.pages[page] = self.pages.get(page, "") + data


def words_of(text):
    return re.findall(r"[^\W_]+", text)


def words_of_page(text):
    """What a reader of the page sees, in words. Pictures have none, links their own."""
    text = re.sub(r"!\[[^\]]*\]\([^)]*\)", " ", text)
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", text)
    text = re.sub(r"(?m)^(\s*)\d+\. ", r"\1", text)
    return words_of(text)


def problems_of_guide(text, pages, version):
    problems = []
    guide = Guide()
    guide.feed(text)
    for number in sorted({place for place in guide.ids if guide.ids.count(place) > 1}):
        problems.append("the id %s stands there twice" % number)
    for target in guide.links:
        if not (target.startswith("#") and target[1:] in guide.ids) and not re.match(r"https?://", target):
            problems.append("the link to %s leads nowhere" % target)
    for name, page in pages.items():
        place = "start" if name == "README" else name
        if "#" + place not in guide.links:
            problems.append("docs/%s.md is not in the contents" % name)
        if words_of(guide.pages.get(place, "")) != words_of_page(page):
            problems.append("docs/%s.md is not in the guide word for word" % name)
    for picture in guide.pictures:
        if not picture.get("src", "").startswith("data:image/png;base64,") or not picture.get("alt"):
            problems.append("a picture is not inside the guide, or has no words: %s" % picture.get("src", "")[:60])
    shown = sum(len(links_of(page)[1]) for page in pages.values())
    if len(guide.pictures) != shown:
        problems.append("the guide shows %d pictures, the pages %d" % (len(guide.pictures), shown))
    if guide.tags & {"script", "link", "iframe", "object", "form", "audio", "video"}:
        problems.append("the guide holds more than text, pictures and style")
    if re.search(r"url\(|@import", guide.style) or "default-src 'none'" not in guide.policy:
        problems.append("the guide's style may load something")
    if guide.language != "en" or version not in guide.title:
        problems.append("the guide's language is %s, its title %s" % (guide.language, guide.title))
    if guide.wide:
        problems.append("%d tables can be wider than the page" % guide.wide)
    machine = MACHINE.search(re.sub(r"base64,[^\"]*", "", text))
    if machine:
        problems.append("the guide names a folder of a machine: %s" % machine[0])
    return problems


def make_guide(folder):
    """What tools/manual makes, or the words with which it refuses."""
    with tempfile.TemporaryDirectory() as out:
        run = subprocess.run([os.path.join(folder, "tools", "manual"), os.path.join(out, "guide")], capture_output=True, check=False,
                             text=True, encoding="utf-8")
        if run.returncode != 0:
            return None, run.stderr.splitlines() or ["tools/manual ended with status %d" % run.returncode]
        if os.listdir(os.path.join(out, "guide")) != ["index.html"]:
            return None, ["tools/manual has left more than index.html"]
        return read(out, "guide/index.html"), []


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else ROOT
    pages = read_pages(folder)
    version = re.search(r"project\(quillon\s+VERSION\s+([\d.]+)", read(folder, "CMakeLists.txt"))[1]
    forms = read_forms(folder)
    problems = problems_of_pages(folder, pages) + problems_of_form_pages(pages, forms, read_pictures(folder))
    problems += problems_of_which_form(folder, pages, forms)
    guide, refused = make_guide(folder)
    problems += refused
    if guide is not None:
        problems += problems_of_guide(guide, pages, version)
        if make_guide(folder)[0] != guide:
            problems.append("the guide comes out different the second time")
    for problem in problems:
        print(problem)
    print("%d pages, %d forms, %d problems" % (len(pages), len(forms), len(problems)))
    return 1 if problems or not pages or not forms else 0


if __name__ == "__main__":
    sys.exit(main())
