# SPDX-License-Identifier: MIT
"""The values of inline styles, as far as notes use them. Colours are six digits of hexadecimal, without
their alpha; "none" stands for a transparent one."""

import colorsys
import re

# The colours that notes call by name.
NAMES = {
    "aqua": "00ffff", "black": "000000", "blue": "0000ff", "fuchsia": "ff00ff", "gray": "808080",
    "green": "008000", "grey": "808080", "lightgray": "d3d3d3", "lime": "00ff00", "maroon": "800000",
    "navy": "000080", "olive": "808000", "orange": "ffa500", "purple": "800080", "red": "ff0000",
    "silver": "c0c0c0", "teal": "008080", "white": "ffffff", "yellow": "ffff00", "crimson": "dc143c",
    "gold": "ffd700", "lightyellow": "ffffe0", "rebeccapurple": "663399", "darkgreen": "006400",
}

UNITS = {"px": 1, "pt": 96 / 72, "in": 96, "cm": 96 / 2.54, "mm": 96 / 25.4, "pc": 16}

# Families that every Mac has, by the name that rich text shows of them, and what may stand for a kind.
MAC_FAMILIES = {
    "arial": ("Arial",), "helvetica": ("Helvetica",), "helveticaneue": ("HelveticaNeue",),
    "timesnewroman": ("TimesNewRoman",), "times": ("Times",), "georgia": ("Georgia",),
    "verdana": ("Verdana",), "couriernew": ("CourierNew",), "courier": ("Courier",), "menlo": ("Menlo",),
    "monaco": ("Monaco",), "trebuchetms": ("TrebuchetMS",), "tahoma": ("Tahoma",),
    "lucidagrande": ("LucidaGrande",), "palatino": ("Palatino",), "avenir": ("Avenir",),
    "comicsansms": ("ComicSansMS",), "impact": ("Impact",),
}
GENERIC_FAMILIES = {
    "monospace": ("Menlo", "Monaco", "Courier", "CourierNew"),
    "sans-serif": ("Helvetica", "Arial", "HelveticaNeue"),
    "serif": ("TimesNewRoman", "Times", "Georgia"),
}


def declarations_of(style):
    """(name, value) of each declaration; names in lower case, values too except in quotes."""
    without_comments = re.sub(r"/\*.*?\*/", " ", style, flags=re.DOTALL)
    for declaration in re.findall(r"(?:\"[^\"]*\"|'[^']*'|\([^)]*\)|[^;])+", without_comments):
        name, colon, value = declaration.partition(":")
        if colon and value.strip():
            value = re.sub(r"\s*!\s*important\s*$", "", " ".join(value.split()))
            yield name.strip().lower(), value if re.search(r"[\"']", value) else value.lower()


def byte_of(text, whole):
    number = float(text.rstrip("%"))
    return max(0, min(255, round(number * 255 / (100 if text.endswith("%") else whole))))


def color_of(text):
    """None when the text names no colour."""
    text = text.strip().lower()
    if text == "transparent":
        return "none"
    if text in NAMES:
        return NAMES[text]
    digits = re.fullmatch(r"#([0-9a-f]{3,8})", text)
    if digits and len(digits.group(1)) in (3, 4):
        alpha = digits.group(1)[3:]
        return "none" if alpha == "0" else "".join(digit * 2 for digit in digits.group(1)[:3])
    if digits and len(digits.group(1)) in (6, 8):
        return "none" if digits.group(1)[6:] == "00" else digits.group(1)[:6]
    function = re.fullmatch(r"(rgb|hsl)a?\(([^)]*)\)", text)
    if not function:
        return None
    parts = re.findall(r"-?[\d.]+%?", function.group(2))
    if len(parts) < 3:
        return None
    if len(parts) == 4 and float(parts[3].rstrip("%")) == 0:
        return "none"
    if function.group(1) == "rgb":
        return "".join("%02x" % byte_of(part, 255) for part in parts[:3])
    hue, saturation, lightness = (float(part.rstrip("%")) for part in parts[:3])
    rgb = colorsys.hls_to_rgb(hue / 360 % 1, lightness / 100, saturation / 100)
    return "".join("%02x" % round(channel * 255) for channel in rgb)


def length_of(text, font_size, root_size):
    """Points, a pixel being one; percentages are of the font's size. None when it is no length."""
    match = re.fullmatch(r"([\d.]+)\s*(px|pt|in|cm|mm|pc|em|rem|%)?", text.strip())
    if not match:
        return None
    number, unit = float(match.group(1)), match.group(2) or "px"
    if unit == "em":
        return number * font_size
    if unit == "rem":
        return number * root_size
    if unit == "%":
        return number * font_size / 100
    return number * UNITS[unit]


def families_of(text):
    """The names of which one should be seen: the first family that a Mac has, or any of a kind. Empty when
    the list names nothing that is known here."""
    for name in re.findall(r"\"[^\"]*\"|'[^']*'|[^,]+", text):
        name = name.strip().strip("\"'").lower()
        if name in GENERIC_FAMILIES:
            return GENERIC_FAMILIES[name]
        plain = re.sub(r"[^a-z]", "", name)
        if plain in MAC_FAMILIES:
            return MAC_FAMILIES[plain]
    return ()
