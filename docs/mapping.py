#!/usr/bin/env python3
"""Makes docs/mapping.md of the mapping document of the bridge.

usage: mapping.py             writes docs/mapping.md
       mapping.py --check     exit code 1 when docs/mapping.md is not what would be written
"""

import re
import sys

from mapping_document import ROOT, SOURCE, Association, Attribute, MappingError, Member, Use, load

PAGE = "docs/mapping.md"

INTRODUCTION = f"""Which part of a source model becomes which element of the document, in each view. The tables are made
from [the mapping document](../{SOURCE}) that is installed beside the bridge,
and the tests hold that against what the bridge writes.

Classes and properties of the model are named as in [model documents](model-document.md); `type.name` is the property
`name` of the class `type`. *Options* are those of the bridge. An attribute or association without a condition is
written when there is a value or content for it, or **always** where the table says so. Attributes and associations are
written in the order of the tables."""

PROPERTIES = """For each class of the model, with the operation that reads the property in the host's library: which
elements a property has a say in, by its value or by whether they are written."""


def anchor(heading):
    """The name that a heading has in links."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def code(text):
    return f"`{text}`"


def cell(text):
    return text.replace("|", "\\|")


def sentence(text):
    return text[:1].upper() + text[1:] + ("" if text.endswith((".", ":")) else ".")


def remark(*parts):
    texts = [part for part in parts if part]
    return "; ".join([text.removesuffix(".") for text in texts[:-1]] + texts[-1:])


def condition(part):
    return f"when {part.when}" if part.when else ""


def heading_of(element):
    return f"{element.tag}: {element.label}" if element.label else element.tag


class Page:
    def __init__(self, mapping):
        self.mapping = mapping
        self.lines = []

    def make(self):
        self.head()
        for view, about in self.mapping.abouts.items():
            self.view(view, about)
        self.shared_parts()
        self.values()
        self.properties()
        return "\n".join(self.lines).rstrip() + "\n"

    def add(self, *lines):
        self.lines += [*lines, ""]

    def table(self, header, rows):
        if rows:
            self.add("| " + " | ".join(header) + " |", "|" + "---|" * len(header),
                     *("| " + " | ".join(cell(text) for text in row) + " |" for row in rows))

    def head(self):
        self.add("<!-- Made by docs/mapping.py from " + SOURCE + ": change that, and run it. -->")
        self.add("# What becomes of a model")
        self.add(INTRODUCTION)
        rows = [[f"[{self.view_title(view)}](#{anchor(self.view_title(view))})", self.index(view)]
                for view in self.mapping.views()]
        rows += [["[Shared parts](#shared-parts)", "what several elements have in common"],
                 ["[Values](#values)", "the words and numbers that attributes have"],
                 ["[Properties of the model](#properties-of-the-model)",
                  "the way back: where each property goes, and which go nowhere"]]
        self.table(["", ""], rows)

    def view_title(self, view):
        return f"{view} view" if view != "Document" else "Document"

    def index(self, view):
        tags = dict.fromkeys(element.tag for element in self.mapping.elements if element.view == view)
        return ", ".join(self.link(tag) for tag in tags)

    def link(self, tag, label=None):
        element = next(element for element in self.mapping.elements
                       if element.tag == tag and label in (None, element.label))
        return f"[`{tag}`](#{anchor(heading_of(element))})"

    def view(self, view, about):
        self.add(f"## {self.view_title(view)}")
        self.add(about)
        for element in self.mapping.elements:
            if element.view == view:
                self.element(element)

    def element(self, element):
        self.add(f"### {heading_of(element)}")
        if element.classes:
            self.add("From: " + ", ".join(map(code, element.classes)) + ".")
        if element.when:
            self.add("Written when " + element.when + ".")
        if element.about:
            self.add(sentence(element.about))
        self.items(element.items)

    def items(self, items):
        """The tables of an element or a group."""
        attributes, contents = [], []
        for item in items:
            if isinstance(item, Attribute):
                attributes.append(self.attribute_row(item))
            elif isinstance(item, Use):
                self.use_rows(item.group, attributes, contents)
            elif isinstance(item, Association):
                contents += self.association_rows(item)
            else:
                contents.append(["", *self.member_cells(item)])
        self.table(["attribute", "from", "remarks"], attributes)
        self.table(["association", "content", "from", "remarks"], contents)

    def use_rows(self, group, attributes, contents):
        """A row for a shared part, in the tables that it has something for."""
        items = list(self.mapping.expanded(self.mapping.groups[group]))
        names = [item.name for item in items if isinstance(item, Attribute)]
        link = f"[{group}](#{anchor(group)})"
        if names:
            attributes.append([", ".join(map(code, names)), "", link])
        if associations := [item.name for item in items if isinstance(item, Association)]:
            contents.append([", ".join(map(code, associations)), "", "", link])

    def attribute_row(self, attribute):
        source = ", ".join(map(code, attribute.sources))
        if attribute.value:
            source = remark(source, f"always \"{attribute.value}\"" if attribute.always else f"\"{attribute.value}\"")
        words = f"[{attribute.words}](#{anchor(attribute.words)})" if attribute.words else ""
        always = "**always**" if attribute.always and not attribute.value else ""
        return [code(attribute.name), source, remark(words, attribute.about, condition(attribute), always)]

    def association_rows(self, association):
        name = code(association.name) + (" **always**" if association.always else "")
        uses = [item.group for item in association.items if isinstance(item, Use)]
        own = remark(association.about, condition(association),
                     *(f"with [{group}](#{anchor(group)})" for group in uses))
        members = [self.member_cells(item) for item in association.items if isinstance(item, Member)]
        rows = [["", "", own], *members] if own else members
        return [[name if at == 0 else "", *row] for at, row in enumerate(rows)]

    def member_cells(self, member):
        if member.is_reference:
            tags = "reference to " + ", ".join(self.link(tag) for tag in member.tags)
        else:
            tags = self.link(member.tags[0], member.label) + (f": {member.label}" if member.label else "")
        return [tags, ", ".join(map(code, member.sources)), remark(member.about, condition(member))]

    def shared_parts(self):
        self.add("## Shared parts")
        self.add("What several elements have in common. Properties are those of the element's own classes.")
        for name, items in self.mapping.groups.items():
            self.add(f"### {name}")
            self.items(items)

    def values(self):
        self.add("## Values")
        for name, words in self.mapping.words.items():
            self.add(f"### {name}")
            self.table(["in the model", "in the document"],
                       [[meaning or ", ".join(map(code, values)), code(word) if word else "left out"]
                        for values, meaning, word in words])

    def properties(self):
        self.add("## Properties of the model")
        self.add(PROPERTIES)
        for name, cls in self.mapping.classes.items():
            if cls.abstract and not cls.extends:
                continue  # what all objects have is listed with each class: it goes to many places
            self.add(f"### {name} ({cls.host})")
            base = self.mapping.classes.get(cls.extends)
            listed = self.mapping.all_properties(name)
            if cls.abstract:
                self.add("What these have in common: " + ", ".join(map(code, self.mapping.descendants(name))) + ".")
            elif base is not None and base.extends:
                listed = {prop: listed[prop] for prop in [*cls.unwritten, *cls.properties]}
                self.add(f"Besides what every [{base.name}](#{anchor(f'{base.name} ({base.host})')}) has:"
                         if listed else f"As every [{base.name}](#{anchor(f'{base.name} ({base.host})')}).")
            self.table(["property", "operation", "where"],
                       [[code(prop), ", ".join(map(code, accessors)), self.where(name, prop)]
                        for prop, accessors in listed.items()])

    def where(self, name, prop):
        names = self.mapping.descendants(name) if self.mapping.classes[name].abstract else [name]
        tags = dict.fromkeys(element.tag for element in self.mapping.elements
                             if any(self.mentions(element, cls, prop) for cls in names))
        return ", ".join(self.link(tag) for tag in tags) or f"nowhere: {self.mapping.reason_unwritten(name, prop)}"

    def mentions(self, element, name, prop):
        paths = {prop} if set(self.mapping.lineage(name)) & set(element.classes) else set()
        paths |= {f"{cls}.{prop}" for cls in self.mapping.lineage(name)}
        texts = [element.when, element.about]
        sources = []
        for attribute in element.attributes:
            texts += [attribute.when, attribute.about]
            sources += attribute.sources
        for association in element.associations:
            texts += [association.when, association.about]
            for member in association.members:
                texts += [member.when, member.about]
                sources += member.sources
        sources += [path for text in texts for path in re.findall(r"`([^`]+)`", text)]
        return bool(paths & set(sources))


def main(arguments, root=ROOT):
    if arguments not in ([], ["--check"]):
        print(__doc__.split("\n\n")[-1], file=sys.stderr)
        return 2
    try:
        page = Page(load(root)).make()
    except MappingError as error:
        print(f"{SOURCE}: {error}", file=sys.stderr)
        return 1
    path = root / PAGE
    if not arguments:
        path.write_text(page, encoding="utf-8")
    elif not path.is_file() or path.read_text(encoding="utf-8") != page:
        print(f"{PAGE} is not what {SOURCE} says; to make it anew: python3 docs/mapping.py", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
