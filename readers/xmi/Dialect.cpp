#include "Dialect.h"

#include <algorithm>
#include <iterator>

namespace readers::xmi {

namespace {

constexpr Dialect DIALECTS[] = {
    {"Enterprise Architect", true, "Enterprise Architect", "", false, ZOR_ARGUMENT_IN, false, true},
    {"Eclipse UML2", true, "", "eclipse.org/uml2", true, ZOR_ARGUMENT_IN, false, false},
    {"StarUML", true, "StarUML", "", false, ZOR_ARGUMENT_IN, false, false},
    {"XMI 2", true, "", "", true, ZOR_ARGUMENT_IN, false, false},
    {"Umbrello", false, "umbrello", "", false, ZOR_ARGUMENT_IN, false, false},
    {"PlantUML", false, "PlantUML", "", false, ZOR_ARGUMENT_NONE, true, false},
    {"Enterprise Architect", false, "Enterprise Architect", "", false, ZOR_ARGUMENT_IN, false, true},
    {"XMI 1", false, "", "", false, ZOR_ARGUMENT_NONE, false, false},
};

char toSmall(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool beginsWith(std::string_view text, std::string_view beginning) noexcept {
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [](char a, char b) { return toSmall(a) == toSmall(b); });
}

/// What the file calls its exporter. PlantUML gives itself away only in its model's name.
std::string_view exporterOf(Tree& tree) {
    if (!tree.header.exporter.empty()) {
        return tree.header.exporter;
    }
    for (NodeIndex index = 0; index < tree.size(); ++index) {
        const Element element = tree.at(index);
        if (element.isUml()) {
            return element.is("Model"_n) ? element.text("name"_n) : std::string_view();
        }
    }
    return {};
}

}  // namespace

const Dialect& recogniseDialect(Tree& tree) {
    const std::string_view exporter = exporterOf(tree);
    const auto* const found = std::find_if(std::begin(DIALECTS), std::end(DIALECTS), [&](const Dialect& row) {
        return row.isXmi2 == tree.header.isXmi2 && beginsWith(exporter, row.exporter) &&
               tree.header.umlNamespace.find(row.space) != std::string::npos;
    });
    return *found;  // the last row of each version fits every file of that version
}

}  // namespace readers::xmi
