# SPDX-License-Identifier: MIT
"""The pages that a browser draws twice: as a site serves them, and out of their archives.

Each has a name, the path that is loaded, and what the site answers. Left out, because the two pictures cannot be
the same, are pages and parts without an end (a browser draws them as they grow), parts that break off (a browser
draws what came, an archive leaves it out), frames that are led in circles (a browser writes its own page about
that), redirected frames (an archive knows a frame by its name, a server by its address), pages that a server refuses
(they give no archive), parts that ask for a password (a browser waits for a person to type it), and scripts and
refreshes (a browser follows both, and a capture neither).
"""

import subprocess

from web_clip_run import Answer, png

RED, GREEN, BLUE, GREY = png(200, 0, 0), png(0, 160, 0), png(0, 0, 220), png(90, 90, 90)


def picture(data, **options):
    return Answer(data, "image/png", **options)


def styles(text, **options):
    return Answer(text, "text/css", **options)


def moved(address, status=302):
    return Answer("moved", status=status, headers=[("Location", address)])


def refused(status, body="<p>no"):
    return Answer(body, status=status)


PAGES = {
    "styles and their images": ("/styles/page.html", {
        "/styles/page.html": Answer(
            '<!DOCTYPE html><link rel="stylesheet" href="../css/a.css?v=1"><style>@import "../css/c.css";'
            '.own{background:url("own.png");height:40px}</style><h1>Styles</h1><p class="own">own</p>'
            '<p class="a">a</p><p class="b">b</p><p style="background:url(inline.png)">inline</p>'
            '<div class="screen">screen</div><div class="print">print</div>'),
        "/css/a.css?v=1": styles('@import url(b.css); .a{background:url(../img/a.png);height:50px}'
                                 '@media screen{.screen{background:url("../img/screen.png")}}'
                                 '@media print{.print{background:url("../img/print.png")}}'),
        "/css/b.css": styles('.b{border:8px solid #09c; padding:5px} /* url(none.png) */'),
        "/css/c.css": styles('@media (min-width:700px){h1{color:#a00;background:url("/img/wide.png")}}'
                             '@media (min-width:900px){h1{font-size:90px}}'),
        "/styles/own.png": picture(GREY), "/styles/inline.png": picture(RED), "/img/a.png": picture(GREEN),
        "/img/screen.png": picture(BLUE), "/img/print.png": picture(RED), "/img/wide.png": picture(GREY)}),
    "addresses in styles, however they are written": ("/css.html", {
        "/css.html": Answer(
            '<!DOCTYPE html><link rel="stylesheet" href="a.css"><p id="a">a<p id="b">b<p id="c">c<p id="d">d'
            '<p id="e">e<p id="f">f<p id="g">g<p id="h">h<ul><li>i</ul>'),
        "/a.css": styles(
            '@charset "utf-8"; @layer one, two; @import url("b.css") layer(two) supports(display:grid) screen;'
            '@import "print.css" print; @namespace url(http://www.w3.org/1999/xhtml);'
            '#a{background:URL( "x(1).png" )} #b{background:u\\72l(a\\.png)} #c::before{content:url(\'b.png\')}'
            '#d{background-image:image-set("c.png" 1x, "no.png" 2x)} @supports (display:grid)'
            '{#e{background:url(a.png)}} @supports not (display:grid){#e{background:url(no.png)}}'
            '#f{--own:url(d.png);background:var(--own)} @media not print{@media (orientation:landscape)'
            '{#g{background:url(e.png)}}} li{list-style-image:url(f.png)}'),
        "/b.css": styles("#h{background:url(g.png);border:3px solid}"),
        "/print.css": styles("#h{background:url(no.png)}"),
        "/x(1).png": picture(RED), "/a.png": picture(GREEN), "/b.png": picture(BLUE), "/c.png": picture(GREY),
        "/d.png": picture(png(9, 99, 199)), "/e.png": picture(png(199, 99, 9)), "/f.png": picture(RED),
        "/g.png": picture(png(250, 250, 0)), "/no.png": picture(png(1, 1, 1))}),
    "images in all their forms": ("/images.html", {
        "/images.html": Answer(
            '<!DOCTYPE html><base href="/img/"><img src="red.png"><img src="moved.png">'
            '<img srcset="small.png 300w, large.png 1600w" sizes="100vw" width="80">'
            '<picture><source media="(max-width:500px)" srcset="red.png"><source srcset="blue.png">'
            '<img src="red.png"></picture><input type="image" src="green.png">'
            '<table background="grey.png"><tr><td>cell</table>'
            '<object data="blue.png" type="image/png"></object><video poster="green.png" width="60"></video>'
            '<svg width="60" height="30"><image href="red.png" width="30" height="30"/></svg>'
            '<svg width="40" height="40"><use href="drawing.svg#part"/></svg><embed src="drawing.svg">'
            '<img src="drawing.svg"><img src="gone.png" alt="gone" width="50">'),
        "/img/red.png": picture(RED), "/img/green.png": picture(GREEN), "/img/blue.png": picture(BLUE),
        "/img/grey.png": picture(GREY), "/img/small.png": picture(png(1, 2, 3)),
        "/img/large.png": picture(png(250, 250, 0)), "/img/real.png": picture(png(0, 250, 250)),
        "/img/moved.png": moved("/img/real.png"),
        "/img/drawing.svg": Answer('<svg xmlns="http://www.w3.org/2000/svg" width="40" height="40">'
                                   '<circle id="part" cx="20" cy="20" r="18" fill="purple"/></svg>',
                                   "image/svg+xml")}),
    "frames within frames": ("/frames.html", {
        "/frames.html": Answer(
            '<!DOCTYPE html><p>outer</p><iframe name="a" src="frame/a.html" width="300" height="200"></iframe>'
            '<iframe src="frame/a.html" width="300" height="200"></iframe>'
            '<iframe srcdoc="<img src=&quot;img/green.png&quot;>text" width="300" height="100"></iframe>'
            '<iframe width="60" height="40"></iframe><object data="frame/b.html" width="200" height="90"></object>'
            '<iframe src="data:text/html,<p style=color:red>data" width="200" height="60"></iframe>'),
        "/frame/a.html": Answer('<body bgcolor="#ffeecc"><img src="red.png">'
                                '<iframe src="b.html" width="200" height="90"></iframe>'),
        "/frame/b.html": Answer('<link rel="stylesheet" href="b.css"><p>inner</p>'),
        "/frame/b.css": styles("p{color:white;background:url(red.png)}"),
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
    "a charset that the server names": ("/jp.html", {
        "/jp.html": Answer('<meta charset="utf-8"><p>\u65e5\u672c\u8a9e</p><img src="red.png">'.encode("shift_jis"),
                           "text/html; charset=Shift_JIS"),
        "/red.png": picture(RED)}),
    "two bytes a character": ("/wide.html", {
        "/wide.html": Answer('<p>caf\u00e9 \u03b1\u03b2\u03b3</p><img src="red.png">'.encode("utf-16")),
        "/red.png": picture(RED)}),
    "a style sheet's own charset": ("/sheet.html", {
        "/sheet.html": Answer('<meta charset="utf-8"><link rel="stylesheet" href="a.css"><p>text'),
        "/a.css": styles('@charset "iso-8859-1"; p::before{content:"\u00e9 "} p{background:url(\u00e9.png)}'
                         .encode("latin-1")),
        "/%C3%A9.png": picture(GREEN)}),
    "a redirected page": ("/short", {
        "/short": moved("/deep/er/page.html", 301),
        "/deep/er/page.html": Answer('<p>here</p><img src="red.png"><img src="../up.png">'),
        "/deep/er/red.png": picture(RED), "/deep/up.png": picture(GREEN)}),
    "redirected parts": ("/parts.html", {
        "/parts.html": Answer('<link rel="stylesheet" href="moved.css"><p>text<img src="moved.png">'),
        "/moved.css": moved("/there/a.css", 308), "/there/a.css": styles("p{background:url(a.png)}"),
        "/there/a.png": picture(GREEN), "/moved.png": moved("/again.png", 307), "/again.png": moved("/red.png"),
        "/red.png": picture(RED)}),
    "parts that are refused": ("/refused.html", {
        "/refused.html": Answer('<img src="401.png" alt="401"><img src="500.png" alt="500"><img src="drawn.png">'
                                '<link rel="stylesheet" href="500.css"><p>text'
                                '<iframe src="404.html" width="300" height="100"></iframe>'
                                '<iframe src="500.html" width="300" height="100"></iframe>'),
        "/401.png": refused(401), "/500.png": refused(500), "/drawn.png": picture(GREEN, status=404),
        "/500.css": styles("p{color:red}", status=500),
        "/404.html": refused(404, '<p>Not here<img src="red.png">'), "/500.html": refused(500, "<h1>Broken</h1>"),
        "/red.png": picture(RED)}),
    "parts that come slowly": ("/slow.html", {
        "/slow.html": Answer('<link rel="stylesheet" href="a.css"><p>text<img src="red.png">', slow=True),
        "/a.css": styles("p{background:url(red.png)}", slow=True), "/red.png": picture(RED, slow=True)}),
    "a page that holds itself": ("/self.html", {
        "/self.html": Answer('<p>self<img src="red.png"><iframe src="other.html" width="600" height="400"></iframe>'),
        "/other.html": Answer('<p>other<iframe src="self.html" width="500" height="300"></iframe>'),
        "/red.png": picture(RED)}),
    "styles that import each other": ("/circle.html", {
        "/circle.html": Answer('<link rel="stylesheet" href="a.css"><p>text'),
        "/a.css": styles('@import "b.css"; p{background:url(red.png)}'),
        "/b.css": styles('@import "a.css"; @import "b.css"; p{color:white}'), "/red.png": picture(RED)}),
    "an image that is led in circles": ("/round.html", {
        "/round.html": Answer('<img src="a.png" alt="round"><img src="red.png">'),
        "/a.png": moved("/b.png"), "/b.png": moved("/a.png"), "/red.png": picture(RED)}),
    "XHTML": ("/page.xhtml", {
        "/page.xhtml": Answer('<?xml version="1.0"?><?xml-stylesheet href="a.css" type="text/css"?>'
                              '<html xmlns="http://www.w3.org/1999/xhtml"><head><title/><script/>'
                              '<style><![CDATA[b{background:url(red.png)}]]></style></head>'
                              '<body><p>text <b>bold</b></p><img src="red.png"/></body></html>',
                              "application/xhtml+xml"),
        "/a.css": styles("p{border:5px solid green}"), "/red.png": picture(RED)}),
    "a drawing": ("/drawing.svg", {
        "/drawing.svg": Answer('<svg xmlns="http://www.w3.org/2000/svg" width="200" height="200">'
                               '<style>rect{fill:green}</style><rect width="90" height="90"/>'
                               '<image href="red.png" x="100" width="90" height="90"/></svg>', "image/svg+xml"),
        "/red.png": picture(RED)}),
    "a picture": ("/red.png", {"/red.png": picture(RED)}),
    "plain text": ("/a.txt", {"/a.txt": Answer('plain <img src="red.png"> text', "text/plain"),
                              "/red.png": picture(RED)}),
    "an empty style sheet": ("/empty.html", {
        "/empty.html": Answer('<link rel="stylesheet" href="a.css"><p>text<img src="red.png">'),
        "/a.css": styles(""), "/red.png": picture(RED)}),
    "300,000 elements within each other": ("/deep.html", {
        "/deep.html": Answer("<div>" * 300000 + '<img src="red.png">'), "/red.png": picture(RED)}),
    "a style sheet of 50 MB": ("/large.html", {
        "/large.html": Answer('<link rel="stylesheet" href="a.css"><p>text'),
        "/a.css": styles("p{background:url(red.png)}"
                         + "@media print{.rule{background:url(no.png) /* comment */}}q{}" * (50 * 1024 * 1024 // 60)
                         + "p{border:5px solid green}"),
        "/red.png": picture(RED)}),
}

# Nothing but the document itself: without its parts it looks the same.
ALONE = {"a picture", "plain text"}


def with_installed_font():
    """A page in a font of this machine, under another name; none where there is no font."""
    try:
        found = subprocess.run(["fc-match", "-f", "%{file}", "serif:bold:fontformat=TrueType"],
                               capture_output=True, check=True, text=True).stdout
        with open(found, "rb") as source:
            font = source.read()
    except (OSError, subprocess.CalledProcessError):
        return {}
    return {"a font": ("/font.html", {
        "/font.html": Answer('<link rel="stylesheet" href="css/a.css"><p>Set in a font of its own'),
        "/css/a.css": styles('@font-face{font-family:own;src:url(no.eot);src:url(no.eot?#x) '
                             'format("embedded-opentype"),url(../f.ttf) format("truetype")}'
                             'p{font:60px own,monospace}'),
        "/f.ttf": Answer(font, "font/ttf")})}
