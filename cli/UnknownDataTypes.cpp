#include "UnknownDataTypes.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "Text.h"
#include "ZOR.h"

namespace cli {

namespace {

struct UnknownDataType {
    std::string name;
    std::size_t attributes;
};

std::size_t countAttributes(const ZORType& type) {
    const ZORVector<ZORModelObject*>& typed = type.getTypedObjects();
    return static_cast<std::size_t>(std::count_if(
        typed.begin(), typed.end(),
        [](const ZORModelObject* object) { return object->getElementType() == ZOR_ATTRIBUTE; }));
}

/// In the order of the model's types; a type without a data type is told by its own name.
std::vector<UnknownDataType> findUnknownDataTypes(const ZORModel& model) {
    std::vector<UnknownDataType> found;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const ZORType* type : model.getTypes()) {
        const std::size_t attributes = countAttributes(*type);
        const ZORType* actual = type->getActualType();
        if (attributes == 0 || !getOldDataType(actual->getDataType()).isEmpty()) {
            continue;
        }
        const ZORString& name = actual->getDataType().isEmpty() ? actual->getName() : actual->getDataType();
        const auto [place, isNew] = places.emplace(name.view(), found.size());
        if (isNew) {
            found.push_back({std::string(name.view()), 0});
        }
        found[place->second].attributes += attributes;
    }
    return found;
}

std::string listShortly(const std::vector<UnknownDataType>& unknown) {
    constexpr std::size_t MOST = 3;
    std::vector<std::string> words;
    for (std::size_t i = 0; i < std::min(MOST, unknown.size()); ++i) {
        words.push_back(fmt::format("\"{}\"", unknown[i].name));
    }
    if (unknown.size() > MOST) {
        words.push_back(fmt::format("{} more", formatCount(unknown.size() - MOST)));
    }
    return joinWords(words);
}

bool writesDataTypes(const View& view, const ZOROptionList& options) {
    return (view.hasErd && hasDataTypes(options.getValue("ERD TypeSet").view())) ||
           (view.hasDbm && hasDataTypes(options.getValue("DBM TypeSet").view()));
}

}  // namespace

bool hasDataTypes(std::string_view typeSet) noexcept {
    return typeSet != "None" && typeSet != "Default";
}

void tellUnknownDataTypes(const ZORModel& model, const View& view, const ZOROptionList& options,
                          const std::string& sourceName, Console& console) {
    if (!writesDataTypes(view, options)) {
        return;
    }
    const std::vector<UnknownDataType> unknown = findUnknownDataTypes(model);
    if (unknown.empty()) {
        return;
    }
    if (console.isVerbose()) {
        for (const UnknownDataType& type : unknown) {
            console.print(
                {.level = Level::NOTE,
                 .subject = sourceName,
                 .text = fmt::format("no type set has a counterpart of the data type \"{}\" of {}", type.name,
                                     formatCount(type.attributes, "attribute", "attributes"))});
        }
        return;
    }
    console.print(
        {.level = Level::NOTE,
         .subject = sourceName,
         .text = fmt::format("no type set has a counterpart of {}, so that the one for any other type is "
                             "written: {}",
                             formatCount(unknown.size(), "data type", "data types"), listShortly(unknown)),
         .hint = "--verbose lists each; docs/model-document.md tells the names that are known"});
}

}  // namespace cli
