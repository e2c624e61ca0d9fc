#include "Attributes.h"

namespace readers::xmi {

const std::vector<Attribute>& AttributeReader::read(const xmlNode& element) {
    attributes_.clear();
    for (const xmlAttr* attribute = element.properties; attribute != nullptr; attribute = attribute->next) {
        const KnownName known = nameOf(*attribute);
        const std::string_view text =
            attribute->children == nullptr ? std::string_view() : toView(attribute->children->content);
        attributes_.push_back({known.name, known.isXmi || isXmiNamespace(attribute->ns), text});
    }
    return attributes_;
}

/// The parser keeps every name once, so that its address tells it.
AttributeReader::KnownName AttributeReader::nameOf(const xmlAttr& attribute) {
    const auto [found, isNew] = known_.try_emplace(attribute.name);
    if (isNew) {
        const std::string_view name = toView(attribute.name);
        found->second.name = names_.intern(lastPart(name));
        found->second.isXmi = name.starts_with("xmi.") || name.starts_with("xmi:");
    }
    return found->second;
}

bool AttributeReader::isXmiNamespace(const xmlNs* space) {
    const std::string_view uri = uriOf(space);
    if (uri != lastUri_) {
        lastUri_ = uri;
        lastUriIsXmi_ =
            !uri.empty() && (vocabularyOf(uri, {}) == Vocabulary::XMI || uri.ends_with("XMLSchema-instance"));
    }
    return lastUriIsXmi_;
}

Identity identityOf(const std::vector<Attribute>& attributes) noexcept {
    Identity identity;
    std::string_view uuid;
    for (const Attribute& attribute : attributes) {
        if (attribute.name == "href"_n) {
            identity.href = attribute.text;
        } else if (!attribute.isXmi) {
            identity.hasOthers = true;
        } else if (attribute.name == "id"_n) {
            identity.id = attribute.text;
        } else if (attribute.name == "idref"_n) {
            identity.idref = attribute.text;
        } else if (attribute.name == "type"_n) {
            identity.type = lastPart(attribute.text);
        } else if (attribute.name == "value"_n) {
            identity.value = attribute.text;
        } else if (attribute.name == "uuid"_n) {
            uuid = attribute.text;
        }
    }
    identity.id = identity.id.empty() ? uuid : identity.id;
    return identity;
}

}  // namespace readers::xmi
