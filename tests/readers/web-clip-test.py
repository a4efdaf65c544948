#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""web-clip-test.py VUPUGE-IMPORT CORPUS: imports clips and reads the archives with Python's own reader."""

import os
import re
import sys
import tempfile
import unittest

import web_clip_run
from web_clip_run import Answer, Import, Site, clip, enex, png

web_archive_check = web_clip_run.load("web-archive-check")
NOTE, WEB_PAGE = 1, 7
RELOAD = ("ReloadFromWeb=YES",)
PROGRAM, CORPUS = sys.argv[1], sys.argv[2]


class WebClip(unittest.TestCase):
    def imported(self, *notes, settings=()):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        return Import(PROGRAM, scratch.name, enex(*notes), settings)

    def archive(self, item):
        self.assertEqual(item["itemType"], WEB_PAGE)
        archive, breaches = web_archive_check.read(item["absoluteFilename"])
        self.assertEqual(breaches, [])
        return archive

    def resources(self, archive):
        return [(resource["WebResourceURL"], resource["WebResourceMIMEType"], resource["WebResourceData"])
                for resource in archive["WebSubresources"]]

    def test_a_clip_holds_its_images(self):
        pictures = [(png(200, 0, 0), "image/png", "50% #1?.png"), (png(0, 200, 0), "image/png", "a b & c.png"),
                    (b"GIF89a", "image/gif", "")]
        run = self.imported(clip("Three", "http://example.org/page", "<p>Blåbær</p>", pictures))
        archive = self.archive(run.items[0])
        self.assertEqual(archive["QuilleryResource"], {"QLOriginalWebURL": "http://example.org/page"})
        self.assertIn("<p>Blåbær</p>", archive["WebMainResource"]["WebResourceData"].decode("utf-8"))
        self.assertEqual(archive["WebMainResource"]["WebResourceTextEncodingName"], "UTF-8")
        self.assertEqual(archive["WebMainResource"]["WebResourceFrameName"], "")
        self.assertEqual([(data, kind) for _, kind, data in self.resources(archive)],
                         [(data, kind) for data, kind, _ in pictures])
        self.assertEqual(run.report["skipped"], [])

    def test_a_clip_with_a_document_is_a_note(self):
        run = self.imported(clip("Paper", "http://example.org/", resources=[(b"%PDF-1.4", "application/pdf", "a.pdf")]))
        self.assertEqual(run.items[0]["itemType"], NOTE)
        self.assertEqual(run.items[0]["filename"], "Paper.qlnote")

    def test_a_page_is_loaded_again_with_all_it_shows(self):
        red, green = png(200, 0, 0), png(0, 200, 0)
        page = '<link rel="stylesheet" href="a.css"><img src="red.png"><iframe name="inner" src="inner.html"></iframe>'
        with Site({"/page": Answer(page, packed=True), "/a.css": Answer("p{background:url(green.png)}", "text/css"),
                   "/red.png": Answer(red, "image/png"), "/green.png": Answer(green, "image/png"),
                   "/inner.html": Answer('<img src="red.png">')}) as site:
            run = self.imported(clip("Page", site.address("/page")), settings=RELOAD)
        archive = self.archive(run.items[0])
        self.assertEqual(archive["WebMainResource"]["WebResourceData"].decode(), page)
        self.assertEqual(archive["WebMainResource"]["WebResourceURL"], site.address("/page"))
        self.assertEqual(sorted(self.resources(archive)),
                         sorted([(site.address("/a.css"), "text/css", b"p{background:url(green.png)}"),
                                 (site.address("/green.png"), "image/png", green),
                                 (site.address("/red.png"), "image/png", red)]))
        (frame,) = archive["WebSubframeArchives"]
        self.assertEqual(frame["WebMainResource"]["WebResourceFrameName"], "inner")
        self.assertEqual(frame["WebMainResource"]["WebResourceData"], b'<img src="red.png">')
        self.assertEqual(self.resources(frame), [(site.address("/red.png"), "image/png", red)])

    def test_a_page_that_is_gone_is_asked_for_once_and_rebuilt(self):
        with Site({}) as site:
            run = self.imported(clip("Gone", site.address("/gone")), settings=RELOAD)
            self.assertEqual(site.asked, ["/gone"])
        archive = self.archive(run.items[0])
        self.assertIn("<p>clipped</p>", archive["WebMainResource"]["WebResourceData"].decode())
        self.assertEqual(archive["QuilleryResource"]["QLOriginalWebURL"], site.address("/gone"))

    def test_real_clips(self):
        if not os.path.isdir(CORPUS):
            self.skipTest(f"there is nothing at {CORPUS}")
        converted = 0
        for folder, _, names in sorted(os.walk(CORPUS)):
            for name in sorted(names):
                with open(os.path.join(folder, name), encoding="utf-8", errors="replace") as source:
                    text = source.read() if name.endswith(".enex") else ""
                if "<source>web.clip" not in text:
                    continue
                # Today's clips name another source, and some show pictures of servers that a test leaves alone.
                text = re.sub(r"<source>web\.clip\w*</source>", "<source>web.clip</source>", text)
                text = re.sub(r"https?://(?=[^\"<>]*\")", "http://127.0.0.1:9/", text)
                # White space behind an element still belongs to it, which keeps clips of indented files notes.
                text = re.sub(r"(?s)<note-attributes>.*?</note-attributes>",
                              lambda found: re.sub(r">\s+<", "><", found[0]), text)
                scratch = tempfile.TemporaryDirectory()
                self.addCleanup(scratch.cleanup)
                with self.subTest(name):
                    self.check_real_clip(Import(PROGRAM, scratch.name, text), text)
                    converted += 1
        self.assertGreaterEqual(converted, 5)

    def check_real_clip(self, run, text):
        shown = set(re.findall(r"<en-media[^>]*hash=\"(\w+)\"", text))
        self.assertEqual(run.report["skipped"], [])
        (item,) = run.items
        if item["itemType"] != WEB_PAGE:
            # A clip of nothing but a picture is the picture; one that shows another file is a note.
            self.assertIn(item["itemType"], (NOTE, 3))
            return
        held = {web_clip_run.hashlib.md5(data).hexdigest() for _, _, data in self.resources(self.archive(item))}
        self.assertEqual(shown - held, set())
        print(f"{item['filename']}: {len(held)} images", file=sys.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
