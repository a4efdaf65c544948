#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""corpus-check.py --import PROGRAM --reader RTFD-READER ENEX_FILE_OR_FOLDER...

Imports every ENEX file as it stands and judges the result with readers that share no code with the program: no file
may crash the run or lose a note without a word; every manifest must hold; every note must show the text
and the attachments that the ENEX file holds. Prints "compared N notes, M equal" and each note that
differs. Exit code 0 when all agree, 77 when no input is there (skipped), else 1.

What the independent RTFD reader cannot see is left out of the comparison, on both sides:
characters beyond the basic plane (it drops surrogate pairs), list markers, and how cells are parted (a
tab, a line end, nothing at all between nested cells). A horizontal rule is drawn with characters that
the note does not hold.
"""

import argparse
import collections
import hashlib
import importlib.util
import json
import os
import plistlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
NOTE, WEB_PAGE = 1, 7
ENDED, FAILED, SKIPPED_SOME = 0, 1, 3
ALLOWED_SECONDS = 120
SKIP = 77


def load(name):
    spec = importlib.util.spec_from_file_location(name.replace("-", "_"), os.path.join(HERE, name + ".py"))
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


enex_facts = load("enex-facts")
manifest_check = load("manifest-check")


def seen(text):
    """The text as both readers can see it."""
    without_markers = re.sub(r"(?m)^\t+(?:[\u2022\u25e6\u25aa\u2043\u25a0\u25cb\u25cf\u25a1]|[0-9a-zA-Z]{1,6}[.)]?)\t",
                             "", text)
    without = re.sub("[\ufffc\U00010000-\U0010ffff]|\u2500{10,}", " ", without_markers)
    # Control characters that no text format carries.
    return enex_facts.collapse(re.sub(r"[\x00-\x08\x0e-\x1f\x7f]", "", without))


def matches(wanted, given, images, ignores_case):
    """Whether the texts agree; a picture that is not in the note may show its other text or its address."""
    pattern = r"\s?".join(
        re.escape(part.strip()) + ("" if image is None else r"\s?(?:%s)?" % "|".join(
            re.escape(enex_facts.collapse(text)) for text in image if text))
        for part, image in zip(wanted.split(enex_facts.IMAGE), [*images, None]))
    return re.fullmatch(pattern, given, re.IGNORECASE if ignores_case else 0) is not None


def closed_up(text):
    return re.sub(r"\s", "", text)


def expected_date(text):
    """The property list's date for an ENEX date, or None when it is not in the format."""
    match = re.fullmatch(r"(\d{4})(\d\d)(\d\d)T(\d\d)(\d\d)(\d\d)Z", text)
    return "-".join(match.group(1, 2, 3)) + "T" + ":".join(match.group(4, 5, 6)) if match else None


def may_be_skipped(note):
    """A note without a body cannot be laid out; an attachment whose name is no file name cannot be written."""
    return not note["hasBody"] or any("/" in resource["name"] for resource in note["resources"])


