# SPDX-License-Identifier: MIT
"""What a note's own markup says: its characters with their looks, its list markers, its tables.

Reads ENML with none of the program's code: Python's own XML and HTML parsers, and a style sheet of its
own. Only what is seen counts: white space is left out, so that how paragraphs are parted does not matter
here.

The choices that a rich text has to make: a pixel is a point; a coloured block with room round its text or
with blocks within it, a bordered one and a block of code are a table of one cell; the colour of any other
block is its text's; a page's own colour shows only when it is dark; a bullet gives way to a box that its
line begins with.
"""

import dataclasses
import html.parser
import re
import xml.etree.ElementTree as ElementTree

from css_values import color_of, declarations_of, families_of, length_of

CHECKED = "\u2611\ufe0e"
UNCHECKED = "\u2610"
ATTACHMENT = "\ufffc"
LOCKED = "********"
MISSING = "[Missing Attachment]"
STANDARD_SIZE = 12.0
SMALLER = 1 / 1.2

BLOCKS = {
    "address", "article", "aside", "blockquote", "body", "caption", "center", "dd", "details", "div", "dl",
    "dt", "en-note", "fieldset", "figure", "figcaption", "footer", "form", "h1", "h2", "h3", "h4", "h5", "h6",
    "header", "hr", "html", "legend", "li", "main", "nav", "ol", "p", "pre", "section", "summary", "table",
    "tbody", "td", "tfoot", "th", "thead", "tr", "ul",
}
PAGES = {"html", "body", "en-note"}
TABLE_PARTS = {"table", "tbody", "thead", "tfoot", "tr", "td", "th", "caption"}
UNSEEN = {"head", "script", "style", "title", "template", "meta", "link", "source"}
EMPTY = {"br", "hr", "img", "en-media", "en-todo", "input", "meta", "link", "col", "area", "base", "wbr"}
HEADINGS = {"h1": 2, "h2": 1.5, "h3": 1.17, "h4": 1, "h5": 0.83, "h6": 0.67}
NAMED_SIZES = {"xx-small": 9, "x-small": 10, "small": 13, "medium": 16, "large": 18, "x-large": 24,
               "xx-large": 32, "xxx-large": 48}
FONT_SIZES = (10, 13, 16, 18, 24, 32, 48)
BULLETS = {"disc": "\u2022", "circle": "\u25e6", "square": "\u25aa"}
BULLET_BY_DEPTH = ("disc", "circle", "square")
FORMATS = {"1": "decimal", "a": "lower-alpha", "A": "upper-alpha", "i": "lower-roman", "I": "upper-roman",
           "lower-latin": "lower-alpha", "upper-latin": "upper-alpha", "decimal-leading-zero": "decimal"}
XML_ENTITIES = {"amp", "lt", "gt", "quot", "apos"}


@dataclasses.dataclass(frozen=True)
class Look:
    """How a character looks. Sizes in points; colours as six digits, None for what is the reader's own."""

    bold: bool = False
    italic: bool = False
    underline: bool = False
    strikethrough: bool = False
    color: str = None
    highlight: str = None  # behind the text itself
    behind: str = None  # of its cell or box
    shift: int = 0  # above 0: raised
    size: float = STANDARD_SIZE
    families: tuple = ()  # any of these will do; none: nothing is known
    link: str = None
    alignment: str = "natural"


@dataclasses.dataclass
class Glyph:
    character: str
    look: Look
    is_marker: bool = False


@dataclasses.dataclass
class Marker:
    depth: int
    text: str


@dataclasses.dataclass
class Cell:
    """text: without blanks, that of inner tables included."""

    table: int
    row: int
    column: int
    row_span: int
    column_span: int
    behind: str = None
    text: str = ""


@dataclasses.dataclass
class Reading:
    """Cells are listed in the order in which they begin; tables are numbered in that order."""

    glyphs: list = dataclasses.field(default_factory=list)
    markers: list = dataclasses.field(default_factory=list)
    cells: list = dataclasses.field(default_factory=list)
    tables: int = 0
    ends_in_list: bool = False

    def begin_table(self):
        self.tables += 1
        return self.tables - 1


