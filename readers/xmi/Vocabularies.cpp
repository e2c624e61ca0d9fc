#include "Vocabularies.h"

#include <algorithm>

namespace readers::xmi {

namespace {

bool isVersionCharacter(char character) noexcept {
    return (character >= '0' && character <= '9') || character == '.';
}

/// Whether the address ends with the word as a part of its own.
bool endsWithPart(std::string_view uri, std::string_view word) noexcept {
    if (!uri.ends_with(word)) {
        return false;
    }
    const std::string_view before = uri.substr(0, uri.size() - word.size());
    return before.empty() || before.back() == '/' || before.back() == '.';
}

void removeSuffix(std::string_view& text, std::string_view suffix) noexcept {
    if (text.ends_with(suffix)) {
        text.remove_suffix(suffix.size());
    }
}

/// The address without what names a version or a file behind it: "http://www.omg.org/spec/UML" of
/// "http://www.omg.org/spec/UML/20131001/uml.xml".
std::string_view withoutVersion(std::string_view uri) noexcept {
    removeSuffix(uri, "/");
    removeSuffix(uri, "/uml.xml");
    const std::size_t slash = uri.rfind('/');
    const std::string_view tail = slash == std::string_view::npos ? uri : uri.substr(slash + 1);
    if (!tail.empty() && std::all_of(tail.begin(), tail.end(), isVersionCharacter)) {
        uri.remove_suffix(std::min(uri.size(), tail.size() + 1));
    }
    removeSuffix(uri, "/");
    return uri;
}

Vocabulary vocabularyOfDottedName(std::string_view localName) noexcept {
    if (localName.starts_with("XMI.") || localName == "XMI") {
        return Vocabulary::XMI;
    }
    if (localName.find(':') != std::string_view::npos) {
        return localName.starts_with("UML:") || localName.starts_with("uml:") ? Vocabulary::UML
               : localName.starts_with("xmi:")                                ? Vocabulary::XMI
                                                                              : Vocabulary::OTHER;
    }
    return localName.find('.') != std::string_view::npos ? Vocabulary::UML : Vocabulary::NONE;
}

}  // namespace

Vocabulary vocabularyOf(std::string_view uri, std::string_view localName) noexcept {
    if (uri.empty()) {
        return vocabularyOfDottedName(localName);
    }
    const std::string_view family = withoutVersion(uri);
    if (endsWithPart(family, "UML") || endsWithPart(family, "uml") || family.ends_with("/cmof.xml")) {
        return Vocabulary::UML;
    }
    return endsWithPart(family, "XMI") ? Vocabulary::XMI : Vocabulary::OTHER;
}

std::string_view lastPart(std::string_view localName) noexcept {
    const std::size_t end = localName.find_last_of(".:");
    return end == std::string_view::npos ? localName : localName.substr(end + 1);
}

}  // namespace readers::xmi
