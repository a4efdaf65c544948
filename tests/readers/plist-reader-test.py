#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The property-list reader resolves keyed archives and refuses what is none."""

import importlib.util
import os
import plistlib
import unittest

UID = plistlib.UID

spec = importlib.util.spec_from_file_location(
    "plist_reader", os.path.join(os.path.dirname(os.path.abspath(__file__)), "plist-reader.py"))
plist_reader = importlib.util.module_from_spec(spec)
spec.loader.exec_module(plist_reader)


def archive(objects):
    return plistlib.dumps({"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": {"root": UID(1)},
                           "$objects": ["$null", *objects]}, fmt=plistlib.FMT_BINARY)


def class_record(*chain):
    return {"$classname": chain[0], "$classes": [*chain, "NSObject"]}


class PlistReader(unittest.TestCase):
    def test_prints_a_plain_list_as_it_is(self):
        for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
            value = plistlib.dumps({"name": "a", "data": b"\0", "flags": [True, 3, 0.5]}, fmt=form)
            self.assertEqual(plist_reader.read(value),
                             {"name": "a", "data": {"$data": "AA=="}, "flags": [True, 3, 0.5]})

    def test_follows_references(self):
        data = archive([
            {"$class": UID(2), "on": True, "range": UID(3), "items": UID(4), "none": UID(0)},
            class_record("Box"), "{12, 3}", {"$class": UID(5), "NS.objects": [UID(3), UID(6)]},
            class_record("NSMutableArray", "NSArray"), {"$class": UID(7), "NS.time": 86400.0},
            class_record("NSDate")])
        self.assertEqual(plist_reader.read(data),
                         {"$class": "Box", "on": True, "range": "{12, 3}", "none": None,
                          "items": ["{12, 3}", "2001-01-02T00:00:00Z"]})

    def test_an_object_that_holds_itself_ends(self):
        data = archive([{"$class": UID(2), "NS.objects": [UID(1)]}, class_record("NSArray")])
        self.assertEqual(plist_reader.read(data), [{"$again": 1}])

    def test_refuses_a_class_record_without_its_chain(self):
        data = archive([{"$class": UID(2)}, {"$classname": "Box", "$classes": ["Other"]}])
        with self.assertRaises(ValueError):
            plist_reader.read(data)


if __name__ == "__main__":
    unittest.main()
