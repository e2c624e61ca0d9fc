// readers/sqlite/: models from SQLite databases, and from SQL scripts that SQLite understands.
// SQLite itself answers what it can; what it does not tell (names of constraints, the expressions that a
// model cannot hold) is read from the statements that it keeps. Other databases' dialects are not understood
// here.
//
//   opening            DatabaseFile (files, whoever else uses them), Script (text), Connection
//   reading statements SqlTokens, TableDefinition, Definitions, ViewNesting
//   facts              Catalog
//   building           Build, Tables, Keys, Relationships, Views, Triggers, TypeTable, Losses
#pragma once

#include "Reader.h"

namespace readers {

/// Reads SQLite database files, whatever they are called.
const Reader& sqliteDatabaseReader();

/// Reads scripts of SQL statements, by running them in a database in memory that refuses everything but
/// schema statements and inserts.
const Reader& sqlScriptReader();

}  // namespace readers
