// Model documents, from their text to the documents of every view.

#include "ReaderFuzzing.h"
#include "model_document/ModelDocumentReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::readAndExport(readers::modelDocumentReader(), data, size);
    return 0;
}
