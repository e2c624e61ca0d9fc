#pragma once

#include <string>

namespace bench {

/// What a generated model document holds.
struct DocumentShape {
    int tables = 100;
    int columnsPerTable = 20;
};

/// The text of a model document of that shape: one package of tables with typed columns, each column with an
/// id and a description now and then, each table with a primary key, an index on it, and a foreign key to the
/// table before it. Equal shapes give equal texts.
std::string generateDocument(const DocumentShape& shape);

}  // namespace bench
