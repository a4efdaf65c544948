#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""manifest-check.py FILES_FOLDER: checks a files folder against its manifest and prints JSON.

{"folders": number, "items": number, "types": {item type: number}, "unlisted": [files that no item names],
 "breaches": [text]}. Exit code 1 when there is a breach. Shares no code with the program.
"""

import datetime
import json
import os
import plistlib
import re
import stat
import sys

MANIFEST = "Evernote.qllibxml"
ENTITY_NAME = "com.brightmoor.Quillery.EntityName"
VERSION = 353
FOLDER_GROUP_TYPE = 70
UUID = re.compile(r"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}")
NOTE, WEB_PAGE = 1, 7
ITEM_TYPES = range(1, 8)

FOLDER_KEYS = {ENTITY_NAME: str, "name": str, "identifier": str, "groupType": int, "parent": str,
               "comments": str, "items": list}
ITEM_KEYS = {ENTITY_NAME: str, "identifier": str, "itemType": int, "name": str, "filename": str,
             "absoluteFilename": str, "folder": str}
OPTIONAL_ITEM_KEYS = {"extensionHidden": bool, "dateCreated": datetime.datetime,
                      "dateModified": datetime.datetime, "comments": str, "tagsString": str}


class Check:
    def __init__(self, files_folder):
        self.root = files_folder.rstrip("/")
        self.breaches = []
        self.named = set()
        self.types = {}

    def breach(self, text):
        self.breaches.append(text)

    def keys(self, what, record, required, optional):
        for key, kind in required.items():
            if key not in record:
                self.breach(f"{what}: there is no {key}")
        for key, value in record.items():
            kind = required.get(key) or optional.get(key)
            if kind is None:
                self.breach(f"{what}: {key} is no key of such a record")
            elif type(value) is not kind:  # a boolean is no integer here
                self.breach(f"{what}: {key} is a {type(value).__name__}, not a {kind.__name__}")

    def top(self, manifest):
        self.keys("manifest", manifest,
                  {"ExporterVersion": int, "RemoveFileOnCompletion": str, "Entities": dict}, {})
        if manifest.get("ExporterVersion") != VERSION:
            self.breach(f"ExporterVersion is {manifest.get('ExporterVersion')}")
        removed = manifest.get("RemoveFileOnCompletion", "")
        if removed.endswith("/") or not os.path.isabs(removed):
            self.breach(f"RemoveFileOnCompletion is {removed!r}")
        elif os.path.realpath(removed) != os.path.realpath(self.root):
            self.breach(f"RemoveFileOnCompletion names another folder: {removed!r}")
        self.keys("Entities", manifest.get("Entities", {}), {"Folder": dict, "Item": dict}, {})

    def record(self, what, key, record, entity):
        if record.get("identifier") != key:
            self.breach(f"{what}: the key differs from the identifier")
        if not UUID.fullmatch(key):
            self.breach(f"{what}: the identifier is no UUID in capitals")
        if record.get(ENTITY_NAME) != entity:
            self.breach(f"{what}: the entity name is {record.get(ENTITY_NAME)!r}")

    def folder(self, key, record, items):
        what = f"folder {record.get('name')!r}"
        self.keys(what, record, FOLDER_KEYS, {})
        self.record(what, key, record, "Folder")
        if record.get("groupType") != FOLDER_GROUP_TYPE:
            self.breach(f"{what}: groupType is {record.get('groupType')}")
        if record.get("parent") != "RootFolder":
            self.breach(f"{what}: parent is {record.get('parent')!r}")
        if not re.fullmatch(r"Imported from Evernote, \S.*", record.get("comments", "")):
            self.breach(f"{what}: comments are {record.get('comments')!r}")
        listed = record.get("items", [])
        if len(set(listed)) != len(listed):
            self.breach(f"{what}: an item is listed twice")
        own = {identifier for identifier, item in items.items() if item.get("folder") == key}
        if set(listed) != own:
            self.breach(f"{what}: {len(set(listed) ^ own)} items are on one side only")

    def item(self, key, record, folders):
        what = f"item {record.get('name')!r}"
        self.keys(what, record, ITEM_KEYS, OPTIONAL_ITEM_KEYS)
        self.record(what, key, record, "Item")
        if record.get("folder") not in folders:
            self.breach(f"{what}: its folder is not in the manifest")
        kind = record.get("itemType")
        if kind not in ITEM_TYPES:
            self.breach(f"{what}: itemType is {kind}")
        self.types[kind] = self.types.get(kind, 0) + 1
        name, filename = record.get("name", ""), record.get("filename", "")
        if record.get("extensionHidden") is False:
            self.breach(f"{what}: extensionHidden is false instead of absent")
        if record.get("extensionHidden") and name != os.path.splitext(filename)[0]:
            self.breach(f"{what}: the name is not the file name {filename!r} without its extension")
        for empty in ("tagsString", "comments"):
            if record.get(empty) == "":
                self.breach(f"{what}: an empty {empty}")
        self.file(what, kind, filename, record.get("absoluteFilename", ""))

    def file(self, what, kind, filename, path):
        if not os.path.isabs(path) or os.path.basename(path) != filename:
            self.breach(f"{what}: {path!r} is not the absolute path of {filename!r}")
        if not os.path.realpath(path).startswith(os.path.realpath(self.root) + os.sep):
            self.breach(f"{what}: {path!r} stands outside the files folder")
        if path in self.named:
            self.breach(f"{what}: {path!r} belongs to two items")
        self.named.add(path)
        if not os.path.exists(path):
            self.breach(f"{what}: there is no {path!r}")
        elif kind == NOTE:
            if not filename.endswith(".qlnote") or not os.path.isfile(os.path.join(path, "TXT.rtf")):
                self.breach(f"{what}: {path!r} is no note package")
            elif not os.path.isfile(os.path.join(path, "NoteAttributes")):
                self.breach(f"{what}: {path!r} has no NoteAttributes")
        elif not os.path.isfile(path):
            self.breach(f"{what}: {path!r} is no file")
        elif kind == WEB_PAGE and filename.endswith(".webarchive"):
            with open(path, "rb") as archive:
                if "WebMainResource" not in plistlib.load(archive):
                    self.breach(f"{what}: {path!r} has no main resource")

    def unlisted(self):
        """Whatever lies in the notebook folders and belongs to no item."""
        found = []
        for folder in os.scandir(self.root):
            if folder.name == MANIFEST:
                continue
            if not folder.is_dir(follow_symlinks=False):
                found.append(folder.path)
                continue
            for entry in os.scandir(folder.path):
                if entry.path not in self.named:
                    found.append(entry.path)
                if UUID.fullmatch(entry.name):
                    self.breach(f"a scratch folder was left: {entry.path!r}")
        return sorted(found)

    def links(self):
        for folder, folders, files in os.walk(self.root):
            for name in folders + files:
                path = os.path.join(folder, name)
                if stat.S_ISLNK(os.lstat(path).st_mode):
                    self.breach(f"a link: {path!r}")

    def run(self):
        path = os.path.join(self.root, MANIFEST)
        with open(path, "rb") as source:
            data = source.read()
        if not data.startswith(b"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"):
            self.breach("the manifest is not an XML property list in UTF-8")
        manifest = plistlib.loads(data)
        self.top(manifest)
        entities = manifest.get("Entities", {})
        folders, items = entities.get("Folder", {}), entities.get("Item", {})
        for key, record in folders.items():
            self.folder(key, record, items)
        for key, record in items.items():
            self.item(key, record, folders)
        listed = sum(len(record.get("items", [])) for record in folders.values())
        if listed != len(items):
            self.breach(f"folders list {listed} items, the manifest holds {len(items)}")
        self.links()
        return {"folders": len(folders), "items": len(items),
                "types": {str(kind): count for kind, count in sorted(self.types.items())},
                "unlisted": self.unlisted(), "breaches": self.breaches}


def main(arguments):
    if len(arguments) != 1:
        sys.exit("usage: manifest-check.py FILES_FOLDER")
    found = Check(os.path.abspath(arguments[0])).run()
    print(json.dumps(found, indent=1, ensure_ascii=False))
    return 1 if found["breaches"] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
