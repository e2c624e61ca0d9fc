#include "Reader.h"
#include "model_document/ModelDocumentReader.h"
#include "sqlite/SqliteReaders.h"

namespace readers {

const std::vector<const Reader*>& allReaders() {
    static const std::vector<const Reader*> readers = {&sqliteDatabaseReader(), &sqlScriptReader(),
                                                       &modelDocumentReader()};
    return readers;
}

}  // namespace readers
