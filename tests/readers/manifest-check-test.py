#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The manifest check accepts a sound files folder and notices each thing that can be wrong with one."""

import datetime
import importlib.util
import os
import plistlib
import tempfile
import unittest

spec = importlib.util.spec_from_file_location(
    "manifest_check", os.path.join(os.path.dirname(os.path.abspath(__file__)), "manifest-check.py"))
manifest_check = importlib.util.module_from_spec(spec)
spec.loader.exec_module(manifest_check)

FOLDER = "11111111-2222-3333-4444-555555555555"
ITEM = "AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE"


class ManifestCheck(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.root = os.path.join(self.scratch.name, "Evernote")
        self.note = os.path.join(self.root, "Book", "One.qlnote")
        os.makedirs(self.note)
        for name in ("TXT.rtf", "NoteAttributes"):
            with open(os.path.join(self.note, name), "w", encoding="ascii") as out:
                out.write("x")
        self.folder = {
            manifest_check.ENTITY_NAME: "Folder", "name": "Book", "identifier": FOLDER, "groupType": 70,
            "parent": "RootFolder", "comments": "Imported from Evernote, Apr 12, 2013, 9:30 AM",
            "items": [ITEM]}
        self.item = {
            manifest_check.ENTITY_NAME: "Item", "identifier": ITEM, "itemType": 1, "name": "One",
            "filename": "One.qlnote", "absoluteFilename": self.note, "extensionHidden": True,
            "folder": FOLDER, "dateCreated": datetime.datetime(2013, 4, 12), "tagsString": "a,b"}
        self.top = {"ExporterVersion": 353, "RemoveFileOnCompletion": self.root,
                    "Entities": {"Folder": {FOLDER: self.folder}, "Item": {ITEM: self.item}}}

    def breaches(self):
        with open(os.path.join(self.root, manifest_check.MANIFEST), "wb") as out:
            plistlib.dump(self.top, out)
        return manifest_check.Check(self.root).run()["breaches"]

    def test_accepts_a_sound_folder(self):
        self.assertEqual(self.breaches(), [])

    def test_notices_what_is_wrong_with_the_top(self):
        for key, value in (("ExporterVersion", 352), ("RemoveFileOnCompletion", self.root + "/"),
                           ("RemoveFileOnCompletion", "/tmp"), ("Other", 1)):
            sound = dict(self.top)
            self.top[key] = value
            self.assertNotEqual(self.breaches(), [], f"{key} = {value}")
            self.top = sound

    def test_notices_what_is_wrong_with_a_folder(self):
        for key, value in (("groupType", 71), ("groupType", True), ("parent", ""), ("comments", "Imported"),
                           ("items", []), ("items", [ITEM, ITEM]), ("identifier", ITEM), ("more", "")):
            sound = dict(self.folder)
            self.folder[key] = value
            self.assertNotEqual(self.breaches(), [], f"{key} = {value}")
            self.folder.clear()
            self.folder.update(sound)

    def test_notices_what_is_wrong_with_an_item(self):
        for key, value in (("itemType", 8), ("itemType", "1"), ("name", "Two"), ("filename", "Two.qlnote"),
                           ("absoluteFilename", "/etc/passwd"), ("extensionHidden", False), ("folder", ITEM),
                           ("dateCreated", "2013"), ("tagsString", ""), ("comments", ""),
                           (manifest_check.ENTITY_NAME, "Folder")):
            sound = dict(self.item)
            self.item[key] = value
            self.assertNotEqual(self.breaches(), [], f"{key} = {value}")
            self.item.clear()
            self.item.update(sound)

    def test_notices_a_missing_key(self):
        for record in (self.item, self.folder):
            for key in [key for key in record if key not in manifest_check.OPTIONAL_ITEM_KEYS
                        or record is self.folder]:
                value = record.pop(key)
                self.assertNotEqual(self.breaches(), [], f"without {key}")
                record[key] = value

    def test_notices_what_lies_about(self):
        os.symlink("/etc", os.path.join(self.root, "Book", "link"))
        self.assertNotEqual(self.breaches(), [])
        os.remove(os.path.join(self.root, "Book", "link"))
        os.mkdir(os.path.join(self.root, "Book", ITEM))
        self.assertNotEqual(self.breaches(), [])


if __name__ == "__main__":
    unittest.main()
