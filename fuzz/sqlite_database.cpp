// Database files, from their bytes to the documents of every view.

#include "ReaderFuzzing.h"
#include "sqlite/SqliteReaders.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::readAndExport(readers::sqliteDatabaseReader(), data, size);
    return 0;
}
