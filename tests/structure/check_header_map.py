#!/usr/bin/env python3
"""Holds the map in the bridge's header against the source files.

The header opens with a table of groups: number, subject, source file. This script tells where table, groups and
files disagree: a group that is not in the table or under another name, a member that its file does not define or
that another file defines, members in another order than in the header, filters, mappings and printers out of order
in a group, and state outside the final block or without a word on who writes it.

usage: check_header_map.py [ROOT]        exit code 1, with a line for each disagreement, when there is one
"""

import re
import sys
from dataclasses import dataclass, field
from pathlib import Path

HEADER = "bridge/MicrosoftSqlServerMdsMdcExport.h"
CLASS = "ZORMicrosoftSqlServerMdsMdcExportBridge"
FOLDERS = ("bridge", "messages", "writer", "types", "dbm", "erd", "uml")

# In this order inside a group; members of other names may stand anywhere.
KINDS = (("filter", re.compile(r"is[A-Z]|are[A-Z]")), ("mapping", re.compile(r"get[A-Z]")),
         ("printer", re.compile(r"print[A-Z]|link[A-Z]")))

TABLE_ROW = re.compile(r"///\s*\|\s*(\d+)\s*\|\s*(.+?)\s*\|\s*(\S+)\s*\|\s*$")
GROUP_NAME = re.compile(r"///\s*@name\s+(\d+)\.\s+(.+?)\s+\(([^()]+)\)\s*$")
ACCESS = re.compile(r"\s*(?:public|protected|private)\s*:")
TYPE_WORDS = {"bool", "char", "int", "long", "short", "unsigned", "signed", "float", "double", "void", "auto"}
QUALIFIERS = {"const", "volatile", "struct", "class", "enum"}


@dataclass
class Member:
    name: str
    signature: str
    line: int
    has_body: bool = False

    def __str__(self):
        return f"{self.name}({self.signature})"

    def key(self):
        return (self.name, self.signature)


@dataclass
class Group:
    number: int
    subject: str
    file: str
    line: int
    members: list = field(default_factory=list)


def blank_out(text):
    """The text with comments, the contents of literals and preprocessor lines as blanks, line for line."""
    pattern = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])*'|^[ \t]*#(?:\\\n|[^\n])*",
                         re.DOTALL | re.MULTILINE)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def matching(text, at, opening, closing):
    """The index behind the bracket that closes the one at `at`."""
    depth = 0
    for index in range(at, len(text)):
        depth += (text[index] == opening) - (text[index] == closing)
        if depth == 0:
            return index + 1
    raise ValueError(f"a {opening!r} is not closed")


@dataclass
class Statement:
    text: str  # without the bodies of functions and the values of initializers
    start: int
    end: int
    has_body: bool


def statements(code, start, end):
    """The declarations and definitions between two indexes."""
    begin = at = start
    kept = ""
    while at < end:
        if code[at] == "(":
            at = matching(code, at, "(", ")")  # arguments may hold braces and semicolons of their own
            continue
        if code[at] == "{":
            body_end = matching(code, at, "{", "}")
            kept += code[begin:at]
            begin = at = body_end
            if code[body_end:end].lstrip()[:1] in (",", "{", ";"):
                continue  # an initializer, or the body of a type: the statement goes on
            yield make_statement(code, kept, start, at, True)
        elif code[at] == ";":
            yield make_statement(code, kept + code[begin:at], start, at, False)
            at += 1
        else:
            at += 1
            continue
        start = begin = at
        kept = ""


def make_statement(code, text, start, end, has_body):
    leading = len(text) - len(text.lstrip())
    if access := ACCESS.match(text):
        leading = access.end() + len(text[access.end():]) - len(text[access.end():].lstrip())
    return Statement(text[leading:].strip(), start + leading, end, has_body)


def line_of(text, index):
    return text.count("\n", 0, index) + 1


def without_angles(text):
    """The text without template arguments, each pair of angles replaced by blanks of the same length."""
    result, depth = [], 0
    for character in text:
        depth += character == "<"
        result.append(" " if depth > 0 else character)
        depth -= character == ">" and depth > 0
    return "".join(result)


