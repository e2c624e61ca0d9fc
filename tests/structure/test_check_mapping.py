#!/usr/bin/env python3
"""Proves that check_mapping.py and docs/mapping.py see what they are there to see."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path

import check_mapping  # finds the others, too
import mapping
from mapping_document import Mapping, MappingError

MODEL = """<model>
  <class name="object" host="Object" abstract="yes"><property name="name" accessor="getName"/></class>
  <class name="thing" host="Thing" extends="object"><property name="kind" accessor="getKind"/></class>
</model>
<words name="kinds"><word for="big">1</word><word for="small">2</word></words>
"""

MAPPING = MODEL + """
<group name="named"><attribute name="oim:id" always="yes"/><attribute name="name" from="name"/></group>
<view name="Document">
  <element name="oim:Transfer">
    <attribute name="version" value="1" always="yes"/>
    <holds element="x:Thing" as="big"/>
    <holds element="x:Thing" as="other"/>
  </element>
  <element name="x:Thing" as="big" class="thing">
    <when><p>kind</p> is "big"</when>
    <use group="named"/>
    <attribute name="Kind" from="kind" words="kinds" always="yes"/>
    <association name="x:Parts"><holds element="x:Part"/></association>
    <association name="x:Next"><refers element="x:Thing"/></association>
  </element>
  <element name="x:Thing" as="other" class="thing"><use group="named"/></element>
  <element name="x:Part"><attribute name="Size" type="number"/></element>
</view>
"""

DOCUMENT = """<oim:Transfer version="1">
  <x:Thing oim:id="_1" name="a" Kind="1">
    <x:Parts><x:Part Size="-3"/></x:Parts>
    <x:Next><x:Thing oim:href="#_2"/></x:Next>
  </x:Thing>
  <x:Thing oim:id="_2" name="b" Kind="2"/>
  <x:Thing oim:id="_3" name="c"/>
</oim:Transfer>"""

SCHEMA = {"$defs": {"modelDocument": {"properties": {"format": {}}},
                    "any of the things": {"properties": {"kind": {}}},
                    "thing": {"properties": {"id": {}, "name": {}, "sort": {"enum": ["big", "small"]}}}}}

# In model documents, "kind" is no property of an object.
SORTED = MAPPING.replace('name="kind"', 'name="sort"').replace('from="kind"', 'from="sort"').replace(">kind<", ">sort<")

HEADER = """class Object {
  public:
    const Text& getName() const;
};

