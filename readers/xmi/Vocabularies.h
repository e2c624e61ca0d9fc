#pragma once

#include <cstdint>
#include <string_view>

namespace readers::xmi {

/// The vocabularies that elements come from.
enum class Vocabulary : std::uint8_t {
    NONE,  ///< a name without a namespace and without dots: that of what it stands in
    XMI,
    UML,
    OTHER
};

/// Which vocabulary an element's name is from, whatever its prefix. `uri` is empty without a namespace: the
/// old dotted names ("Foundation.Core.Class", "XMI.content") tell by themselves, and so does a prefix that
/// was never declared.
Vocabulary vocabularyOf(std::string_view uri, std::string_view localName) noexcept;

/// The part behind the last dot, and behind a prefix that was never declared.
std::string_view lastPart(std::string_view localName) noexcept;

}  // namespace readers::xmi
