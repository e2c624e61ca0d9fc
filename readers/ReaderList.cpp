#include "Reader.h"
#include "model_document/ModelDocumentReader.h"
#include "sqlite/SqliteReaders.h"
#include "xmi/XmiReader.h"

namespace readers {

const std::vector<const Reader*>& allReaders() {
    static const std::vector<const Reader*> readers = {&sqliteDatabaseReader(), &xmiReader(),
                                                       &sqlScriptReader(), &modelDocumentReader()};
    return readers;
}

}  // namespace readers
