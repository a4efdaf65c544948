# SPDX-License-Identifier: MIT
"""What LibreOffice sees in a rich text: it converts it to a flat OpenDocument file, which is read here.

Gives the same Reading as note_markup does of the note itself, so that the two can be compared: glyphs,
list markers as LibreOffice counts them, tables.
"""

import dataclasses
import os
import re
import subprocess
import xml.etree.ElementTree as ElementTree

from note_markup import Cell, Glyph, Look, Marker, Reading, letters, roman

ALLOWED_SECONDS = 300
NAMESPACES = {
    "office": "urn:oasis:names:tc:opendocument:xmlns:office:1.0",
    "style": "urn:oasis:names:tc:opendocument:xmlns:style:1.0",
    "text": "urn:oasis:names:tc:opendocument:xmlns:text:1.0",
    "table": "urn:oasis:names:tc:opendocument:xmlns:table:1.0",
    "fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
    "draw": "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0",
    "xlink": "http://www.w3.org/1999/xlink",
}


def name_of(prefixed):
    prefix, _, name = prefixed.partition(":")
    return "{%s}%s" % (NAMESPACES[prefix], name)


def convert(program, files, folder):
    """Converts all files in one run of the program; each becomes NAME.fodt in the folder."""
    environment = {key: value for key, value in os.environ.items() if key != "DISPLAY"}
    environment["HOME"] = folder
    subprocess.run([program, "-env:UserInstallation=file://" + os.path.join(folder, "profile"), "--headless",
                    "--convert-to", "fodt", "--outdir", folder, *files],
                   env=environment, capture_output=True, timeout=ALLOWED_SECONDS, check=True)


class Styles:
    """The properties of styles, those of their parents included."""

    def __init__(self, document):
        self.elements = {}
        self.defaults = {}
        for element in document.iter(name_of("style:style")):
            key = (element.get(name_of("style:family")), element.get(name_of("style:name")))
            self.elements[key] = element
        for element in document.iter(name_of("style:default-style")):
            self.defaults[element.get(name_of("style:family"))] = element
        self.known = {}

    def properties(self, family, name, kind):
        key = (family, name, kind)
        if key not in self.known:
            self.known[key] = self.inherited(family, name, kind)
        return self.known[key]

    def inherited(self, family, name, kind):
        element = self.elements.get((family, name))
        if element is None:
            return {}
        parent = element.get(name_of("style:parent-style-name"))
        found = dict(self.properties(family, parent, kind)) if parent else {}
        for properties in element.findall(name_of("style:" + kind)):
            found.update(properties.attrib)
        return found


class Lists:
    """Numbers the items of lists as LibreOffice shows them."""

    def __init__(self, document):
        self.levels = {}
        for style in document.iter(name_of("text:list-style")):
            for level in style:
                key = (style.get(name_of("style:name")), int(level.get(name_of("text:level"))))
                self.levels[key] = level
        self.counts = {}

    def marker(self, style, depth):
        level = self.levels.get((style, depth))
        if level is None:
            return ""
        bullet = level.get(name_of("text:bullet-char"))
        if bullet is not None:
            return bullet
        start = int(level.get(name_of("text:start-value"), "1"))
        number = self.counts.get((style, depth), start - 1) + 1
        self.counts[(style, depth)] = number
        for deeper in [key for key in self.counts if key[0] == style and key[1] > depth]:
            del self.counts[deeper]
        form = level.get(name_of("style:num-format"), "")
        if not form:
            return ""
        text = {"a": letters, "i": roman}.get(form.lower(), str)(number)
        text = text.upper() if form.isupper() else text
        return (level.get(name_of("style:num-prefix"), "") + text
                + level.get(name_of("style:num-suffix"), ""))


