#include <string>

#include "ModelChecker.h"

namespace {

constexpr int GREATEST_CLASS_TYPE = 9;

}  // namespace

void ModelChecker::checkElement(const Place& place, const ZORModelElement& element) {
    checkObject(place, element);
    checkReferences(place, element.getDiagrams(), "diagram");
    switch (element.getElementType()) {
        case ZOR_CLASS:
            return checkClass(place, static_cast<const ZORClass&>(element));
        case ZOR_SQL_VIEW_ENTITY:
            return checkView(place, static_cast<const ZORSQLViewEntity&>(element));
        case ZOR_ASSOCIATION:
            return checkAssociation(place, static_cast<const ZORAssociation&>(element));
        case ZOR_GENERALIZATION:
            return checkGeneralization(place, static_cast<const ZORGeneralization&>(element));
        case ZOR_DEPENDENCY:
            return checkClientAndSupplier(place, static_cast<const ZORDependency&>(element));
        case ZOR_REALIZATION:
            if (checksUml_ && !element.getStereotype().isEmpty()) {
                faults_.add(place,
                            "has a stereotype of its own, which in the UML view a realization cannot have");
            }
            return checkClientAndSupplier(place, static_cast<const ZORRealization&>(element));
        default:
            faults_.add(place, "is of the kind " + std::to_string(element.getElementType()) +
                                   ", which packages do not hold");
    }
}

void ModelChecker::checkClass(const Place& place, const ZORClass& cls) {
    checkNumber(place, "class type", cls.getClassType(), GREATEST_CLASS_TYPE);
    checkNumber(place, "visibility", cls.getVisibility(), ZOR_VISIBILITY_IMPLEMENTATION);
    checkNumber(place, "concurrency", cls.getConcurrency(), ZOR_CONCURRENCY_SYNCHRONOUS);
    checkClassReferences(place, cls);
    checkParts(place, cls.getAttributes(),
               [this](const Place& at, const ZORAttribute& attribute) { checkAttribute(at, attribute); });
    checkOperations(place, cls.getOperations());
    checkArguments(place, cls.getArguments());
    checkKeys(place, cls);
    checkParts(place, cls.getIndexes(),
               [&](const Place& at, const ZORIndex& index) { checkIndex(at, index, cls); });
    checkParts(place, cls.getSynonyms(), [](const Place& /*at*/, const ZORSynonym& /*synonym*/) {});
}

void ModelChecker::checkClassReferences(const Place& place, const ZORClass& cls) {
    if (const ZORAssociation* association = cls.getAssociation()) {
        if (checkReference(place, association, "association") && association->getAssociationClass() != &cls) {
            faults_.add(place, "has the association" + Faults::quote(*association) +
                                   ", which has another association class");
        }
    }
    checkReferences(place, cls.getGeneralizations(), "generalization");
    checkReferences(place, cls.getClientDependencies(), "dependency");
    checkReferences(place, cls.getRealizations(), "realization");
}

void ModelChecker::checkAttribute(const Place& place, const ZORAttribute& attribute) {
    checkRequiredType(place, attribute.getType());
    checkNumber(place, "visibility", attribute.getVisibility(), ZOR_VISIBILITY_IMPLEMENTATION);
    checkNumber(place, "position", attribute.getPosition(), INT16_MAX);
    for (const ZORKey* key : attribute.getKeys()) {
        // Most keys are of the same class, which is in the model.
        if (key->getOwner() != attribute.getOwner()) {
            checkReference(place, key, "key");
        }
    }
    checkParts(
        place, attribute.getRoleNameMaps(),
        [&](const Place& at, const ZORAssociationRoleNameMap& map) { checkRoleNameMap(at, map, attribute); });
}

