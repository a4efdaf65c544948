#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""corpus-check-test.py READER SAMPLE: the judge must itself be judged. A stand-in importer writes what a
sound run would write for the sample notebook, then gets one thing wrong at a time; each must be noticed."""

import os
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SAMPLE = sys.argv.pop()
READER = sys.argv.pop()

STAND_IN = r'''#!/usr/bin/env python3
import base64, datetime, hashlib, importlib.util, json, os, plistlib, sys, uuid
import xml.etree.ElementTree as ElementTree
spec = importlib.util.spec_from_file_location("enex_facts", "%(here)s/enex-facts.py")
facts_of = importlib.util.module_from_spec(spec); spec.loader.exec_module(facts_of)
arguments, fault = [a for a in sys.argv[1:] if a != "--exact"], "%(fault)s"
root, report, path = arguments[1], arguments[3], arguments[4]
if fault == "crash": os.abort()
if fault == "failure": sys.exit(1)
folder = os.path.join(root, "Evernote", "Book"); os.makedirs(folder)
datas = [base64.b64decode(d.text) for d in ElementTree.parse(path).getroot().iter("data")]
by_md5 = {hashlib.md5(d).hexdigest(): d for d in datas}
date = lambda t: datetime.datetime.strptime(t, "%%Y%%m%%dT%%H%%M%%SZ")
uid = plistlib.UID
record = plistlib.dumps({"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": {"root": uid(1)},
    "$objects": ["$null", {"$class": uid(2), "fileVersion": 3000},
                 {"$classname": "QLNoteAttributes", "$classes": ["QLNoteAttributes", "NSObject"]}]},
    fmt=plistlib.FMT_BINARY)
group, items, skipped = str(uuid.uuid4()).upper(), {}, []
for number, note in enumerate(facts_of.read(path)["notes"]):
    if fault == "lost note" and number == 3: continue
    if fault == "silent skip" and number == 3:
        skipped.append({"title": note["title"], "domain": "d", "code": 1, "text": ""}); continue
    name = str(number)
    package = os.path.join(folder, name + ".qlnote"); os.makedirs(package)
    media = list(note["media"]); text = note["text"]
    if fault == "lost text" and number == 5: text = text.replace("Red", "")
    if fault == "lost attachment" and number == 7: text = text[::-1].replace("\ufffc", "", 1)[::-1]; media.pop()
    rtf = "{\\rtf1\\ansi\\ansicpg1252 "
    for character in text:
        if character == "\ufffc":
            file = "a%%d.bin" %% len(os.listdir(package))
            data = by_md5[media.pop(0)]
            if fault == "changed attachment": data += b"x"
            open(os.path.join(package, file), "wb").write(data)
            rtf += "{{\\NeXTGraphic %%s \\width10 \\height10\n}\\'ac}" %% file
        elif ord(character) > 126 or character in "\\{}":
            units = character.encode("utf-16-le")
            for at in range(0, len(units), 2):
                value = int.from_bytes(units[at:at + 2], "little", signed=True)
                rtf += "\\uc0\\u%%d " %% value
        else: rtf += character
    open(os.path.join(package, "TXT.rtf"), "wb").write((rtf + "}").encode("ascii").replace(b"\\'ac", b"\xac"))
    open(os.path.join(package, "NoteAttributes"), "wb").write(record)
    key = str(uuid.uuid4()).upper()
    items[key] = {"com.brightmoor.Quillery.EntityName": "Item", "identifier": key, "itemType": 1, "name": name,
        "filename": name + ".qlnote", "absoluteFilename": package, "extensionHidden": True, "folder": group,
        "dateCreated": date(note["created"])}
    if note["updated"]: items[key]["dateModified"] = date(note["updated"])
    if fault == "wrong date": items[key]["dateCreated"] += datetime.timedelta(hours=1)
    if note["tags"] and fault != "lost tags": items[key]["tagsString"] = ",".join(note["tags"])
    if note["sourceURL"]: items[key]["comments"] = note["sourceURL"]
if fault == "stray file": open(os.path.join(folder, "stray"), "w").close()
book = {"com.brightmoor.Quillery.EntityName": "Folder", "name": "Book", "identifier": group, "groupType": 70,
    "parent": "RootFolder", "comments": "Imported from Evernote, today", "items": list(items)}
plistlib.dump({"ExporterVersion": 353, "RemoveFileOnCompletion": os.path.join(root, "Evernote"),
    "Entities": {"Folder": {group: book}, "Item": items}},
    open(os.path.join(root, "Evernote", "Evernote.qllibxml"), "wb"))
json.dump({"notes": len(facts_of.read(path)["notes"]), "items": len(items), "skipped": skipped, "warnings": [],
    "seconds": 0}, open(report, "w"))
'''


class CorpusCheck(unittest.TestCase):
    def judge(self, fault):
        with tempfile.TemporaryDirectory() as scratch:
            program = os.path.join(scratch, "stand-in")
            with open(program, "w", encoding="utf-8") as out:
                out.write(STAND_IN % {"here": HERE, "fault": fault})
            os.chmod(program, 0o755)
            return subprocess.run([sys.executable, "-B", os.path.join(HERE, "corpus-check.py"), "--import", program,
                                   "--reader", READER, SAMPLE], capture_output=True, text=True, timeout=100)

    def test_accepts_a_sound_run(self):
        run = self.judge("")
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        self.assertIn("compared 15 notes, 15 equal", run.stdout)

    def test_notices_each_fault(self):
        for fault in ("crash", "failure", "lost note", "silent skip", "lost text", "lost attachment",
                      "changed attachment", "wrong date", "lost tags", "stray file"):
            with self.subTest(fault):
                run = self.judge(fault)
                self.assertEqual(run.returncode, 1, run.stdout + run.stderr)

    def test_skips_where_there_is_nothing(self):
        run = subprocess.run([sys.executable, "-B", os.path.join(HERE, "corpus-check.py"), "--import", "x",
                              "--reader", "x", "/nonexistent"], capture_output=True, text=True, timeout=100)
        self.assertEqual(run.returncode, 77)
        self.assertIn("skipped", run.stdout)


if __name__ == "__main__":
    unittest.main()
