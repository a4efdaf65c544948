#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""modern-files-test.py VUPUGE-IMPORT CORPUS: imports files of today's Evernote, whole and as they stand, and
compares the items with what Python's own XML reader finds in the files.
"""

import collections
import hashlib
import json
import os
import plistlib
import re
import subprocess
import sys
import tempfile
import unittest

import modern_enex

PROGRAM, CORPUS = sys.argv[1], sys.argv[2]
NOTE, WEB_PAGE = 1, 7
ALLOWED_SECONDS = 120
WHOLE = ("--set", "ModernENEX=YES", "--set", "TimestampsInUTC=YES", "--set", "ResolveNoteLinks=YES",
         "--set", "KeepUnreferencedAttachments=YES")
ITEM_LINK = "quillery://item/"
NOT_ATTACHED = re.compile(r"TXT\.rtf|NoteAttributes|\d+__#\$!@%!#__NoteAttributes")


def corpus_files():
    found = []
    for folder, _, names in sorted(os.walk(CORPUS)):
        found += [os.path.join(folder, name) for name in sorted(names) if name.endswith(".enex")]
    return found


def contents(path):
    with open(path, "rb") as source:
        return source.read()


def plain_text(rtf):
    """The text of a note, without the markers of lists; attachments as U+FFFC."""
    text, skipped, unicode_skip, position = [], [False], 0, 0
    token = re.compile(rb"\\u(-?\d+) ?|\\'([0-9a-f]{2})|\\([a-zA-Z]+)(-?\d+)? ?|\\(.)|([{}])|(\r?\n)|(.)", re.DOTALL)
    units = []

    def flush():
        text.append(b"".join((unit & 0xFFFF).to_bytes(2, "little") for unit in units)
                    .decode("utf-16-le", "surrogatepass"))
        units.clear()

    while position < len(rtf):
        match = token.match(rtf, position)
        position = match.end()
        code, byte, word, _, sign, brace, line, plain = match.groups()
        if brace == b"{":
            hidden = skipped[-1] or re.match(rb"\\\*|\\(fonttbl|colortbl|listtext|stylesheet)\b", rtf[position:position + 20])
            skipped.append(bool(hidden))
            continue
        if brace == b"}":
            skipped.pop()
            continue
        if word == b"NeXTGraphic":
            skipped[-1] = True
            if not skipped[-2]:
                flush()
                text.append("\ufffc")
            skipped[-2] = True  # The sign that stands for it follows in the outer group.
            continue
        if skipped[-1] or line:
            continue
        if code:
            units.append(int(code))
            continue
        flush()
        if byte:
            text.append(bytes.fromhex(byte.decode()).decode("cp1252", "replace"))
        elif word in (b"cell", b"nestcell", b"row", b"line", b"par"):
            text.append("\n")
        elif word == b"tab":
            text.append("\t")
        elif sign:
            text.append("\n" if sign in b"\r\n" else sign.decode("latin-1"))
        elif plain:
            text.append(plain.decode("cp1252", "replace"))
    flush()
    return "".join(text)


def safe_name(title):
    """A title as a file's name without its extension."""
    name = title.strip()
    name = "-" + name[1:] if name.startswith(".") else name
    return re.split(r"[\n\r\x0b\x0c\x85\u2028\u2029]", re.sub(r"[/:~]", "-", name))[0]


