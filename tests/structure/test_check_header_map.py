#!/usr/bin/env python3
"""Proves that check_header_map.py sees what it is there to see: one case per kind of disagreement."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path

import check_header_map

HEADER = """\
#pragma once
/// | group | subject      | source file         |
/// |------:|--------------|---------------------|
/// |     1 | run driver   | bridge/Run.cpp      |
/// |     2 | DBM: columns | dbm/Columns.cpp     |
class ZORMicrosoftSqlServerMdsMdcExportBridge : public ZORXMLWriter {
  public:
    class Helper;
    struct Pair {
        int first = 1;
    };

    /// @name 1. Run driver (bridge/Run.cpp)
    /// @{
    explicit ZORMicrosoftSqlServerMdsMdcExportBridge(ZORLog* log);
    bool run(ZORModel* model, const std::map<int, char>& values = {});
    void cleanup();
    void cleanup(ZORStringHashtable& table);  // a "brace {" in a comment
    template <std::same_as<bool> Bool>
    void flag(Bool value) {
        cleanup();
    }
    /// @}

    /// @name 2. DBM: columns (dbm/Columns.cpp)
    /// @{
    bool isExportableDBMColumn(const ZORAttribute* column) const;
    static const char* getDBMWord(int code);
    void printDBMColumn(ZORAttribute* column, unsigned char variant);
    /// @}

