#!/usr/bin/env python3
"""Holds the mapping document against the model it speaks of and the documents that the bridge writes.

It tells of a class or property that model documents or the host's headers do not have, of one that the mapping forgets,
of values and options that there are not, of everything in a document that is not mapped, and of everything mapped that
is in none of the documents. The documents are those that the cases expect. Links in the page made of the mapping lead
somewhere.

usage: check_mapping.py [ROOT]        exit code 1, with a line for each fault, when there is one
"""

import json
import re
import sys
from dataclasses import dataclass, field
from pathlib import Path
from xml.parsers import expat

PROJECT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(PROJECT / "docs"))

import mapping  # noqa: E402
import mapping_document  # noqa: E402

NO_CLASSES = re.compile(r"any of |modelDocument$")


# --- the model ---------------------------------------------------------------------------------------------------


def check_schema(mapped, schema):
    """The classes and properties are those of model documents, all of them."""
    kinds = {name: kind["properties"] for name, kind in schema["$defs"].items() if not NO_CLASSES.match(name)}
    concrete = [name for name, cls in mapped.classes.items() if not cls.abstract]
    for name in kinds.keys() - set(concrete):
        yield f"the class {name} of model documents is missing"
    for name in concrete:
        if name not in kinds:
            yield f"model documents have no class {name}"
            continue
        there, here = kinds[name].keys() - {"id", "kind"}, mapped.all_properties(name).keys()
        yield from (f"the property {name}.{prop} of model documents is missing" for prop in sorted(there - here))
        yield from (f"model documents have no property {name}.{prop}" for prop in sorted(here - there))


def check_words(mapped, schema):
    """A list of values says what becomes of every value that the property may have."""
    for element in mapped.elements:
        for attribute in element.attributes:
            rows = mapped.words.get(attribute.words, [])
            listed = [value for values, _, _ in rows for value in values]
            if listed and attribute.sources:
                possible = possible_values(element, attribute.sources[0], schema)
                if sorted(listed) != sorted(possible):
                    yield (f"{element}: \"{attribute.words}\" lists {', '.join(sorted(listed))}, where "
                           f"{attribute.sources[0]} may be {', '.join(sorted(possible))}")


def possible_values(element, path, schema):
    first, _, last = path.rpartition(".")
    kind = schema["$defs"][first or element.classes[0]]["properties"][last]
    return ["true", "false"] if kind.get("type") == "boolean" else kind.get("enum", [])


def read_headers(texts):
    """Of each class in the headers: its base, and the names that stand in it before a parenthesis."""
    classes = {}
    for text in texts:
        parts = re.split(r"^class (\w+)(?: : public (\w+))? \{$", text, flags=re.MULTILINE)
        for name, base, body in zip(parts[1::3], parts[2::3], parts[3::3]):
            classes[name] = (base, set(re.findall(r"\b(\w+)\(", body.split("\n};")[0])))
    return classes


def check_headers(mapped, headers):
    for cls in mapped.classes.values():
        names, at = set(), cls.host
        if at not in headers:
            yield f"the host has no class {at}"
            continue
        while at in headers:
            names |= headers[at][1]
            at = headers[at][0]
        for prop, accessors in mapped.all_properties(cls.name).items():
            yield from (f"{cls.host} has no operation {accessor}, which is to read {cls.name}.{prop}"
                        for accessor in accessors if accessor not in names)


def check_unwritten(mapped):
    """Every property is written or asked for somewhere, or said to be not."""
    for name, cls in mapped.classes.items():
        if cls.abstract:
            continue
        for prop in mapped.all_properties(name):
            used, reason = mapped.is_used(name, prop), mapped.reason_unwritten(name, prop)
            if not used and not reason:
                yield f"nothing is made of {name}.{prop}, and the mapping does not say why"
            if used and reason:
                yield f"{name}.{prop} is called unwritten, and something is made of it"


def check_options(mapped, messages):
    for option in sorted(mapped.options):
        if f"\"{option}\"" not in messages:
            yield f"the bridge has no option \"{option}\""


# --- documents ---------------------------------------------------------------------------------------------------


@dataclass
class Node:
    tag: str
    attributes: dict  # in the order of the document
    line: int
    children: list = field(default_factory=list)

    def is_reference(self):
        return "oim:href" in self.attributes


def read_document(content):
    """The root of a document, with names as they are written."""
    parser = expat.ParserCreate()
    root = Node("", {}, 0)
    open_nodes = [root]

    def start(tag, attributes):
        node = Node(tag, attributes, parser.CurrentLineNumber)
        open_nodes[-1].children.append(node)
        open_nodes.append(node)

    parser.StartElementHandler = start
    parser.EndElementHandler = lambda tag: open_nodes.pop()
    parser.Parse(content, True)
    return root.children[0]


