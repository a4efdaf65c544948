#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes "Sample Notebook.enex" beside this script: one note for each thing that a note can hold.

The layout is the classic one: no white space between the elements of a note, base64 in lines of 76,
the content before the dates. Everything is fixed, so the same file comes out each time.
"""

import base64
import hashlib
import io
import math
import os
import struct
import zipfile
import zlib
from xml.sax.saxutils import escape

# --- pictures ---------------------------------------------------------------------------------


def png(width, height, colour_at, samples=2):
    """A PNG of 8-bit RGB; colour_at(x, y) gives (r, g, b) in 0..1, averaged over samples squared."""
    rows = bytearray()
    for row in range(height):
        rows.append(0)
        for column in range(width):
            total = [0.0, 0.0, 0.0]
            for i in range(samples * samples):
                x = column + (i % samples + 0.5) / samples
                y = row + (i // samples + 0.5) / samples
                for channel, value in enumerate(colour_at(x, y)):
                    total[channel] += value
            rows += bytes(round(255 * min(1, max(0, t / samples**2))) for t in total)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
            + chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b""))


def mix(a, b, t):
    t = min(1.0, max(0.0, t))
    return tuple(p + (q - p) * t for p, q in zip(a, b))


def evening(width, height):
    """Three ridges under a low sun."""
    def ridge(x, base, swing, length, phase):
        return height * (base + swing * math.sin(x / length + phase) + swing * 0.4 * math.sin(x / length * 2.7 + phase * 3))

    def colour(x, y):
        sun = math.hypot(x - width * 0.68, y - height * 0.42)
        sky = mix((0.16, 0.20, 0.42), (0.98, 0.72, 0.42), (y / height) * 1.5)
        result = mix((1.0, 0.93, 0.72), sky, (sun - 8) / 70)
        if sun < 26:
            result = (1.0, 0.95, 0.80)
        if y > ridge(x, 0.56, 0.06, 52, 0.4):
            result = mix((0.63, 0.42, 0.50), (0.74, 0.50, 0.50), y / height)
        if y > ridge(x, 0.68, 0.07, 74, 2.1):
            result = mix((0.38, 0.28, 0.42), (0.45, 0.33, 0.45), y / height)
        if y > ridge(x, 0.82, 0.06, 95, 4.6):
            result = mix((0.15, 0.15, 0.25), (0.10, 0.10, 0.18), (y / height - 0.8) * 5)
        return result

    return png(width, height, colour)


def rainfall(width, height):
    """Twelve bars."""
    heights = [52, 41, 46, 60, 71, 88, 95, 84, 67, 73, 69, 58]

    def colour(x, y):
        slot = (x - 12) / (width - 24) * len(heights)
        month = int(slot) if slot >= 0 else -1
        if 0 <= month < len(heights) and 0.14 < slot - month < 0.86:
            top = height - 14 - heights[month] / 100 * (height - 30)
            if top < y < height - 14:
                return mix((0.30, 0.62, 0.86), (0.12, 0.34, 0.62), (y - top) / (height - 14 - top))
        if height - 14 <= y < height - 12.5:
            return (0.35, 0.37, 0.42)
        return (0.97, 0.98, 0.99) if int(y / 20) % 2 else (0.94, 0.96, 0.98)

    return png(width, height, colour)


def river(width, height):
    """A river that winds through a meadow."""
    def colour(x, y):
        middle = height / 2 + height * 0.27 * math.sin(x / width * 3.2 * math.pi)
        slope = abs(math.cos(x / width * 3.2 * math.pi))
        distance = abs(y - middle) / (1 + 1.1 * slope)
        if distance < 9:
            return mix((0.55, 0.80, 0.93), (0.27, 0.55, 0.78), distance / 9)
        if distance < 12:
            return (0.90, 0.85, 0.66)
        wave = 0.5 + 0.5 * math.sin(x * 0.21 + math.sin(y * 0.17) * 2) * math.sin(y * 0.23)
        return mix((0.55, 0.74, 0.38), (0.43, 0.65, 0.33), wave)

    return png(width, height, colour)


# --- documents --------------------------------------------------------------------------------


def pdf(title, lines):
    """One page of Helvetica with a drawn frame."""
    text = ["BT /F2 22 Tf 72 740 Td (%s) Tj ET" % title, "0.8 0.3 0.1 RG 2 w 72 728 m 540 728 l S",
            "BT /F1 12 Tf 16 TL 72 700 Td"]
    text += ["(%s) Tj T*" % line.replace("\\", r"\\").replace("(", r"\(").replace(")", r"\)")
             for line in lines]
    text += ["ET"]
    stream = "\n".join(text).encode("ascii")
    objects = [
        b"<< /Type /Catalog /Pages 2 0 R >>",
        b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents 4 0 R"
        b" /Resources << /Font << /F1 5 0 R /F2 6 0 R >> >> >>",
        b"<< /Length %d >>\nstream\n%s\nendstream" % (len(stream), stream),
        b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
        b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica-Bold >>",
    ]
    out = bytearray(b"%PDF-1.4\n")
    places = []
    for number, body in enumerate(objects, 1):
        places.append(len(out))
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    start = len(out)
    out += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    out += b"".join(b"%010d 00000 n \n" % place for place in places)
    out += b"trailer\n<< /Size %d /Root 1 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, start)
    return bytes(out)


def archive(files):
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w", zipfile.ZIP_STORED) as target:
        for name, data in files:
            entry = zipfile.ZipInfo(name, (2024, 3, 1, 9, 0, 0))
            entry.external_attr = 0o644 << 16
            target.writestr(entry, data)
    return out.getvalue()


# --- notes ------------------------------------------------------------------------------------

DOCTYPE = '<?xml version="1.0" encoding="UTF-8" standalone="no"?>' \
          '<!DOCTYPE en-note SYSTEM "http://xml.evernote.com/pub/enml2.dtd">'


class Resource:
    def __init__(self, data, mime, name="", width=0, height=0):
        self.data, self.mime, self.name, self.width, self.height = data, mime, name, width, height
        self.hash = hashlib.md5(data).hexdigest()

    def media(self, **attributes):
        given = "".join(f' {key}="{value}"' for key, value in attributes.items())
        return f'<en-media type="{self.mime}" hash="{self.hash}"{given}/>'

    def xml(self):
        encoded = base64.b64encode(self.data).decode("ascii")
        lines = "\n".join(encoded[i:i + 76] for i in range(0, len(encoded), 76))
        size = f"<width>{self.width}</width><height>{self.height}</height>" if self.width else ""
        attributes = f"<file-name>{escape(self.name)}</file-name>" if self.name else ""
        return (f'<resource><data encoding="base64">\n{lines}\n</data><mime>{self.mime}</mime>{size}'
                f"<resource-attributes>{attributes}</resource-attributes></resource>")


def div(*lines):
    return "".join(f"<div>{line}</div>" for line in lines)


def note(title, body, created, updated=None, tags=(), attributes="", resources=(), style=""):
    opening = f'<en-note style="{style}">' if style else "<en-note>"
    content = f"{DOCTYPE}{opening}{body}</en-note>".replace("]]>", "]]]]><![CDATA[>")
    return (f"<note><title>{escape(title)}</title><content><![CDATA[{content}]]></content>"
            f"<created>{created}</created>" + (f"<updated>{updated}</updated>" if updated else "")
            + "".join(f"<tag>{escape(tag)}</tag>" for tag in tags)
            + (f"<note-attributes>{attributes}</note-attributes>" if attributes else "")
            + "".join(resource.xml() for resource in resources) + "</note>")


def notes():
    yield note(
        "Welcome",
        div("This notebook is a small tour. Each note holds one kind of thing, so that you can see what "
            "becomes of it.",
            "<br/>",
            "A note of plain text, like this one, becomes a note of plain text. Line by line, with its empty "
            "lines, and with characters such as &lt;, &gt; and &amp; as they were typed.",
            "<br/>",
            "Nothing here is anybody&apos;s: the words, the pictures and the papers were made for this "
            "notebook."),
        "20240301T090000Z", "20240302T181500Z", ["tour"], "<author>A. Reader</author>")

    landscape = Resource(evening(420, 260), "image/png", "Evening.png", 420, 260)
    bars = Resource(rainfall(240, 140), "image/png", "Rainfall.png", 240, 140)
    yield note(
        "Three days in the hills",
        div("We walked up on Friday and stayed for the light.", landscape.media(width=420, height=260),
            "The hut warden keeps a rain gauge. June and July are the wet months:", bars.media(),
            "Next time: go in <b>September</b>, and bring a second thermos."),
        "20230616T201230Z", "20230618T070509Z", ["walking", "summer"],
        "<latitude>47.1215</latitude><longitude>9.8152</longitude><author>A. Reader</author>",
        [landscape, bars])

    yield note(
        "Packing list",
        div('<en-todo checked="true"/>Map and compass', '<en-todo checked="true"/>Boots, waxed',
            '<en-todo/>Head torch <i>and</i> spare batteries', '<en-todo checked="false"/>Tea')
        + div("<br/>", "For the hut:")
        + '<ul><li><en-todo checked="true"/>Sleeping bag liner</li><li><en-todo/>Ear plugs</li></ul>',
        "20230612T173000Z", "20230615T214500Z", ["walking", "lists"])

    cell = "border:1px solid #b0b0b0;padding:4px;"
    head = cell + "background-color:#2f5d50;color:#ffffff;"
    yield note(
        "Watering rota",
        div("Who waters the beds, and when.")
        + '<table style="border-collapse:collapse;width:100%;"><tbody>'
        + f'<tr><th style="{head}">Bed</th><th style="{head}">Morning</th><th style="{head}">Evening</th></tr>'
        + f'<tr><td style="{cell}">Beans</td><td style="{cell}">Ida</td><td style="{cell}">Tomas</td></tr>'
        + f'<tr><td style="{cell}" rowspan="2">Tomatoes<br/>(two rows)</td><td style="{cell}">Tomas</td>'
          f'<td style="{cell}background-color:#fff2c9;">Ida</td></tr>'
        + f'<tr><td style="{cell}" colspan="2"><b>Nobody when it rains</b></td></tr>'
        + f'<tr><td style="{cell}">Herbs</td><td style="{cell}color:#b5321b;">Wren</td><td style="{cell}">'
          "<br/></td></tr></tbody></table>"
        + div("Changes: write them in the margin."),
        "20240505T063000Z", "20240519T190000Z", ["garden"])

    yield note(
        "Bread, the slow way",
        div("<b>You need</b>")
        + "<ul><li>500 g flour<ul><li>two thirds white</li><li>one third rye<ul><li>or spelt</li></ul></li>"
          "</ul></li><li>350 g water</li><li>10 g salt</li></ul>"
        + div("<b>What to do</b>")
        + "<ol><li>Mix flour and water; wait half an hour.</li><li>Add the salt and the starter.<ol>"
          "<li>Fold every hour.</li><li>Four times in all.</li></ol></li><li>Sleep.</li>"
          "<li>Bake at 230&#176;C:<ul><li>25 minutes with the lid</li><li>20 without</li></ul></li></ol>",
        "20231104T080000Z", "20240113T112233Z", ["kitchen", "lists"])

    yield note(
        "How text can look",
        "<h1>A large heading</h1><h2>A smaller one</h2>"
        + div("<b>Bold</b>, <i>italic</i>, <u>underlined</u>, <s>struck out</s>, and <b><i><u>all at once</u></i></b>.",
              '<span style="color:#c0392b;">Red</span>, <span style="color:#1e8449;">green</span> and '
              '<span style="color:#1f4e9c;">blue</span> words, and one that is '
              '<span style="background-color:#fff176;-evernote-highlight:true;">marked in yellow</span>.',
              '<span style="font-size:24px;">Large</span>, ordinary, <span style="font-size:9px;">small</span>, '
              '<font face="Georgia" size="4">and a line in Georgia</font>.',
              "Water is H<sub>2</sub>O, and a square metre is 1 m<sup>2</sup>.",
              'A <a href="https://www.example.org/paths?from=hut&amp;to=lake">link to the path</a>, and '
              'one to <a href="mailto:hut@example.org">the hut</a>.')
        + "<blockquote>A quotation stands a little further in,<br/>over two lines.</blockquote>"
        + '<div style="text-align:center;">In the middle</div><div style="text-align:right;">At the right</div>'
        + "<hr/>"
        + '<div style="-en-codeblock:true;font-family:Monaco,Menlo,monospace;background-color:#f4f4f4;">'
          "<div>for hill in hills:</div><div>&#160;&#160;&#160;&#160;climb(hill)</div></div>",
        "20240210T140000Z", "20240210T153000Z", ["tour"])

    manual = Resource(pdf("Bicycle, green", [
        "Frame number  48 213", "Tyres         40-622, 3.5 bar", "Chain         oil it after rain", "",
        "Bought second hand. The bell is new (and loud)."]), "application/pdf", "scan-0042.pdf")
    yield note("Bicycle papers", f"<div>{manual.media()}<br/></div>", "20220420T101500Z",
               "20220420T101500Z", ["papers"], "", [manual])

    lease = Resource(pdf("Lease", ["Two rooms, kitchen, a view of the yard.", "Rent is due on the third."]),
                     "application/pdf", "Lease (flat 4).pdf")
    meters = Resource("date;electricity;water\n2024-01-02;48211;310.4\n2024-02-01;48390;314.9\n".encode(),
                      "text/csv", "Meter readings.csv")
    plan = Resource(b"Desk under the window.\nBookcase left of the door.\nThe chair stays.\n", "text/plain",
                    "Plan.txt")
    keys = Resource(archive([("keys/front-door.txt", b"two keys\n"), ("keys/cellar.txt", b"one key\n")]),
                    "application/zip", "Keys.zip")
    yield note(
        "Papers of the flat",
        div("Everything in one place.", "The contract: " + lease.media(), "Readings: " + meters.media(),
            "Furniture: " + plan.media(), "Where the keys are: " + keys.media(),
            "The contract once more: " + lease.media()),
        "20240102T120000Z", "20240201T080000Z", ["papers", "flat 4/2"], "", [lease, meters, plan, keys])

    secret = base64.b64encode(b"ENC0" + bytes((i * 73 + 41) % 256 for i in range(124))).decode("ascii")
    yield note(
        "The locked drawer",
        div("A passage that was locked stays locked: only its place is kept.",
            f'Code of the drawer: <en-crypt cipher="AES" length="128" hint="the old street">{secret}</en-crypt>',
            "After it, the text goes on."),
        "20211231T235959Z", "20220101T000001Z", ["papers"])

    meadow = Resource(river(360, 180), "image/png", "meander.png", 360, 180)
    yield note(
        "Why rivers wind",
        '<div style="font-family:Georgia,serif;color:#222222;line-height:1.5;"><h1>Why rivers wind</h1>'
        "<p>A river that runs over flat ground seldom runs straight. Where it bends by chance, the water on "
        "the outside has the longer way and the greater speed; it cuts into that bank and drops what it "
        "carries on the other.</p>"
        + f'<p style="text-align:center;">{meadow.media(width=360, height=180)}<br/>'
          '<small style="color:#777777;">Every bend makes the next one.</small></p>'
        + "<p>So a small bend becomes a large one, until one spring flood takes the short way and leaves a "
          'lake behind. <a href="https://rivers.example.org/oxbow">More about such lakes</a>.</p></div>',
        "20230921T064500Z", "20230921T064500Z", ["reading"],
        "<author>rivers.example.org</author><source>web.clip</source>"
        "<source-url>https://rivers.example.org/why-rivers-wind</source-url>", [meadow])

    yield note(
        "Guten Tag, 你好, Привет 👋",
        div("Grüße aus Köln; ça va très bien; ¿qué tal?", "日本語のメモ。漢字とかな。", "Русская заметка со знаками №1.",
            '<span dir="rtl">שלום עולם</span> and <span dir="rtl">مرحبا بالعالم</span>',
            "Ελληνικά, हिन्दी, ภาษาไทย, 한국어", "🚲 🌧️ 🍅 👩‍🌾 — emoji, some of them made of several characters",
            "Music: 𝄞, and mathematics: 𝑥² ≠ √2"),
        "20240229T120000Z", "20240229T120100Z", ["языки", "tour"])

    yield note(
        "2024/06 Minutes: garden / orchard",
        div("Present: Ida, Tomas, Wren.", "1. The pump is to be mended before the heat.",
            "2. Apples: half for juice, half for the cellar.",
            "The title of this note has slashes and a colon in it, which a file name cannot have."),
        "20240603T180000Z", "20240603T194500Z", ["garden"])

    yield note("Shopping", div("Flour", "Salt", "Candles"), "20240310T100000Z", "20240310T101000Z", ["lists"])
    yield note("Shopping", div("Bicycle oil", "A smaller bell"), "20240317T100000Z", None, ["lists"])

    yield note(
        "On yellow paper",
        div("The whole note has a colour and a typeface of its own.",
            "It was written on the train, <i>in one go</i>, and never changed."),
        "20231008T160000Z", "20231008T163000Z", ["tour"], "", (),
        "background:#fff9db;font-family:Georgia;font-size:15px;")


def main():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "Sample Notebook.enex")
    with open(path, "w", encoding="utf-8", newline="\n") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n'
                  '<!DOCTYPE en-export SYSTEM "http://xml.evernote.com/pub/evernote-export3.dtd">\n'
                  '<en-export export-date="20240701T080000Z" application="Vupuge sample" version="1.0">\n')
        out.write("".join(notes()))
        out.write("\n</en-export>\n")


if __name__ == "__main__":
    main()
