// bench/: how fast and how large an export is, and the models to find that out with.
// Here are a generator of database models of any size, the yardsticks an export is held against, and the
// benchmark program. Whether a document is right is the tests' business; they may use the generator too, by
// adding its source.
#pragma once

#include <cstddef>
#include <memory>

#include "ZOR.h"

namespace bench {

/// What a generated model holds. Every count may be 0.
struct ModelShape {
    int tables = 100;
    int columnsPerTable = 20;
    /// Tables of one schema; schemas are added as needed.
    int tablesPerSchema = 1000;
    /// Candidate keys, the primary key being the first; each is implemented by an index.
    int keysPerTable = 1;
    /// Indexes that implement no key, of two columns where the table has them.
    int indexesPerTable = 0;
    /// Relationships to other tables: a foreign key, its role-name map and an association each. They need a
    /// key.
    int relationshipsPerTable = 1;
    /// Views over one table each, of all its columns.
    int views = 0;
    /// One column in so many carries a description with characters that a document has to escape; 0 for none.
    int columnsPerDescription = 8;
};

/// A sound model of that shape, for one database catalog. Equal shapes give equal models.
std::unique_ptr<ZORModel> generateModel(const ModelShape& shape);

/// How many objects of a model an export touches: everything that the walk over the model meets, notes
/// excepted.
std::size_t countObjects(ZORModel& model);

}  // namespace bench