@dataclasses.dataclass
class Node:
    tag: str
    attributes: dict
    children: list = dataclasses.field(default_factory=list)


class TreeTarget:
    """Makes a tree of a parser's events. An end without its start closes nothing."""

    def __init__(self):
        self.root = Node("", {})
        self.open = [self.root]

    def start(self, tag, attributes):
        node = Node(tag.lower(), {name.lower(): value or "" for name, value in attributes.items()})
        self.open[-1].children.append(node)
        self.open.append(node)

    def end(self, tag):
        tags = [node.tag for node in self.open[1:]]
        if tag.lower() not in tags:
            return
        while self.open.pop().tag != tag.lower():
            pass

    def data(self, text):
        self.open[-1].children.append(text)

    def close(self):
        return self.root


class LenientParser(html.parser.HTMLParser):
    def __init__(self, target):
        super().__init__(convert_charrefs=True)
        self.target = target

    def handle_starttag(self, tag, attributes):
        self.target.start(tag, dict(attributes))
        if tag in EMPTY:
            self.target.end(tag)

    def handle_startendtag(self, tag, attributes):
        self.target.start(tag, dict(attributes))
        self.target.end(tag)

    def handle_endtag(self, tag):
        self.target.end(tag)

    def handle_data(self, text):
        self.target.data(text)


def tree_of(content):
    """(the tree, whether the body is well-formed)"""
    markup = re.sub(r"^\s*<\?xml[^>]*\?>", "", content)

    def numeric(match):
        name = match.group(1)
        if name in XML_ENTITIES or name + ";" not in html.entities.html5:
            return match.group(0)
        return "".join(f"&#{ord(character)};" for character in html.entities.html5[name + ";"])

    try:
        parser = ElementTree.XMLParser(target=TreeTarget())
        parser.feed(re.sub(r"&([A-Za-z][A-Za-z0-9]*);", numeric, markup))
        return parser.close(), True
    except ElementTree.ParseError:
        target = TreeTarget()
        lenient = LenientParser(target)
        lenient.feed(re.sub(r"<!DOCTYPE[^>]*>", "", markup))
        lenient.close()
        return target.root, False