class Walk:
    """Goes through documents beside the mapping, and notes what of it was met."""

    def __init__(self, mapped):
        self.mapped = mapped
        self.met = set()
        self.faults = []

    def document(self, name, root):
        self.name = name
        self.walk(root, [self.mapped.find("oim:Transfer", "")])

    def walk(self, node, candidates):
        """The node is one of the candidates: of those that fit, everything that it has was met."""
        fitting = []
        misfits = []
        for element in candidates:
            faults = list(self.misfits(node, element))
            misfits += faults
            if not faults:
                fitting.append(element)
        if not fitting:
            self.faults += [f"{self.name}:{node.line}: {fault}" for fault in misfits]
            return
        for element in fitting:
            self.note(node, element)
        for child in node.children:
            self.content(child, [association for element in fitting for association in element.associations
                                 if association.name == child.tag])
        direct = [member for element in fitting for member in element.members]
        for child in node.children:
            if any(child.tag in member.tags for member in direct):
                self.walk(child, self.elements_of(direct, child.tag))

    def content(self, node, associations):
        for child in node.children:
            members = [member for association in associations for member in association.members]
            if not child.is_reference():
                self.walk(child, self.elements_of(members, child.tag))

    def elements_of(self, members, tag):
        found = [(member.tags[0], member.label) for member in members if not member.is_reference and tag in member.tags]
        return [self.mapped.find(*key) for key in dict.fromkeys(found)]

    def misfits(self, node, element):
        """What speaks against the node being this element, without what its content holds."""
        if node.tag != element.tag:
            yield f"{node.tag} is no {element}"
            return
        yield from self.attribute_faults(node, element, element.attributes)
        order = [association.name for association in element.associations]
        direct = [tag for member in element.members for tag in member.tags]
        at = 0
        for child in node.children:
            if child.tag in direct:
                continue
            if child.tag not in order:
                yield f"{element} has no {child.tag}"
                continue
            if order.index(child.tag) < at:
                yield f"{child.tag} of {element} stands behind {order[at]}"
            at = order.index(child.tag)
            association = element.associations[at]
            yield from self.attribute_faults(child, f"{association.name} of {element}", association.attributes)
            yield from self.member_faults(child, element, association)
        there = {child.tag for child in node.children}
        yield from (f"{element} without {association.name}" for association in element.associations
                    if association.always and association.name not in there)

    def attribute_faults(self, node, where, attributes):
        by_name = {attribute.name: attribute for attribute in attributes}
        known = [name for name in node.attributes if name in by_name]
        yield from (f"{where} has no attribute {name}" for name in node.attributes if name not in by_name)
        if known != [name for name in by_name if name in node.attributes]:
            yield f"the attributes of {where} stand in the order {', '.join(known)}"
        yield from (f"{where} without {attribute.name}" for attribute in attributes
                    if attribute.always and attribute.name not in node.attributes)
        for name in known:
            if not self.permits(by_name[name], node.attributes[name]):
                yield f"{where}: the value \"{node.attributes[name]}\" of {name} is not mapped"

    def permits(self, attribute, value):
        if attribute.value:
            return value == attribute.value
        if attribute.is_number:
            return re.fullmatch(r"-?[0-9]+", value) is not None
        return not attribute.words or value in (word for _, _, word in self.mapped.words[attribute.words])

    def member_faults(self, node, element, association):
        for child in node.children:
            if not any(child.tag in member.tags and child.is_reference() == member.is_reference
                       for member in association.members):
                what = "refer to" if child.is_reference() else "hold"
                yield f"{association.name} of {element} does not {what} {child.tag}"

    def note(self, node, element):
        for name, value in node.attributes.items():
            self.met.add((str(element), name))
            attribute = next(attribute for attribute in element.attributes if attribute.name == name)
            if attribute.words:
                self.met.add((attribute.words, value))
        for child in node.children:
            self.met.add((str(element), child.tag))
            self.met |= {(str(element), child.tag, part.tag, part.is_reference()) for part in child.children}

    def check_met(self):
        """What is mapped and was in no document."""
        for element in self.mapped.elements:
            here = str(element)
            for attribute in element.attributes:
                if (here, attribute.name) not in self.met:
                    yield f"no document has {here} with {attribute.name}"
            for association in element.associations:
                for tag, is_reference in ((tag, member.is_reference) for member in association.members
                                          for tag in member.tags):
                    if (here, association.name, tag, is_reference) not in self.met:
                        what = "referring to" if is_reference else "with"
                        yield f"no document has {association.name} of {here} {what} {tag}"
        for name, rows in self.mapped.words.items():
            for _, _, word in rows:
                if word and (name, word) not in self.met:
                    yield f"no document has the value \"{word}\" of \"{name}\""


def check_documents(mapped, documents):
    """Documents are pairs of a name and the content."""
    walk = Walk(mapped)
    for name, content in documents:
        walk.document(name, read_document(content))
    yield from walk.faults
    yield from walk.check_met()


# --- the page ----------------------------------------------------------------------------------------------------


def check_page(page):
    anchors = [mapping.anchor(heading) for heading in re.findall(r"^#+ (.*)$", page, re.MULTILINE)]
    for name in sorted({name for name in anchors if anchors.count(name) > 1}):
        yield f"the page has several headings that links call #{name}"
    for name in sorted(set(re.findall(r"\]\(#([^)]*)\)", page)) - set(anchors)):
        yield f"the page links to #{name}, which is no heading"


def main(arguments):
    root = Path(arguments[0]) if arguments else PROJECT
    mapped = mapping_document.load(root)
    schema = json.loads((root / "docs/model-document.schema.json").read_text(encoding="utf-8"))
    headers = read_headers(path.read_text(encoding="utf-8") for path in sorted(root.glob("model/*.h")))
    messages = "".join(path.read_text(encoding="utf-8") for path in sorted(root.glob("messages/*.cpp")))
    cases = sorted(root.glob("tests/cases/*/*/expected.xml"))
    if not cases:
        print("there are no cases")
        return 1
    faults = [*check_schema(mapped, schema), *check_words(mapped, schema), *check_headers(mapped, headers),
              *check_unwritten(mapped), *check_options(mapped, messages),
              *check_documents(mapped, ((path.relative_to(root), path.read_bytes()) for path in cases)),
              *check_page(mapping.Page(mapped).make())]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