class Thing : public Object {
  public:
    int getKind() const;
};
"""


def read(text):
    return Mapping(f'<mapping bridge="X">{text}</mapping>')


class CheckDocuments(unittest.TestCase):
    def faults(self, document=DOCUMENT, mapped=MAPPING):
        return list(check_mapping.check_documents(read(mapped), [("a.xml", document)]))

    def changed(self, old, new):
        self.assertIn(old, DOCUMENT)
        return self.faults(DOCUMENT.replace(old, new))

    def test_a_document_that_has_everything_is_right(self):
        self.assertEqual(self.faults(), [])

    def test_an_element_that_is_not_mapped(self):
        self.assertIn("a.xml:2: x:Parts of x:Thing (big) does not hold x:Bolt",
                      self.changed("<x:Parts>", "<x:Parts><x:Bolt/>"))

    def test_an_association_that_is_not_mapped(self):
        self.assertIn("a.xml:2: x:Thing (big) has no x:Screws", self.changed("<x:Next>", "<x:Screws/><x:Next>"))

    def test_an_attribute_that_is_not_mapped(self):
        self.assertIn("a.xml:3: x:Part has no attribute Colour", self.changed('Size="-3"', 'Size="-3" Colour="red"'))

    def test_a_reference_in_place_of_an_element(self):
        self.assertIn("a.xml:2: x:Parts of x:Thing (big) does not refer to x:Part",
                      self.changed('<x:Part Size="-3"/>', '<x:Part oim:href="#_3"/>'))

    def test_an_attribute_that_is_always_there_and_is_not(self):
        self.assertIn("a.xml:1: oim:Transfer without version", self.changed(' version="1"', ""))

    def test_an_association_that_is_always_there_and_is_not(self):
        always = MAPPING.replace('name="x:Next"', 'name="x:Next" always="yes"')
        self.assertIn("a.xml:6: x:Thing (big) without x:Next", self.faults(mapped=always))

    def test_values_that_are_not_mapped(self):
        for name, old, value in ("version", "1", "2"), ("Kind", "2", "3"), ("Size", "-3", "3.5"):
            with self.subTest(name):
                faults = self.changed(f'{name}="{old}"', f'{name}="{value}"')
                self.assertIn(f"the value \"{value}\" of {name} is not mapped", " ".join(faults))

    def test_attributes_in_another_order(self):
        self.assertIn("a.xml:2: the attributes of x:Thing (big) stand in the order name, oim:id, Kind",
                      self.changed('oim:id="_1" name="a"', 'name="a" oim:id="_1"'))

    def test_associations_in_another_order(self):
        moved = DOCUMENT.replace("<x:Parts>", "<x:Next><x:Thing oim:href=\"#_3\"/></x:Next><x:Parts>")
        self.assertIn("a.xml:2: x:Parts of x:Thing (big) stands behind x:Next", self.faults(moved))

    def test_what_no_document_has(self):
        self.assertEqual(self.changed('<x:Thing oim:id="_3" name="c"/>', ""),
                         ["no document has x:Thing (other) with oim:id", "no document has x:Thing (other) with name"])
        self.assertEqual(self.changed(' Size="-3"', ""), ["no document has x:Part with Size"])
        self.assertEqual(self.changed('Kind="2"', 'Kind="1"'), ["no document has the value \"2\" of \"kinds\""])
        self.assertEqual(self.changed('<x:Next><x:Thing oim:href="#_2"/></x:Next>', ""),
                         ["no document has x:Next of x:Thing (big) referring to x:Thing"])


class CheckModel(unittest.TestCase):
    def test_a_model_that_is_in_model_documents_is_right(self):
        self.assertEqual(list(check_mapping.check_schema(read(SORTED), SCHEMA)), [])

    def test_classes_and_properties_that_are_missing(self):
        schema = {"$defs": {**SCHEMA["$defs"], "other": {"properties": {}}}}
        schema["$defs"]["thing"] = {"properties": {"sort": {}, "colour": {}}}
        self.assertEqual(list(check_mapping.check_schema(read(SORTED), schema)),
                         ["the class other of model documents is missing",
                          "the property thing.colour of model documents is missing",
                          "model documents have no property thing.name"])

    def test_a_class_that_model_documents_do_not_have(self):
        self.assertEqual(list(check_mapping.check_schema(read(SORTED), {"$defs": {}})),
                         ["model documents have no class thing"])

    def test_values_that_a_property_may_have_and_are_not_listed(self):
        self.assertEqual(list(check_mapping.check_words(read(SORTED), SCHEMA)), [])
        fewer = SORTED.replace('<word for="small">2</word>', "")
        self.assertEqual(list(check_mapping.check_words(read(fewer), SCHEMA)),
                         ["x:Thing (big): \"kinds\" lists big, where sort may be big, small"])

    def test_operations_that_headers_do_not_have(self):
        headers = check_mapping.read_headers([HEADER])
        self.assertEqual(list(check_mapping.check_headers(read(MAPPING), headers)), [])
        other = MAPPING.replace("getKind", "getSort")
        self.assertEqual(list(check_mapping.check_headers(read(other), headers)),
                         ["Thing has no operation getSort, which is to read thing.kind"])
        self.assertEqual(list(check_mapping.check_headers(read(MAPPING), {})), ["the host has no class Object",
                                                                               "the host has no class Thing"])

    def test_properties_that_nothing_is_made_of(self):
        self.assertEqual(list(check_mapping.check_unwritten(read(MAPPING))), [])
        without = MAPPING.replace(' from="name"', "")
        self.assertEqual(list(check_mapping.check_unwritten(read(without))),
                         ["nothing is made of thing.name, and the mapping does not say why"])
        named = 'accessor="getName"/>'
        explained = named + '<unwritten properties="name">nobody asks</unwritten>'
        self.assertEqual(list(check_mapping.check_unwritten(read(without.replace(named, explained)))), [])
        self.assertEqual(list(check_mapping.check_unwritten(read(MAPPING.replace(named, explained)))),
                         ["thing.name is called unwritten, and something is made of it"])

    def test_options_that_there_are_not(self):
        text = MAPPING.replace("is \"big\"", "and <o>Model</o>")
        self.assertEqual(list(check_mapping.check_options(read(text), 'LITERAL(X, "Model")')), [])
        self.assertEqual(list(check_mapping.check_options(read(text), "")), ["the bridge has no option \"Model\""])


class ReadMapping(unittest.TestCase):
    def refused(self, old, new):
        self.assertIn(old, MAPPING)
        with self.assertRaises(MappingError) as caught:
            read(MAPPING.replace(old, new))
        return str(caught.exception)

    def test_what_is_refused(self):
        rows = [
            ("</view>", "", "the mapping document is not well-formed"),
            ("<use group", "<uses group", "<uses> may not stand in <element>"),
            ('<refers element="x:Thing"/>', "<refers/>", "has no element"),
            (' always="yes"', ' ever="yes"', "may have no ever"),
            ("<use", "text<use", "may hold no text"),
            ('<use group="named"', '<use group="unnamed"', "there is no group \"unnamed\""),
            ('words="kinds"', 'words="sorts"', "there are no words \"sorts\""),
            ('<refers element="x:Thing"', '<refers element="x:Think"', "there is no element x:Think"),
            ('as="other"/>', 'as="others"/>', "there is no element x:Thing others"),
            ('from="kind"', 'from="sort"', "there is no property sort"),
            ("<p>kind</p>", "<p>thing.sort</p>", "there is no property thing.sort"),
            ("<p>kind</p>", "<p>thin.kind</p>", "there is no class \"thin\""),
            ('name="x:Part">', 'name="x:Thing" as="big">', "two elements have one name"),
            ('extends="object"', 'extends="subject"', "which does not stand before it"),
        ]
        for old, new, message in rows:
            with self.subTest(new):
                self.assertIn(message, self.refused(old, new))

    def test_another_kind_of_document(self):
        with self.assertRaisesRegex(MappingError, "<model> is no mapping document"):
            Mapping("<model/>")


class Page(unittest.TestCase):
    def test_the_page_of_a_mapping_is_right(self):
        page = mapping.Page(read(MAPPING)).make()
        self.assertEqual(list(check_mapping.check_page(page)), [])
        self.assertIn("Written when `kind` is \"big\".", page)
        self.assertIn("| `Kind` | `kind` | [kinds](#kinds); **always** |", page)
        self.assertIn("| `kind` | `getKind` | [`x:Thing`](#xthing-big) |", page)

    def test_links_that_lead_nowhere_and_headings_of_one_name(self):
        self.assertEqual(list(check_mapping.check_page("# A b\n[x](#a-b) [y](#a-c)\n")),
                         ["the page links to #a-c, which is no heading"])
        self.assertEqual(list(check_mapping.check_page("# A b\n## a B\n")),
                         ["the page has several headings that links call #a-b"])

    def test_a_page_that_is_out_of_date(self):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for name in ("bridge", "docs"):
                (root / name).mkdir()
            (root / mapping.SOURCE).write_text(f'<mapping bridge="X">{MAPPING}</mapping>', encoding="utf-8")
            said = io.StringIO()
            with contextlib.redirect_stderr(said):
                results = [mapping.main(arguments, root) for arguments in (["--check"], [], ["--check"])]
                (root / mapping.PAGE).write_text("older", encoding="utf-8")
                results.append(mapping.main(["--check"], root))
                results.append(mapping.main(["--chek"], root))
            self.assertEqual(results, [1, 0, 0, 1, 2])
            self.assertIn("to make it anew: python3 docs/mapping.py", said.getvalue())


if __name__ == "__main__":
    unittest.main()