def roman(number):
    values = ((1000, "m"), (900, "cm"), (500, "d"), (400, "cd"), (100, "c"), (90, "xc"), (50, "l"),
              (40, "xl"), (10, "x"), (9, "ix"), (5, "v"), (4, "iv"), (1, "i"))
    text = ""
    for value, letters in values:
        text += letters * (number // value)
        number %= value
    return text


def letters(number):
    text = ""
    while number > 0:
        number, digit = divmod(number - 1, 26)
        text = chr(ord("a") + digit) + text
    return text


def marker_text(kind, number):
    if kind in BULLETS:
        return BULLETS[kind]
    if kind == "none":
        return ""
    if kind == "hyphen":
        return "\u2043"
    if kind.startswith(("'", '"')):
        return kind[1:-1].strip()
    text = str(number)
    if number > 0 and kind.endswith("alpha"):
        text = letters(number)
    elif 0 < number < 4000 and kind.endswith("roman"):
        text = roman(number)
    return (text.upper() if kind.startswith("upper") else text) + "."


@dataclasses.dataclass
class List:
    kind: str
    number: int = 1
    step: int = 1
    is_checklist: bool = False


class Reader:
    """hashes: the MD5 of each resource that the note holds."""

    def __init__(self, hashes):
        self.hashes = hashes
        self.reading = Reading()
        self.lists = []  # the open ones of the innermost cell
        self.cells = []  # the open ones, outermost first
        self.item = None  # what stands before the next character: the marker of an item that has begun
        self.word_goes_on = False

    # Text.

    def put(self, text, look, is_marker=False):
        for character in text:
            if character.isspace() or character == "\u200b":
                continue
            for cell in self.cells:
                cell.text += character
            self.reading.glyphs.append(Glyph(character, look, is_marker))
            self.reading.ends_in_list = bool(self.lists)

    def put_item(self, first, look):
        """The marker of the item that the text begins."""
        if self.item is None:
            return
        kind, text, depth = self.item
        self.item = None
        if kind in BULLETS and first[:1] in "\u2610\u2611" and first:
            return
        if text:
            self.put(text, look, is_marker=True)
            if depth:
                self.reading.markers.append(Marker(depth, text))

    def text(self, text, style):
        if not style["visible"] or not text:
            return
        if not text.strip(" \t\r\n\f"):
            self.word_goes_on = False
            return
        transform = style["transform"]
        if transform == "uppercase":
            text = text.upper()
        elif transform == "lowercase":
            text = text.lower()
        elif transform == "capitalize":
            text = re.sub(r"(?<!\S)\S", lambda match: match.group().upper(),
                          ("x" if self.word_goes_on else "") + text)
            text = text[1:] if self.word_goes_on else text
        self.word_goes_on = not text[-1].isspace()
        self.put_item(text.strip(), style["look"])
        self.put(text, style["look"])

    # Styles.

    def style_of(self, node, parent):
        """The style that the node hands down, by the rules of CSS."""
        tag, attributes = node.tag, node.attributes
        own = dict(declarations_of(attributes.get("style", "")))
        style = dict(parent)
        style["own"] = own
        style["display"] = "block" if tag in BLOCKS else "inline"
        look = dataclasses.asdict(parent["look"])
        self.apply_element(tag, attributes, style, look)
        self.apply_declarations(own, style, look, parent["look"].size)
        if tag == "a" and re.match(r"\s*[^#\s]", attributes.get("href", "")):
            if not attributes["href"].strip().lower().startswith("javascript:"):
                look["link"] = attributes["href"].strip()
        self.apply_background(node, own, style, look)
        style["look"] = Look(**look)
        return style

    def apply_element(self, tag, attributes, style, look):
        if tag in ("b", "strong", "th") or tag in HEADINGS:
            look["bold"] = True
        if tag in ("i", "em", "cite", "dfn", "var", "address"):
            look["italic"] = True
        if tag in ("u", "ins") and "text-decoration" not in style["own"]:
            look["underline"] = True
        if tag in ("s", "strike", "del") and "text-decoration" not in style["own"]:
            look["strikethrough"] = True
        if tag in ("code", "kbd", "samp", "tt", "pre"):
            look["families"] = families_of("monospace")
        if tag in ("small", "sub", "sup"):
            look["size"] *= SMALLER
        if tag == "big":
            look["size"] /= SMALLER
        if tag in ("sub", "sup"):
            look["shift"] += 1 if tag == "sup" else -1
        if tag in HEADINGS:
            look["size"] *= HEADINGS[tag]
        if tag in ("center", "caption", "th"):
            look["alignment"] = "center"
        if tag == "font":
            size = re.fullmatch(r"\s*([+-]?)(\d+)\s*", attributes.get("size", ""))
            if size:
                step = int(size.group(1) + size.group(2)) + (3 if size.group(1) else 0)
                look["size"] = FONT_SIZES[min(max(step, 1), 7) - 1] * STANDARD_SIZE / 16
            look["color"] = color_of(attributes.get("color", "")) or look["color"]
            look["families"] = families_of(attributes["face"]) if "face" in attributes else look["families"]
        align = attributes.get("align", "").strip().lower()
        if align in ("left", "right", "center", "justify", "middle") and tag not in ("table", "img", "hr", "en-media"):
            look["alignment"] = {"middle": "center", "justify": "justified"}.get(align, align)

    def apply_declarations(self, own, style, look, parent_size):
        if "font" in own:
            self.apply_font(own["font"], look, parent_size)
        if "font-weight" in own:
            weight = own["font-weight"]
            look["bold"] = weight in ("bold", "bolder") or (weight.isdigit() and int(weight) >= 600)
        if "font-style" in own and own["font-style"].split()[0] in ("normal", "italic", "oblique"):
            look["italic"] = own["font-style"] != "normal"
        if "font-size" in own:
            look["size"] = size_of(own["font-size"], parent_size)
        if "font-family" in own:
            look["families"] = families_of(own["font-family"]) or look["families"]
        if "color" in own:
            look["color"] = color_of(own["color"]) or look["color"]
        for line in own.get("text-decoration", "").split() + own.get("text-decoration-line", "").split():
            look["underline"] |= line == "underline"
            look["strikethrough"] |= line == "line-through"
        if own.get("vertical-align") in ("super", "sub"):
            look["shift"] += 1 if own["vertical-align"] == "super" else -1
        if "text-align" in own and style["display"] == "block":
            align = own["text-align"].replace("-webkit-", "")
            look["alignment"] = {"justify": "justified", "start": "natural", "auto": "natural",
                                 "end": "right"}.get(align, align)
        display = own.get("display", style["display"])
        style["display"] = "inline" if display.startswith("inline") else display
        if own.get("visibility") in ("hidden", "collapse", "visible"):
            style["visible"] = own["visibility"] == "visible"
        if own.get("text-transform") in ("uppercase", "lowercase", "capitalize", "none"):
            style["transform"] = own["text-transform"]
        if is_true(own, "en-codeblock") and "font-family" not in own:
            look["families"] = families_of("monospace")

    @staticmethod
    def apply_font(value, look, parent_size):
        match = re.fullmatch(r"(.*?)\s*([\d.]+(?:px|pt|em|rem|%)|(?:xx?-)?(?:small|large)|medium)"
                             r"(?:\s*/\s*\S+)?\s+(.+)", value)
        if match:
            look["bold"] = bool(re.search(r"\b(bold|[6-9]00)\b", match.group(1)))
            look["italic"] = "italic" in match.group(1) or "oblique" in match.group(1)
            look["size"] = size_of(match.group(2), parent_size)
            look["families"] = families_of(match.group(3)) or look["families"]

    def apply_background(self, node, own, style, look):
        color = color_of(node.attributes.get("bgcolor", ""))
        for name in ("background", "background-color"):
            for part in re.findall(r"[\w-]+\([^)]*\)|\S+", own.get(name, "")):
                color = color_of(part) or color
        if color is None and node.tag == "mark":
            color = "ffff00"
        if color is None and any(is_true(own, name) for name in ("evernote-highlight", )):
            color = "fff096"
        is_block = style["display"] != "inline"
        style["is_box"] = is_block and is_box(node, own, color)
        if is_block and (style["is_box"] or node.tag in ("table", "td", "th")):
            look["highlight"] = None
        if color is None or color == "none":
            if is_true(own, "en-codeblock"):
                look["behind"] = "f5f5f5"
            return
        is_table_part = node.tag in TABLE_PARTS
        if is_block and not style["is_box"] and (node.tag in PAGES or (color == "ffffff" and not is_table_part)):
            return
        is_behind = style["is_box"] or is_table_part
        look["behind" if is_behind else "highlight"] = None if color == "ffffff" else color

    # The tree.

    def read(self, root):
        style = {"look": Look(), "visible": True, "transform": "none", "own": {}, "display": "block",
                 "is_box": False}
        for child in root.children:
            self.visit(child, style, root)
        return self.reading

    def visit_children(self, node, style):
        for child in node.children:
            self.visit(child, style, node)

    def visit(self, node, style, parent):
        if isinstance(node, str):
            self.text(node, style)
            return
        if node.tag in UNSEEN or "hidden" in node.attributes:
            return
        outer, style = style, self.style_of(node, style)
        if style["own"].get("display") == "none":
            return
        if style["display"] != "inline" or node.tag == "br":
            self.word_goes_on = False
        if self.put_content(node, outer, parent):
            return
        if node.tag == "table":
            Table(self, node, style).read()
        elif style["is_box"]:
            self.box(node, style)
        elif node.tag in ("ul", "ol", "menu", "dir"):
            self.list(node, style)
        elif node.tag == "li" and style["display"] != "inline":
            self.list_item(node, style, parent)
        else:
            self.visit_children(node, style)

    def put_content(self, node, style, parent):
        """Whether the element is content itself. An element's own style is not its content's here: that of
        its place is."""
        if not style["visible"]:
            return False
        look = style["look"]
        text = None
        if node.tag == "en-crypt":
            text = LOCKED
        elif node.tag == "en-todo":
            text = CHECKED if node.attributes.get("checked") == "true" else UNCHECKED
        elif node.tag == "en-media":
            text = ATTACHMENT if node.attributes.get("hash") in self.hashes else MISSING
        elif node.tag == "img":
            text, look = self.picture(node, look)
        elif node.tag == "input" and node.attributes.get("type", "").lower() == "checkbox":
            text = CHECKED if "checked" in node.attributes else UNCHECKED
        if text is None:
            return False
        if text:
            self.put_item(text, look)
            self.put(text, look)
        return node.tag in ("en-crypt", "en-todo", "en-media")

    @staticmethod
    def picture(node, look):
        source = node.attributes.get("src", "").strip()
        other = " ".join(node.attributes.get("alt", "").split())
        if source.lower().startswith("data:image/") and "," in source:
            return ATTACHMENT, look
        if re.match(r"(?i)(https?:)?//", source):
            sizes = [node.attributes.get(name, "") for name in ("width", "height")]
            if all(re.fullmatch(r"[01](px)?", size) for size in sizes):
                return "", look
            address = "https:" + source if source.startswith("//") else source
            return other or address, dataclasses.replace(look, link=look.link or address)
        return other or ("[%s]" % source.rsplit("/", 1)[-1] if source else ""), look

    def box(self, node, style):
        """A box is a table of one cell."""
        self.settle_item(style)
        cell = Cell(self.reading.begin_table(), 0, 0, 1, 1, style["look"].behind)
        self.reading.cells.append(cell)
        self.cells.append(cell)
        self.visit_children(node, style)
        self.cells.pop()

    def settle_item(self, style):
        """A marker whose text has not come yet stands alone."""
        if self.item is not None:
            self.put_item("", style["look"])

    def list(self, node, style):
        if self.item is not None:
            # An item that holds nothing but a list has no bullet of its own.
            if self.item[0] in BULLETS:
                self.item = None
            else:
                self.settle_item(style)
        own = style["own"]
        if is_true(own, "en-todo"):
            self.lists.append(List("none", is_checklist=True))
        else:
            depth = sum(not entry.is_checklist for entry in self.lists)
            kind = kind_of(node, own) or ("decimal" if node.tag == "ol" else
                                          BULLET_BY_DEPTH[min(depth, 2)])
            entry = List(kind)
            if "reversed" in node.attributes:
                entry.step = -1
                entry.number = sum(not isinstance(child, str) and child.tag == "li" for child in node.children)
            if re.fullmatch(r"\s*-?\d+\s*", node.attributes.get("start", "")) and node.tag == "ol":
                entry.number = int(node.attributes["start"])
            self.lists.append(entry)
        self.visit_children(node, style)
        self.lists.pop()

    def list_item(self, node, style, parent):
        self.settle_item(style)
        entry = self.lists[-1] if self.lists else None
        if entry is None:
            self.item = ("disc", BULLETS["disc"], 1)
        elif entry.is_checklist:
            self.item = ("box", CHECKED if is_true(style["own"], "en-checked") else UNCHECKED, 0)
        else:
            if re.fullmatch(r"\s*-?\d+\s*", node.attributes.get("value", "")):
                entry.number = int(node.attributes["value"])
            kind = kind_of(node, style["own"]) or entry.kind
            depth = sum(not each.is_checklist for each in self.lists)
            self.item = (kind, marker_text(kind, entry.number), depth)
            entry.number += entry.step
        self.visit_children(node, style)
        self.settle_item(style)


class Table:
    """A table of the page. Its rows are told apart by its own row elements; a footer comes last."""

    def __init__(self, reader, node, style):
        self.reader, self.node, self.style = reader, node, style
        self.number = None
        self.cells = []
        self.row, self.column = -1, 0
        self.taken = {}

    def read(self):
        self.reader.settle_item(self.style)
        children = self.node.children
        footers = [child for child in children if not isinstance(child, str) and child.tag == "tfoot"][:1]
        for child in [*(child for child in children if child not in footers), *footers]:
            self.part(child, self.style)
        columns = max((cell.column for cell in self.cells), default=0) + 1
        for cell in self.cells:
            cell.row_span = max(1, min(cell.row_span, self.row + 1 - cell.row))
            cell.column_span = max(1, min(cell.column_span, columns - cell.column))

    def part(self, node, style):
        if isinstance(node, str):
            self.reader.text(node, style)
            return
        if node.tag not in ("tbody", "thead", "tfoot", "tr", "td", "th"):
            if node.tag not in ("col", "colgroup"):
                self.reader.visit(node, style, self.node)
            return
        style = self.reader.style_of(node, style)
        if style["own"].get("display") == "none":
            return
        if node.tag in ("td", "th"):
            self.cell(node, style)
            return
        if node.tag == "tr":
            self.row += 1
            self.column = 0
        for child in node.children:
            self.part(child, style)

    def cell(self, node, style):
        def span(name):
            text = node.attributes.get(name, "").strip()
            return int(text) if text.isdigit() else 1

        self.row = max(self.row, 0)
        while self.taken.get(self.column, 0) > self.row:
            self.column += 1
        rows, columns = span("rowspan") or 65534, max(span("colspan"), 1)
        if self.number is None:
            self.number = self.reader.reading.begin_table()
        cell = Cell(self.number, self.row, self.column, rows, columns, style["look"].behind)
        self.cells.append(cell)
        self.reader.reading.cells.append(cell)
        for column in range(self.column, self.column + columns):
            self.taken[column] = self.row + rows
        self.column += columns
        reader = self.reader
        lists, reader.lists = reader.lists, []
        reader.cells.append(cell)
        reader.visit_children(node, style)
        reader.settle_item(style)
        reader.cells.pop()
        reader.lists = lists


def is_true(own, name):
    return any(own.get(prefix + name, "").lower() == "true" for prefix in ("--", "-"))


def kind_of(node, own):
    for value in (own.get("list-style-type"), own.get("list-style"), node.attributes.get("type")):
        for part in re.findall(r"'[^']*'|\"[^\"]*\"|[\w-]+", value or ""):
            kind = FORMATS.get(part, part)
            if (kind in BULLETS or kind in ("none", "decimal", "hyphen") or kind[0] in "'\""
                    or re.fullmatch(r"(lower|upper)-(alpha|roman)", kind)):
                return kind
    return None


def is_box(node, own, color):
    is_colored = color not in (None, "none", "ffffff")
    if is_true(own, "en-codeblock"):
        return True
    if node.tag in PAGES:
        return is_colored and is_dark(color)
    if node.tag in TABLE_PARTS or node.tag in ("ul", "ol", "li", "hr"):
        return False
    has_blocks = any(not isinstance(child, str) and child.tag in BLOCKS for child in node.children)
    return has_border(own) or (is_colored and (has_padding(own) or has_blocks))


def is_dark(color):
    red, green, blue = (int(color[at:at + 2], 16) for at in (0, 2, 4))
    return 0.299 * red + 0.587 * green + 0.114 * blue < 127.5


def has_border(own):
    for name, value in own.items():
        if re.fullmatch(r"border(-left|-right|-top|-bottom)?", name):
            parts = value.split()
            is_drawn = any(part in ("solid", "dashed", "dotted", "double", "groove", "ridge", "inset", "outset")
                           for part in parts)
            if is_drawn and not any(re.fullmatch(r"0(px|pt|em)?|transparent", part) for part in parts):
                return True
    return (own.get("border-style", "none") not in ("none", "hidden")
            and not re.match(r"0(px)?\b", own.get("border-width", "3px")))


def has_padding(own):
    return any(name.startswith("padding") and re.search(r"[1-9]", value) for name, value in own.items())


def size_of(value, parent_size):
    if value in NAMED_SIZES:
        return NAMED_SIZES[value] * STANDARD_SIZE / 16
    if value in ("smaller", "larger"):
        return parent_size * (SMALLER if value == "smaller" else 1 / SMALLER)
    return length_of(value, parent_size, STANDARD_SIZE) or parent_size


def read(content, hashes):
    """(what the note's body says, whether it is well-formed)"""
    root, is_well_formed = tree_of(content)
    return Reader(hashes).read(root), is_well_formed