class Import:
    """One run over a file, and what it wrote."""

    def __init__(self, scratch, path, *options, zone="UTC"):
        self.folder = tempfile.mkdtemp(dir=scratch)
        report = os.path.join(self.folder, "report.json")
        environment = {key: value for key, value in os.environ.items() if not key.startswith("XDG_")}
        environment.update(HOME=self.folder, TZ=zone, LC_ALL="C.UTF-8")
        self.run = subprocess.run([PROGRAM, "--files-folder", self.folder, "--report", report, *options, path],
                                  env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                                  timeout=ALLOWED_SECONDS)
        self.output = self.run.stdout.decode("utf-8", "replace")
        self.report = json.loads(contents(report)) if os.path.exists(report) else None
        self.items = []
        manifest = os.path.join(self.folder, "Evernote", "Evernote.qllibxml")
        if self.run.returncode == 0 and os.path.exists(manifest):
            entities = plistlib.loads(contents(manifest))["Entities"]
            for folder in entities["Folder"].values():
                self.items += [entities["Item"][identifier] for identifier in folder["items"]]

    def text(self, item):
        return plain_text(contents(os.path.join(item["absoluteFilename"], "TXT.rtf")))

    def attached(self, item):
        """The MD5 digests of what an item shows or is."""
        path = item["absoluteFilename"]
        if item["itemType"] == NOTE:
            return [hashlib.md5(contents(os.path.join(path, name))).hexdigest()
                    for name in os.listdir(path) if not NOT_ATTACHED.fullmatch(name)]
        if item["itemType"] == WEB_PAGE and path.endswith(".webarchive"):
            archive = plistlib.loads(contents(path))
            return [hashlib.md5(resource["WebResourceData"]).hexdigest()
                    for resource in archive.get("WebSubresources", [])]
        return [hashlib.md5(contents(path)).hexdigest()]

    def page(self, item):
        """The text in which links stand as they were written."""
        path = item["absoluteFilename"]
        if item["itemType"] == NOTE:
            return contents(os.path.join(path, "TXT.rtf")).decode("latin-1")
        return contents(path).decode("latin-1")

    def comparable(self):
        """The manifest without what differs between two runs, and the bytes of every file."""
        records, files = [], {}
        for item in self.items:
            record = {key: value for key, value in item.items() if key not in ("identifier", "folder")}
            record["absoluteFilename"] = os.path.relpath(item["absoluteFilename"], self.folder)
            records.append(record)
        root = os.path.join(self.folder, "Evernote")
        for folder, _, names in os.walk(root):
            for name in names:
                if name == "Evernote.qllibxml":
                    continue
                path = os.path.join(folder, name)
                files[os.path.relpath(path, root)] = self.without_traces(path)
        return records, files


    def without_traces(self, path):
        """A file without the identifiers and the scratch folders of its run."""
        data = contents(path)
        if path.endswith(".webarchive"):
            data = repr(plistlib.loads(data)).encode()
        for item in self.items:
            data = data.replace(item["identifier"].encode(), b"IDENTIFIER")
        data = data.replace(self.folder.encode(), b"FOLDER")
        return re.sub(rb"\.vupuge-import-\w+", b"SCRATCH", data)