  protected:
    /// @{
    ZORLog* log_;             ///< the constructor
    Pair pair_{50};           ///< `run`
    std::size_t count_ = 0;   ///< `run`, `cleanup`
    /// @}
};
"""

RUN = """\
#include "Bridge.h"
using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;
namespace {
const char* const WORD = "Bridge::quoted(";
void Bridge_like() {}
}
Bridge::ZORMicrosoftSqlServerMdsMdcExportBridge(ZORLog* log) : log_(log), pair_{50} {}
bool Bridge::run(ZORModel* /*model*/, const std::map<int, char>& values) {
    Bridge::cleanup();
    return values.empty();
}
void Bridge::cleanup() {}
void Bridge::cleanup(ZORStringHashtable& table) { table.clear(); }
void Bridge::Helper::assist() {}
"""

COLUMNS = """\
bool ZORMicrosoftSqlServerMdsMdcExportBridge::isExportableDBMColumn(const ZORAttribute* column) const {
    return column != nullptr;
}
const char* ZORMicrosoftSqlServerMdsMdcExportBridge::getDBMWord(int) {
    return "x";
}
void ZORMicrosoftSqlServerMdsMdcExportBridge::printDBMColumn(ZORAttribute*, unsigned char) {}
"""

IS_EXPORTABLE = "    bool isExportableDBMColumn(const ZORAttribute* column) const;\n"
GET_WORD = "    static const char* getDBMWord(int code);\n"
PRINT = "    void printDBMColumn(ZORAttribute* column, unsigned char variant);\n"
CLEANUP = "void Bridge::cleanup() {}\n"


class CheckHeaderMap(unittest.TestCase):
    def faults(self, header=HEADER, run=RUN, columns=COLUMNS, more=None):
        """What is said of a tree with these files."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            files = {check_header_map.HEADER: header, "bridge/Run.cpp": run, "dbm/Columns.cpp": columns, **(more or {})}
            for file, text in files.items():
                if text is not None:
                    (root / file).parent.mkdir(exist_ok=True)
                    (root / file).write_text(text, encoding="utf-8")
            return check_header_map.check(root)

    def expect(self, expected, **files):
        faults = self.faults(**files)
        self.assertTrue(any(expected in fault for fault in faults), f"{expected!r} is not in {faults}")

    def replaced(self, text, old, new):
        self.assertIn(old, text)
        return text.replace(old, new, 1)

    def test_a_tree_that_agrees_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_a_group_that_is_missing_in_the_table(self):
        header = self.replaced(HEADER, "/// |     2 | DBM: columns | dbm/Columns.cpp     |\n", "")
        self.expect("group 2 is not in the table", header=header)

    def test_a_row_without_a_group(self):
        header = self.replaced(HEADER, "class ZOR", "/// | 3 | more | dbm/More.cpp |\nclass ZOR")
        self.expect("the table's group 3 (more) has no group below", header=header)

    def test_a_gap_in_the_numbers(self):
        header = self.replaced(HEADER, "|     2 |", "|     3 |").replace("@name 2.", "@name 3.")
        self.expect("the table has group 3 where group 2 is expected", header=header)

    def test_groups_in_another_order(self):
        header = HEADER.replace("@name 1. Run driver (bridge/Run.cpp)", "@name X").replace(
            "@name 2. DBM: columns (dbm/Columns.cpp)", "@name 1. Run driver (bridge/Run.cpp)").replace(
                "@name X", "@name 2. DBM: columns (dbm/Columns.cpp)")
        self.expect("the groups stand in the order [2, 1]", header=header)

    def test_another_subject(self):
        header = self.replaced(HEADER, "@name 2. DBM: columns", "@name 2. DBM: rows")
        self.expect('group 2 is "DBM: rows" here and "DBM: columns" in the table', header=header)

    def test_another_file(self):
        header = self.replaced(HEADER, "columns (dbm/Columns.cpp)", "columns (dbm/Rows.cpp)")
        self.expect("group 2 is in dbm/Rows.cpp here and in dbm/Columns.cpp in the table", header=header)
        self.expect("group 2 names dbm/Rows.cpp, which does not exist", header=header)

    def test_a_group_without_number_or_file(self):
        self.expect("a group is not named as in", header=self.replaced(HEADER, "@name 2. DBM", "@name DBM"))

    def test_two_groups_in_one_file(self):
        header = HEADER.replace("dbm/Columns.cpp", "bridge/Run.cpp")
        self.expect("several groups name one file", header=header, columns=None)

    def test_a_missing_file(self):
        self.expect("group 2 names dbm/Columns.cpp, which does not exist", columns=None)

    def test_a_member_that_is_not_defined(self):
        self.expect("bridge/Run.cpp:1: cleanup(), declared in", run=self.replaced(RUN, CLEANUP, ""))

    def test_an_overload_with_another_parameter(self):
        run = self.replaced(RUN, "cleanup(ZORStringHashtable& table)", "cleanup(const ZORStringHashtable& table)")
        self.expect("cleanup(const ZORStringHashtable &) is in no group of the header", run=run)
        self.expect("cleanup(ZORStringHashtable &), declared in", run=run)

    def test_a_member_in_the_file_of_another_group(self):
        columns = COLUMNS + CLEANUP.replace("Bridge", check_header_map.CLASS)
        self.expect("dbm/Columns.cpp:8: cleanup() belongs to group 1 (bridge/Run.cpp)", columns=columns,
                    run=self.replaced(RUN, CLEANUP, ""))

    def test_a_member_in_a_file_of_no_group(self):
        more = {"types/More.cpp": "\n" + CLEANUP.replace("Bridge", check_header_map.CLASS)}
        self.expect("types/More.cpp:2: cleanup() belongs to group 1 (bridge/Run.cpp)", more=more)

    def test_a_member_of_no_group(self):
        self.expect("bridge/Run.cpp:15: dance(int) is in no group of the header",
                    run=RUN + "void Bridge::dance(int steps) {}\n")

    def test_another_order_in_the_file(self):
        run = self.replaced(RUN, CLEANUP, "") + CLEANUP
        self.expect("bridge/Run.cpp:12: cleanup(ZORStringHashtable &) stands where the header has cleanup()", run=run)

    def test_a_filter_behind_a_printer(self):
        header = self.replaced(HEADER, IS_EXPORTABLE, "").replace(PRINT, PRINT + IS_EXPORTABLE)
        self.expect("the filter isExportableDBMColumn stands behind the printer printDBMColumn", header=header)

    def test_a_filter_behind_a_mapping(self):
        header = self.replaced(HEADER, GET_WORD, "").replace(IS_EXPORTABLE, GET_WORD + IS_EXPORTABLE)
        self.expect("the filter isExportableDBMColumn stands behind the mapping getDBMWord", header=header)

    def test_a_mapping_behind_a_printer(self):
        header = self.replaced(HEADER, GET_WORD, "").replace(PRINT, PRINT + GET_WORD)
        self.expect("the mapping getDBMWord stands behind the printer printDBMColumn", header=header)

    def test_a_function_in_no_group(self):
        self.expect('"void dance()" stands in no group',
                    header=self.replaced(HEADER, "    class Helper;\n", "    class Helper;\n    void dance();\n"))

    def test_state_outside_the_last_block(self):
        self.expect('"int steps_ = 0" stands in no group',
                    header=self.replaced(HEADER, "  protected:\n", "  protected:\n    int steps_ = 0;\n"))
        self.expect('"int steps_ = 0" is state and stands in group 2',
                    header=self.replaced(HEADER, PRINT, PRINT + "    int steps_ = 0;\n"))

    def test_state_before_a_group(self):
        state = HEADER[HEADER.index("  protected:"):HEADER.index("};\n", HEADER.index("  protected:"))]
        header = HEADER.replace(state, "").replace("    /// @name 1.", state + "  public:\n    /// @name 1.")
        self.expect("the state is not the last block", header=header)

    def test_no_state(self):
        state = HEADER[HEADER.index("  protected:"):HEADER.index("};\n", HEADER.index("  protected:"))]
        self.expect("there is no block of state", header=self.replaced(HEADER, state, ""))

    def test_a_function_among_the_state(self):
        self.expect("the function dance stands in the block of the state",
                    header=self.replaced(HEADER, "    ZORLog* log_;", "    void dance();\n    ZORLog* log_;"))

    def test_state_without_a_comment(self):
        self.expect("pair_ has no comment that says who writes it",
                    header=self.replaced(HEADER, "pair_{50};           ///< `run`", "pair_{50};  // `run`"))
        self.expect("pair_ has no comment that says who writes it",
                    header=self.replaced(HEADER, "pair_{50};           ///< `run`", "pair_{50};  ///<"))

    def test_state_that_nobody_known_writes(self):
        self.expect("count_ is said to be written by sweep, which is no member of a group",
                    header=self.replaced(HEADER, "`run`, `cleanup`", "`run`, `sweep`"))

    def test_a_header_without_a_table(self):
        self.expect("there is no table of groups", header=HEADER.replace("/// |", "// |"))

    def test_the_program_tells_by_its_exit_code(self):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            (root / "bridge").mkdir()
            (root / check_header_map.HEADER).write_text(HEADER, encoding="utf-8")
            said = io.StringIO()
            with contextlib.redirect_stdout(said):
                self.assertEqual(check_header_map.main([folder]), 1)
            self.assertIn("group 1 names bridge/Run.cpp, which does not exist\n", said.getvalue())


if __name__ == "__main__":
    unittest.main()
