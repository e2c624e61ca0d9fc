#pragma once

#include <string>
#include <string_view>

#include "Vocabulary.h"

/// The words in which messages, the JSON Schema and the page speak of what a document may hold.
namespace readers::document {

/// "an attribute", "a class".
std::string withArticle(std::string_view noun);
/// What may stand behind a key: "an integer from 0 to 9", "a list of references to classes, at least one".
std::string describeValue(const Field& field);
/// What each item of a field's list is: "a reference to a class".
std::string describeItem(const Field& field);
/// The keys of a kind of object: `"id", "name" and "notes"`.
std::string listKeys(const Kind& kind);
/// Which kinds of a family have a key: `a derived type and an alias type`; empty when none has.
std::string listKindsWith(const FamilyKinds& family, std::string_view key);

}  // namespace readers::document
