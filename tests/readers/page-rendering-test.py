#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""page-rendering-test.py VUPUGE-IMPORT CHROMIUM: a page and its web archive must look the same.

Each page of a site is drawn by a browser; then it is clipped, the site goes away, and a server that has
nothing but the archive's resources takes its address. The browser draws the page again, and the pictures must
be equal to the last pixel. A third picture, of the page without its resources, must differ, or the page would
prove nothing. Exit code 77 when the browser does not run here.
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
from web_clip_run import Answer, Import, Site, clip, enex, png

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


RED, GREEN, BLUE, GREY = png(200, 0, 0), png(0, 160, 0), png(0, 0, 220), png(90, 90, 90)


def picture(data):
    return Answer(data, "image/png")


PAGES = {
    "styles and their images": ("/styles/page.html", {
        "/styles/page.html": Answer(
            '<!DOCTYPE html><link rel="stylesheet" href="../css/a.css?v=1"><style>@import "../css/c.css";'
            '.own{background:url("own.png");height:40px}</style><h1>Styles</h1><p class="own">own</p>'
            '<p class="a">a</p><p class="b">b</p><p style="background:url(inline.png)">inline</p>'
            '<div class="screen">screen</div><div class="print">print</div>'),
        "/css/a.css?v=1": Answer('@import url(b.css); .a{background:url(../img/a.png);height:50px}'
                                 '@media screen{.screen{background:url("../img/screen.png")}}'
                                 '@media print{.print{background:url("../img/print.png")}}', "text/css"),
        "/css/b.css": Answer('.b{border:8px solid #09c; padding:5px} /* url(none.png) */', "text/css"),
        "/css/c.css": Answer('@media (min-width:700px){h1{color:#a00;background:url("/img/wide.png")}}'
                             '@media (min-width:900px){h1{font-size:90px}}', "text/css"),
        "/styles/own.png": picture(GREY), "/styles/inline.png": picture(RED), "/img/a.png": picture(GREEN),
        "/img/screen.png": picture(BLUE), "/img/print.png": picture(RED), "/img/wide.png": picture(GREY)}),
    "images in all their forms": ("/images.html", {
        "/images.html": Answer(
            '<!DOCTYPE html><base href="/img/"><img src="red.png"><img src="moved.png">'
            '<img srcset="small.png 300w, large.png 1600w" sizes="100vw" width="80">'
            '<picture><source media="(max-width:500px)" srcset="red.png"><source srcset="blue.png">'
            '<img src="red.png"></picture><input type="image" src="green.png">'
            '<table background="grey.png"><tr><td>cell</table>'
            '<object data="blue.png" type="image/png"></object><video poster="green.png" width="60"></video>'
            '<svg width="60" height="30"><image href="red.png" width="30" height="30"/></svg>'
            '<img src="drawing.svg"><img src="gone.png" alt="gone" width="50">'),
        "/img/red.png": picture(RED), "/img/green.png": picture(GREEN), "/img/blue.png": picture(BLUE),
        "/img/grey.png": picture(GREY), "/img/small.png": picture(png(1, 2, 3)),
        "/img/large.png": picture(png(250, 250, 0)), "/img/real.png": picture(png(0, 250, 250)),
        "/img/moved.png": Answer("", status=302, headers=[("Location", "/img/real.png")]),
        "/img/drawing.svg": Answer('<svg xmlns="http://www.w3.org/2000/svg" width="40" height="40">'
                                   '<circle cx="20" cy="20" r="18" fill="purple"/></svg>', "image/svg+xml")}),
    "frames within frames": ("/frames.html", {
        "/frames.html": Answer(
            '<!DOCTYPE html><p>outer</p><iframe name="a" src="frame/a.html" width="300" height="200"></iframe>'
            '<iframe src="frame/a.html" width="300" height="200"></iframe>'
            '<iframe srcdoc="<img src=&quot;img/green.png&quot;>text" width="300" height="100"></iframe>'),
        "/frame/a.html": Answer('<body bgcolor="#ffeecc"><img src="red.png">'
                                '<iframe src="b.html" width="200" height="90"></iframe>'),
        "/frame/b.html": Answer('<link rel="stylesheet" href="b.css"><p>inner</p>'),
        "/frame/b.css": Answer("p{color:white;background:url(red.png)}", "text/css"),
        "/frame/red.png": picture(RED), "/img/green.png": picture(GREEN)}),
    "a frame set": ("/set.html", {
        "/set.html": Answer('<frameset cols="30%,*"><frame src="left.html" name="left"><frameset rows="50%,50%">'
                            '<frame src="top.html"><frame src="bottom.html"></frameset></frameset>'),
        "/left.html": Answer('<body background="left.png">left'), "/top.html": Answer("<h1>top</h1>"),
        "/bottom.html": Answer('<img src="left.png">bottom'), "/left.png": picture(BLUE)}),
    "an old charset, packed": ("/old.html?a=1&b=%7C", {
        "/old.html?a=1&b=%7C": Answer(
            '<meta charset="windows-1252"><p>caf\u00e9 \u20ac na\u00efve</p><img src="red.png">'.encode("cp1252"),
            packed=True),
        "/red.png": picture(RED)}),
    "a redirected page": ("/short", {
        "/short": Answer("", status=301, headers=[("Location", "/deep/er/page.html")]),
        "/deep/er/page.html": Answer('<p>here</p><img src="red.png"><img src="../up.png">'),
        "/deep/er/red.png": picture(RED), "/deep/up.png": picture(GREEN)}),
}


class PageRendering(unittest.TestCase):
    def test_pages_and_archives_look_the_same(self):
        for name, (path, answers) in PAGES.items():
            with self.subTest(name), tempfile.TemporaryDirectory() as scratch:
                self.check(path, answers, scratch)

    def check(self, path, answers, scratch):
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
