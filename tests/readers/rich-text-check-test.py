#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""rich-text-check-test.py PROGRAM READER OFFICE: the judge must itself be judged. A notebook with one note
a feature is imported; a stand-in for the importer then damages every package in the one feature that
the note is about. Each damage must be noticed, and nothing else."""

import base64
import os
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
OFFICE = sys.argv.pop()
READER = sys.argv.pop()
PROGRAM = sys.argv.pop()

PICTURE = base64.b64decode("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6"
                           "kgAAAABJRU5ErkJggg==")

# Title: body, what is wanted in the rich text, what stands there instead, and the word for it in the report.
CASES = {
    "bold": ("<div>plain <b>bold</b></div>", rb"\b ", rb" ", "bold"),
    "italic": ("<div>plain <i>slanted</i></div>", rb"\i ", rb" ", "italic"),
    "underlined": ("<div>plain <u>lined</u></div>", rb"\ul ", rb"", "underline"),
    "struck": ("<div>plain <s>struck</s></div>", rb"\strike ", rb"", "strikethrough"),
    "coloured": ("<div>plain <span style=\"color:#c00\">red</span></div>", rb"\red204", rb"\red104", "color"),
    "highlighted": ("<div>plain <span style=\"background:#ff0\">marked</span></div>", rb"\cb2", rb"\cb1", "highlight"),
    "large": ("<div>plain <span style=\"font-size:20px\">large</span></div>", rb"\fs40", rb"\fs36", "size"),
    "in Georgia": ("<div>plain <span style=\"font-family:Georgia\">other</span></div>", rb"Georgia", rb"Helvetica",
                   "family"),
    "raised": ("<div>1 m<sup>2</sup></div>", rb"\super ", rb"", "shift"),
    "centred": ("<div style=\"text-align:center\">middle</div>", rb"\qc", rb"\ql", "alignment"),
    "linked": ("<div>a <a href=\"https://example.org/a\">link</a></div>", rb"example.org/a", rb"example.org/b", "link"),
    "beyond the plane": ("<div>smile \U0001f600</div>", rb"\u-8704", rb"\u-8703", "text"),
    "said": ("<div>every word</div>", rb"every", rb"ever", "text"),
    "bulleted": ("<ul><li>item</li></ul><div>end</div>", rb"\uc0\u8226 	}", rb"\uc0\u9702 	}", "text"),
    "numbered": ("<ol><li>item</li><li>item</li></ol><div>end</div>", rb"	2.	", rb"	3.	", "text"),
    "nested": ("<ul><li>a<ul><li>b</li></ul></li></ul><div>end</div>", rb"\ls1\ilvl1", rb"\ls1\ilvl0", "list marker"),
    "tabled": ("<table><tr><td>a</td><td>b</td></tr><tr><td colspan=\"2\">c</td></tr></table><div>end</div>",
               rb"\clmrg ", rb"", "cell"),
    "filled": ("<table><tr><td style=\"background:#cfc\">a</td></tr></table><div>end</div>", rb"\clcbpat2",
               rb"\clcbpat1", "cell"),
    "boxed": ("<div style=\"--en-codeblock:true\">code</div><div>end</div>", rb"\clcbpat2 ", rb"\clcbpat1 ", "colour"),
    "pictured": ("<div>a <en-media type=\"image/png\" hash=\"%s\"/></div>", None, None, "attachments"),
}

STAND_IN = r'''#!/usr/bin/env python3
import glob, os, subprocess, sys
sys.path.insert(0, %(here)r)
code = subprocess.run([%(program)r, *sys.argv[1:]]).returncode
root = sys.argv[sys.argv.index("--files-folder") + 1]
for title, (wanted, instead) in %(damages)r.items():
    for package in glob.glob(os.path.join(root, "Evernote", "*", title + ".qlnote")):
        if wanted is None:
            for picture in glob.glob(os.path.join(package, "*.png")):
                with open(picture, "ab") as out:
                    out.write(b"x")
            continue
        path = os.path.join(package, "TXT.rtf")
        with open(path, "rb") as source:
            text = source.read()
        assert wanted in text, (title, text)
        with open(path, "wb") as out:
            out.write(text.replace(wanted, instead))
sys.exit(code)
'''


def notebook():
    import hashlib
    digest = hashlib.md5(PICTURE).hexdigest()
    notes = ""
    for title, (body, *_) in CASES.items():
        resource = ""
        if "%s" in body:
            body %= digest
            resource = ("<resource><data encoding=\"base64\">" + base64.b64encode(PICTURE).decode()
                        + "</data><mime>image/png</mime><resource-attributes><file-name>dot.png</file-name>"
                          "</resource-attributes></resource>")
        notes += (f"<note><title>{title}</title><content><![CDATA[<en-note>{body}</en-note>]]></content>"
                  f"<created>20240101T000000Z</created>{resource}</note>")
    return f"<?xml version=\"1.0\" encoding=\"UTF-8\"?><en-export>{notes}</en-export>"


class RichTextCheck(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.path = os.path.join(cls.scratch.name, "Notebook.enex")
        with open(cls.path, "w", encoding="utf-8") as out:
            out.write(notebook())

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def judge(self, program, *inputs):
        return subprocess.run([sys.executable, "-B", os.path.join(HERE, "rich-text-check.py"), "--import", program,
                               "--reader", READER, "--office", OFFICE, *inputs],
                              capture_output=True, text=True, timeout=500)

    def test_accepts_sound_packages(self):
        run = self.judge(PROGRAM, self.path)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        count = len(CASES)
        self.assertIn(f"compared {count} notes, {count} equal", run.stdout)

    def test_notices_each_damage(self):
        program = os.path.join(self.scratch.name, "stand-in")
        damages = {title: (wanted, instead) for title, (_, wanted, instead, _) in CASES.items()}
        with open(program, "w", encoding="utf-8") as out:
            out.write(STAND_IN % {"here": HERE, "program": PROGRAM, "damages": damages})
        os.chmod(program, 0o755)
        run = self.judge(program, self.path)
        self.assertEqual(run.returncode, 1, run.stdout + run.stderr)
        for title, (_, _, _, word) in CASES.items():
            with self.subTest(title):
                lines = [line for line in run.stdout.splitlines() if f": '{title}': " in line]
                self.assertTrue(any(word in line.split(": ", 2)[2] for line in lines), run.stdout + run.stderr)
        self.assertIn(f"compared {len(CASES)} notes, 0 equal", run.stdout)

    def test_skips_where_there_is_nothing(self):
        run = self.judge(PROGRAM, "/nonexistent")
        self.assertEqual(run.returncode, 77)
        self.assertIn("skipped", run.stdout)


if __name__ == "__main__":
    unittest.main()
