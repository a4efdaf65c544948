#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""rich-text-check.py --import PROGRAM --reader RTFD-READER --office SOFFICE ENEX_FILE_OR_FOLDER...

Imports every note and compares its package, as GNUstep and as LibreOffice read it, with the note's own
markup: characters and their looks, links, list markers, table cells, colours, attachments. A web clip is
compared, too: its body is imported as an ordinary note would be. Prints what differs, the known gaps of
each reader with the number of notes that have them, and how many notes were compared and how many were
equal. Exit code 0 when all agree, 77 when there is nothing to compare with (skipped), else 1.

What a reader is known not to see is not compared with it:

GNUstep drops characters beyond the basic plane, super- and subscript, tables, and the colours behind cells;
it underlines links and makes them blue, whatever they are.
LibreOffice drops the highlight of text (it knows another word for it), the markers' own text (it counts
items by itself), the list level of the very last paragraph, where one table ends and another begins right
behind it, and tells left from natural alignment nowhere; an attachment is its file's name and a mark to it.
"""

import argparse
import collections
import hashlib
import importlib.util
import operator
import os
import re
import shutil
import subprocess
import sys
import tempfile
import urllib.parse

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)

import gnustep_document  # noqa: E402
import note_markup  # noqa: E402
import office_document  # noqa: E402

SKIP = 77
RULE = "\u2500"
SIZE_TOLERANCE = 0.5


def load(name):
    spec = importlib.util.spec_from_file_location(name.replace("-", "_"), os.path.join(HERE, name + ".py"))
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


corpus_check = load("corpus-check")


def without_rules(glyphs):
    """A rule is drawn with characters that the note does not hold."""
    return [glyph for glyph in glyphs if glyph.character != RULE]


def same_color(wanted, given):
    black = (None, "000000")
    return wanted == given or (wanted in black and given in black)


def comparable_link(link):
    return urllib.parse.unquote(link) if link else None


def same(name, agree=operator.eq):
    return lambda wanted, given: agree(getattr(wanted, name), getattr(given, name))


# What is compared of a character's look.
OF_BOTH = {
    "bold": same("bold"),
    "italic": same("italic"),
    "strikethrough": same("strikethrough"),
    "size": same("size", lambda wanted, given: abs(wanted - given) <= SIZE_TOLERANCE),
    "link": same("link", lambda wanted, given: comparable_link(wanted) == comparable_link(given)),
}
OF_GNUSTEP = {
    **OF_BOTH,
    "underline": lambda wanted, given: wanted.link or wanted.underline == given.underline,
    "color": lambda wanted, given: wanted.link or same_color(wanted.color, given.color),
    "highlight": same("highlight"),
    "family": same("families", lambda wanted, given: not wanted or given[0] in wanted),
    "alignment": same("alignment"),
}
OF_OFFICE = {
    **OF_BOTH,
    "underline": same("underline"),
    "color": same("color", same_color),
    "colour behind": same("behind"),
    "shift": same("shift"),
    "alignment": same("alignment", lambda wanted, given: (wanted.replace("natural", "left")
                                                          == given.replace("natural", "left"))),
}


def text_of(glyphs):
    return "".join(glyph.character for glyph in glyphs)


class Comparison:
    """One note against one reader's view of its package."""

    def __init__(self):
        self.differences = []

    def differ(self, text):
        self.differences.append(text)

    def compare_glyphs(self, wanted, given, looks):
        """Whether the characters are the same; looks are compared only then."""
        texts = text_of(wanted), text_of(given)
        if texts[0] != texts[1]:
            at = next((i for i, (a, b) in enumerate(zip(*texts)) if a != b), min(map(len, texts)))
            start = max(0, at - 25)
            self.differ(f"text at {at}: wanted ...{texts[0][start:at + 35]!r}, given ...{texts[1][start:at + 35]!r}")
            return False
        for name, agree in looks.items():
            wrong = [i for i, (one, other) in enumerate(zip(wanted, given))
                     if not one.is_marker and one.character != note_markup.ATTACHMENT
                     and not agree(one.look, other.look)]
            if wrong:
                at = wrong[0]
                self.differ(f"{name} of {len(wrong)} characters, the first in "
                            f"{texts[0][max(0, at - 15):at]!r} >{texts[0][at:at + 20]!r}:\n"
                            f"    wanted {wanted[at].look}\n    given {given[at].look}")
        return True

    def compare_list(self, what, wanted, given):
        if wanted == given:
            return
        at = next((i for i, (a, b) in enumerate(zip(wanted, given)) if a != b), min(len(wanted), len(given)))
        self.differ(f"{what} {at} of {len(wanted)} and {len(given)}: wanted {wanted[at:at + 2]}, "
                    f"given {given[at:at + 2]}")


