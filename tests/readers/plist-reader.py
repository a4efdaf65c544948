#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""plist-reader.py FILE: prints a property list, XML or binary, as JSON with sorted keys.

A keyed archive is resolved: its root object is printed, with every reference followed. Data becomes
{"$data": base64}, a date ISO text ending in Z, an instance {"$class": name, key: value ...}; arrays,
dictionaries, strings and dates in their archived forms become plain ones. An object that holds itself
is printed as {"$again": its number} the second time.
"""

import base64
import datetime
import json
import plistlib
import sys

EPOCH = datetime.datetime(2001, 1, 1)


def plain(value):
    if isinstance(value, dict):
        return {key: plain(element) for key, element in value.items()}
    if isinstance(value, list):
        return [plain(element) for element in value]
    if isinstance(value, bytes):
        return {"$data": base64.b64encode(value).decode("ascii")}
    if isinstance(value, datetime.datetime):
        return value.isoformat() + "Z"
    if isinstance(value, plistlib.UID):
        return {"$uid": value.data}
    return value


class KeyedArchive:
    def __init__(self, archive):
        if archive.get("$version") != 100000:
            raise ValueError("a keyed archive of another version")
        self.objects = archive["$objects"]
        if self.objects[0] != "$null":
            raise ValueError("the first object is not the empty one")
        self.top = archive["$top"]
        self.open = []

    def root(self):
        top = {key: self.resolve(value) for key, value in self.top.items()}
        return top["root"] if list(top) == ["root"] else {"$top": top}

    def class_name(self, uid):
        record = self.objects[uid.data]
        if record["$classname"] != record["$classes"][0] or record["$classes"][-1] != "NSObject":
            raise ValueError("a class record that is no chain from a class to NSObject")
        return record["$classname"]

    def resolve(self, value):
        if isinstance(value, list):
            return [self.resolve(element) for element in value]
        if not isinstance(value, plistlib.UID):
            return plain(value)
        number = value.data
        if number == 0:
            return None
        if number in self.open:
            return {"$again": number}
        found = self.objects[number]
        if not isinstance(found, dict):
            return plain(found)
        self.open.append(number)
        try:
            return self.instance(found)
        finally:
            self.open.pop()

    def instance(self, found):
        name = self.class_name(found["$class"])
        if name in ("NSArray", "NSMutableArray", "NSSet", "NSMutableSet"):
            return [self.resolve(element) for element in found["NS.objects"]]
        if name in ("NSDictionary", "NSMutableDictionary"):
            keys = [self.resolve(key) for key in found["NS.keys"]]
            values = [self.resolve(element) for element in found["NS.objects"]]
            if len(keys) != len(values):
                raise ValueError("a dictionary with more keys than values, or the reverse")
            return {str(key): element for key, element in zip(keys, values)}
        if name in ("NSString", "NSMutableString"):
            return self.resolve(found["NS.string"])
        if name in ("NSData", "NSMutableData"):
            return plain(found["NS.data"])
        if name == "NSDate":
            return (EPOCH + datetime.timedelta(seconds=found["NS.time"])).isoformat() + "Z"
        fields = {key: self.resolve(element) for key, element in found.items() if key != "$class"}
        return {"$class": name, **fields}


def read(data):
    value = plistlib.loads(data)
    if isinstance(value, dict) and value.get("$archiver") == "NSKeyedArchiver":
        return KeyedArchive(value).root()
    return plain(value)


def main(arguments):
    if len(arguments) != 1:
        sys.exit("usage: plist-reader.py FILE")
    with open(arguments[0], "rb") as source:
        print(json.dumps(read(source.read()), indent=1, sort_keys=True, ensure_ascii=False))


if __name__ == "__main__":
    main(sys.argv[1:])
