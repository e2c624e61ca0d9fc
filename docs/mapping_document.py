"""The mapping document of the bridge: which part of a source model becomes which element.

The head of the document tells its vocabulary. Here it is read and checked against itself; what is made of it, and what
it is held against, stands elsewhere.
"""

import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCE = "bridge/ZORMicrosoftSqlServerMdsMdcDBMExport.xml"

# The vocabulary: for each element, the attributes that it must have, those that it may have, and its children.
VOCABULARY = {
    "mapping": ("bridge", "", "model words group view"),
    "model": ("", "", "class"),
    "class": ("name host", "extends abstract", "property unwritten"),
    "property": ("name accessor", "", ""),
    "unwritten": ("properties", "", "p o"),
    "words": ("name", "", "word none"),
    "word": ("", "for meaning", ""),
    "none": ("for", "", ""),
    "group": ("name", "", "use attribute association"),
    "view": ("name", "", "about element"),
    "element": ("name", "as class", "when about use attribute association holds"),
    "use": ("group", "", ""),
    "attribute": ("name", "from value words type always", "when about"),
    "association": ("name", "always", "when about use holds refers"),
    "holds": ("element", "as from", "when about"),
    "refers": ("element", "from", "when about"),
    "when": ("", "", "p o"),
    "about": ("", "", "p o"),
    "p": ("", "", ""),
    "o": ("", "", ""),
}


class MappingError(Exception):
    """What is wrong with the mapping document."""


@dataclass
class ModelClass:
    name: str
    host: str
    extends: str
    abstract: bool
    properties: dict = field(default_factory=dict)  # name -> operations of the host's class
    unwritten: dict = field(default_factory=dict)  # name -> reason


@dataclass
class Attribute:
    name: str
    sources: list
    value: str
    words: str
    is_number: bool
    always: bool
    when: str
    about: str


@dataclass
class Member:
    """What stands in an association, or in an element without one."""

    tags: list  # several only for references
    label: str  # the "as" of the element that is held
    is_reference: bool
    sources: list
    when: str
    about: str


@dataclass
class Association:
    name: str
    always: bool
    when: str
    about: str
    items: list  # Attribute, Member and Use, in the order of the document
    attributes: list = field(default_factory=list)
    members: list = field(default_factory=list)


@dataclass
class Use:
    group: str


@dataclass
class Element:
    tag: str
    label: str
    view: str
    classes: list
    when: str
    about: str
    items: list
    attributes: list = field(default_factory=list)  # those of groups among them
    associations: list = field(default_factory=list)
    members: list = field(default_factory=list)

    def __str__(self):
        return f"{self.tag} ({self.label})" if self.label else self.tag


def check_vocabulary(node):
    """Throws when an element, or something in it, is none of the vocabulary."""
    if node.tag not in VOCABULARY:
        raise MappingError(f"<{node.tag}> is no element of a mapping document")
    required, optional, children = (words.split() for words in VOCABULARY[node.tag])
    for name in required:
        if name not in node.attrib:
            raise MappingError(f"<{node.tag} {node.attrib}> has no {name}")
    for name in node.attrib:
        if name not in required + optional:
            raise MappingError(f"<{node.tag} {node.attrib}> may have no {name}")
    is_text = node.tag in ("when", "about", "unwritten", "word", "p", "o")
    if not is_text and ((node.text or "").strip() or any((child.tail or "").strip() for child in node)):
        raise MappingError(f"<{node.tag} {node.attrib}> may hold no text")
    for child in node:
        if child.tag not in children:
            raise MappingError(f"<{child.tag}> may not stand in <{node.tag}>")
        check_vocabulary(child)


def text_of(node):
    """A text with properties as `name` and options as *name*."""
    if node is None:
        return ""
    marks = {"p": "`", "o": "*"}
    parts = [node.text or ""]
    for child in node:
        mark = marks[child.tag]
        parts += [mark, child.text or "", mark, child.tail or ""]
    return " ".join("".join(parts).split())


def read_attribute(node):
    return Attribute(node.get("name"), node.get("from", "").split(), node.get("value", ""), node.get("words", ""),
                     node.get("type") == "number", node.get("always") == "yes", text_of(node.find("when")),
                     text_of(node.find("about")))


def read_member(node):
    return Member(node.get("element").split(), node.get("as", ""), node.tag == "refers", node.get("from", "").split(),
                  text_of(node.find("when")), text_of(node.find("about")))


def read_association(node):
    return Association(node.get("name"), node.get("always") == "yes", text_of(node.find("when")),
                       text_of(node.find("about")), read_items(node))


READERS = {"attribute": read_attribute, "holds": read_member, "refers": read_member, "association": read_association,
           "use": lambda node: Use(node.get("group"))}


def read_items(node):
    return [READERS[child.tag](child) for child in node if child.tag in READERS]


