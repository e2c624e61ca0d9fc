#include <algorithm>
#include <string>

#include "ModelChecker.h"

namespace {

constexpr int DEEPEST_BASE = ZOR_DEEPEST_NESTING;
constexpr int TOO_DEEP = DEEPEST_BASE + 1;
constexpr int ON_THE_WAY = DEEPEST_BASE + 2;
static_assert(ON_THE_WAY <= Marks::LARGEST);

}  // namespace

void ModelChecker::collectPackages() {
    struct Open {
        ZORPackage* package;
        const ZORPackage* parent;
        std::size_t number;
        int depth;
    };
    std::vector<Open> open{{&model_, nullptr, 1, 0}};
    while (!open.empty() && !faults_.isFull()) {
        const Open at = open.back();
        open.pop_back();
        const Place place{nullptr, at.package, at.number};
        if (!checkNesting(place, at.parent, at.depth)) {
            continue;
        }
        marks_.set(*at.package, 0);
        packages_.push_back(place);
        const ZORVector<ZORPackage*>& children = at.package->getChildPackages();
        for (std::size_t i = children.size(); i > 0; --i) {
            open.push_back({children[i - 1], at.package, i, at.depth + 1});
        }
    }
}

bool ModelChecker::checkNesting(const Place& place, const ZORPackage* parent, int depth) {
    const ZORElementType type = place.object->getElementType();
    const bool inPackage = parent != nullptr && parent->getElementType() == ZOR_DESIGN_PACKAGE;
    if (marks_.isTaken(*place.object)) {
        faults_.add(place, "has a general pointer that is in use");
    } else if (parent != nullptr && type != ZOR_DESIGN_PACKAGE &&
               (type != ZOR_DATABASE_CATALOG || inPackage)) {
        faults_.add(place, inPackage ? "stands in a package, which holds only packages"
                                     : "stands in a model or catalog, which hold only packages and catalogs");
    } else if (depth > ZOR_DEEPEST_NESTING) {
        faults_.add(place, "is nested deeper than " + std::to_string(ZOR_DEEPEST_NESTING) +
                               " packages, the most permitted");
    } else {
        return true;
    }
    return false;
}

void ModelChecker::checkPackage(const Place& place, const ZORPackage& package) {
    checkObject(place, package);
    if (package.getElementType() != ZOR_DESIGN_PACKAGE) {
        return;
    }
    const auto& designPackage = static_cast<const ZORDesignPackage&>(package);
    const ZORVector<ZORModelElement*>& elements = designPackage.getModelElements();
    for (std::size_t i = 0; i < elements.size() && !faults_.isFull(); ++i) {
        checkElement(Place{nullptr, elements[i], i + 1}, *elements[i]);
    }
    checkOperations(place, designPackage.getOperations());
    checkParts(place, designPackage.getDiagrams(),
               [this](const Place& at, const ZORDiagram& diagram) { checkDiagram(at, diagram); });
}

void ModelChecker::checkDiagram(const Place& place, const ZORDiagram& diagram) {
    for (const ZORObject* element : diagram.getModelElements()) {
        // A note knows no owner, so that nothing can be told of it.
        if (element == nullptr || element->isInstanceOf(ZOR_MODEL_OBJECT)) {
            checkReference(place, static_cast<const ZORModelObject*>(element), "element");
        }
    }
}

void ModelChecker::checkType(const Place& place, ZORType& type) {
    checkObject(place, type);
    checkParts(place, type.getTypeValues(), [](const Place& /*at*/, const ZORTypeValue& /*value*/) {});
    if (type.getElementType() == ZOR_CLASS_TYPE) {
        checkReference(place, static_cast<const ZORClassType&>(type).getAssociatedClass(), "class");
    } else if (checksUml_ && !type.getStereotype().isEmpty()) {
        faults_.add(place, "has a stereotype, which in the UML view only the type of a class can have");
    }
    if (type.getBaseType() != nullptr) {
        checkTypeReference(place, type.getBaseType(), "base type");
        checkBases(type);
    }
}

void ModelChecker::checkBases(ZORType& type) {
    const auto placeOf = [this](ZORType* faulty) {
        return Place{nullptr, faulty, model_.getTypes().indexOf(faulty) + 1};
    };
    bases_.clear();
    ZORType* known = markBases(type);
    int depth = known == nullptr ? 0 : std::max(0, marks_.get(*known));
    if (depth == ON_THE_WAY) {
        faults_.add(placeOf(known), "is based on itself, by itself or through other types");
        depth = 0;
    }
    for (std::size_t i = bases_.size(); i > 0; --i) {
        if (depth == DEEPEST_BASE) {
            faults_.add(placeOf(bases_[i - 1]), "stands on more than " + std::to_string(DEEPEST_BASE) +
                                                    " base types, the most permitted");
        }
        depth = std::min(depth + 1, TOO_DEEP);
        marks_.set(*bases_[i - 1], depth);
    }
}

/// Follows the bases from the type to the first one whose depth is known, or to a type without a base.
ZORType* ModelChecker::markBases(ZORType& type) {
    ZORType* at = &type;
    while (at->getOwner() == &model_ && at->getBaseType() != nullptr && marks_.get(*at) < 0 &&
           !marks_.isTaken(*at)) {
        marks_.set(*at, ON_THE_WAY);
        bases_.push_back(at);
        at = at->getBaseType();
    }
    return at;
}
