#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""page-rendering-test.py VUPUGE-IMPORT CHROMIUM: a page and its web archive must look the same.

Each page of a site is drawn by a browser; then it is clipped, the site goes away, and a server that has
nothing but the archive's resources takes its address. The browser draws the page again, and the pictures must
be equal to the last pixel. A third picture, of the page without its resources, must differ, or the page would
prove nothing. rendered_pages.py has the pages, and says which are left out. Exit code 77 when the browser does not run here.
"""

import os
import struct
import subprocess
import sys
import tempfile
import unittest
import urllib.parse
import zlib

import web_clip_run
from rendered_pages import ALONE, PAGES, with_installed_font
from web_clip_run import Answer, Import, Site, clip, enex

web_archive_check = web_clip_run.load("web-archive-check")
SKIP = 77
PROGRAM, CHROMIUM = sys.argv[1], sys.argv[2]


def answer_of(resource, is_document):
    kind = resource["WebResourceMIMEType"]
    if resource.get("WebResourceTextEncodingName"):
        kind += "; charset=" + resource["WebResourceTextEncodingName"]
    # A document is stored in UTF-8, whatever its own markup says.
    assert not is_document or not kind.startswith("text/") or kind.endswith("charset=UTF-8"), kind
    return Answer(resource["WebResourceData"], kind)


def answers_of(archive, port):
    """What a server with nothing but the archive answers on that port."""
    answers = {}
    waiting = [archive]
    while waiting:
        found = waiting.pop()
        waiting += found["WebSubframeArchives"]
        for number, resource in enumerate([found["WebMainResource"], *found["WebSubresources"]]):
            parts = urllib.parse.urlsplit(resource["WebResourceURL"])
            if parts.scheme == "http" and parts.port == port:
                answers[parts.path + ("?" + parts.query if parts.query else "")] = answer_of(resource, number == 0)
    return answers


def screenshot(folder, name, address):
    path = os.path.join(folder, name + ".png")
    run = subprocess.run(
        [CHROMIUM, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--window-size=800,600",
         "--force-device-scale-factor=1", "--disable-background-networking", "--disable-component-update",
         # Drawn when all has settled, not when the last frame has loaded.
         "--virtual-time-budget=3000", "--no-first-run", f"--user-data-dir={folder}/profile-{name}",
         f"--screenshot={path}", address],
        stdin=subprocess.DEVNULL, capture_output=True, timeout=web_clip_run.ALLOWED_SECONDS)
    if not os.path.exists(path):
        raise RuntimeError(f"no screenshot of {address}: {run.stderr[-400:].decode(errors='replace')}")
    with open(path, "rb") as source:
        return pixels(source.read())


def pixels(data):
    """The rows of a PNG file of 8-bit colours: equal pictures need not be equal files."""
    at, packed, width, channels = 8, b"", 0, 0
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        chunk = data[at + 8:at + 8 + length]
        at += 12 + length
        if kind == b"IHDR":
            width, _, depth, colour = struct.unpack(">IIBB", chunk[:10])
            channels = {(8, 2): 3, (8, 6): 4}[depth, colour]
        elif kind == b"IDAT":
            packed += chunk
    raw = zlib.decompress(packed)
    stride = width * channels
    rows, above = [], bytearray(stride)
    for start in range(0, len(raw), stride + 1):
        row = bytearray(raw[start + 1:start + 1 + stride])
        unfilter(raw[start], row, above, channels)
        rows.append(bytes(row))
        above = row
    return rows


def unfilter(kind, row, above, channels):
    """Undoes one of the five filters of the PNG format."""
    if kind == 0:
        return
    for index, value in enumerate(row):
        left = row[index - channels] if index >= channels else 0
        up = above[index]
        if kind == 1:
            guess = left
        elif kind == 2:
            guess = up
        elif kind == 3:
            guess = (left + up) // 2
        else:
            corner = above[index - channels] if index >= channels else 0
            by_left, by_up, by_corner = abs(up - corner), abs(left - corner), abs(left + up - 2 * corner)
            guess = left if by_left <= by_up and by_left <= by_corner else up if by_up <= by_corner else corner
        row[index] = (value + guess) & 255


class PageRendering(unittest.TestCase):
    def test_pages_and_archives_look_the_same(self):
        pages = PAGES | with_installed_font()
        for name, (path, answers) in pages.items():
            with self.subTest(name), tempfile.TemporaryDirectory() as scratch:
                self.check(path, answers, scratch, name in ALONE)
                print(f"the same: {name}", file=sys.stderr, flush=True)
        print(f"{len(pages)} pages", file=sys.stderr)

    def check(self, path, answers, scratch, is_alone):
        with Site(answers) as site:
            port, address = site.port, site.address(path)
            original = screenshot(scratch, "original", address)
            run = Import(PROGRAM, os.path.join(scratch, "run"), enex(clip("Page", address)), ["ReloadFromWeb=YES"])
        archive, breaches = web_archive_check.read(run.items[0]["absoluteFilename"])
        self.assertEqual(breaches, [])
        stored = answers_of(archive, port)
        stored_address = archive["WebMainResource"]["WebResourceURL"]
        with Site(stored, port):
            self.assert_same(screenshot(scratch, "archive", stored_address), original)
        parts = urllib.parse.urlsplit(stored_address)
        main = parts.path + ("?" + parts.query if parts.query else "")
        if is_alone:
            return
        with Site({main: stored[main]}, port):
            self.assertFalse(screenshot(scratch, "bare", stored_address) == original)

    def assert_same(self, found, wanted):
        differing = [number for number, rows in enumerate(zip(found, wanted)) if rows[0] != rows[1]]
        self.assertEqual((len(found), differing), (len(wanted), []))


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as trial:
        try:
            screenshot(trial, "trial", "about:blank")
        except (OSError, RuntimeError, subprocess.TimeoutExpired) as problem:
            print(f"skipped: {CHROMIUM} does not run here: {problem}")
            sys.exit(SKIP)
    unittest.main(argv=sys.argv[:1])
