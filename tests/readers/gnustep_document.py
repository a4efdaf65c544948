# SPDX-License-Identifier: MIT
"""What GNUstep sees in a note package, as rtfd-reader prints it, in the form of note_markup's Reading.

GNUstep knows no tables and no lists: a list's marker is text to it.
"""

import re

from note_markup import Glyph, Look, Reading


def look_of(run):
    name = run.get("font", "")
    family = re.sub(r"(PSMT|PS|MT)?(-.*)?$", "", name)
    background = run.get("background", "#ffffff").lstrip("#")
    return Look(bold=run.get("bold", False), italic=run.get("italic", False),
                underline=run.get("underline", False), strikethrough=run.get("strikethrough", False),
                color=run.get("foreground", "#000000").lstrip("#"),
                highlight=None if background == "ffffff" else background,
                size=run.get("size"), families=(family,), link=run.get("link"),
                alignment=run.get("alignment", "natural"))


def read(package):
    # Ranges count UTF-16 units.
    units = package["text"].encode("utf-16-le", "surrogatepass")
    reading = Reading()
    for run in package["runs"]:
        start, length = run["range"]
        text = units[2 * start:2 * (start + length)].decode("utf-16-le", "replace")
        look = look_of(run)
        reading.glyphs += [Glyph(character, look) for character in text
                           if not character.isspace() and character != "\u200b"]
    return reading
