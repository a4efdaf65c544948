# SPDX-License-Identifier: MIT
"""What an ENEX file of today's Evernote holds, read with Python's own XML reader, and the same file in other
layouts. Shares no code with the program.
"""

import base64
import binascii
import dataclasses
import datetime
import hashlib
import re
import xml.etree.ElementTree as ElementTree
import xml.parsers.expat
import zoneinfo

CHECKED = "\u2611\ufe0e "
UNCHECKED = "\u2610 "
NO_DAY = "2757600913T000000Z"


@dataclasses.dataclass
class Task:
    title: str
    completed: bool
    group: str
    weight: str
    details: list

    def line(self):
        box = CHECKED if self.completed else UNCHECKED
        return box + collapse(self.title + (f" ({'; '.join(self.details)})" if self.details else ""))


@dataclasses.dataclass
class Note:
    title: str
    created: datetime.datetime
    updated: datetime.datetime
    tags: list
    source: str
    source_url: str
    content: str
    tasks: list
    resources: list  # MD5 digests; None for data that cannot be read
    links: list  # (address, text)
    boxes: list  # of the body, without the tasks: True for a checked one
    encrypted: int
    media: list  # hashes


def collapse(text):
    return re.sub(r"[\s\u200b]+", " ", text).strip()


def moment(text):
    """A stamp as a moment in UTC without a zone, as property lists have it; None for any other text."""
    try:
        return datetime.datetime.strptime(text.strip(), "%Y%m%dT%H%M%SZ")
    except ValueError:
        return None


def moment_text(stamp, option, zone):
    if not stamp or stamp == NO_DAY:
        return None
    parsed = moment(stamp)
    if parsed is None:
        return stamp
    if not zone:
        return parsed.strftime("%Y-%m-%d %H:%M UTC")
    there = parsed.replace(tzinfo=datetime.timezone.utc).astimezone(zoneinfo.ZoneInfo(zone))
    return there.strftime("%Y-%m-%d" if option == "date_only" else "%Y-%m-%d %H:%M")


def text_of(element, tag):
    return (element.findtext(tag) or "").strip()


def read_task(element):
    details = []
    due = moment_text(text_of(element, "dueDate"), text_of(element, "dueDateUIOption"),
                      text_of(element, "timeZone"))
    if due:
        details.append(f"Due: {due}")
    for reminder in element.findall("reminder"):
        when = moment_text(text_of(reminder, "reminderDate"), text_of(reminder, "reminderDateUIOption"),
                           text_of(reminder, "timeZone"))
        if when:
            details.append(f"Reminder: {when}")
    if text_of(element, "recurrence"):
        details.append(f"Repeats: {text_of(element, 'recurrence')}")
    if text_of(element, "taskFlag") == "true":
        details.append("Flagged")
    return Task(text_of(element, "title"), text_of(element, "taskStatus") == "completed",
                text_of(element, "taskGroupNoteLevelID"), text_of(element, "sortWeight"), details)


def in_order(tasks):
    """The tasks of one group as the person had arranged them."""
    return sorted(tasks, key=lambda task: task.weight) if all(task.weight for task in tasks) else tasks


def task_lines(tasks):
    """The lines of all tasks, group by group."""
    groups = {}
    for task in tasks:
        groups.setdefault(task.group, []).append(task)
    return {group: [task.line() for task in in_order(members)] for group, members in groups.items()}


def parsed_body(content):
    """The body as a tree, or None when it is not well-formed or empty."""
    markup = re.sub(r"<\?xml[^>]*\?>|<!DOCTYPE[^>]*>", "", content).strip().replace("&nbsp;", "&#160;")
    try:
        return ElementTree.fromstring(markup)
    except ElementTree.ParseError:
        return None


def style_of(element):
    declarations = (declaration.partition(":") for declaration in element.get("style", "").split(";"))
    return {name.strip(): value.strip() for name, _, value in declarations}


def boxes_in(element, is_list=False):
    """The checkboxes of a body in order: en-todo, and the items of checklists in the new form."""
    found = []
    for child in element:
        if child.tag == "en-todo":
            found.append(child.get("checked") == "true")
        elif child.tag == "li" and is_list:
            found.append(style_of(child).get("--en-checked") == "true")
        child_is_list = child.tag in ("ul", "ol") and style_of(child).get("--en-todo") == "true"
        found += boxes_in(child, child_is_list)
    return found


def read_resource(element):
    try:
        data = base64.b64decode(re.sub(r"\s", "", element.findtext("data") or ""), validate=True)
    except (binascii.Error, ValueError):
        return None
    return hashlib.md5(data).hexdigest() if data else None