def split_parameters(text):
    parts, depth, begin = [], 0, 0
    for index, character in enumerate(text):
        depth += (character in "<([{") - (character in ">)]}")
        if character == "," and depth == 0:
            parts.append(text[begin:index])
            begin = index + 1
    return [part for part in parts + [text[begin:]] if part.strip()]


def parameter_type(parameter):
    """The type alone, so that declaration and definition compare equal."""
    tokens = re.findall(r"\w+|::|\.\.\.|[^\w\s]", parameter.split("=")[0])
    last = tokens[-1]
    named = re.fullmatch(r"[A-Za-z_]\w*", last) and last not in TYPE_WORDS and len(tokens) > 1
    if named and tokens[-2] != "::" and any(token not in QUALIFIERS for token in tokens[:-1]):
        tokens.pop()
    return " ".join(tokens)


def signature_of(text, opening):
    inside = text[opening + 1:matching(text, opening, "(", ")") - 1]
    return ", ".join(parameter_type(parameter) for parameter in split_parameters(inside))


def function_in(statement):
    """The name and signature that a declaration in a class declares, or None when it declares no function."""
    opening = without_angles(statement).find("(")
    name = re.search(r"(~?\w+)\s*$", statement[:opening]) if opening >= 0 else None
    if name is None or "=" in without_angles(statement[:opening]):
        return None
    return name.group(1), signature_of(statement, opening)


class Header:
    """What the header says: its table, its groups with their members, its state."""

    def __init__(self, path):
        self.text = path.read_text(encoding="utf-8")
        self.lines = self.text.split("\n")
        self.table = []
        self.groups = []
        self.state = []
        self.faults = []
        self.read_table()
        self.read_blocks()
        self.read_members()

    def fault(self, line, text):
        self.faults.append(f"{HEADER}:{line}: {text}")

    def read_table(self):
        for number, line in enumerate(self.lines, 1):
            if row := TABLE_ROW.match(line):
                self.table.append(Group(int(row.group(1)), row.group(2), row.group(3), number))

    def read_blocks(self):
        """Finds the marked blocks: (first line, last line, its group or None for the state)."""
        self.blocks = []
        group, opened = None, None
        for number, line in enumerate(self.lines, 1):
            if name := GROUP_NAME.match(line.strip()):
                group = Group(int(name.group(1)), name.group(2), name.group(3), number)
                self.groups.append(group)
            elif "@name" in line:
                self.fault(number, 'a group is not named as in "@name 1. Subject (folder/File.cpp)"')
            elif line.strip() == "/// @{":
                opened = number
            elif line.strip() == "/// @}":
                self.blocks.append((opened, number, group))
                group = None

    def block_at(self, line):
        return next((block for block in self.blocks if block[0] < line < block[1]), None)

    def read_members(self):
        code = blank_out(self.text)
        start = re.search(r"\bclass\s+" + CLASS + r"\b[^;{]*\{", code)
        end = matching(code, start.end() - 1, "{", "}") - 1
        for statement in statements(code, start.end(), end):
            if not re.match(r"$|(class|struct|using|enum|friend)\b", statement.text):
                self.add_member(statement, line_of(code, statement.start), line_of(code, statement.end))

    def add_member(self, statement, line, last_line):
        block = self.block_at(line)
        function = function_in(statement.text)
        words = " ".join(statement.text.split())
        if block is None:
            self.fault(line, f"\"{words}\" stands in no group")
        elif function is not None and block[2] is not None:
            block[2].members.append(Member(*function, line, statement.has_body))
        elif function is not None:
            self.fault(line, f"the function {function[0]} stands in the block of the state")
        elif block[2] is not None:
            self.fault(line, f"\"{words}\" is state and stands in group {block[2].number}")
        else:
            self.state.append((re.search(r"(\w+)\s*(?:=.*)?$", words).group(1), line, last_line))

    def check(self):
        self.check_table()
        self.check_kinds()
        self.check_state()

    def check_table(self):
        if not self.table:
            self.fault(1, "there is no table of groups")
        for expected, row in enumerate(self.table, 1):
            if row.number != expected:
                self.fault(row.line, f"the table has group {row.number} where group {expected} is expected")
        by_number = {row.number: row for row in self.table}
        for group in self.groups:
            row = by_number.pop(group.number, None)
            if row is None:
                self.fault(group.line, f"group {group.number} is not in the table, or stands here twice")
                continue
            if row.subject.lower() != group.subject.lower():
                self.fault(group.line, f"group {group.number} is \"{group.subject}\" here and \"{row.subject}\" in the "
                                       "table")
            if row.file != group.file:
                self.fault(group.line, f"group {group.number} is in {group.file} here and in {row.file} in the table")
        for row in by_number.values():
            self.fault(row.line, f"the table's group {row.number} ({row.subject}) has no group below")
        numbers = [group.number for group in self.groups]
        if numbers != sorted(numbers):
            self.fault(self.groups[0].line, f"the groups stand in the order {numbers}")

    def check_kinds(self):
        for group in self.groups:
            furthest, before = -1, None
            for member in group.members:
                kind = next((i for i, (_, name) in enumerate(KINDS) if name.match(member.name)), None)
                if kind is None:
                    continue
                if kind < furthest:
                    self.fault(member.line, f"the {KINDS[kind][0]} {member.name} stands behind the "
                                            f"{KINDS[furthest][0]} {before}")
                else:
                    furthest, before = kind, member.name

    def check_state(self):
        if not self.state:
            self.fault(len(self.lines), "there is no block of state")
            return
        if any(block[0] > self.state[0][1] for block in self.blocks):
            self.fault(self.state[0][1], "the state is not the last block")
        names = {member.name for group in self.groups for member in group.members}
        for name, line, last_line in self.state:
            comment = re.search(r"///<\s*(\S.*)", " ".join(self.lines[line - 1:last_line]))
            if comment is None:
                self.fault(line, f"{name} has no comment that says who writes it")
                continue
            for writer in re.findall(r"`([^`]+)`", comment.group(1)):
                if writer not in names:
                    self.fault(line, f"{name} is said to be written by {writer}, which is no member of a group")