def kind_of_marker(marker):
    """A marker without its number."""
    kind = re.sub(r"-?\d+", "1", marker)
    if re.fullmatch(r"[a-zA-Z]{1,9}\.", kind):
        kind = "a." if kind.islower() else "A."
    return kind


def cells_of(reading, names, with_rows):
    """The cells without their attachments, rules, and, unless the tables are the same ones, rows."""
    cells = []
    for cell in reading.cells:
        text = cell.text.replace(note_markup.ATTACHMENT, "").replace(RULE, "")
        for name in names:
            text = text.replace("".join(name.split()) + "\u00ac", "")
        place = (cell.table, cell.row, cell.column) if with_rows else (cell.column,)
        cells.append((*place, cell.row_span, cell.column_span, cell.behind, text))
    return cells


class RichText(corpus_check.Corpus):
    """Runs the import as the other check does, and keeps what it made for the comparison."""

    def __init__(self, program, reader, office, scratch):
        super().__init__(program, reader, scratch)
        self.office = office
        self.notes = []
        self.counts = collections.Counter()
        self.without_text = 0

    def compare_note(self, where, note, item, packages):
        package = packages.get(item["absoluteFilename"])
        if item["itemType"] != corpus_check.NOTE or package is None:
            self.without_text += 1
        else:
            self.notes.append((where, note, item["absoluteFilename"], package))

    def office_readings(self):
        folder = os.path.join(self.scratch, "office")
        os.makedirs(folder)
        files = []
        for number, (_, _, path, _) in enumerate(self.notes):
            files.append(os.path.join(folder, f"{number}.rtf"))
            shutil.copyfile(os.path.join(path, "TXT.rtf"), files[-1])
        office_document.convert(self.office, files, folder)
        return [os.path.join(folder, f"{number}.fodt") for number in range(len(files))]

    def compare_all(self):
        for (where, note, path, package), flat in zip(self.notes, self.office_readings()):
            hashes = {resource["md5"] for resource in note["resources"]}
            wanted, _ = note_markup.read(note["content"], hashes)
            self.count(wanted)
            by_gnustep = self.compare_with_gnustep(note, wanted, package)
            by_office = self.compare_with_office(note, wanted, path, flat)
            self.counts["equal by GNUstep"] += not by_gnustep
            self.counts["equal by LibreOffice"] += not by_office
            self.equal += not by_gnustep and not by_office
            self.compared += 1
            for reader, differences in (("GNUstep", by_gnustep), ("LibreOffice", by_office)):
                for difference in differences:
                    self.problem(f"{where}: {reader}", difference)

    def count(self, wanted):
        self.counts["characters"] += len(wanted.glyphs)
        self.counts["links"] += len({glyph.look.link for glyph in wanted.glyphs} - {None})
        self.counts["list markers"] += len(wanted.markers)
        self.counts["tables"] += wanted.tables
        self.counts["cells"] += len(wanted.cells)
        self.counts["attachments"] += sum(glyph.character == note_markup.ATTACHMENT for glyph in wanted.glyphs)

    def gap(self, reader, text, glyphs_or_flags):
        if any(glyphs_or_flags):
            self.gaps[f"{reader}: {text}"] += 1

    def compare_with_gnustep(self, note, wanted, package):
        comparison = Comparison()
        if "error" in package:
            comparison.differ(package["error"])
            return comparison.differences
        self.gap("GNUstep", "characters beyond the basic plane", (ord(g.character) > 0xFFFF for g in wanted.glyphs))
        self.gap("GNUstep", "super- and subscript", (g.look.shift for g in wanted.glyphs))
        self.gap("GNUstep", "tables", wanted.cells)
        glyphs = [glyph for glyph in wanted.glyphs if ord(glyph.character) <= 0xFFFF]
        given = gnustep_document.read(package)
        is_same = comparison.compare_glyphs(glyphs, without_rules(given.glyphs), OF_GNUSTEP)
        if not is_same and not note["bodyWellFormed"]:
            comparison.differences.pop()
            self.gaps["both: another repair of a broken body"] += 1
        digests = [a.get("md5") for a in package["attachments"]]
        media = [digest for digest in note["media"] if digest]
        pictures = [text for text in re.findall(r"src=\"data:image/", note["content"])]
        if len(digests) != len(media) + len(pictures) or [d for d in digests if d in media] != media:
            comparison.differ(f"attachments: wanted {media} and {len(pictures)} pictures, given {digests}")
        return comparison.differences

    def compare_with_office(self, note, wanted, path, flat):
        comparison = Comparison()
        if not os.path.exists(flat):
            comparison.differ("the document could not be converted")
            return comparison.differences
        given = office_document.read(flat)
        self.gap("LibreOffice", "highlights", (g.look.highlight for g in wanted.glyphs))
        self.gap("LibreOffice", "attachments are names", (g.character == "\ufffc" for g in wanted.glyphs))
        glyphs = [glyph for glyph in wanted.glyphs if not glyph.is_marker]
        names = self.attachment_names(path)
        is_same = comparison.compare_glyphs(glyphs, self.with_attachments(without_rules(given.glyphs), names),
                                            OF_OFFICE)
        if not is_same and not note["bodyWellFormed"]:
            comparison.differences.pop()
            return comparison.differences
        markers = [[(marker.depth, kind_of_marker(marker.text)) for marker in reading.markers]
                   for reading in (wanted, given)]
        if wanted.ends_in_list and markers[0][-1:] != markers[1][-1:]:
            self.gaps["LibreOffice: the level of the last item"] += 1
            for each in markers:
                del each[-1:]
        comparison.compare_list("list marker", *markers)
        is_same = wanted.tables == given.tables
        self.gap("LibreOffice", "tables that touch are one", [not is_same and wanted.tables > given.tables])
        comparison.compare_list("cell", cells_of(wanted, (), is_same), cells_of(given, names, is_same))
        return comparison.differences

    @staticmethod
    def attachment_names(path):
        with open(os.path.join(path, "TXT.rtf"), "rb") as source:
            names = re.findall(rb"\\NeXTGraphic (.*?) \\width", source.read())
        return [re.sub(rb"\\'([0-9a-f]{2})|\\([\\{}])",
                       lambda m: bytes([int(m.group(1), 16)]) if m.group(1) else m.group(2), name)
                .decode("cp1252", "replace") for name in names]

    @staticmethod
    def with_attachments(glyphs, names):
        """The name of each attachment and the mark behind it become the attachment's character."""
        text = text_of(glyphs)
        made, done = [], 0
        for name in names:
            shown = "".join(name.split()) + "\u00ac"
            at = text.find(shown, done)
            if at < 0:
                return glyphs
            made += glyphs[done:at] + [note_markup.Glyph(note_markup.ATTACHMENT, glyphs[at].look)]
            done = at + len(shown)
        return made + glyphs[done:]