def read_note(element):
    content = "".join(part.text or "" for part in element.findall("content"))
    body = parsed_body(content)
    links, boxes, encrypted, media = [], [], 0, []
    if body is not None:
        links = [(a.get("href", ""), collapse("".join(a.itertext()))) for a in body.iter("a")]
        boxes = boxes_in(body)
        encrypted = sum(1 for _ in body.iter("en-crypt"))
        media = [each.get("hash", "") for each in body.iter("en-media")]
    dates = {tag: None for tag in ("created", "updated")}
    for tag in dates:
        for each in element.findall(tag):
            if (each.text or "").strip():
                dates[tag] = moment(each.text)
    return Note(title=element.findtext("title") or "", created=dates["created"], updated=dates["updated"],
                tags=[tag.text.strip() for tag in element.findall("tag") if (tag.text or "").strip()],
                source=text_of(element, "note-attributes/source"),
                source_url=text_of(element, "note-attributes/source-url"), content=content,
                tasks=[read_task(task) for task in element.findall("task")],
                resources=[read_resource(each) for each in element.findall("resource")],
                links=links, boxes=boxes, encrypted=encrypted, media=media)


def read(data):
    """The notes of a file, or None when it is not well-formed."""
    try:
        root = ElementTree.fromstring(data)
    except ElementTree.ParseError:
        return None
    return [read_note(note) for note in root.iter("note")]


def is_modern(data):
    root = ElementTree.fromstring(data)
    version = re.match(r"\s*(\d+)", root.get("version", ""))
    has_header = root.get("application") == "Evernote" and version is not None and int(version.group(1)) >= 10
    between = [text for note in root.iter("note") for text in (note.text, *(child.tail for child in note))]
    return has_header or any(text and not text.strip() for text in between) or loses_as_written(data)


def loses_as_written(data):
    """Whether something does not come through when the file is read as it stands."""
    for note in ElementTree.fromstring(data).iter("note"):
        behind = [child.tail for child in note if child.tag in ("created", "updated", "tag")]
        if any(text and not text.strip() for text in behind) or note.find("task") is not None:
            return True
    return False


class AsWritten:
    """A file read as it stands: an element's end does not end its field."""

    FIELDS = {"title", "content", "created", "updated", "tag", "resource", "note-attributes"}

    def __init__(self, data):
        self.notes = []
        self.note = None
        self.field = None
        self.attribute = None
        parser = xml.parsers.expat.ParserCreate()
        parser.buffer_text = True
        parser.buffer_size = 64 * 1024
        parser.StartElementHandler = self.start
        parser.EndElementHandler = self.end
        parser.CharacterDataHandler = self.characters
        self.in_cdata = False
        parser.StartCdataSectionHandler = lambda: setattr(self, "in_cdata", True)
        parser.EndCdataSectionHandler = lambda: setattr(self, "in_cdata", False)
        parser.Parse(data, True)

    def start(self, name, _):
        if self.note is None:
            if name == "note":
                self.note = {"title": "", "created": None, "updated": None, "tags": [], "source-url": ""}
        elif self.field == "note-attributes":
            self.attribute = name
        elif self.field != "resource":
            self.field = name if name in self.FIELDS else None
            self.attribute = None

    def end(self, name):
        if name == "note":
            self.notes.append(self.note)
            self.note = self.field = None
        elif name in ("resource", "note-attributes"):
            self.field = None

    def characters(self, text):
        if self.note is None or self.in_cdata:
            return
        if self.field == "title":
            self.note["title"] += text
        elif self.field in ("created", "updated"):
            self.note[self.field] = moment(text) if text == text.strip() else None
        elif self.field == "tag":
            self.note["tags"].append(text.strip())
        elif self.field == "note-attributes" and self.attribute == "source-url":
            self.note["source-url"] += text


# The same notes in other layouts.

READ_AS_IT_IS = {"title", "content", "data", "file-name"}


def escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace("\r", "&#13;")


def written(element, indent, depth=0):
    """An element of an ENEX file with its elements on lines of their own, or all in one."""
    attributes = "".join(f' {name}="{escaped(value).replace(chr(34), "&quot;")}"'
                         for name, value in element.attrib.items())
    inside = escaped(element.text or "")
    if element.tag == "content":
        inside = "<![CDATA[" + (element.text or "").replace("]]>", "]]]]><![CDATA[>") + "]]>"
        if indent:
            inside = "\n" + indent * (depth + 1) + inside + "\n" + indent * depth
    elif len(element):
        line = "\n" + indent * (depth + 1) if indent else ""
        inside = "".join(line + written(child, indent, depth + 1) for child in element)
        inside += "\n" + indent * depth if indent else ""
    elif element.tag not in READ_AS_IT_IS:
        inside = escaped((element.text or "").strip())
        if indent and element.tag in ("created", "updated", "tag", "mime"):
            inside = "\n" + indent * (depth + 1) + inside + "\n"
    return f"<{element.tag}{attributes}>{inside}</{element.tag}>"


def laid_out(data, indent):
    return ('<?xml version="1.0" encoding="UTF-8"?>\n' + written(ElementTree.fromstring(data), indent)).encode()
