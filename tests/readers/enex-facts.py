#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""enex-facts.py FILE: reads an ENEX file without any of the program's code and prints JSON.

{"wellFormed": bool, "notes": [{"title", "tags", "created", "updated", "source", "sourceURL",
 "hasBody", "bodyWellFormed", "content", "text", "media", "images", "changesCase",
 "resources": [{"md5", "size", "mime", "name"}]}]}

"text" is what a reader of the note sees, white space collapsed: a checkbox as its two or three
characters, an attachment as U+FFFC, a locked passage as eight asterisks, a picture of the page's own
(img) as U+E000; "images" lists the alternative text and the source of each of those. "media" lists the MD5 of each
attachment in the order of its places; an empty text where the resource is missing. When the file is not
well-formed, "notes" counts nothing and "noteTags" says how many notes seem to begin.
"""

import base64
import binascii
import hashlib
import html
import html.parser
import json
import re
import sys
import xml.etree.ElementTree as ElementTree

CHECKED = "\u2611\ufe0e "
UNCHECKED = "\u2610 "
ATTACHMENT = "\ufffc"
LOCKED = "********"
MISSING = "[Missing Attachment]"
IMAGE = "\ue000"

# Elements whose ends and beginnings part words.
BLOCKS = {
    "address", "article", "aside", "blockquote", "body", "br", "caption", "center", "dd", "div", "dl",
    "dt", "en-note", "fieldset", "figure", "figcaption", "footer", "form", "h1", "h2", "h3", "h4", "h5",
    "h6", "header", "hr", "html", "li", "main", "nav", "ol", "p", "pre", "section", "table", "tbody", "td",
    "tfoot", "th", "thead", "tr", "ul",
}
UNSEEN = {"head", "script", "style", "title", "template", "noscript"}
EMPTY = {"br", "hr", "img", "en-media", "en-todo", "input", "meta", "link", "col", "area", "base", "wbr"}
XML_ENTITIES = {"amp", "lt", "gt", "quot", "apos"}


class BodyText:
    """Collects what is seen; fed with starts, ends and text by whichever parser could read the body."""

    def __init__(self, hashes):
        self.hashes = hashes
        self.pieces = []
        self.media = []
        self.images = []
        self.hidden = 0
        self.changes_case = False
        self.open = []  # (tag, whether it is a block, whether it hides all within, whether it is visible)

    def start(self, tag, attributes):
        style = re.sub(r"\s", "", attributes.get("style") or "").lower()
        hides = tag in UNSEEN or "display:none" in style or tag == "en-crypt"
        block = tag == "br" or (tag in BLOCKS and "display:inline" not in style)
        visible = self.visible()
        if "visibility:" in style:
            # What is within may become visible again.
            visible = "visibility:visible" in style
        self.changes_case |= "text-transform:" in style
        if tag == "en-crypt" and not self.hidden and visible:
            self.pieces.append(LOCKED)
        self.open.append((tag, block, hides, visible))
        self.hidden += hides
        if block:
            self.pieces.append("\n")
        if self.hidden or not visible:
            return
        if tag == "en-todo":
            self.pieces.append(CHECKED if attributes.get("checked") == "true" else UNCHECKED)
        elif tag == "en-media":
            digest = attributes.get("hash") or ""
            known = digest in self.hashes
            self.media.append(digest if known else "")
            self.pieces.append(ATTACHMENT if known else MISSING)
        elif tag == "img":
            self.pieces.append(IMAGE)
            self.images.append([attributes.get("alt") or "", attributes.get("src") or ""])

    def end(self, tag):
        # A crossed or unopened end closes nothing; one that skips levels closes them.
        if tag not in [entry[0] for entry in self.open]:
            return
        while True:
            name, block, hides, _ = self.open.pop()
            self.hidden -= hides
            if block:
                self.pieces.append("\n")
            if name == tag:
                return

    def visible(self):
        return self.open[-1][3] if self.open else True

    def data(self, text):
        if not self.hidden and self.visible():
            self.pieces.append(text)

    def text(self):
        return collapse("".join(self.pieces))


def collapse(text):
    return re.sub(r"[\s\u200b]+", " ", text).strip()


def without_named_entities(markup):
    def numeric(match):
        name = match.group(1)
        if name in XML_ENTITIES or name + ";" not in html.entities.html5:
            return match.group(0)
        return "".join(f"&#{ord(character)};" for character in html.entities.html5[name + ";"])

    return re.sub(r"&([A-Za-z][A-Za-z0-9]*);", numeric, markup)


class StrictTarget:
    def __init__(self, body):
        self.start, self.end, self.data = body.start, body.end, body.data

    def close(self):
        return None


class LenientParser(html.parser.HTMLParser):
    def __init__(self, body):
        super().__init__(convert_charrefs=True)
        self.body = body

    def handle_starttag(self, tag, attributes):
        self.body.start(tag, dict(attributes))
        if tag in EMPTY:
            self.body.end(tag)

    def handle_startendtag(self, tag, attributes):
        self.body.start(tag, dict(attributes))
        self.body.end(tag)

    def handle_endtag(self, tag):
        self.body.end(tag)

    def handle_data(self, text):
        self.body.data(text)


def read_body(content, hashes):
    """(whether it is well-formed, what was seen)"""
    body = BodyText(hashes)
    parser = ElementTree.XMLParser(target=StrictTarget(body))
    markup = re.sub(r"^\s*<\?xml[^>]*\?>", "", content)
    try:
        parser.feed(without_named_entities(markup))
        parser.close()
        return True, body
    except ElementTree.ParseError:
        body = BodyText(hashes)
        lenient = LenientParser(body)
        lenient.feed(re.sub(r"<!DOCTYPE[^>]*>", "", markup))
        lenient.close()
        return False, body


def text_of_html(markup):
    """What is seen of a page that is not ENML; used for web archives."""
    body = BodyText({})
    parser = LenientParser(body)
    parser.feed(re.sub(r"<!DOCTYPE[^>]*>", "", markup))
    parser.close()
    return body.text()


def resource_facts(resource):
    try:
        data = base64.b64decode(re.sub(r"\s", "", resource.findtext("data") or ""))
    except (binascii.Error, ValueError):
        data = b""
    return {
        "md5": hashlib.md5(data).hexdigest(),
        "size": len(data),
        "mime": (resource.findtext("mime") or "").strip(),
        "name": resource.findtext("resource-attributes/file-name") or "",
    }


def date_text(note, tag):
    """The text of a date, or nothing where white space follows the element: such a date is not kept."""
    element = note.find(tag)
    if element is None or element.tail:
        return ""
    return (element.text or "").strip()


def note_facts(note):
    resources = [resource_facts(resource) for resource in note.findall("resource")]
    content = "".join(element.text or "" for element in note.findall("content"))
    well_formed, body = read_body(content, {resource["md5"] for resource in resources})
    return {
        "title": note.findtext("title") or "",
        "tags": [tag.text or "" for tag in note.findall("tag")],
        "created": date_text(note, "created"),
        "updated": date_text(note, "updated"),
        "source": note.findtext("note-attributes/source") or "",
        "sourceURL": note.findtext("note-attributes/source-url") or "",
        "hasBody": bool(re.sub(r"<\?xml[^>]*\?>|<!DOCTYPE[^>]*>", "", content).strip()),
        "bodyWellFormed": well_formed,
        "content": content,
        "text": body.text(),
        "media": body.media,
        "images": body.images,
        "changesCase": body.changes_case,
        "resources": resources,
    }


def read(path):
    with open(path, "rb") as source:
        data = source.read()
    try:
        root = ElementTree.fromstring(data)
    except ElementTree.ParseError as problem:
        return {"wellFormed": False, "problem": str(problem), "notes": [],
                "noteTags": len(re.findall(rb"<note[\s>]", data))}
    return {"wellFormed": True, "notes": [note_facts(note) for note in root.iter("note")]}


def main(arguments):
    if len(arguments) != 1:
        sys.exit("usage: enex-facts.py FILE")
    print(json.dumps(read(arguments[0]), indent=1, ensure_ascii=False))


if __name__ == "__main__":
    main(sys.argv[1:])