def without_clip_sources(path, folder):
    """A copy of the file whose clips pass for ordinary notes; None when it holds no clip."""
    with open(path, "rb") as source:
        data = source.read()
    changed = re.sub(rb"<source>\s*web\.clip\d*\s*</source>", b"", data)
    if changed == data:
        return None
    copy = os.path.join(folder, hashlib.md5(path.encode()).hexdigest(), os.path.basename(path))
    os.makedirs(os.path.dirname(copy))
    with open(copy, "wb") as out:
        out.write(changed)
    return copy


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--import", dest="program", required=True)
    parser.add_argument("--reader", required=True)
    parser.add_argument("--office", required=True)
    parser.add_argument("inputs", nargs="+")
    arguments = parser.parse_args()
    files = corpus_check.enex_files(arguments.inputs)
    if not files:
        print(f"skipped: there is nothing at {', '.join(arguments.inputs)}")
        return SKIP
    with tempfile.TemporaryDirectory() as scratch:
        check = RichText(arguments.program, arguments.reader, arguments.office, scratch)
        for path in files:
            check.check(without_clip_sources(path, scratch) or path)
        try:
            if check.notes:
                check.compare_all()
        except (subprocess.SubprocessError, OSError) as problem:
            check.problem("LibreOffice", str(problem))
    for problem in check.problems:
        print(problem)
    for gap, count in sorted(check.gaps.items()):
        print(f"known gap: {gap}: {count} notes")
    print(", ".join(f"{count} {what}" for what, count in check.counts.items() if not what.startswith("equal")))
    print(f"{check.files} files, {check.without_text} items that are no text; compared {check.compared} notes, "
          f"{check.equal} equal ({check.counts['equal by GNUstep']} as GNUstep reads them, "
          f"{check.counts['equal by LibreOffice']} as LibreOffice does)")
    return 1 if check.problems or not check.compared else 0


if __name__ == "__main__":
    sys.exit(main())
