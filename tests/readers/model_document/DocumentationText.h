// What the documentation of model documents must say, made from the tables that the reader works by.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model_document/Vocabulary.h"

namespace documentation {

/// The JSON Schema.
std::string schemaText();

/// A table of the page, under its heading: the keys of one or more kinds of objects.
struct PageTable {
    std::string heading;
    std::string text;
};
/// All tables of the page, in its order.
std::vector<PageTable> pageTables();

/// The kinds of objects that there are, each once, without those that differ only in where they stand.
std::vector<const readers::document::Kind*> allKinds();
/// A kind's field of this key, or null.
const readers::document::Field* findField(const readers::document::Kind& kind, std::string_view key);
/// Whether this is one of the fields that all objects have, notes, type values and role-name maps excepted.
bool isCommon(const readers::document::Kind& kind, const readers::document::Field& field);
/// A kind's name in the schema: "aliasType".
std::string definitionName(const readers::document::Kind& kind);

}  // namespace documentation
