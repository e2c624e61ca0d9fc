#include "ModelChecker.h"

#include <string>

namespace {

/// "refers to a key that is not of this model".
std::string describeOutside(const char* what) {
    const bool vowel = std::string_view("aeiou").find(what[0]) != std::string_view::npos;
    return std::string("refers to ") + (vowel ? "an " : "a ") + what + " that is not of this model";
}

}  // namespace

std::vector<ZORString> ModelChecker::run() {
    collectPackages();
    if (!faults_.isEmpty()) {
        return faults_.take();  // what belongs to the model is not known
    }
    for (const Place& place : packages_) {
        checkPackage(place, static_cast<const ZORPackage&>(*place.object));
    }
    const ZORVector<ZORType*>& types = model_.getTypes();
    for (std::size_t i = 0; i < types.size() && !faults_.isFull(); ++i) {
        checkType(Place{nullptr, types[i], i + 1}, *types[i]);
    }
    return faults_.take();
}

void ModelChecker::checkObject(const Place& place, const ZORModelObject& object) {
    if (marks_.isTaken(object)) {
        faults_.add(place, "has a general pointer that is in use");
    }
    checkNumber(place, "design level", object.getDesignLevel(), ZOR_PHYSICAL_ONLY);
    if (!object.getNotes().isEmpty()) {
        checkNotes(place, object);
    }
}

void ModelChecker::checkNotes(const Place& place, const ZORModelObject& object) {
    for (std::size_t i = 0; i < object.getNotes().size(); ++i) {
        const ZORNote* note = object.getNotes()[i];
        if (note == nullptr) {
            faults_.add(place, "has a null among its notes");
        } else if (note->getGeneralPointer() != nullptr) {
            faults_.add(Place{&place, note, i + 1}, "has a general pointer that is in use");
        }
    }
}

void ModelChecker::addNumberFault(const Place& place, const char* what, int number, int greatest) {
    faults_.add(place, "has the " + std::string(what) + " " + std::to_string(number) +
                           ", which is none of 0 to " + std::to_string(greatest));
}

void ModelChecker::checkTypeReference(const Place& place, const ZORType* type, const char* what) {
    if (type != nullptr && type->getOwner() != &model_) {
        faults_.add(place, describeOutside(what));
    }
}

void ModelChecker::checkRequiredType(const Place& place, const ZORType* type) {
    if (type == nullptr) {
        faults_.add(place, "has no type");
    }
    checkTypeReference(place, type, "type");
}

bool ModelChecker::checkReference(const Place& place, const ZORModelObject* object, const char* what) {
    if (object == nullptr) {
        faults_.add(place, std::string("has no ") + what);
        return false;
    }
    if (!isInModel(object)) {
        faults_.add(place, describeOutside(what));
        return false;
    }
    return true;
}

bool ModelChecker::isInModel(const ZORModelObject* object) const {
    while (object != nullptr) {
        switch (object->getElementType()) {
            case ZOR_MODEL:
            case ZOR_DESIGN_PACKAGE:
            case ZOR_DATABASE_CATALOG:
                return marks_.get(*object) >= 0;
            default:
                object = static_cast<const ZORModelObject*>(object->getOwner());
        }
    }
    return false;
}
