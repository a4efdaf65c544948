#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""web-archive-check.py FILE...: checks web archives key by key and prints what they hold.

The layout is the one that web views read: a dictionary with WebMainResource, WebSubresources and, of the
same shape again, WebSubframeArchives. At the top lies QuilleryResource beside them, with the address of the
page that was clipped. Exit code 0 when every archive is sound, else 1.
"""

import plistlib
import sys

ARCHIVE = {"WebMainResource": dict, "WebSubresources": list, "WebSubframeArchives": list}
RESOURCE = {"WebResourceData": bytes, "WebResourceURL": str}
OPTIONAL = {"WebResourceMIMEType": str, "WebResourceTextEncodingName": str, "WebResourceResponse": bytes}
MAIN = {**RESOURCE, "WebResourceMIMEType": str, "WebResourceFrameName": str}
MAIN_OPTIONAL = {"WebResourceTextEncodingName": str}


def key_breaches(where, found, required, optional):
    if not isinstance(found, dict):
        yield f"{where} is no dictionary"
        return
    for key, kind in required.items():
        if key not in found:
            yield f"{where} has no {key}"
        elif not isinstance(found[key], kind):
            yield f"{where}: {key} is a {type(found[key]).__name__}"
    for key, value in found.items():
        if key in required:
            continue
        if key not in optional:
            yield f"{where} has a key {key}"
        elif not isinstance(value, optional[key]):
            yield f"{where}: {key} is a {type(value).__name__}"
        elif not value:
            yield f"{where}: {key} is there and empty"


def response_breaches(where, data):
    """The mark of a response that was seen: a keyed archive of data without a byte."""
    try:
        keyed = plistlib.loads(data)
        value = keyed["$objects"][keyed["$top"]["WebResourceResponse"].data]
        kind = keyed["$objects"][value["$class"].data]["$classes"]
        if keyed["$archiver"] != "NSKeyedArchiver" or value["NS.data"] != b"" or kind[-1] != "NSObject":
            yield f"{where}: the response is another archive"
    except (plistlib.InvalidFileException, KeyError, TypeError, AttributeError, IndexError) as problem:
        yield f"{where}: the response is no keyed archive: {problem!r}"


def archive_breaches(archive):
    waiting = [("top", archive)]
    names = set()
    while waiting:
        where, found = waiting.pop()
        is_top = found is archive
        required = {**ARCHIVE, "QuilleryResource": dict} if is_top else ARCHIVE
        problems = list(key_breaches(where, found, required, {}))
        yield from problems
        if problems:
            continue
        yield from key_breaches(f"{where}, main resource", found["WebMainResource"], MAIN, MAIN_OPTIONAL)
        main = found["WebMainResource"]
        for key in ("WebResourceURL", "WebResourceMIMEType"):
            if not main.get(key):
                yield f"{where}: the main resource's {key} is empty"
        if is_top:
            yield from key_breaches("QuilleryResource", found["QuilleryResource"], {"QLOriginalWebURL": str}, {})
        elif not main.get("WebResourceFrameName"):
            yield f"{where}: a frame without a name"
        elif main["WebResourceFrameName"] in names:
            yield f"{where}: two frames named {main['WebResourceFrameName']}"
        names.add(main.get("WebResourceFrameName"))
        urls = set()
        for number, resource in enumerate(found["WebSubresources"]):
            place = f"{where}, resource {number}"
            yield from key_breaches(place, resource, RESOURCE, OPTIONAL)
            if not resource.get("WebResourceURL"):
                yield f"{place} has no address"
            if resource.get("WebResourceURL") in urls:
                yield f"{place}: {resource['WebResourceURL']} is there twice"
            urls.add(resource.get("WebResourceURL"))
            if "WebResourceResponse" in resource:
                yield from response_breaches(place, resource["WebResourceResponse"])
        waiting += [(f"{where}, frame {number}", frame) for number, frame in enumerate(found["WebSubframeArchives"])]


def read(path):
    """The archive and what is wrong with it."""
    with open(path, "rb") as source:
        data = source.read()
    archive = plistlib.loads(data)
    breaches = [] if data.startswith(b"bplist00") else ["no binary property list"]
    return archive, breaches + list(archive_breaches(archive))


def main():
    sound = True
    for path in sys.argv[1:]:
        archive, breaches = read(path)
        print(f"{path}: {archive.get('WebMainResource', {}).get('WebResourceURL')}, "
              f"{len(archive.get('WebSubresources', []))} resources, "
              f"{len(archive.get('WebSubframeArchives', []))} frames")
        for breach in breaches:
            print(f"    {breach}")
            sound = False
    return 0 if sound else 1


if __name__ == "__main__":
    sys.exit(main())
