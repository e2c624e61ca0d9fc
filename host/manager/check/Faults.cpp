#include "Faults.h"

#include <algorithm>

namespace {

const char* kindOf(const Place& place) {
    switch (place.object->getElementType()) {
        case ZOR_NOTE:
            return "note";
        case ZOR_MODEL:
            return "model";
        case ZOR_DESIGN_PACKAGE:
            return "package";
        case ZOR_DATABASE_CATALOG:
            return "catalog";
        case ZOR_TYPE:
        case ZOR_CONCRETE_TYPE:
        case ZOR_DERIVED_TYPE:
        case ZOR_ALIAS_TYPE:
        case ZOR_CLASS_TYPE:
            return "type";
        case ZOR_TYPE_VALUE:
            return "value";
        case ZOR_CLASS:
            return "class";
        case ZOR_ATTRIBUTE:
            return place.outer != nullptr && place.outer->object->getElementType() == ZOR_ASSOCIATION_ROLE
                       ? "qualifier"
                       : "attribute";
        case ZOR_GENERALIZATION:
            return "generalization";
        case ZOR_ASSOCIATION:
            return "association";
        case ZOR_ASSOCIATION_ROLE:
            return "role";
        case ZOR_ASSOCIATION_ROLE_NAME_MAP:
            return "role-name map";
        case ZOR_CANDIDATE_KEY:
            return "candidate key";
        case ZOR_FOREIGN_KEY:
            return "foreign key";
        case ZOR_INDEX:
            return "index";
        case ZOR_INDEX_MEMBER:
            return "member";
        case ZOR_OPERATION:
            return "operation";
        case ZOR_STORED_PROCEDURE:
            return "stored procedure";
        case ZOR_TRIGGER:
            return "trigger";
        case ZOR_ARGUMENT:
            return place.outer != nullptr && place.outer->object->getElementType() == ZOR_CLASS
                       ? "template argument"
                       : "argument";
        case ZOR_SQL_VIEW_ENTITY:
            return "view";
        case ZOR_SQL_VIEW_ATTRIBUTE:
            return "column";
        case ZOR_DEPENDENCY:
            return "dependency";
        case ZOR_REALIZATION:
            return "realization";
        case ZOR_SYNONYM:
            return "synonym";
        case ZOR_DIAGRAM:
            return "diagram";
        default:
            return "object";
    }
}

const ZORString& nameOf(const ZORObject& object) {
    return object.isInstanceOf(ZOR_MODEL_OBJECT) ? static_cast<const ZORModelObject&>(object).getDisplayName()
                                                 : object.getName();
}

bool standsInPaths(const ZORObject* object) {
    return object != nullptr && object->isInstanceOf(ZOR_PACKAGE) && object->getElementType() != ZOR_MODEL;
}

/// Its name or, without one, its number among its parent's children.
std::string describePackage(const ZORPackage& package) {
    if (!nameOf(package).isEmpty()) {
        return std::string(nameOf(package).view());
    }
    const auto& siblings = static_cast<const ZORPackage*>(package.getOwner())->getChildPackages();
    return "#" + std::to_string(siblings.indexOf(const_cast<ZORPackage*>(&package)) + 1);
}

/// The names of the packages that the object is in, outermost first and each with a point behind it. Of many,
/// those in the middle are left out.
std::string packagesOf(const ZORObject& object) {
    constexpr std::size_t MOST = 6;
    std::vector<const ZORObject*> packages;
    const auto ownerOf = [](const ZORObject* part) {
        return static_cast<const ZORModelObject*>(part)->getOwner();
    };
    if (object.isInstanceOf(ZOR_MODEL_OBJECT)) {
        for (const ZORObject* owner = ownerOf(&object); standsInPaths(owner); owner = ownerOf(owner)) {
            packages.push_back(owner);
        }
    }
    std::reverse(packages.begin(), packages.end());
    std::string path;
    for (std::size_t i = 0; i < packages.size(); ++i) {
        if (packages.size() > MOST && i >= MOST / 2 && i < packages.size() - MOST / 2) {
            path += i == MOST / 2 ? "..." : "";
        } else {
            path.append(describePackage(static_cast<const ZORPackage&>(*packages[i]))).append(".");
        }
    }
    return path;
}

/// For example "attribute 'x'", "role #2", or, at the outermost place, "Class 'Sales.Orders'".
std::string describe(const Place& place) {
    std::string text = kindOf(place);
    const ZORString& name = nameOf(*place.object);
    if (place.outer != nullptr) {
        return name.isEmpty() ? text + " #" + std::to_string(place.number)
                              : text.append(" '").append(name).append("'");
    }
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text + " '" + packagesOf(*place.object) +
           (name.isEmpty() ? "#" + std::to_string(place.number) : std::string(name.view())) + "'";
}

}  // namespace

std::string Faults::quote(const ZORModelObject& object) {
    return " '" + std::string(object.getDisplayName().view()) + "'";
}

void Faults::add(const Place& place, std::string_view text) {
    if (isFull()) {
        return;
    }
    std::string sentence = describe(place);
    for (const Place* outer = place.outer; outer != nullptr; outer = outer->outer) {
        sentence.insert(0, describe(*outer).append(": "));
    }
    sentence.append(" ").append(text).append(".");
    sentences_.emplace_back(std::string_view(sentence));
}
