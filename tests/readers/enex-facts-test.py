#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""enex-facts-test.py SAMPLE: the independent ENEX reader against small texts and the sample notebook."""

import importlib.util
import os
import sys
import unittest

spec = importlib.util.spec_from_file_location(
    "enex_facts", os.path.join(os.path.dirname(os.path.abspath(__file__)), "enex-facts.py"))
enex_facts = importlib.util.module_from_spec(spec)
spec.loader.exec_module(enex_facts)

SAMPLE = sys.argv.pop()


class EnexFacts(unittest.TestCase):
    def body(self, markup, hashes=()):
        well_formed, body = enex_facts.read_body(markup, set(hashes))
        return well_formed, body.text()

    def test_knows_named_entities_with_and_without_a_doctype(self):
        for doctype in ("", '<!DOCTYPE en-note SYSTEM "http://xml.evernote.com/pub/enml2.dtd">'):
            self.assertEqual(self.body(doctype + "<en-note>a&nbsp;&eacute; &lt;b&gt;</en-note>"),
                             (True, "a é <b>"))

    def test_blocks_part_words_and_inline_elements_do_not(self):
        self.assertEqual(self.body("<en-note><div>on<b>e</b></div><div>two<br/>three</div></en-note>"),
                         (True, "one two three"))

    def test_marks_boxes_attachments_and_locked_passages(self):
        markup = ('<en-note><en-todo checked="true"/>a<en-todo/>b<en-media hash="1" type="x/y"/>'
                  '<en-media hash="2" type="x/y"/><en-crypt>zz</en-crypt></en-note>')
        self.assertEqual(self.body(markup, ["1"]),
                         (True, "\u2611\ufe0e a\u2610 b\ufffc[Missing Attachment]********"))

    def test_leaves_out_what_is_hidden(self):
        self.assertEqual(self.body('<en-note><div style="display: none;">x<p>y</p></div>z</en-note>'),
                         (True, "z"))

    def test_reads_a_broken_body_and_says_so(self):
        self.assertEqual(self.body("<en-note><div>a<br>b</en-note>"), (False, "a b"))

    def test_the_sample_notebook_holds_what_it_promises(self):
        facts = enex_facts.read(SAMPLE)
        self.assertTrue(facts["wellFormed"])
        notes = {note["title"]: note for note in facts["notes"]}
        self.assertEqual(len(facts["notes"]), 15)
        self.assertEqual([n["title"] for n in facts["notes"]].count("Shopping"), 2)
        self.assertTrue(all(note["bodyWellFormed"] for note in facts["notes"]))
        self.assertEqual(notes["Bicycle papers"]["text"], "\ufffc")
        self.assertEqual(len(notes["Papers of the flat"]["media"]), 5)
        self.assertEqual(len(notes["Papers of the flat"]["resources"]), 4)
        self.assertEqual(notes["Packing list"]["text"].count("\u2611"), 3)
        self.assertEqual(notes["Why rivers wind"]["source"], "web.clip")
        for note in facts["notes"]:
            self.assertEqual([digest for digest in note["media"] if digest], note["media"])


if __name__ == "__main__":
    unittest.main()
