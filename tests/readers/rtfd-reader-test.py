#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""rtfd-reader-test.py READER SAMPLES: the GNUstep reader itself, before it judges anything."""

import hashlib
import json
import os
import plistlib
import subprocess
import sys
import tempfile
import unittest

SAMPLES = sys.argv.pop()
READER = sys.argv.pop()
UID = plistlib.UID


def class_record(*chain):
    return {"$classname": chain[0], "$classes": [*chain, "NSObject"]}


class RtfdReader(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.home = scratch.name
        self.package = os.path.join(scratch.name, "a.rtfd")
        os.mkdir(self.package)

    def write(self, name, data):
        with open(os.path.join(self.package, name), "wb") as out:
            out.write(data)

    def read(self, *packages, code=0):
        environment = {**os.environ, "HOME": self.home, "LC_ALL": "C.UTF-8"}
        environment.pop("DISPLAY", None)
        run = subprocess.run([READER, *packages], env=environment, capture_output=True, timeout=60)
        self.assertEqual(run.returncode, code, run.stderr)
        return [json.loads(line) for line in run.stdout.splitlines()]

    def test_reads_text_runs_and_links(self):
        self.write("TXT.rtf", b"{\\rtf1\\ansi\\ansicpg1252\\cocoartf2822\n"
                   b"{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fswiss\\fcharset0 Helvetica-Bold;}\n"
                   b"{\\colortbl;\\red255\\green255\\blue255;\\red255\\green0\\blue0;}\n"
                   b"\\pard\\qc\\f0\\fs24 plain \\f1\\b\\fs36 bold\\f0\\b0\\fs24  \\cf2 red \\cf0 \\ul under\\ulnone  "
                   b"{\\field{\\*\\fldinst{HYPERLINK \"https://example.org/\"}}{\\fldrslt link}}\\\n"
                   b"\\uc0\\u9745 \\u65038  \\'e9}")
        (facts,) = self.read(self.package)
        self.assertEqual(facts["text"], "plain bold red under link\n\u2611\ufe0e \u00e9")

        def run_at(word):
            at = facts["text"].index(word)
            return next(r for r in facts["runs"] if r["range"][0] <= at < sum(r["range"]))

        self.assertEqual((run_at("bold")["font"], run_at("bold")["size"]), ("Helvetica-Bold", 18))
        self.assertTrue(run_at("bold")["bold"])
        self.assertFalse(run_at("plain")["bold"])
        self.assertEqual(run_at("plain")["alignment"], "center")
        self.assertEqual(run_at("red")["foreground"], "#ff0000")
        self.assertTrue(run_at("under")["underline"])
        self.assertEqual(run_at("link")["link"], "https://example.org/")

    def test_reads_attachments(self):
        self.write("a b.bin", b"contents")
        self.write("TXT.rtf", b"{\\rtf1\\ansi\\ansicpg1252 x{{\\NeXTGraphic a b.bin \\width640 \\height640\n}\xac}y}")
        (facts,) = self.read(self.package)
        self.assertEqual(facts["attachments"], [{"name": "a b.bin", "position": 1, "size": 8,
                                                 "md5": hashlib.md5(b"contents").hexdigest()}])

    def test_an_attachment_that_no_picture_decoder_takes_does_not_end_the_text(self):
        for data in (b"%PDF-1.4\n", b"", b"\x89PNG\r\n\x1a\nbroken"):
            self.write("a.pdf", data)
            self.write("TXT.rtf", b"{\\rtf1\\ansi x{{\\NeXTGraphic a.pdf \\width640 \\height640\n}\xac}y}")
            (facts,) = self.read(self.package)
            self.assertEqual(facts["text"], "x\ufffcy")
            self.assertEqual(facts["attachments"][0]["size"], len(data))

    def test_reads_the_note_record(self):
        self.write("TXT.rtf", b"{\\rtf1\\ansi x}")
        objects = ["$null",
                   {"$class": UID(2), "fileVersion": 3000, "visibleChars": UID(3), "selectedChars": UID(3),
                    "typingAttributes": UID(0), "layoutOrientation": 0, "hyphenationFactor": 0.5,
                    "scaleFactor": 1.25, "rulerVisible": True, "visibleCGRect": UID(4),
                    "checklistItems": UID(8)},
                   class_record("QLNoteAttributes"), "{5, 3}",
                   {"$class": UID(5), "NS.keys": [UID(6)], "NS.objects": [UID(7)]},
                   class_record("NSDictionary"), "width", 640.5,
                   {"$class": UID(9), "NS.objects": [UID(10)]}, class_record("NSMutableArray", "NSArray"),
                   {"$class": UID(11), "on": True, "range": UID(3)}, class_record("QLNoteChecklistItem")]
        self.write("NoteAttributes", plistlib.dumps(
            {"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": {"root": UID(1)},
             "$objects": objects}, fmt=plistlib.FMT_BINARY))
        (facts,) = self.read(self.package)
        self.assertEqual(facts["noteAttributes"], {
            "fileVersion": 3000, "visibleChars": "{5, 3}", "selectedChars": "{5, 3}", "typingAttributes": None,
            "layoutOrientation": 0, "hyphenationFactor": 0.5, "scaleFactor": 1.25, "rulerVisible": True,
            "visibleCGRect": {"width": 640.5}, "checklistItems": [{"on": True, "range": "{5, 3}"}]})

    def test_says_what_it_cannot_read(self):
        (facts,) = self.read(os.path.join(self.home, "nothing.rtfd"), code=1)
        self.assertIn("error", facts)

    def test_reads_packages_from_a_mac(self):
        if not os.path.isdir(SAMPLES):
            self.skipTest("the sample packages are not here")
        packages = sorted(os.path.join(SAMPLES, name) for name in os.listdir(SAMPLES))
        for facts in self.read(*packages):
            self.assertGreater(len(facts["text"]), 100, facts["package"])


if __name__ == "__main__":
    unittest.main()
