#include "ExternalNames.h"

#include <algorithm>
#include <iterator>

namespace readers::xmi {

namespace {

constexpr std::string_view WELL_KNOWN_LIBRARIES[] = {
    "PrimitiveTypes",   // UMLPrimitiveTypes, JavaPrimitiveTypes, EcorePrimitiveTypes, PrimitiveTypes.xmi ...
    "/spec/UML/",       // http://schema.omg.org/spec/UML/2.1/uml.xml#String
    "/emf/2002/Ecore",  //
    "/emf/2003/XMLType",  //
    "UML_METAMODELS",     //
    "UML_Standard_Profile", "UML Standard Profile",
};

/// Types of libraries that tools bring along and refer to by ids that say nothing.
struct KnownType {
    std::string_view link;  ///< how it ends
    std::string_view name;
};
constexpr KnownType KNOWN_TYPES[] = {
    {"default-uml14.xmi#-84-17--56-5-43645a83:11466542d86:-8000:000000000000087C", "Integer"},
    {"default-uml14.xmi#-84-17--56-5-43645a83:11466542d86:-8000:000000000000087E", "String"},
};

const KnownType* findKnownType(std::string_view link) noexcept {
    const auto* const found = std::find_if(std::begin(KNOWN_TYPES), std::end(KNOWN_TYPES),
                                           [&](const KnownType& row) { return link.ends_with(row.link); });
    return found == std::end(KNOWN_TYPES) ? nullptr : found;
}

/// What stands before the name of a type in an id: "EAJava_int".
std::string_view withoutToolPrefix(std::string_view id) noexcept {
    const std::size_t line = id.find('_');
    const bool hasPrefix = id.starts_with("EA") && !id.starts_with("EAID_") && !id.starts_with("EAPK_") &&
                           line != std::string_view::npos && line + 1 < id.size();
    return hasPrefix ? id.substr(line + 1) : id;
}

}  // namespace

std::string_view lastSegment(std::string_view path) noexcept {
    const std::size_t end = path.rfind("::");
    return end == std::string_view::npos ? path : path.substr(end + 2);
}

std::string_view nameInLink(std::string_view link) noexcept {
    if (const KnownType* known = findKnownType(link)) {
        return known->name;
    }
    const std::size_t mark = link.find_last_of("#|");
    std::string_view name = mark == std::string_view::npos ? link : link.substr(mark + 1);
    const std::size_t slash = name.rfind('/');
    if (slash != std::string_view::npos && slash + 1 < name.size()) {
        name = name.substr(slash + 1);
    }
    return name.empty() ? link : name;
}

bool canBeName(std::string_view text) noexcept {
    const bool beginsLikeId = text.empty() || text.front() == '_' || text.front() == '-' ||
                              (text.front() >= '0' && text.front() <= '9');
    const std::size_t colon = text.find(':');
    const bool holdsLoneColon = colon != std::string_view::npos && text.substr(colon, 2) != "::";
    return !beginsLikeId && !holdsLoneColon && !text.starts_with("EAID_") && !text.starts_with("EAPK_");
}

bool isWellKnownLibrary(std::string_view link) noexcept {
    return findKnownType(link) != nullptr ||
           std::any_of(
               std::begin(WELL_KNOWN_LIBRARIES), std::end(WELL_KNOWN_LIBRARIES),
               [&](std::string_view library) { return link.find(library) != std::string_view::npos; });
}

ExternalNames::ExternalNames(Tree& tree, const References& references, const Dialect& dialect)
    : references_(references), dialect_(dialect) {
    for (NodeIndex index = 0; index < tree.size(); ++index) {
        const Element element = tree.at(index);
        if (element.node().space == Space::EXTENSION) {
            gather(element);
        }
    }
}

void ExternalNames::gather(Element element) {
    switch (element.kind()) {
        case "EAStub"_n:
            names_.emplace(element.text("id"_n), element.text("name"_n));
            break;
        case "source"_n:
        case "target"_n:
            if (const Element model = element.child("model"_n); model && model.has("name"_n)) {
                names_.emplace(element.text("idref"_n), model.text("name"_n));
            }
            break;
        case "attribute"_n:
        case "parameter"_n:
            gatherType(element);
            break;
        default:
            break;
    }
}

/// Beside an attribute's or parameter's type by id, which may lead nowhere, the extension keeps it by name.
void ExternalNames::gatherType(Element described) {
    const NodeIndex feature = references_.find(described.text("idref"_n));
    const Element properties = described.child("properties"_n);
    if (feature == NO_NODE || !properties || properties.text("type"_n).empty()) {
        return;
    }
    const Target type = references_.first({described.tree(), feature}, "type"_n);
    if (type.exists() && !type.isFound()) {
        names_.emplace(type.text, properties.text("type"_n));
    }
}

std::string_view ExternalNames::of(const Target& target) const {
    if (!target.label.empty()) {
        return lastSegment(target.label);
    }
    if (const auto found = names_.find(target.text); found != names_.end() && !found->second.empty()) {
        return found->second;
    }
    if (target.form == Form::HREF) {
        return nameInLink(target.text);
    }
    return dialect_.idsHoldTypeNames ? withoutToolPrefix(target.text) : lastSegment(target.text);
}

}  // namespace readers::xmi