class Corpus:
    def __init__(self, program, reader, scratch):
        self.program, self.reader, self.scratch = program, reader, scratch
        self.problems = []
        self.gaps = collections.Counter()
        self.compared = self.equal = self.files = self.skipped = 0

    def problem(self, where, text):
        self.problems.append(f"{where}: {text}")

    def environment(self, home):
        kept = {key: value for key, value in os.environ.items() if not key.startswith("XDG_")}
        kept.update(HOME=home, TZ="UTC", LC_ALL="C.UTF-8", GNUSTEP_STRING_ENCODING="NSUTF8StringEncoding")
        kept.pop("DISPLAY", None)
        return kept

    def check(self, path):
        self.files += 1
        where = os.path.join(os.path.basename(os.path.dirname(path)), os.path.basename(path))
        work = os.path.join(self.scratch, str(self.files))
        home = os.path.join(work, "home")
        os.makedirs(home)
        report_path = os.path.join(work, "report.json")
        try:
            run = subprocess.run([self.program, "--exact", "--files-folder", work, "--report", report_path, path],
                                 env=self.environment(home), stdin=subprocess.DEVNULL, capture_output=True,
                                 timeout=ALLOWED_SECONDS)
        except subprocess.TimeoutExpired:
            return self.problem(where, f"no end within {ALLOWED_SECONDS} seconds")
        facts = enex_facts.read(path)
        if run.returncode not in (ENDED, FAILED, SKIPPED_SOME):
            return self.problem(where, f"exit code {run.returncode}: {run.stderr[-400:].decode(errors='replace')}")
        if run.returncode == FAILED:
            if facts["wellFormed"]:
                self.problem(where, f"the run failed: {run.stderr[-400:].decode(errors='replace')}")
            return None
        if not facts["wellFormed"]:
            return self.problem(where, "a file that is not well-formed was imported without an error")
        with open(report_path, encoding="utf-8") as source:
            report = json.load(source)
        return self.compare(where, facts["notes"], report, os.path.join(work, "Evernote"), home)

    def compare(self, where, notes, report, files_folder, home):
        if report["notes"] != len(notes):
            self.problem(where, f"the report counts {report['notes']} notes, the file holds {len(notes)}")
        if report["items"] + len(report["skipped"]) != len(notes):
            self.problem(where, f"{report['items']} items and {len(report['skipped'])} skipped notes "
                                f"do not make {len(notes)}")
        for skipped in report["skipped"]:
            self.skipped += 1
            print(f"skipped by the program: {where}: {skipped['title']!r}: {skipped['text']}")
            if not skipped["text"]:
                self.problem(where, f"{skipped['title']!r} was skipped without a reason")
        check = manifest_check.Check(files_folder)
        found = check.run()
        for breach in found["breaches"]:
            self.problem(where, breach)
        for path in found["unlisted"]:
            self.problem(where, f"no item names {path}")
        with open(os.path.join(files_folder, manifest_check.MANIFEST), "rb") as source:
            entities = plistlib.load(source)["Entities"]
        items = [entities["Item"][key] for folder in entities["Folder"].values() for key in folder["items"]]
        kept = self.kept_notes(where, notes, report["skipped"])
        if len(kept) != len(items):
            return self.problem(where, f"{len(kept)} notes should have become {len(items)} items")
        packages = self.read_packages([i["absoluteFilename"] for i in items if i["itemType"] == NOTE], home)
        for note, item in zip(kept, items):
            self.compare_note(f"{where}: {note['title']!r}", note, item, packages)
        return None

    def kept_notes(self, where, notes, skipped):
        """The notes that were not skipped. The reader of titles may have taken more than the title, white
        space or a task's title after it, so a beginning is enough."""
        gone = [enex_facts.collapse(entry["title"]) for entry in skipped]
        kept = []
        for note in notes:
            title = enex_facts.collapse(note["title"])
            if gone and gone[0].startswith(title):
                gone.pop(0)
                if not may_be_skipped(note):
                    self.problem(where, f"{title!r} was skipped, and nothing is wrong with it")
            else:
                kept.append(note)
        return kept

    def read_packages(self, paths, home):
        if not paths:
            return {}
        # GNUstep takes a backslash for a folder's end.
        plain = {}
        for path in paths:
            if "\\" in path:
                plain[path] = tempfile.mkdtemp(dir=self.scratch)
                shutil.copytree(path, plain[path], dirs_exist_ok=True)
        run = subprocess.run([self.reader, *(plain.get(path, path) for path in paths)], env=self.environment(home), capture_output=True,
                             timeout=ALLOWED_SECONDS)
        facts = [json.loads(line) for line in run.stdout.decode("utf-8", "surrogatepass").splitlines() if line]
        found = {fact["package"]: fact for fact in facts}
        return {path: found.get(plain.get(path, path)) for path in paths}

    def compare_note(self, where, note, item, packages):
        before = len(self.problems)
        self.compared += 1
        self.compare_record(where, note, item)
        path = item["absoluteFilename"]
        if item["itemType"] == NOTE:
            package = packages.get(path)
            if package is None:
                self.problem(where, "the RTFD reader said nothing about it")
            elif "error" in package:
                self.problem(where, f"the RTFD reader: {package['error']}")
            else:
                with open(os.path.join(path, "TXT.rtf"), "rb") as source:
                    is_nested = b"\\nestcell" in source.read()
                self.compare_text(where, note, package["text"], is_nested)
                self.compare_attachments(where, note, [a.get("md5") for a in package["attachments"]])
                self.compare_boxes(where, package)
        elif item["itemType"] == WEB_PAGE and path.endswith(".webarchive"):
            with open(path, "rb") as source:
                archive = plistlib.load(source)
            main = archive["WebMainResource"]
            page = enex_facts.text_of_html(main["WebResourceData"].decode("utf-8"))
            self.compare_text(where, note, page.replace(enex_facts.IMAGE, " "))
            held = [hashlib.md5(r["WebResourceData"]).hexdigest() for r in archive.get("WebSubresources", [])]
            for digest in set(filter(None, note["media"])) - set(held):
                self.problem(where, f"the web archive lacks the picture {digest}")
        else:
            with open(path, "rb") as source:
                digest = hashlib.md5(source.read()).hexdigest()
            if [digest] != [resource["md5"] for resource in note["resources"]]:
                self.problem(where, "the file is not the note's one attachment")
        self.equal += len(self.problems) == before

    def compare_record(self, where, note, item):
        for key, text in (("dateCreated", note["created"]), ("dateModified", note["updated"])):
            wanted = expected_date(text)
            given = item[key].isoformat() if key in item else None
            if given != wanted:
                self.problem(where, f"{key} is {given}, not {wanted}")
        # White space after an element's end still belongs to its text, and indented files are full of it:
        # there it makes one more tag, an empty one.
        if re.sub(r"[\s,]", "", item.get("tagsString", "")) != re.sub(r"[\s,]", "", "".join(note["tags"])):
            self.problem(where, f"tagsString is {item.get('tagsString')!r}, not {note['tags']!r}")
        if closed_up(item.get("comments", "")) != closed_up(note["sourceURL"]):
            self.problem(where, f"comments are {item.get('comments')!r}, not {note['sourceURL']!r}")

    def compare_text(self, where, note, text, is_nested=False):
        wanted, given = seen(note["text"]), seen(text)
        if matches(wanted, given, note["images"], note["changesCase"]):
            return
        fold = str.lower if note["changesCase"] else str
        images = [[closed_up(text) if text else text for text in image] for image in note["images"]]
        if is_nested and matches(closed_up(wanted), closed_up(given), images, note["changesCase"]):
            self.gaps["nothing between nested cells"] += 1
            return
        if not note["bodyWellFormed"]:
            # Two repairs of one broken body need not agree on order, only on the words.
            if sorted(wanted.split()) == sorted(given.split()):
                self.gaps["another repair of a broken body"] += 1
                return
        at = next((i for i, (a, b) in enumerate(zip(wanted, given)) if fold(a) != fold(b)),
                  min(len(wanted), len(given)))
        self.problem(where, f"the text differs at {at}:\n    wanted ...{wanted[max(0, at - 30):at + 50]!r}"
                            f"\n    given  ...{given[max(0, at - 30):at + 50]!r}")

    def compare_attachments(self, where, note, given):
        wanted = collections.Counter(filter(None, note["media"]))
        have = collections.Counter(given)
        if wanted - have:
            self.problem(where, f"attachments are missing: {sorted((wanted - have).elements())}")
        extra = sum((have - wanted).values())
        if extra > len(note["images"]):
            self.problem(where, f"{extra} attachments that the note does not hold")

    def compare_boxes(self, where, package):
        """Each archived checkbox must lie on the box text that stands in the note."""
        for item in package.get("noteAttributes", {}).get("checklistItems") or []:
            start, length = map(int, re.findall(r"\d+", item["range"]))
            if length != (3 if item["on"] else 2):
                self.problem(where, f"a checkbox of length {length}")
        boxes = len(re.findall("[\u2610\u2611]", package["text"]))
        items = len(package.get("noteAttributes", {}).get("checklistItems") or [])
        if items > boxes:
            self.problem(where, f"{items} archived checkboxes, {boxes} in the text")


def enex_files(paths):
    """The ENEX files at the paths and in the folders at them."""
    files = []
    for path in paths:
        if os.path.isdir(path):
            files += [os.path.join(folder, name) for folder, _, names in sorted(os.walk(path))
                      for name in sorted(names) if name.endswith(".enex")]
        elif os.path.isfile(path):
            files.append(path)
    return files


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--import", dest="program", required=True)
    parser.add_argument("--reader", required=True)
    parser.add_argument("inputs", nargs="+")
    arguments = parser.parse_args()
    files = enex_files(arguments.inputs)
    if not files:
        print(f"skipped: there is nothing at {', '.join(arguments.inputs)}")
        return SKIP
    with tempfile.TemporaryDirectory() as scratch:
        corpus = Corpus(arguments.program, arguments.reader, scratch)
        for path in files:
            corpus.check(path)
    for problem in corpus.problems:
        print(problem)
    for gap, count in sorted(corpus.gaps.items()):
        print(f"known gap: {gap}: {count} notes")
    print(f"{corpus.files} files, {corpus.skipped} notes skipped by the program; "
          f"compared {corpus.compared} notes, {corpus.equal} equal")
    return 1 if corpus.problems else 0


if __name__ == "__main__":
    sys.exit(main())
