// XMI files, from their text to the documents of every view.

#include "ReaderFuzzing.h"
#include "xmi/XmiReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::readAndExport(readers::xmiReader(), data, size);
    return 0;
}
