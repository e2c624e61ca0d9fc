// What the tests of "inspect" share: sources, and a fixture that runs it on them.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {

/// Two tables and a third one that is in the database only, with relationships, generalizations and a
/// diagram.
inline const std::string LEVELS = R"({"format": "oim-source-model", "version": 1, "model": {"name": "Levels",
  "types": [{"id": "int", "kind": "concrete", "name": "int", "dataType": "SQL_INTEGER"}],
  "children": [{"kind": "package", "name": "main", "elements": [
    {"kind": "class", "id": "a", "name": "Author", "attributes": [{"id": "a.id", "name": "id", "type": "int"}],
     "keys": [{"kind": "candidate", "id": "a.pk", "name": "author_pk", "primary": true, "unique": true,
               "attributes": ["a.id"]}]},
    {"kind": "class", "id": "b", "name": "Book", "physicalName": "T_BOOK",
     "attributes": [{"id": "b.a", "name": "author", "type": "int"},
                    {"name": "shelf", "type": "int", "designLevel": "physical"}],
     "keys": [{"kind": "foreign", "id": "b.fk", "name": "book_fk", "attributes": ["b.a"],
               "references": "a.pk"}]},
    {"kind": "class", "id": "l", "name": "Log", "designLevel": "physical",
     "attributes": [{"name": "author", "type": "int"}]},
    {"kind": "association", "name": "writes", "roles": [{"class": "a"}, {"class": "b", "foreignKey": "b.fk"}]},
    {"kind": "generalization", "name": "is a", "parents": ["a"], "children": ["b"]}]}]}})";

class Inspect : public testing::Test {
  protected:
    Inspect() {
        scratch.write("shop.sql", SHOP_SQL);
        scratch.write("levels.model.json", LEVELS);
    }
    std::string report(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "inspect");
        const Result result = run(scratch, arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        return result.out;
    }
    Scratch scratch;
};

}  // namespace cli_test
