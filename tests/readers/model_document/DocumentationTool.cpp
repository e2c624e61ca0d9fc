// Prints what the documentation of model documents must say: the JSON Schema, or the tables of the page.
#include <cstdio>
#include <string_view>

#include "DocumentationText.h"

int main(int argc, char** argv) {
    const std::string_view what = argc == 2 ? argv[1] : "";
    if (what == "schema") {
        std::fputs(documentation::schemaText().c_str(), stdout);
        return 0;
    }
    if (what == "page") {
        for (const auto& [heading, text] : documentation::pageTables()) {
            std::printf("%s\n\n%s\n", heading.c_str(), text.c_str());
        }
        return 0;
    }
    std::fputs("usage: model_document_docs schema|page\n", stderr);
    return 2;
}
