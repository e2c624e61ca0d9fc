#include "DocumentGenerator.h"

namespace bench {

namespace {

constexpr int TYPES = 12;
constexpr int COLUMNS_PER_DESCRIPTION = 8;

std::string id(const char* prefix, int table) {
    return prefix + std::to_string(table);
}

std::string id(const char* prefix, int table, int column) {
    return id(prefix, table) + '.' + std::to_string(column);
}

std::string types() {
    std::string text;
    for (int type = 0; type < TYPES; ++type) {
        text += type == 0 ? "\n" : ",\n";
        text += "      { \"kind\": \"concrete\", \"id\": \"" + id("type", type) + "\", \"name\": \"Type " +
                std::to_string(type) +
                "\", \"dataType\": \"SQL_VARCHAR\", \"length\": " + std::to_string(10 * type) + " }";
    }
    return text;
}

void addColumn(std::string& text, int table, int column) {
    text += column == 0 ? "\n" : ",\n";
    text += "            { \"id\": \"" + id("column", table, column) + "\", \"name\": \"column_" +
            std::to_string(column) + "\", \"type\": \"" + id("type", (table + column) % TYPES) + "\"";
    if (column % 2 != 0) {
        text += ", \"optional\": true";
    }
    if (column % COLUMNS_PER_DESCRIPTION == 0) {
        text +=
            ", \"description\": \"What the column holds, in some words, of which some are \\\"quoted\\\"\"";
    }
    text += " }";
}

void addKeys(std::string& text, int table) {
    text += "\n          ],\n          \"keys\": [\n            { \"kind\": \"candidate\", \"id\": \"" +
            id("primary", table) + "\", \"name\": \"PK_" + std::to_string(table) +
            "\", \"unique\": true, \"primary\": true, \"attributes\": [\"" + id("column", table, 0) + "\"] }";
    if (table > 0) {
        text += ",\n            { \"kind\": \"foreign\", \"id\": \"" + id("foreign", table) +
                "\", \"name\": \"FK_" + std::to_string(table) + "\", \"references\": \"" +
                id("primary", table - 1) + "\", \"attributes\": [\"" + id("column", table, 0) + "\"] }";
    }
    text += "\n          ],\n          \"indexes\": [\n            { \"name\": \"IX_" +
            std::to_string(table) + "\", \"unique\": true, \"key\": \"" + id("primary", table) +
            "\", \"members\": [{ \"attribute\": \"" + id("column", table, 0) +
            "\", \"order\": \"ascending\" }] }\n          ]";
}

void addAssociation(std::string& text, int table) {
    text +=
        ",\n        { \"kind\": \"association\", \"name\": \"refers\", \"roles\": [\n          { \"class\": "
        "\"" +
        id("table", table - 1) + "\", \"multiplicity\": \"1\" },\n          { \"class\": \"" +
        id("table", table) + "\", \"multiplicity\": \"0..*\", \"foreignKey\": \"" + id("foreign", table) +
        "\", \"deleteRule\": \"cascade\" }\n        ] }";
}

}  // namespace

std::string generateDocument(const DocumentShape& shape) {
    std::string text =
        "{\n  \"format\": \"oim-source-model\",\n  \"version\": 1,\n  \"model\": {\n    \"name\": "
        "\"Generated\",\n    \"types\": [" +
        types() +
        "\n    ],\n    \"children\": [\n      { \"kind\": \"package\", \"name\": \"main\", \"elements\": [";
    for (int table = 0; table < shape.tables; ++table) {
        text += table == 0 ? "\n" : ",\n";
        text += "        { \"kind\": \"class\", \"id\": \"" + id("table", table) + "\", \"name\": \"table_" +
                std::to_string(table) + "\", \"persistent\": true,\n          \"attributes\": [";
        for (int column = 0; column < shape.columnsPerTable; ++column) {
            addColumn(text, table, column);
        }
        addKeys(text, table);
        text += "\n        }";
        if (table > 0) {
            addAssociation(text, table);
        }
    }
    text += "\n      ] }\n    ]\n  }\n}\n";
    return text;
}

}  // namespace bench