def definitions(path):
    """The members of the class that a source file defines, in its order."""
    code = blank_out(path.read_text(encoding="utf-8"))
    aliases = re.findall(r"\busing\s+(\w+)\s*=\s*" + CLASS + r"\s*;", code)
    pattern = re.compile(r"\b(?:" + "|".join([CLASS, *aliases]) + r")\s*::\s*(~?\w+)\s*\(")
    for statement in statements(code, 0, len(code)):
        found = pattern.search(statement.text)
        if statement.has_body and found:
            signature = signature_of(statement.text, found.end() - 1)
            yield Member(found.group(1), signature, line_of(code, statement.start))


def check_sources(root, header):
    """Yields a line for each disagreement between the groups and what the files define."""
    homes = {member.key(): group for group in header.groups for member in group.members}
    groups = {group.file: group for group in header.groups}
    if len(groups) < len(header.groups):
        yield f"{HEADER}:1: several groups name one file"
    for file in groups:
        if not (root / file).is_file():
            yield f"{HEADER}:{groups[file].line}: group {groups[file].number} names {file}, which does not exist"
    for path in sorted(path for folder in FOLDERS for path in (root / folder).glob("**/*.cpp")):
        file = path.relative_to(root).as_posix()
        defined = list(definitions(path))
        group = groups.get(file)
        expected = [member for member in group.members if not member.has_body] if group else []
        yield from compare(file, defined, expected, homes)


def compare(file, defined, expected, homes):
    defined_keys = [member.key() for member in defined]
    expected_keys = [member.key() for member in expected]
    for member in defined:
        if member.key() not in expected_keys:
            home = homes.get(member.key())
            where = f"belongs to group {home.number} ({home.file})" if home else "is in no group of the header"
            yield f"{file}:{member.line}: {member} {where}"
    for member in expected:
        if member.key() not in defined_keys:
            yield f"{file}:1: {member}, declared in {HEADER}:{member.line}, is not defined here"
    common = [member for member in defined if member.key() in expected_keys]
    wanted = [member for member in expected if member.key() in defined_keys]
    for member, other in zip(common, wanted):
        if member.key() != other.key():
            yield f"{file}:{member.line}: {member} stands where the header has {other}"
            return


def check(root):
    header = Header(root / HEADER)
    header.check()
    return header.faults + list(check_sources(root, header))


def main(arguments):
    root = Path(arguments[0]) if arguments else Path(__file__).resolve().parents[2]
    faults = check(root)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
