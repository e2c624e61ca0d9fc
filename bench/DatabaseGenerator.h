#pragma once

#include <string>

namespace bench {

/// A SQLite database. Each table has a primary key, a foreign key to another table and an index over two
/// columns; over one table in ten there is a view, joined with the table that it refers to.
struct DatabaseShape {
    int tables;
    int columnsPerTable;  ///< 4 at least
};

/// Writes the database, of no rows, to a file that does not exist. Equal shapes give equal databases. Throws
/// std::runtime_error.
void generateDatabase(const std::string& path, const DatabaseShape& shape);

}  // namespace bench
