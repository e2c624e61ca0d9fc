#pragma once

#include <string>
#include <string_view>

namespace readers::xmi {

/// A name in camel case as words: "use case" for "UseCase", "template signature" for
/// "ownedTemplateSignature".
std::string toWords(std::string_view name);
std::string toPlural(std::string words);
/// "an actor", "a use case".
std::string withArticle(const std::string& words);

}  // namespace readers::xmi
