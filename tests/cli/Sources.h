// Small sources for the tests of the program.
#pragma once

#include <string>

namespace cli_test {

/// Three tables with two relationships, a view and a trigger; one column has a collation, which is lost.
inline const std::string SHOP_SQL = R"(
CREATE TABLE customer (
    id INTEGER PRIMARY KEY,
    name VARCHAR(40) NOT NULL COLLATE NOCASE
);
CREATE TABLE product (
    code CHAR(8) PRIMARY KEY,
    price DECIMAL(10, 2)
);
CREATE TABLE sale (
    customer_id INTEGER NOT NULL REFERENCES customer (id),
    product_code CHAR(8) NOT NULL REFERENCES product (code),
    sold_at TIMESTAMP,
    PRIMARY KEY (customer_id, product_code)
);
CREATE VIEW expensive AS SELECT code FROM product WHERE price > 100;
CREATE TRIGGER no_gifts BEFORE INSERT ON sale BEGIN SELECT 1; END;
)";

/// One table with a column; `members` are further members of the model, each followed by a comma.
inline std::string modelDocument(const std::string& name, const std::string& databaseType = {},
                                 const std::string& tableName = "t") {
    const std::string catalog =
        databaseType.empty()
            ? std::string()
            : R"({"kind": "catalog", "name": "c", "databaseType": ")" + databaseType + "\"},";
    return R"({"format": "oim-source-model", "version": 1, "model": {"name": ")" + name +
           R"(", "types": [{"id": "int", "kind": "concrete", "name": "int", "dataType": "SQL_INTEGER"}],
           "children": [)" +
           catalog + R"({"kind": "package", "name": "main", "elements": [{"kind": "class", "name": ")" +
           tableName + R"(", "attributes": [{"name": "a", "type": "int"}]}]}]}})";
}

/// So many tables of five columns each.
inline std::string manyTables(int count) {
    std::string sql;
    for (int i = 0; i < count; ++i) {
        sql += "CREATE TABLE t" + std::to_string(i) +
               " (id INTEGER PRIMARY KEY, name VARCHAR(40) NOT NULL, price DECIMAL(10, 2), at TIMESTAMP, "
               "note TEXT);\n";
    }
    return sql;
}

/// Makes a database file from a script.
void makeDatabase(const std::string& path, const std::string& sql);

}  // namespace cli_test