class ModernFiles(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = scratch.name

    def run_file(self, path, *options, zone="UTC"):
        return Import(self.scratch, path, *options, zone=zone)

    def run_data(self, data, *options, zone="UTC"):
        path = os.path.join(tempfile.mkdtemp(dir=self.scratch), "Notes.enex")
        with open(path, "wb") as file:
            file.write(data)
        return Import(self.scratch, path, *options, zone=zone)

    # The checks of one run.

    def check_sums(self, run, notes):
        report = run.report
        self.assertEqual(report["notes"], len(notes))
        self.assertEqual(report["notes"], report["items"] + len(report["skipped"]))
        self.assertEqual(report["items"], len(run.items))
        resources, tasks, links = report["resources"], report["tasks"], report["links"]
        self.assertEqual(resources["count"], sum(len(note.resources) for note in notes))
        self.assertEqual(resources["count"], resources["shown"] + resources["kept"] + resources["leftOut"]
                         + resources["inSkippedNotes"])
        self.assertEqual(tasks["count"], sum(len(note.tasks) for note in notes))
        self.assertEqual(tasks["count"], tasks["toDoLines"] + tasks["leftOut"] + tasks["inSkippedNotes"])
        self.assertEqual(links["count"], links["resolved"] + links["asTheyWere"])
        if not report["skipped"]:
            self.assertEqual(links["count"], sum(1 for note in notes for address, _ in note.links
                                                 if address.startswith("evernote:///view/")))
            self.assertEqual(report["encryptedPassages"], sum(note.encrypted for note in notes))

    def check_whole(self, run, notes):
        self.assertEqual(run.run.returncode, 0, run.run.stderr)
        self.check_sums(run, notes)
        self.assertEqual([entry["title"] for entry in run.report["skipped"]], [])
        self.assertEqual(len(run.items), len(notes))
        self.assertEqual(run.report["resources"]["leftOut"],
                         sum(note.resources.count(None) for note in notes))
        self.assertEqual(run.report["tasks"]["toDoLines"], sum(len(note.tasks) for note in notes))
        for note, item in zip(notes, run.items):
            with self.subTest(note=note.title):
                self.check_note(run, note, item)
        self.check_links(run, notes)

    def check_note(self, run, note, item):
        self.assertEqual(item.get("dateCreated"), note.created)
        self.assertEqual(item.get("dateModified"), note.updated)
        self.assertEqual(item.get("tagsString"), ",".join(note.tags) or None)
        self.assertEqual(item.get("comments"), note.source_url or None)
        is_own_file = item["itemType"] in (NOTE, WEB_PAGE) and "extensionHidden" in item
        if is_own_file:
            wanted = safe_name(note.title) or "Untitled"
            self.assertRegex(item["name"], re.escape(wanted[:200]) + r".*")
        else:
            self.assertEqual(item["name"], note.title)
        # Nothing is left out: what the body does not name stands at the note's end.
        self.assertEqual(set(filter(None, note.resources)) - set(run.attached(item)), set())
        if item["itemType"] == NOTE:
            self.check_boxes(note, run.text(item))

    def check_boxes(self, note, text):
        lines = [modern_enex.collapse(line) for line in text.split("\n")]
        for group in modern_enex.task_lines(note.tasks).values():
            wanted = [modern_enex.collapse(line) for line in group]
            at = lines.index(wanted[0])
            self.assertEqual(lines[at:at + len(wanted)], wanted)
        if modern_enex.parsed_body(note.content) is None and note.content.strip():
            return
        boxes = collections.Counter(box == "\u2611" for box in re.findall("[\u2610\u2611]", text))
        wanted = collections.Counter(note.boxes + [task.completed for task in note.tasks])
        literal = collections.Counter(box == "\u2611" for box in re.findall("[\u2610\u2611]", note.content))
        self.assertEqual(boxes, wanted + literal)

    def check_links(self, run, notes):
        titles = collections.Counter(modern_enex.collapse(note.title) for note in notes)
        identifiers = {modern_enex.collapse(note.title): item["identifier"] for note, item in zip(notes, run.items)}
        resolved = 0
        for note, item in zip(notes, run.items):
            page = run.page(item)
            for address, text in note.links:
                # A link without a text shows nowhere.
                if not address.startswith("evernote:///view/") or not text:
                    continue
                if titles[text] == 1:
                    resolved += 1
                    self.assertIn(ITEM_LINK + identifiers[text], page)
                else:
                    self.assertIn(address, page)
        self.assertEqual(run.report["links"]["resolved"], resolved)

    def check_as_written(self, run, data, notes):
        self.assertEqual(run.run.returncode, 0, run.run.stderr)
        self.check_sums(run, notes)
        as_written = modern_enex.AsWritten(data).notes
        if run.report["skipped"]:
            gone = [entry["title"] for entry in run.report["skipped"]]
            as_written = [note for note in as_written if note["title"] not in gone]
        self.assertEqual(len(run.items), len(as_written))
        for note, item in zip(as_written, run.items):
            with self.subTest(note=note["title"]):
                self.assertEqual(item.get("dateCreated"), note["created"])
                self.assertEqual(item.get("dateModified"), note["updated"])
                self.assertEqual(item.get("tagsString"), ",".join(note["tags"]) if note["tags"] else None)
                self.assertEqual(item.get("comments"), note["source-url"] or None)
        self.assertEqual(run.report["tasks"]["toDoLines"], 0)
        self.assertEqual(run.report["links"]["resolved"], 0)
        self.assertEqual(run.report["resources"]["kept"], 0)

    # Real files.

    def real_files(self):
        files = corpus_files()
        if not files:
            self.skipTest(f"there are no real exports at {CORPUS}")
        for path in files:
            data = contents(path)
            notes = modern_enex.read(data)
            if notes is not None:
                yield path, data, notes

    def test_every_modern_file_comes_across_whole(self):
        count = 0
        for path, data, notes in self.real_files():
            if modern_enex.is_modern(data):
                with self.subTest(file=os.path.relpath(path, CORPUS)):
                    self.check_whole(self.run_file(path, *WHOLE, zone="America/New_York"), notes)
                    count += 1
        self.assertGreater(count, 30)

    def test_every_file_is_read_as_it_stands_when_that_is_wanted(self):
        for path, data, notes in self.real_files():
            with self.subTest(file=os.path.relpath(path, CORPUS)):
                run = self.run_file(path, "--exact")
                self.check_as_written(run, data, notes)
                loses = modern_enex.loses_as_written(data)
                self.assertEqual(bool(run.report["runs"][0]["remarks"]), loses)
                self.assertFalse(run.report["runs"][0]["modern"]["readWhole"])

    def test_a_modern_file_is_recognized_and_a_classic_one_is_not(self):
        for path, data, notes in self.real_files():
            with self.subTest(file=os.path.relpath(path, CORPUS)):
                run = self.run_file(path)
                modern = run.report["runs"][0]["modern"]
                self.assertEqual(modern["recognized"], modern_enex.is_modern(data))
                self.assertEqual("--exact leaves it off" in run.output, modern_enex.is_modern(data))
                self.assertEqual(run.report["runs"][0]["remarks"], [])
                self.check_sums(run, notes)

    def test_indented_and_compact_files_give_the_same_items(self):
        for path, data, _ in self.real_files():
            # Two prefixes of one file make no difference; a sample is enough for the large ones.
            if len(data) > 120_000:
                continue
            with self.subTest(file=os.path.relpath(path, CORPUS)):
                runs = [self.run_data(modern_enex.laid_out(data, indent), *WHOLE)
                        for indent in ("", "  ", "\t")]
                self.assertEqual(runs[0].run.returncode, 0, runs[0].run.stderr)
                records, files = runs[0].comparable()
                for run in runs[1:]:
                    other_records, other_files = run.comparable()
                    self.assertEqual(other_records, records)
                    self.assertEqual(sorted(other_files), sorted(files))
                    self.assertEqual([name for name in files if files[name] != other_files[name]], [])

    # Files of our own making.

    def check_own(self, notes, *options):
        data = ('<?xml version="1.0" encoding="UTF-8"?>\n<en-export application="Evernote" version="10.59.5">\n'
                + notes + "\n</en-export>").encode()
        run = self.run_data(data, *(options or WHOLE))
        self.check_whole(run, modern_enex.read(data))
        return run

    def test_checklists_in_the_new_form(self):
        run = self.check_own("""
            <note>
              <title>Lists</title>
              <content>
                <![CDATA[<en-note><ul style="--en-todo:true;"><li style="--en-checked:true;"><div>done</div></li>
                <li style="--en-checked:false;"><div>open</div></li><li><div>open too</div></li>
                <ul style="--en-todo:true;"><li style="--en-checked:true;"><div>within</div></li></ul></ul>
                <ol><li style="--en-checked:false;"><div>no box</div></li></ol></en-note>]]>
              </content>
            </note>""")
        self.assertEqual(len(re.findall("[\u2610\u2611]", run.text(run.items[0]))), 4)

    def test_tasks_of_every_kind(self):
        task = """
              <task>
                <title>{title}</title><created>20230720T063107Z</created><taskStatus>{status}</taskStatus>
                <taskGroupNoteLevelID>{group}</taskGroupNoteLevelID>{more}
              </task>"""
        tasks = [("a & b < c > \"d\" 'e'", "open", "G", "<dueDate>2757600913T000000Z</dueDate>"),
                 ("<en-todo checked=\"true\"/>", "completed", "G", ""),
                 ("]]>", "open", "none", "<dueDate>20220529T035959Z</dueDate><dueDateUIOption>date_only</dueDateUIOption>"
                                         "<timeZone>America/New_York</timeZone>"),
                 ("\u65e5\u672c\u8a9e \U0001f600", "open", "", "<dueDate>damaged</dueDate>"),
                 ("twice", "open", "G", ""), ("twice", "open", "G", ""),
                 ("remind me", "open", "G", "<reminder><title>no</title><reminderDate>20220522T070000Z</reminderDate>"
                                            "<timeZone>Europe/Budapest</timeZone></reminder>")]
        group = '<div style="--en-task-group:true; --en-id:{};"><div>Content not supported</div></div>'
        body = f"<en-note><div>before</div>{group.format('G')}<div>between</div>{group.format('G')}</en-note>"
        texts = "".join(task.format(title=modern_enex.escaped(title), status=status, group=group_name, more=more)
                        for title, status, group_name, more in tasks)
        run = self.check_own(f"<note>\n<title>Tasks</title>\n<created>20230720T063107Z</created>\n"
                             f"<content>\n<![CDATA[{body}]]>\n</content>{texts}\n</note>")
        text = run.text(run.items[0])
        self.assertLess(text.index("before"), text.index("twice"))
        self.assertLess(text.index("twice"), text.index("between"))
        self.assertEqual(text.count("Content not supported"), 1)

    def test_a_malformed_body_loses_neither_text_nor_tasks(self):
        group = '<div style="--en-task-group:true; --en-id:G"><div>placeholder</div>'
        for body in (f"<en-note><div>one{group}two</div><br>three</en-note>", "<en-note>one two<div>three",
                     "<en-note>one <b>two</i> three</en-note>", "one two three", "<en-note>one two three<a href='"):
            with self.subTest(body=body):
                run = self.run_data(f"<en-export><note>\n<title>Broken</title><content><![CDATA[{body}]]></content>"
                                    "<task><title>the task</title><taskGroupNoteLevelID>G</taskGroupNoteLevelID></task>"
                                    "</note></en-export>".encode(), *WHOLE)
                self.assertEqual(run.report["skipped"], [])
                text = run.text(run.items[0])
                for word in ("one", "two", "three", "\u2610 the task"):
                    self.assertIn(word, text)

    def test_a_body_of_any_sort_comes_across(self):
        run = self.check_own("<note>\n<title>None</title>\n<created>20230720T063107Z</created>\n</note>\n"
                             "<note>\n<title>Empty</title>\n<content>\n<![CDATA[<?xml version=\"1.0\"?>\n]]>\n</content>\n</note>\n"
                             "<note>\n<title>Text</title>\n<content>&lt;en-note&gt;text&lt;/en-note&gt;</content>\n</note>")
        self.assertIn("text", run.text(run.items[2]))

    def test_two_notes_of_one_title_are_nobodys_target(self):
        link = '<a href="evernote:///view/1/s1/{0}/{0}/">{1}</a>'
        body = "<en-note>" + "".join(link.format(n, text) for n, text in enumerate(("Later", "Twice", "Nowhere", ""))) + "</en-note>"
        notes = [("First", body), ("Twice", "<en-note>2</en-note>"), ("Twice", "<en-note>3</en-note>"), ("Later", body)]
        run = self.check_own("\n".join(f"<note>\n<title>{title}</title>\n<content><![CDATA[{content}]]></content>\n</note>"
                                       for title, content in notes))
        self.assertEqual(run.report["links"], {"count": 8, "resolved": 2, "asTheyWere": 6})

    def test_a_setting_named_on_the_command_line_holds(self):
        data = b"<en-export>\n<note>\n<title>a</title>\n<created>20230720T063107Z</created>\n" \
               b"<content><![CDATA[<en-note>x</en-note>]]></content></note></en-export>"
        self.assertIn("dateCreated", self.run_data(data).items[0])
        self.assertIn("dateCreated", self.run_data(data, "--set", "ModernENEX=YES").items[0])
        for options in (("--exact",), ("--set", "ModernENEX=NO")):
            run = self.run_data(data, *options)
            self.assertNotIn("dateCreated", run.items[0])
            self.assertIn("ModernENEX", " ".join(run.report["runs"][0]["remarks"]))
            self.assertIn("ModernENEX", run.output)

    def test_stamps_are_of_the_wall_clock_unless_they_are_asked_for_in_utc(self):
        data = b"<en-export><note><title>a</title><created>20230720T063107Z</created>" \
               b"<content><![CDATA[<en-note>x</en-note>]]></content></note></en-export>"
        zone = "America/New_York"
        wall = self.run_data(data, zone=zone).items[0]["dateCreated"]
        utc = self.run_data(data, "--set", "TimestampsInUTC=YES", zone=zone).items[0]["dateCreated"]
        self.assertEqual(utc, modern_enex.moment("20230720T063107Z"))
        self.assertEqual((wall - utc).total_seconds(), 4 * 3600)


if __name__ == "__main__":
    sys.argv[1:] = sys.argv[3:]
    unittest.main()