class Mapping:
    """The mapping document, with the content of groups in its elements."""

    def __init__(self, text):
        try:
            root = ElementTree.fromstring(text)
        except ElementTree.ParseError as error:
            raise MappingError(f"the mapping document is not well-formed: {error}") from None
        if root.tag != "mapping":
            raise MappingError(f"<{root.tag}> is no mapping document")
        check_vocabulary(root)
        self.bridge = root.get("bridge")
        self.classes = {}
        self.words = {}
        self.groups = {}
        self.abouts = {}
        self.elements = []
        self.used = set()  # (class, property): what gives a value or is asked for
        self.options = set()
        self.read_model(root.find("model"))
        for node in root.findall("words"):
            self.words[node.get("name")] = self.read_words(node)
        for node in root.findall("group"):
            self.groups[node.get("name")] = read_items(node)
        self.nodes = {node.get("name"): node for node in root.findall("group")}
        for view in root.findall("view"):
            self.abouts[view.get("name")] = text_of(view.find("about"))
            for node in view.findall("element"):
                self.read_element(node, view.get("name"))
        for node in root.iter("o"):
            self.options.add(node.text)
        self.check_references()

    def read_model(self, model):
        for node in model.findall("class"):
            cls = ModelClass(node.get("name"), node.get("host"), node.get("extends", ""), node.get("abstract") == "yes")
            if cls.extends and cls.extends not in self.classes:
                raise MappingError(f"the class {cls.name} extends {cls.extends}, which does not stand before it")
            for child in node.findall("property"):
                cls.properties[child.get("name")] = child.get("accessor").split()
            self.classes[cls.name] = cls
            for child in node.findall("unwritten"):
                for name in child.get("properties").split():
                    if name not in self.all_properties(cls.name):
                        raise MappingError(f"{cls.name}.{name} is called unwritten, and is no property")
                    cls.unwritten[name] = text_of(child)

    def read_words(self, node):
        """(the model's values, meaning, word); the word is empty where the attribute is left out."""
        return [(child.get("for", "").split(), child.get("meaning", ""), (child.text or "").strip()) for child in node]

    def read_element(self, node, view):
        element = Element(node.get("name"), node.get("as", ""), view, node.get("class", "").split(),
                          text_of(node.find("when")), text_of(node.find("about")), read_items(node))
        for item in self.expanded(element.items):
            if isinstance(item, Attribute):
                element.attributes.append(item)
            elif isinstance(item, Association):
                # A group's association is the element's own, as far as properties are concerned.
                own = Association(item.name, item.always, item.when, item.about, item.items)
                for part in self.expanded(own.items):
                    (own.attributes if isinstance(part, Attribute) else own.members).append(part)
                element.associations.append(own)
            else:
                element.members.append(item)
        self.elements.append(element)
        self.note_properties(element, node)

    def expanded(self, items):
        for item in items:
            if not isinstance(item, Use):
                yield item
            elif item.group not in self.groups:
                raise MappingError(f"there is no group \"{item.group}\"")
            else:
                yield from self.expanded(self.groups[item.group])

    def note_properties(self, element, node):
        for child in node.iter():
            for name in child.get("from", "").split() + ([child.text] if child.tag == "p" else []):
                self.note_property(element, name)
            if child.tag == "use":
                self.note_properties(element, self.nodes[child.get("group")])

    def note_property(self, element, path):
        """Notes that a property is used; throws when none of the classes meant has it."""
        first, _, last = path.rpartition(".")
        classes = [first] if first else element.classes
        found = [name for name in classes if last in self.all_properties(name)]
        if not found:
            raise MappingError(f"{element}: there is no property {path}")
        self.used.update((name, last) for name in found)

    def all_properties(self, name):
        """The properties of a class and of those that it extends, with the operations that read them."""
        if name not in self.classes:
            raise MappingError(f"there is no class \"{name}\"")
        cls = self.classes[name]
        return {**(self.all_properties(cls.extends) if cls.extends else {}), **cls.properties}

    def lineage(self, name):
        while name:
            yield name
            name = self.classes[name].extends

    def descendants(self, name):
        """The classes that extend this one, without those that stand for several."""
        return [cls.name for cls in self.classes.values() if not cls.abstract and name in self.lineage(cls.name)]

    def is_used(self, name, prop):
        return any((cls, prop) in self.used for cls in self.lineage(name))

    def reason_unwritten(self, name, prop):
        return next((self.classes[cls].unwritten[prop] for cls in self.lineage(name)
                     if prop in self.classes[cls].unwritten), "")

    def check_references(self):
        names = {(element.tag, element.label) for element in self.elements}
        if len(names) < len(self.elements):
            raise MappingError("two elements have one name; \"as\" tells them apart")
        tags = {tag for tag, _ in names}
        for element in self.elements:
            attributes = list(element.attributes)
            members = list(element.members)
            for association in element.associations:
                attributes += association.attributes
                members += association.members
            for attribute in attributes:
                if attribute.words and attribute.words not in self.words:
                    raise MappingError(f"{element}: there are no words \"{attribute.words}\"")
            for member in members:
                for tag in member.tags:
                    known = tag in tags if member.is_reference else (tag, member.label) in names
                    if not known:
                        raise MappingError(f"{element}: there is no element {tag} {member.label}".rstrip())

    def find(self, tag, label):
        return next(element for element in self.elements if (element.tag, element.label) == (tag, label))

    def views(self):
        return list(self.abouts)


def load(root=ROOT):
    return Mapping((root / SOURCE).read_text(encoding="utf-8"))