class Reader:
    def __init__(self, path):
        document = ElementTree.parse(path).getroot()
        self.styles = Styles(document)
        self.lists = Lists(document)
        self.body = document.find(".//" + name_of("office:text"))
        self.reading = Reading()
        self.cells = []

    def read(self):
        self.visit_children(self.body, Look())
        return self.reading

    def visit_children(self, element, look, list_style=None, depth=0):
        for child in element:
            self.visit(child, look, list_style, depth)

    def visit(self, element, look, list_style, depth):
        if element.tag in (name_of("text:p"), name_of("text:h")):
            self.paragraph(element, look)
        elif element.tag == name_of("text:list"):
            style = element.get(name_of("text:style-name")) or list_style
            for item in element:
                self.item(item, look, style, depth + 1)
        elif element.tag == name_of("table:table"):
            self.table(element, look)
        elif element.tag == name_of("text:section"):
            self.visit_children(element, look, list_style, depth)

    def item(self, item, look, style, depth):
        first = next(iter(item), None)
        is_numbered = item.tag == name_of("text:list-item") and first is not None
        if is_numbered and first.tag in (name_of("text:p"), name_of("text:h")):
            marker = self.lists.marker(style, depth)
            if marker.strip():
                self.reading.markers.append(Marker(depth, marker))
        self.visit_children(item, look, style, depth)

    def paragraph(self, element, look):
        name = element.get(name_of("text:style-name"))
        look = self.with_style(look, "paragraph", name)
        properties = self.styles.properties("paragraph", name, "paragraph-properties")
        alignment = properties.get(name_of("fo:text-align"), "natural")
        alignment = {"start": "natural", "end": "right", "justify": "justified"}.get(alignment, alignment)
        self.inline(element, dataclasses.replace(look, alignment=alignment))

    def inline(self, element, look):
        self.put(element.text, look)
        for child in element:
            inner = look
            if child.tag == name_of("text:span"):
                inner = self.with_style(look, "text", child.get(name_of("text:style-name")))
            elif child.tag == name_of("text:a"):
                inner = dataclasses.replace(look, link=child.get(name_of("xlink:href")))
            if child.tag == name_of("draw:frame"):
                self.put("\ufffc", look)
            elif not child.tag.startswith("{%s}" % NAMESPACES["office"]):
                self.inline(child, inner)
            self.put(child.tail, look)

    def with_style(self, look, family, name):
        found = self.styles.properties(family, name, "text-properties")

        def value(name):
            return found.get(name_of(name))

        changes = {}
        if value("fo:font-weight"):
            changes["bold"] = value("fo:font-weight") == "bold"
        if value("fo:font-style"):
            changes["italic"] = value("fo:font-style") == "italic"
        if value("style:text-underline-style"):
            changes["underline"] = value("style:text-underline-style") != "none"
        if value("style:text-line-through-style"):
            changes["strikethrough"] = value("style:text-line-through-style") != "none"
        if value("fo:color"):
            is_automatic = value("style:use-window-font-color") == "true"
            changes["color"] = None if is_automatic else value("fo:color").lstrip("#")
        elif value("style:use-window-font-color") == "true":
            changes["color"] = None
        if re.fullmatch(r"#[0-9a-f]{6}", value("fo:background-color") or ""):
            changes["highlight"] = value("fo:background-color")[1:]
        if value("style:text-position"):
            place = value("style:text-position").split()[0]
            changes["shift"] = {"super": 1, "sub": -1}.get(place) or self.shift_of(place)
        if value("fo:font-size") and value("fo:font-size").endswith("pt"):
            changes["size"] = float(value("fo:font-size")[:-2])
        return dataclasses.replace(look, **changes)

    @staticmethod
    def shift_of(place):
        percentage = float(place.rstrip("%"))
        return (percentage > 0) - (percentage < 0)

    def put(self, text, look):
        for character in text or "":
            if character.isspace() or character == "\u200b":
                continue
            for cell in self.cells:
                cell.text += character
            self.reading.glyphs.append(Glyph(character, look))

    def table(self, element, look):
        number = self.reading.begin_table()
        row = -1
        for row_element in element.iter(name_of("table:table-row")):
            if row_element not in self.own_rows(element):
                continue
            row += 1
            column = 0
            for child in row_element:
                if child.tag == name_of("table:table-cell"):
                    self.cell(child, look, (number, row, column))
                column += int(child.get(name_of("table:number-columns-repeated"), "1"))

    @staticmethod
    def own_rows(table):
        rows = list(table.findall(name_of("table:table-row")))
        for group in ("table:table-header-rows", "table:table-rows", "table:table-row-group"):
            for inner in table.findall(name_of(group)):
                rows += inner.findall(name_of("table:table-row"))
        return rows

    def cell(self, element, look, place):
        properties = self.styles.properties("table-cell", element.get(name_of("table:style-name")),
                                            "table-cell-properties")
        color = properties.get(name_of("fo:background-color"), "")
        behind = color[1:] if re.fullmatch(r"#[0-9a-f]{6}", color) else look.behind
        cell = Cell(*place, int(element.get(name_of("table:number-rows-spanned"), "1")),
                    int(element.get(name_of("table:number-columns-spanned"), "1")), behind)
        self.reading.cells.append(cell)
        self.cells.append(cell)
        self.visit_children(element, dataclasses.replace(look, behind=behind))
        self.cells.pop()


def read(path):
    return Reader(path).read()