void ModelChecker::checkRoleNameMap(const Place& place, const ZORAssociationRoleNameMap& map,
                                    const ZORAttribute& attribute) {
    const ZORForeignKey* key = map.getForeignKey();
    const ZORAttribute* referenced = map.getReferencedAttribute();
    checkOptionalReference(place, referenced, "referenced attribute");
    if (!checkReference(place, key, "foreign key")) {
        return;
    }
    if (attribute.getAssociatedClass() != nullptr && key->getOwner() != attribute.getOwner()) {
        faults_.add(place,
                    "is of the foreign key" + Faults::quote(*key) + ", which belongs to another class");
    }
    if (referenced != nullptr && key->getCandidateKey() != nullptr &&
        referenced->getOwner() != key->getCandidateKey()->getOwner()) {
        faults_.add(place, "refers to the attribute" + Faults::quote(*referenced) +
                               ", which is not of the class that the foreign key references");
    }
}

void ModelChecker::checkKeys(const Place& place, const ZORClass& cls) {
    std::size_t primaryKeys = 0;
    checkParts(place, cls.getKeys(), [&](const Place& at, const ZORKey& key) {
        checkKey(at, key, cls);
        if (key.getElementType() == ZOR_CANDIDATE_KEY &&
            static_cast<const ZORCandidateKey&>(key).getPrimaryOfClass() != nullptr) {
            ++primaryKeys;
        }
    });
    if (primaryKeys > 1) {
        faults_.add(place, "has more than one primary key");
    }
}

void ModelChecker::checkKey(const Place& place, const ZORKey& key, const ZORClass& cls) {
    for (const ZORAttribute* attribute : key.getAttributes()) {
        if (attribute->getOwner() != &cls) {
            faults_.add(place, "holds the attribute" + Faults::quote(*attribute) +
                                   ", which is not of the key's class");
        }
    }
    if (key.getElementType() == ZOR_FOREIGN_KEY) {
        checkForeignKey(place, static_cast<const ZORForeignKey&>(key));
    } else if (key.getElementType() == ZOR_CANDIDATE_KEY) {
        const ZORClass* primaryOf = static_cast<const ZORCandidateKey&>(key).getPrimaryOfClass();
        if (primaryOf != nullptr && primaryOf != &cls) {
            faults_.add(place, "is the primary key of the class" + Faults::quote(*primaryOf) +
                                   ", which is not its own");
        }
    } else {
        faults_.add(place, "is neither a candidate key nor a foreign key");
    }
}

void ModelChecker::checkForeignKey(const Place& place, const ZORForeignKey& key) {
    checkOptionalReference(place, key.getCandidateKey(), "candidate key");
    checkReferences(place, key.getAssociationRoles(), "role");
}

void ModelChecker::checkIndex(const Place& place, const ZORIndex& index, const ZORClass& cls) {
    if (index.getKey() != nullptr && index.getKey()->getOwner() != &cls) {
        faults_.add(place, "implements the key" + Faults::quote(*index.getKey()) +
                               ", which is not of the index's class");
    }
    checkParts(place, index.getIndexMembers(), [&](const Place& at, const ZORIndexMember& member) {
        if (member.getAttribute() == nullptr) {
            faults_.add(at, "has no attribute");
        } else if (member.getAttribute()->getOwner() != &cls) {
            faults_.add(at, "is of the attribute" + Faults::quote(*member.getAttribute()) +
                                ", which is not of the index's class");
        }
    });
}

void ModelChecker::checkOperation(const Place& place, const ZOROperation& operation) {
    checkTypeReference(place, operation.getResultType(), "result type");
    checkNumber(place, "concurrency", operation.getConcurrency(), ZOR_CONCURRENCY_SYNCHRONOUS);
    checkNumber(place, "visibility", operation.getVisibility(), ZOR_VISIBILITY_IMPLEMENTATION);
    checkArguments(place, operation.getArguments());
}

void ModelChecker::checkArgument(const Place& place, const ZORArgument& argument) {
    checkRequiredType(place, argument.getType());
    checkNumber(place, "kind", argument.getKind(), ZOR_ARGUMENT_RETURN);
}

void ModelChecker::checkView(const Place& place, const ZORSQLViewEntity& view) {
    checkParts(place, view.getSQLViewAttributes(),
               [this](const Place& at, const ZORSQLViewAttribute& column) {
                   checkTypeReference(at, column.getType(), "type");
                   checkOptionalReference(at, column.getSource(), "source");
               });
    checkOperations(place, view.getOperations());
}
